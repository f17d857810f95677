#include "files/format_window.h"

#include <optional>

#include "files/profile_writers.h"
#include "files/save_rules.h"
#include "forms/desktop.h"
#include "workspace/workspace.h"

namespace koprax {

Form7::Form7(const WindowContext& context) : Form(context.Desk, "Form7", "Format"), context_(context) {
  ArrangeControls();
  EscapeCloses();
  std::int16_t format = 0;
  for (OptionButton* option : {&Option1, &Option2, &Option3, &Option4, &Option5, &Option6, &Option7}) {
    option->OnClick = [this, option, input_format = ++format] { ChooseFormat(input_format, *option); };
  }
}

void Form7::ArrangeControls() {
  SetLayout(Column({Label1, Grid(2, {Stretched(Option1), Command1, Option2, Command2, Option3, Command3,  //
                                     Option4, Command4, Option5, Command5, Option6, Command6,             //
                                     Option7, Command7})}));
}

void Form7::OnLoad() {
  for_saving_ = context_.Data.ModeOut;
  Option7.Enabled = !for_saving_;
}

void Form7::OnCloseBox() {
  Unload();
  if (for_saving_) {
    context_.Data.ModeOut = false;
  }
}

void Form7::ChooseFormat(std::int16_t input_format, OptionButton& option) {
  context_.Data.InputFormat = input_format;
  if (for_saving_) {
    Save(option);
  } else {
    ChooseBuffer();
  }
}

void Form7::ChooseBuffer() {
  // The picker replaces one that may have been left open for another command, whose mode would turn the load
  // into it.
  context_.Data.ModeAnal = context_.Data.ModeFit = false;
  context_.Main.OpenProfilePicker();
  Unload();
}

void Form7::Save(OptionButton& option) {
  Workspace& data = context_.Data;
  const auto refusal = WhyNotSaved(data.Current(), data.InputFormat);
  if (!refusal) {
    EndSave();
    const auto ask = [this](const InputRequest& request) { return Desk().Host().InputBox(request); };
    if (const auto problem = SaveByFormat(data, ask)) {
      Desk().Host().MsgBox(*problem);
    }
    context_.Main.BringMainMenuToFront();
    return;
  }
  Desk().Host().MsgBox(refusal->Why);
  if (refusal->AnotherChoice) {
    option.Value = false;
  } else {
    EndSave();
  }
}

void Form7::EndSave() {
  Unload();
  context_.Main.ShowMainMenu();
  context_.Data.ModeOut = false;
}

}  // namespace koprax
