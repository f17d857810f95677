// The window as a whole: its making, the plot, arithmetic and saving. The selection of what is zoomed stands
// in several_profiles_zoom.cpp.
#include "display/several_profiles_window.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <variant>
#include <vector>

#include "display/arithmetic_window.h"
#include "display/bitmap_window.h"
#include "display/multi_profile.h"
#include "display/plot_axes.h"
#include "display/plot_printing.h"
#include "forms/desktop.h"
#include "forms/number_text.h"
#include "workspace/buffer_picker.h"

namespace koprax {

namespace {

Message ChangedElsewhere(const ProfileBuffer& buffer) {
  return ErrorMessage("Buffer " + buffer.BufLetter +
                      " has been changed in another window.\r\nDisplay the profiles again first.");
}

/// Slots as a selection like SelBuf.
BufferSelection SelectionOf(const std::vector<int>& slots) {
  BufferSelection selection{};
  for (const int slot : slots) {
    selection[static_cast<std::size_t>(slot)] = 1;
  }
  return selection;
}

}  // namespace

void ShowSeveralProfiles(const WindowContext& context) {
  auto plan = PlanMultiProfile(context.Data, context.Data.SelBuf);
  if (const auto* refusal = std::get_if<Message>(&plan)) {
    context.Desk.Host().MsgBox(*refusal);
    return;
  }
  context.Desk.Unload("Form2");  // and what acts for it, which the new plot must not take over
  TakeMultiProfile(context.Data, std::get<MultiProfile>(plan));
  context.Desk.Load<Form2>(context)->ShowPlot();
}

Form2::Form2(const WindowContext& context) : Form(context.Desk, "Form2", "Multiprofile"), context_(context) {
  ArrangeControls();
  ConnectHandlers();
  EscapeClicks(optNO, [this] { return state_.ZoomSelecting; });
}

void Form2::ArrangeControls() {
  LayoutNode plot = Column({Stretched(Picture1), Row({Stretched(Text6), Stretched(Text7)}),
                            Row({Stretched(Text3), Stretched(Text4)})});
  LayoutNode commands =
      Column({Grid(2, {Stretched(cmdZoom), cmdZoomGuide, cmdMod, Command3, cmdSave, Command5, Command1,
                       Command2, cmdBitMap, Command4, cmdMain, Command6}),
              Space(), KeepingRoom(optOK), KeepingRoom(optNO)});
  SetLayout(Column({Stretched(Row({Stretched(std::move(plot)), std::move(commands)})), Picture2}), true);
}

void Form2::ConnectHandlers() {
  cmdZoom.OnClick = [this] { StartSelection(); };
  cmdMod.OnClick = [this] { StartArithmetic(); };
  cmdSave.OnClick = [this] { SaveBuffer(); };
  Command1.OnClick = [this] { Print(); };
  cmdBitMap.OnClick = [this] {
    if (HasPlot()) OpenBitmapWindow(context_, 2);
  };
  cmdMain.OnClick = [this] { ReturnToMainMenu(); };
  optOK.OnClick = [this] { AcceptSelection(); };
  optNO.OnClick = [this] { CancelSelection(); };
  Picture1.OnMouseDown = [this](MouseButton, float x, float y) { MousePressed(x, y); };
  Picture1.OnMouseMove = [this](float x, float y) { MouseMoved(x, y); };
  Picture1.OnMouseUp = [this](MouseButton, float x, float) { MouseReleased(x); };
}

void Form2::OnLoad() {
  HideSelection();
  state_.Slots = SlotsInPlot(context_.Data);
  KeepPermanentCopies();
  EnableArithmetic();
}

void Form2::KeepPermanentCopies() {
  for (const int slot : state_.Slots) {
    Kept(slot).KeepPermanent(context_.Data.Buffer(slot));
  }
}

void Form2::ShowPlot() {
  Workspace& data = context_.Data;
  Show();
  for (const int slot : state_.Slots) {
    Kept(slot).KeepTemporary(data.Buffer(slot));
  }
  DrawMultiProfile(data, Picture1, [this](const Message& message) { Tell(message); });
  DrawLegend(data, state_.Slots, Picture2);
  state_.Shown.Keep(data, true);
  TellMouse();
  ShowRange({.Low = data.PlotXMin, .High = data.PlotXMax});
}

void Form2::GiveUpArithmetic() {
  if (const auto arithmetic = state_.Arithmetic.lock()) {
    arithmetic->Unload();
  }
}

void Form2::OnUnload() {
  GiveUpArithmetic();
  if (const auto zoom = state_.Zoom.lock()) {
    zoom->Unload();
  }
}

/// The formulas are made for two profiles.
void Form2::EnableArithmetic() { cmdMod.Enabled = state_.Slots.size() <= 2; }

void Form2::EnableOutput(bool enabled) { Command1.Enabled = cmdBitMap.Enabled = cmdSave.Enabled = enabled; }

void Form2::ShowRange(const XRange& range) {
  Text6.Text = "xmin " + GeneralText(range.Low);
  Text7.Text = "xmax " + GeneralText(range.High);
}

void Form2::ReturnToMainMenu() {
  Picture1.Cls();
  Unload();
  context_.Data.NumSelected = 1;
  context_.Main.ShowMainMenu();
}

void Form2::Print() {
  if (!HasPlot()) {
    return;
  }
  const auto erased = [&](int slot) { return context_.Data.Buffer(slot).Empty(); };
  if (std::ranges::all_of(state_.Slots, erased)) {
    Tell(ErrorMessage("The profiles of this plot have been erased.\r\nDisplay others first."));
    return;
  }
  state_.Shown.PutBack(context_.Data);
  PrintSeveralProfiles(context_, state_.Slots);
}

/// Tells the user where there is none.
bool Form2::HasPlot() const {
  if (!state_.Shown.Readable()) {
    Tell(NoPlot());
  }
  return state_.Shown.Readable();
}

void Form2::Tell(const Message& message) const { Desk().Host().MsgBox(message); }

// Arithmetic, and saving what it has changed.

void Form2::StartArithmetic() {
  Workspace& data = context_.Data;
  const auto erased = [&](int slot) { return data.Buffer(slot).Empty(); };
  if (std::ranges::any_of(state_.Slots, erased)) {
    Tell(
        ErrorMessage("Arithmetic takes two profiles, and one of this plot has been erased.\r\n"
                     "Display two profiles first."));
    return;
  }
  CloseZoom();
  data.SelBuf = SelectionOf(state_.Slots);  // a picker that has been opened meanwhile has its own idea of it
  const auto while_loaded = [this](void (Form2::*act)()) {
    return WhileLoaded(std::function<void()>([this, act] { (this->*act)(); }));
  };
  OpenArithmetic(context_, {.Profiles = static_cast<int>(state_.Slots.size()),
                            .Opener = weak_from_this(),
                            .TakeUp = while_loaded(&Form2::TakePlotBack),
                            .WhyNotCombined = [this] { return WhyNotCombined(); },
                            .Redraw = while_loaded(&Form2::DrawAgain),
                            .ComeBack = WhileLoaded(std::function<void()>([this] { Show(); })),
                            .ResultLeft = while_loaded(&Form2::LeaveResult)});
  state_.Arithmetic = Desk().Find("Form8");
}

void Form2::DrawAgain() {
  Workspace& data = context_.Data;
  CloseZoom();
  Picture1.Cls();
  Picture2.Cls();
  state_.Shown = {};
  const auto plan = PlanMultiProfile(data, SelectionOf(state_.Slots));
  if (const auto* refusal = std::get_if<Message>(&plan)) {
    TellMouse();
    Tell(*refusal);
    return;
  }
  TakeMultiProfile(data, std::get<MultiProfile>(plan));
  if (!data.MultiOp) {
    KeepPermanentCopies();
  }
  ShowPlot();
}

void Form2::LeaveResult() {
  Show();
  cmdMain.Enabled = cmdZoom.Enabled = true;
  EnableArithmetic();
  TakePlotBack();
}

/// Another window has drawn over the transform, on a base of its own.
void Form2::TakePlotBack() {
  state_.Shown.PutBack(context_.Data);
  const PlotLimits limits = LimitsOfDrawing(context_.Data);
  if (SpansX(limits)) {
    SetPlotScale(context_.Data, limits);
    ShareFrame(context_.Data, state_.Slots, limits);
  }
}

bool Form2::PickBuffer() {
  bool picked = false;
  PickerActions actions;
  actions.Chosen = [&picked](Form&, const std::vector<int>&) { picked = true; };
  Desk().Load<BufferPicker>(context_, pickers::SeveralSaved, std::move(actions))->ShowModal();
  return picked;
}

/// The sum takes the temporary copies as they are, but not one that belongs to another profile. Of an
/// erased one it tells itself.
std::optional<Message> Form2::WhyNotCombined() const {
  for (const int slot : state_.Slots) {
    const ProfileBuffer& buffer = context_.Data.Buffer(slot);
    if (!buffer.Empty() && !state_.Kept[static_cast<std::size_t>(slot)].PermanentMatches(buffer)) {
      return ChangedElsewhere(buffer);
    }
  }
  return std::nullopt;
}

std::optional<Message> Form2::WhyNotSaved() const {
  const ProfileBuffer& buffer = context_.Data.Current();
  const std::string name = "Buffer " + buffer.BufLetter;
  if (std::ranges::find(state_.Slots, context_.Data.CurBuf) == state_.Slots.end()) {
    return ErrorMessage(name + " is none of those shown in this plot.\r\nChoose one of the plot.");
  }
  if (buffer.Empty() || buffer.WorkNpts == 0) {
    return ErrorMessage(name + " holds no points that could be saved.\r\nChoose another one of the plot.");
  }
  if (buffer.WorkNpts != buffer.PermNpts) {  // the buffer would become a mixture of both
    return ErrorMessage(name + " holds " + std::to_string(buffer.PermNpts) + " points, of which only " +
                        std::to_string(buffer.WorkNpts) +
                        " are left.\r\nDisplay it alone to cut it and save it there.");
  }
  if (!state_.Kept[static_cast<std::size_t>(context_.Data.CurBuf)].Matches(buffer)) {
    return ChangedElsewhere(buffer);
  }
  return std::nullopt;
}

/// A save that is given up, or refused, leaves everything as it was.
void Form2::SaveBuffer() {
  Workspace& data = context_.Data;
  const std::int16_t buffer_before = data.CurBuf;
  const bool picked = PickBuffer();
  const std::optional<Message> refusal = picked ? WhyNotSaved() : std::nullopt;
  if (picked && !refusal) {
    SaveShownProfile(data.Current());
    Kept(data.CurBuf).KeepPermanent(data.Current());
    return;
  }
  if (refusal) {
    Tell(*refusal);
  }
  data.CurBuf = buffer_before;
}

}  // namespace koprax
