#include "app/script_command.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "app/script_names.h"
#include "app/script_scanner.h"

namespace koprax {

namespace {

constexpr std::size_t LongestQuotedWord = 40;

/// Thrown by the readers below and turned into a value at the one place that calls them.
struct ParseFailure {
  std::string Reason;
};

[[noreturn]] void Fail(std::string reason) { throw ParseFailure{std::move(reason)}; }

std::string Shown(std::string_view word) {
  if (word.empty()) {
    return "nothing";
  }
  return "'" + std::string(word.substr(0, LongestQuotedWord)) +
         (word.size() > LongestQuotedWord ? "...'" : "'");
}

bool IsWordLetter(char letter) {
  return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

/// Takes letters, digits and underscores off the front of a name.
std::string_view TakeIdentifier(std::string_view& name) {
  const auto end = std::ranges::find_if_not(name, IsWordLetter);
  const std::string_view identifier = name.substr(0, static_cast<std::size_t>(end - name.begin()));
  name.remove_prefix(identifier.size());
  return identifier;
}

/// Takes "(3)" off the front of a name.
std::optional<int> TakeIndex(std::string_view& name) {
  if (!name.starts_with('(')) {
    return std::nullopt;
  }
  const std::size_t close = name.find(')');
  const std::string_view digits = name.substr(1, close == std::string_view::npos ? close : close - 1);
  int index = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (close == std::string_view::npos || error != std::errc{} || stop != digits.data() + digits.size()) {
    Fail("an index is a whole number in brackets, such as Form20.Text1(3), not " + Shown(name));
  }
  name.remove_prefix(close + 1);
  return index;
}

std::string ReadFormName(ScriptScanner& scanner) {
  const std::string_view word = scanner.Word();
  if (word.empty() || !std::ranges::all_of(word, IsWordLetter)) {
    Fail("the name of a form is wanted, such as Form6, not " + Shown(word));
  }
  return std::string(word);
}

/// Reads FORM.CONTROL(INDEX) off the front of a word.
ControlName TakeControlName(std::string_view& word) {
  const std::string_view whole = word;
  ControlName name;
  name.Form = TakeIdentifier(word);
  const bool dotted = word.starts_with('.');
  word.remove_prefix(dotted ? 1 : 0);
  name.Control = TakeIdentifier(word);
  name.Index = TakeIndex(word);
  if (name.Form.empty() || !dotted || name.Control.empty()) {
    Fail("the name of a control is wanted, such as Form6.cmdZoom or Form20.Text1(3), not " + Shown(whole));
  }
  return name;
}

ControlName ReadControlName(ScriptScanner& scanner) {
  std::string_view word = scanner.Word();
  ControlName name = TakeControlName(word);
  if (!word.empty()) {
    Fail(Shown(word) + " does not belong behind the name of the control " + name.Text());
  }
  return name;
}

std::string ReadText(ScriptScanner& scanner) {
  auto text = scanner.JsonText();
  if (!text) {
    Fail("a text is wanted as a JSON string, such as \"1.5406\", not " + Shown(scanner.Rest()));
  }
  return std::move(*text);
}

std::optional<std::string> ReadTextOrCancel(ScriptScanner& scanner) {
  if (scanner.TakeWord("cancel")) {
    return std::nullopt;
  }
  return ReadText(scanner);
}

float ReadCoordinate(ScriptScanner& scanner) {
  ScriptScanner before = scanner;
  const auto value = scanner.Number();
  if (!value) {
    Fail("a coordinate is a number, such as 57.5, not " + Shown(before.Word()));
  }
  return *value;
}

MouseButton ReadMouseButton(ScriptScanner& scanner) {
  if (scanner.TakeWord("left")) {
    return MouseButton::Left;
  }
  if (scanner.TakeWord("right")) {
    return MouseButton::Right;
  }
  Fail("the mouse button is left or right, not " + Shown(scanner.Word()));
}

ScriptCommand ReadMouse(ScriptScanner& scanner, MouseCommand::Kind kind) {
  ControlName target = ReadControlName(scanner);
  const MouseButton button = kind == MouseCommand::Kind::Move ? MouseButton::Left : ReadMouseButton(scanner);
  const float x = ReadCoordinate(scanner);
  const float y = ReadCoordinate(scanner);
  return MouseCommand{kind, std::move(target), button, x, y};
}

ScriptCommand ReadSet(ScriptScanner& scanner) {
  ControlName target = ReadControlName(scanner);
  return SetCommand{std::move(target), ReadText(scanner)};
}

ScriptCommand ReadAnswer(ScriptScanner& scanner) {
  for (const auto answer :
       {MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Ok, MessageAnswer::Cancel}) {
    if (scanner.TakeWord(AnswerWord(answer))) {
      return AnswerCommand{answer};
    }
  }
  Fail("an answer is yes, no, ok or cancel, not " + Shown(scanner.Word()));
}

std::string ReadFontName(ScriptScanner& scanner) {
  const std::string wanted =
      scanner.Rest().starts_with('"') ? ReadText(scanner) : std::string(scanner.Word());
  for (const std::string& font : ScriptedRuntime::PrinterFonts()) {
    if (EditDistance(font, wanted) == 0) {
      return font;
    }
  }
  Fail("the printer has no font " + Shown(wanted) + "; it has " + CommaList(ScriptedRuntime::PrinterFonts()));
}

ScriptCommand ReadPrinter(ScriptScanner& scanner) {
  PrinterCommand command;
  const auto file = ReadTextOrCancel(scanner);
  if (!file) {
    return command;
  }
  command.Choice = PrinterChoice{*file};
  for (;;) {
    if (scanner.TakeWord("without")) {
      command.Choice->MissingFonts.push_back(ReadFontName(scanner));
    } else if (scanner.TakeWord("copies")) {
      ScriptScanner before = scanner;
      command.Choice->Copies = scanner.WholeNumber().value_or(0);
      if (command.Choice->Copies < 1) {
        Fail("the number of copies is a whole number from 1, not " + Shown(before.Word()));
      }
    } else {
      return command;
    }
  }
}

ScriptCommand ReadGet(ScriptScanner& scanner) {
  if (scanner.TakeWord("Printer")) {
    return GetPrinterCommand{};
  }
  if (scanner.Rest().substr(0, scanner.Rest().find_first_of(" \t")).find('.') == std::string_view::npos) {
    return GetFormCommand{ReadFormName(scanner)};
  }
  std::string_view word = scanner.Word();
  GetControlCommand command{TakeControlName(word), std::nullopt};
  if (word.starts_with('.')) {
    word.remove_prefix(1);
    command.Property = TakeIdentifier(word);
  }
  if (!word.empty() || command.Property == "") {
    Fail("a property is wanted behind " + command.Target.Text() + ", such as " + command.Target.Text() +
         ".Enabled");
  }
  return command;
}

/// The slot of a buffer letter; nothing if it is none.
std::optional<int> SlotOf(std::string_view letter) {
  if (letter.size() != 1 || letter[0] < 'a' || letter[0] > 'f') {
    return std::nullopt;
  }
  return letter[0] - 'a' + 1;
}

ScriptCommand ReadState(ScriptScanner& scanner) {
  std::string_view word = scanner.Word();
  StateCommand command{std::string(TakeIdentifier(word)), std::nullopt};
  if (command.Field.empty()) {
    Fail("the name of a workspace field is wanted, such as CurBuf or PermX(a), not " + Shown(word));
  }
  if (word.empty()) {
    return command;
  }
  if (word.starts_with('(') && word.ends_with(')')) {
    command.Slot = SlotOf(word.substr(1, word.size() - 2));
  }
  if (!command.Slot) {
    Fail("a buffer is one of the letters a to f in brackets, such as " + command.Field + "(a), not " +
         Shown(word));
  }
  return command;
}

ScriptCommand ReadBuffer(ScriptScanner& scanner) {
  const std::string_view letter = scanner.Word();
  const auto slot = SlotOf(letter);
  if (!slot) {
    Fail("a buffer is one of the letters a to f, not " + Shown(letter));
  }
  return BufferCommand{*slot};
}

ScriptCommand ReadPicture(ScriptScanner& scanner) {
  if (scanner.TakeWord("Printer")) {
    return PrinterPictureCommand{};
  }
  return PictureCommand{ReadControlName(scanner)};
}

ScriptCommand ReadSnapshot(ScriptScanner& scanner) {
  std::string form = ReadFormName(scanner);
  return SnapshotCommand{std::move(form), ReadText(scanner)};
}

ScriptCommand ReadModal(ScriptScanner& scanner);

struct CommandReader {
  std::string_view Word;
  ScriptCommand (*Read)(ScriptScanner&);
};

constexpr std::array<CommandReader, 17> CommandReaders{{
    {"click", [](ScriptScanner& scanner) -> ScriptCommand { return ClickCommand{ReadControlName(scanner)}; }},
    {"set", ReadSet},
    {"down", [](ScriptScanner& scanner) { return ReadMouse(scanner, MouseCommand::Kind::Down); }},
    {"move", [](ScriptScanner& scanner) { return ReadMouse(scanner, MouseCommand::Kind::Move); }},
    {"up", [](ScriptScanner& scanner) { return ReadMouse(scanner, MouseCommand::Kind::Up); }},
    {"close", [](ScriptScanner& scanner) -> ScriptCommand { return CloseCommand{ReadFormName(scanner)}; }},
    {"input",
     [](ScriptScanner& scanner) -> ScriptCommand { return InputCommand{ReadTextOrCancel(scanner)}; }},
    {"answer", ReadAnswer},
    {"file", [](ScriptScanner& scanner) -> ScriptCommand { return FileCommand{ReadTextOrCancel(scanner)}; }},
    {"printer", ReadPrinter},
    {"modal", ReadModal},
    {"get", ReadGet},
    {"forms", [](ScriptScanner&) -> ScriptCommand { return FormsCommand{}; }},
    {"state", ReadState},
    {"buffer", ReadBuffer},
    {"picture", ReadPicture},
    {"snapshot", ReadSnapshot},
}};

ScriptCommand ReadCommand(ScriptScanner& scanner) {
  const std::string_view word = scanner.Word();
  const auto* const reader = std::ranges::find(CommandReaders, word, &CommandReader::Word);
  if (reader == CommandReaders.end()) {
    std::vector<std::string> known;
    known.reserve(CommandReaders.size());
    for (const CommandReader& one : CommandReaders) {
      known.emplace_back(one.Word);
    }
    Fail("unknown command " + Shown(word) + "; known are " + CommaList(known));
  }
  ScriptCommand command = reader->Read(scanner);
  if (!scanner.AtEnd()) {
    Fail(Shown(scanner.Rest()) + " does not belong behind the command " + std::string(word));
  }
  return command;
}

ScriptCommand ReadModal(ScriptScanner& scanner) {
  std::string text(scanner.Rest());
  if (text.empty()) {
    Fail("modal wants a command behind it, such as modal click Form33.cmdComboOK");
  }
  if (scanner.TakeWord("modal")) {
    Fail("modal is written once; commands for several modal windows are queued one after the other");
  }
  return std::make_shared<const ModalCommand>(ModalCommand{std::move(text), ReadCommand(scanner)});
}

}  // namespace

std::string ControlName::ControlText() const {
  return Index ? Control + "(" + std::to_string(*Index) + ")" : Control;
}

std::string ControlName::Text() const { return Form + "." + ControlText(); }

std::variant<ScriptCommand, ScriptError> ParseScriptCommand(std::string_view line) {
  ScriptScanner scanner(line);
  try {
    return ReadCommand(scanner);
  } catch (ParseFailure& failure) {
    return ScriptError{std::move(failure.Reason)};
  }
}

}  // namespace koprax
