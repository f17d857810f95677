#include "forms/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "forms/decimal_scan.h"

namespace koprax {

namespace {

/// The decimals beyond which no 64-bit float has any digit.
constexpr int most_decimals = 1074;

// ---- Numbers as text -------------------------------------------------------------------------------

std::optional<std::string> NonFiniteText(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  return std::nullopt;
}

/// 0.DIGITS x 10^(Exponent + 1): the digits that a number is shown with, none of them a trailing zero.
struct ShownDigits {
  bool Negative = false;
  std::string Digits;
  int Exponent = 0;  ///< power of ten of the first digit
};

/// Takes a text like "-1.2345e-05" apart.
ShownDigits TakeApart(std::string_view scientific) {
  ShownDigits shown;
  shown.Negative = scientific.front() == '-';
  if (shown.Negative) scientific.remove_prefix(1);
  const std::size_t letter = scientific.find('e');
  std::string_view exponent = scientific.substr(letter + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), shown.Exponent);
  shown.Digits = scientific.substr(0, letter);
  std::erase(shown.Digits, '.');
  shown.Digits.erase(shown.Digits.find_last_not_of('0') + 1);
  return shown;
}

/// The shortest digits that read back to the value; where these are too many, the exact value rounded.
template <class Float>
ShownDigits DigitsToShow(Float value, int most_digits) {
  std::array<char, 64> text{};
  auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific).ptr;
  ShownDigits shown = TakeApart({text.begin(), end});
  if (static_cast<int>(shown.Digits.size()) <= most_digits) return shown;
  end = std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific, most_digits - 1).ptr;
  return TakeApart({text.begin(), end});
}

std::string WrittenOut(const ShownDigits& shown) {
  std::string text = shown.Digits;
  if (shown.Exponent < 0)
    return "0." + std::string(static_cast<std::size_t>(-shown.Exponent - 1), '0') + text;
  const auto whole = static_cast<std::size_t>(shown.Exponent) + 1;
  if (text.size() <= whole) return text + std::string(whole - text.size(), '0');
  return text.insert(whole, 1, '.');
}

