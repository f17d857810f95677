#include "workspace/help_window.h"

#include "workspace/workspace.h"

namespace koprax {

Form5::Form5(const WindowContext& context)
    : Form(context.Desk, "Form5", "On line Help"), data_(context.Data) {
  SetLayout(Stretched(Text1), true);
  EscapeCloses();
}

void Form5::ShowTopic(HelpTopic topic) {
  Show();
  Text1.Text = data_.HelpTopic.at(static_cast<std::size_t>(topic));
}

}  // namespace koprax
