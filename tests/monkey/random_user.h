// The user of a random walk, as the windows meet him: he answers each box and dialog by chance, or as was
// planned for it. Nothing of it needs a toolkit.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "app/script_command.h"
#include "forms/runtime.h"
#include "tests/forms/memory_platform.h"
#include "tests/monkey/decisions.h"
#include "tests/monkey/sample_files.h"
#include "tests/monkey/walk_record.h"

namespace koprax {

class RandomUser final : public Runtime {
 public:
  /// Each answer goes to the record as the line that a script would queue for it.
  RandomUser(Decisions& decisions, const SampleFiles& files, WalkRecord& record);

  /// What he does with a form that is up as a modal window.
  std::function<void(Form&)> ActOn;
  /// Does one command in a modal window.
  std::function<void(const std::string&)> Do;

  /// A text for a box: numbers of all sorts, and what is none.
  [[nodiscard]] std::string SomeText();
  /// Keeps an answer, written as a script queues it, for the next question that it fits; false for any other
  /// command.
  bool Plan(const ScriptCommand& command);
  void ForgetPlans();
  /// An action begins; questions count anew.
  void StartAction();

  MessageAnswer MsgBox(const Message& message) override;
  std::string InputBox(const InputRequest& request) override;
  std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
  bool PrinterDialog(Printer& printer) override;
  std::optional<std::string> PrintDocument(Printer& printer) override;
  std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) override;
  LoadedImage LoadPicture(const std::string& path) override;
  void RunModal(Form& form) override;
  void Quit() override {}
  std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                         std::string_view absent) override;
  std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view value) override;
  std::optional<std::string> Shell(const std::string& command) override;
  Machine& TheMachine() override { return platform_.TheMachine(); }

 private:
  void CountComplaint(const Message& message);

  Decisions& decisions_;
  const SampleFiles& files_;
  WalkRecord& record_;
  MemoryPlatform platform_;
  std::deque<MessageAnswer> answers_;
  std::deque<std::optional<std::string>> inputs_;
  std::deque<std::optional<std::string>> chosen_files_;
  std::deque<std::optional<PrinterChoice>> printers_;
  std::deque<std::string> modal_;
  std::string printed_file_;
  int questions_ = 0;      ///< of the action that runs
  std::string complaint_;  ///< of the action that runs
};

}  // namespace koprax
