// The window as a whole: its making, what is on show, the ways out. The mouse and the zoom stand in
// manipulation_window_zoom.cpp, the tools in the files named for them.
#include "manipulation/manipulation_window.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "display/bitmap_window.h"
#include "display/plot_axes.h"
#include "display/profile_plot.h"
#include "forms/desktop.h"
#include "manipulation/result_saving.h"
#include "workspace/buffer_commands.h"
#include "workspace/temporary_copy.h"

namespace koprax {

Form12::Form12(const WindowContext& context) : BufferWindow(context, "Form12", "Profile manipulatuion") {
  ArrangeControls();
  ConnectHandlers();
  EscapeClicks(optNO, [this] { return state_.ZoomSelect && !state_.Zoomed; });
}

LayoutNode Form12::PictureLayout() {
  return Column({
      Row({Stretched(Boxes.Text1), Boxes.Text2}),
      Boxes.Text5,
      Stretched(Picture1),
      Row({Stretched(Boxes.Text6), Stretched(Boxes.Text7), Stretched(Boxes.Text9)}),
      Row({Text3, Text4, Space(), KeepingRoom(optOK), KeepingRoom(optNO)}),
  });
}

LayoutNode Form12::ToolsLayout() {
  return Column({
      KeepingRoom(Framed(Frame3, Grid(4, {Stretched(cmdSmo), cmdSmoGuide, Stretched(Command14), Command6,  //
                                          Command17, Command15}))),
      Row({Stretched(cmdBckg), Command1}),
      KeepingRoom(Framed(Frame2, Grid(4, {Stretched(cmdResume), Command9, Stretched(cmdZoom), Command8,  //
                                          cmdSubtr, Command11, cmdRes, Command20,                        //
                                          cmdSave, Command5, cmdPrint, Command10,                        //
                                          cmdQuitBckg, Command12}))),
      KeepingRoom(Framed(Frame1, Grid(4, {Stretched(cmdDFT), Command4, Stretched(cmdFilter), Command3,  //
                                          cmdDFTInv, Command2, Command7, Command13,                     //
                                          Command16}))),
      Picture2,
      Space(),
      Row({Stretched(Command18), Command19, Stretched(cmdMain)}),
  });
}

void Form12::ArrangeControls() { SetLayout(Row({Stretched(PictureLayout()), ToolsLayout()}), true); }

void Form12::ConnectHandlers() {
  cmdMain.OnClick = [this] { ReturnToMainMenu(); };
  Command18.OnClick = [this] { SaveBitmap(); };

  cmdSmo.OnClick = WithItsContent([this] { Smooth(); });
  Command14.OnClick = WithItsContent([this] { SaveSmoothed(false); });
  Command17.OnClick = [this] { QuitSmoothing(); };

  cmdBckg.OnClick = WithItsContent([this] { ResumeEstimate(); });
  cmdResume.OnClick = WithItsContent([this] { ResumeEstimate(); });
  cmdSubtr.OnClick = WithItsContent([this] { Subtract(); });
  cmdRes.OnClick = WithItsContent([this] { Rescale(); });
  cmdZoom.OnClick = OnItsBuffer([this] { cmdZoom.Caption.Get() == "Zoom" ? StartZoom() : Unzoom(); });
  cmdPrint.OnClick = WithItsContent([this] { PrintBackground(); });
  cmdSave.OnClick = WithItsContent([this] { SaveBackground(); });
  cmdQuitBckg.OnClick = OnItsBuffer([this] { QuitBackground(); });

  cmdDFT.OnClick = WithItsContent([this] { Transform(); });
  cmdFilter.OnClick = WithItsContent([this] { Filter(); });
  cmdDFTInv.OnClick = WithItsContent([this] { TransformInverse(); });
  Command7.OnClick = WithItsContent([this] { SaveFiltered(); });
  Command16.OnClick = [this] { QuitDft(); };

  optOK.OnClick = WithItsContent([this] { AcceptZoom(); });
  optNO.OnClick = OnItsBuffer([this] { CancelZoom(); });
  Picture1.OnMouseDown = [this](MouseButton, float x, float y) { MousePressed(x, y); };
  Picture1.OnMouseMove = [this](float x, float y) { MouseMoved(x, y); };
  Picture1.OnMouseUp = [this](MouseButton, float x, float) { MouseReleased(x); };
}

void Form12::OnLoad() {
  for (Control* hidden :
       {static_cast<Control*>(&optOK), static_cast<Control*>(&optNO), static_cast<Control*>(&Shape1),
        static_cast<Control*>(&Frame2), static_cast<Control*>(&Line1)}) {
    hidden->Visible = false;
  }
}

/// A window that is loaded anew over this one, for another profile, must not find what belongs to this one.
void Form12::OnUnload() {
  ClosePicker();
  if (state_.BackgroundMode) {
    ClearBackground();
  }
  context_.Data.BackgroundSubtracted = 0;
}

bool Form12::ShowProfile(int slot) {
  Workspace& data = context_.Data;
  const bool drawn = DrawProfile(data, slot, Picture1, [this](const Message& message) { Tell(message); });
  state_.Shown.Keep(data, drawn);
  state_.Plotted = drawn;
  state_.Kept.Keep(Buffer());
  if (!drawn) {
    return false;
  }
  state_.Whole = LimitsOfDrawing(data);
  state_.PictureXMin = state_.Whole.XMin;
  state_.NegativeY = Buffer().NegativeY;
  Boxes.Show(TextsOf(context_.Data, slot));
  ShowMouseTip();
  return true;
}

void Form12::SaveBitmap() {
  if (HasPlot()) {
    OpenBitmapWindow(context_, 12);
  }
}

void Form12::ReturnToMainMenu() {
  std::ranges::fill(context_.Data.PaddedY, 0.0F);
  Picture1.Cls();
  Unload();
  context_.Main.ShowMainMenu();
}

// Results into buffers.

void Form12::SaveBackground() {
  context_.Data.ModeCalib = false;  // the picker of a calibration is replaced by this one
  OpenPicker(pickers::CalibrationOrBackground, [](Workspace& data) { SaveBackgroundResult(data); });
}

/// The window goes on with the buffer that was saved to.
void Form12::SaveSmoothed(bool by_dft) {
  OpenPicker(pickers::SmoothedResult, [this](Workspace& data) {
    SaveSmoothedResult(data);
    if (data.CurBuf != slot_) {
      EndSubtraction();
    }
    state_.CopyIsDue = data.CurBuf != slot_;
    slot_ = data.CurBuf;
  });
  context_.Data.SaveDft = by_dft;
}

void Form12::OpenPicker(const PickerKind& kind, const std::function<void(Workspace&)>& save) {
  ClosePicker();
  Workspace& data = context_.Data;
  data.SumSource = data.CurBuf;
  PickerActions actions;
  actions.Chosen = WhileLoaded(std::function<void(Form&, const std::vector<int>&)>(
      [this, save, source = data.CurBuf](Form&, const std::vector<int>&) { StoreResult(source, save); }));
  actions.GivenUp = [&data] { data.SaveDft = false; };
  const auto picker = Desk().Load<BufferPicker>(context_, kind, std::move(actions));
  state_.Picker = picker;
  picker->Show();
}

void Form12::StoreResult(int source, const std::function<void(Workspace&)>& save) {
  Workspace& data = context_.Data;
  data.SumSource = static_cast<std::int16_t>(source);
  if (!HasContent()) {
    MakeCurrent(context_, source);
    data.SaveDft = false;
    return;
  }
  PutBackBackground();
  save(data);
  state_.Kept.Keep(Buffer());
  const ProfileTexts texts = TextsOf(data, slot_);
  Boxes.Text2.Text = texts.Buffer;
  Boxes.Text5.Text = texts.Title;
}

void Form12::ClosePicker() {
  if (const auto picker = state_.Picker.lock()) {
    picker->CloseBox();
  }
}

// What is on show.

void Form12::BeforeCommand() {
  ClosePicker();  // the result that it waits for may be another one after the command
  TakeUp();
}

void Form12::TakeUp() {
  BufferWindow::TakeUp();
  Workspace& data = context_.Data;
  if (state_.CopyIsDue && HoldsItsPoints()) {
    TakeTemporaryCopy(Buffer());
    state_.Kept.KeepTemporary(Buffer());
    state_.CopyIsDue = false;
  }
  PutBackBackground();
  if (state_.Plotted) {
    state_.Shown.PutBack(data);
    TakeLimitsOfDrawing(data, state_.Whole);
  }
  if (state_.Plotted && HoldsItsPoints()) {
    Buffer().NegativeY = state_.NegativeY;
  }
}

void Form12::PutByBackground() {
  if (state_.BackgroundMode && !state_.PutBy) {
    state_.PutBy = context_.Data.BackgroundY;
  }
}

void Form12::PutBackBackground() {
  if (state_.PutBy) {
    context_.Data.BackgroundY = *state_.PutBy;
    state_.PutBy.reset();
  }
}

bool Form12::HasContent() {
  if (!HoldsItsPoints()) {
    Tell(ProfileGone(Buffer(), "Profile manipulation"));
    return false;
  }
  return HasPlot();
}

bool Form12::HoldsItsPoints() const {
  const ProfileBuffer& buffer = Buffer();
  // A window that has only shown it has taken the copy that is due.
  const bool copied =
      state_.CopyIsDue && state_.Kept.PermanentMatches(buffer) && KeptProfile::CopiesAgree(buffer);
  return buffer.PermNpts > 0 && (copied || state_.Kept.Matches(buffer));
}

bool Form12::HasPlot() {
  if (!state_.Plotted) {
    Tell(NoPlot());
  }
  return state_.Plotted;
}

void Form12::TellBeyondRange(const std::string& what) {
  Tell(ErrorMessage(
      what + " would go beyond 3.4E+38, the largest number that a buffer holds.\r\nNothing is changed."));
}

bool Form12::DrawNewFrame(const PlotLimits& limits) {
  ForgetZoom();
  return DrawFrame(limits);
}

bool Form12::DrawFrame(const PlotLimits& limits) {
  Picture1.Cls();
  const bool drawn = DrawAxes(context_.Data, limits, Picture1);
  state_.Shown.Keep(context_.Data, drawn);
  state_.PictureXMin = limits.XMin;
  state_.NegativeY = Buffer().NegativeY;
  state_.ShowsCoefficients = false;
  ShowMouseTip();
  if (!drawn) {
    Tell(NoYSpan());
  }
  return drawn;
}

void Form12::DrawOverX(const PointTable& y, Colour colour) {
  const ProfileBuffer& buffer = Buffer();
  DrawWholeCurve(context_.Data.Plot, {buffer.PermX, y, buffer.WorkNpts}, Origin(), colour, Picture1);
}

CurveOrigin Form12::Origin() const {
  return {.XMin = state_.PictureXMin, .Base = PlotBase(context_.Data.Plot, state_.NegativeY == 1)};
}

}  // namespace koprax
