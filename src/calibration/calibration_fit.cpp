#include "calibration/calibration_fit.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "forms/number_text.h"
#include "workspace/least_squares.h"

namespace koprax {

namespace {

/// How often a variance may be inflated. The sums in 64 bits are good to some 1E-16 of themselves; up to this
/// the polynomial keeps to 0.0001 degrees at the couples, beyond it goes astray where channels fill only a
/// small part of the detector.
constexpr double MaxVarianceInflation = 1E9;

std::span<const float> CoupledPart(const std::array<float, MaxCouples + 1>& table, const Couples& couples) {
  return std::span(table).subspan(1, static_cast<std::size_t>(couples.CoupleCount));
}

/// For each coefficient, from 1. For 4096 channels the squares of the last reach 5E21, so that all sums have
/// to be 64 bits wide.
using Powers = std::array<double, MostCalibPar + 1>;
using Solution = LeastSquaresSolution<double, MostCalibPar + 1>;

/// 1, c, c^2, c^3 of each channel.
std::vector<Powers> PowersOf(std::span<const float> channels) {
  std::vector<Powers> rows;
  for (const double channel : channels) {
    rows.push_back({0, 1, channel, channel * channel, channel * channel * channel});
  }
  return rows;
}

Calibration PolynomialOf(const Solution& solution, std::size_t count) {
  Calibration calibration{.CalibParCount = count};
  for (std::size_t p = 1; p <= count; ++p) {
    calibration.CalibPar[p] = static_cast<float>(solution.Parameters[p]);
  }
  return calibration;
}

/// The sum of squared differences that the polynomial leaves, with its coefficients as they are saved, in 32
/// bits.
double SquaresLeft(const Calibration& calibration, const std::vector<Powers>& rows,
                   std::span<const float> two_theta) {
  double squares = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    double calculated = 0;
    for (std::size_t p = 1; p <= calibration.CalibParCount; ++p) {
      calculated += calibration.CalibPar[p] * rows[i][p];
    }
    const double difference = two_theta[i] - calculated;
    squares += difference * difference;
  }
  return squares;
}

/// Standard deviations and residual.
void Measure(Calibration& calibration, const Solution& solution, const std::vector<Powers>& rows,
             std::span<const float> two_theta) {
  const double squares = SquaresLeft(calibration, rows, two_theta);
  const auto freedom = static_cast<double>(rows.size() - calibration.CalibParCount);
  for (std::size_t p = 1; p <= calibration.CalibParCount; ++p) {
    calibration.Sigma[p] = static_cast<float>(std::sqrt(solution.Inverse[p][p] / freedom * squares));
  }
  double all_squares = 0;
  for (const double angle : two_theta) all_squares += angle * angle;
  calibration.Residual = all_squares == 0 ? 0 : static_cast<float>(squares / all_squares);
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
  const auto rows = PowersOf(CoupledPart(couples.CoupledChannel, couples));
  const auto two_theta = CoupledPart(couples.CoupledTheta2, couples);
  const auto solution = SolveLeastSquares(rows, two_theta, count, MaxVarianceInflation);
  if (!solution) return std::nullopt;
  Calibration calibration = PolynomialOf(*solution, count);
  Measure(calibration, *solution, rows, two_theta);
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
