// The reflections of a cell in a range of 2-theta, as a list to be read. Nothing is merged and nothing is
// absent by symmetry. Choosing the range is left to the window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "cell/cell_model.h"

namespace koprax {

inline constexpr std::size_t MaxGenerated = 300;

struct Reflection {
  std::int16_t H = 0;
  std::int16_t K = 0;
  std::int16_t L = 0;
  float Theta2 = 0;  ///< degrees
};

struct GeneratedReflections {
  std::vector<Reflection> Reflections;  ///< in the order of their indices, L outermost
  bool LimitReached = false;            ///< there are more than MaxGenerated; the first ones are here
  bool TooMany = false;  ///< too many indices to go through, or beyond 16 bits; there are none here
};

/// The reflections of `cell`, which has to be a cell, with low <= 2-theta <= high, in degrees.
[[nodiscard]] GeneratedReflections GenerateReflections(const CellModel& cell, float low, float high);

/// Upward by 2-theta; equal ones keep their order.
void SortReflections(std::vector<Reflection>& reflections);

/// A line for each: 2-theta to 3 decimals in 8 columns, and the indices in 3 columns each.
[[nodiscard]] std::string ReflectionRows(const std::vector<Reflection>& reflections);

}  // namespace koprax
