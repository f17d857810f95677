// What the System configuration window tells of the machine, in words. Asking the machine is left to the
// window.
#pragma once

#include <optional>
#include <string>

#include "forms/machine.h"
#include "forms/runtime.h"

namespace koprax {

/// "Linux version: 6.1 (Build 0: Debian GNU/Linux 12)".
[[nodiscard]] std::string SystemText(const SystemVersion& system);

/// The five lines of the report, CR LF between them.
[[nodiscard]] std::string MachineReport(const std::string& computer, const SystemVersion& system,
                                        const ScreenMode& screen);

/// What stands between the 0 and the 8 in the text of 4/5.
[[nodiscard]] std::string DecimalSeparatorOf(const std::string& four_fifths);
/// Whether that separator is the one of all files of the program.
[[nodiscard]] bool IsPeriod(const std::string& separator);
/// What the user is told of the separator, CR LF between the lines.
[[nodiscard]] std::string SeparatorReport(const std::string& separator);

/// What the user is told of the result of a change of the screen; nothing for a result that has no words.
[[nodiscard]] std::optional<Message> ScreenChangeMessage(int result);

}  // namespace koprax
