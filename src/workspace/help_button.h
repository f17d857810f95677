// A button that shows a help topic and changes nothing else: the small "?" beside a command, unless it
// has a caption of its own.
#pragma once

#include <string>
#include <utility>

#include "forms/control.h"
#include "workspace/services.h"

namespace koprax {

class HelpButton final : public Button {
 public:
  HelpButton(Form& form, std::string name, MainServices& main, HelpTopic topic, std::string caption = "?")
      : Button(form, std::move(name), {.Caption = std::move(caption)}) {
    // Read aloud, a "?" alone would tell nothing.
    Meaning = "Help on " + std::string(HelpSubject(topic));
    OnClick = [&main, topic] { main.ShowHelp(topic); };
  }
};

}  // namespace koprax
