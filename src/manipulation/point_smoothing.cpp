#include "manipulation/point_smoothing.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <type_traits>

namespace koprax {
namespace {

constexpr int WidestWindow = 9;

/// Weights of the points of a window, and what their sum is divided by: whole numbers.
struct WeightRow {
  std::array<float, WidestWindow> Weights;
  float Divisor;
};

/// How a window smooths. The centre's row starts with the weight of the point itself, those of its neighbours
/// at distance 1, 2, ... on both sides follow. The rows of the ends are those of the first, second, ...
/// point, with weights from the outermost point inward.
struct SmoothingRule {
  int Window;
  WeightRow Centre;
  std::array<WeightRow, 3> Ends;
  std::size_t EndRows;  ///< rows in use; without them the ends stay as they are
  int HighPoints;       ///< points at the high end that the centre's row doesn't reach
};

constexpr SmoothingRule FivePoints{
    .Window = 5,
    .Centre = {{17, 12, -3}, 35},
    .Ends = {{{{69, 4, -6, 4, -1}, 70},  //
              {{2, 27, 12, -8, 2}, 35}}},
    .EndRows = 2,
    .HighPoints = 2,
};

constexpr SmoothingRule SevenPoints{
    .Window = 7,
    .Centre = {{7, 6, 3, -2}, 21},
    .Ends = {{{{39, 8, -4, -4, 1, 4, -2}, 42},
              {{8, 19, 16, 6, -4, -7, 4}, 42},
              {{-4, 16, 19, 12, 2, -4, 1}, 42}}},
    .EndRows = 3,
    .HighPoints = 3,
};

constexpr SmoothingRule NinePoints{
    .Window = 9,
    .Centre = {{70, 56, 28, 8, 1}, 256},
    .Ends = {},
    .EndRows = 0,
    .HighPoints = 5,
};

const SmoothingRule& RuleOf(int window) {
  if (window == FivePoints.Window) return FivePoints;
  return window == SevenPoints.Window ? SevenPoints : NinePoints;
}

/// 80 bits where the platform has them. Elsewhere a wider type would be one of software.
using Extended = std::conditional_t<std::numeric_limits<long double>::digits == 64, long double, double>;

/// Sums up in extended precision; only the store of the quotient rounds to 32 bits.
class WeightedSum {
 public:
  void Add(float weight, float value) {
    sum_ += static_cast<Extended>(weight) * static_cast<Extended>(value);
  }
  [[nodiscard]] float Over(float divisor) const {
    return static_cast<float>(sum_ / static_cast<Extended>(divisor));
  }

 private:
  Extended sum_ = 0;
};

float AtCentre(const WeightRow& row, int half_window, const float* centre) {
  WeightedSum sum;
  for (int j = -half_window; j <= half_window; ++j) {
    sum.Add(row.Weights[static_cast<std::size_t>(std::abs(j))], centre[j]);
  }
  return sum.Over(row.Divisor);
}

/// `inward` is the step from the outermost point into the profile, 1 or -1.
float AtEnd(const WeightRow& row, int window, const float* outermost, std::ptrdiff_t inward) {
  WeightedSum sum;
  for (std::ptrdiff_t j = 0; j < window; ++j) {
    sum.Add(row.Weights[static_cast<std::size_t>(j)], outermost[j * inward]);
  }
  return sum.Over(row.Divisor);
}

}  // namespace

bool IsSmoothingWindow(double points) { return points == 5 || points == 7 || points == 9; }

void SmoothPoints(PointTable& y, int count, int window) {
  const SmoothingRule& rule = RuleOf(window);
  const PointTable unsmoothed(y.begin(), y.begin() + count + 1);
  const float* const first = &unsmoothed[1];
  const float* const last = first + count - 1;
  for (std::size_t row = 0; row < rule.EndRows; ++row) {
    y[1 + row] = AtEnd(rule.Ends[row], window, first, 1);
    y[static_cast<std::size_t>(count) - row] = AtEnd(rule.Ends[row], window, last, -1);
  }
  const int half_window = window / 2;
  for (int i = 1 + half_window; i <= count - rule.HighPoints; ++i) {
    y[static_cast<std::size_t>(i)] = AtCentre(rule.Centre, half_window, unsmoothed.data() + i);
  }
}

}  // namespace koprax
