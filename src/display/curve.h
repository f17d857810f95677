// Curves and sticks inside a frame, by the transform of the frame: what all plots have in common. Which
// points are drawn, and where, is left to the plot.
#pragma once

#include <cstddef>

#include "display/plot_transform.h"
#include "forms/surface.h"

namespace koprax {

/// Points 1 to Count of two tables.
struct CurvePoints {
  const PointTable& X;
  const PointTable& Y;
  int Count;
};

/// What ties a curve to the frame: the X at the Y axis, and the picture y of Y = 0.
struct CurveOrigin {
  float XMin;
  float Base;
};

/// One piece of a curve: the X of its ends in data units, their y on the picture.
struct CurveSegment {
  float X1, X2;
  float PictureY1, PictureY2;
};

/// Whether a segment stays below the top of the plot; those that pass it are not drawn.
[[nodiscard]] inline bool StaysBelowTop(const PlotTransform& plot, const CurveSegment& segment) {
  return !IsAboveTop(plot, segment.PictureY1) && !IsAboveTop(plot, segment.PictureY2);
}

inline void DrawSegment(const PlotTransform& plot, const CurveSegment& segment, const CurveOrigin& origin,
                        Colour colour, Surface& surface) {
  surface.Line(PictureX(plot, segment.X1, origin.XMin), segment.PictureY1,
               PictureX(plot, segment.X2, origin.XMin), segment.PictureY2, colour);
}

/// Joins each two neighbouring points by a straight line, where `keep` takes the segment.
template <class Keep>
void DrawSegments(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
                  Colour colour, Surface& surface, Keep keep) {
  for (std::size_t i = 2; i <= static_cast<std::size_t>(points.Count); ++i) {
    const CurveSegment segment{.X1 = points.X[i - 1],
                               .X2 = points.X[i],
                               .PictureY1 = PictureY(plot, points.Y[i - 1], origin.Base),
                               .PictureY2 = PictureY(plot, points.Y[i], origin.Base)};
    if (keep(segment)) {
      DrawSegment(plot, segment, origin, colour, surface);
    }
  }
}

/// A range of X, both ends in it.
struct XRange {
  float Low;
  float High;
  [[nodiscard]] bool Holds(float x) const { return !(x < Low || x > High); }
};

/// The curve as it stands in a frame: a segment that leaves the range, or passes the top of the plot, is
/// left out.
void DrawCurve(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
               const XRange& range, Colour colour, Surface& surface);

/// The same whatever the range.
void DrawWholeCurve(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
                    Colour colour, Surface& surface);

/// One stick for each point within the range, from Y = 0 to its Y; one that passes the top is left out.
void DrawSticks(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
                const XRange& range, Colour colour, Surface& surface);

}  // namespace koprax
