// Arithmetic with a background in hand: the profile less it, and its scaling. Estimating it is left to
// robust_background.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// Fills points 1 to `count` of `net` with the profile less the background, rounded to 32 bits, and returns
/// the lowest of them; 100000 where none is lower.
float SubtractBackground(const PointTable& y, const PointTable& background, int count, PointTable& net);

/// Multiplies points 1 to `count` of the background by a factor, each rounded to 32 bits. False, and nothing
/// is changed, when one of them would be beyond 32 bits.
[[nodiscard]] bool ScaleBackground(PointTable& background, int count, float factor);

}  // namespace koprax
