#include "forms/settings_text.h"

#include <algorithm>

namespace koprax {

namespace {

/// A section of the name General is written so; without the sign it would be the part before all sections.
std::string HeadOf(std::string_view section) {
  return "[" + std::string(section == "General" ? "%" : "") + std::string(section) + "]";
}

/// A stretch of a text, from one offset to before another.
struct Stretch {
  std::size_t From = std::string_view::npos;  ///< npos where there is none
  std::size_t To = std::string_view::npos;
};

/// The first line from an offset on that starts so, without its end; none behind the end of the section.
Stretch FindLine(std::string_view text, std::size_t from, std::string_view start, bool inside_section) {
  while (from < text.size()) {
    const std::size_t to = std::min(text.find_first_of("\r\n", from), text.size());
    const std::string_view line = text.substr(from, to - from);
    if (line.starts_with(start)) return {from, to};
    if (inside_section && line.starts_with('[')) break;
    from = text.find_first_not_of("\r\n", to);
  }
  return {};
}

Stretch FindValue(std::string_view text, const Stretch& head, std::string_view key) {
  if (head.From == std::string_view::npos) return {};
  const std::string start = std::string(key) + "=";
  const Stretch line = FindLine(text, text.find_first_not_of("\r\n", head.To), start, true);
  return line.From == std::string_view::npos ? line : Stretch{line.From + start.size(), line.To};
}

}  // namespace

std::string SettingIn(std::string_view text, std::string_view section, std::string_view key,
                      std::string_view absent) {
  const Stretch value = FindValue(text, FindLine(text, 0, HeadOf(section), false), key);
  return std::string(value.From == std::string_view::npos ? absent
                                                          : text.substr(value.From, value.To - value.From));
}

std::string WithSetting(std::string_view text, std::string_view section, std::string_view key,
                        std::string_view value) {
  std::string changed(text);
  const Stretch head = FindLine(text, 0, HeadOf(section), false);
  const Stretch before = FindValue(text, head, key);
  const std::string line = "\n" + std::string(key) + "=" + std::string(value);
  if (before.From != std::string_view::npos) {
    return changed.replace(before.From, before.To - before.From, value);
  }
  if (head.From != std::string_view::npos) return changed.insert(head.To, line);
  if (!changed.empty() && changed.back() != '\n') changed += '\n';
  return changed + HeadOf(section) + line + "\n";
}

}  // namespace koprax
