// Short vectors of numbers as the compilers know them, for loops that are written once and built for each
// width. Which width runs is chosen by vector_width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace koprax {

/// Lanes of 64-bit numbers fill a register, as many of 32 bits half of one.
template <std::size_t Bytes>
struct VectorsOf {
  static constexpr std::size_t Lanes = Bytes / sizeof(double);
  // An alias with `using` loses the attribute where the size is a template's.
  typedef double Doubles __attribute__((vector_size(Bytes)));
  typedef std::int64_t DoubleBits __attribute__((vector_size(Bytes)));
  typedef float HalfFloats __attribute__((vector_size(Bytes / 2)));
  typedef float Floats __attribute__((vector_size(Bytes)));
};
using Vectors16 = VectorsOf<16>;
using Vectors32 = VectorsOf<32>;
using Vectors64 = VectorsOf<64>;

/// One number, for what is too short for a vector.
struct Vectors8 {
  static constexpr std::size_t Lanes = 1;
  using Doubles = double;
};

// Vectors go by reference: how they are passed by value depends on the width that the caller is built for.
template <class Number, class Vector>
[[gnu::always_inline]] inline void Load(const Number* from, Vector& to) {
  std::memcpy(&to, from, sizeof to);
}

template <class Number, class Vector>
[[gnu::always_inline]] inline void Store(const Vector& from, Number* to) {
  std::memcpy(to, &from, sizeof from);
}

/// To 64 bits. The lanes are named one by one: that is what both compilers turn into one conversion.
template <class HalfFloats, class Doubles, std::size_t... Lane>
[[gnu::always_inline]] inline void Widen(const HalfFloats& from, Doubles& to, std::index_sequence<Lane...>) {
  to = Doubles{static_cast<double>(from[Lane])...};
}

}  // namespace koprax
