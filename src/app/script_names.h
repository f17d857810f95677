// Names that are near to a name that was not found, for messages that help.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace koprax {

/// The number of letters to insert, drop or replace to make one text the other, capitals or not.
[[nodiscard]] std::size_t EditDistance(std::string_view one, std::string_view other);

/// Up to five of the names, nearest first.
[[nodiscard]] std::vector<std::string> NearestNames(std::string_view wanted,
                                                    const std::vector<std::string>& names);

/// "a, b, c"
[[nodiscard]] std::string CommaList(const std::vector<std::string>& names);

}  // namespace koprax
