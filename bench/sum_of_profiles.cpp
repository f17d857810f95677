// The sum of two profiles of 8000 points whose points don't meet, against the plain double loop that holds
// every point of the first against every pair of neighbours of the second. Both ways give the same bits.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>

#include "display/profile_sum.h"

namespace {

using namespace koprax;

void FillBuffer(ProfileBuffer& buffer, double start, double step) {
  buffer.PermNpts = buffer.WorkNpts = MaxPoints;
  buffer.XStep = static_cast<float>(step);
  for (std::size_t i = 1; i <= MaxPoints; ++i) {
    const double x = start + step * static_cast<double>(i - 1);
    buffer.WorkX[i] = static_cast<float>(x);
    buffer.WorkY[i] = static_cast<float>(500 + 400 * std::sin(x));
  }
  buffer.PermXMin = buffer.WorkX[1];
  buffer.PermXMax = buffer.WorkX[MaxPoints];
  buffer.PermYMax = 900;
}

void FillBoth(Workspace& data) {
  FillBuffer(data.Buffer(1), 4, 0.009);  // some points lie before the second, or the result would be too long
  FillBuffer(data.Buffer(2), 4.9, 0.0091);
}

void SumPlainly(const ProfileBuffer& y1, const ProfileBuffer& y2, ComputedProfile& sum) {
  std::size_t n = 0;
  for (std::size_t i = 1; i <= MaxPoints; ++i) {
    const float x = y1.WorkX[i];
    for (std::size_t j = 1; j < MaxPoints; ++j) {
      const float xa = y2.WorkX[j];
      const float xb = y2.WorkX[j + 1];
      if (xa <= x && x <= xb && n < MaxPoints) {
        const float y = y2.WorkY[j] + (x - xa) / (xb - xa) * (y2.WorkY[j + 1] - y2.WorkY[j]);
        ++n;
        sum.SumX[n] = x;
        sum.SumY[n] = y1.WorkY[i] + y;
      }
    }
  }
  sum.SumNpts = static_cast<float>(n);
}

void PlainDoubleLoop(benchmark::State& state) {
  Workspace data;
  FillBoth(data);
  for (auto _ : state) {
    SumPlainly(data.Buffer(1), data.Buffer(2), data.Sum);
    benchmark::DoNotOptimize(data.Sum.SumY.data());
  }
}
BENCHMARK(PlainDoubleLoop)->Unit(benchmark::kMicrosecond);

void SumOfProfiles(benchmark::State& state) {
  Workspace data;
  FillBoth(data);
  for (auto _ : state) {
    benchmark::DoNotOptimize(CombineProfiles(data, {1, 2}, TwoProfileOperation::Sum));
  }
  ComputedProfile plain;
  SumPlainly(data.Buffer(1), data.Buffer(2), plain);
  if (plain.SumNpts != data.Sum.SumNpts || plain.SumX != data.Sum.SumX || plain.SumY != data.Sum.SumY) {
    state.SkipWithError("the two ways differ");
  }
}
BENCHMARK(SumOfProfiles)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
