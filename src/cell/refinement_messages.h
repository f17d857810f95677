// What the user is told of a refinement cycle that didn't come off, and what would do.
#pragma once

#include "cell/cell_refinement.h"
#include "forms/runtime.h"

namespace koprax {

/// What stood in the way when these peaks were refined with a cell of this system.
[[nodiscard]] Message MessageOf(const CycleObstacle& obstacle, const AcceptedPeaks& peaks,
                                CrystalSystems system);

}  // namespace koprax
