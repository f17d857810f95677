// What a fit starts from: the points of its range, its background, and the peaks with their starting values.
// The mouse, the questions and the drawing are left to the window.
#pragma once

#include <optional>
#include <string>

#include "display/curve.h"
#include "display/peak_markers.h"
#include "workspace/workspace.h"

namespace koprax {

/// Forgets an earlier fit: parameters, range, backgrounds, peaks.
void ClearFit(PeakFit& fit);

/// Takes the points of the temporary copy within the range, both limits in it, in their order.
void CollectFitRange(const ProfileBuffer& buffer, const XRange& range, PeakFit& fit);

/// A point of the plot in data units.
struct PlotPoint {
  float X;
  float Y;
};
/// The line through two points, moved to its value at the origin, becomes the background: FitLine, and the
/// first two terms of the polynomial. The two X must differ.
void SetBackgroundLine(const PlotPoint& first, const PlotPoint& second, float origin, PeakFit& fit);
/// The height of that line.
[[nodiscard]] float BackgroundLineAt(const PeakFit& fit, float x);

/// Takes the permanent copy of a buffer as the measured background; what lies behind its last point becomes
/// 0.
void TakeMeasuredBackground(Workspace& data, const ProfileBuffer& source);
/// Puts the background points within the range, the n-th one to the n-th point of the range, whatever their
/// X; points without one get 0. The scale factor becomes 1. `point_count` is that of the profile that is
/// fitted.
void CollectFitBackground(Workspace& data, int point_count, const XRange& range);
/// The measured background at an X, interpolated between the points of the range; that of the first point
/// left of it. Nothing right of the last point.
[[nodiscard]] std::optional<float> MeasuredBackgroundAt(const PeakFit& fit, float x);

/// The profile height at an X: the greater of its two neighbours in the temporary copy, 0 where there are
/// none.
[[nodiscard]] float GetProfileY(const ProfileBuffer& buffer, float x);
/// The height of a peak above the background in use; nothing where a measured background isn't known.
[[nodiscard]] std::optional<float> HeightAboveBackground(const PeakFit& fit, float x, float y);

/// A peak as it is given to the fit: symmetric, half Gaussian and half Lorentzian.
struct StartingPeak {
  float X;       ///< x units of the profile
  float Height;  ///< above the background; may be negative
  float Width;   ///< FWHM in x units of the profile
};
/// Adds a peak behind those selected; there must be room for it.
void AddFitPeak(const StartingPeak& peak, PeakFit& fit);

/// The FWHM that an answer starts with, to 3 decimals; nothing if it is no number, 0 or below, or beyond 32
/// bits.
[[nodiscard]] std::optional<float> WidthFromAnswer(const std::string& answer);

/// The place of the peak `number` of the list of a buffer, rounded as the fit takes it.
[[nodiscard]] PeakPosition ListedPeakAt(const ProfileBuffer& buffer, int number);

}  // namespace koprax
