// The sums of a refinement in plain loops, one number after the other: what the fast ones have to equal bit
// for bit, and what they are measured against.
#pragma once

#include <cmath>

#include "fit/minimiser.h"

// Builds that optimise harder leave these loops at the level that they are compared at.
#if defined(__GNUC__) && !defined(__clang__)
#define KOPRAX_PLAINLY __attribute__((optimize("O2"), noinline))
#else
#define KOPRAX_PLAINLY __attribute__((noinline))
#endif

namespace koprax::plain {

KOPRAX_PLAINLY inline float Model(const PeakFit& fit, int i, const ParameterTable& a, ParameterTable& d) {
  const double width_over_g = 2 * std::sqrt(std::log(2.0));
  float y = 0;
  for (int k = 1; k <= fit.FitPeakCount; ++k) {
    const int n = 6 * (k - 1);
    for (int j = 1; j <= 6; ++j) d[n + j] = 0;
    const float dx = fit.FitX[i] - a[n + 1];
    const int side = dx < 0 ? 0 : 1;
    const float height = a[n + 2];
    float width = a[n + 3 + side];
    const float eta = a[n + 5 + side];
    if (10 * width < std::fabs(dx)) continue;
    if (width <= 0) width = 0.0001F;
    const double x = dx;
    const auto G = static_cast<float>(width / width_over_g);
    const double L = 2 / width;
    const double Z = dx / G;
    const double g = static_cast<float>(std::exp(-(Z * Z)));
    const double G2 = static_cast<double>(G) * G;
    const double q = 1 + L * L * (x * x);
    const double l = static_cast<float>(1 / q);
    const double shape = (1.0 - eta) * l + eta * g;
    y += static_cast<float>(shape * height);
    const double u = static_cast<float>(2.0 * eta * x * g / G2);
    const double w = static_cast<float>(L * L * 2 * (1.0 - eta) * x / (q * q));
    const double r = x * x * 2 * eta * height * g / (G2 * G);
    const double s = -(x * x * 2 * L * height * (1.0 - eta)) / (q * q);
    d[n + 1] = static_cast<float>((u + w) * height);
    d[n + 2] = static_cast<float>(shape);
    d[n + 3 + side] =
        static_cast<float>(r * (1 / width_over_g) - s * (2 / (static_cast<double>(width) * width)));
    d[n + 5 + side] = static_cast<float>((g - l) * height);
  }
  if (!fit.FitPolyBackground) {
    d[77] = fit.FitBackgroundY[i];
    return y + a[77] * d[77];
  }
  const double t = static_cast<double>(fit.FitX[i]) - fit.FitLine[1];
  d[73] = 1;
  d[74] = static_cast<float>(t);
  d[75] = static_cast<float>(t * t);
  d[76] = static_cast<float>(t * t * t);
  return static_cast<float>(y + (a[73] + a[74] * t + a[75] * (t * t) + a[76] * (t * t * t)));
}

KOPRAX_PLAINLY inline void Equations(const PeakFit& fit, int point_count, const ParameterTable& a,
                                     SquareTable& matrix, ParameterTable& vector, float& chi_square) {
  const int count = fit.FitListCount;
  for (int j = 1; j <= count; ++j) {
    for (int k = 1; k <= j; ++k) matrix[j][k] = 0;
    vector[j] = 0;
  }
  chi_square = 0;
  ParameterTable d{};
  for (int i = 1; i <= point_count; ++i) {
    const float dy = fit.FitY[i] - Model(fit, i, a, d);
    for (int j = 1; j <= count; ++j) {
      const float w = d[fit.FitList[j]];
      for (int k = 1; k <= j; ++k) matrix[j][k] += w * d[fit.FitList[k]];
      vector[j] += dy * w;
    }
    chi_square = static_cast<float>(chi_square + static_cast<double>(dy) * dy);
  }
  for (int j = 2; j <= count; ++j) {
    for (int k = 1; k < j; ++k) matrix[k][j] = matrix[j][k];
  }
}

/// One step of a refinement that has been opened.
KOPRAX_PLAINLY inline void Step(PeakFit& fit, int point_count, Minimiser& state) {
  const int count = fit.FitListCount;
  for (int j = 1; j <= count; ++j) {
    for (int k = 1; k <= count; ++k) state.CovarMatrix[j][k] = state.AlphaMatrix[j][k];
    state.CovarMatrix[j][j] = static_cast<float>(state.AlphaMatrix[j][j] * (state.Lambda + 1.0));
  }
  ParameterTable step = state.BetaVector;
  static_cast<void>(GaussJordan(state.CovarMatrix, step, count));
  ParameterTable trial = fit.FitParam;
  for (int j = 1; j <= count; ++j) trial[fit.FitList[j]] += step[j];
  Equations(fit, point_count, trial, state.CovarMatrix, step, state.ChiSquare);
  const bool better = state.ChiSquare < fit.FitBestChi;
  state.Lambda = static_cast<float>(state.Lambda * (better ? 0.1 : 10.0));
  if (better) {
    fit.FitBestChi = state.ChiSquare;
    fit.FitParam = trial;
    for (int j = 1; j <= count; ++j) {
      for (int k = 1; k <= count; ++k) state.AlphaMatrix[j][k] = state.CovarMatrix[j][k];
    }
    state.BetaVector = step;
  }
  state.ChiSquare = fit.FitBestChi;
}

}  // namespace koprax::plain
