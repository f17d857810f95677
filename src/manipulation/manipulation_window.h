// Form12, "Profile manipulation": three tools for one profile, each in a frame of its own: smoothing, the
// estimate of the background, the Fourier filter. They change the temporary copy and tables of their own; a
// result goes into a buffer by a picker.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "display/drawn_plot.h"
#include "display/plot_transform.h"
#include "display/profile_boxes.h"
#include "display/rubber_band.h"
#include "manipulation/background_plot.h"
#include "manipulation/dft_filter.h"
#include "workspace/buffer_picker.h"
#include "workspace/buffer_window.h"
#include "workspace/help_button.h"
#include "workspace/kept_profile.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// The progress strip: twips, y growing downward.
[[nodiscard]] inline PictureSetup ProgressPicture() {
  return {.Scale = {.Left = 0, .Top = 0, .Width = 2475, .Height = 200, .UnitsPerPoint = 20},
          .DesignWidth = 2475 / TwipsPerMillimetre,
          .DesignHeight = 200 / TwipsPerMillimetre,
          .Meaning = "Progress of the transform"};
}

class Form12 final : public BufferWindow {
 public:
  explicit Form12(const WindowContext& context);

  /// Draws the temporary copy of the slot and fills the boxes; false when there is no range of X to draw.
  bool ShowProfile(int slot);

  /// Another window is about to use the table of the background.
  void PutByBackground();

  [[nodiscard]] bool MayClose() const override { return cmdMain.Enabled; }

 private:
  void OnLoad() override;
  void OnUnload() override;
  void OnCloseBox() override { ReturnToMainMenu(); }

  void ArrangeControls();
  [[nodiscard]] LayoutNode PictureLayout();
  [[nodiscard]] LayoutNode ToolsLayout();
  void ConnectHandlers();
  void SaveBitmap();
  void ReturnToMainMenu();

  // Results into buffers.
  void SaveBackground();
  void SaveSmoothed(bool by_dft);
  void OpenPicker(const PickerKind& kind, const std::function<void(Workspace&)>& save);
  void StoreResult(int source, const std::function<void(Workspace&)>& save);
  void ClosePicker();

  // The mouse over the picture, and the zoom of the background view.
  /// What the mouse does in the picture now, in words.
  [[nodiscard]] std::string MouseTip() const;
  void ShowMouseTip() { Picture1.ToolTip = MouseTip(); }
  void MousePressed(float x, float y);
  void MouseMoved(float x, float y);
  void MouseReleased(float x);
  void ShowReadOut(float x, float y);
  void StartZoom();
  void AcceptZoom();
  void CancelZoom();
  void Unzoom();
  void ForgetZoom();
  void HideSelection();
  void EnableBackgroundCommands(bool enabled);
  void DrawWithSmoothCurve(const PlotLimits& limits);
  [[nodiscard]] PlotLimits SelectedLimits() const;

  // Point smoothing.
  void Smooth();
  [[nodiscard]] bool SmoothOver(int window);
  [[nodiscard]] int AskForSmoothingWindow();
  void DrawSmoothedProfile();
  void QuitSmoothing();

  // The estimate of the background.
  void EstimateBackground();
  void EnterBackgroundMode();
  [[nodiscard]] std::optional<int> AskForAveragingWindow();
  [[nodiscard]] bool RunCycles(int window);
  [[nodiscard]] bool Cycle(int window);
  void ReadBackSmoothCurve();
  void DrawCycle();
  [[nodiscard]] bool WantsAnotherCycle();
  void DrawBackgroundAndProfile();
  void ResumeEstimate();
  void Subtract();
  void Rescale();
  void QuitBackground();
  void ClearBackground();
  void PrintBackground();
  void UseBackgroundColours();
  /// The profile is another one than that which the background was subtracted from.
  void EndSubtraction();
  /// The commands that a subtraction switches off.
  void EnableUnsubtracted(bool enabled);

  // The Fourier filter.
  void Transform();
  void Filter();
  [[nodiscard]] float AskForFilterParameter();
  void TransformInverse();
  void RunTransform(const std::function<void()>& transform);
  void ShowProgress(float end);
  void SaveFiltered();
  void QuitDft();
  [[nodiscard]] bool HasCoefficients();
  void ShowCoefficients();
  void ShowFiltered();

  // What is on show.
  void TakeUp() override;
  void BeforeCommand() override;
  void PutBackBackground();
  [[nodiscard]] bool HasContent() override;
  /// Whether the buffer still holds the points that this window has shown or left there.
  [[nodiscard]] bool HoldsItsPoints() const;
  [[nodiscard]] bool HasPlot();
  void TellBeyondRange(const std::string& what);
  /// Clears the picture and draws a frame. False when the limits span nothing, which is told.
  bool DrawFrame(const PlotLimits& limits);
  /// The same for another picture than a portion of the profile: a zoom is over.
  bool DrawNewFrame(const PlotLimits& limits);
  /// The frame of the whole profile.
  bool DrawWholeFrame() { return DrawNewFrame(state_.Whole); }
  /// A curve over X of the permanent copy in the frame on show.
  void DrawOverX(const PointTable& y, Colour colour);
  [[nodiscard]] CurveOrigin Origin() const;

