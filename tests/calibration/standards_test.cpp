// The tables of the standards against Bragg's law.
#include "calibration/standards.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace koprax {
namespace {

constexpr double Degrees = 180 / std::numbers::pi;

TEST(Standards, LieWhereTheirCrystalsReflect) {
  struct Crystal {
    Standard Table;
    std::vector<int> Indices;  // h, k, l of one peak after the other
    double (*Q)(int h, int k, int l);
    double Tolerance;  // what constants of 4 decimals leave, and the tables, which are of former measurements
    double FirstOff;   // the first peak of the corundum table stands beside its reflection
  };
  const auto cubic = [](int h, int k, int l) { return (h * h + k * k + l * l) / 5.4309 / 5.4309; };
  const auto hexagonal = [](int h, int k, int l) {
    return (h * h + h * k + k * k) * 4 / 3.0 / 4.7587 / 4.7587 + l * l / 12.9929 / 12.9929;
  };
  const std::vector<int> silicon{1, 1, 1, 2, 2, 0, 3, 1, 1, 4, 0, 0, 3, 3, 1, 4, 2,
                                 2, 5, 1, 1, 4, 4, 0, 5, 3, 1, 6, 2, 0, 5, 3, 3};
  const std::vector<int> corundum{0,  1, 2, 1, 0, 4, 1, 1, 0, 0,  0, 6, 1, 1, 3, 2,  0, 2, 0,
                                  2,  4, 1, 1, 6, 2, 1, 1, 0, 1,  8, 2, 1, 4, 3, 0,  0, 1, 0,
                                  10, 2, 2, 0, 2, 2, 6, 2, 1, 10, 3, 2, 4, 1, 3, 10, 4, 1, 6};
  for (const Crystal& one : {Crystal{SiliconStandard(), silicon, cubic, 0.01, 0},
                             Crystal{CorundumStandard(), corundum, hexagonal, 0.021, 0.1}}) {
    ASSERT_EQ(one.Indices.size(), 3 * one.Table.Peaks.size());
    for (std::size_t i = 0; i < one.Table.Peaks.size(); ++i) {
      const int* hkl = &one.Indices[3 * i];
      const double sine = one.Table.Lambda * std::sqrt(one.Q(hkl[0], hkl[1], hkl[2])) / 2;
      EXPECT_NEAR(one.Table.Peaks[i].TwoTheta - (i == 0 ? one.FirstOff : 0), 2 * std::asin(sine) * Degrees,
                  one.Tolerance)
          << i;
    }
    const auto by_height = [](const auto& a, const auto& b) { return a.Intensity < b.Intensity; };
    EXPECT_EQ(std::ranges::max_element(one.Table.Peaks, by_height)->Intensity, 100);
  }
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
