// What the manipulation window draws beside the plain curve: a background in dashes, a profile together with
// its smooth background, on the screen and on paper. Frames are left to the plot engine.
#pragma once

#include <span>

#include "display/curve.h"
#include "forms/surface.h"

namespace koprax {

/// The number of segments of the first dash of a curve of that many points; the later ones have one more.
[[nodiscard]] int DashLength(int points);

/// A curve of dashes, in its colour and white in turn. A segment that passes the top of the plot is left out,
/// but counts.
void DrawDashedCurve(const PlotTransform& plot, const CurvePoints& points, const CurveOrigin& origin,
                     Colour colour, Surface& surface);

/// Two tables over the same X. That of the background may be a part of a larger one, its entry i being the
/// one of point i.
struct ProfileAndBackground {
  const PointTable& X;
  const PointTable& Profile;
  std::span<const float> Background;
  int Count;
};
/// Two colours that go with them.
struct ProfileColours {
  Colour Profile;
  Colour Background;
};
/// Segment by segment the profile and then its background, where the segment lies within the range; each is
/// left out where it passes the top of the plot.
void DrawProfileWithBackground(const PlotTransform& plot, const ProfileAndBackground& points,
                               const CurveOrigin& origin, const XRange& range, const ProfileColours& colours,
                               Surface& surface);

}  // namespace koprax
