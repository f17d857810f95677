#include "display/peak_markers.h"

#include <algorithm>

namespace koprax {

namespace {

constexpr float Gap = 3;        // between the peak and its marker
constexpr float Beyond = 0.5F;  // what is erased past each end

/// A bar from `gap` above the peak, so much long at most.
void DrawBar(const PlotTransform& plot, const CurveOrigin& origin, const PeakPosition& peak, float gap,
             float length, Colour colour, Surface& picture) {
  const float px = PictureX(plot, peak.X, origin.XMin);
  const float py = PictureY(plot, peak.Y, origin.Base);
  const float top = std::min(py + (gap + length), plot.FrameTop);
  picture.Line(px, py + gap, px, top, colour);
}

}  // namespace

void DrawMarker(const PlotTransform& plot, const CurveOrigin& origin, const PeakPosition& peak, float length,
                Surface& picture, Colour colour) {
  DrawBar(plot, origin, peak, Gap, length, colour, picture);
}

void EraseMarker(const PlotTransform& plot, const CurveOrigin& origin, const PeakPosition& peak,
                 Surface& picture) {
  DrawBar(plot, origin, peak, Gap - Beyond, MarkerLength + 2 * Beyond, colours::White, picture);
}

}  // namespace koprax
