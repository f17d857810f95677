// Form1, "Main menu": every piece of work starts from one of its commands. It stays open for the whole
// run. What a command leads to is told by the windows that it opens.
#pragma once

#include "forms/form.h"
#include "workspace/help_button.h"
#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

class Form1 final : public Form {
 public:
  explicit Form1(const WindowContext& context);

 private:
  void OnLoad() override;
  void OnFronted() override;
  void OnCloseBox() override;
  void ArrangeControls();
  void OpenDisplayPicker();
  void OpenCalibrationPicker();
  void OpenCellPicker();
  void OpenErasePicker();

  WindowContext context_;

  Image Image1{*this, "Image1", "koprax"};
  Label Label1{*this, "Label1", {.Caption = "KOPRAX"}};
  Label Label2{*this, "Label2", {.Caption = "A tool for analysing your powder diffraction patterns"}};
  Label Label3{*this, "Label3", {}};

  Button cmdInp{
      *this, "cmdInp", {.Caption = "&Load Profile from disk", .ToolTip = "Load a specified file from disk"}};
  Button cmdOut{
      *this, "cmdOut", {.Caption = "&Save Profile on disk", .ToolTip = "Save a specified profile on disk"}};
  Button cmdDisp{*this,
                 "cmdDisp",
                 {.Caption = "&Display profile(s) and work", .ToolTip = "Specified buffers are displayed"}};
  Button cmdAnal{
      *this, "cmdAnal", {.Caption = "&Profile manipulation", .ToolTip = "Specified buffer is manipulated"}};
  Button cmdFit{*this, "cmdFit", {.Caption = "&Fit", .ToolTip = "Start the peak fitting procedure"}};
  Button cmdDelBuff{
      *this, "cmdDelBuff", {.Caption = "&Erase buffer", .ToolTip = "Delete a specified buffer"}};
  Button cmdCalib{*this, "cmdCalib", {.Caption = "&Calibration", .ToolTip = "Start a calibration procedure"}};
  Button cmdStop{*this, "cmdStop", {.Caption = "&Quit", .ToolTip = "Exit the program"}};
  Button cmdRefineCell{
      *this, "cmdRefineCell", {.Caption = "&Refine cell", .ToolTip = "Start a cell parameter refinement"}};
  Button cmdNew{*this, "cmdNew", {.Caption = "System cfg."}};

  HelpButton Command1{*this, "Command1", context_.Main, HelpTopic::HelpLoad};
  HelpButton Command2{*this, "Command2", context_.Main, HelpTopic::HelpSaveDisk};
  HelpButton Command3{*this, "Command3", context_.Main, HelpTopic::HelpDisplay};
  HelpButton Command4{*this, "Command4", context_.Main, HelpTopic::HelpManipulation};
  HelpButton Command5{*this, "Command5", context_.Main, HelpTopic::HelpFit};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpErase};
  HelpButton Command7{*this, "Command7", context_.Main, HelpTopic::HelpAbout, "About KOPRAX"};
  HelpButton Command8{*this, "Command8", context_.Main, HelpTopic::HelpDisclaimer, "Disclaimer"};
  HelpButton Command9{*this, "Command9", context_.Main, HelpTopic::HelpCalibration};
  HelpButton Command10{*this, "Command10", context_.Main, HelpTopic::HelpRefineCell};
};

}  // namespace koprax
