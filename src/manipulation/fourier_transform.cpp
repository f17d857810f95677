#include "manipulation/fourier_transform.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <functional>

#include "manipulation/fast_convolution.h"
#include "manipulation/fourier_blocks.h"
#include "manipulation/phase_table.h"

namespace koprax {

namespace {

/// Progress is told at each of these.
constexpr int ToldEvery = 20;

/// exp(i m^2 step / 2) for m = 0 to count - 1. With m = 64 a + b that is a turn by (64 a)^2, one by 128 a b
/// and one by b^2 half steps, which saves nearly all of the sines.
std::vector<Turn> Chirp(std::size_t count, double step) {
  constexpr std::size_t Row = 64;
  const PhaseTable squares(step / 2, (Row - 1) * (Row - 1));
  const PhaseTable products(step * Row, count);
  std::vector<Turn> chirp(count);
  for (std::size_t a = 0; a * Row < count; ++a) {
    const double angle = static_cast<double>(a * a * Row * Row) * (step / 2);
    const Turn row = {.Cos = std::cos(angle), .Sin = std::sin(angle)};
    for (std::size_t b = 0; b < Row && a * Row + b < count; ++b) {
      chirp[a * Row + b] = Join(row, Join(products.At(a * b), squares.At(b * b)));
    }
  }
  return chirp;
}

/// The profile, each point turned back by its chirp.
ComplexTable ChirpedProfile(const PointTable& y, std::size_t count, const std::vector<Turn>& chirp,
                            std::size_t size) {
  ComplexTable profile(size);
  for (std::size_t m = 0; m < count; ++m) {
    const double value = y[m + 1];
    profile.Re[m] = value * chirp[m].Cos;
    profile.Im[m] = -value * chirp[m].Sin;
  }
  return profile;
}

/// The chirp from -(count - 1) to highest - 1, the negative ones at the end of the circle.
ComplexTable ChirpOnCircle(std::size_t count, std::size_t highest, const std::vector<Turn>& chirp,
                           std::size_t size) {
  ComplexTable circle(size);
  const auto put = [&](std::size_t place, std::size_t m) {
    circle.Re[place] = chirp[m].Cos;
    circle.Im[place] = chirp[m].Sin;
  };
  for (std::size_t m = 0; m < highest; ++m) put(m, m);
  for (std::size_t m = 1; m < count; ++m) put(size - m, m);
  return circle;
}

/// Blocks that are finished together, so that a stretch of coefficients is fetched once for all of them.
constexpr std::size_t BlocksInGroup = 8;

/// The coefficients in stretches, with the factors of their sum. What is beyond the highest is 0.
std::vector<Stretch> Stretches(const CoefficientTable& re, const CoefficientTable& im, std::size_t highest,
                               const PhaseTable& half_steps) {
  std::vector<Stretch> stretches((highest + StretchLength - 1) / StretchLength);
  for (std::size_t k = 0; k < stretches.size() * StretchLength; ++k) {
    Stretch& stretch = stretches[k / StretchLength];
    const std::size_t i = k % StretchLength;
    const bool is_there = k < highest;
    stretch.Re[i] = is_there ? (k == 0 ? 1 : 2) * re[k + 1] : 0;
    stretch.Im[i] = is_there && k > 0 ? 2 * im[k + 1] : 0;
    for (std::size_t l = 0; l < Distances; ++l) {
      const Turn turn = half_steps.At((2 * l + 1) * k);
      stretch.Turns[i].Cos[l] = turn.Cos;
      stretch.Turns[i].Sin[l] = turn.Sin;
    }
  }
  return stretches;
}

/// Twice the distance of the centre of a block from the first point, which is half a point off the grid.
std::size_t TwiceCentre(std::size_t block) { return 2 * BlockPoints * block + BlockPoints - 1; }

/// The sums of any group of blocks from one set of coefficients.
class GroupSums {
 public:
  GroupSums(const CoefficientTable& re, const CoefficientTable& im, std::size_t highest, float step,
            std::size_t count, VectorWidth width)
      : farthest_(TwiceCentre(count / BlockPoints + BlocksInGroup)),
        half_steps_(step / 2.0, std::max(farthest_ * StretchLength, BlockPoints * (highest + StretchLength))),
        half_stretches_(step / 2.0 * StretchLength, farthest_ * (highest / StretchLength + 1)),
        stretches_(Stretches(re, im, highest, half_steps_)),
        width_(width) {}

  [[nodiscard]] std::vector<BlockSums> Of(std::size_t first_block) const {
    std::vector<CentreTurns> centres = CentresFrom(first_block);
    std::vector<BlockSums> sums(BlocksInGroup);
    for (std::size_t s = 0; s < stretches_.size(); ++s) {
      for (std::size_t b = 0; b < BlocksInGroup; ++b) {
        const Turn turn = half_stretches_.At(TwiceCentre(first_block + b) * s);
        centres[b].FirstCos = turn.Cos;
        centres[b].FirstSin = turn.Sin;
      }
      AddStretch(width_, stretches_[s], centres, sums);
    }
    return sums;
  }

