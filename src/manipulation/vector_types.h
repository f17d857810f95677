// Short vectors of 64-bit numbers as the compilers know them, for loops that are written once and built for
// each width. Which width runs is chosen by vector_width.
#pragma once

#include <cstddef>
#include <cstring>

namespace koprax {

struct Vectors16 {
  static constexpr std::size_t Lanes = 2;
  using Doubles = double __attribute__((vector_size(16)));
};

struct Vectors32 {
  static constexpr std::size_t Lanes = 4;
  using Doubles = double __attribute__((vector_size(32)));
};

struct Vectors64 {
  static constexpr std::size_t Lanes = 8;
  using Doubles = double __attribute__((vector_size(64)));
};

/// One number, for what is too short for a vector.
struct Vectors8 {
  static constexpr std::size_t Lanes = 1;
  using Doubles = double;
};

// Vectors go by reference: how they are passed by value depends on the width that the caller is built for.
template <class Vector>
[[gnu::always_inline]] inline void Load(const double* from, Vector& to) {
  std::memcpy(&to, from, sizeof to);
}

template <class Vector>
[[gnu::always_inline]] inline void Store(const Vector& from, double* to) {
  std::memcpy(to, &from, sizeof from);
}

}  // namespace koprax
