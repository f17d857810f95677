#include "display/curve.h"

namespace koprax {

void DrawCurve(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
               const XRange& range, Colour colour, Surface& surface) {
  DrawSegments(plot, points, origin, colour, surface, [&](const CurveSegment& segment) {
    return range.Holds(segment.X1) && range.Holds(segment.X2) && StaysBelowTop(plot, segment);
  });
}

void DrawWholeCurve(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
                    Colour colour, Surface& surface) {
  DrawSegments(plot, points, origin, colour, surface,
               [&](const CurveSegment& segment) { return StaysBelowTop(plot, segment); });
}

void DrawSticks(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
                const XRange& range, Colour colour, Surface& surface) {
  for (std::size_t i = 1; i <= static_cast<std::size_t>(points.Count); ++i) {
    const float top = PictureY(plot, points.Y[i], origin.Base);
    if (range.Holds(points.X[i]) && !IsAboveTop(plot, top)) {
      const float px = PictureX(plot, points.X[i], origin.XMin);
      surface.Line(px, origin.Base, px, top, colour);
    }
  }
}

}  // namespace koprax
