#include "workspace/machine_report.h"

#include <cmath>

#include "forms/number_text.h"

namespace koprax {

namespace {

std::string SystemName(const SystemVersion& system) {
  constexpr int FirstMinorOf98 = 10;
  switch (system.Kind) {
    case SystemKind::Windows9x:
      return system.Minor >= FirstMinorOf98 ? "Windows 98" : "Windows 95";
    case SystemKind::WindowsNt:
      return "Windows NT";
    case SystemKind::Other:
      break;
  }
  return system.Name;
}

}  // namespace

std::string SystemText(const SystemVersion& system) {
  const std::string service = system.Service.empty() ? "" : ": " + system.Service;
  return SystemName(system) + " version: " + std::to_string(system.Major) + "." +
         std::to_string(system.Minor) + " (Build " + std::to_string(system.Build) + service + ")";
}

std::string MachineReport(const std::string& computer, const SystemVersion& system,
                          const ScreenMode& screen) {
  return "Hi " + computer + ",\r\n" +                         //
         "Your Op. sys. is " + SystemText(system) + "\r\n" +  //
         "Your screen resolution is:  " + std::to_string(screen.Width) + " x " +
         std::to_string(screen.Height) + " pix.\r\n" +  //
         "Number of colors is: " + GeneralText(std::exp2(static_cast<double>(screen.BitsPerPixel))) + "\r\n" +
         "Best resolution for KOPRAX is:  " + " 800 x 600 pix. ";
}

std::string DecimalSeparatorOf(const std::string& four_fifths) {
  const std::size_t first = four_fifths.find('0');
  const std::size_t last = four_fifths.rfind('8');
  return first < last && last != std::string::npos ? four_fifths.substr(first + 1, last - first - 1)
                                                   : four_fifths;
}

bool IsPeriod(const std::string& separator) { return separator == "."; }

std::string SeparatorReport(const std::string& separator) {
  const std::string using_it = "You are using \"" + separator + "\" as decimal separator.\r\n";
  if (IsPeriod(separator)) {
    return using_it + "This is in agreement with KOPRAX settings.";
  }
  return using_it +
         "This is NOT in agreement with KOPRAX settings.\r\n"
         "Select \".\" as decimal separator in Control Panel,\r\n"
         "International settings.";
}

std::optional<Message> ScreenChangeMessage(int result) {
  switch (result) {
    case 0:
      return Message{.Text = "The display settings changed successfully", .Icon = MessageIcon::Information};
    case 1:
      return Message{.Text = "The computer must be restarted in order for the graphics mode to work",
                     .Icon = MessageIcon::Question};
    case -1:
      return Message{.Text = "The display driver failed the specified graphics mode",
                     .Icon = MessageIcon::Stop};
    case -2:
      return Message{.Text = "The graphics mode is not supported", .Icon = MessageIcon::Stop};
    case -3:
      return Message{.Text = "Unable to write settings to the registry", .Icon = MessageIcon::Stop};
    case -4:
      return Message{.Text = "You Passed invalid data", .Icon = MessageIcon::Stop};
    default:
      return std::nullopt;
  }
}

}  // namespace koprax
