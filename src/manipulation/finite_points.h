// Whether a result fits 32 bits: no buffer and no drawing is to take an infinite value.
#pragma once

#include <algorithm>
#include <cmath>

#include "workspace/workspace.h"

namespace koprax {

/// Whether points 1 to `count` of the table are numbers of 32 bits.
[[nodiscard]] inline bool PointsAreFinite(const PointTable& table, int count) {
  return std::all_of(table.begin() + 1, table.begin() + 1 + count,
                     [](float value) { return std::isfinite(value); });
}

}  // namespace koprax
