#include "manipulation/fourier_blocks.h"

#include <cstddef>

#include "workspace/vector_types.h"

namespace koprax {

namespace {

/// The coefficients of a stretch as they are seen from the centre of a block.
struct TurnedCoefficients {
  StretchNumbers Re;
  StretchNumbers Im;
};

template <class Vectors>
[[gnu::always_inline]] inline void TurnToCentre(const Stretch& stretch, const CentreTurns& centre,
                                                TurnedCoefficients& turned) {
  using Doubles = typename Vectors::Doubles;
  for (std::size_t k = 0; k < StretchLength; k += Vectors::Lanes) {
    Doubles cos_on;
    Doubles sin_on;
    Doubles re;
    Doubles im;
    Load(&centre.Cos[k], cos_on);
    Load(&centre.Sin[k], sin_on);
    Load(&stretch.Re[k], re);
    Load(&stretch.Im[k], im);
    const Doubles cos = centre.FirstCos * cos_on - centre.FirstSin * sin_on;
    const Doubles sin = centre.FirstSin * cos_on + centre.FirstCos * sin_on;
    Store(cos * re - sin * im, &turned.Re[k]);
    Store(sin * re + cos * im, &turned.Im[k]);
  }
}

/// How many pairs of vectors are summed side by side: enough to fill the time that one sum takes, few enough
/// for the registers.
constexpr std::size_t PairsInHand = 4;

/// Leaves 24 bits of a number x: with far = x Splitter, far + (x - far) is x rounded to 32 bits, a half to
/// the even neighbour (G. W. Veltkamp; T. J. Dekker, Numer. Math. 18 (1971) 224), as long as x is in the
/// range of normal 32-bit numbers. Going there and back by conversions takes longer.
constexpr double Splitter = (1 << 29) + 1;

/// The sums of both sides of a block at as many distances as a vector has lanes.
template <class Vectors>
struct PairOfSums {
  using Doubles = typename Vectors::Doubles;

  Doubles Below;
  Doubles Above;

  [[gnu::always_inline]] void Take(const BlockSums& block, std::size_t first) {
    Load(&block.Below[first], Below);
    Load(&block.Above[first], Above);
  }

  [[gnu::always_inline]] void Put(BlockSums& block, std::size_t first) const {
    Store(Below, &block.Below[first]);
    Store(Above, &block.Above[first]);
  }

  [[gnu::always_inline]] void Add(const TurnedCoefficients& turned, std::size_t k, const DistanceTurns& turns,
                                  std::size_t first) {
    Doubles cos;
    Doubles sin;
    Load(&turns.Cos[first], cos);
    Load(&turns.Sin[first], sin);
    const Doubles even = turned.Re[k] * cos;
    const Doubles odd = turned.Im[k] * sin;
    const Doubles below = Below + (even + odd);
    const Doubles above = Above + (even - odd);
    const Doubles far_below = below * Splitter;
    const Doubles far_above = above * Splitter;
    Below = far_below + (below - far_below);
    Above = far_above + (above - far_above);
  }
};

/// Adds to the distances from `first` on of as many blocks as fit in hand.
template <class Vectors, std::size_t Blocks>
[[gnu::always_inline]] inline void AddToPairs(const Stretch& stretch, const TurnedCoefficients* turned,
                                              std::size_t first, BlockSums* blocks) {
  constexpr std::size_t Pairs = PairsInHand / Blocks;
  PairOfSums<Vectors> sums[Blocks][Pairs];
  for (std::size_t b = 0; b < Blocks; ++b) {
    for (std::size_t p = 0; p < Pairs; ++p) sums[b][p].Take(blocks[b], first + p * Vectors::Lanes);
  }
  for (std::size_t k = 0; k < StretchLength; ++k) {
#pragma GCC unroll 4
    for (std::size_t p = 0; p < Pairs; ++p) {
#pragma GCC unroll 4
      for (std::size_t b = 0; b < Blocks; ++b) {
        sums[b][p].Add(turned[b], k, stretch.Turns[k], first + p * Vectors::Lanes);
      }
    }
  }
  for (std::size_t b = 0; b < Blocks; ++b) {
    for (std::size_t p = 0; p < Pairs; ++p) sums[b][p].Put(blocks[b], first + p * Vectors::Lanes);
  }
}

template <class Vectors, std::size_t Blocks>
[[gnu::always_inline]] inline void AddStretchBy(const Stretch& stretch,
                                                const std::vector<CentreTurns>& centres,
                                                std::vector<BlockSums>& blocks) {
  constexpr std::size_t DistancesInHand = PairsInHand / Blocks * Vectors::Lanes;
  TurnedCoefficients turned[Blocks];
  for (std::size_t n = 0; n < blocks.size(); n += Blocks) {
    for (std::size_t b = 0; b < Blocks; ++b) TurnToCentre<Vectors>(stretch, centres[n + b], turned[b]);
    for (std::size_t first = 0; first < Distances; first += DistancesInHand) {
      AddToPairs<Vectors, Blocks>(stretch, turned, first, &blocks[n]);
    }
  }
}

#ifdef __x86_64__
__attribute__((target("avx2"))) void AddStretchAvx2(const Stretch& stretch,
                                                    const std::vector<CentreTurns>& centres,
                                                    std::vector<BlockSums>& blocks) {
  AddStretchBy<Vectors32, 1>(stretch, centres, blocks);
}

__attribute__((target("avx512f"))) void AddStretchAvx512(const Stretch& stretch,
                                                         const std::vector<CentreTurns>& centres,
                                                         std::vector<BlockSums>& blocks) {
  AddStretchBy<Vectors64, BlocksInStep>(stretch, centres, blocks);
}
#endif

}  // namespace

void AddStretch(VectorWidth width, const Stretch& stretch, const std::vector<CentreTurns>& centres,
                std::vector<BlockSums>& blocks) {
#ifdef __x86_64__
  if (width == VectorWidth::Avx512) return AddStretchAvx512(stretch, centres, blocks);
  if (width == VectorWidth::Avx2) return AddStretchAvx2(stretch, centres, blocks);
#else
  static_cast<void>(width);
#endif
  AddStretchBy<Vectors16, 1>(stretch, centres, blocks);
}

}  // namespace koprax
