// The texts of the on-line help by the window that shows them, with plain line ends. Only help_topics.cpp
// uses them.
#pragma once

#include <string_view>

#include "workspace/help_topics.h"

namespace koprax {

/// Each gives the text of a topic of its window, and nothing for a topic of another one.
[[nodiscard]] std::string_view MainMenuHelp(HelpTopic topic);
[[nodiscard]] std::string_view FormatHelp(HelpTopic topic);
[[nodiscard]] std::string_view DisplayHelp(HelpTopic topic);
[[nodiscard]] std::string_view ArithmeticHelp(HelpTopic topic);
[[nodiscard]] std::string_view ManipulationHelp(HelpTopic topic);
[[nodiscard]] std::string_view FitHelp(HelpTopic topic);
[[nodiscard]] std::string_view CalibrationHelp(HelpTopic topic);

}  // namespace koprax
