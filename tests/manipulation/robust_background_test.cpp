#include "manipulation/robust_background.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <variant>
#include <vector>

namespace koprax {
namespace {

/// Peaks on a sloping background with noise, rising and falling at the ends.
PointTable SampleProfile(int count) {
  std::mt19937 random(7);
  std::normal_distribution<double> noise(0, 1);
  PointTable y(MaxPoints + 1);
  for (int i = 1; i <= count; ++i) {
    const double x = static_cast<double>(i) / count;
    double value = 400 * std::exp(-3 * x) + 80;
    for (const double place : {0.0, 0.11, 0.3, 0.32, 0.55, 0.81, 0.999}) {
      value += 2500 * (1 - place / 2) / (1 + std::pow((x - place) / 0.004, 2));
    }
    y[i] = static_cast<float>(value + std::sqrt(value) * noise(random));
  }
  return y;
}

/// The mean with a hole as it is defined, each pass reading a copy of the one before.
void SmoothByDefinition(PointTable& padded, int n, int m) {
  const int l = 10 > m ? m - 3 : 10;
  for (int pass = 1; pass <= 3; ++pass) {
    const PointTable old = padded;
    for (int i = m + 1; i <= m + n; ++i) {
      double sum = 0;
      double pairs = 0;
      for (int j = std::max(l, 1); j <= m; ++j, ++pairs) sum += static_cast<double>(old[i - j] + old[i + j]);
      padded[i] = static_cast<float>(sum / (2 * pairs));
    }
  }
}

TEST(RobustBackground, TakesItsWindowFromPointsOrFromTheWidthOfAPeak) {
  constexpr auto out = WindowProblem::OutOfRange;
  constexpr float none = std::numeric_limits<float>::quiet_NaN();
  const auto expect = [](float step, std::variant<int, WindowProblem> window,
                         const std::vector<float>& answers) {
    for (const float answer : answers) {
      EXPECT_EQ(AveragingWindow(answer, step), window) << answer << " on " << step;
    }
  };
  // Numbers of points, on any step: halves to the even neighbour, odd numbers up.
  for (const float step : {0.02F, 0.0F}) {
    expect(step, 6, {5.5F, 6, 6.5F});
    expect(step, 8, {7, 7.5F, 8});
    expect(step, 30, {30, 30.5F});
    expect(step, 32, {31});
    expect(step, 398, {397, 397.5F, 398, 398.5F});
    expect(step, out, {398.6F, 399, 1E30F, std::numeric_limits<float>::infinity()});
  }
  // Widths of a peak; an answer of exactly 5 is one.
  expect(0.1F, 150, {5});
  expect(0.02F, 16, {0.1F});
  expect(1, 2, {0.25F, 0.5F});
  expect(1, 4, {1.5F});  // 4.5 points
  expect(0.02F, out, {5, 0, -1, -1E30F, none});
  expect(-0.02F, out, {1});
  expect(1.5F, out, {0.25F});  // half a point
  expect(0, WindowProblem::VariableStep, {5, 0.1F, 0, -1});
}

TEST(RobustBackground, AddsTheEndMeansInOrderAnd32Bits) {
  // 2^24 swallows each 1 that follows it, while those that come first add up: order and width show.
  const EndMeans ends = MeansAtEnds({-99, 16777216, 1, 1, 1, 1, 40, 1, 1, 1, 1, 16777216, -99}, 11);
  EXPECT_EQ(ends.First, 16777216 / 5.0F);
  EXPECT_EQ(ends.Last, 16777220 / 5.0F);
}

TEST(RobustBackground, IsInHandWhenAnEarlyEntryIsAboveATenThousandth) {
  const float half = 0.00015F;  // as a 32-bit number a little above
  for (const float value : {0.0F, 0.0001F, std::nextafter(half, 0.0F), half, -half, -1E30F}) {
    for (const int place : {0, 1, 30, 31}) {
      PointTable background(MaxPoints + 1);
      background[place] = value;
      const bool in_hand = std::abs(value) >= half && place >= 1 && place <= 30;
      EXPECT_EQ(HasBackground(background), in_hand) << value << " at " << place;
    }
  }
}

TEST(RobustBackground, StartsFromTheProfileCutOffAboveItsMean) {
  const auto start = [](const PointTable& y, int count) {
    PointTable background(y.size(), -1.0F);
    EXPECT_TRUE(StartBackground(y, count, background));
    return background;
  };
  // Mean 20, lowest 10: cut at 42. What lies behind the profile stays out of it.
  EXPECT_EQ(start({-99, 10, 10, 10, 10, 42, 38, 1000}, 6), (PointTable{-1, 10, 10, 10, 10, 42, 38, -1}));
  EXPECT_EQ(start({-99, 10, 10, 10, 10, 10, 70}, 6), (PointTable{-1, 10, 10, 10, 10, 10, 42}));
  EXPECT_EQ(start({-99, 7, 7, 7, 7, 7}, 5), (PointTable{-1, 7, 7, 7, 7, 7}));
  // The lowest point is looked for below 10000: mean 22000, cut at 22000 + 2.2 * 12000.
  EXPECT_EQ(start({0, 12000, 12000, 12000, 12000, 12000, 72000}, 6)[6], 48400);
  // The sum has 32 bits, so that 2^24 swallows what follows; the cut is rounded once.
  const double mean = 16777216 / 5.0F;
  EXPECT_EQ(start({0, 16777216, 1, 1, 1, 1}, 5)[1], static_cast<float>(mean + 2.2 * (mean - 1)));
}

TEST(RobustBackground, GivesEachBitOfItsDefinitionInEachWidthOfVectors) {
  for (const int n : {5, 16, 17, 63, 64, 65, 703, MaxPoints}) {
    for (const int window : {2, 4, 6, 8, 10, 18, 20, 22, 30, 300, 398}) {
      if (n == MaxPoints && window < 300) continue;
      const PointTable y = SampleProfile(n);
      const EndMeans ends = MeansAtEnds(y, n);
      const int m = window / 2;
      PointTable background(MaxPoints + 1);
      ASSERT_TRUE(StartBackground(y, n, background));
      for (int cycle = 1; cycle <= 3; ++cycle) {
        PointTable expected(PaddedYBound + 1, -7.0F);
        for (int i = 1; i <= m; ++i) expected[i] = ends.First;
        for (int i = 1; i <= n; ++i) expected[m + i] = background[i];
        for (int i = n + m + 1; i <= n + window; ++i) expected[i] = ends.Last;
        const PointTable unsmoothed = expected;
        SmoothByDefinition(expected, n, m);
        PointTable padded(PaddedYBound + 1, -7.0F);
        SmoothBackground(background, n, window, ends, padded);
        ASSERT_EQ(padded, expected) << n << ", " << window << ", cycle " << cycle;
        for (const VectorWidth width : VectorWidths()) {
          padded = unsmoothed;
          SmoothThreeTimes(padded, n, window, width);
          ASSERT_EQ(padded, expected) << n << ", " << window << ", width " << static_cast<int>(width);
        }
        ClipToMeasurement(y, padded, n, m, background);
        for (int i = 1; i <= n; ++i) ASSERT_EQ(background[i], std::min(y[i], expected[m + i])) << i;
      }
    }
  }
}

}  // namespace
}  // namespace koprax
