// Form19, "Peak fit": from the range of a profile over its background and its peaks to the refined
// parameters, one stage after the other. Parameters, chi squares and refined peaks are shown by windows of
// their own.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "display/drawn_plot.h"
#include "display/profile_boxes.h"
#include "display/rubber_band.h"
#include "fit/fit_setup.h"
#include "fit/minimiser.h"
#include "workspace/buffer_window.h"
#include "workspace/help_button.h"
#include "workspace/kept_profile.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

inline constexpr int CyclesPerRun = 5;
inline constexpr float ProgressWidth = 2000;  ///< of the progress strip, in its own units

class Form19 final : public BufferWindow {
 public:
  explicit Form19(const WindowContext& context);

  /// Draws the temporary copy of the slot and fills the boxes; false when there is no range of X to draw.
  bool ShowProfile(int slot);

 private:
  void OnLoad() override;
  void OnUnload() override { CloseHelpers(); }
  void OnCloseBox() override { ReturnToMainMenu(); }

  void ArrangeControls();
  [[nodiscard]] LayoutNode PictureLayout();
  [[nodiscard]] LayoutNode StagesLayout();
  void ConnectHandlers();
  void ReturnToMainMenu();
  void CloseHelpers();
  /// All the state of a fit goes back to the start; what is drawn stays.
  void ForgetFit();

  // The mouse over the picture.
  /// What the mouse does in the picture now, in words.
  [[nodiscard]] std::string MouseTip() const;
  void ShowMouseTip() { Picture1.ToolTip = MouseTip(); }
  void MousePressed(MouseButton button, float x, float y);
  void MouseMoved(float x, float y);
  void ShowReadOut(float x, float y);
  void AcceptSelection();
  void RefuseSelection();
  void OfferAnswers(bool offered);

  // The range.
  void SelectRange();
  void ClickForRange(float x);
  void EndRangeSelection();
  void DrawRange();

  // The background.
  void StartBackgroundLine();
  void ClickForBackground(float x, float y);
  [[nodiscard]] bool TakeBackgroundLine();
  void RestartBackgroundLine();
  void EndBackgroundLine();
  void LoadBackground();
  void TakeBackground(Form& picker, int slot);
  void KeepBackground();
  void RestoreBackground();
  void QuitBackground();
  void ClosePicker();

  // The peaks.
  void StartPeakSelection();
  void EndPeakSelection();
  void SelectPeak(float x);
  void LoadPeaks();
  [[nodiscard]] float TakePeak(const PeakPosition& top, float height_before);
  [[nodiscard]] StartingPeak AskForPeak(const PeakPosition& top, float height_before);
  [[nodiscard]] float AskForWidth();
  void EndPeakInput();
  void ShowPeakCount();
  void QuitPeaks();

  // The refinement.
  void ShowParameters();
  void StartFit();
  [[nodiscard]] bool OpenRefinement();
  void RunCycles();
  bool Step();
  void TellStepBeyondRange();
  void ShowProgress(float end);
  void ShowResults();
  void LeaveRefinement();
  void StopRefinement();
  void CloseRefinement();
  void SavePeaks();

  // What is on show.
  [[nodiscard]] PeakFit& Fit() const { return context_.Data.Fit; }
  void TakeUp() override;
  void BeforeCommand() override;
  [[nodiscard]] bool HasContent() override;
  [[nodiscard]] bool HoldsItsPoints() const;
  void DrawFrame(const XRange& range);
  [[nodiscard]] XRange Range() const { return {state_.RangeLow, state_.RangeHigh}; }
  [[nodiscard]] CurveOrigin Origin() const;

  /// The background in use before a line was begun or a buffer looked for.
  struct FormerBackground {
    bool Polynomial = false;
    std::array<float, 6> Line{};
  };

  /// What stands as long as the window is loaded.
  struct State {
    KeptProfile Kept;
    DrawnPlot Shown;             ///< the frame on show
    float PictureXMin = 0;       ///< its left limit
    std::int16_t NegativeY = 0;  ///< whether it reaches below 0
    float RangeLow = 0;
    float RangeHigh = 0;
    bool FollowLow = false;  ///< Line1 follows the mouse
    bool FollowHigh = false;
    int ClickCount = 0;  ///< 1 where a selection of two clicks begins, one more with each click
    bool DrawBkgMode = false;
    bool LineComplete = false;  ///< of the background, by two clicks
    FormerBackground Former;
    float LineX1 = 0;  ///< the clicks of the background line, on the picture
    float LineY1 = 0;
    float LineX2 = 0;
    float LineY2 = 0;
    std::weak_ptr<Form> Picker;
    bool SelPeaksMode = false;
    bool PeakLimitReached = false;
    bool DeletionOpen = false;  ///< a peak has been deleted, but the fit still has its parameters
    bool StepTold = false;      ///< that a step of this run left the range of 32 bits
    Minimiser Refinement;
    std::string StartChi;
    std::array<std::string, CyclesPerRun + 1> CycleChi;
  };

  State state_;

