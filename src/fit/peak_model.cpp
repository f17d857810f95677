#include "fit/peak_model.h"

#include "fit/fit_parameters.h"
#include "fit/peak_at_point.h"

namespace koprax {
namespace {

float AddPeak(float x, int peak, const ParameterTable& parameters, ParameterTable& derivatives) {
  const auto derivative = [&](PeakParameter parameter) -> float& {
    return derivatives[NumberOf(peak, parameter)];
  };
  for (int n = 1; n <= ParametersPerPeak; ++n) derivative(static_cast<PeakParameter>(n)) = 0;
  const auto at = PeakAt(parameters, peak, x);
  if (!at) return 0;
  derivative(PeakParameter::Position) = at->Terms.ByPosition;
  derivative(PeakParameter::Intensity) = at->Terms.ByIntensity;
  derivative(at->Left ? PeakParameter::WidthLeft : PeakParameter::WidthRight) = at->Terms.ByWidth;
  derivative(at->Left ? PeakParameter::EtaLeft : PeakParameter::EtaRight) = at->Terms.ByEta;
  return at->Terms.Value;
}

}  // namespace

double PolynomialBackground(const ParameterTable& parameters, double distance) {
  const double t = distance;
  return parameters[ConstantTerm] + parameters[LinearTerm] * t + parameters[QuadraticTerm] * (t * t) +
         parameters[CubicTerm] * (t * t * t);
}

float AddBackground(const PeakFit& fit, int i, const ParameterTable& parameters, float y,
                    ParameterTable& derivatives) {
  const auto point = static_cast<std::size_t>(i);
  if (!fit.FitPolyBackground) {
    const float background = parameters[ScaleFactor] * fit.FitBackgroundY[point];
    derivatives[ScaleFactor] = fit.FitBackgroundY[point];
    return y + background;
  }
  const double t = static_cast<double>(fit.FitX[point]) - static_cast<double>(fit.FitOrigin());
  derivatives[ConstantTerm] = 1;
  derivatives[LinearTerm] = static_cast<float>(t);
  derivatives[QuadraticTerm] = static_cast<float>(t * t);
  derivatives[CubicTerm] = static_cast<float>(t * t * t);
  return static_cast<float>(y + PolynomialBackground(parameters, t));
}

float PeakModel(const PeakFit& fit, int i, const ParameterTable& parameters, ParameterTable& derivatives) {
  const float x = fit.FitX[static_cast<std::size_t>(i)];
  float y = 0;
  for (int peak = 1; peak <= fit.FitPeakCount; ++peak) y += AddPeak(x, peak, parameters, derivatives);
  return AddBackground(fit, i, parameters, y, derivatives);
}

}  // namespace koprax
