#include "workspace/main_menu.h"

#include "forms/desktop.h"
#include "workspace/buffer_commands.h"
#include "workspace/buffer_picker.h"
#include "workspace/system_window.h"

namespace koprax {

Form1::Form1(const WindowContext& context) : Form(context.Desk, "Form1", "Main menu"), context_(context) {
  Label1.FontSize = 24;
  Label2.FontSize = 11;
  ArrangeControls();

  cmdInp.OnClick = [this] { context_.Files.StartLoad(); };
  const auto picking_for = [this](bool Workspace::*mode) {
    return [this, mode] {
      context_.Files.GiveUpEarlierFile();
      context_.Data.*mode = true;
      context_.Main.OpenProfilePicker();
    };
  };
  cmdOut.OnClick = picking_for(&Workspace::ModeOut);
  cmdAnal.OnClick = picking_for(&Workspace::ModeAnal);
  cmdFit.OnClick = picking_for(&Workspace::ModeFit);
  cmdCalib.OnClick = [this] { OpenCalibrationPicker(); };
  cmdRefineCell.OnClick = [this] { OpenCellPicker(); };
  cmdDisp.OnClick = [this] { OpenDisplayPicker(); };
  cmdDelBuff.OnClick = [this] { OpenErasePicker(); };
  cmdNew.OnClick = [this] { ShowSystemWindow(context_); };
  cmdStop.OnClick = [this] { Desk().Quit(); };
}

void Form1::ArrangeControls() {
  const auto with_help = [](Button& command, Button& help) { return Row({Stretched(command), help}); };
  SetLayout(Column({
      Row({Image1, Stretched(Column({Label1, Label2, Label3})), Column({Command7, Command8, cmdNew})}),
      Grid(3, {Stretched(with_help(cmdInp, Command1)), Stretched(with_help(cmdOut, Command2)),
               Stretched(with_help(cmdDisp, Command3)), with_help(cmdAnal, Command4),
               with_help(cmdFit, Command5), with_help(cmdDelBuff, Command6), with_help(cmdCalib, Command9),
               cmdStop, with_help(cmdRefineCell, Command10)}),
  }));
}

void Form1::OnLoad() {
  Label3.Caption = "Profiles, peaks, backgrounds, calibrations and cells";
  if (WantsSystemWindowAtStart(Desk().Host())) {
    ShowSystemWindow(context_);
  }
  context_.Data.HelpTopic = AllHelpTexts();
}

void Form1::OnFronted() {
  // The report on the machine stays above the menu until it is closed.
  if (const auto report = Desk().Find("Form35")) {
    report->BringToFront();
  }
}

void Form1::OnCloseBox() { Desk().Quit(); }

void Form1::OpenDisplayPicker() {
  context_.Data.ModeDisp = true;
  Desk()
      .Load<BufferPicker>(
          context_, pickers::Display,
          PickerActions{
              .Loaded = [this] { context_.Data.SelBuf.fill(0); },
              .Chosen = [context = context_](
                            Form&, const std::vector<int>& slots) { ShowChosenProfiles(context, slots); },
              .GivenUp = [this] { context_.Data.ModeDisp = false; },
          })
      ->Show();
}

void Form1::OpenCalibrationPicker() {
  Workspace& data = context_.Data;
  data.ModeCalib = true;
  const auto picker = Desk().Load<BufferPicker>(context_, pickers::CalibrationOrBackground,
                                                PickerActions{
                                                    .Loaded =
                                                        [&data] {
                                                          data.NoProfileForCalib = AllBuffersEmpty(data);
                                                          if (data.NoProfileForCalib) data.ModeCalib = false;
                                                        },
                                                    .Chosen =
                                                        [context = context_](Form&, const std::vector<int>&) {
                                                          context.Calibration.OpenCalibrationWindow();
                                                          context.Data.ModeCalib = false;
                                                        },
                                                    .GivenUp = [&data] { data.ModeCalib = false; },
                                                });
  picker->Show();
  if (data.NoProfileForCalib) {
    data.NoProfileForCalib = false;
    picker->Unload();
    context_.Calibration.OpenCalibrationWindow();
  }
}

void Form1::OpenCellPicker() {
  context_.Data.ModeCell = true;
  Desk()
      .Load<BufferPicker>(context_, pickers::Cell,
                          PickerActions{
                              .Chosen = [context = context_](
                                            Form&, const std::vector<int>&) { StartCellRefinement(context); },
                              .GivenUp = [&data = context_.Data] { data.ModeCell = false; },
                          })
      ->Show();
}

void Form1::OpenErasePicker() {
  Desk()
      .Load<BufferPicker>(context_, pickers::Erase,
                          PickerActions{.Chosen =
                                            [context = context_](Form&, const std::vector<int>& slots) {
                                              EraseAfterQuestion(context, slots.front());
                                            }})
      ->Show();
}

}  // namespace koprax
