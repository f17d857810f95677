// The Fourier transform of 8000 points and the way back, in each width of vectors that the processor has,
// against the direct loops with a sine and a cosine for every point and every coefficient. Coefficients and
// points are compared: those may differ by the rounding of 64-bit sums, of these one in ten thousand by its
// last bit.
#include <benchmark/benchmark.h>

#include <cstddef>

#include "each_width.h"
#include "manipulation/fourier_transform.h"
#include "manipulation/plain_fourier.h"

namespace koprax {
namespace {

constexpr int Count = MaxPoints;
constexpr int Highest = MaxPoints / 2 + 1;
constexpr float Step = 6.2831855F / static_cast<float>(Count);

void TellNobody(int /*reached*/) {}

PointTable Profile() {
  PointTable y(MaxPoints + 1);
  unsigned noise = 1;
  for (std::size_t j = 1; j <= Count; ++j) {
    noise = noise * 1664525U + 1013904223U;
    const double from_peak = (static_cast<double>(j) - 2600) / 15;
    y[j] = static_cast<float>(120 + (noise >> 27U) + 5000 / (1 + from_peak * from_peak));
  }
  return y;
}

/// What a way back starts from: the coefficients, divided by the number of points.
Coefficients CoefficientsOfProfile() {
  Coefficients x;
  ForwardDft(Profile(), Count, Step, Highest, x.Re, x.Im, TellNobody);
  for (double& re : x.Re) re /= Count;
  for (double& im : x.Im) im /= Count;
  return x;
}

void BothWaysDirectly(benchmark::State& state) {
  const PointTable profile = Profile();
  const Coefficients normalised = CoefficientsOfProfile();
  Coefficients x;
  PointTable y(MaxPoints + 1);
  for (auto _ : state) {
    SumForward(profile, Count, Step, Highest, x);
    SumBack(normalised, Highest, Step, Count, y);
    benchmark::DoNotOptimize(x.Re.data());
    benchmark::DoNotOptimize(y.data());
  }
}

void BothWays(benchmark::State& state, VectorWidth width) {
  const PointTable profile = Profile();
  const Coefficients normalised = CoefficientsOfProfile();
  Coefficients x;
  PointTable y(MaxPoints + 1);
  for (auto _ : state) {
    ForwardDft(profile, Count, Step, Highest, x.Re, x.Im, TellNobody, width);
    InverseDft(normalised.Re, normalised.Im, Highest, Step, Count, y, TellNobody, width);
    benchmark::DoNotOptimize(x.Re.data());
    benchmark::DoNotOptimize(y.data());
  }
  Coefficients plain;
  PointTable plain_back(MaxPoints + 1);
  SumForward(profile, Count, Step, Highest, plain);
  SumBack(normalised, Highest, Step, Count, plain_back);
  if (FirstOtherCoefficient(x, plain, Highest) != 0) state.SkipWithError("the coefficients differ");
  if (!NearlyAllPointsAreTheSame(y, plain_back, Count)) state.SkipWithError("the ways back differ");
}

}  // namespace
}  // namespace koprax

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::RegisterBenchmark("BothWaysDirectly", koprax::BothWaysDirectly)->Unit(benchmark::kMillisecond);
  koprax::RegisterInEachWidth("BothWays", koprax::BothWays);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
