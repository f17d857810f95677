// The commands of a script as values, read from their text. Carrying them out is left to the player;
// whether the things they name exist is found out then.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "forms/control.h"
#include "forms/scripted_runtime.h"

namespace koprax {

/// FORM.CONTROL or FORM.CONTROL(INDEX).
struct ControlName {
  std::string Form;
  std::string Control;
  std::optional<int> Index;

  /// "Form20.Text1(3)"
  [[nodiscard]] std::string Text() const;
  /// "Text1(3)"
  [[nodiscard]] std::string ControlText() const;
  bool operator==(const ControlName&) const = default;
};

struct ClickCommand {
  ControlName Target;
};
struct SetCommand {
  ControlName Target;
  std::string Text;
};
struct MouseCommand {
  enum class Kind { Down, Move, Up };
  Kind Event;
  ControlName Target;
  MouseButton Button;  ///< left for a move
  float X;
  float Y;
};
struct CloseCommand {
  std::string Form;
};
struct InputCommand {
  std::optional<std::string> Text;  ///< nothing is a cancel, here and below
};
struct AnswerCommand {
  MessageAnswer Answer;
};
struct FileCommand {
  std::optional<std::string> Path;
};
struct PrinterCommand {
  std::optional<PrinterChoice> Choice;
};
struct GetFormCommand {
  std::string Form;
};
struct GetControlCommand {
  ControlName Target;
  std::optional<std::string> Property;
};
struct GetPrinterCommand {};
struct FormsCommand {};
struct StateCommand {
  std::string Field;
  std::optional<int> Slot;  ///< 1 to 6 for a to f
};
struct BufferCommand {
  int Slot;
};
struct PictureCommand {
  ControlName Target;
};
struct PrinterPictureCommand {};
struct SnapshotCommand {
  std::string Form;
  std::string Path;
};
struct ModalCommand;

using ScriptCommand =
    std::variant<ClickCommand, SetCommand, MouseCommand, CloseCommand, InputCommand, AnswerCommand,
                 FileCommand, PrinterCommand, GetFormCommand, GetControlCommand, GetPrinterCommand,
                 FormsCommand, StateCommand, BufferCommand, PictureCommand, PrinterPictureCommand,
                 SnapshotCommand, std::shared_ptr<const ModalCommand>>;

/// A command for the time when a modal window is up, with its own text.
struct ModalCommand {
  std::string Text;
  ScriptCommand Command;
};

/// What is wrong with a command, and what would do.
struct ScriptError {
  std::string Reason;
};

/// Reads one command; the line is neither blank nor a comment. Anything that isn't written as a command
/// has to be comes back as an error.
[[nodiscard]] std::variant<ScriptCommand, ScriptError> ParseScriptCommand(std::string_view line);

}  // namespace koprax
