#include "manipulation/dft_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "manipulation/dft_plot.h"

namespace koprax {
namespace {

void TellNobody(int /*reached*/) {}

PointTable SmoothProfile(int count) {
  PointTable y(MaxPoints + 1);
  for (int j = 1; j <= count; ++j) {
    const double x = (j - count / 2.0) / (count / 12.0);
    y[static_cast<std::size_t>(j)] = static_cast<float>(200 + 1000 * std::exp(-x * x));
  }
  return y;
}

/// A profile whose coefficients all differ from 0: a single spike.
DftFilter FilterOfSpike(int count) {
  PointTable y(MaxPoints + 1);
  y[2] = 1000;
  DftFilter filter;
  TransformProfile(y, count, filter, TellNobody);
  return filter;
}

TEST(DftFilterTest, CountsItsCoefficients) {
  struct Case {
    int Points;
    float Count;
    int Highest;
  };
  for (const auto& [points, count, highest] : {Case{1, 1.5F, 2}, Case{2, 2, 2}, Case{1000, 501, 501},
                                               Case{1001, 501.5F, 502}, Case{1003, 502.5F, 502}}) {
    const DftFilter filter = FilterOfSpike(points);
    EXPECT_EQ(filter.DftCount, count);
    EXPECT_EQ(filter.Highest(), highest);
    EXPECT_EQ(filter.DftStep, 6.2831855F / static_cast<float>(points));
    EXPECT_EQ(filter.Points, points);
    EXPECT_EQ(filter.ResultPoints, 0);
    EXPECT_EQ(filter.DftRe[static_cast<std::size_t>(highest) + 1], 0);
  }
}

TEST(DftFilterTest, TheLimitsStartAtNumbersOfTheirOwn) {
  DftFilter filter;
  // One coefficient, without an imaginary part, below where the highest starts or above where the lowest
  // does.
  for (const float y : {-30000.0F, 200000.0F}) {
    TransformProfile({0, y}, 1, filter, TellNobody);
    EXPECT_NEAR(filter.DftYMin, std::min(y, 0.0F), 1e-9);
    EXPECT_NEAR(filter.DftYMax, std::max(y, 0.0F), 1e-9);
    filter.DftY[1] = y;
    filter.ResultPoints = 1;
    EXPECT_EQ(FilteredLimits({}, filter).YMin, std::min(y, 100000.0F));
    EXPECT_EQ(FilteredLimits({}, filter).YMax, std::max(y, -10000.0F));
  }
}

TEST(DftFilterTest, AttenuatesTheTopOfTheSpectrumByAHalfGaussian) {
  struct Case {
    int Points;
    int First;     // the first coefficient that is touched
    double Start;  // where the Gaussian starts, in numbers of coefficients
    int HalfWidth;
    int Last;
  };
  // 501 / 1.3 + 1 = 386.38 and (501 - 386.38) / 2 = 57.3; for 502.5, 387.54 and 57.48; for 3001.5, 2309.85
  // and 345.83
  for (const auto& [points, first, start, half_width, last] :
       {Case{1000, 386, 501 / 1.3 + 1, 57, 501}, Case{1003, 388, 502.5 / 1.3 + 1, 57, 502},
        Case{6001, 2310, 3001.5 / 1.3 + 1, 346, 3002}}) {
    for (const float parameter : {0.25F, 1.0F, 2.0F, 9.0F}) {
      const DftFilter before = FilterOfSpike(points);
      DftFilter once = before;
      AttenuateCoefficients(parameter, once);
      DftFilter twice = once;
      AttenuateCoefficients(parameter, twice);
      EXPECT_EQ(once.FilterParam, parameter);
      for (int i = 1; i <= points; ++i) {
        const double distance = std::nearbyint(i - start + 1);
        const float width = static_cast<float>(half_width / static_cast<double>(parameter));
        const double factor = i < first || i > last ? 1 : std::exp(-std::pow(distance / width, 2));
        const auto k = static_cast<std::size_t>(i);
        // Squares and products are rounded in another order; an exponent near 324 magnifies that.
        const double tolerance = 1e-12 * factor;
        ASSERT_NEAR(once.DftRe[k], before.DftRe[k] * factor, tolerance) << points << " " << i;
        ASSERT_NEAR(once.DftIm[k], before.DftIm[k] * factor, tolerance);
        ASSERT_NEAR(twice.DftRe[k], before.DftRe[k] * factor * factor, tolerance * factor);
      }
    }
  }
}

TEST(DftFilterTest, ShortProfilesStayFiniteAndParameter0ChangesNothing) {
  for (int count = 1; count <= 16; ++count) {
    DftFilter filter = FilterOfSpike(count);
    const DftFilter before = filter;
    AttenuateCoefficients(0, filter);
    EXPECT_TRUE(filter.DftRe == before.DftRe && filter.DftIm == before.DftIm) << count;
    AttenuateCoefficients(1, filter);
    TransformBack(count, filter, TellNobody);
    for (const float y : filter.DftY) EXPECT_TRUE(std::isfinite(y)) << count;
  }
}

TEST(DftFilterTest, ASmoothProfileComesBack) {
  for (const int count : {1000, 1003}) {
    const PointTable y = SmoothProfile(count);
    for (const float parameter : {0.0F, 3.0F}) {
      DftFilter filter;
      TransformProfile(y, count, filter, TellNobody);
      AttenuateCoefficients(parameter, filter);
      TransformBack(count, filter, TellNobody);
      EXPECT_EQ(filter.ResultPoints, count);
      for (std::size_t j = 1; j <= static_cast<std::size_t>(count); ++j) {
        // Some 500 roundings of half a unit of 32 bits (6E-5), and a step that 32 bits hold to 3E-8 of it: at
        // the far end the tenth coefficient has turned 2E-6 too far, of amplitudes of some hundreds each.
        ASSERT_NEAR(filter.DftY[j], y[j], 1e-2) << count << " " << j;
      }
    }
  }
}

TEST(DftFilterTest, NothingIsLeftOfALongerProfile) {
  DftFilter filter = FilterOfSpike(1000);
  TransformBack(1000, filter, TellNobody);
  TransformProfile(SmoothProfile(100), 100, filter, TellNobody);
  EXPECT_EQ(filter.ResultPoints, 0);
  EXPECT_EQ(filter.DftRe[52], 0);
  EXPECT_EQ(filter.DftY[101], 0);
}

}  // namespace
}  // namespace koprax
