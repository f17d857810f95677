#include "calibration/standards.h"

#include <cmath>

#include "workspace/bragg.h"

namespace koprax {

namespace {

constexpr std::array<StandardPeak, 11> Silicon{{{28.443F, 100},
                                                {47.304F, 55},
                                                {56.122F, 30},
                                                {69.132F, 6},
                                                {76.379F, 11},
                                                {88.029F, 12},
                                                {94.951F, 6},
                                                {106.719F, 3},
                                                {114.092F, 7},
                                                {127.547F, 8},
                                                {136.897F, 3}}};

constexpr std::array<StandardPeak, 19> Corundum{{{25.676F, 70},
                                                 {35.150F, 97},
                                                 {37.784F, 42},
                                                 {41.683F, 1},
                                                 {43.362F, 100},
                                                 {46.183F, 1},
                                                 {52.558F, 42},
                                                 {57.502F, 82},
                                                 {59.763F, 2},
                                                 {61.303F, 7},
                                                 {66.520F, 30},
                                                 {68.207F, 45},
                                                 {76.880F, 13},
                                                 {80.692F, 5},
                                                 {95.248F, 12},
                                                 {101.064F, 9},
                                                 {116.101F, 9},
                                                 {127.677F, 10},
                                                 {136.094F, 16}}};

}  // namespace

Standard SiliconStandard() { return {.Lambda = 1.5405982F, .Peaks = Silicon}; }

Standard CorundumStandard() { return {.Lambda = 1.54056F, .Peaks = Corundum}; }

std::optional<float> PositionAt(float two_theta, float table_lambda, float wavelength) {
  if (wavelength == table_lambda) {
    return two_theta;
  }
  const double sine_in_table = std::sin(two_theta / 2.0 * RadiansPerDegree);
  const auto sine = static_cast<float>(2 * sine_in_table * wavelength / table_lambda / 2);
  if (sine > 1) {
    return std::nullopt;
  }
  const auto cosine = static_cast<float>(std::sqrt(1 - static_cast<double>(sine) * sine));
  return cosine == 0
             ? 180
             : static_cast<float>(2 * std::atan(static_cast<double>(sine) / cosine) / RadiansPerDegree);
}

std::vector<Stick> StandardPeaks::Take(const Standard& standard, float wavelength) {
  StandardLambda = standard.Lambda;
  StandardCount = static_cast<std::int16_t>(standard.Peaks.size());
  StandardInt.fill(0);
  std::vector<Stick> with_position;
  for (std::size_t i = 1; i <= standard.Peaks.size(); ++i) {
    const StandardPeak& peak = standard.Peaks[i - 1];
    StandardInt[i] = peak.Intensity;
    if (const auto position = PositionAt(peak.TwoTheta, StandardLambda, wavelength)) {
      StandardTheta2[i] = *position;
      with_position.push_back({.X = *position, .Height = peak.Intensity});
    }
  }
  return with_position;
}

std::vector<Stick> StandardPeaks::Sticks() const {
  std::vector<Stick> sticks;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(StandardCount); ++i) {
    sticks.push_back({.X = StandardTheta2[i], .Height = StandardInt[i]});
  }
  return sticks;
}

}  // namespace koprax
