// The rubber band with which a part of a plot is selected: a rectangle that starts at the press, follows
// the mouse to the right and always stands on the X axis. What is selected is left to the window.
#pragma once

#include "display/curve.h"
#include "forms/control.h"
#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

/// The edge of the band at rest, its left and top as a selection starts, and its edge after a selection has
/// been accepted, in units of the picture.
inline constexpr float BandSize = 2.38F;
inline constexpr float RestingBandEdge = 3;
inline constexpr float AcceptedBandSize = 2;

/// Shows the band where it rests until a selection is drawn.
void ShowAtRest(Shape& band);

/// Puts the top left corner of the band where the press was; a press outside the plot counts at its edge. A
/// band that would reach beyond the plot is cut to end there.
void PlaceRubberBand(const PlotTransform& plot, Shape& band, float x, float y);

/// Starts the band at a press; a press above the plot counts at its top. False when the press lies left
/// of the Y axis, below the X axis, or right of the plot: then the band stays as it was.
[[nodiscard]] bool StartRubberBand(const PlotTransform& plot, Shape& band, float x, float y);

/// Draws the band to the mouse, whose x is within the plot already.
void FollowMouse(const PlotTransform& plot, Shape& band, float x);

/// The range of X that a band selects when it is released at picture x `release_x`. A band that starts
/// within 0.004 of the Y axis selects from `xmin`, none selects beyond `xmax`.
[[nodiscard]] XRange SelectedX(const PlotTransform& plot, const Shape& band, float release_x, float xmin,
                               float xmax);

/// The range as it is shown, with 3 decimals: what its text leaves out is left out of the numbers, too.
[[nodiscard]] XRange AsShown(const XRange& range);

/// The Y at the top of the band, counted from the X axis.
[[nodiscard]] float SelectedTop(const PlotTransform& plot, const Shape& band);

/// What the user is told who would select where nothing has been drawn.
[[nodiscard]] Message NothingToSelectFrom();

}  // namespace koprax
