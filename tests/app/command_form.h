// A window with one button that runs an operation, with the services that the operation asks for: for
// what windows do that are tested by themselves.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/workbench_session.h"
#include "file_text.h"
#include "forms/form.h"
#include "workspace/file_dialog_window.h"

namespace koprax {

/// Files are asked for by the workbench's own dialog; lists that wait for an answer can be given up.
class AskingServices final : public SilentServices {
 public:
  using SilentServices::SilentServices;
  std::optional<std::string> AskForFile(const FileDialogRequest& request) override {
    return std::dynamic_pointer_cast<Form9>(Context.Desk.Find("Form9"))->Ask(request);
  }
  void GiveUpAnswers() override {
    for (const char* name : {"Form25", "Form28"}) {
      if (const auto window = Context.Desk.Find(name)) window->CloseBox();
    }
  }
};

class CommandForm final : public Form {
 public:
  CommandForm(Desktop& desk, std::function<void()> operation) : Form(desk, "Command", "") {
    SetLayout(Column({Command1}));
    Command1.OnClick = std::move(operation);
  }

 private:
  Button Command1{*this, "Command1", {}};
};

/// Events in few words, a text each.
inline std::vector<std::string> WordsOf(const Json& events) {
  std::vector<std::string> words;
  for (const Json& event : events) {
    const auto field = [&](const char* name) { return event[name].get<std::string>(); };
    const std::string kind = field("event");
    if (kind == "message") {
      words.push_back(field("title") + ", " + field("icon") + ": " + field("text"));
    } else if (kind == "input") {
      words.push_back(field("title") + ": " + field("prompt"));
    } else if (kind == "dialog") {
      words.push_back(field("kind") + " \"" + field("name") + "\" " + event["filterIndex"].dump() + " of " +
                      field("filter"));
    } else if (event.contains("form")) {
      words.push_back(kind + " " + field("form"));
    }
  }
  return words;
}

/// A session with one operation at a time behind a button.
class CommandSession : public WorkbenchSession {
 public:
  CommandSession() { Play("forms\n"); }  // which starts the workbench

  /// What the operation leads to with the answers that are queued before.
  std::vector<std::string> Run(const std::function<void(const WindowContext&)>& operation,
                               const std::string& answers = "") {
    Desk().Load<CommandForm>(Desk(), [this, operation] { operation(services_.Context); })->Show();
    return Words(answers + "click Command.Command1\n");
  }
  /// What the last command of a script leads to.
  std::vector<std::string> Words(const std::string& script) { return WordsOf(Events(script)); }

  static std::string FileAnswer(const std::string& path) { return "file " + Json(path).dump() + "\n"; }

 private:
  AskingServices services_{*this};
};

}  // namespace koprax
