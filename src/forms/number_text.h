// Numbers as text and text as numbers, rounding, and stores into narrow fields, for every window and
// file. Nothing here depends on the machine's locale: the decimal separator is always a period.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace koprax {

/// The general form of a 32-bit float: the shortest decimal text that reads back to it, at most 7
/// significant digits; "0.5", "-3", "1.5E+07", "1.234567E-05". An exponent stands from 1E+07 up, and
/// below 0.0001 where the digits don't fit into 7 decimals.
[[nodiscard]] std::string GeneralText(float value);
/// The same for a 64-bit float, with at most 15 significant digits and an exponent from 1E+15 up.
[[nodiscard]] std::string GeneralText(double value);

/// The value rounded to `decimals` decimals, in the general form.
[[nodiscard]] std::string RoundedText(float value, int decimals);
[[nodiscard]] std::string RoundedText(double value, int decimals);

/// The value rounded to `decimals` decimals with digits only where it has them, as the pattern "#####"
/// (0 decimals) or "####.###" (3) shows it: ".3", "3.", "12.5", "" for 0 without decimals.
[[nodiscard]] std::string FormatDigits(double value, int decimals);

/// The exact value goes to the nearest number of n decimals, an exact half to the even digit.
[[nodiscard]] float RoundDecimals(float value, int decimals);
[[nodiscard]] double RoundDecimals(double value, int decimals);

/// The nearest whole number, halves to the even neighbour.
[[nodiscard]] double RoundHalfEven(double value);
/// The nearest whole number as a 16-bit field holds it, halves to the even neighbour; nothing when it
/// doesn't fit or is no number.
[[nodiscard]] std::optional<std::int16_t> ToInt16(double value);
/// The whole part: truncates toward zero.
[[nodiscard]] double Fix(double value);

/// The number that a text starts with: an optional sign, digits with at most one period, an optional
/// exponent of E, e, D or d with an optional sign and digits; reading stops at the first character that
/// doesn't fit. A text with no such start gives 0; leading blanks are passed over.
[[nodiscard]] double LeadingNumber(std::string_view text);
/// The same in 32 bits, infinite where they don't hold it.
[[nodiscard]] inline float LeadingFloat(std::string_view text) {
  return static_cast<float>(LeadingNumber(text));
}
/// Whether the text starts with a number by that rule.
[[nodiscard]] bool StartsWithNumber(std::string_view text);

}  // namespace koprax
