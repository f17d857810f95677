// The robust estimate of a background: a moving mean with a hole at its centre, run three times a cycle, and
// between cycles the lower of the curve and the measurement. How many cycles, and drawing them, is left to
// the window.
#pragma once

#include <variant>

#include "workspace/vector_width.h"
#include "workspace/workspace.h"

namespace koprax {

inline constexpr int LeastProfileForBackground = 5;  ///< points; the mean of five stands for each end
inline constexpr int LeastWindow = 2;
inline constexpr int LargestWindow = 398;

/// Why an answer gives no window.
enum class WindowProblem {
  VariableStep,  ///< a width in units of X needs a profile of constant step
  OutOfRange,    ///< the window would lie outside 2 to 398 points
};

/// The number N of points to average over, always even. An answer above 5 is a number of points, one up to 5
/// the width of a peak at half its height in units of X, three of which make the window. `step` is that of
/// the profile, 0 where it varies. Halves are rounded to the even neighbour, an odd number goes up by one.
[[nodiscard]] std::variant<int, WindowProblem> AveragingWindow(float answer, float step);

/// What stands for the profile beyond its ends.
struct EndMeans {
  float First;  ///< of points 1 to 5
  float Last;   ///< of the last five points
};
/// The means of a profile of `count` points, at least 5, each a sum in 32 bits divided by 5.
[[nodiscard]] EndMeans MeansAtEnds(const PointTable& y, int count);

/// Whether a background is in hand: one of the first 30 entries is larger than 0.0001 in size, rounded to 4
/// decimals.
[[nodiscard]] bool HasBackground(const PointTable& background);

/// Makes the curve that the first cycle smooths: points 1 to `count` of the profile, cut off at its mean
/// plus 2.2 times the distance of the mean from the lowest point. False, and nothing is made, when their sum
/// in 32 bits is beyond them.
[[nodiscard]] bool StartBackground(const PointTable& y, int count, PointTable& background);

/// One cycle: puts points 1 to `count` of the background into `padded` at positions M+1 to M+count, between M
/// times the one mean and M times the other, M being half the window, and runs three smoothing passes over
/// it.
void SmoothBackground(const PointTable& background, int count, int window, const EndMeans& ends,
                      PointTable& padded);

/// Between cycles: points 1 to `count` of the background become the lower of the measured value and the
/// smooth curve, which stands in `padded` from position half_window + 1.
void ClipToMeasurement(const PointTable& y, const PointTable& padded, int count, int half_window,
                       PointTable& background);

/// Three smoothing passes over positions M+1 to M+count of `padded`, M being half the window (2 to 398
/// points). In each, a position becomes the mean of the values of the pass before at distances L to M on both
/// sides, with L = 10, or M - 3 where M is below 10, and at least 1. Each pair of values is added in 32 bits,
/// the pairs in rising order of their distance in 64, and the mean is rounded to 32. Positions outside stay
/// as they are. Every width that the processor has gives the same bits.
void SmoothThreeTimes(PointTable& padded, int count, int window, VectorWidth width = ChosenVectors());

}  // namespace koprax
