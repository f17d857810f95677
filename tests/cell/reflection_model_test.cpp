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

/// The reciprocal numbers that are moved together, for each parameter behind the zero shift.
const std::vector<std::vector<std::vector<std::size_t>>> Moved{{},
                                                               {{1}, {2}, {3}, {4}, {5}, {6}},
                                                               {{1}, {2}, {3}, {5}},
                                                               {{1}, {2}, {3}},
                                                               {{1, 2}, {3}},
                                                               {{1, 2}, {3}},
                                                               {{1, 2, 3}}};

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
    for (const auto& hkl : {std::array{1.0F, 0.0F, 0.0F},
                            {0, 1, 0},
                            {0, 0, 1},
                            {1, 1, 0},
                            {1, -1, 1},
                            {-2, 1, 1},
                            {0, -1, 2}}) {
      const Indices indices{hkl[0], hkl[1], hkl[2]};
      const float zero = shift(random);
      const ReflectionModel model = ModelOf(cell, indices, 40, zero);
      EXPECT_NEAR(model.Computed, PlainModel(recip, hkl, lambda, zero), 2E-7);
      EXPECT_NEAR(model.Residual() + model.Computed, std::pow(std::sin(20 * Degree) / lambda, 2), 1E-7);
      const CellParameters slopes = DerivativesOf(cell, indices, model);
      const auto slope_along = [&](const WideCell& way, double way_of_zero) {
        const double step = 1E-6;
        WideCell after = recip;
        WideCell before = recip;
        for (std::size_t i = 1; i <= 6; ++i) {
          after[i] += step * way[i];
          before[i] -= step * way[i];
        }
        return (PlainModel(after, hkl, lambda, zero + step * way_of_zero) -
                PlainModel(before, hkl, lambda, zero - step * way_of_zero)) /
               (2 * step);
      };
      EXPECT_NEAR(slopes[1], slope_along({}, 1), 1E-6);
      const auto& moved = Moved[static_cast<std::size_t>(known.System)];
      ASSERT_EQ(ParameterCountOf(known.System), moved.size() + 1);
      for (std::size_t p = 0; p < moved.size(); ++p) {
        WideCell way{};
        for (const std::size_t i : moved[p]) way[i] = 1;
        EXPECT_NEAR(slopes[p + 2], slope_along(way, 0), 1E-5) << p + 2;
      }
    }
  }
}

TEST(ReflectionModel, TellsWhatLiesAtTheEndOfTheReachAndBeyond) {
  const CellModel cell = KnownCell{CrystalSystems::Cubic, {0, 2, 2, 2, 90, 90, 90}}.Model(2);
  const ReflectionModel last = ModelOf(cell, {2, 0, 0}, 180, 0);
  EXPECT_EQ(last.C2, 0);
  EXPECT_FLOAT_EQ(last.Theta, 1.5707963F);
  EXPECT_FLOAT_EQ(last.Computed, 0.25F);
  EXPECT_LT(ModelOf(cell, {2, 1, 0}, 180, 0).C2, 0);
}

}  // namespace
}  // namespace koprax
