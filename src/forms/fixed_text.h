// Texts in fields of a fixed number of characters. Texts are UTF-8; characters are counted, not bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace koprax {

/// The number of characters of a UTF-8 text.
[[nodiscard]] std::size_t CharacterCount(std::string_view text);
/// The first `count` characters of a text, or all of it when it is shorter.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);
/// The text cut or padded with blanks at its end to exactly `width` characters.
[[nodiscard]] std::string FixedField(std::string_view text, std::size_t width);
/// The text with as many blanks in front as bring the last non-blank of its first `width` characters to the
/// end of a field of that width. Nothing but blanks is lost at its end: cutting it is left to the caller.
[[nodiscard]] std::string RightAlignText(std::string_view text, std::size_t width);
/// A number in a field of `width` characters with its period in column `width` - `decimals`; a whole number
/// ends in the column before. One that has too many digits for that starts in the first column. Nothing but
/// blanks is lost at its end: cutting it is left to the caller.
[[nodiscard]] std::string AlignDecimal(std::string_view text, std::size_t width, std::size_t decimals);
/// The text without the blanks at its end.
[[nodiscard]] std::string RightTrimmed(std::string_view text);

}  // namespace koprax
