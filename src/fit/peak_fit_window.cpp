// The window as a whole: its making, what is on show, the ways out. The mouse stands in
// peak_fit_window_mouse.cpp, the stages in the files named for them.
#include "fit/peak_fit_window.h"

#include <utility>
#include <vector>

#include "display/plot_axes.h"
#include "display/profile_plot.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/buffer_commands.h"

namespace koprax {

Form19::Form19(const WindowContext& context) : BufferWindow(context, "Form19", "Peak fit") {
  ArrangeControls();
  ConnectHandlers();
  EscapeClicks(optNO, {});
}

LayoutNode Form19::PictureLayout() {
  return Column({
      Row({Stretched(Boxes.Text1), Boxes.Text2}),
      Boxes.Text5,
      Stretched(Picture1),
      Row({Stretched(Boxes.Text6), Stretched(Boxes.Text7), Stretched(Boxes.Text9), Stretched(Text8)}),
      Row({Text3, Text4, Space(), KeepingRoom(optOK), KeepingRoom(optNO)}),
  });
}

LayoutNode Form19::StagesLayout() {
  const auto stage = [](Frame& frame, std::vector<LayoutNode> commands) {
    return Framed(frame, Column({Grid(2, std::move(commands)), Space()}));
  };
  return Column({
      Row({Stretched(cmdSelectRange), Command1}),
      Text16,
      Text17,
      Stack({stage(Frame1, {Stretched(cmdDefBkg), Command9, Command2, Command8, Command5, Command12}),
             stage(Frame3, {Stretched(cmdSelPeaks), Command4, cmdLoadPeaks, Command3, Command10, Command11}),
             stage(Frame4, {Stretched(cmdShowParam), Command7, cmdStartFit, Command13, cmdSave, Command16,
                            Command15, Command14})}),
      Text18,
      KeepingRoom(Picture2),
      Space(),
      Grid(2, {Label1, Text10, Label2, Text14, Label3, Text15}),
      Row({Stretched(cmdMain), Command6}),
  });
}

void Form19::ArrangeControls() { SetLayout(Row({Stretched(PictureLayout()), StagesLayout()}), true); }

void Form19::ConnectHandlers() {
  cmdMain.OnClick = [this] { ReturnToMainMenu(); };
  cmdSelectRange.OnClick = WithItsContent([this] { SelectRange(); });
  optOK.OnClick = WithItsContent([this] { AcceptSelection(); });
  optNO.OnClick = WithItsContent([this] { RefuseSelection(); });

  cmdDefBkg.OnClick = WithItsContent([this] { StartBackgroundLine(); });
  Command2.OnClick = WithItsContent([this] { LoadBackground(); });
  Command5.OnClick = OnItsBuffer([this] { QuitBackground(); });

  cmdSelPeaks.OnClick = WithItsContent([this] { StartPeakSelection(); });
  cmdLoadPeaks.OnClick = WithItsContent([this] { LoadPeaks(); });
  Command10.OnClick = OnItsBuffer([this] { QuitPeaks(); });

  cmdShowParam.OnClick = OnItsBuffer([this] { ShowParameters(); });
  cmdStartFit.OnClick = OnItsBuffer([this] { StartFit(); });
  cmdSave.OnClick = OnItsBuffer([this] { SavePeaks(); });
  Command15.OnClick = [this] { ForgetFit(); };

  Picture1.OnMouseDown = [this](MouseButton button, float x, float y) { MousePressed(button, x, y); };
  Picture1.OnMouseMove = [this](float x, float y) { MouseMoved(x, y); };
}

void Form19::OnLoad() {
  ClearFit(Fit());
  ForgetFit();
  Text8.Text = "l = " + GeneralText(Buffer().Wavelength);
}

/// The windows that act for this one.
void Form19::CloseHelpers() {
  ClosePicker();
  Desk().Unload("Form20");
  Desk().Unload("Form22");
}

void Form19::ReturnToMainMenu() {
  ForgetFit();
  Picture1.Cls();
  Unload();
  context_.Main.ShowMainMenu();
}

void Form19::ForgetFit() {
  CloseHelpers();
  Fit().FitPolyBackground = Fit().FitRunning = Fit().FitStopping = false;
  Fit().FitPeakCount = 0;
  context_.Data.ModeFit = false;
  state_.PeakLimitReached = state_.DeletionOpen = false;
  state_.FollowLow = state_.FollowHigh = false;
  state_.DrawBkgMode = state_.SelPeaksMode = false;
  state_.ClickCount = 0;
  OfferAnswers(false);
  for (Control* hidden :
       {static_cast<Control*>(&Picture2), static_cast<Control*>(&Line5), static_cast<Control*>(&Shape1),
        static_cast<Control*>(&Line1), static_cast<Control*>(&Line2), static_cast<Control*>(&Line3),
        static_cast<Control*>(&Line4), static_cast<Control*>(&Frame1), static_cast<Control*>(&Frame3),
        static_cast<Control*>(&Frame4)}) {
    hidden->Visible = false;
  }
  Picture1.MousePointer = Pointer::Arrow;
  ShowMouseTip();
  ShowPeakCount();
  cmdShowParam.Enabled = false;
}

bool Form19::ShowProfile(int slot) {
  Workspace& data = context_.Data;
  bool has_height = true;
  const bool drawn = DrawProfile(data, slot, Picture1, [&](const Message& message) {
    has_height = false;
    Tell(message);
  });
  state_.Shown.Keep(data, drawn && has_height);
  state_.Kept.Keep(Buffer());
  if (!drawn) {
    return false;
  }
  state_.PictureXMin = data.PlotXMin;
  state_.NegativeY = Buffer().NegativeY;
  Boxes.Show(TextsOf(data, slot));
  ShowMouseTip();
  return true;
}

// What is on show.

void Form19::BeforeCommand() {
  ClosePicker();
  TakeUp();
}

void Form19::TakeUp() {
  BufferWindow::TakeUp();
  state_.Shown.PutBack(context_.Data);
  if (state_.Shown.Readable() && HoldsItsPoints()) {
    Buffer().NegativeY = state_.NegativeY;
  }
}

bool Form19::HoldsItsPoints() const { return Buffer().PermNpts > 0 && state_.Kept.Matches(Buffer()); }

bool Form19::HasContent() {
  if (!HoldsItsPoints()) {
    Tell(ProfileGone(Buffer(), "Fit"));
    return false;
  }
  if (!state_.Shown.Readable()) {
    Tell(NothingToSelectFrom());
  }
  return state_.Shown.Readable();
}

void Form19::DrawFrame(const XRange& range) {
  Workspace& data = context_.Data;
  const std::int16_t negative_before = Buffer().NegativeY;
  Picture1.Cls();
  const PlotLimits limits{
      .XMin = range.Low, .XMax = range.High, .YMin = data.PlotYMin, .YMax = data.PlotYMax};
  state_.Shown.Keep(data, DrawAxes(data, limits, Picture1));
  state_.PictureXMin = range.Low;
  state_.NegativeY = Buffer().NegativeY;
  ShowMouseTip();
  if (!HoldsItsPoints()) {  // it is that of another profile by now
    Buffer().NegativeY = negative_before;
  }
}

CurveOrigin Form19::Origin() const {
  return {.XMin = state_.PictureXMin, .Base = PlotBase(context_.Data.Plot, state_.NegativeY == 1)};
}

}  // namespace koprax
