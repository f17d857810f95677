#include "fit/peak_model.h"

#include <cmath>
#include <numbers>

#include "fit/fit_parameters.h"

namespace koprax {
namespace {

/// A peak at one point, each number rounded to 32 bits.
struct PeakAtPoint {
  float Value = 0;
  float ByPosition = 0;
  float ByIntensity = 0;
  float ByWidth = 0;
  float ByEta = 0;
};

const double WidthOverGaussian = 2 * std::sqrt(std::numbers::ln2);

PeakAtPoint HalfPeak(float dx, float width, float eta, float intensity) {
  const double x = dx;
  const double height = intensity;
  const double share = eta;
  const double w = width;
  const double gaussian_width = static_cast<float>(w / WidthOverGaussian);
  const double lorentzian = static_cast<float>(2 / w);
  const double z = static_cast<float>(x / gaussian_width);
  const double g = static_cast<float>(std::exp(-(z * z)));
  const double spread = 1 + lorentzian * lorentzian * (x * x);
  const double l = static_cast<float>(1 / spread);
  const double u = static_cast<float>(2 * share * x * g / (gaussian_width * gaussian_width));
  const double v = static_cast<float>(lorentzian * lorentzian * 2 * (1 - share) * x / (spread * spread));
  const double r = x * x * 2 * share * height * g / (gaussian_width * gaussian_width * gaussian_width);
  const double s = -(x * x * 2 * lorentzian * height * (1 - share)) / (spread * spread);
  const double shape = (1 - share) * l + share * g;
  return {.Value = static_cast<float>(shape * height),
          .ByPosition = static_cast<float>((u + v) * height),
          .ByIntensity = static_cast<float>(shape),
          .ByWidth = static_cast<float>(r * (1 / WidthOverGaussian) - s * (2 / (w * w))),
          .ByEta = static_cast<float>((g - l) * height)};
}

float AddPeak(float x, int peak, const ParameterTable& a, ParameterTable& d) {
  const auto number = [&](PeakParameter parameter) { return NumberOf(peak, parameter); };
  const float dx = x - a[number(PeakParameter::Position)];
  const bool left = dx < 0;
  const std::size_t width = number(left ? PeakParameter::WidthLeft : PeakParameter::WidthRight);
  const std::size_t eta = number(left ? PeakParameter::EtaLeft : PeakParameter::EtaRight);
  PeakAtPoint at;
  if (!(10 * a[width] < std::fabs(dx))) {
    at = HalfPeak(dx, a[width] <= 0 ? 0.0001F : a[width], a[eta], a[number(PeakParameter::Intensity)]);
  }
  for (int n = 1; n <= ParametersPerPeak; ++n) d[NumberOf(peak, static_cast<PeakParameter>(n))] = 0;
  d[number(PeakParameter::Position)] = at.ByPosition;
  d[number(PeakParameter::Intensity)] = at.ByIntensity;
  d[width] = at.ByWidth;
  d[eta] = at.ByEta;
  return at.Value;
}

}  // namespace

double PolynomialBackground(const ParameterTable& parameters, double distance) {
  const double t = distance;
  return parameters[ConstantTerm] + parameters[LinearTerm] * t + parameters[QuadraticTerm] * (t * t) +
         parameters[CubicTerm] * (t * t * t);
}

float PeakModel(const PeakFit& fit, int i, const ParameterTable& parameters, ParameterTable& derivatives) {
  const auto point = static_cast<std::size_t>(i);
  const float x = fit.FitX[point];
  float y = 0;
  for (int peak = 1; peak <= fit.FitPeakCount; ++peak) y += AddPeak(x, peak, parameters, derivatives);
  if (!fit.FitPolyBackground) {
    const float background = parameters[ScaleFactor] * fit.FitBackgroundY[point];
    derivatives[ScaleFactor] = fit.FitBackgroundY[point];
    return y + background;
  }
  const double t = static_cast<double>(x) - static_cast<double>(fit.FitOrigin());
  derivatives[ConstantTerm] = 1;
  derivatives[LinearTerm] = static_cast<float>(t);
  derivatives[QuadraticTerm] = static_cast<float>(t * t);
  derivatives[CubicTerm] = static_cast<float>(t * t * t);
  return static_cast<float>(y + PolynomialBackground(parameters, t));
}

}  // namespace koprax
