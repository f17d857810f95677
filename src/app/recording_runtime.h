// A runtime that passes everything on to the one of a person and tells a recorder what was asked and
// answered.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "app/session_recorder.h"
#include "forms/runtime.h"

namespace koprax {

/// Where the document of the printer that was chosen last goes: a file, or paper if it has no name.
using PrintFileOf = std::function<std::string()>;

class RecordingRuntime final : public Runtime {
 public:
  /// All three outlive it. A page that goes to paper is recorded as `paper_file` followed by a number and
  /// ".pdf".
  RecordingRuntime(Runtime& person, SessionRecorder& recorder, PrintFileOf print_file, std::string paper_file)
      : person_(person),
        recorder_(recorder),
        print_file_(std::move(print_file)),
        paper_file_(std::move(paper_file)) {}

  MessageAnswer MsgBox(const Message& message) override;
  std::string InputBox(const InputRequest& request) override;
  std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
  bool PrinterDialog(Printer& printer) override;
  std::optional<std::string> PrintDocument(Printer& printer) override;
  std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) override;
  [[nodiscard]] LoadedImage LoadPicture(const std::string& path) override;
  void RunModal(Form& form) override;
  void Quit() override;
  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section,
                                       std::string_view key, std::string_view absent) override;
  std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view value) override;
  std::optional<std::string> Shell(const std::string& command) override;
  [[nodiscard]] Machine& TheMachine() override { return person_.TheMachine(); }

 private:
  void NoteOtherPaper(const Printer& printer);

  Runtime& person_;
  SessionRecorder& recorder_;
  PrintFileOf print_file_;
  std::string paper_file_;
  int papers_ = 0;
  std::map<std::string, std::string, std::less<>> settings_;  // as they were noted, by key
};

}  // namespace koprax
