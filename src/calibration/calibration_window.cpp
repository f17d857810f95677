// The window as a whole: its making, the two diagrams, the ways out. The couples and the fit to them stand in
// calibration_window_coupling.cpp.
#include "calibration/calibration_window.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

#include "display/mouse_tips.h"
#include "files/calibration_commands.h"
#include "files/peak_list_commands.h"
#include "files/peak_list_window.h"
#include "files/typed_wavelength.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

constexpr float StandardSpan = 120;  ///< degrees of 2-theta in Picture1
constexpr XRange Channels{.Low = 0, .High = 4096};

/// What the mouse does.
namespace tips {
constexpr const char* ReadOut = "The boxes below show 2-theta, y and d under the mouse.";
constexpr const char* PickStandard = "Click on a peak of the standard.\r\nThen click on its partner below.";
constexpr const char* PartnerBelow = "Click on the partner of the blue peak in the picture below.";
constexpr const char* PickSample =
    "Click on a peak of the sample.\r\nIts partner is a peak of the standard above.";
constexpr const char* PartnerAbove = "Click on the partner of the blue peak in the picture above.";
constexpr const char* Coupled = "\"accept\" takes the blue peaks as a couple.\r\n\"refuse\" leaves them.";
}  // namespace tips

/// The range of the standard after a shift to the right by so many degrees; nothing where 32 bits don't hold
/// it apart.
std::optional<XRange> ShiftedRange(float x_min, double shift) {
  const auto low = static_cast<float>(x_min - shift);
  const XRange range{.Low = low, .High = low + StandardSpan};
  const bool spans = SpansX({.XMin = range.Low, .XMax = range.High, .YMin = 0, .YMax = 1});
  return std::isfinite(low) && spans ? std::optional(range) : std::nullopt;
}

Message NoWavelength() {
  return ErrorMessage(
      "The wave length of the calibration sample is not known.\r\nGive it first, and press \"OK\" beside "
      "it.");
}

Message NoShift(const std::string& text) {
  return ErrorMessage("The standard can't be shifted by " + text +
                      " degrees.\r\nGive a number of degrees (2-theta), such as 2.5 or -10.");
}

Message NoChannels(const ProfileBuffer& buffer) {
  return {.Text = "The peaks in the list of buffer " + buffer.BufLetter +
                  " have no channels.\r\nA calibration wants the list of a profile in channels.",
          .Title = "Warning",
          .Icon = MessageIcon::Exclamation};
}

}  // namespace

Form24::Form24(const WindowContext& context) : BufferWindow(context, "Form24", "Calibration") {
  ArrangeControls();
  ConnectHandlers();
  cmdComboOK.Meaning = "OK, take the wavelength";
  Command2.Meaning = "OK, shift the standard";
  EnterClicks(cmdComboOK);
  EnterClicks(Command2);
  EscapeClicks(cmdSkip);
}

LayoutNode Form24::PicturesLayout() {
  return Column({
      Row({Label1, Space(), Text7}),
      Stretched(Picture1),
      Row({Stretched(Text3), Stretched(Text4), Stretched(Text8), Stretched(Text6), Stretched(Text5)}),
      Row({Label2, Space(), Text1}),
      Stretched(Picture2),
  });
}

LayoutNode Form24::CommandsLayout() {
  return Column({
      Grid(2, {Stretched(cmdCorundum), Command5, cmdSi, Command6}),
      Label4,
      Row({Text2, Label5, Space(), Command2}),
      Row({Stretched(cmdStartCou), Command7}),
      KeepingRoom(Framed(Frame1, Row({Stretched(cmdAccept), Stretched(cmdSkip), Stretched(cmdQuit)}))),
      Stretched(
          Stack({Text9, Framed(Frame3, Column({Label3, Combo1, Row({Space(), cmdComboOK}), Space()}))})),
      Row({Stretched(KeepingRoom(Command3)), Command8}),
      KeepingRoom(Text10),
      Row({Stretched(KeepingRoom(Command4)), Command9}),
      Command1,
  });
}

void Form24::ArrangeControls() { SetLayout(Row({Stretched(PicturesLayout()), CommandsLayout()}), true); }

void Form24::ConnectHandlers() {
  cmdComboOK.OnClick = WithItsContent([this] { TakeWavelength(); });
  cmdCorundum.OnClick = WithItsContent([this] { ShowStandard(CorundumStandard()); });
  cmdSi.OnClick = WithItsContent([this] { ShowStandard(SiliconStandard()); });
  Command2.OnClick = OnItsBuffer([this] { ShiftStandard(); });

  cmdStartCou.OnClick = WithItsContent([this] { StartCoupling(); });
  cmdAccept.OnClick = WithItsContent([this] { AcceptCouple(); });
  cmdSkip.OnClick = OnItsBuffer([this] { SettleCouple(); });
  cmdQuit.OnClick = OnItsBuffer([this] { QuitCoupling(); });
  Command3.OnClick = OnItsBuffer([this] { StartCalibration(); });
  Command4.OnClick = OnItsBuffer([this] { SaveCalibration(context_, state_.Result.Coefficients()); });
  Command1.OnClick = [this] { ReturnToMainMenu(); };

  Picture1.OnMouseMove = [this](float x, float y) { ShowReadOut(x, y); };
  Picture1.OnMouseDown = [this](MouseButton, float x, float) { PickStandardPeak(x); };
  Picture2.OnMouseDown = [this](MouseButton, float x, float) { PickSamplePeak(x); };
}