std::string WithExponent(const ShownDigits& shown) {
  std::string text = shown.Digits;
  if (text.size() > 1) text.insert(1, 1, '.');
  const std::string size = std::to_string(std::abs(shown.Exponent));
  return text + (shown.Exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

template <class Float>
std::string GeneralTextOf(Float value, int most_digits) {
  if (value == 0) return "0";
  if (const auto text = NonFiniteText(static_cast<double>(value))) return *text;
  const ShownDigits shown = DigitsToShow(value, most_digits);
  const int decimals = static_cast<int>(shown.Digits.size()) - 1 - shown.Exponent;
  const bool small = shown.Exponent < -4;
  const bool fits = small ? decimals <= most_digits : shown.Exponent < most_digits;
  return (shown.Negative ? "-" : "") + (fits ? WrittenOut(shown) : WithExponent(shown));
}

/// The value with exactly n decimals: its exact value rounded, an exact half to the even digit.
std::string FixedText(double value, int decimals) {
  decimals = std::clamp(decimals, 0, most_decimals);
  constexpr int whole_digits = std::numeric_limits<double>::max_exponent10 + 1;
  std::string text(static_cast<std::size_t>(whole_digits + decimals + 3), '\0');
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

// ---- Rounding --------------------------------------------------------------------------------------

/// The rounded value by one multiplication and one division, where that is sure to be exact. Scaled
/// below 2^40 the product errs by less than 2^-13, so further than that from a half the whole number is
/// the right one; it and the power of ten are exact, and the division rounds correctly. Up to 8 decimals
/// a quotient in 64 bits never lies on a half of 32 bits without being it, so it may be stored as a float.
std::optional<double> QuickRound(double value, int decimals) {
  if (decimals < 0 || decimals > 8) return std::nullopt;
  const double power = PowersOfTen[static_cast<std::size_t>(decimals)];
  const double scaled = std::abs(value) * power;
  if (!(scaled < 0x1p40)) return std::nullopt;
  const auto below = static_cast<double>(static_cast<std::int64_t>(scaled));
  const double part = scaled - below;
  if (std::abs(part - 0.5) < 0x1p-13) return std::nullopt;
  const double whole = below + (part > 0.5 ? 1.0 : 0.0);
  return std::copysign(whole / power, value);
}

template <class Float>
Float RoundExactly(Float value, int decimals) {
  if (!std::isfinite(value)) return value;
  const std::string text = FixedText(static_cast<double>(value), decimals);
  Float rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return rounded;
}

// ---- Numbers from text -----------------------------------------------------------------------------

/// The mantissa at the start of a text and the exponent behind it, if digits follow its letter.
struct NumberParts {
  DecimalScan Scan;
  const char* Start = nullptr;  ///< the sign or the first digit
  int Exponent = 0;             ///< held within limits that no number reaches
};

int ScanExponent(const char* at, const char* end) {
  if (at == end || (*at != 'E' && *at != 'e' && *at != 'D' && *at != 'd')) return 0;
  ++at;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  constexpr int limit = 100'000'000;
  int exponent = 0;
  for (; at != end && *at >= '0' && *at <= '9'; ++at) {
    exponent = std::min(limit, exponent * 10 + (*at - '0'));
  }
  return negative ? -exponent : exponent;
}

NumberParts ScanNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const char* end = text.data() + text.size();
  NumberParts parts{.Scan = ScanDecimal(text.data(), end), .Start = text.data()};
  if (parts.Scan.Digits > 0) parts.Exponent = ScanExponent(parts.Scan.End, end);
  return parts;
}

/// Whether a number that no 64-bit float holds is too large rather than too small.
bool IsLarge(std::string_view mantissa, int exponent) {
  const std::size_t first = mantissa.find_first_of("123456789");
  const std::size_t period = std::min(mantissa.find('.'), mantissa.size());
  return static_cast<double>(period) - static_cast<double>(first) + exponent > 0;
}

double LongNumber(const NumberParts& parts) {
  std::string text(parts.Start, parts.Scan.End);
  if (text.front() == '+' || text.front() == '-') text.erase(0, 1);
  const std::string mantissa = text;
  text += "e" + std::to_string(parts.Exponent);
  double size = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), size);
  if (result.ec == std::errc::result_out_of_range) {
    size = IsLarge(mantissa, parts.Exponent) ? std::numeric_limits<double>::infinity() : 0;
  }
  return parts.Scan.Negative ? -size : size;
}

}  // namespace

std::string GeneralText(float value) { return GeneralTextOf(value, 7); }
std::string GeneralText(double value) { return GeneralTextOf(value, 15); }

std::string RoundedText(float value, int decimals) { return GeneralText(RoundDecimals(value, decimals)); }
std::string RoundedText(double value, int decimals) { return GeneralText(RoundDecimals(value, decimals)); }

std::string FormatDigits(double value, int decimals) {
  if (const auto text = NonFiniteText(value)) return *text;
  std::string text = FixedText(std::abs(value), decimals);
  if (decimals > 0) text.erase(text.find_last_not_of('0') + 1);
  text.erase(0, text.find_first_not_of('0'));
  const bool zero = text.find_first_not_of('.') == std::string::npos;
  return value < 0 && !zero ? "-" + text : text;
}

float RoundDecimals(float value, int decimals) {
  if (const auto rounded = QuickRound(static_cast<double>(value), decimals)) {
    return static_cast<float>(*rounded);
  }
  return RoundExactly(value, decimals);
}

double RoundDecimals(double value, int decimals) {
  if (const auto rounded = QuickRound(value, decimals)) return *rounded;
  return RoundExactly(value, decimals);
}

double RoundHalfEven(double value) { return std::nearbyint(value); }

std::optional<std::int16_t> ToInt16(double value) {
  const double rounded = RoundHalfEven(value);
  if (!(rounded >= INT16_MIN && rounded <= INT16_MAX)) return std::nullopt;
  return static_cast<std::int16_t>(rounded);
}

double Fix(double value) { return std::trunc(value); }

double LeadingNumber(std::string_view text) {
  const NumberParts parts = ScanNumber(text);
  if (parts.Scan.Digits == 0) return 0;
  if (parts.Exponent == 0) {
    if (const auto value = QuickValue(parts.Scan)) return *value;
  }
  return LongNumber(parts);
}

bool StartsWithNumber(std::string_view text) { return ScanNumber(text).Scan.Digits > 0; }

}  // namespace koprax
