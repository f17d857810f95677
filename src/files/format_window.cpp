#include "files/format_window.h"

#include "workspace/workspace.h"

namespace koprax {

Form7::Form7(const WindowContext& context) : Form(context.Desk, "Form7", "Format"), context_(context) {
  ArrangeControls();
  std::int16_t format = 0;
  for (OptionButton* option : {&Option1, &Option2, &Option3, &Option4, &Option5, &Option6, &Option7}) {
    option->OnClick = [this, input_format = ++format] { ChooseFormat(input_format); };
  }
}

void Form7::ArrangeControls() {
  SetLayout(Column({Label1, Grid(2, {Stretched(Option1), Command1, Option2, Command2, Option3, Command3,  //
                                     Option4, Command4, Option5, Command5, Option6, Command6,             //
                                     Option7, Command7})}));
}

void Form7::ChooseFormat(std::int16_t input_format) {
  context_.Data.InputFormat = input_format;
  context_.Main.OpenProfilePicker();
  Unload();
}

}  // namespace koprax
