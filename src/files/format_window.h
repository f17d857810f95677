// Form7, "Format": the user tells the format of the file that is to be loaded or saved; nothing in the file
// decides it.
#pragma once

#include <cstdint>

#include "forms/form.h"
#include "workspace/help_button.h"
#include "workspace/services.h"

namespace koprax {

class Form7 final : public Form {
 public:
  /// Whether it is for a save is settled at the load, by ModeOut.
  explicit Form7(const WindowContext& context);

  [[nodiscard]] bool ForSaving() const { return for_saving_; }

 private:
  void OnLoad() override;
  void OnCloseBox() override;
  void ArrangeControls();
  void ChooseFormat(std::int16_t input_format, OptionButton& option);
  void ChooseBuffer();
  void Save(OptionButton& option);
  void EndSave();

  WindowContext context_;
  bool for_saving_ = false;

  Label Label1{*this, "Label1", {.Caption = "Format specifications"}};
  OptionButton Option1{*this, "Option1", {.Caption = "ITAL STRUCTURES     *.dat file    (One column) "}};
  OptionButton Option2{*this, "Option2", {.Caption = "One column"}};
  OptionButton Option3{*this, "Option3", {.Caption = "Two columns  "}};
  OptionButton Option4{*this, "Option4", {.Caption = "CPS-120 Detector  ( 4096 channels)  *.adf  file"}};
  OptionButton Option5{*this, "Option5", {.Caption = "PHILIPS    *.udf  file"}};
  OptionButton Option6{*this, "Option6", {.Caption = "SIEMENS/BRUKER  *.uxd   file"}};
  OptionButton Option7{*this, "Option7", {.Caption = " Powder Diffraction File (from ICDD)     *.aid"}};

  HelpButton Command1{*this, "Command1", context_.Main, HelpTopic::HelpFormatItal};
  HelpButton Command2{*this, "Command2", context_.Main, HelpTopic::HelpFormatOneColumn};
  HelpButton Command3{*this, "Command3", context_.Main, HelpTopic::HelpFormatTwoColumns};
  HelpButton Command4{*this, "Command4", context_.Main, HelpTopic::HelpFormatCps};
  HelpButton Command5{*this, "Command5", context_.Main, HelpTopic::HelpFormatPhilips};
  HelpButton Command6{*this, "Command6", context_.Main, HelpTopic::HelpFormatUxd};
  HelpButton Command7{*this, "Command7", context_.Main, HelpTopic::HelpFormatCard};
};

}  // namespace koprax
