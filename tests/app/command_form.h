// A window with one button that runs an operation, and the services that such an operation asks for: for
// operations of windows that are tested by themselves.
#pragma once

#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "app/workbench_session.h"
#include "forms/form.h"
#include "workspace/file_dialog_window.h"

namespace koprax {

/// Files are asked for by the workbench's own dialog; what waits for an answer about the buffer goes.
class AskingServices final : public SilentServices {
 public:
  using SilentServices::SilentServices;
  std::optional<std::string> AskForFile(const FileDialogRequest& request) override {
    return std::dynamic_pointer_cast<Form9>(Context.Desk.Find("Form9"))->Ask(request);
  }
  void GiveUpAnswers() override {
    SilentServices::GiveUpAnswers();
    for (const char* name : {"Form25", "Form28"}) {
      if (const auto window = Context.Desk.Find(name)) window->CloseBox();
    }
  }
};

/// `click Command.Command1` runs the operation.
class CommandForm final : public Form {
 public:
  CommandForm(Desktop& desk, std::function<void()> operation) : Form(desk, "Command", "") {
    SetLayout(Column({Command1}));
    Command1.OnClick = std::move(operation);
  }

 private:
  Button Command1{*this, "Command1", {}};
};

/// A session with a button for one operation at a time.
class CommandSession : public WorkbenchSession {
 public:
  CommandSession() { Play("forms\n"); }  // which starts the workbench

  /// The events of the operation, run by a click behind the commands of `script`.
  Json EventsOf(const std::function<void(const WindowContext&)>& operation, const std::string& script) {
    Desk().Load<CommandForm>(Desk(), [this, operation] { operation(services_.Context); })->Show();
    return Events(script + "click Command.Command1\n");
  }

 private:
  AskingServices services_{*this};
};

/// What stands in a file; nothing if there is none.
inline std::string BytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A message with OK alone, as the script tool tells it.
inline Json ToldEvent(const std::string& text, const std::string& title, const std::string& icon) {
  return {{"event", "message"}, {"text", text}, {"title", title},
          {"buttons", "ok"},    {"icon", icon}, {"answer", "ok"}};
}

}  // namespace koprax
