#include "manipulation/net_profile.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace koprax {

float SubtractBackground(const PointTable& y, const PointTable& background, int count, PointTable& net) {
  constexpr float start_of_lowest = 100000;
  float lowest = start_of_lowest;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
    net[i] = y[i] - background[i];
    lowest = std::min(lowest, net[i]);
  }
  return lowest;
}

bool ScaleBackground(PointTable& background, int count, float factor) {
  const auto first = background.begin() + 1;
  if (!std::all_of(first, first + count, [&](float value) { return std::isfinite(value * factor); })) {
    return false;
  }
  std::for_each(first, first + count, [&](float& value) { value *= factor; });
  return true;
}

}  // namespace koprax
