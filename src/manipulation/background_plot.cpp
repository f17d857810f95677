#include "manipulation/background_plot.h"

#include <cstddef>

namespace koprax {

namespace {

/// Draws single segments of curves that share a frame and their X.
struct SegmentPen {
  const PlotTransform& Plot;
  const PointTable& X;
  const CurveOrigin& Origin;
  Surface& Picture;

  /// The segment that ends at point i, unless it passes the top of the plot.
  void Draw(std::span<const float> y, std::size_t i, Colour colour) const {
    const CurveSegment segment{.X1 = X[i - 1],
                               .X2 = X[i],
                               .PictureY1 = PictureY(Plot, y[i - 1], Origin.Base),
                               .PictureY2 = PictureY(Plot, y[i], Origin.Base)};
    if (StaysBelowTop(Plot, segment)) {
      DrawSegment(Plot, segment, Origin, colour, Picture);
    }
  }
};

}  // namespace

int DashLength(int points) {
  if (points < 500) return 2;
  if (points < 1500) return 4;
  if (points < 2500) return 6;
  if (points < 3500) return 8;
  return 10;
}

void DrawDashedCurve(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
                     Colour colour, Surface& surface) {
  const SegmentPen pen{.Plot = plot, .X = points.X, .Origin = origin, .Picture = surface};
  const int dash_length = DashLength(points.Count);
  int segments = 0;  // of this dash
  bool in_colour = true;
  for (std::size_t i = 2; i <= static_cast<std::size_t>(points.Count); ++i) {
    if (++segments > dash_length) {
      segments = 0;  // with this segment in it: so the later dashes are one longer
      in_colour = !in_colour;
    }
    pen.Draw(points.Y, i, in_colour ? colour : colours::White);
  }
}

void DrawProfileWithBackground(const PlotTransform& plot, const ProfileAndBackground& points,
                               const CurveOrigin& origin, const XRange& range, const ProfileColours& colours,
                               Surface& surface) {
  const SegmentPen pen{.Plot = plot, .X = points.X, .Origin = origin, .Picture = surface};
  for (std::size_t i = 2; i <= static_cast<std::size_t>(points.Count); ++i) {
    if (!(points.X[i - 1] < range.Low) && !(points.X[i] > range.High)) {
      pen.Draw(points.Profile, i, colours.Profile);
      pen.Draw(points.Background, i, colours.Background);
    }
  }
}

}  // namespace koprax
