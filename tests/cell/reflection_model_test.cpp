#include "cell/reflection_model.h"

#include <gtest/gtest.h>

#include "cell/known_cell.h"

namespace koprax {
namespace {

/// sin2(theta + z) / lambda2 of a reciprocal cell.
double PlainModel(const WideCell& recip, const std::array<float, 3>& hkl, double lambda, double z) {
  const double theta = std::asin(lambda * std::sqrt(PlainQ(recip, hkl[0], hkl[1], hkl[2])));
  return std::pow(std::sin(theta + z) / lambda, 2);
}

constexpr std::array<std::size_t, 6> ParameterCounts{7, 5, 4, 3, 3, 2};
const std::vector<std::array<float, 3>> Reflections{{1, 0, 0},  {0, 1, 0},  {0, 0, 1}, {1, 1, 0},
                                                    {1, -1, 1}, {-2, 1, 1}, {0, -1, 2}};

// Values and slopes are stored in 32 bits and hang on an angle and a cell that are: 1E-06 of the greatest
// term, and 1E-05 where a slope is the difference of some. 1E-06 is a step whose square is lost in neither.
TEST(ReflectionModel, FollowsTheCellAndTheZeroShift) {
  const double lambda = 1.54056F;
  std::mt19937 random(9);
  std::uniform_real_distribution<float> shift(-0.01F, 0.01F);
  for (const KnownCell& known : KnownCells) {
    const CellModel cell = known.Model(1.54056F);
    WideCell recip{};
    std::ranges::copy(cell.CellRecip, recip.begin());
    const std::size_t count = ParameterCounts[static_cast<std::size_t>(known.System) - 1];
    ASSERT_EQ(ParameterCountOf(known.System), count);
    for (const auto& hkl : Reflections) {
      const Indices indices{hkl[0], hkl[1], hkl[2]};
      const float zero = shift(random);
      const ReflectionModel model = ModelOf(cell, indices, 40, zero);
      EXPECT_NEAR(model.Computed, PlainModel(recip, hkl, lambda, zero), 2E-7);
      EXPECT_NEAR(model.Residual() + model.Computed, std::pow(std::sin(20 * Degree) / lambda, 2), 1E-7);
      const CellParameters slopes = DerivativesOf(cell, indices, model);
      for (std::size_t p = 1; p <= count; ++p) {
        const auto moved = [&](double step) {
          WideCell at = recip;
          for (std::size_t i = 1; i <= 6; ++i) at[i] += ParametersOf(known.System)[i] == p ? step : 0;
          return PlainModel(at, hkl, lambda, zero + (p == 1 ? step : 0));
        };
        EXPECT_NEAR(slopes[p], (moved(1E-6) - moved(-1E-6)) / 2E-6, p == 1 ? 1E-6 : 1E-5) << p;
      }
    }
  }
}

}  // namespace
}  // namespace koprax
