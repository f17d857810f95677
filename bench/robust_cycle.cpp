// How long the three smoothing passes of one background cycle take over 8000 points with a window of 300,
// against the plain loops, which work in place and so keep a running copy of the window, in each width of
// vectors that the processor has.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>

#include "each_width.h"
#include "manipulation/robust_background.h"

namespace koprax {
namespace {

constexpr int Window = 300;

PointTable SampleCurve() {
  PointTable padded(PaddedYBound + 1);
  std::uint32_t seed = 1;
  for (float& value : padded) {
    seed = seed * 1664525 + 1013904223;
    value = 100 + static_cast<float>(seed >> 20U) / 16;
  }
  return padded;
}

/// One pass in place: the running copy holds the values of the pass before around the point at work.
void PlainPass(PointTable& padded, int count, int window) {
  const int half = window / 2;
  const int nearest = half < 10 ? half - 3 : 10;
  std::array<float, 401> running{};
  for (int k = 1; k <= window + 1; ++k) running[k] = padded[k];
  for (int i = half + 1; i <= half + count; ++i) {
    double sum = 0;
    double pairs = 0;
    for (int j = nearest; j <= half; ++j) {
      if (j < 1) continue;
      const float pair = running[half + 1 - j] + running[half + 1 + j];
      sum += static_cast<double>(pair);
      pairs += 1;
    }
    padded[i] = static_cast<float>(sum / (2 * pairs));
    if (i == half + count) break;
    for (int k = 1; k <= window; ++k) running[k] = running[k + 1];
    running[window + 1] = padded[i + half + 1];
  }
}

void SmoothPlainly(PointTable& padded) {
  for (int pass = 0; pass < 3; ++pass) PlainPass(padded, MaxPoints, Window);
}

void PlainCycle(benchmark::State& state) {
  PointTable padded = SampleCurve();
  for (auto _ : state) {
    SmoothPlainly(padded);
    benchmark::DoNotOptimize(padded.data());
  }
}

void FastCycle(benchmark::State& state, VectorWidth width) {
  PointTable padded = SampleCurve();
  for (auto _ : state) {
    SmoothThreeTimes(padded, MaxPoints, Window, width);
    benchmark::DoNotOptimize(padded.data());
  }
  PointTable fast = SampleCurve();
  PointTable plain = fast;
  SmoothThreeTimes(fast, MaxPoints, Window, width);
  SmoothPlainly(plain);
  if (fast != plain) state.SkipWithError("the two ways differ");
}

}  // namespace
}  // namespace koprax

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::RegisterBenchmark("CyclePlainly", koprax::PlainCycle)->Unit(benchmark::kMillisecond);
  koprax::RegisterInEachWidth("Cycle", koprax::FastCycle);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
