// What the peak fit window draws into its frame: the range, the background, trial peaks and the result.
#pragma once

#include "display/curve.h"
#include "fit/fit_setup.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// The points of the range, black.
void DrawFitRange(const PlotTransform& plot, const PeakFit& fit, const CurveOrigin& origin, Surface& picture);
/// The measured background over them, magenta.
void DrawFitBackground(const PlotTransform& plot, const PeakFit& fit, const CurveOrigin& origin,
                       Surface& picture);

/// `DrawTrialPeak`: the dots of a peak of this shape on the background in use, at the points of the range up
/// to 6 FWHM away from it: red to draw it, white to erase it.
void DrawTrialPeak(const PlotTransform& plot, const PeakFit& fit, const StartingPeak& peak,
                   const CurveOrigin& origin, Colour colour, Surface& picture);

/// The result, point by point in this order: measured black and calculated red, both only where neither
/// passes the top of the plot, their difference blue, the background magenta.
void DrawFitResult(const PlotTransform& plot, const PeakFit& fit, const CurveOrigin& origin,
                   Surface& picture);

}  // namespace koprax
