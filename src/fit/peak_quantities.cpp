#include "fit/peak_quantities.h"

#include <cmath>
#include <numbers>

#include "fit/fit_parameters.h"

namespace koprax {

namespace {

constexpr float Pi = 3.1415927F;

/// The area of one half of a peak of height 1.
double HalfArea(double width, double eta) {
  const double gaussian = std::sqrt(static_cast<double>(Pi)) * width / (4 * std::sqrt(std::numbers::ln2));
  const double lorentzian = Pi * width / 4;
  return eta * gaussian + (1 - eta) * lorentzian;
}

}  // namespace

float PeakArea(const PeakFit& fit, int peak) {
  const auto value = [&](PeakParameter parameter) -> double {
    return fit.FitParam[NumberOf(peak, parameter)];
  };
  const double height = value(PeakParameter::Intensity);
  return static_cast<float>(
      height * HalfArea(value(PeakParameter::WidthLeft), value(PeakParameter::EtaLeft)) +
      height * HalfArea(value(PeakParameter::WidthRight), value(PeakParameter::EtaRight)));
}

float PeakWidth(const PeakFit& fit, int peak) {
  const auto half = [&](PeakParameter width) { return fit.FitParam[NumberOf(peak, width)] / 2.0; };
  return static_cast<float>(half(PeakParameter::WidthLeft) + half(PeakParameter::WidthRight));
}

}  // namespace koprax