 private:
  /// The turns of the centres from the first coefficient of any stretch on.
  [[nodiscard]] std::vector<CentreTurns> CentresFrom(std::size_t first_block) const {
    std::vector<CentreTurns> centres(BlocksInGroup);
    for (std::size_t b = 0; b < BlocksInGroup; ++b) {
      for (std::size_t i = 0; i < StretchLength; ++i) {
        const Turn turn = half_steps_.At(TwiceCentre(first_block + b) * i);
        centres[b].Cos[i] = turn.Cos;
        centres[b].Sin[i] = turn.Sin;
      }
    }
    return centres;
  }

  std::size_t farthest_;
  PhaseTable half_steps_;      ///< multiples of half a step
  PhaseTable half_stretches_;  ///< of as much times the length of a stretch
  std::vector<Stretch> stretches_;
  VectorWidth width_;
};

/// Puts the sums of a block into their points, as far as there are any.
void StoreBlock(const BlockSums& sums, std::size_t block, std::size_t count, PointTable& y) {
  for (std::size_t i = 0; i < BlockPoints; ++i) {
    const std::size_t j = block * BlockPoints + i;
    if (j >= count) return;
    y[j + 1] = static_cast<float>(i < Distances ? sums.Below[Distances - 1 - i] : sums.Above[i - Distances]);
  }
}

/// The sums as they are defined. It takes long, so it tells how far it is as it goes.
void SumPlainly(const CoefficientTable& re, const CoefficientTable& im, std::size_t highest, double step,
                std::size_t count, PointTable& y, const std::function<void(std::size_t)>& tell_up_to) {
  for (std::size_t j = 0; j < count; ++j) {
    tell_up_to(j);
    float sum = 0;
    for (std::size_t k = 0; k < highest; ++k) {
      const double angle = static_cast<double>(j * k) * step;
      const double c = std::cos(angle);
      const double d = -std::sin(angle);
      sum = static_cast<float>(k == 0 ? sum + c * re[1] : sum + 2 * c * re[k + 1] + 2 * d * im[k + 1]);
    }
    y[j + 1] = sum;
  }
}

/// Whether the sums stay among the numbers that AddStretch can round: none gets too large, and all are far
/// from the smallest but those that cancel to nearly nothing, whose last bits don't matter below 2^-126.
bool FitsNormalRange(const CoefficientTable& re, const CoefficientTable& im, std::size_t highest) {
  double sum = 0;
  for (std::size_t k = 1; k <= highest; ++k) sum += 2 * (std::abs(re[k]) + std::abs(im[k]));
  return sum == 0 || (sum > 0x1p-60 && sum < 0x1p126);
}

}  // namespace

// With jk = (j^2 + k^2 - (k - j)^2) / 2 the sum is a convolution with a chirp, whatever the step.
void ForwardDft(const PointTable& y, int count, float step, int highest, CoefficientTable& re,
                CoefficientTable& im, const TellReached& tell, VectorWidth width) {
  const auto n = static_cast<std::size_t>(count);
  const auto h = static_cast<std::size_t>(highest);
  const std::size_t size = std::bit_ceil(n + h);
  const std::vector<Turn> chirp = Chirp(std::max(n, h), step);
  ComplexTable sums = ChirpedProfile(y, n, chirp, size);
  ComplexTable circle = ChirpOnCircle(n, h, chirp, size);
  Convolve(width, sums, circle);
  for (int k = 1; k <= highest; ++k) {
    if (k % ToldEvery == 0) tell(k);
    const auto m = static_cast<std::size_t>(k - 1);
    re[m + 1] = sums.Re[m] * chirp[m].Cos + sums.Im[m] * chirp[m].Sin;
    im[m + 1] = sums.Im[m] * chirp[m].Cos - sums.Re[m] * chirp[m].Sin;
  }
}

void InverseDft(const CoefficientTable& re, const CoefficientTable& im, int highest, float step, int count,
                PointTable& y, const TellReached& tell, VectorWidth width) {
  const auto n = static_cast<std::size_t>(count);
  const auto h = static_cast<std::size_t>(highest);
  int told = 0;
  const auto tell_up_to = [&](std::size_t done) {
    while (told + ToldEvery <= static_cast<int>(done)) tell(told += ToldEvery);
  };
  if (!FitsNormalRange(re, im, h)) {
    SumPlainly(re, im, h, step, n, y, tell_up_to);
    return tell_up_to(n);
  }
  const GroupSums group_sums(re, im, h, step, n, width);
  for (std::size_t first = 0; first * BlockPoints < n; first += BlocksInGroup) {
    const std::vector<BlockSums> sums = group_sums.Of(first);
    for (std::size_t b = 0; b < BlocksInGroup; ++b) StoreBlock(sums[b], first + b, n, y);
    tell_up_to(std::min(n, (first + BlocksInGroup) * BlockPoints));
  }
}

}  // namespace koprax