void Form24::OnLoad() {
  for (Control* hidden :
       {static_cast<Control*>(&Frame3), static_cast<Control*>(&Frame1), static_cast<Control*>(&Text9),
        static_cast<Control*>(&Text10), static_cast<Control*>(&Command4), static_cast<Control*>(&Command3)}) {
    hidden->Visible = false;
  }
  cmdStartCou.Enabled = false;
  if (Buffer().NPeaks != 0) {
    disegna_picchi();
    return;
  }
  const auto draw = WhileLoaded(std::function<void()>([this] { disegna_picchi(); }));
  const auto leave = WhileLoaded(std::function<void()>([this] { Unload(); }));
  if (!ReadPeakListForCalibration(context_, draw, leave)) {
    Unload();
  }
}

/// A list that is still being previewed belongs to this start.
void Form24::OnUnload() { Desk().Unload(peak_list_windows::Calibration.Name); }

void Form24::ReturnToMainMenu() {
  Unload();
  context_.Main.ShowMainMenu();
}

// The two diagrams.

void Form24::disegna_picchi() {
  Show();
  state_.Kept.Keep(Buffer());
  state_.SampleSticks = PeakSticks(Buffer(), true);
  if (sample_plot_.DrawFrame(Channels, Picture2)) {
    sample_plot_.DrawSticks(state_.SampleSticks, Picture2);
  }
  if (Buffer().Wavelength <= 0) {
    Frame3.Visible = true;
  } else {
    ShowWavelength();
  }
  const bool no_channels =
      std::ranges::all_of(state_.SampleSticks, [](const Stick& peak) { return peak.X == 0; });
  if (no_channels && !state_.SampleSticks.empty()) {
    Tell(NoChannels(Buffer()));
  }
}

void Form24::ShowWavelength() {
  Text1.Text = "  l = " + GeneralText(Buffer().Wavelength);
  Frame3.Visible = false;
}

void Form24::TakeWavelength() {
  const std::optional<float> wavelength = NeededWavelength(context_, Buffer(), Combo1.Text);
  if (!wavelength) {
    return;
  }
  Buffer().Wavelength = *wavelength;
  ShowWavelength();
}

void Form24::ShowStandard(const Standard& standard) {
  const float wavelength = Buffer().Wavelength;
  if (wavelength <= 0) {
    Tell(NoWavelength());
    Text1.Text = "";
    Frame3.Visible = true;
    return;
  }
  ShowWavelength();  // it may have been given in another window
  cmdStartCou.Enabled = true;
  state_.StandardLoaded = true;
  state_.Wavelength = wavelength;
  Text7.Text = " l = " + GeneralText(wavelength);
  Text3.Text = "x-min = 0 ";
  DrawStandardFrame({.Low = 0, .High = StandardSpan});
  standard_plot_.DrawSticks(state_.Standard.Take(standard, wavelength), Picture1);
  ShowMouseTips();
}

void Form24::ShiftStandard() {
  const std::optional<XRange> range =
      ShiftedRange(standard_plot_.Limits().XMin, LeadingNumber(Text2.Text.Get()));
  if (!range) {
    Tell(NoShift(Text2.Text));
    return;
  }
  Picture1.Cls();
  Text3.Text = "x-min = " + RoundedText(range->Low, 3);
  DrawStandardFrame(*range);
  standard_plot_.DrawSticks(state_.Standard.Sticks(), Picture1);
}

void Form24::DrawStandardFrame(const XRange& range) {
  Text4.Text = "x-max = " + RoundedText(range.High, 3);
  (void)standard_plot_.DrawFrame(range, Picture1);
}

void Form24::ShowMouseTips() {
  std::string standard = state_.StandardLoaded ? tips::ReadOut : mouse_tips::NoPlot;
  std::string sample = mouse_tips::NoPlot;
  const bool coupling = state_.CouplingActive && Frame1.Visible;
  const bool picking = state_.PickStandard == 1 || state_.PickSample == 1;
  if (coupling && cmdAccept.Enabled && !picking) {
    standard = sample = tips::Coupled;
  } else if (coupling) {
    standard = state_.PickStandard == 1 ? tips::PartnerBelow : tips::PickStandard;
    sample = state_.PickSample == 1 ? tips::PartnerAbove : tips::PickSample;
  }
  Picture1.ToolTip = standard;
  Picture2.ToolTip = sample;
}

void Form24::ShowReadOut(float x, float y) {
  if (!state_.StandardLoaded) {
    return;
  }
  const auto [two_theta, height] = standard_plot_.NearestPlace(x, y);
  Text8.Text = "x = " + RoundedText(two_theta, 4);
  Text6.Text = "y = " + GeneralText(height);
  // A shifted scale reaches below 0 and beyond 360 degrees, where the sine can be below 0.
  Text5.Text = RoundedText(std::max(SpacingOf(two_theta, state_.Wavelength), 0.0F), 4);
}

bool Form24::HasContent() {
  const bool holds_its_list = state_.Kept.Matches(Buffer());
  if (!holds_its_list) {
    Tell(PeakListGone(Buffer(), "Calibration"));
    return false;
  }
  const bool holds_its_wavelength = !state_.CouplingActive || Buffer().Wavelength == state_.Wavelength;
  if (!holds_its_wavelength) {
    Tell(WavelengthGone(Buffer(), "Calibration"));
  }
  return holds_its_wavelength;
}

}  // namespace koprax
