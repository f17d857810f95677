// The plots of the Fourier filter: its coefficients over their numbers, the filtered profile over X. Frames
// are left to the plot engine.
#pragma once

#include "display/plot_transform.h"
#include "forms/surface.h"
#include "manipulation/dft_filter.h"
#include "workspace/workspace.h"

namespace koprax {

/// The limits of the plot of the coefficients.
[[nodiscard]] PlotLimits CoefficientLimits(const DftFilter& filter);

/// Draws the real parts in red and then the imaginary ones in blue, each a curve from coefficient 1 on, in a
/// frame that begins at 0; `base` is the picture y of 0. A segment that passes the top of the plot is left
/// out.
void DrawCoefficients(const PlotTransform& plot, const DftFilter& filter, float base, Surface& surface);

/// The limits of the plot of the filtered profile over the X of its buffer. Those of Y are found by comparing
/// with 100000 and -10000.
[[nodiscard]] PlotLimits FilteredLimits(const ProfileBuffer& buffer, const DftFilter& filter);

}  // namespace koprax
