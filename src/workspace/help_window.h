// Form5, "On line Help": one text at a time, in a plain window beside the others.
#pragma once

#include "forms/form.h"
#include "workspace/help_topics.h"
#include "workspace/services.h"

namespace koprax {

class Form5 final : public Form {
 public:
  explicit Form5(const WindowContext& context);

  /// Replaces the text by that of the topic and shows the window.
  void ShowTopic(HelpTopic topic);

 private:
  const Workspace& data_;
  TextBox Text1{*this,
                "Text1",
                {.Meaning = "Help",
                 .Font = "Courier",
                 .Locked = true,
                 .MultiLine = true,
                 .Wraps = true,
                 .Columns = 84,
                 .Rows = 26}};
};

}  // namespace koprax
