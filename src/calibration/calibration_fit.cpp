#include "calibration/calibration_fit.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "forms/number_text.h"
#include "workspace/matrix_inversion.h"

namespace koprax {

namespace {

/// How often greater the variance of a coefficient may be than it were if the others were known. The sums in
/// 64 bits are good to some 1E-16 of themselves; up to this the polynomial keeps to 0.0001 degrees at the
/// couples, beyond it goes astray where channels fill only a small part of the detector.
constexpr double MaxVarianceInflation = 1E9;

std::span<const float> CoupledPart(const std::array<float, MaxCouples + 1>& table, const Couples& couples) {
  return std::span(table).subspan(1, static_cast<std::size_t>(couples.CoupleCount));
}

/// 1, c, c^2, c^3. For 4096 channels the squares of the last reach 5E21, so all sums are 64 bits wide.
std::array<double, MostCalibPar> PowersOf(double channel) {
  return {1, channel, channel * channel, channel * channel * channel};
}

struct NormalEquations {
  std::vector<double> Matrix;  ///< column by column
  std::vector<double> RightSide;
};

NormalEquations NormalEquationsOf(std::span<const float> channels, std::span<const float> two_theta,
                                  std::size_t count) {
  NormalEquations equations{.Matrix = std::vector<double>(count * count),
                            .RightSide = std::vector<double>(count)};
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const auto powers = PowersOf(channels[i]);
    for (std::size_t p = 0; p < count; ++p) {
      for (std::size_t q = 0; q < count; ++q) equations.Matrix[q * count + p] += powers[p] * powers[q];
      equations.RightSide[p] += powers[p] * two_theta[i];
    }
  }
  return equations;
}

double SumOfSquares(std::span<const double> values) {
  double sum = 0;
  for (const double value : values) sum += value * value;
  return sum;
}

/// The differences that the polynomial leaves, with its coefficients as they are saved, in 32 bits.
std::vector<double> Differences(const Calibration& calibration, std::span<const float> channels,
                                std::span<const float> two_theta) {
  std::vector<double> differences;
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const auto powers = PowersOf(channels[i]);
    double calculated = calibration.CalibPar[1];
    for (std::size_t p = 2; p <= calibration.CalibParCount; ++p) {
      calculated += calibration.CalibPar[p] * powers[p - 1];
    }
    differences.push_back(two_theta[i] - calculated);
  }
  return differences;
}

bool AllFinite(const Calibration& calibration) {
  const auto finite = [](float value) { return std::isfinite(value); };
  return std::ranges::all_of(calibration.CalibPar, finite) &&
         std::ranges::all_of(calibration.Sigma, finite) && finite(calibration.Residual);
}

}  // namespace

CalibrationDemand DemandOf(const Couples& couples) {
  const auto channels = CoupledPart(couples.CoupledChannel, couples);
  CalibrationDemand demand{.Couples = channels.size(),
                           .Channels = std::set<float>(channels.begin(), channels.end()).size()};
  demand.NeededChannels = demand.Couples <= demand.NeededCouples ? MostCalibPar - 1 : MostCalibPar;
  return demand;
}

std::optional<Calibration> FitCalibration(const Couples& couples) {
  const CalibrationDemand demand = DemandOf(couples);
  if (!demand.Met()) return std::nullopt;
  const std::size_t count = demand.NeededChannels;  // one coefficient for each
  const auto channels = CoupledPart(couples.CoupledChannel, couples);
  const auto two_theta = CoupledPart(couples.CoupledTheta2, couples);

  const auto [normal, right_side] = NormalEquationsOf(channels, two_theta, count);
  std::vector<double> inverse = normal;
  if (InvertMatrix<double>(inverse, count) == 0) return std::nullopt;
  Calibration calibration{.CalibParCount = count};
  for (std::size_t p = 0; p < count; ++p) {
    double sum = 0;
    for (std::size_t q = 0; q < count; ++q) sum += inverse[q * count + p] * right_side[q];
    calibration.CalibPar[p + 1] = static_cast<float>(sum);
  }

  const double squares = SumOfSquares(Differences(calibration, channels, two_theta));
  const double all_squares = SumOfSquares(std::vector<double>(two_theta.begin(), two_theta.end()));
  calibration.Residual = all_squares == 0 ? 0 : static_cast<float>(squares / all_squares);
  for (std::size_t p = 0; p < count; ++p) {
    const double variance = inverse[p * count + p];
    const double inflation = variance * normal[p * count + p];
    if (!(inflation > 0 && inflation <= MaxVarianceInflation)) return std::nullopt;
    const auto freedom = static_cast<double>(demand.Couples - count);
    calibration.Sigma[p + 1] = static_cast<float>(std::sqrt(variance / freedom * squares));
  }
  if (!AllFinite(calibration)) return std::nullopt;
  return calibration;
}

std::string CalibrationText(const Calibration& calibration) {
  std::string text = "     Parameter        Sigma\r\n";
  for (std::size_t p = 1; p <= calibration.CalibParCount; ++p) {
    text += " A" + std::to_string(p - 1) + " =  " + GeneralText(calibration.CalibPar[p]) + "    " +
            GeneralText(calibration.Sigma[p]) + "\r\n";
  }
  return text + "res = " + GeneralText(calibration.Residual);
}

}  // namespace koprax
