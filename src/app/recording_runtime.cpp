#include "app/recording_runtime.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <utility>

#include "app/script_lines.h"
#include "forms/printer.h"
#include "forms/scripted_runtime.h"

namespace koprax {

namespace {

constexpr float TwipsPerMillimetre = 1440 / 25.4F;

std::string Told(const std::string& title, const std::string& text) {
  return ScriptText(title) + " tells: " + ScriptText(text);
}

std::string Asked(const std::string& title, const std::string& text) {
  return "# " + ScriptText(title) + " asks: " + ScriptText(text);
}

bool SameName(std::string_view left, std::string_view right) {
  const auto lower = [](unsigned char letter) { return std::tolower(letter); };
  return std::ranges::equal(left, right, {}, lower, lower);
}

/// The fonts of a script's printer that this one has not.
std::vector<std::string> MissingFonts(const Printer& printer) {
  std::vector<std::string> missing = ScriptedRuntime::PrinterFonts();
  std::erase_if(missing, [&](const std::string& wanted) {
    return std::ranges::any_of(printer.Fonts(),
                               [&](const std::string& font) { return SameName(font, wanted); });
  });
  return missing;
}

}  // namespace

MessageAnswer RecordingRuntime::MsgBox(const Message& message) {
  const MessageAnswer answer = person_.MsgBox(message);
  if (message.Buttons == MessageButtons::YesNo) {
    recorder_.Before(Asked(message.Title, message.Text));
    recorder_.Before(AnswerLine(answer));
  } else {
    recorder_.Behind(Told(message.Title, message.Text));
  }
  return answer;
}

std::string RecordingRuntime::InputBox(const InputRequest& request) {
  std::string text = person_.InputBox(request);
  recorder_.Before(Asked(request.Title, request.Prompt));
  // An empty text is what a cancel gives, too.
  recorder_.Before(InputLine(text.empty() ? std::nullopt : std::optional(text)));
  return text;
}

std::optional<std::string> RecordingRuntime::FileDialog(const FileDialogRequest& request) {
  auto path = person_.FileDialog(request);
  recorder_.Before(FileLine(path));
  return path;
}

bool RecordingRuntime::PrinterDialog(Printer& printer) {
  if (!person_.PrinterDialog(printer)) {
    recorder_.Before(PrinterLine(std::nullopt));
    return false;
  }
  PrinterChoice choice{
      .File = print_file_(), .MissingFonts = MissingFonts(printer), .Copies = printer.Copies};
  if (choice.File.empty()) {
    recorder_.Before("# This went to paper; played again it goes to a file.");
    choice.File = paper_file_ + std::to_string(++papers_) + ".pdf";
  }
  NoteOtherPaper(printer);
  recorder_.Before(PrinterLine(choice));
  return true;
}

void RecordingRuntime::NoteOtherPaper(const Printer& printer) {
  Printer scripted;
  ScriptedRuntime::SetUpPrinter(scripted, {});
  const auto differs = [](float one, float other) { return std::abs(one - other) > TwipsPerMillimetre; };
  if (differs(printer.ScaleWidth(), scripted.ScaleWidth()) ||
      differs(printer.ScaleHeight(), scripted.ScaleHeight())) {
    recorder_.Before("# The paper was not A4, as that of a script is.");
  }
}

std::optional<std::string> RecordingRuntime::PrintDocument(Printer& printer) {
  return person_.PrintDocument(printer);
}

std::optional<std::string> RecordingRuntime::SavePicture(const PictureBox& picture, const std::string& path) {
  return person_.SavePicture(picture, path);
}

LoadedImage RecordingRuntime::LoadPicture(const std::string& path) { return person_.LoadPicture(path); }

void RecordingRuntime::RunModal(Form& form) { person_.RunModal(form); }

void RecordingRuntime::Quit() { person_.Quit(); }

std::string RecordingRuntime::GetSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view absent) {
  std::string value = person_.GetSetting(application, section, key, absent);
  if (const auto noted = settings_.find(key); noted != settings_.end() && noted->second == value) {
    return value;
  }
  settings_.insert_or_assign(std::string(key), value);
  recorder_.Before("# The setting " + std::string(key) + " is " + ScriptText(value) + ".");
  return value;
}

std::optional<std::string> RecordingRuntime::SaveSetting(std::string_view application,
                                                         std::string_view section, std::string_view key,
                                                         std::string_view value) {
  return person_.SaveSetting(application, section, key, value);
}

std::optional<std::string> RecordingRuntime::Shell(const std::string& command) {
  return person_.Shell(command);
}

}  // namespace koprax
