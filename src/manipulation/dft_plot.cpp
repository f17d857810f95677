#include "manipulation/dft_plot.h"

#include <algorithm>
#include <cstddef>

namespace koprax {

namespace {

void DrawTable(const PlotTransform& plot, const CoefficientTable& table, int highest, float base,
               Colour colour, Surface& surface) {
  for (std::size_t k = 2; k <= static_cast<std::size_t>(highest); ++k) {
    const float y1 = PictureY(plot, table[k - 1], base);
    const float y2 = PictureY(plot, table[k], base);
    if (!IsAboveTop(plot, y1) && !IsAboveTop(plot, y2)) {
      surface.Line(PictureX(plot, static_cast<double>(k - 1), 0), y1,
                   PictureX(plot, static_cast<double>(k), 0), y2, colour);
    }
  }
}

}  // namespace

PlotLimits CoefficientLimits(const DftFilter& filter) {
  return {.XMin = 0, .XMax = filter.DftCount, .YMin = filter.DftYMin, .YMax = filter.DftYMax};
}

void DrawCoefficients(const PlotTransform& plot, const DftFilter& filter, float base, Surface& surface) {
  DrawTable(plot, filter.DftRe, filter.Highest(), base, colours::Red, surface);
  DrawTable(plot, filter.DftIm, filter.Highest(), base, colours::Blue, surface);
}

PlotLimits FilteredLimits(const ProfileBuffer& buffer, const DftFilter& filter) {
  PlotLimits limits{.XMin = buffer.PermXMin, .XMax = buffer.PermXMax, .YMin = 100000, .YMax = -10000};
  for (std::size_t i = 1; i <= static_cast<std::size_t>(filter.ResultPoints); ++i) {
    limits.YMin = std::min(limits.YMin, filter.DftY[i]);
    limits.YMax = std::max(limits.YMax, filter.DftY[i]);
  }
  return limits;
}

}  // namespace koprax
