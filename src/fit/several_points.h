// Points computed side by side, for loops that are written once and built for each width: how they are read
// and rounded to 32 bits, and their exponentials.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numbers>
#include <utility>

#include "workspace/vector_types.h"

namespace koprax {

/// As many points as a vector has lanes.
template <class Vectors>
struct SeveralPoints {
  using Doubles = typename Vectors::Doubles;
  static constexpr std::make_index_sequence<Vectors::Lanes> Lanes{};

  [[gnu::always_inline]] static void Round(Doubles& numbers) {
    Widen(__builtin_convertvector(numbers, typename Vectors::HalfFloats), numbers, Lanes);
  }
  [[gnu::always_inline]] static void Take(const float* from, Doubles& to) {
    typename Vectors::HalfFloats floats;
    Load(from, floats);
    Widen(floats, to, Lanes);
  }
  [[gnu::always_inline]] static void Put(const Doubles& from, float* to) {
    Store(__builtin_convertvector(from, typename Vectors::HalfFloats), to);
  }
};

/// How far TakeExponential may be from the true value, in parts of it.
inline constexpr double ExponentialError = 1E-12;

/// exp(-square) for squares from 0 to 700; within the reach of a peak they are 400 at most. Of a square that
/// is infinite or no number it is no number. The square is split into halvings and a rest of at most
/// ln(2) / 2, whose series is taken to the tenth power: what is left out is 2E-13.
template <class Vectors>
[[gnu::always_inline]] inline void TakeExponential(const typename Vectors::Doubles& square,
                                                   typename Vectors::Doubles& exponential) {
  using Doubles = typename Vectors::Doubles;
  using Bits = typename Vectors::DoubleBits;
  // In two parts, the first of few digits, so that its multiples are exact.
  constexpr double high_part = 0x1.62e42feep-1;
  constexpr double low_part = 0x1.a39ef35793c76p-33;
  constexpr double whole = 0x1.8p52;  // to which only whole numbers can be added
  const Doubles shifted = square * std::numbers::log2e + whole;
  const Doubles halvings = shifted - whole;
  const Doubles r = (halvings * high_part - square) + halvings * low_part;
  Doubles sum = r * (1.0 / 3628800) + 1.0 / 362880;
  sum = sum * r + 1.0 / 40320;
  sum = sum * r + 1.0 / 5040;
  sum = sum * r + 1.0 / 720;
  sum = sum * r + 1.0 / 120;
  sum = sum * r + 1.0 / 24;
  sum = sum * r + 1.0 / 6;
  sum = sum * r + 0.5;
  sum = sum * r + 1.0;
  sum = sum * r + 1.0;
  Bits bits;
  std::memcpy(&bits, &shifted, sizeof bits);
  bits = (std::int64_t{1023} << 52) - (bits << 52);
  Doubles power;
  std::memcpy(&power, &bits, sizeof power);
  exponential = sum * power;
}

}  // namespace koprax