  PictureBox Picture1{*this, "Picture1", PlotPicture()};
  LineShape Line1{Picture1, "Line1", colours::Blue, 0, 15, 0, 90};
  LineShape Line2{Picture1, "Line2", colours::Blue, 0, 15, 0, 90};
  LineShape Line3{Picture1, "Line3", colours::Magenta, 1, 1, 2, 2};
  LineShape Line4{Picture1, "Line4", colours::Red, 0, 15, 0, 90};
  Shape Shape1{Picture1, "Shape1", RestingBandEdge, RestingBandEdge, BandSize, BandSize};
  PictureBox Picture2{*this,
                      "Picture2",
                      {.Scale = {.Left = 0, .Top = 0, .Width = ProgressWidth, .Height = 10},
                       .DesignWidth = 40,
                       .DesignHeight = 3.5,
                       .Meaning = "Progress of the refinement"}};
  LineShape Line5{Picture2, "Line5", colours::Blue, 1, 5, 2, 5, 5};

  ProfileBoxes Boxes{*this};
  TextBox Text8{*this,
                "Text8",
                {.Meaning = "Wavelength of the profile in angstrom",
                 .Font = std::string(SymbolFont),
                 .Locked = true,
                 .Columns = 12}};
  TextBox Text3{*this, "Text3", {.Meaning = "X under the mouse", .Locked = true, .Columns = 14}};
  TextBox Text4{*this, "Text4", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 20}};
  Label Label1{*this, "Label1", {.Caption = "X"}};
  Label Label2{*this, "Label2", {.Caption = "2-theta  (deg)"}};
  Label Label3{*this, "Label3", {.Caption = "d  (angstrom)"}};
  TextBox Text10{
      *this, "Text10", {.Meaning = "Angle or channel under the mouse", .Locked = true, .Columns = 10}};
  TextBox Text14{
      *this, "Text14", {.Meaning = "2-theta under the mouse, degrees", .Locked = true, .Columns = 12}};
  TextBox Text15{*this,
                 "Text15",
                 {.Meaning = "Lattice spacing d under the mouse, angstrom", .Locked = true, .Columns = 12}};
  TextBox Text16{*this, "Text16", {.Meaning = "Lower limit of the range", .Locked = true, .Columns = 22}};
  TextBox Text17{*this, "Text17", {.Meaning = "Upper limit of the range", .Locked = true, .Columns = 22}};
  TextBox Text18{*this, "Text18", {.Meaning = "Number of selected peaks", .Locked = true, .Columns = 18}};
  OptionButton optOK{*this, "optOK", {.Caption = "OK"}};
  OptionButton optNO{*this, "optNO", {.Caption = "Cancel"}};

  Button cmdSelectRange{
      *this,
      "cmdSelectRange",
      {.Caption = "Select range", .ToolTip = "Select the range of the peaks with two clicks of the mouse"}};
  Button cmdMain{*this, "cmdMain", {.Caption = "Main Menu", .ToolTip = "Return to main menu"}};

  Frame Frame1{*this, "Frame1", {.Caption = "Define Background"}};
  Button cmdDefBkg{*this, "cmdDefBkg", {.Caption = "Draw bkg"}};
  Button Command2{*this, "Command2", {.Caption = "Load bkg"}};
  Button Command5{*this, "Command5", {.Caption = "Quit", .ToolTip = "Quit background definition mode"}};

  Frame Frame3{*this, "Frame3", {.Caption = "Define Peaks to fit"}};
  Button cmdSelPeaks{*this, "cmdSelPeaks", {.Caption = "Select peaks"}};
  Button cmdLoadPeaks{
      *this, "cmdLoadPeaks", {.Caption = "Load peaks", .ToolTip = "Load previously defined peaks"}};
  Button Command10{*this, "Command10", {.Caption = "Quit", .ToolTip = "Quit peak definition mode"}};

  Frame Frame4{*this, "Frame4", {.Caption = "Fit"}};
  Button cmdShowParam{*this, "cmdShowParam", {.Caption = "Parameters"}};
  Button cmdStartFit{*this, "cmdStartFit", {.Caption = "Start fit"}};
  Button cmdSave{*this, "cmdSave", {.Caption = "Save"}};
  Button Command15{*this, "Command15", {.Caption = "Quit"}};

  HelpButton Command1{*this, "Command1", context_.Main, HelpTopic::HelpSelectRange};
  HelpButton Command3{*this, "Command3", context_.Main, HelpTopic::HelpLoadPeaks};
  HelpButton Command4{*this, "Command4", context_.Main, HelpTopic::HelpSelectPeaks};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpQuitFit};
  HelpButton Command7{*this, "Command7", context_.Main, HelpTopic::HelpShowParam};
  HelpButton Command8{*this, "Command8", context_.Main, HelpTopic::HelpBackgroundBuffer};
  HelpButton Command9{*this, "Command9", context_.Main, HelpTopic::HelpDrawBackground};
  HelpButton Command11{*this, "Command11", context_.Main, HelpTopic::HelpDefinePeaks};
  HelpButton Command12{*this, "Command12", context_.Main, HelpTopic::HelpDefineBackground};
  HelpButton Command13{*this, "Command13", context_.Main, HelpTopic::HelpStartFit};
  HelpButton Command14{*this, "Command14", context_.Main, HelpTopic::HelpFitFrame};
  HelpButton Command16{*this, "Command16", context_.Main, HelpTopic::HelpSaveFit};
};

}  // namespace koprax
