// The marks that float above the picked peaks of a plot, and their erasing.
#pragma once

#include "display/curve.h"
#include "display/plot_transform.h"
#include "forms/surface.h"

namespace koprax {

/// Where a peak stands in data units: 2-theta or channel, and its height.
struct PeakPosition {
  float X;
  float Y;
};

/// The length of a marker in units of the picture: of one drawn as the peak is picked or the explorer starts,
/// and of one that the zoom window opens with.
inline constexpr float MarkerLength = 10;
inline constexpr float ZoomedMarkerLength = 7;

/// Draws a vertical bar that starts a little above the peak and ends at the top of the frame at most.
void DrawMarker(const PlotTransform& plot, const CurveOrigin& origin, const PeakPosition& peak, float length,
                Surface& picture, Colour colour = colours::Red);

/// Draws over a marker of MarkerLength in white, a little beyond both of its ends. What it crosses is erased
/// with it.
void EraseMarker(const PlotTransform& plot, const CurveOrigin& origin, const PeakPosition& peak,
                 Surface& picture);

}  // namespace koprax
