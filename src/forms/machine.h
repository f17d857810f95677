// What the machine tells of itself, and the one thing of it that can be changed, the mode of its screen. How
// a system is asked for all this is left to the platform.
#pragma once

#include <string>
#include <vector>

namespace koprax {

class Form;

/// The kinds of systems that number themselves alike; the numbers are those of the first two.
enum class SystemKind { Other = 0, Windows9x = 1, WindowsNt = 2 };

struct SystemVersion {
  SystemKind Kind = SystemKind::Other;
  std::string Name{};  ///< of a system of another kind
  int Major = 0;
  int Minor = 0;
  int Build = 0;
  std::string Service{};  ///< what the system calls this state of it; may be empty
};

/// A state that a screen has or can be switched to, in pixels of the screen itself.
struct ScreenMode {
  int BitsPerPixel = 0;
  int Width = 0;
  int Height = 0;
  bool operator==(const ScreenMode&) const = default;
};

class Machine {
 public:
  Machine() = default;
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;
  virtual ~Machine() = default;

  /// Empty if the machine doesn't tell.
  [[nodiscard]] virtual std::string ComputerName() = 0;
  [[nodiscard]] virtual SystemVersion System() = 0;
  /// The screen on which the form lies, or will lie.
  [[nodiscard]] virtual ScreenMode ScreenOf(const Form& form) = 0;
  /// A number as the user's own settings write it, unlike all numbers of this program.
  [[nodiscard]] virtual std::string NumberText(double number) = 0;

  /// The modes that the screen can be switched to; none where the system has no service for it.
  [[nodiscard]] virtual std::vector<ScreenMode> ScreenModes() = 0;
  /// Switches the screen for good and returns the system's result: 0 changed, 1 needs a restart, -1 failed,
  /// -2 not supported, -3 can't be kept, -4 refused.
  virtual int ChangeScreen(const ScreenMode& mode) = 0;
};

}  // namespace koprax
