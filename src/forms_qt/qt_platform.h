// The settings store and the files that are made from what is drawn, with Qt. It asks nobody anything.
#pragma once

#include "forms/platform.h"
#include "forms_qt/qt_machine.h"

namespace koprax {

/// Needs a QGuiApplication, and for Snapshot a QApplication whose windows a QtDesktopView has built.
class QtPlatform final : public Platform {
 public:
  /// Settings lie as text below XDG_CONFIG_HOME or ~/.config, one file an application.
  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section,
                                       std::string_view key, std::string_view absent) override;
  std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view value) override;
  [[nodiscard]] Machine& TheMachine() override { return machine_; }
  std::optional<std::string> PrintToFile(const Printer& printer, const std::string& path) override;
  std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) override;
  [[nodiscard]] LoadedImage LoadPicture(const std::string& path) override;
  std::optional<std::string> Snapshot(Form& form, const std::string& path) override;

 private:
  QtMachine machine_;
};

}  // namespace koprax
