// The fit of a calibration against a cubic that is known and against another way to the same least squares.
#include "calibration/calibration_fit.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "calibration/couples.h"
#include "calibration/known_detector.h"
#include "calibration/standards.h"

namespace koprax {
namespace {

using known_detector::ChannelOf;
using known_detector::TwoThetaAt;

Couples CouplesOf(const std::vector<std::pair<double, double>>& channels_and_angles) {
  Couples couples;
  for (const auto& [channel, two_theta] : channels_and_angles) {
    EXPECT_TRUE(AddCouple(couples, static_cast<float>(two_theta), static_cast<float>(channel)));
  }
  return couples;
}

/// The same least squares by orthonormal polynomials in the width of the platform, channels in units of 4096:
/// the coefficients, then their standard deviations.
std::vector<double> FitByPolynomials(const Couples& couples, std::size_t count) {
  const auto n = static_cast<std::size_t>(couples.CoupleCount);
  // The values of a polynomial at all channels, and its coefficients behind them.
  using Polynomial = std::vector<long double>;
  const auto take_out = [n](const Polynomial& unit, Polynomial& from) {
    const long double share = std::inner_product(&unit[0], &unit[n], from.begin(), 0.0L);
    for (std::size_t i = 0; i < unit.size(); ++i) from[i] -= share * unit[i];
  };
  Polynomial rest(n + count);  // of the angles; its coefficients are those that have been taken out
  for (std::size_t i = 0; i < n; ++i) rest[i] = couples.CoupledTheta2[i + 1];
  std::vector<Polynomial> units;
  for (std::size_t p = 0; p < count; ++p) {
    Polynomial power(n + count);
    for (std::size_t i = 0; i < n; ++i) power[i] = std::pow(couples.CoupledChannel[i + 1] / 4096.0L, p);
    power[n + p] = 1;
    for (const Polynomial& unit : units) take_out(unit, power);
    const long double length = std::sqrt(std::inner_product(&power[0], &power[n], power.begin(), 0.0L));
    for (auto& value : power) value /= length;
    take_out(power, rest);
    units.push_back(power);
  }
  const long double squares = std::inner_product(&rest[0], &rest[n], rest.begin(), 0.0L);
  std::vector<double> results(2 * count);
  for (std::size_t p = 0; p < count; ++p) {
    long double variance = 0;
    for (const Polynomial& unit : units) variance += unit[n + p] * unit[n + p];
    const long double scale = std::pow(4096.0L, p);
    results[p] = static_cast<double>(-rest[n + p] / scale);
    results[count + p] =
        static_cast<double>(std::sqrt(variance * squares / static_cast<long double>(n - count)) / scale);
  }
  return results;
}

TEST(CalibrationFit, RecoversTheCubicOfADetectorFromSiliconAtSeveralWavelengths) {
  std::vector<std::pair<double, double>> lines;
  for (const float wavelength : {0.71073F, 1.54184F, 1.79026F}) {
    for (const StandardPeak& peak : SiliconStandard().Peaks) {
      const auto two_theta = PositionAt(peak.TwoTheta, SiliconStandard().Lambda, wavelength);
      if (two_theta && *two_theta < TwoThetaAt(4096)) lines.emplace_back(ChannelOf(*two_theta), *two_theta);
    }
  }
  ASSERT_GT(lines.size(), 20U);
  const auto fit = FitCalibration(CouplesOf(lines));
  ASSERT_TRUE(fit);
  ASSERT_EQ(fit->CalibParCount, 4U);
  // Channels as 32-bit floats are right to 1.2E-04, which is 3.3E-06 degrees; the angles to 3.8E-06.
  for (int channel = 0; channel <= 4096; channel += 256) {
    double calculated = 0;
    for (std::size_t p = 4; p > 0; --p) calculated = calculated * channel + fit->CalibPar[p];
    EXPECT_NEAR(calculated, TwoThetaAt(channel), 2e-5) << channel;
  }
  EXPECT_LT(fit->Residual, 1e-13);
}

// However little of the detector the couples fill: to 0.0001 degrees where they lie, or not at all.
TEST(CalibrationFit, AgreesWithAnotherWayToTheLeastSquaresOrIsNone) {
  std::mt19937 random(7);  // NOLINT: the same numbers in each run
  std::normal_distribution<double> noise(0, 0.01);
  std::uniform_real_distribution<double> part(0, 2);
  int fits_of_few_channels = 0;
  for (int run = 0; run < 600; ++run) {
    const int n = std::array{4, 5, 6, 8, 11, 30, 100}[static_cast<std::size_t>(run) % 7];
    const double width = 2048 / std::pow(10, run % 5 * 0.5);
    std::vector<std::pair<double, double>> lines;
    for (int i = 0; i < n; ++i) {
      const double channel = 2048 + width * ((part(random) + 2 * i) / n - 1);
      lines.emplace_back(static_cast<float>(channel), TwoThetaAt(channel) + noise(random));
    }
    const Couples couples = CouplesOf(lines);
    const auto fit = FitCalibration(couples);
    ASSERT_TRUE(fit || width < 500) << n;
    if (!fit) continue;
    const std::size_t count = fit->CalibParCount;
    ASSERT_EQ(count, n == 4 ? 3U : 4U);
    const auto expected = FitByPolynomials(couples, count);
    for (const auto& [channel, two_theta] : lines) {
      double error = 0;
      for (std::size_t p = 0; p < count; ++p) {
        error += (fit->CalibPar[p + 1] - expected[p]) * std::pow(channel, static_cast<double>(p));
      }
      ASSERT_NEAR(error, 0, 1e-4) << width;
    }
    if (width < 500) ++fits_of_few_channels;
    for (std::size_t p = 0; p < count && width > 2000; ++p) {
      // 64 bits lose at most 8 digits to equations of this kind. The differences are those of the
      // coefficients in 32 bits, up to 1E-05 degrees beside a noise of 0.01.
      EXPECT_NEAR(fit->CalibPar[p + 1], expected[p], 1e-6 * std::abs(expected[p])) << n << " " << p;
      EXPECT_NEAR(fit->Sigma[p + 1], expected[count + p], 1e-3 * expected[count + p]) << n << " " << p;
    }
  }
  EXPECT_GT(fits_of_few_channels, 100);
}

TEST(CalibrationFit, TellsWhatItNeeds) {
  const struct {
    std::vector<double> Channels;
    std::size_t Different, Needed, Coefficients;  // of the fit that comes off, else 0
  } cases[] = {{{1, 2, 3}, 3, 3, 0},
               {{1, 1, 2, 2}, 2, 3, 0},
               {{1, 1, 2, 3}, 3, 3, 3},
               {{1, 1, 2, 2, 3}, 3, 4, 0},
               {{1, 1, 2, 3, 4}, 4, 4, 4},
               {std::vector<double>(100, 7), 1, 4, 0},
               {{4000, 4000.00025, 4000.0005, 4000.00075, 4000.001}, 5, 4, 0}};  // differ in the last bit
  for (const auto& one : cases) {
    std::vector<std::pair<double, double>> lines;
    for (const double channel : one.Channels) lines.emplace_back(channel, TwoThetaAt(channel));
    const Couples couples = CouplesOf(lines);
    const CalibrationDemand demand = DemandOf(couples);
    EXPECT_EQ(demand.Couples, one.Channels.size());
    EXPECT_EQ(demand.Channels, one.Different);
    EXPECT_EQ(demand.NeededChannels, one.Needed);
    const auto fit = FitCalibration(couples);
    EXPECT_EQ(fit ? fit->CalibParCount : 0, one.Coefficients) << one.Channels.size();
  }
  EXPECT_FALSE(FitCalibration(CouplesOf({{1, 3e38}, {2, -3e38}, {3, 3e38}, {4, -3e38}, {5, 3e38}})))
      << "beyond 32 bits";
}

TEST(CalibrationFit, IsToldInLinesWithItsResidual) {
  EXPECT_EQ(CalibrationText({.CalibParCount = 3,
                             .CalibPar = {0, 8.255696F, 2.5E-12F, -0.5F, 7},
                             .Sigma = {0, 0.00909886F, 1E-15F, 3, 9},
                             .Residual = 2.5E-10F}),
            "     Parameter        Sigma\r\n A0 =  8.255696    0.00909886\r\n A1 =  2.5E-12    1E-15\r\n"
            " A2 =  -0.5    3\r\nres = 2.5E-10");
  const auto level = FitCalibration(CouplesOf({{1, 0}, {2, 0}, {3, 0}, {4, 0}}));
  EXPECT_EQ(level.value_or(Calibration{.Residual = 1}).Residual, 0) << "no angle but 0";
  // 1, -1, 1, -1 about a line: what is left is 16 / 5 of 4, and 1 degree of freedom.
  const auto zigzag = FitCalibration(CouplesOf({{0, 1}, {1, -1}, {2, 1}, {3, -1}}));
  EXPECT_NEAR(zigzag.value_or(Calibration{}).Residual, 0.8, 1e-6);
  EXPECT_EQ(CouplesText(CouplesOf({{700.126, 28.4427}, {31, 9.5}})),
            "    2-theta     Channel \r\n1) 28.443  700.13\r\n2) 9.5  31\r\n");
}

}  // namespace
}  // namespace koprax
