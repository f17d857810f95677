// The window as a whole: its making, the peak list in the picture, its wavelength, the ways out. The steps
// from the cell to its refinement stand in cell_window_steps.cpp.
#include "cell/cell_window.h"

#include <algorithm>
#include <utility>

#include "display/mouse_tips.h"
#include "display/plot_axes.h"
#include "files/calibration_commands.h"
#include "files/calibration_file.h"
#include "files/peak_list_commands.h"
#include "files/peak_list_window.h"
#include "files/typed_wavelength.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"
#include "workspace/buffer_picker.h"

namespace koprax {

namespace {

/// A channel list gets the whole detector, whatever its peaks.
constexpr XRange Detector{.Low = 0, .High = 4096};
constexpr float DegreesAround = 5;

constexpr auto ChannelList = static_cast<std::int16_t>(FormatCodes::CpsChannels);

/// Of a detector that is read here the coefficients up to this one count.
constexpr std::size_t LastCoefficient = 5;

/// A list tells what its positions are by the format of its buffer alone, which may be that of another
/// profile.
std::optional<Message> DoubtInList(const ProfileBuffer& buffer) {
  const bool channels = buffer.CellFormat == ChannelList;
  const std::vector<Stick> peaks = PeakSticks(buffer, channels);
  const auto is_angle = [](const Stick& peak) { return peak.X <= 180; };
  std::string doubt;
  if (channels && std::ranges::all_of(peaks, is_angle)) {
    doubt = " count as channels, and none lies above 180.";
  } else if (!channels && !std::ranges::all_of(peaks, is_angle)) {
    doubt = " count as 2-theta, and not all lie up to 180 degrees.";
  } else if (!channels && std::ranges::all_of(peaks, [](const Stick& peak) { return peak.X == 0; })) {
    doubt = " have no 2-theta.";
  }
  if (doubt.empty() || peaks.empty()) {
    return std::nullopt;
  }
  return Message{.Text = "The peaks in the list of buffer " + buffer.BufLetter + doubt +
                         "\r\nIf that is wrong, read the list from disk, into an empty buffer.",
                 .Title = "Warning",
                 .Icon = MessageIcon::Exclamation};
}

}  // namespace

Form26::Form26(const WindowContext& context) : BufferWindow(context, "Form26", "Cell refinement") {
  for (Label* greek : {&Label6, &Label7, &Label8}) {
    greek->FontName = SymbolFont;
  }
  ArrangeControls();
  ConnectHandlers();
  SetKeys();
}

LayoutNode Form26::PictureLayout() {
  return Column({
      Row({Space(), Text1}),
      Stretched(Picture1),
      Row({Stretched(Text2), Stretched(Text3), Stretched(Text13)}),
      Row({Stretched(Text4), Stretched(Text5), Stretched(Text12)}),
  });
}

LayoutNode Form26::CellLayout() {
  std::vector<LayoutNode> boxes;
  for (Control* part :
       {static_cast<Control*>(&Label2), static_cast<Control*>(&Text6), static_cast<Control*>(&Label6),
        static_cast<Control*>(&Text9), static_cast<Control*>(&Label4), static_cast<Control*>(&Text7),
        static_cast<Control*>(&Label7), static_cast<Control*>(&Text10), static_cast<Control*>(&Label5),
        static_cast<Control*>(&Text8), static_cast<Control*>(&Label8), static_cast<Control*>(&Text11)}) {
    boxes.push_back(KeepingRoom(*part));
  }
  return Framed(Frame1, Column({Combo2, Row({KeepingRoom(Label1), Space(), Command2}),
                                Row({Grid(4, std::move(boxes)), Space()}), Row({Space(), Command1})}));
}

LayoutNode Form26::GenerationLayout() {
  return KeepingRoom(Framed(Frame2, Row({Column({Label10, Grid(2, {Label12, Text16, Label13, Text17}),
                                                 Row({Space(), cmdPeakGeneration}), Space()}),
                                         Stretched(Text14)})));
}

LayoutNode Form26::IndexationLayout() {
  return Framed(Frame4,
                Column({Label11, Label14, Row({Grid(2, {Label15, Text15}), Space()}),
                        Row({Label16, Text18, Label17, Text19, Label18, Text20, Command4, Space()}),
                        Row({Grid(2, {Label20, Text21}), Space()}), Row({cmdAccept, cmdRefuse, Space()}),
                        Row({Label21, Text22, Space(), Command5}), Space()}));
}

LayoutNode Form26::RefinementLayout() {
  return Framed(Frame5, Column({Row({cmdOptimize, Space()}), Stretched(Text23)}));
}

void Form26::ArrangeControls() {
  SetLayout(Row({Stretched(Column({Stretched(PictureLayout()), Stretched(GenerationLayout())})),
                 Column({Framed(Frame3, Column({Label3, Combo1, Row({Space(), cmdComboOK})})), CellLayout(),
                         Stretched(KeepingRoom(Stack({IndexationLayout(), RefinementLayout()}))),
                         Row({Space(), Command3})})}),
            true);
}

void Form26::ConnectHandlers() {
  cmdComboOK.OnClick = WithItsContent([this] { TakeWavelength(); });
  Command2.OnClick = [this] { ChooseSystem(); };
  Command1.OnClick = [this] { TakeCell(); };
  cmdPeakGeneration.OnClick = [this] { GeneratePeaks(); };
  Command4.OnClick = [this] { TakeTriplet(); };
  cmdAccept.OnClick = [this] { AcceptPeak(); };
  cmdRefuse.OnClick = [this] { RefusePeak(); };
  Command5.OnClick = [this] { EndIndexation(); };
  cmdOptimize.OnClick = [this] { Refine(); };
  Command3.OnClick = [this] { ReturnToMainMenu(); };
  Picture1.OnMouseMove = [this](float x, float y) { ShowReadOut(x, y); };
  Picture1.OnMouseDown = [this](MouseButton, float x, float) { SelectPeak(x); };
}

void Form26::SetKeys() {
  cmdComboOK.Meaning = "OK, take the wavelength";
  Command2.Meaning = "OK, take the crystal system";
  Command1.Meaning = "Quit, take the cell";
  cmdPeakGeneration.Meaning = "OK, list the reflections";
  Command4.Meaning = "OK, take the indices";
  Command5.Meaning = "Quit, go on with the refinement";
  for (Button* of_a_box : {&cmdComboOK, &Command2, &cmdPeakGeneration, &Command4}) {
    EnterClicks(*of_a_box);
  }
  EscapeClicks(cmdRefuse);
}

void Form26::OnLoad() {
  ShowCellBoxes(false);
  Text22.Text = "0";
  if (Buffer().NPeaks != 0) {
    disegna_picchi();
  } else if (!ReadPeakListForCell(context_, WhileLoaded(std::function<void()>([this] { disegna_picchi(); })),
                                  WhileLoaded(std::function<void()>([this] { Unload(); })))) {
    Unload();
  }
}

/// A list that is still being previewed belongs to this start.
void Form26::OnUnload() { Desk().Unload(peak_list_windows::Cell.Name); }

void Form26::ReturnToMainMenu() {
  if (const auto picker = Desk().Find(pickers::Cell.Name)) {
    picker->CloseBox();  // which waits for another start
  }
  Unload();
  context_.Main.ShowMainMenu();
}

bool Form26::HasContent() {
  const bool holds = state_.Kept.Matches(Buffer());
  if (!holds) {
    Tell(PeakListGone(Buffer(), "Refine cell"));
  }
  return holds;
}

// The peak list and its wavelength.

void Form26::disegna_picchi() {
  Show();
  state_.Kept.Keep(Buffer());
  DrawPeaks();
  if (Buffer().Wavelength <= 0) {
    Frame3.Visible = true;
    Frame1.Visible = false;
  } else {
    ShowWavelength();
  }
  if (const auto doubt = DoubtInList(Buffer())) {
    Tell(*doubt);
  }
}

void Form26::DrawPeaks() {
  Picture1.Cls();
  state_.Sticks = PeakSticks(Buffer(), InChannels());
  const XRange range = PictureRange();
  const bool drawn = state_.Plot.DrawFrame(range, Picture1);
  ShowMouseTip();
  if (!drawn) {
    return;
  }
  Text2.Text = "xmin = " + RoundedText(range.Low, 3);
  Text3.Text = "xmax = " + RoundedText(range.High, 3);
  state_.Plot.DrawSticks(state_.Sticks, Picture1);
}

/// Of a list in 2-theta without peaks it spans nothing.
XRange Form26::PictureRange() const {
  if (InChannels()) {
    return Detector;
  }
  float lowest = 10000;
  float highest = 0;
  for (const Stick& stick : state_.Sticks) {
    lowest = std::min(lowest, stick.X);
    highest = std::max(highest, stick.X);
  }
  return {.Low = lowest - DegreesAround, .High = highest + DegreesAround};
}

bool Form26::InChannels() const { return Buffer().CellFormat == ChannelList; }

float Form26::TwoThetaAt(float x) const {
  return InChannels() ? TwoThetaOfChannel(Buffer().CalPar, x, LastCoefficient) : x;
}

void Form26::TakeWavelength() {
  const std::optional<float> wavelength = NeededWavelength(context_, Buffer(), Combo1.Text);
  if (!wavelength) {
    return;
  }
  Frame1.Visible = true;
  Buffer().Wavelength = *wavelength;
  ShowWavelength();
  const bool lacks_calibration = InChannels() && !HasCalibration(Buffer());
  Frame3.Visible = lacks_calibration && !AskForCalibration();
}

void Form26::ShowWavelength() {
  state_.Cell.CellLambda = Buffer().Wavelength;
  Text1.Text = "  l = " + GeneralText(Buffer().Wavelength);
}

/// False when the user cancels it, which leaves the buffer without wavelength and peaks.
bool Form26::AskForCalibration() {
  ReadCalFile(context_);
  if (context_.Data.CalCancelled == 0) {
    return true;
  }
  context_.Data.CalCancelled = 0;
  Buffer().NPeaks = 0;
  Buffer().Wavelength = 0;
  state_.Kept.Keep(Buffer());
  DrawPeaks();
  return false;
}

std::string Form26::MouseTip() const {
  if (!state_.Plot.Readable()) {
    return mouse_tips::NoPlot;
  }
  return state_.IndexationActive ? "Click on a peak to index it.\r\nType H, K and L, press \"OK\", and then "
                                   "\"Accept\" or \"Refuse\"."
                                 : mouse_tips::ReadOutWithD;
}

void Form26::ShowReadOut(float x, float y) {
  if (!state_.Plot.Readable()) {
    return;
  }
  const auto [data_x, data_y] = state_.Plot.NearestPlace(x, y);
  Text4.Text = "x = " + RoundedText(data_x, 4);
  Text5.Text = "y = " + GeneralText(data_y);
  const float two_theta = TwoThetaAt(data_x);
  if (InChannels()) {
    Text13.Text = "2q = " + RoundedText(two_theta, 3);
  }
  // Where the sine isn't above 0 there is no d.
  Text12.Text = RoundedText(std::max(SpacingOf(two_theta, Buffer().Wavelength), 0.0F), 4);
}

}  // namespace koprax
