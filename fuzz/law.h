// What all targets share: how one tells that a law does not hold, its input, and what written numbers lose.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

#include "forms/text_encoding.h"

namespace koprax {

/// Ends the run with what was expected if it doesn't hold; the fuzzer keeps the input.
inline void Require(bool holds, std::string_view expected) {
  if (holds) return;
  static_cast<void>(
      std::fprintf(stderr, "This does not hold: %.*s\n", static_cast<int>(expected.size()), expected.data()));
  std::abort();
}

inline std::string_view InputBytes(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}
/// The input as a text file gives it to its readers.
inline std::string InputText(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = InputBytes(data, size);
  return IsUtf8(bytes) ? std::string(bytes) : Latin1ToUtf8(bytes);
}

/// Half a unit of the 7 digits of a written number; the tenth more is for the 32 bits that it is read into.
inline double DigitsLost(double value) {
  return 0.55e-6 * std::abs(value) + static_cast<double>(std::numeric_limits<float>::denorm_min());
}
/// Half a unit of the decimals of a written number, and what its digits lose.
inline double DecimalsLost(double value, int decimals) {
  return 0.5 * std::pow(10, -decimals) + DigitsLost(value);
}

}  // namespace koprax
