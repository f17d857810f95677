// The transform between data and picture coordinates, as the frame drawn last has fixed it. Fixing it is
// left to the axes.
#pragma once

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "forms/control.h"
#include "workspace/workspace.h"

namespace koprax {

/// The limits of a plot in data units.
struct PlotLimits {
  float XMin;
  float XMax;
  float YMin;
  float YMax;
};

/// The limits of the current drawing.
[[nodiscard]] inline PlotLimits LimitsOfDrawing(const Workspace& data) {
  return {.XMin = data.PlotXMin, .XMax = data.PlotXMax, .YMin = data.PlotYMin, .YMax = data.PlotYMax};
}

/// Makes these the limits of the current drawing.
inline void TakeLimitsOfDrawing(Workspace& data, const PlotLimits& limits) {
  data.PlotXMin = limits.XMin;
  data.PlotXMax = limits.XMax;
  data.PlotYMin = limits.YMin;
  data.PlotYMax = limits.YMax;
}

/// Whether the limits leave a range of X to draw: one that runs upward, is not too narrow, and fits 32 bits.
[[nodiscard]] inline bool SpansX(const PlotLimits& limits) {
  const double span = static_cast<double>(limits.XMax) - limits.XMin;
  return span >= 0.00001 && span <= std::numeric_limits<float>::max();
}

inline constexpr double TwipsPerMillimetre = 56.69;  ///< of the design grid of all pictures

/// A plot picture: x from 0 at its left edge, y from 98 at its top edge and growing upward, in
/// millimetres of the design grid; 6975 x 5415 twips.
[[nodiscard]] inline PictureSetup PlotPicture(std::string meaning = "Plot of the profile") {
  return {.Scale = {.Left = 0, .Top = 98, .Width = 123.03F, .Height = -95.51F},
          .DesignWidth = 123.03,
          .DesignHeight = 95.51,
          .Meaning = std::move(meaning)};
}

/// The same with a little more room below the frame; 6975 x 5535 twips.
[[nodiscard]] inline PictureSetup TallPlotPicture(std::string meaning) {
  return {.Scale = {.Left = 0, .Top = 98, .Width = 123.03F, .Height = -97.63F},
          .DesignWidth = 123.03,
          .DesignHeight = 97.63,
          .Meaning = std::move(meaning)};
}

/// The legend of a plot of several profiles: millimetres, y growing downward.
[[nodiscard]] inline PictureSetup LegendPicture() {
  return {.Scale = {.Left = 0, .Top = 0, .Width = 165, .Height = 20},
          .DesignWidth = 165,
          .DesignHeight = 20,
          .Meaning = "Colours of the profiles"};
}

/// The picture y of Y = 0: the zero line of a plot that reaches below 0, else the X axis.
[[nodiscard]] inline float PlotBase(const PlotTransform& plot, bool negative_y) {
  return negative_y ? plot.ZeroY : plot.PlotBottom;
}

/// Data to picture; `xmin` is the X at the Y axis, `base` the picture y of Y = 0.
[[nodiscard]] inline float PictureX(const PlotTransform& plot, double x, double xmin) {
  return static_cast<float>(plot.PlotLeft + plot.ScaleX * (x - xmin));
}
[[nodiscard]] inline float PictureY(const PlotTransform& plot, double y, double base) {
  return static_cast<float>(base + plot.Upward * plot.ScaleY * y);
}

/// Picture to data.
[[nodiscard]] inline float DataX(const PlotTransform& plot, double picture_x, double xmin) {
  return static_cast<float>(xmin + (picture_x - plot.PlotLeft) / plot.ScaleX);
}
[[nodiscard]] inline double DataY(const PlotTransform& plot, double picture_y, double base) {
  return (picture_y - base) / plot.ScaleY;
}

/// Whether a picture y lies past the top of the plot; such points are not drawn.
[[nodiscard]] inline bool IsAboveTop(const PlotTransform& plot, float picture_y) {
  return plot.Upward * (picture_y - plot.PlotTop) > 0;
}

/// The nearest position within the plot area.
[[nodiscard]] inline float ClampedX(const PlotTransform& plot, float picture_x) {
  return std::clamp(picture_x, plot.PlotLeft, plot.PlotRight);
}
[[nodiscard]] inline float ClampedY(const PlotTransform& plot, float picture_y) {
  return std::clamp(picture_y, plot.PlotBottom, plot.PlotTop);
}

}  // namespace koprax
