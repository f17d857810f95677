#include "fit/fit_plot.h"

#include <cmath>
#include <cstddef>
#include <numbers>

#include "fit/fit_parameters.h"
#include "fit/peak_model.h"

namespace koprax {

namespace {

constexpr double TrialRange = 6;  // FWHM to either side of a trial peak

CurvePoints PointsOf(const PeakFit& fit, const PointTable& y) {
  return {.X = fit.FitX, .Y = y, .Count = fit.FitPointCount};
}

float StartingBackground(const PeakFit& fit, std::size_t i) {
  return fit.FitPolyBackground ? BackgroundLineAt(fit, fit.FitX[i]) : fit.FitBackgroundY[i];
}

/// A symmetric peak of height 1, half Gaussian and half Lorentzian.
double TrialShape(double distance, double width) {
  const double from_gaussian = distance * 2 * std::sqrt(std::numbers::ln2) / width;
  const double from_lorentzian = 2 * distance / width;
  return 0.5 * std::exp(-from_gaussian * from_gaussian) + 0.5 / (1 + from_lorentzian * from_lorentzian);
}

double RefinedBackground(const PeakFit& fit, std::size_t i, float range_low) {
  if (fit.FitPolyBackground) {
    return PolynomialBackground(fit.FitParam, static_cast<double>(fit.FitX[i]) - range_low);
  }
  return static_cast<double>(fit.FitBackgroundY[i]) * fit.FitParam[ScaleFactor];
}

}  // namespace

void DrawFitRange(const PlotTransform& plot, const PeakFit& fit, const CurveOrigin& origin,
                  Surface& picture) {
  DrawWholeCurve(plot, PointsOf(fit, fit.FitY), origin, colours::Black, picture);
}

void DrawFitBackground(const PlotTransform& plot, const PeakFit& fit, const CurveOrigin& origin,
                       Surface& picture) {
  DrawWholeCurve(plot, PointsOf(fit, fit.FitBackgroundY), origin, colours::Magenta, picture);
}

void DrawTrialPeak(const PlotTransform& plot, const PeakFit& fit, const StartingPeak& peak,
                   const CurveOrigin& origin, Colour colour, Surface& picture) {
  for (std::size_t i = 1; i <= static_cast<std::size_t>(fit.FitPointCount); ++i) {
    const double distance = std::abs(static_cast<double>(fit.FitX[i]) - peak.X);
    if (distance <= TrialRange * peak.Width) {
      const double y = peak.Height * TrialShape(distance, peak.Width) + StartingBackground(fit, i);
      picture.PSet(PictureX(plot, fit.FitX[i], origin.XMin), PictureY(plot, y, origin.Base), colour);
    }
  }
}

void DrawFitResult(const PlotTransform& plot, const PeakFit& fit, const CurveOrigin& origin,
                   Surface& picture) {
  const auto segment_to = [&](std::size_t i, auto height_at) {
    return CurveSegment{.X1 = fit.FitX[i - 1],
                        .X2 = fit.FitX[i],
                        .PictureY1 = PictureY(plot, height_at(i - 1), origin.Base),
                        .PictureY2 = PictureY(plot, height_at(i), origin.Base)};
  };
  const auto draw = [&](const CurveSegment& segment, Colour colour) {
    DrawSegment(plot, segment, origin, colour, picture);
  };
  for (std::size_t i = 2; i <= static_cast<std::size_t>(fit.FitPointCount); ++i) {
    const CurveSegment measured = segment_to(i, [&](std::size_t k) { return fit.FitY[k]; });
    const CurveSegment calculated = segment_to(i, [&](std::size_t k) { return fit.FitCalc[k]; });
    if (StaysBelowTop(plot, measured) && StaysBelowTop(plot, calculated)) {
      draw(measured, colours::Black);
      draw(calculated, colours::Red);
    }
    draw(segment_to(i, [&](std::size_t k) { return static_cast<double>(fit.FitY[k]) - fit.FitCalc[k]; }),
         colours::Blue);
    draw(segment_to(i, [&](std::size_t k) { return RefinedBackground(fit, k, origin.XMin); }),
         colours::Magenta);
  }
}

}  // namespace koprax
