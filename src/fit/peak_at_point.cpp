#include "fit/peak_at_point.h"

#include <cmath>

#include "fit/fit_parameters.h"

namespace koprax {
namespace {

struct OnePoint {
  static void Round(double& number) { number = static_cast<float>(number); }
};

HalfPeakTerms<float> TermsAt(const HalfPeak& half, double dx) {
  const double z = static_cast<float>(dx / half.G);
  const double g = static_cast<float>(std::exp(-(z * z)));
  HalfPeakTerms<double> terms{};
  TakeTerms<OnePoint>(half, dx, g, terms);
  return {.Value = static_cast<float>(terms.Value),
          .ByPosition = static_cast<float>(terms.ByPosition),
          .ByIntensity = static_cast<float>(terms.ByIntensity),
          .ByWidth = static_cast<float>(terms.ByWidth),
          .ByEta = static_cast<float>(terms.ByEta)};
}

/// A width of 0 comes this far at the position itself.
constexpr float WidthForZero = 0.0001F;

}  // namespace

HalfPeak HalfOf(const ParameterTable& parameters, int peak, bool left) {
  const auto value = [&](PeakParameter parameter) { return parameters[NumberOf(peak, parameter)]; };
  const float width = value(left ? PeakParameter::WidthLeft : PeakParameter::WidthRight);
  return {value(PeakParameter::Position), value(PeakParameter::Intensity), width <= 0 ? WidthForZero : width,
          value(left ? PeakParameter::EtaLeft : PeakParameter::EtaRight)};
}

std::optional<PeakAtPoint> PeakAt(const ParameterTable& parameters, int peak, float x) {
  const float dx = x - parameters[NumberOf(peak, PeakParameter::Position)];
  const bool left = dx < 0;
  const float width = parameters[NumberOf(peak, left ? PeakParameter::WidthLeft : PeakParameter::WidthRight)];
  if (ReachOf(width) < std::fabs(dx)) return std::nullopt;
  return PeakAtPoint{.Left = left, .Terms = TermsAt(HalfOf(parameters, peak, left), dx)};
}

}  // namespace koprax
