#include "workspace/system_window.h"

#include <algorithm>

#include "forms/desktop.h"
#include "forms/machine.h"
#include "forms/number_text.h"
#include "workspace/machine_report.h"

namespace koprax {

namespace {

constexpr std::string_view Application = "MyApp";
constexpr std::string_view Section = "General";
constexpr std::string_view DontShow = "DontShow";

/// The first mode of that size with so many colours as all changes ask for.
std::optional<ScreenMode> ModeOfSize(Machine& machine, int width, int height) {
  constexpr int BitsPerPixel = 16;
  const std::vector<ScreenMode> modes = machine.ScreenModes();
  const auto found =
      std::ranges::find(modes, ScreenMode{.BitsPerPixel = BitsPerPixel, .Width = width, .Height = height});
  return found == modes.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

bool WantsSystemWindowAtStart(Runtime& runtime) {
  return LeadingNumber(runtime.GetSetting(Application, Section, DontShow, "0")) == 0;
}

void ShowSystemWindow(const WindowContext& context) {
  auto window = std::dynamic_pointer_cast<Form35>(context.Desk.Find("Form35"));
  if (!window) {
    window = context.Desk.Load<Form35>(context);
  }
  window->ShowWithSetting();
}

Form35::Form35(const WindowContext& context)
    : Form(context.Desk, "Form35", "System configuration"), machine_(context.Desk.Host().TheMachine()) {
  ArrangeControls();
  EscapeCloses();
  Option1.OnClick = [this] { Frame2.Visible = true; };
  Option2.OnClick = [this] { ChangeResolution(1024, 768); };
  Option3.OnClick = [this] { ChangeResolution(800, 600); };
  Option4.OnClick = [this] { ChangeResolution(640, 480); };
  Command1.OnClick = [this] { OpenNumberSettings(); };
  Check1.OnClick = [this] { KeepSetting(); };
}

void Form35::ArrangeControls() {
  SetLayout(Column({
      Framed(Frame1, Column({Text1, Option1, Framed(Frame2, Row({Option2, Option3, Option4, Space()}))})),
      Framed(Frame3, Column({Text2, Row({Command1, Space()})})),
      Row({Check1, Column({Label1, Label2})}),
  }));
}

void Form35::OnLoad() {
  const auto menu = Desk().Find("Form1");
  const ScreenMode screen = machine_.ScreenOf(menu ? *menu : *this);
  Text1.Text = MachineReport(machine_.ComputerName(), machine_.System(), screen);
  Option1.Visible = !machine_.ScreenModes().empty();

  const std::string separator = DecimalSeparatorOf(machine_.NumberText(4.0 / 5.0));
  Text2.Text = SeparatorReport(separator);
  Command1.Visible = !IsPeriod(separator);
}

void Form35::ShowWithSetting() {
  TickAsKept();
  Show();
}

void Form35::TickAsKept() { Check1.Value = WantsSystemWindowAtStart(Desk().Host()) ? 0 : 1; }

void Form35::KeepSetting() {
  if (const auto problem =
          Desk().Host().SaveSetting(Application, Section, DontShow, std::to_string(Check1.Value.Get()))) {
    TickAsKept();
    Desk().Host().MsgBox(ErrorMessage("The choice can't be kept: " + *problem + "."));
  }
}

void Form35::OpenNumberSettings() {
  if (const auto problem = Desk().Host().Shell(std::string(RegionalSettingsCommand))) {
    Desk().Host().MsgBox(ErrorMessage("The regional settings can't be opened.\r\n" + *problem));
  }
}

void Form35::ChangeResolution(int width, int height) {
  const auto mode = ModeOfSize(machine_, width, height);
  if (!mode) {
    Desk().Host().MsgBox(
        {.Text = "This screen has no mode of " + std::to_string(width) + " x " + std::to_string(height) +
                 " pixels with 16 bits per pixel. Nothing has been changed; choose another resolution.",
         .Icon = MessageIcon::Exclamation});
    return;
  }
  if (const auto message = ScreenChangeMessage(machine_.ChangeScreen(*mode))) {
    Desk().Host().MsgBox(*message);
  }
}

}  // namespace koprax
