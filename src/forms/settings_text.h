// The text of a settings file: keys with their values in sections. Where it lies is left to others.
#pragma once

#include <string>
#include <string_view>

namespace koprax {

/// The value of a key, or `absent` where the text has none.
[[nodiscard]] std::string SettingIn(std::string_view text, std::string_view section, std::string_view key,
                                    std::string_view absent);

/// The text with the value, a single line, given to the key; anything else in it stays.
[[nodiscard]] std::string WithSetting(std::string_view text, std::string_view section, std::string_view key,
                                      std::string_view value);

}  // namespace koprax
