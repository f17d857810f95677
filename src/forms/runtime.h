// What the windows need of the world outside: boxes that ask, dialogs for files and the printer, the
// settings store, the shell. One abstract class, passed in, so that a person or a script can answer.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "forms/surface.h"

namespace koprax {

/// The command of the shell that opens the settings of the region: how numbers are written.
inline constexpr std::string_view RegionalSettingsCommand =
    "rundll32.exe shell32.dll,Control_RunDLL intl.cpl,,1";

class Form;
class Machine;
class PictureBox;
class Printer;

enum class MessageButtons { Ok = 0, YesNo = 4 };
enum class MessageIcon { None = 0, Stop = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class MessageAnswer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// One message box. Line breaks in the text are CR LF.
struct Message {
  std::string Text{};
  std::string Title{};
  MessageButtons Buttons = MessageButtons::Ok;
  MessageIcon Icon = MessageIcon::None;
};

/// What stands in the way of a command, in words that also tell what would do.
[[nodiscard]] inline Message ErrorMessage(std::string text) {
  return {.Text = std::move(text), .Title = "Error", .Icon = MessageIcon::Stop};
}

struct InputRequest {
  std::string Prompt{};
  std::string Title{};
  std::string Default{};
};

struct FileDialogRequest {
  enum class Kind { Open, Save };
  Kind Type = Kind::Open;
  /// Pairs of description and pattern, all separated by "|".
  std::string Filter{};
  int FilterIndex = 1;  ///< from 1
  std::string Name{};   ///< the name that stands in the dialog at first
};

/// An image that was read from a file, or the system's own words if that failed.
using LoadedImage = std::variant<PixelImage, std::string>;

class Runtime {
 public:
  Runtime() = default;
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;
  virtual ~Runtime() = default;

  /// Shows a message and waits. The answer to a Yes and No box that is closed otherwise is No.
  virtual MessageAnswer MsgBox(const Message& message) = 0;
  /// The text typed, "" on cancel.
  virtual std::string InputBox(const InputRequest& request) = 0;
  /// The full path chosen, or nothing on cancel.
  virtual std::optional<std::string> FileDialog(const FileDialogRequest& request) = 0;
  /// Asks for a printer and sets it up for a new document; false on cancel.
  virtual bool PrinterDialog(Printer& printer) = 0;
  /// Prints the finished document; the system's own words if that fails.
  virtual std::optional<std::string> PrintDocument(Printer& printer) = 0;
  /// Saves what is drawn on the picture as a .bmp of the picture's design size, whatever its size on the
  /// screen; the overlays are left out. The system's own words if that fails; the file is then as it was.
  virtual std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) = 0;
  [[nodiscard]] virtual LoadedImage LoadPicture(const std::string& path) = 0;
  /// Returns when the form, which has just been shown, is visible no more.
  virtual void RunModal(Form& form) = 0;
  /// The run ends: no further event is to be delivered.
  virtual void Quit() = 0;

  [[nodiscard]] virtual std::string GetSetting(std::string_view application, std::string_view section,
                                               std::string_view key, std::string_view absent) = 0;
  /// Keeps a setting beyond the run; the system's own words if that fails.
  virtual std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                                 std::string_view key, std::string_view value) = 0;
  /// Starts a command of the system's shell; words for what is missing if it can't be started.
  virtual std::optional<std::string> Shell(const std::string& command) = 0;
  /// What the machine tells of itself.
  [[nodiscard]] virtual Machine& TheMachine() = 0;
};

}  // namespace koprax
