// How long one step of a refinement of twelve peaks and a polynomial, 76 parameters, takes at 8000 points,
// against the plain loops, in each width of vectors that the processor has: for peaks that overlap, and for
// peaks of which most points see only one or none.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <string>

#include "each_width.h"
#include "fit/fit_parameters.h"
#include "fit/minimiser.h"
#include "fit/plain_fit.h"

namespace koprax {
namespace {

constexpr int Peaks = MaxFitPeaks;
constexpr float Step = 0.01F;
constexpr float PeakDistance = 6.5F;

void SetPeak(ParameterTable& parameters, int peak, float width) {
  const auto number = static_cast<float>(peak);
  const float position = 10.3F + PeakDistance * (number - 1);
  const float height = 500 + 40 * number;
  const float values[] = {position, height, width, width * 1.2F, 0.4F, 0.6F};
  for (int n = 1; n <= ParametersPerPeak; ++n) {
    parameters[NumberOf(peak, static_cast<PeakParameter>(n))] = values[n - 1];
  }
}

/// A profile of such peaks with some noise, and starting values beside the true ones.
PeakFit SampleFit(float width) {
  PeakFit fit;
  fit.FitPeakCount = Peaks;
  fit.FitPolyBackground = true;
  fit.FitLine[1] = 5;
  fit.FitParam[ConstantTerm] = 50;
  fit.FitParam[LinearTerm] = 0.5F;
  for (int peak = 1; peak <= Peaks; ++peak) SetPeak(fit.FitParam, peak, width);
  ParameterTable derivatives{};
  std::uint32_t seed = 1;
  for (int i = 1; i <= MaxPoints; ++i) {
    fit.FitX[i] = 5 + Step * static_cast<float>(i - 1);
    seed = seed * 1664525 + 1013904223;
    const float noise = static_cast<float>(seed >> 20U) / 200;
    fit.FitY[i] = std::round(plain::Model(fit, i, fit.FitParam, derivatives) + noise);
  }
  fit.FitPointCount = MaxPoints;
  for (int peak = 1; peak <= Peaks; ++peak) SetPeak(fit.FitParam, peak, width * 1.1F);
  fit.FitListCount = static_cast<std::int16_t>(CubicTerm);
  for (std::int16_t j = 1; j <= fit.FitListCount; ++j) fit.FitList[j] = j;
  return fit;
}

/// A refinement that has just been opened, which each round starts from.
struct Refinement {
  explicit Refinement(float width) : Fit(SampleFit(width)) {
    State.Lambda = -1;
    static_cast<void>(LmStep(Fit, MaxPoints, FitParameterCount, State));
    Start = {Fit.FitParam, Fit.FitBestChi, State};
  }
  void GoBack() {
    Fit.FitParam = Start.Parameters;
    Fit.FitBestChi = Start.BestChi;
    State = Start.State;
  }
  PeakFit Fit;
  Minimiser State;
  struct {
    ParameterTable Parameters{};
    float BestChi = 0;
    Minimiser State;
  } Start;
};

void PlainStep(benchmark::State& state, float width) {
  Refinement refinement(width);
  for (auto _ : state) {
    refinement.GoBack();
    plain::Step(refinement.Fit, MaxPoints, refinement.State);
    benchmark::DoNotOptimize(refinement.State.ChiSquare);
  }
}

void FastStep(benchmark::State& state, float width, VectorWidth vectors) {
  Refinement fast(width);
  for (auto _ : state) {
    fast.GoBack();
    static_cast<void>(LmStep(fast.Fit, MaxPoints, FitParameterCount, fast.State, vectors));
    benchmark::DoNotOptimize(fast.State.ChiSquare);
  }
  Refinement plainly(width);
  plain::Step(plainly.Fit, MaxPoints, plainly.State);
  if (fast.Fit.FitParam != plainly.Fit.FitParam || fast.State.AlphaMatrix != plainly.State.AlphaMatrix) {
    state.SkipWithError("the two ways differ");
  }
}

/// Each peak reaches 10 FWHM to either side: 100 over all points, 1.5 over a quarter of the way to the next.
void Register(const std::string& name, float width) {
  benchmark::RegisterBenchmark((name + "Plainly").c_str(), [width](benchmark::State& state) {
    PlainStep(state, width);
  })->Unit(benchmark::kMillisecond);
  for (const VectorWidth vectors : VectorWidths()) {
    benchmark::RegisterBenchmark((name + "/" + NameOf(vectors)).c_str(), [width,
                                                                          vectors](benchmark::State& state) {
      FastStep(state, width, vectors);
    })->Unit(benchmark::kMillisecond);
  }
}

}  // namespace
}  // namespace koprax

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  koprax::Register("OverlappingPeaks", 10);
  koprax::Register("SeparatePeaks", 0.15F);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