  /// What stands as long as the window is loaded.
  struct State {
    KeptProfile Kept;
    bool CopyIsDue = false;      ///< of its temporary copy only the number of points is that of the profile
    PlotLimits Whole{};          ///< of the plot of the whole profile
    bool Plotted = false;        ///< there is such a plot
    DrawnPlot Shown;             ///< the frame on show
    float PictureXMin = 0;       ///< its left limit
    std::int16_t NegativeY = 0;  ///< whether it reaches below 0
    bool ShowsCoefficients = false;
    bool ZoomSelect = false;  ///< a zoom is being selected or is in force
    bool Zoomed = false;      ///< the picture shows a portion
    bool ZoomDrag = false;    ///< the mouse button is down in a selection
    float ZoomLow = 0;        ///< the zoomed range in data units
    float ZoomHigh = 0;
    float ZoomTop = 0;
    float ZoomBottom = 0;
    bool BackgroundMode = false;
    std::optional<PointTable> PutBy;  ///< the background in hand, while another window uses its table
    int HalfWindow = 0;               ///< half the window of the last cycles
    Colour ProfileColour = colours::Black;
    Colour BackgroundColour = colours::Black;
    DftFilter Dft;
    std::weak_ptr<Form> Picker;
  };

  State state_;

  PictureBox Picture1{*this, "Picture1", PlotPicture()};
  Shape Shape1{Picture1, "Shape1", RestingBandEdge, RestingBandEdge, BandSize, BandSize};
  PictureBox Picture2{*this, "Picture2", ProgressPicture()};
  LineShape Line1{Picture2, "Line1", colours::Blue, 0, 100, 2, 100, 5};

  ProfileBoxes Boxes{*this};
  TextBox Text3{*this, "Text3", {.Meaning = "X under the mouse", .Locked = true, .Columns = 14}};
  TextBox Text4{*this, "Text4", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 20}};
  OptionButton optOK{*this, "optOK", {.Caption = "OK"}};
  OptionButton optNO{*this, "optNO", {.Caption = "Cancel"}};

  Button cmdBckg{
      *this,
      "cmdBckg",
      {.Caption = "Background", .ToolTip = "Evaluate background through a ROBUST smoothing procedure"}};
  Button cmdMain{*this, "cmdMain", {.Caption = "Main Menu", .ToolTip = "Return to main menu"}};
  Button Command18{*this, "Command18", {.Caption = "Bitmap", .ToolTip = "Save image as a bitmap file"}};

  Frame Frame3{*this, "Frame3", {.Caption = "Smoothing"}};
  Button cmdSmo{
      *this, "cmdSmo", {.Caption = "Smooth", .ToolTip = "Start a 5, 7 or 9 points Smoothing procedure"}};
  Button Command14{*this, "Command14", {.Caption = "Save", .ToolTip = "Save smoothed profile on buffer"}};
  Button Command17{*this, "Command17", {.Caption = "Quit", .ToolTip = "Quit Smoothing mode"}};

  Frame Frame2{*this, "Frame2", {.Caption = "Background manipulation"}};
  Button cmdZoom{*this, "cmdZoom", {.Caption = "Zoom"}};
  Button cmdSave{*this, "cmdSave", {.Caption = "Save ", .ToolTip = "Save background on buffer"}};
  Button cmdResume{*this, "cmdResume", {.Caption = "Resume"}};
  Button cmdSubtr{*this, "cmdSubtr", {.Caption = "Subtract"}};
  Button cmdRes{*this, "cmdRes", {.Caption = "Rescaling  bckg"}};
  Button cmdPrint{*this, "cmdPrint", {.Caption = "Print", .ToolTip = "Print profile and background"}};
  Button cmdQuitBckg{*this, "cmdQuitBckg", {.Caption = "Quit "}};

  Frame Frame1{*this, "Frame1", {.Caption = "DFT Filtering"}};
  Button cmdDFT{*this, "cmdDFT", {.Caption = "DFT", .ToolTip = "Calculate a Discrete Fourier Transform"}};
  Button cmdFilter{*this, "cmdFilter", {.Caption = "Filter", .ToolTip = "Modify Fourier coefficients"}};
  Button cmdDFTInv{*this,
                   "cmdDFTInv",
                   {.Caption = "DFT inv.", .ToolTip = "Calculate an inverse Discrete Fourier Transform"}};
  Button Command7{*this, "Command7", {.Caption = "Save", .ToolTip = "Save profile on a new buffer"}};
  Button Command16{*this, "Command16", {.Caption = "Quit", .ToolTip = "Quit DFT mode"}};

  HelpButton cmdSmoGuide{*this, "cmdSmoGuide", context_.Main, HelpTopic::HelpSmoothing};
  HelpButton Command1{*this, "Command1", context_.Main, HelpTopic::HelpBackground};
  HelpButton Command2{*this, "Command2", context_.Main, HelpTopic::HelpDftInverse};
  HelpButton Command3{*this, "Command3", context_.Main, HelpTopic::HelpFilter};
  HelpButton Command4{*this, "Command4", context_.Main, HelpTopic::HelpDft};
  HelpButton Command5{*this, "Command5", context_.Main, HelpTopic::HelpSaveBackground};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpSmoothing};
  HelpButton Command8{*this, "Command8", context_.Main, HelpTopic::HelpZoomBackground};
  HelpButton Command9{*this, "Command9", context_.Main, HelpTopic::HelpResume};
  HelpButton Command10{*this, "Command10", context_.Main, HelpTopic::HelpPrintBackground};
  HelpButton Command11{*this, "Command11", context_.Main, HelpTopic::HelpSubtract};
  HelpButton Command12{*this, "Command12", context_.Main, HelpTopic::HelpQuitBackground};
  HelpButton Command13{*this, "Command13", context_.Main, HelpTopic::HelpDft};
  HelpButton Command15{*this, "Command15", context_.Main, HelpTopic::HelpSmoothing};
  HelpButton Command19{*this, "Command19", context_.Main, HelpTopic::HelpBitmap};
  HelpButton Command20{*this, "Command20", context_.Main, HelpTopic::HelpRescale};
};

}  // namespace koprax
