// One pass of the moving mean with a hole, for all positions at once. Which distances it runs over, and what
// lies in the tables, is left to the robust background.
#pragma once

#include "workspace/vector_width.h"
#include "workspace/workspace.h"

namespace koprax {

/// What one pass runs over. Positions `First - Farthest` to `Last + Farthest` lie inside the tables.
struct MeanWithHole {
  int First;     ///< position
  int Last;      ///< position, not below First
  int Nearest;   ///< distance of the innermost pair, at least 1
  int Farthest;  ///< distance of the outermost pair, not below Nearest
};

/// Positions First to Last of `after` become the means of the values of `before` at the distances on both
/// sides. Each pair is added in 32 bits, the pairs in rising order of their distance in 64, and the mean is
/// rounded to 32: the same bits in every width, which the processor must have. The tables are not the same.
void TakeMeans(const MeanWithHole& mean, const PointTable& before, PointTable& after, VectorWidth width);

}  // namespace koprax
