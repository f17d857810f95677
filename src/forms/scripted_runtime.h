// A runtime that plays a script: every box and dialog takes its answer from a queue that was filled
// beforehand, and each one is told to a listener as a value. How a script is written down is left to the
// player; settings and files made from what is drawn are left to the platform.
#pragma once

#include <deque>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "forms/platform.h"
#include "forms/runtime.h"

namespace koprax {

/// What happened, with the answer that was given; no answer stands for a cancel.
struct MessageEvent {
  Message Box;
  MessageAnswer Answer;
};
struct InputEvent {
  InputRequest Request;
  std::optional<std::string> Answer;
};
struct FileDialogEvent {
  FileDialogRequest Request;
  std::optional<std::string> Answer;
};
struct PrinterDialogEvent {
  std::optional<std::string> Answer;
};
struct PrintedEvent {
  std::string File;
};
struct ShellEvent {
  std::string Command;
};
struct QuitEvent {};
using RuntimeEvent = std::variant<MessageEvent, InputEvent, FileDialogEvent, PrinterDialogEvent, PrintedEvent,
                                  ShellEvent, QuitEvent>;

/// The outcome of a printer dialog: the PDF file that the document goes to, the fonts that the printer's
/// list lacks, and the copies wanted.
struct PrinterChoice {
  std::string File{};
  std::vector<std::string> MissingFonts{};
  int Copies = 1;
};

/// Thrown when the program waits for an answer that the script doesn't have. It unwinds through the
/// handlers that run, to whoever plays the script; nothing is to be played after it.
class ScriptEnded : public std::exception {
 public:
  explicit ScriptEnded(std::string reason) : reason_(std::move(reason)) {}
  [[nodiscard]] const char* what() const noexcept override { return reason_.c_str(); }

 private:
  std::string reason_;
};

/// The words for an answer: "yes", "no", "ok", "cancel".
[[nodiscard]] std::string_view AnswerWord(MessageAnswer answer);

class ScriptedRuntime final : public Runtime {
 public:
  explicit ScriptedRuntime(Platform& platform) : platform_(platform) {}

  /// The fonts of the scripted printer, whose page is A4.
  [[nodiscard]] static const std::vector<std::string>& PrinterFonts();
  /// Sets a printer up for a new document on that page, without the fonts given.
  static void SetUpPrinter(Printer& printer, const std::vector<std::string>& missing_fonts);

  /// Queue answers, each kind in a queue of its own; nothing stands for a cancel.
  void QueueAnswer(MessageAnswer answer) { answers_.push_back(answer); }
  void QueueInput(std::optional<std::string> text) { inputs_.push_back(std::move(text)); }
  void QueueFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
  void QueuePrinter(std::optional<PrinterChoice> choice) { printers_.push_back(std::move(choice)); }
  /// Queues something to be done while a coming modal window is up; `words` describe it.
  void QueueModal(std::string words, std::function<void()> action) {
    modal_actions_.push_back({std::move(words), std::move(action)});
  }
  /// Describes each queued answer that nothing has asked for, as a script would write it.
  [[nodiscard]] std::vector<std::string> LeftOver() const;

  /// Hears of everything, after the answer was taken and before the program goes on.
  std::function<void(const RuntimeEvent&)> OnEvent;

  // Each of these throws ScriptEnded when it finds no answer.

  /// A box with OK alone takes a queued "ok" if that is the next answer, and otherwise needs none. A Yes
  /// and No box takes "yes", "no" or "cancel", which closes it as a No; any other answer doesn't fit and
  /// ends the script.
  MessageAnswer MsgBox(const Message& message) override;
  std::string InputBox(const InputRequest& request) override;
  std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
  bool PrinterDialog(Printer& printer) override;
  std::optional<std::string> PrintDocument(Printer& printer) override;
  std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) override;
  [[nodiscard]] LoadedImage LoadPicture(const std::string& path) override;
  /// Does what was queued, in order, until the form is visible no more.
  void RunModal(Form& form) override;
  void Quit() override;

  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section,
                                       std::string_view key, std::string_view absent) override;
  std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view value) override;
  /// Starts nothing; the listener hears of the command.
  std::optional<std::string> Shell(const std::string& command) override;
  [[nodiscard]] Machine& TheMachine() override;

 private:
  struct ModalAction {
    std::string Words;
    std::function<void()> Action;
  };

  void Tell(const RuntimeEvent& event) const;
  [[nodiscard]] MessageAnswer TakeYesOrNo(const Message& message);

  Platform& platform_;
  std::deque<MessageAnswer> answers_;
  std::deque<std::optional<std::string>> inputs_;
  std::deque<std::optional<std::string>> files_;
  std::deque<std::optional<PrinterChoice>> printers_;
  std::deque<ModalAction> modal_actions_;
  std::string print_file_;
};

}  // namespace koprax
