#include "manipulation/robust_pass.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

namespace koprax {
namespace {

/// Neighbouring positions side by side: a register of their pairs, and two registers of their sums.
template <std::size_t Half>
struct Lanes {
  // An alias with `using` loses the attribute where the size is a template's.
  typedef float Pairs __attribute__((vector_size(2 * Half * sizeof(float))));
  typedef double Sums __attribute__((vector_size(Half * sizeof(double))));
  Sums Low;
  Sums High;
};

/// Registers of pairs in hand at a time, so that the adders don't wait for each other.
constexpr std::size_t Registers = 4;

template <std::size_t Half>
constexpr int BlockSize = static_cast<int>(2 * Half * Registers);

// All below is compiled into its callers, down to those that say for which processor they are built. The
// lanes are named one by one: that is what both compilers turn into a conversion of whole registers.

template <std::size_t Half, std::size_t... Lane>
[[gnu::always_inline]] inline void AddPairs(const float* low_side, const float* high_side, Lanes<Half>& sums,
                                            std::index_sequence<Lane...>) {
  typename Lanes<Half>::Pairs pairs{};
  typename Lanes<Half>::Pairs other{};
  std::memcpy(&pairs, low_side, sizeof pairs);
  std::memcpy(&other, high_side, sizeof other);
  pairs += other;
  sums.Low += typename Lanes<Half>::Sums{static_cast<double>(pairs[Lane])...};
  sums.High += typename Lanes<Half>::Sums{static_cast<double>(pairs[Half + Lane])...};
}

template <std::size_t Half, std::size_t... Lane>
[[gnu::always_inline]] inline void PutMeans(const Lanes<Half>& sums, double values, float* means,
                                            std::index_sequence<Lane...>) {
  const typename Lanes<Half>::Sums low = sums.Low / values;
  const typename Lanes<Half>::Sums high = sums.High / values;
  ((means[Lane] = static_cast<float>(low[Lane])), ...);
  ((means[Half + Lane] = static_cast<float>(high[Lane])), ...);
}

/// How many values a mean is taken of.
double ValuesOf(const MeanWithHole& mean) { return 2.0 * (mean.Farthest - mean.Nearest + 1); }

/// The means of a block of positions, `before` and `after` pointing to its first one.
template <std::size_t Half, std::size_t... Register>
[[gnu::always_inline]] inline void TakeBlock(const MeanWithHole& mean, const float* before, float* after,
                                             std::index_sequence<Register...>) {
  constexpr std::make_index_sequence<Half> lanes;
  std::array<Lanes<Half>, Registers> sums{};
  for (int j = mean.Nearest; j <= mean.Farthest; ++j) {
    (AddPairs(before - j + 2 * Half * Register, before + j + 2 * Half * Register, sums[Register], lanes),
     ...);
  }
  const double values = ValuesOf(mean);
  (PutMeans(sums[Register], values, after + 2 * Half * Register, lanes), ...);
}

void TakeOne(const MeanWithHole& mean, const float* before, float* after) {
  double sum = 0;
  for (int j = mean.Nearest; j <= mean.Farthest; ++j) sum += static_cast<double>(before[-j] + before[j]);
  *after = static_cast<float>(sum / ValuesOf(mean));
}

/// The last block reaches back over the one before it, which does no harm: no mean enters another one.
template <std::size_t Half>
[[gnu::always_inline]] inline void TakeAll(const MeanWithHole& mean, const float* before, float* after) {
  constexpr int size = BlockSize<Half>;
  constexpr std::make_index_sequence<Registers> registers;
  if (mean.Last - mean.First + 1 < size) {
    for (int i = mean.First; i <= mean.Last; ++i) TakeOne(mean, before + i, after + i);
    return;
  }
  for (int i = mean.First; i + size <= mean.Last; i += size) {
    TakeBlock<Half>(mean, before + i, after + i, registers);
  }
  const int last_block = mean.Last - size + 1;
  TakeBlock<Half>(mean, before + last_block, after + last_block, registers);
}

#ifdef __x86_64__
__attribute__((target("avx2"))) void TakeAllAvx2(const MeanWithHole& mean, const float* before,
                                                 float* after) {
  TakeAll<4>(mean, before, after);
}

__attribute__((target("avx512f"))) void TakeAllAvx512(const MeanWithHole& mean, const float* before,
                                                      float* after) {
  TakeAll<8>(mean, before, after);
}
#endif

}  // namespace

void TakeMeans(const MeanWithHole& mean, const PointTable& before, PointTable& after, VectorWidth width) {
#ifdef __x86_64__
  if (width == VectorWidth::Avx512) return TakeAllAvx512(mean, before.data(), after.data());
  if (width == VectorWidth::Avx2) return TakeAllAvx2(mean, before.data(), after.data());
#else
  static_cast<void>(width);
#endif
  TakeAll<2>(mean, before.data(), after.data());
}

}  // namespace koprax
