// The tables of the standards against Bragg's law and sums of their rows.
#include "calibration/standards.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

namespace koprax {
namespace {

constexpr double Degrees = 180 / std::numbers::pi;

TEST(Standards, LieWhereSiliconReflects) {
  const std::array<int, 11> squares{3, 8, 11, 16, 19, 24, 27, 32, 35, 40, 43};  // of h, k and l, added up
  const Standard silicon = SiliconStandard();
  ASSERT_EQ(silicon.Peaks.size(), squares.size());
  for (std::size_t i = 0; i < squares.size(); ++i) {
    const double sine = silicon.Lambda * std::sqrt(squares[i]) / 2 / 5.4309;
    // What a constant of 4 decimals leaves, and the table, which is of a former measurement.
    EXPECT_NEAR(silicon.Peaks[i].TwoTheta, 2 * std::asin(sine) * Degrees, 0.01) << i;
  }
}

// Each row counts as often as its number tells, so that rows that are exchanged are caught, too.
TEST(Standards, AreCopiedWithoutAFault) {
  const auto expect = [](const Standard& standard, float lambda, double positions, double intensities) {
    EXPECT_EQ(standard.Lambda, lambda);
    for (std::size_t i = 1; i <= standard.Peaks.size(); ++i) {
      positions -= static_cast<double>(i) * standard.Peaks[i - 1].TwoTheta;
      intensities -= static_cast<double>(i) * standard.Peaks[i - 1].Intensity;
    }
    EXPECT_NEAR(positions, 0, 5e-4);  // three decimals, in 32 bits
    EXPECT_EQ(intensities, 0);
  };
  expect(SiliconStandard(), 1.5405982F, 6804.588, 693);
  expect(CorundumStandard(), 1.54056F, 16431.552, 4008);
}

TEST(Standards, AreCarriedToOtherWavelengthsWithTheirSpacings) {
  for (const Standard& standard : {SiliconStandard(), CorundumStandard()}) {
    for (const float wavelength : {0.56087F, 0.71073F, 1.54056F, 1.5405982F, 1.54184F, 1.79026F, 40.0F}) {
      StandardPeaks peaks;
      const std::size_t drawn = peaks.Take(standard, wavelength).size();
      std::size_t positions = 0;
      for (std::size_t i = 1; i <= standard.Peaks.size(); ++i) {
        const float tabulated = standard.Peaks[i - 1].TwoTheta;
        const double sine = std::sin(tabulated / 2 / Degrees) * wavelength / standard.Lambda;
        positions += sine <= 1 ? 1 : 0;
        // 32 bits hold 180 degrees to 1E-05; the factor to radian of 32 bits adds less than that.
        EXPECT_NEAR(peaks.StandardTheta2[i], sine <= 1 ? 2 * std::asin(sine) * Degrees : 0, 2e-5);
        EXPECT_EQ(peaks.StandardInt[i], standard.Peaks[i - 1].Intensity);
        EXPECT_TRUE(wavelength != standard.Lambda || peaks.StandardTheta2[i] == tabulated);
      }
      EXPECT_EQ(drawn, positions);
      EXPECT_EQ(peaks.Sticks().size(), standard.Peaks.size());
    }
  }
}

TEST(Standards, ARowWithoutPositionKeepsTheOneItHad) {
  StandardPeaks peaks;
  EXPECT_EQ(peaks.Take(CorundumStandard(), 0.71073F).size(), 19U);
  const float tenth = peaks.StandardTheta2[10];
  EXPECT_EQ(peaks.Take(SiliconStandard(), 1.79026F).size(), 9U);
  EXPECT_EQ(peaks.Sticks()[9].X, tenth);
  EXPECT_EQ(peaks.Sticks()[9].Height, 8);
  EXPECT_EQ(peaks.Sticks().size(), 11U);
  EXPECT_EQ(peaks.StandardInt[12], 0);
}

}  // namespace
}  // namespace koprax
