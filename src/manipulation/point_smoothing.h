// Point smoothing: each point becomes a fixed weighted mean of its neighbours, over 5, 7 or 9 points. Which
// profile is smoothed, and drawing it, is left to the window.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// Whether a profile can be smoothed over that many points: 5, 7 or 9.
[[nodiscard]] bool IsSmoothingWindow(double points);

/// Smooths points 1 to `count` of the table in place, over `window` (5, 7 or 9) points; `count` is at least
/// `window`. Windows of 5 and 7 points use the weights of a least-squares cubic, at both ends too (A.
/// Savitzky, M. J. E. Golay, Anal. Chem. 36 (1964) 1627); the one of 9 points uses binomial weights and
/// leaves four points at the low and five at the high end as they are. No point is computed from one that is
/// smoothed already.
void SmoothPoints(PointTable& y, int count, int window);

}  // namespace koprax
