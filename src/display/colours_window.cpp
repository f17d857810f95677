#include "display/colours_window.h"

#include "display/named_colours.h"

namespace koprax {

Form31::Form31(const WindowContext& context) : Form(context.Desk, "Form31", "Colors") {
  SetLayout(Column({Row({Column({Label1, Combo1}), Column({Label2, Combo2})}), Row({Space(), Command1})}));
  Command1.OnClick = [this, &data = context.Data] {
    data.ProfileColourName = Combo1.Text;
    data.BackgroundColourName = Combo2.Text;
    accepted_ = true;
    Unload();
  };
  EnterClicks(Command1);
  EscapeCloses();
}

ComboSetup Form31::Colours(const char* meaning, const char* preset) {
  ComboSetup setup{.Meaning = meaning, .Text = preset};
  for (const NamedColour& colour : NamedColours) {
    setup.Items.emplace_back(colour.Name);
  }
  return setup;
}

}  // namespace koprax
