// What commonly goes wrong in the lines of a file with measured numbers, and the lines without it: a check of
// files reads both and compares. Whether it matters to a reader is not known here.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace koprax {

using TextLines = std::vector<std::string>;

enum class Trouble {
  Tabs,               ///< between words, where only blanks and commas separate
  CommasInNumbers,    ///< a comma as decimal separator
  LongLines,          ///< numbers behind the columns that count
  ControlCharacters,  ///< NUL, Ctrl-Z and their like; a CR alone, which ends no line
};

inline constexpr std::array AllTroubles{Trouble::ControlCharacters, Trouble::Tabs, Trouble::CommasInNumbers,
                                        Trouble::LongLines};

/// The lines of a text without their ends.
[[nodiscard]] TextLines LinesOf(std::string_view text);
/// The text that has these lines.
[[nodiscard]] std::string TextOf(const TextLines& lines);

/// The lines without one trouble, as the format of this number (1 to 7) would have them. Each keeps its
/// number: one that is to be several has line breaks inside, and only lines at the end are left out.
[[nodiscard]] TextLines Mended(const TextLines& lines, Trouble trouble, int format);

}  // namespace koprax
