// Form35, "System configuration": what the machine is, whether it writes numbers as the files of the program
// do, and where its screen can be switched, another resolution. It opens by itself at the start of a run
// until its box is ticked, which is the one setting that outlives a run.
#pragma once

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

/// Whether the window opens by itself at the start.
[[nodiscard]] bool WantsSystemWindowAtStart(Runtime& runtime);
/// Shows the window, its box as the setting says.
void ShowSystemWindow(const WindowContext& context);

class Form35 final : public Form {
 public:
  explicit Form35(const WindowContext& context);

  void ShowWithSetting();

 private:
  void OnLoad() override;
  void ArrangeControls();
  void TickAsKept();
  void KeepSetting();
  void OpenNumberSettings();
  void ChangeResolution(int width, int height);

  Machine& machine_;

  Frame Frame1{*this, "Frame1", {.Caption = "Screen resolution"}};
  TextBox Text1{
      *this,
      "Text1",
      {.Meaning = "Report on the machine", .Locked = true, .MultiLine = true, .Columns = 64, .Rows = 6}};
  OptionButton Option1{*this, "Option1", {.Caption = "Change resolution"}};
  Frame Frame2{*this, "Frame2", {.Caption = "change resolution", .Visible = false}};
  OptionButton Option2{*this, "Option2", {.Caption = "1024 x  768"}};
  OptionButton Option3{*this, "Option3", {.Caption = "  800 x  600"}};
  OptionButton Option4{*this, "Option4", {.Caption = "  640 x  480"}};
  Frame Frame3{*this, "Frame3", {.Caption = "Decimal separator"}};
  TextBox Text2{*this,
                "Text2",
                {.Meaning = "Decimal separator of the machine",
                 .Locked = true,
                 .MultiLine = true,
                 .Columns = 64,
                 .Rows = 5}};
  Button Command1{*this, "Command1", {.Caption = "Change intern. settings", .Visible = false}};
  CheckBox Check1{*this, "Check1", {.Caption = "Do not show this form next time"}};
  Label Label1{*this, "Label1", {.Caption = "(it will be possible to show it by clicking "}};
  Label Label2{*this, "Label2", {.Caption = "the System cfg button in the starting form.)"}};
};

}  // namespace koprax
