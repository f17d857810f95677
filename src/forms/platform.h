// What lies below both runtimes, the one that asks a person and the one that plays a script: the
// settings store, files made from what is drawn.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/runtime.h"

namespace koprax {

class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  [[nodiscard]] virtual std::string GetSetting(std::string_view application, std::string_view section,
                                               std::string_view key, std::string_view absent) = 0;
  /// The system's own words if that fails.
  virtual std::optional<std::string> SaveSetting(std::string_view application, std::string_view section,
                                                 std::string_view key, std::string_view value) = 0;
  [[nodiscard]] virtual Machine& TheMachine() = 0;
  /// Writes the printer's document to a PDF file; the system's own words if that fails.
  virtual std::optional<std::string> PrintToFile(const Printer& printer, const std::string& path) = 0;
  /// Saves what is drawn on the picture as a .bmp of its design size, and reads one back.
  virtual std::optional<std::string> SavePicture(const PictureBox& picture, const std::string& path) = 0;
  [[nodiscard]] virtual LoadedImage LoadPicture(const std::string& path) = 0;
  /// Saves an image of the window as PNG; the system's own words if that fails.
  virtual std::optional<std::string> Snapshot(Form& form, const std::string& path) = 0;
};

}  // namespace koprax
