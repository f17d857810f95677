// Where the ticks of an axis stand: the steps for a span and the walk along them. Drawing them is left to
// the axes of the screen and of the printer.
#pragma once

namespace koprax {

/// The distance of ticks along X and along Y for a span in data units. The steps form no 1-2-5 series.
[[nodiscard]] double TickStepX(float span);
[[nodiscard]] double TickStepY(float span);

/// The Y label of a tick stands so many units left of the axis, by its size. On a plot that reaches below
/// 0, negative numbers count by their size as well.
[[nodiscard]] double TickOffsetY(double y, bool negative_y);

/// A walk of more rounds than this is not begun: it would take longer than anyone waits, or the step would
/// be lost in the size of the numbers.
inline constexpr double MaxTickRounds = 1e7;
/// Nor is one that would draw more ticks than this, which nobody could tell apart.
inline constexpr double MaxTicks = 2e4;

/// Walks start + step, start + 2 step, ... up to `last`, by repeated addition in 64 bits, and visits what
/// lies at or above `first`.
template <class Visit>
void WalkTicks(double start, double step, double first, double last, Visit visit) {
  if (!((last - start) / step <= MaxTickRounds && (last - first) / step <= MaxTicks)) {
    return;
  }
  for (double value = start + step; value <= last; value += step) {
    if (value >= first) {
      visit(value);
    }
  }
}

}  // namespace koprax
