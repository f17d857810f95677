#include "workspace/help_window.h"

namespace koprax {

Form5::Form5(const WindowContext& context) : Form(context.Desk, "Form5", "On line Help") {
  SetLayout(Stretched(Text1), true);
}

void Form5::ShowTopic(HelpTopic topic) {
  Show();
  Text1.Text = std::string(HelpText(topic));
}

}  // namespace koprax
