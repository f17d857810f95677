// The frame of a plot on the screen: frame, axes, ticks and labels for a range, and the transform that
// goes with it. The curves inside are left to whoever draws them.
#pragma once

#include "display/plot_transform.h"
#include "forms/runtime.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// Fixes the transform for the limits without drawing anything; sets NegativeY of CurBuf. XMin and XMax
/// must differ.
void SetPlotScale(Workspace& data, const PlotLimits& limits);

/// Draws the frame on the picture and fixes the transform; the picture is not cleared before. False when
/// the limits span no Y: then only the outer frame is drawn and the scale of Y stays that of the last
/// drawing. XMin and XMax must differ.
[[nodiscard]] bool DrawAxes(Workspace& data, const PlotLimits& limits, Surface& picture);

/// What the user is told about limits that span no Y.
[[nodiscard]] Message NoYSpan();

}  // namespace koprax
