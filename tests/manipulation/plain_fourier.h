// The sums of the Fourier transforms as anyone would write them, a sine and a cosine for every point and
// every coefficient, and what the transforms may differ from them. Profiles to transform are left to tests
// and benchmarks.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "manipulation/fourier_transform.h"

namespace koprax {

struct Coefficients {
  CoefficientTable Re = CoefficientTable(MaxPoints + 1);
  CoefficientTable Im = CoefficientTable(MaxPoints + 1);
};

inline void SumForward(const PointTable& y, std::size_t count, float step, std::size_t highest,
                       Coefficients& x) {
  for (std::size_t k = 1; k <= highest; ++k) {
    double re = 0;
    double im = 0;
    for (std::size_t j = 1; j <= count; ++j) {
      const double a = static_cast<double>((j - 1) * (k - 1)) * step;
      re += y[j] * std::cos(a);
      im += y[j] * -std::sin(a);
    }
    x.Re[k] = re;
    x.Im[k] = im;
  }
}

inline void SumBack(const Coefficients& x, std::size_t highest, float step, std::size_t count,
                    PointTable& y) {
  for (std::size_t j = 1; j <= count; ++j) {
    auto sum = static_cast<float>(x.Re[1]);
    for (std::size_t k = 2; k <= highest; ++k) {
      const double a = static_cast<double>((j - 1) * (k - 1)) * step;
      const double c = std::cos(a);
      const double d = -std::sin(a);
      sum = static_cast<float>(sum + 2 * c * x.Re[k] + 2 * d * x.Im[k]);
    }
    y[j] = sum;
  }
}

/// The first coefficient that is another one, 0 if none is. A 64-bit sum of thousands of terms errs by some
/// 1E-16 of its largest part; 1E-14 of the largest coefficient leaves room for both ways of summing.
inline std::size_t FirstOtherCoefficient(const Coefficients& fast, const Coefficients& plain,
                                         std::size_t highest) {
  const auto size = [&](std::size_t k) { return std::hypot(plain.Re[k], plain.Im[k]); };
  double largest = 0;
  for (std::size_t k = 1; k <= highest; ++k) largest = std::max(largest, size(k));
  for (std::size_t k = 1; k <= highest; ++k) {
    const double error = std::hypot(fast.Re[k] - plain.Re[k], fast.Im[k] - plain.Im[k]);
    if (!(error <= 1e-12 * size(k) + 1e-14 * largest)) return k;
  }
  return 0;
}

/// Whether all points are the same but one in ten thousand, and those off by one unit of their last place.
/// Sines that differ in their last bit tip a rounding to 32 bits now and then. It shows as one unit of the
/// largest partial sum, which is one of the point where that isn't much smaller.
inline bool NearlyAllPointsAreTheSame(const PointTable& fast, const PointTable& plain, std::size_t count) {
  std::size_t differing = 0;
  for (std::size_t j = 1; j <= count; ++j) {
    if (fast[j] == plain[j]) continue;
    if (fast[j] != std::nextafter(plain[j], fast[j])) return false;
    ++differing;
  }
  return differing <= (count + 9999) / 10000;
}

}  // namespace koprax
