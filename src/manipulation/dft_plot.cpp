#include "manipulation/dft_plot.h"

#include <algorithm>
#include <cstddef>

#include "display/curve.h"

namespace koprax {

namespace {

void DrawTable(const PlotTransform& plot, const CoefficientTable& table, int highest,
               const CurveOrigin& origin, Colour colour, Surface& surface) {
  for (std::size_t k = 2; k <= static_cast<std::size_t>(highest); ++k) {
    const CurveSegment segment{.X1 = static_cast<float>(k - 1),
                               .X2 = static_cast<float>(k),
                               .PictureY1 = PictureY(plot, table[k - 1], origin.Base),
                               .PictureY2 = PictureY(plot, table[k], origin.Base)};
    if (StaysBelowTop(plot, segment)) {
      DrawSegment(plot, segment, origin, colour, surface);
    }
  }
}

}  // namespace

PlotLimits CoefficientLimits(const DftFilter& filter) {
  return {.XMin = 0, .XMax = filter.DftCount, .YMin = filter.DftYMin, .YMax = filter.DftYMax};
}

void DrawCoefficients(const PlotTransform& plot, const DftFilter& filter, float base, Surface& surface) {
  const CurveOrigin origin{.XMin = 0, .Base = base};
  DrawTable(plot, filter.DftRe, filter.Highest(), origin, colours::Red, surface);
  DrawTable(plot, filter.DftIm, filter.Highest(), origin, colours::Blue, surface);
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
