// The frame of a plot: frame, axes, ticks and labels for a range, and the transform that goes with it, on
// the screen and on paper alike. The curves inside are left to whoever draws them.
#pragma once

#include <string_view>

#include "display/plot_transform.h"
#include "forms/runtime.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// Where a frame and the plot in it stand on their surface, in its units.
struct PlotPlace {
  float FrameLeft;
  float FrameBottom;  ///< the y at which the lines of the frame begin
  float FrameRight;
  float FrameTop;
  float PlotLeft;
  float PlotBottom;
  float PlotRight;
  float PlotTop;
  float Upward;  ///< 1 where y grows upward, else -1
};

/// The place of every plot on the screen but that of a card.
inline constexpr PlotPlace ScreenPlace{.FrameLeft = 5,
                                       .FrameBottom = 5,
                                       .FrameRight = 120,
                                       .FrameTop = 95,
                                       .PlotLeft = 20,
                                       .PlotBottom = 15,
                                       .PlotRight = 115,
                                       .PlotTop = 90,
                                       .Upward = 1};

/// Fixes the transform for the limits without drawing anything; sets NegativeY of CurBuf. XMin and XMax
/// must differ.
void SetPlotScale(Workspace& data, const PlotLimits& limits);

/// Draws the frame on the surface and fixes the transform; nothing is cleared before. Sets NegativeY
/// of CurBuf. False when the limits span no Y: then only the outer frame is drawn and the scale of Y stays
/// that of the last drawing. XMin and XMax must differ.
[[nodiscard]] bool DrawAxes(Workspace& data, const PlotLimits& limits, Surface& surface,
                            const PlotPlace& place = ScreenPlace);

/// The same for a transform of one's own; sets no NegativeY.
[[nodiscard]] bool DrawFrameAt(const PlotPlace& place, PlotTransform& plot, const PlotLimits& limits,
                               Surface& surface);

/// How the axes of a plot on the screen are labelled.
struct AxisLabels {
  bool Channels;    ///< X counts channels; else it is 2-theta, in Greek
  float ThetaSize;  ///< of the Greek label, points
  float ChannelX;   ///< where "Channel" stands
  float ChannelY;
};
/// Writes what is plotted beside the axes.
void PrintAxisLabels(const AxisLabels& labels, Surface& picture);

/// Whether a plot of these limits has a zero line of its own, above the X axis.
[[nodiscard]] inline bool ReachesBelowZero(const PlotLimits& limits) { return limits.YMin < 0; }

/// What the user is told where a command wants a plot and there is none.
[[nodiscard]] Message NoPlot();

/// What the user is told about limits that span no Y; the word that sends him back differs on paper.
[[nodiscard]] Message NoYSpan(std::string_view return_word = "Return");

}  // namespace koprax
