// Cutting a profile down to a range of X, and taking a part of a profile out.
#pragma once

#include "display/curve.h"
#include "workspace/workspace.h"

namespace koprax {

/// Copies those points whose X lies in the range, in their order, into two tables from 1 on, which may not
/// be the tables of the points; returns their number.
int CopyRange(const CurvePoints& points, const XRange& range, PointTable& x, PointTable& y);

/// Keeps those points of the temporary copy of CurBuf whose X is neither below `low` nor above `high`, in
/// their order; the entries behind them become 0. The limits of X become the range; those of Y stay.
void CutToRange(Workspace& data, float low, float high);

}  // namespace koprax
