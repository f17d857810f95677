// Cutting a profile down to a range of X.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// Keeps those points of the temporary copy of CurBuf whose X is neither below `low` nor above `high`, in
/// their order; the entries behind them become 0. The limits of X become the range; those of Y stay.
void CutToRange(Workspace& data, float low, float high);

}  // namespace koprax
