#include "workspace/buffer_commands.h"

#include <cstddef>
#include <string>

#include "forms/desktop.h"
#include "workspace/workspace.h"

namespace koprax {

ProfileBuffer& ShownBuffer(const WindowContext& context, int slot) {
  return context.Data.Buffer(context.Data.CurBuf == 0 ? 0 : slot);
}

void MakeCurrent(const WindowContext& context, int slot) {
  if (slot != context.Data.CurBuf) {
    context.Files.GiveUpAnswers();
  }
  context.Data.CurBuf = static_cast<std::int16_t>(slot);
}

void OpenChosenProfile(const WindowContext& context, Form& picker) {
  Workspace& data = context.Data;
  picker.MousePointer = Pointer::Hourglass;
  const bool shown = context.Files.ShowBuffer(data.CurBuf, data.ModeDisp);
  picker.MousePointer = Pointer::Arrow;
  if (!shown) {
    data.ModeFit = data.ModeDisp = data.ModeAnal = false;
    context.Desk.Unload("Form19");
    context.Main.BringMainMenuToFront();
  }
  data.ModeDisp = data.ModeAnal = data.ModeFit = false;
}

void SaveChosenProfile(const WindowContext& context) {
  if (!context.Data.Current().IsCard()) {
    context.Files.StartSave();
    return;
  }
  context.Desk.Host().MsgBox({.Text = "PDS files (*.aid) cannot be saved", .Title = "Warning"});
  context.Data.ModeOut = false;
}

void StartCellRefinement(const WindowContext& context) {
  Workspace& data = context.Data;
  data.Current().CellFormat = data.Current().FormatCode;
  data.CalCancelled = 0;
  context.Cell.OpenCellWindow();
  data.CalCancelled = 0;  // a window without a list has gone already
  data.ModeCell = false;
}

void ShowChosenProfiles(const WindowContext& context, const std::vector<int>& slots) {
  Workspace& data = context.Data;
  data.SelBuf.fill(0);
  data.ModeDisp = true;
  for (const int slot : slots) {
    data.SelBuf[static_cast<std::size_t>(slot)] = 1;
  }
  data.NumSelected = static_cast<std::int16_t>(slots.size());
  if (slots.size() == 1) {
    MakeCurrent(context, slots.front());
    context.Files.ShowBuffer(data.CurBuf, data.ModeDisp);
  } else if (slots.size() > 1) {
    context.Display.ShowSeveralProfiles();
  }
  data.ModeDisp = false;
}

void EraseAfterQuestion(const WindowContext& context, int slot) {
  const MessageAnswer answer =
      context.Desk.Host().MsgBox({.Text = "Are you sure?\r\nThis will destroy everything in buffer N." +
                                          std::to_string(slot) + "\r\n" + context.Data.Buffer(slot).Title,
                                  .Title = "Warning",
                                  .Buttons = MessageButtons::YesNo,
                                  .Icon = MessageIcon::Question});
  if (answer != MessageAnswer::No) {
    context.Files.GiveUpAnswers();
    MakeCurrent(context, slot);  // a list that was given up leaves no buffer at work
    EraseBuffer(context.Data, slot);
  }
}

}  // namespace koprax
