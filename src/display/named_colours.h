// The colours that a profile and its background can be printed in, by their names. Asking for one is left to
// the window with the choices.
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "forms/surface.h"

namespace koprax {

struct NamedColour {
  std::string_view Name;
  Colour Value;
};
inline constexpr std::array<NamedColour, 5> NamedColours{{{"Black", colours::Black},
                                                          {"Red", colours::Red},
                                                          {"Cyano", 16776960},
                                                          {"Blue", colours::Blue},
                                                          {"Green", 65280}}};

/// The colour of a name, letter for letter; nothing for any other text.
[[nodiscard]] inline std::optional<Colour> ColourOfName(std::string_view name) {
  const auto* const found = std::ranges::find(NamedColours, name, &NamedColour::Name);
  return found == NamedColours.end() ? std::nullopt : std::optional(found->Value);
}

}  // namespace koprax
