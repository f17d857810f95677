// Form24, "Calibration": the peaks of a standard above those that were measured of it on a channel detector.
// The user couples them, and a polynomial from channel to 2-theta is fitted to the couples.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "calibration/calibration_fit.h"
#include "calibration/standards.h"
#include "display/stick_plot.h"
#include "workspace/buffer_window.h"
#include "workspace/help_button.h"
#include "workspace/kept_peak_list.h"
#include "workspace/wavelength_choices.h"

namespace koprax {

class Form24 final : public BufferWindow {
 public:
  explicit Form24(const WindowContext& context);

 private:
  void OnLoad() override;
  void OnUnload() override;
  void OnCloseBox() override { ReturnToMainMenu(); }

  void ArrangeControls();
  [[nodiscard]] LayoutNode PicturesLayout();
  [[nodiscard]] LayoutNode CommandsLayout();
  void ConnectHandlers();
  void ReturnToMainMenu();

  // The two diagrams.
  /// Shows the window with the peak list of its buffer, and asks for a wavelength where there is none.
  void disegna_picchi();
  /// Shows the wavelength of the buffer, and asks for it no more.
  void ShowWavelength();
  void TakeWavelength();
  void ShowStandard(const Standard& standard);
  void ShiftStandard();
  void DrawStandardFrame(const XRange& range);
  void ShowReadOut(float x, float y);
  /// What the mouse does in each of the pictures now, in words.
  void ShowMouseTips();
  [[nodiscard]] bool HasContent() override;

  // The couples.
  void StartCoupling();
  void PickStandardPeak(float x);
  void PickSamplePeak(float x);
  void CompletePair();
  void AcceptCouple();
  void SettleCouple();
  void OfferAnswers(bool offered);
  void QuitCoupling();

  // The fit.
  void StartCalibration();

  /// What stands as long as the window is loaded. Picks are numbered from 1.
  struct State {
    KeptPeakList Kept;
    std::vector<Stick> SampleSticks;
    StandardPeaks Standard;
    bool StandardLoaded = false;
    float Wavelength = 0;  ///< that the standard was taken to
    bool CouplingActive = false;
    int PickStandard = 0;  ///< 1 while a picked peak awaits its partner
    int PickSample = 0;
    std::size_t StandardPick = 0;
    std::size_t SamplePick = 0;
    Stick StandardLine;  ///< of the picked peaks, to be drawn back
    Stick SampleLine;
    Calibration Result;
  };
  State state_;
  StickPlot standard_plot_;
  StickPlot sample_plot_;

  Label Label1{*this, "Label1", {.Caption = "         Standard sample"}};
  PictureBox Picture1{*this, "Picture1", StickPicture("Stick diagram of the standard")};
  TextBox Text3{
      *this, "Text3", {.Meaning = "Lowest 2-theta of the standard on show", .Locked = true, .Columns = 15}};
  TextBox Text4{
      *this, "Text4", {.Meaning = "Highest 2-theta of the standard on show", .Locked = true, .Columns = 15}};
  TextBox Text7{*this,
                "Text7",
                {.Meaning = "Wavelength of the standard in angstrom",
                 .Font = std::string(SymbolFont),
                 .Locked = true,
                 .Columns = 13}};
  TextBox Text8{
      *this, "Text8", {.Meaning = "2-theta under the mouse, degrees", .Locked = true, .Columns = 13}};
  TextBox Text6{*this, "Text6", {.Meaning = "Intensity under the mouse", .Locked = true, .Columns = 13}};
  TextBox Text5{*this,
                "Text5",
                {.Meaning = "Lattice spacing d under the mouse, angstrom", .Locked = true, .Columns = 9}};
  Label Label2{*this, "Label2", {.Caption = "      Calibration sample"}};
  PictureBox Picture2{*this, "Picture2", StickPicture("Stick diagram of the calibration sample")};
  TextBox Text1{*this,
                "Text1",
                {.Meaning = "Wavelength of the calibration sample in angstrom",
                 .Font = std::string(SymbolFont),
                 .Locked = true,
                 .Columns = 13}};

  Frame Frame3{*this, "Frame3", {}};
  Label Label3{*this, "Label3", {.Caption = WavelengthQuestion}};
  ComboBox Combo1{*this, "Combo1", WavelengthChoicesForPeaks("1.54184   (Cu   K-a1+ K-a2)")};
  Button cmdComboOK{*this, "cmdComboOK", {.Caption = "OK"}};

  Button cmdCorundum{*this, "cmdCorundum", {.Caption = "  Al2O3 (Corundum)"}};
  Button cmdSi{*this, "cmdSi", {.Caption = "Silicon"}};
  Label Label4{*this, "Label4", {.Caption = "Shift standard profile by"}};
  TextBox Text2{
      *this, "Text2", {.Meaning = "Shift of the standard in degrees of 2-theta", .Text = "0", .Columns = 8}};
  Label Label5{*this, "Label5", {.Caption = "deg. (2-theta)"}};
  Button Command2{*this, "Command2", {.Caption = "OK"}};

  Button cmdStartCou{*this, "cmdStartCou", {.Caption = "Start coupling"}};
  Frame Frame1{*this, "Frame1", {.Caption = "Coupling peaks"}};
  Button cmdAccept{*this, "cmdAccept", {.Caption = "accept", .ToolTip = "Accept couple"}};
  Button cmdSkip{*this, "cmdSkip", {.Caption = "refuse", .ToolTip = "Reject couple"}};
  Button cmdQuit{*this, "cmdQuit", {.Caption = "Quit", .ToolTip = "Quit coupling mode"}};
  TextBox Text9{*this,
                "Text9",
                {.Meaning = "Accepted couples, 2-theta and channel",
                 .Font = "Courier",
                 .Locked = true,
                 .MultiLine = true,
                 .FollowsEnd = true,
                 .Columns = 40,
                 .Rows = 7}};

  Button Command3{*this, "Command3", {.Caption = "    Start calibration"}};
  TextBox Text10{*this,
                 "Text10",
                 {.Meaning = "Result of the calibration",
                  .Font = "Courier",
                  .Locked = true,
                  .MultiLine = true,
                  .Columns = 40,
                  .Rows = 6}};
  Button Command4{*this, "Command4", {.Caption = "Save", .ToolTip = "Save refined parameters on disk"}};
  Button Command1{*this, "Command1", {.Caption = "Main menu", .ToolTip = "Return to main menu"}};

  HelpButton Command5{*this, "Command5", context_.Main, HelpTopic::HelpCorundum};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpSilicon};
  HelpButton Command7{*this, "Command7", context_.Main, HelpTopic::HelpCoupling};
  HelpButton Command8{*this, "Command8", context_.Main, HelpTopic::HelpStartCalibration};
  HelpButton Command9{*this, "Command9", context_.Main, HelpTopic::HelpSaveCalibration};
};

}  // namespace koprax
