// The commands of a script: each is read or refused with a reason, and one that is written out again from
// what was read means the same.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/script_command.h"
#include "fuzz/law.h"

namespace koprax {
namespace {

std::string Written(const ScriptCommand& command);

std::string Written(const std::string& text) { return nlohmann::json(text).dump(); }
std::string WrittenOrCancel(const std::optional<std::string>& text) {
  return text ? Written(*text) : "cancel";
}

std::string Written(float value) {
  std::array<char, 32> text{};
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

std::string Letter(int slot) { return {static_cast<char>('a' + slot - 1)}; }

struct CommandWriter {
  std::string operator()(const ClickCommand& c) const { return "click " + c.Target.Text(); }
  std::string operator()(const SetCommand& c) const {
    return "set " + c.Target.Text() + " " + Written(c.Text);
  }
  std::string operator()(const MouseCommand& c) const {
    constexpr std::array<const char*, 3> events{"down ", "move ", "up "};
    const bool move = c.Event == MouseCommand::Kind::Move;
    const std::string button = c.Button == MouseButton::Left ? " left " : " right ";
    return events.at(static_cast<std::size_t>(c.Event)) + c.Target.Text() + (move ? " " : button) +
           Written(c.X) + " " + Written(c.Y);
  }
  std::string operator()(const CloseCommand& c) const { return "close " + c.Form; }
  std::string operator()(const InputCommand& c) const { return "input " + WrittenOrCancel(c.Text); }
  std::string operator()(const AnswerCommand& c) const {
    switch (c.Answer) {
      case MessageAnswer::Yes:
        return "answer yes";
      case MessageAnswer::No:
        return "answer no";
      case MessageAnswer::Ok:
        return "answer ok";
      case MessageAnswer::Cancel:
        return "answer cancel";
    }
    return "";
  }
  std::string operator()(const FileCommand& c) const { return "file " + WrittenOrCancel(c.Path); }
  std::string operator()(const PrinterCommand& c) const {
    if (!c.Choice) return "printer cancel";
    std::string text = "printer " + Written(c.Choice->File);
    for (const std::string& font : c.Choice->MissingFonts) text += " without " + Written(font);
    return text + " copies " + std::to_string(c.Choice->Copies);
  }
  std::string operator()(const GetFormCommand& c) const { return "get " + c.Form; }
  std::string operator()(const GetControlCommand& c) const {
    return "get " + c.Target.Text() + (c.Property ? "." + *c.Property : "");
  }
  std::string operator()(const GetPrinterCommand&) const { return "get Printer"; }
  std::string operator()(const FormsCommand&) const { return "forms"; }
  std::string operator()(const StateCommand& c) const {
    return "state " + c.Field + (c.Slot ? "(" + Letter(*c.Slot) + ")" : "");
  }
  std::string operator()(const BufferCommand& c) const { return "buffer " + Letter(c.Slot); }
  std::string operator()(const PictureCommand& c) const { return "picture " + c.Target.Text(); }
  std::string operator()(const PrinterPictureCommand&) const { return "picture Printer"; }
  std::string operator()(const SnapshotCommand& c) const {
    return "snapshot " + c.Form + " " + Written(c.Path);
  }
  std::string operator()(const std::shared_ptr<const ModalCommand>& c) const {
    return "modal " + Written(c->Command);
  }
};

std::string Written(const ScriptCommand& command) { return std::visit(CommandWriter(), command); }

/// The words of a line, a JSON string with its blanks being one; the quotes of a string that was read are
/// sound.
std::vector<std::string> WordsOf(std::string_view line) {
  std::vector<std::string> words(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (!quoted && (line[i] == ' ' || line[i] == '\t')) {
      if (!words.back().empty()) words.emplace_back();
      continue;
    }
    words.back() += line[i];
    if (line[i] == '"') quoted = !quoted;
    if (quoted && line[i] == '\\') words.back() += line[++i];
    // A string ends at its quote, also where no blank follows.
    if (line[i] == '"' && !quoted) words.emplace_back();
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

bool IsNumber(const std::string& word) {
  char* end = nullptr;
  static_cast<void>(std::strtof(word.c_str(), &end));
  return end == word.c_str() + word.size();
}

/// Whether two words mean the same: texts with other escapes, numbers and indices with other digits.
bool SameMeaning(const std::string& one, const std::string& other) {
  if (one == other) return true;
  if (one.starts_with('"')) return nlohmann::json::parse(one) == nlohmann::json::parse(other);
  const std::size_t bracket = one.find('(');
  if (bracket == std::string::npos)
    return IsNumber(one) && IsNumber(other) &&
           std::strtof(one.c_str(), nullptr) == std::strtof(other.c_str(), nullptr);
  return one.substr(0, bracket) == other.substr(0, bracket) &&
         std::stoi(one.substr(bracket + 1)) == std::stoi(other.substr(bracket + 1)) &&
         one.substr(one.find(')')) == other.substr(other.find(')'));
}

/// What follows the file of a printer may stand in any order and be left out.
bool HasFreeOrder(const ScriptCommand& command) {
  if (const auto* modal = std::get_if<std::shared_ptr<const ModalCommand>>(&command)) {
    return HasFreeOrder((*modal)->Command);
  }
  return std::holds_alternative<PrinterCommand>(command);
}

void CheckWords(std::string_view line, const std::string& written) {
  const std::vector<std::string> given = WordsOf(line);
  const std::vector<std::string> read = WordsOf(written);
  Require(std::ranges::equal(given, read, SameMeaning), "the line says the same as " + written);
}

/// The command that a text is known to be.
ScriptCommand Reread(std::string_view text) {
  auto parsed = ParseScriptCommand(text);
  if (const auto* error = std::get_if<ScriptError>(&parsed)) {
    Require(false, "'" + std::string(text) + "' is a command, but: " + error->Reason);
  }
  return std::get<ScriptCommand>(std::move(parsed));
}

void CheckCommand(std::string_view line, const ScriptCommand& command) {
  const std::string written = Written(command);
  Require(Written(Reread(written)) == written, "the command reads back from " + written);
  if (!HasFreeOrder(command)) CheckWords(line, written);
  Require(Written(Reread("\t " + std::string(line) + " \t")) == written, "blanks around it change nothing");
  if (const auto* modal = std::get_if<std::shared_ptr<const ModalCommand>>(&command)) {
    Require(Written(Reread((*modal)->Text)) == Written((*modal)->Command), "its text is its command");
  }
}

void CheckLine(std::string_view line) {
  const auto parsed = ParseScriptCommand(line);
  if (const auto* error = std::get_if<ScriptError>(&parsed)) {
    Require(!error->Reason.empty(), "a refusal has a reason");
  } else {
    CheckCommand(line, std::get<ScriptCommand>(parsed));
  }
}

}  // namespace
}  // namespace koprax

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  koprax::CheckLine(koprax::InputBytes(data, size));
  return 0;
}
