// The program of the desktop in which the user sets how numbers are written.
#pragma once

#include <optional>
#include <string>

namespace koprax {

/// Starts it; words for what would do instead if this desktop has none.
[[nodiscard]] std::optional<std::string> OpenRegionalSettings();

}  // namespace koprax
