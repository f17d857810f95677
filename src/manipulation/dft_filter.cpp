#include "manipulation/dft_filter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr float TwoPi = 6.2831855F;

float StepFor(int count) { return TwoPi / static_cast<float>(count); }

/// Divides coefficients 1 to `count` by `count`; the limits of the plot start at numbers of their own, one
/// for each part.
void NormaliseCoefficients(int count, DftFilter& filter) {
  double min_re = 100000;
  double max_re = -10000;
  double min_im = 10000;
  double max_im = -10000;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
    filter.DftRe[i] /= count;
    filter.DftIm[i] /= count;
    min_re = std::min(min_re, filter.DftRe[i]);
    max_re = std::max(max_re, filter.DftRe[i]);
    min_im = std::min(min_im, filter.DftIm[i]);
    max_im = std::max(max_im, filter.DftIm[i]);
  }
  filter.DftYMin = static_cast<float>(std::min(min_re, min_im));
  filter.DftYMax = static_cast<float>(std::max(max_re, max_im));
}

}  // namespace

int DftFilter::Highest() const { return static_cast<int>(RoundHalfEven(DftCount)); }

void TransformProfile(const PointTable& y, int count, DftFilter& filter, const TellReached& tell) {
  filter = DftFilter{};
  filter.DftCount = static_cast<float>(count / 2.0 + 1.0);
  filter.DftStep = StepFor(count);
  std::copy_n(y.begin() + 1, count, filter.DftY.begin() + 1);
  ForwardDft(filter.DftY, count, filter.DftStep, filter.Highest(), filter.DftRe, filter.DftIm, tell);
  NormaliseCoefficients(count, filter);
  filter.Points = count;
}

void AttenuateCoefficients(float parameter, DftFilter& filter) {
  filter.FilterParam = parameter;
  const double start = filter.DftCount / 1.3 + 1.0;
  const std::int16_t half_width = ToInt16((filter.DftCount - start) / 2).value_or(0);
  if (parameter == 0) return;
  // Below sixteen points the roll-off has no width and takes away what it touches.
  const auto width = static_cast<float>(1.0 / parameter * half_width);
  for (int i = static_cast<int>(RoundHalfEven(start)); i <= filter.Highest(); ++i) {
    const std::int16_t distance = ToInt16(i - start + 1).value_or(0);
    const double widths = distance / static_cast<double>(width);
    const double factor = std::exp(-(widths * widths));
    filter.DftRe[static_cast<std::size_t>(i)] *= factor;
    filter.DftIm[static_cast<std::size_t>(i)] *= factor;
  }
}

void TransformBack(int count, DftFilter& filter, const TellReached& tell) {
  filter.DftStep = StepFor(count);
  InverseDft(filter.DftRe, filter.DftIm, filter.Highest(), filter.DftStep, count, filter.DftY, tell);
  filter.ResultPoints = count;
}

}  // namespace koprax
