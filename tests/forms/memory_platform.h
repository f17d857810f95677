// A platform that keeps everything in memory, for tests.
#pragma once

#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "forms/machine.h"
#include "forms/number_text.h"
#include "forms/platform.h"
#include "forms/printer.h"

namespace koprax {

/// A machine that tells what a test wants it to.
class MemoryMachine final : public Machine {
 public:
  std::string ComputerName() override { return Name; }
  SystemVersion System() override { return Version; }
  ScreenMode ScreenOf(const Form& /*form*/) override { return Screen; }
  std::string NumberText(double number) override {
    std::string text = GeneralText(number);
    return text.replace(text.find('.'), 1, Separator);
  }
  std::vector<ScreenMode> ScreenModes() override { return Modes; }
  int ChangeScreen(const ScreenMode& mode) override {
    Changed.push_back(mode);
    return ChangeResult;
  }

  std::string Name = "lab";
  SystemVersion Version{.Name = "Linux", .Major = 6, .Minor = 1};
  ScreenMode Screen{.BitsPerPixel = 24, .Width = 1280, .Height = 1024};
  std::string Separator = ".";
  std::vector<ScreenMode> Modes;
  std::vector<ScreenMode> Changed;
  int ChangeResult = 0;
};

class MemoryPlatform final : public Platform {
 public:
  std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                         std::string_view absent) override {
    const auto found = Settings.find(Path(application, section, key));
    return found == Settings.end() ? std::string(absent) : found->second;
  }
  std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                         std::string_view key, std::string_view value) override {
    if (!SettingFailure) Settings[Path(application, section, key)] = value;
    return SettingFailure;
  }
  Machine& TheMachine() override { return Host; }
  std::optional<std::string> PrintToFile(const Printer& printer, const std::string& path) override {
    Printed[path] = printer.Operations();
    return PrintFailure;
  }
  /// The file holds nothing; what was drawn is kept beside it.
  std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) override {
    if (!PictureFailure) {
      std::ofstream(path, std::ios::binary) << "BM";
      Pictures[path] = picture.Operations();
    }
    return PictureFailure;
  }
  LoadedImage LoadPicture(const std::string& path) override {
    if (ReadingFailure) return *ReadingFailure;
    if (!Pictures.contains(path)) return "no picture was saved there";
    return PixelImage{.Width = 2, .Height = 1, .Pixels = {colours::Red, colours::Blue}};
  }
  std::optional<std::string> Snapshot(Form& form, const std::string& path) override {
    Snapshots[path] = form.Name();
    return SnapshotFailure;
  }

  std::map<std::string, std::string> Settings;  ///< by "application/section/key"
  std::optional<std::string> SettingFailure;
  MemoryMachine Host;
  std::map<std::string, std::vector<DrawingOperation>> Printed;
  std::map<std::string, std::vector<DrawingOperation>> Pictures;
  std::optional<std::string> PictureFailure;
  std::optional<std::string> ReadingFailure;
  std::map<std::string, std::string> Snapshots;  ///< form by path
  std::optional<std::string> PrintFailure;
  std::optional<std::string> SnapshotFailure;

 private:
  static std::string Path(std::string_view application, std::string_view section, std::string_view key) {
    return std::string(application) + "/" + std::string(section) + "/" + std::string(key);
  }
};

}  // namespace koprax
