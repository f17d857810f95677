// The number that a text begins with, by its rule.
#pragma once

#include <cstdlib>
#include <regex>
#include <string>

namespace koprax {

/// The rule as a pattern; what it accepts goes to strtod.
inline double PlainLeadingNumber(const std::string& text) {
  static const std::regex rule(R"( *([+-]?(?:\d+\.?\d*|\.\d+))(?:[EeDd]([+-]?\d+))?)");
  std::smatch parts;
  if (!std::regex_search(text, parts, rule, std::regex_constants::match_continuous)) return 0;
  const std::string number = parts.str(1) + "E" + (parts[2].matched ? parts.str(2) : "0");
  return std::strtod(number.c_str(), nullptr);
}

}  // namespace koprax
