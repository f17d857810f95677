// The Fourier transform of 8000 points and the way back, against the direct loops with a sine and a cosine
// for every point and every coefficient. The ways back give the same bits.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "manipulation/fourier_transform.h"

namespace {

using namespace koprax;

constexpr std::size_t Count = MaxPoints;
constexpr std::size_t Highest = MaxPoints / 2 + 1;
constexpr float Step = 6.2831855F / static_cast<float>(Count);

void TellNobody(int /*reached*/) {}

PointTable Profile() {
  PointTable y(Count + 1);
  unsigned noise = 1;
  for (std::size_t j = 1; j <= Count; ++j) {
    noise = noise * 1664525U + 1013904223U;
    const double from_peak = (static_cast<double>(j) - 2600) / 15;
    y[j] = static_cast<float>(120 + (noise >> 27U) + 5000 / (1 + from_peak * from_peak));
  }
  return y;
}

struct Coefficients {
  CoefficientTable Re = CoefficientTable(Count + 1);
  CoefficientTable Im = CoefficientTable(Count + 1);
};

Coefficients CoefficientsOfProfile() {
  Coefficients x;
  ForwardDft(Profile(), Count, Step, Highest, x.Re, x.Im, TellNobody);
  for (std::size_t k = 1; k <= Highest; ++k) {
    x.Re[k] /= Count;
    x.Im[k] /= Count;
  }
  return x;
}

void TransformDirectly(const PointTable& y, CoefficientTable& re, CoefficientTable& im) {
  for (std::size_t k = 1; k <= Highest; ++k) {
    re[k] = im[k] = 0;
    for (std::size_t j = 1; j <= Count; ++j) {
      const double a = static_cast<double>((j - 1) * (k - 1)) * Step;
      re[k] += y[j] * std::cos(a);
      im[k] += y[j] * -std::sin(a);
    }
  }
}

void TransformBackDirectly(const CoefficientTable& re, const CoefficientTable& im, PointTable& y) {
  for (std::size_t j = 1; j <= Count; ++j) {
    y[j] = static_cast<float>(re[1]);
    for (std::size_t k = 2; k <= Highest; ++k) {
      const double a = static_cast<double>((j - 1) * (k - 1)) * Step;
      const double c = std::cos(a);
      const double d = -std::sin(a);
      y[j] = static_cast<float>(y[j] + 2 * c * re[k] + 2 * d * im[k]);
    }
  }
}

void BothWaysDirectly(benchmark::State& state) {
  const PointTable profile = Profile();
  const Coefficients normalised = CoefficientsOfProfile();
  Coefficients x;
  PointTable y(Count + 1);
  for (auto _ : state) {
    TransformDirectly(profile, x.Re, x.Im);
    TransformBackDirectly(normalised.Re, normalised.Im, y);
    benchmark::DoNotOptimize(x.Re.data());
    benchmark::DoNotOptimize(y.data());
  }
}
BENCHMARK(BothWaysDirectly)->Unit(benchmark::kMillisecond);

/// The transform and the way back, whose points are compared with those of the direct loop.
void BothWays(benchmark::State& state, VectorWidth width) {
  if (std::ranges::count(VectorWidths(), width) == 0) {
    return state.SkipWithError("not on this processor");
  }
  const PointTable profile = Profile();
  const Coefficients normalised = CoefficientsOfProfile();
  Coefficients x;
  PointTable y(Count + 1);
  for (auto _ : state) {
    ForwardDft(profile, Count, Step, Highest, x.Re, x.Im, TellNobody, width);
    InverseDft(normalised.Re, normalised.Im, Highest, Step, Count, y, TellNobody, width);
    benchmark::DoNotOptimize(x.Re.data());
    benchmark::DoNotOptimize(y.data());
  }
  PointTable plain(Count + 1);
  TransformBackDirectly(normalised.Re, normalised.Im, plain);
  if (y != plain) state.SkipWithError("the two ways differ");
}

BENCHMARK_CAPTURE(BothWays, Baseline, VectorWidth::Baseline)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BothWays, Avx2, VectorWidth::Avx2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BothWays, Avx512, VectorWidth::Avx512)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
