#include "manipulation/robust_background.h"

#include <algorithm>
#include <cmath>

#include "forms/number_text.h"
#include "manipulation/robust_pass.h"

namespace koprax {
namespace {

constexpr float WidestPeak = 5;  ///< units of X; a larger answer counts points
constexpr double PeaksInWindow = 3;

constexpr int PointsInEndMean = 5;

constexpr int EntriesLookedAt = 30;
constexpr double NothingInHand = 0.0001;

constexpr float HighestStart = 10000;  ///< the search for the lowest point starts from here
constexpr double RangesKept = 2.2;

constexpr int WidestHole = 10;
constexpr int ReachOfNarrowWindow = 3;  ///< inward from its edge, in distances
constexpr int Passes = 3;

/// The distances of a window of two half windows, and the positions of `count` points behind its padding.
MeanWithHole MeanOver(int half_window, int count) {
  const int nearest = half_window < WidestHole ? half_window - ReachOfNarrowWindow : WidestHole;
  return {.First = half_window + 1,
          .Last = half_window + count,
          .Nearest = std::max(nearest, 1),
          .Farthest = half_window};
}

}  // namespace

std::variant<int, WindowProblem> AveragingWindow(float answer, float step) {
  double points = static_cast<double>(answer);
  if (!(answer > WidestPeak)) {
    if (step == 0) return WindowProblem::VariableStep;
    points = PeaksInWindow * static_cast<double>(answer) / static_cast<double>(step);
  }
  // Even, and still in 64 bits: a number that doesn't fit an int is told from one that does.
  const double window = 2 * std::ceil(RoundHalfEven(points) / 2);
  if (!(window >= LeastWindow && window <= LargestWindow)) return WindowProblem::OutOfRange;
  return static_cast<int>(window);
}

EndMeans MeansAtEnds(const PointTable& y, int count) {
  const auto mean_from = [&y](int first) {
    float sum = 0;
    for (int i = first; i < first + PointsInEndMean; ++i) sum += y[static_cast<std::size_t>(i)];
    return sum / PointsInEndMean;
  };
  return {.First = mean_from(1), .Last = mean_from(count - PointsInEndMean + 1)};
}

bool HasBackground(const PointTable& background) {
  return std::any_of(background.begin() + 1, background.begin() + 1 + EntriesLookedAt, [](float value) {
    return static_cast<double>(std::abs(RoundDecimals(value, 4))) > NothingInHand;
  });
}

bool StartBackground(const PointTable& y, int count, PointTable& background) {
  const auto first = y.begin() + 1;
  const auto end = first + count;
  float sum = 0;
  float lowest = HighestStart;
  std::for_each(first, end, [&](float value) {
    sum += value;
    lowest = std::min(lowest, value);
  });
  if (!std::isfinite(sum)) return false;
  const float mean = sum / static_cast<float>(count);
  const float range = mean - lowest;
  const double reach = RangesKept * static_cast<double>(range);
  const float ceiling = static_cast<float>(static_cast<double>(mean) + reach);
  std::transform(first, end, background.begin() + 1, [&](float value) {
    const bool cut = value > mean && static_cast<double>(value) - static_cast<double>(mean) > reach;
    return cut ? ceiling : value;
  });
  return true;
}

void SmoothBackground(const PointTable& background, int count, int window, const EndMeans& ends,
                      PointTable& padded) {
  const int half_window = window / 2;
  const auto profile = std::fill_n(padded.begin() + 1, half_window, ends.First);
  const auto behind = std::copy_n(background.begin() + 1, count, profile);
  std::fill_n(behind, half_window, ends.Last);
  SmoothThreeTimes(padded, count, window);
}

void ClipToMeasurement(const PointTable& y, const PointTable& padded, int count, int half_window,
                       PointTable& background) {
  std::transform(y.begin() + 1, y.begin() + 1 + count, padded.begin() + 1 + half_window,
                 background.begin() + 1,
                 [](float measured, float smooth) { return measured < smooth ? measured : smooth; });
}

void SmoothThreeTimes(PointTable& padded, int count, int window, VectorWidth width) {
  const MeanWithHole mean = MeanOver(window / 2, count);
  PointTable other = padded;
  for (int pass = 0; pass < Passes; ++pass) {
    TakeMeans(mean, padded, other, width);
    padded.swap(other);
  }
}

}  // namespace koprax
