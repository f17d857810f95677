// The window as a whole: its making, the plot, the wavelength prompt, the way back into the buffer. What
// the mouse does stands in display_window_mouse.cpp, Edit mode in display_window_edit.cpp, Manual Explorer in
// display_window_explorer.cpp.
#include "display/display_window.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>

#include "display/arithmetic_window.h"
#include "display/bitmap_window.h"
#include "display/plot_axes.h"
#include "display/plot_printing.h"
#include "display/profile_plot.h"
#include "files/calibration_commands.h"
#include "files/calibration_file.h"
#include "files/peak_list_commands.h"
#include "files/title_window.h"
#include "files/typed_wavelength.h"
#include "forms/desktop.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "workspace/buffer_commands.h"
#include "workspace/temporary_copy.h"

namespace koprax {

namespace {

constexpr double LargestDegreeStep = 0.97;  // a larger step is one of channels

/// A buffer may have been emptied, or have become a card, since its curve was shown; and a zoom or an
/// operation may have left no point of it.
bool HoldsCurve(const ProfileBuffer& buffer) {
  return buffer.PermNpts > 0 && buffer.WorkNpts > 0 && !buffer.IsCard();
}

}  // namespace

Form6::Form6(const WindowContext& context) : BufferWindow(context, "Form6", "Display and Work") {
  ArrangeControls();
  ConnectHandlers();
  EnterClicks(cmdComboOK);
  EscapeClicks(optNO, [this] { return Selecting(); });
}

LayoutNode Form6::CommandsLayout() {
  return Grid(4, {Stretched(cmdZoom), cmdZoomGuide, Stretched(cmdUnzoom), Command4,  //
                  cmdEdit, Command2, cmdMod, Command3,                               //
                  cmdManExpl, Command7, cmdSave, Command5,                           //
                  cmdPrint, Command13, Command17, Command18,                         //
                  cmdMain, Command6});
}

LayoutNode Form6::ExplorerLayout() {
  return Framed(Frame4, Column({Stretched(Text17),
                                Grid(4, {Stretched(cmdErsLaIt), Command14, Stretched(cmdClearPeaks), Command1,
                                         cmdSavePeaks, Command11, cmdExiManExp, Command12})}));
}

LayoutNode Form6::EditLayout() {
  return Framed(Frame1, Column({Stretched(Text8), Grid(4, {Stretched(cmdEditOK), Command9,             //
                                                           Stretched(Command15), Command16,            //
                                                           cmdAccept, Command8, cmdEditNO, Command10,  //
                                                           cmdQuitEdit})}));
}

void Form6::ArrangeControls() {
  SetLayout(Row({
                Stretched(Column({
                    Row({Stretched(Boxes.Text1), Boxes.Text2}),
                    Boxes.Text5,
                    Stretched(Picture1),
                    Row({Stretched(Boxes.Text6), Stretched(Boxes.Text7), Stretched(Boxes.Text9),
                         Stretched(Text16)}),
                    Row({Text3, Text4, Space(), KeepingRoom(optOK), KeepingRoom(optNO)}),
                })),
                Column({
                    CommandsLayout(),
                    Stack({Framed(Frame2, Column({Grid(3, {Text11, Text12, Text13, Text10, Text14, Text15}),
                                                  Space()})),
                           Framed(Frame3, Column({Label1, Combo1, Row({Space(), cmdComboOK})}))}),
                    Stretched(Stack({EditLayout(), ExplorerLayout()})),
                }),
            }),
            true);
}

void Form6::ConnectHandlers() {
  cmdZoom.OnClick = AsCommand([this] { StartSelection(DisplayMode::ZoomSelection); });
  cmdUnzoom.OnClick = AsCommand([this] { UndoZoom(); });
  cmdEdit.OnClick = AsCommand([this] { StartSelection(DisplayMode::EditSelection); });
  cmdSave.OnClick = AsCommand([this] { SaveProfile(); });
  cmdMain.OnClick = [this] { ReturnToMainMenu(); };
  cmdMod.OnClick = AsCommand([this] { StartArithmetic(); });
  cmdPrint.OnClick = AsCommand([this] { Print(); });
  Command17.OnClick = [this] { SaveBitmap(); };
  cmdManExpl.OnClick = AsCommand([this] { ExplorerPaused() ? ResumeExplorer() : StartExplorer(); });
  cmdErsLaIt.OnClick = AsCommand([this] { EraseLastPeak(); });
  cmdClearPeaks.OnClick = AsCommand([this] { ClearPeakList(); });
  cmdSavePeaks.OnClick = AsCommand([this] { SavePeakListSorted(context_); });
  cmdExiManExp.OnClick = AsCommand([this] { QuitExplorer(); });
  cmdEditOK.OnClick = AsCommand([this] { ShowChanges(); });
  cmdEditNO.OnClick = AsCommand([this] { RejectChanges(); });
  cmdAccept.OnClick = AsCommand([this] { AcceptChanges(); });
  Command15.OnClick = AsCommand([this] { ChangeAll(); });
  cmdQuitEdit.OnClick = AsCommand([this] { QuitEdit(); });
  cmdComboOK.OnClick = AsCommand([this] { AcceptWavelength(); });
  optOK.OnClick = AsCommand([this] { AcceptSelection(); });
  optNO.OnClick = AsCommand([this] { CancelSelection(); });
  Picture1.OnMouseDown = [this](MouseButton button, float x, float y) { MousePressed(button, x, y); };
  Picture1.OnMouseMove = [this](float x, float y) { MouseMoved(x, y); };
  Picture1.OnMouseUp = [this](MouseButton button, float x, float y) { MouseReleased(button, x, y); };
}

/// A command on the window's own buffer, after which the mouse may do something else.
std::function<void()> Form6::AsCommand(std::function<void()> command) {
  return OnItsBuffer([this, command = std::move(command)] {
    command();
    TellMouse();
  });
}

void Form6::TakeUp() {
  BufferWindow::TakeUp();
  if (state_.Shown.Readable()) {
    state_.Shown.PutBack(context_.Data);
    Buffer().NegativeY = ReachesBelowZero(state_.Shown.Limits()) ? 1 : 0;
  }
}

void Form6::OnLoad() {
  state_.Kept.Keep(Buffer());
  context_.Data.ZoomMode = context_.Data.ExplorerMode = false;
  for (Control* hidden :
       {static_cast<Control*>(&Line1), static_cast<Control*>(&Frame1), static_cast<Control*>(&Frame2),
        static_cast<Control*>(&Frame3), static_cast<Control*>(&Frame4), static_cast<Control*>(&optOK),
        static_cast<Control*>(&optNO), static_cast<Control*>(&Shape1)}) {
    hidden->Visible = false;
  }
  cmdUnzoom.Enabled = false;
  if (context_.Data.NumSelected > 1) {
    cmdEdit.Enabled = cmdSave.Enabled = false;
  }
  if (Buffer().Wavelength != 0) {
    ShowWavelength();
  } else {
    EnterPrompt();
  }
}

/// What acts for this window goes with it.
void Form6::OnUnload() {
  if (const auto zoom = state_.Zoom.lock()) {
    zoom->Unload();
  }
  GiveUpArithmetic();
}

void Form6::EnterMode(DisplayMode mode) {
  EnterDisplayMode(
      mode, {&cmdEdit, &cmdZoom, &cmdUnzoom, &cmdMod, &cmdSave, &cmdManExpl, &cmdMain, &cmdPrint, &Command17},
      {.SingleProfile = context_.Data.NumSelected == 1, .Zoomed = IsZoomed(Buffer())});
}

bool Form6::ShowProfile(int slot) {
  if (slot != 0) {
    slot_ = slot;
  }
  const bool drawn = DrawProfile(context_.Data, slot, Picture1,
                                 [this](const Message& message) { Desk().Host().MsgBox(message); });
  state_.Shown.Keep(context_.Data, drawn);
  const ProfileBuffer& buffer = context_.Data.Buffer(slot);
  state_.Kept.KeepTemporary(buffer);
  TellMouse();
  if (!drawn) {
    return false;
  }
  PrintAxisLabels({.Channels = buffer.WorkX[2] - buffer.WorkX[1] > LargestDegreeStep,
                   .ThetaSize = 10,
                   .ChannelX = 103,
                   .ChannelY = 10},
                  Picture1);
  Boxes.Show(TextsOf(context_.Data, slot));
  if (buffer.Wavelength == 0) {
    EnterPrompt();
  }
  return true;
}

void Form6::RedrawProfile() {
  CloseZoom();
  Picture1.Cls();
  ShowProfile(context_.Data.CurBuf);
  if (Frame4.Visible) {
    KeepExplorerScale();
    MarkPeaks();
  }
}

void Form6::ShowWavelength() { Text16.Text = "l = " + GeneralText(Buffer().Wavelength); }

void Form6::EnterPrompt() {
  Frame3.Visible = true;
  EnterMode(DisplayMode::Prompt);
  Shape1.Visible = false;
  ResetCursorLine();
  optOK.Value = false;
  optNO.Value = false;
  Frame1.Visible = false;
}

bool Form6::LacksCalibration() const {
  return Buffer().PermX[2] - Buffer().PermX[1] > LargestDegreeStep && !HasCalibration(Buffer());
}

/// False when the user cancels it, which leaves the buffer without wavelength and peaks.
bool Form6::AskForCalibration() {
  ReadCalFile(context_);
  if (context_.Data.CalCancelled == 0) {
    return true;
  }
  context_.Data.CalCancelled = 0;
  Buffer().Wavelength = 0;
  if (Frame4.Visible) {
    RubOutPeaks();
  }
  Buffer().NPeaks = 0;
  Buffer().PeakListText = "";
  Text17.Text = "";
  EnableListCommands();
  return false;
}

void Form6::AcceptWavelength() {
  const std::optional<float> wavelength = TypedWavelength(context_, Combo1.Text);
  if (!wavelength) {
    return;
  }
  Buffer().Wavelength = *wavelength;
  ShowWavelength();
  if (LacksCalibration() && !AskForCalibration()) {
    return;
  }
  if (context_.Data.ExplorerMode) {
    Frame3.Visible = false;
    Line1.Visible = Frame2.Visible = true;
    Picture1.MousePointer = Pointer::Cross;
  }
  Frame3.Visible = Shape1.Visible = false;
  EnterMode(DisplayMode::PlainAfterPrompt);
}

void Form6::Print() {
  if (HasPlot() && HasCurve()) {
    PrintProfile(context_);
  }
}

void Form6::SaveBitmap() {
  if (HasPlot()) {
    OpenBitmapWindow(context_, 6);
  }
}

/// Tells the user where there is none.
bool Form6::HasPlot() {
  if (!state_.Shown.Readable()) {
    Desk().Host().MsgBox(NoPlot());
  }
  return state_.Shown.Readable();
}

void Form6::StartArithmetic() {
  if (!HoldsProfile()) {
    return;
  }
  OpenArithmetic(context_, {.Profiles = 1,
                            .Opener = weak_from_this(),
                            .TakeUp = WhileLoaded(std::function<void()>([this] { TakeUp(); })),
                            .Redraw = WhileLoaded(std::function<void()>([this] { RedrawProfile(); })),
                            .ComeBack = WhileLoaded(std::function<void()>([this] { Show(); })),
                            .ResultLeft = {}});
  state_.Arithmetic = Desk().Find("Form8");
}

/// Whether the buffer still holds what was shown, which may have been erased or become a card; told if not.
bool Form6::HoldsProfile() {
  const bool holds = Buffer().PermNpts > 0 && !Buffer().IsCard();
  if (!holds) {
    Desk().Host().MsgBox(ErrorMessage("Buffer " + Buffer().BufLetter +
                                      " holds no profile any more.\r\nDisplay a profile first."));
  }
  return holds;
}

/// A selection or the explorer holds on to points and scales that an operation would change under it.
void Form6::GiveUpArithmetic() {
  if (const auto arithmetic = state_.Arithmetic.lock()) {
    arithmetic->Unload();
  }
}

/// Tells the user where it doesn't.
bool Form6::HasCurve() {
  if (HoldsCurve(Buffer())) {
    return true;
  }
  Desk().Host().MsgBox(ErrorMessage("Buffer " + Buffer().BufLetter +
                                    " holds no points that could be saved or printed.\r\n"
                                    "Display a profile first."));
  return false;
}

/// A result of another window may have gone into the buffer since, which is not to be written over; or
/// another window may have changed the temporary copy, and what is shown here is no longer what would be
/// saved.
bool Form6::HoldsItsProfile() {
  if (state_.Kept.Matches(Buffer())) {
    return true;
  }
  Desk().Host().MsgBox(ErrorMessage("Buffer " + Buffer().BufLetter +
                                    " has been changed in another window.\r\nDisplay it again first."));
  return false;
}

void Form6::SaveProfile() {
  if (!HasCurve() || !HoldsItsProfile()) {
    return;
  }
  EnterMode(DisplayMode::Saved);
  CommitTemporaryCopy(Buffer());
  state_.Kept.KeepPermanent(Buffer());
  Buffer().Title = FixedField(RightTrimmed(Buffer().Title) + " Modified by KOPRAX", TitleWidth);
  Desk()
      .Load<TitleWindow>(context_, title_windows::SavedProfile,
                         WhileLoaded(std::function<void()>([this] { ShowNewTitle(); })))
      ->Show();
}

void Form6::ShowNewTitle() {
  BringToFront();
  Boxes.Text5.Text = Buffer().Title;
  Boxes.Text1.Text = "Modified file";
}

void Form6::ReturnToMainMenu() {
  Picture1.Cls();
  Unload();
  context_.Data.NumSelected = 0;
  context_.Main.ShowMainMenu();
}

}  // namespace koprax
