// What Qt can tell of the machine. Screens are switched by the settings of the desktop alone, so there are no
// modes to choose from.
#pragma once

#include "forms/machine.h"

namespace koprax {

/// Needs a QGuiApplication.
class QtMachine final : public Machine {
 public:
  [[nodiscard]] std::string ComputerName() override;
  /// Of a system that isn't Windows: the kernel with the first three numbers of its version, and the
  /// distribution.
  [[nodiscard]] SystemVersion System() override;
  /// In the pixels of the screen itself, whatever the scaling.
  [[nodiscard]] ScreenMode ScreenOf(const Form& form) override;
  [[nodiscard]] std::string NumberText(double number) override;
  [[nodiscard]] std::vector<ScreenMode> ScreenModes() override { return {}; }
  int ChangeScreen(const ScreenMode& mode) override;
};

}  // namespace koprax
