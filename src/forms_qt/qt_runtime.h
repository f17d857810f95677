// The runtime of the desktop program: a person answers its boxes and dialogs.
#pragma once

#include <QString>
#include <memory>

#include "forms/platform.h"
#include "forms/runtime.h"

class QPrinter;

namespace koprax {

class QtRuntime final : public Runtime {
 public:
  /// The platform keeps the settings and outlives the runtime.
  explicit QtRuntime(Platform& platform);
  ~QtRuntime() override;

  MessageAnswer MsgBox(const Message& message) override;
  std::string InputBox(const InputRequest& request) override;
  std::optional<std::string> FileDialog(const FileDialogRequest& request) override;
  bool PrinterDialog(Printer& printer) override;
  std::optional<std::string> PrintDocument(Printer& printer) override;
  /// The file that the printer chosen last writes to; "" if there is none, or it prints on paper.
  [[nodiscard]] std::string PrintFile() const;
  std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) override;
  [[nodiscard]] LoadedImage LoadPicture(const std::string& path) override;
  void RunModal(Form& form) override;
  void Quit() override;

  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section,
                                       std::string_view key, std::string_view absent) override;
  std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view value) override;
  std::optional<std::string> Shell(const std::string& command) override;
  [[nodiscard]] Machine& TheMachine() override { return platform_.TheMachine(); }

 private:
  Platform& platform_;
  std::unique_ptr<QPrinter> paper_;  // made when something is printed first
  QString folder_;                   // of the last file that was chosen
};

}  // namespace koprax
