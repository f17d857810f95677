// The plain decimal at the start of a text: sign, digits, at most one period. Most numbers of a file are
// no more than that, so this is written for speed; exponents and long numbers are left to number_text.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace koprax {

struct DecimalScan {
  bool Negative = false;
  std::uint64_t Mantissa = 0;  ///< the digits without their period, meaningless above 19 digits
  std::ptrdiff_t Digits = 0;   ///< leading zeros included
  std::ptrdiff_t Decimals = 0;
  const char* End = nullptr;  ///< the first character that doesn't fit
};

/// Adds the digits from `at` on to the mantissa; returns the first character that is none.
inline const char* ScanDigits(const char* at, const char* end, std::uint64_t& mantissa) {
  for (; at != end; ++at) {
    const auto digit = static_cast<unsigned>(static_cast<unsigned char>(*at)) - '0';
    if (digit > 9) break;
    mantissa = mantissa * 10 + digit;
  }
  return at;
}

inline DecimalScan ScanDecimal(const char* at, const char* end) {
  DecimalScan scan;
  if (at != end && (*at == '-' || *at == '+')) scan.Negative = *at++ == '-';
  const char* start = at;
  at = ScanDigits(at, end, scan.Mantissa);
  scan.Digits = at - start;
  if (at != end && *at == '.') {
    start = ++at;
    at = ScanDigits(at, end, scan.Mantissa);
    scan.Decimals = at - start;
    scan.Digits += scan.Decimals;
  }
  scan.End = at;
  return scan;
}

inline constexpr std::array<double, 16> PowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The value of a scan of few digits, or nothing when it takes a longer computation. A mantissa below
/// 2^53 and powers of ten up to 10^22 are exact in 64 bits, so the single division rounds correctly.
inline std::optional<double> QuickValue(const DecimalScan& scan) {
  if (scan.Digits >= static_cast<std::ptrdiff_t>(PowersOfTen.size())) return std::nullopt;
  const double value =
      static_cast<double>(scan.Mantissa) / PowersOfTen[static_cast<std::size_t>(scan.Decimals)];
  return scan.Negative ? -value : value;
}

}  // namespace koprax
