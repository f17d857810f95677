#include "forms/scripted_runtime.h"

#include <algorithm>

#include "forms/form.h"
#include "forms/printer.h"

namespace koprax {

namespace {

constexpr double PageWidth = 210;  // millimetres, A4
constexpr double PageHeight = 297;

template <class T>
std::optional<T> TakeNext(std::deque<T>& queue) {
  if (queue.empty()) {
    return std::nullopt;
  }
  std::optional<T> next(std::in_place, std::move(queue.front()));
  queue.pop_front();
  return next;
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string MessageWords(const Message& message) {
  return "a message box came up, title " + Quoted(message.Title) + ", text " + Quoted(message.Text);
}

std::string FileDialogWords(const FileDialogRequest& request) {
  const bool opens = request.Type == FileDialogRequest::Kind::Open;
  return std::string(opens ? "an open" : "a save") + " dialog came up, filter " + Quoted(request.Filter) +
         ", name " + Quoted(request.Name);
}

std::string OrCancel(const std::optional<std::string>& text) { return text ? Quoted(*text) : "cancel"; }

std::string WordsOf(const PrinterChoice& choice) {
  std::string words = Quoted(choice.File);
  for (const std::string& font : choice.MissingFonts) {
    words += " without " + Quoted(font);
  }
  return choice.Copies == 1 ? words : words + " copies " + std::to_string(choice.Copies);
}

}  // namespace

std::string_view AnswerWord(MessageAnswer answer) {
  switch (answer) {
    case MessageAnswer::Cancel:
      return "cancel";
    case MessageAnswer::Yes:
      return "yes";
    case MessageAnswer::No:
      return "no";
    case MessageAnswer::Ok:
      break;
  }
  return "ok";
}

const std::vector<std::string>& ScriptedRuntime::PrinterFonts() {
  static const std::vector<std::string> fonts{"Symbol", "Times", "Arial", "Courier", "Helvetica-narrow"};
  return fonts;
}

void ScriptedRuntime::SetUpPrinter(Printer& printer, const std::vector<std::string>& missing_fonts) {
  std::vector<std::string> fonts = PrinterFonts();
  std::erase_if(fonts, [&](const std::string& font) {
    return std::ranges::find(missing_fonts, font) != missing_fonts.end();
  });
  printer.BeginDocument(PageWidth, PageHeight, std::move(fonts));
}

std::vector<std::string> ScriptedRuntime::LeftOver() const {
  std::vector<std::string> list;
  for (const MessageAnswer answer : answers_) {
    list.push_back("answer " + std::string(AnswerWord(answer)));
  }
  for (const auto& input : inputs_) {
    list.push_back("input " + OrCancel(input));
  }
  for (const auto& file : files_) {
    list.push_back("file " + OrCancel(file));
  }
  for (const auto& printer : printers_) {
    list.push_back("printer " + (printer ? WordsOf(*printer) : "cancel"));
  }
  for (const ModalAction& action : modal_actions_) {
    list.push_back("modal " + action.Words);
  }
  return list;
}

void ScriptedRuntime::Tell(const RuntimeEvent& event) const {
  if (OnEvent) {
    OnEvent(event);
  }
}

MessageAnswer ScriptedRuntime::TakeYesOrNo(const Message& message) {
  const auto answer = TakeNext(answers_);
  if (!answer) {
    throw ScriptEnded(MessageWords(message) + ", and no answer is queued; queue answer yes or answer no");
  }
  if (*answer == MessageAnswer::Ok) {
    throw ScriptEnded(MessageWords(message) + ", with Yes and No, and the queued answer ok does not fit it");
  }
  // The box has no Cancel of its own: to give it up is to say No.
  return *answer == MessageAnswer::Cancel ? MessageAnswer::No : *answer;
}

MessageAnswer ScriptedRuntime::MsgBox(const Message& message) {
  MessageAnswer answer = MessageAnswer::Ok;
  if (message.Buttons == MessageButtons::YesNo) {
    answer = TakeYesOrNo(message);
  } else if (!answers_.empty() && answers_.front() == MessageAnswer::Ok) {
    answers_.pop_front();
  }
  Tell(MessageEvent{message, answer});
  return answer;
}

std::string ScriptedRuntime::InputBox(const InputRequest& request) {
  const auto answer = TakeNext(inputs_);
  if (!answer) {
    throw ScriptEnded("an input box came up, title " + Quoted(request.Title) + ", prompt " +
                      Quoted(request.Prompt) + ", and no answer is queued; queue input TEXT or input cancel");
  }
  Tell(InputEvent{request, *answer});
  return answer->value_or("");
}

std::optional<std::string> ScriptedRuntime::FileDialog(const FileDialogRequest& request) {
  const auto answer = TakeNext(files_);
  if (!answer) {
    throw ScriptEnded(FileDialogWords(request) + ", and no answer is queued; queue file TEXT or file cancel");
  }
  Tell(FileDialogEvent{request, *answer});
  return *answer;
}

bool ScriptedRuntime::PrinterDialog(Printer& printer) {
  const auto answer = TakeNext(printers_);
  if (!answer) {
    throw ScriptEnded(
        "a printer dialog came up, and no answer is queued; queue printer TEXT or printer cancel");
  }
  const auto& choice = *answer;
  Tell(PrinterDialogEvent{choice ? std::optional(choice->File) : std::nullopt});
  if (!choice) {
    return false;
  }
  print_file_ = choice->File;
  SetUpPrinter(printer, choice->MissingFonts);
  printer.Copies = choice->Copies;
  return true;
}

std::optional<std::string> ScriptedRuntime::PrintDocument(Printer& printer) {
  auto failure = platform_.PrintToFile(printer, print_file_);
  if (!failure) {
    Tell(PrintedEvent{print_file_});
  }
  return failure;
}

std::optional<std::string> ScriptedRuntime::SavePicture(const PictureBox& picture, const std::string& path) {
  return platform_.SavePicture(picture, path);
}

LoadedImage ScriptedRuntime::LoadPicture(const std::string& path) { return platform_.LoadPicture(path); }

void ScriptedRuntime::RunModal(Form& form) {
  while (form.Visible()) {
    const auto next = TakeNext(modal_actions_);
    if (!next) {
      throw ScriptEnded("the modal window " + form.Name() + ", caption " + Quoted(form.Caption.Get()) +
                        ", is up, and no command is queued for it; queue modal COMMAND");
    }
    next->Action();
  }
}

void ScriptedRuntime::Quit() { Tell(QuitEvent{}); }

std::string ScriptedRuntime::GetSetting(std::string_view application, std::string_view section,
                                        std::string_view key, std::string_view absent) {
  return platform_.GetSetting(application, section, key, absent);
}

std::optional<std::string> ScriptedRuntime::SaveSetting(std::string_view application,
                                                        std::string_view section, std::string_view key,
                                                        std::string_view value) {
  return platform_.SaveSetting(application, section, key, value);
}

std::optional<std::string> ScriptedRuntime::Shell(const std::string& command) {
  Tell(ShellEvent{command});
  return std::nullopt;
}

Machine& ScriptedRuntime::TheMachine() { return platform_.TheMachine(); }

}  // namespace koprax
