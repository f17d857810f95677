#include "manipulation/point_smoothing.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>
#include <vector>

namespace koprax {
namespace {

/// A table of points 1 to `count`; entry 0 and the one behind the last must never be touched.
PointTable Table(int count, const std::function<double(int)>& value) {
  PointTable y(static_cast<std::size_t>(count) + 2, -1000.0F);
  for (int i = 1; i <= count; ++i) y[i] = static_cast<float>(value(i));
  return y;
}

PointTable Smoothed(PointTable y, int window) {
  SmoothPoints(y, static_cast<int>(y.size()) - 2, window);
  return y;
}

/// The order of work of an instrument with little memory: a running window Q moves along the profile and is
/// read from while the smoothed values replace the points behind it.
void SmoothInOrder(PointTable& y, int n, int w) {
  using Row = std::vector<int>;  // the divisor, then the weights of Q(1), Q(2), ...
  // The centre's row and those of the first points.
  const std::vector<Row> rows =
      w == 5   ? std::vector<Row>{{35, -3, 12, 17, 12, -3}, {70, 69, 4, -6, 4, -1}, {35, 2, 27, 12, -8, 2}}
      : w == 7 ? std::vector<Row>{{21, -2, 3, 6, 7, 6, 3, -2},
                                  {42, 39, 8, -4, -4, 1, 4, -2},
                                  {42, 8, 19, 16, 6, -4, -7, 4},
                                  {42, -4, 16, 19, 12, 2, -4, 1}}
               : std::vector<Row>{{256, 1, 8, 28, 56, 70, 56, 28, 8, 1}};
  std::array<float, 10> q{};
  const auto value = [&](const Row& row, bool mirrored) {
    long double sum = 0;
    for (int k = 1; k <= w; ++k) sum += static_cast<long double>(row[k]) * q[mirrored ? w + 1 - k : k];
    return static_cast<float>(sum / row[0]);
  };
  for (int k = 1; k <= w; ++k) q[k] = y[k];
  for (std::size_t r = 1; r < rows.size(); ++r) y[r] = value(rows[r], false);
  const int half = w / 2;
  for (int i = half + 1; i <= n - half - 1; ++i) {
    y[i] = value(rows[0], false);
    for (int k = 1; k < w; ++k) q[k] = q[k + 1];
    q[w] = y[i + half + 1];
  }
  if (w == 9) return;
  y[n - half] = value(rows[0], false);
  for (std::size_t r = 1; r < rows.size(); ++r) y[n + 1 - r] = value(rows[r], true);
}

TEST(PointSmoothing, GivesTheValuesOfTheRunningWindow) {
  std::mt19937 random(20);
  std::uniform_real_distribution<float> counts(-50, 3000);
  for (const int window : {5, 7, 9}) {
    for (const int count : {window, window + 1, window + 2, 2 * window, 1000, MaxPoints}) {
      PointTable expected = Table(count, [&](int) { return counts(random); });
      const PointTable once = Smoothed(expected, window);
      SmoothInOrder(expected, count, window);
      // Sums of such weights and values are exact in extended precision, in any order: no tolerance.
      EXPECT_EQ(once, expected) << window << " of " << count;
      SmoothInOrder(expected, count, window);
      EXPECT_EQ(Smoothed(once, window), expected) << window << " of " << count << ", twice";
    }
  }
}

TEST(PointSmoothing, OverFiveSevenOrNinePointsKeepsWhatItsPolynomialCanFollow) {
  for (const double points : {0.0, -5.0, 4.9999, 6.0, 8.0, 1E300}) EXPECT_FALSE(IsSmoothingWindow(points));
  // All values and their weighted sums fit the numbers they are held in, so nothing may be lost.
  const auto constant = [](int) { return 0.1; };
  const auto line = [](int i) { return 1234.25 - 0.75 * i; };
  const auto cubic = [](int i) { return 2.0 * i * i * i - 57.0 * i * i + 11.0 * i - 3; };
  for (const int window : {5, 7, 9}) {
    EXPECT_TRUE(IsSmoothingWindow(window));
    EXPECT_EQ(Smoothed(Table(60, constant), window), Table(60, constant)) << window;
    EXPECT_EQ(Smoothed(Table(60, line), window), Table(60, line)) << window;
  }
  EXPECT_EQ(Smoothed(Table(60, cubic), 5), Table(60, cubic));
  EXPECT_EQ(Smoothed(Table(60, cubic), 7), Table(60, cubic));
}

}  // namespace
}  // namespace koprax
