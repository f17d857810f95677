#include "cell/cell_model.h"

#include <gtest/gtest.h>

#include <limits>

#include "cell/known_cell.h"

namespace koprax {
namespace {

TEST(CellModel, KnowsTheSystemsByFourLetters) {
  for (const char* name : {"  Cubic", "Cubi"}) EXPECT_EQ(CrystalSystemOf(name), CrystalSystems::Cubic);
  for (const char* name : {"cubic", "Cub", ""}) EXPECT_EQ(CrystalSystemOf(name), CrystalSystems::None);
}

TEST(CellModel, TellsCells) {
  const float none = std::numeric_limits<float>::quiet_NaN();
  const float infinite = std::numeric_limits<float>::infinity();
  for (const CellNumbers& cell :
       {CellNumbers{0, 5, 6, 7, 0, 0, 0}, CellNumbers{0, 5, 6, 7, 0.7F, 0.6F, 0.5F},
        CellNumbers{0, 1E-9F, 1E9F, 1, 0, 0, 0}, CellNumbers{0, 5, 5, 7, 0, 0, -0.999F}}) {
    EXPECT_TRUE(IsCell(cell)) << cell[1] << " " << cell[4];
  }
  for (const CellNumbers& cell :
       {CellNumbers{}, CellNumbers{0, 5, 0, 7, 0, 0, 0}, CellNumbers{0, 5, -6, 7, 0, 0, 0},
        CellNumbers{0, 5, 6, infinite, 0, 0, 0}, CellNumbers{0, none, 6, 7, 0, 0, 0},
        CellNumbers{0, 5, 6, 7, 0, 1, 0}, CellNumbers{0, 5, 6, 7, -1, 0, 0},
        CellNumbers{0, 5, 6, 7, 0, 0, none},
        CellNumbers{0, 5, 6, 7, 0.9F, 0.9F, -0.9F},    // angles that enclose nothing
        CellNumbers{0, 5, 6, 7, -0.5F, -0.5F, -0.5F},  // and three axes in a plane
        CellNumbers{0, 1E-30F, 1E-30F, 1E-30F, 0, 0, 0}, CellNumbers{0, 1E30F, 1E30F, 1E30F, 0, 0, 0}}) {
    EXPECT_FALSE(IsCell(cell)) << cell[1] << " " << cell[4];
  }
}

// Each number is stored in 32 bits after a few steps; what is left of the volume, W, divides their rounding.
// Cells with W above 0.1 keep 1E-05 of each length and cosine, and of Q.
TEST(CellModel, AgreesWithTheMetricTensor) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> length(2, 30);
  std::uniform_real_distribution<float> cosine(-0.7F, 0.7F);
  std::uniform_int_distribution<int> index(-9, 9);
  int cells = 0;
  for (int run = 0; run < 2000; ++run) {
    CellModel cell{.CellLambda = 0.7F};
    for (std::size_t k = 1; k <= 3; ++k) cell.CellDirect[k] = length(random);
    for (std::size_t k = 4; k <= 6; ++k) cell.CellDirect[k] = cosine(random);
    if (!(VolumeFactorOf(cell.CellDirect) > 0.1F)) continue;
    ++cells;
    ASSERT_TRUE(IsCell(cell.CellDirect));
    WideCell direct{};
    std::ranges::copy(cell.CellDirect, direct.begin());
    const WideCell recip = PlainReciprocal(direct);
    CellConvert(cell.CellDirect, cell.CellRecip, CellConversion::Reciprocal);
    CellConvert(cell.CellRecip, cell.CellQuad, CellConversion::QuadraticForm);
    CellNumbers back = cell.CellRecip;
    CellConvert(back, back, CellConversion::Reciprocal);
    EXPECT_NEAR(VolumeOf(cell.CellDirect) / PlainVolume(direct), 1, 1E-5);
    for (std::size_t k = 1; k <= 6; ++k) {
      const double scale = k <= 3 ? recip[k] : 1;
      EXPECT_NEAR(cell.CellRecip[k] / scale, recip[k] / scale, 1E-5);
      EXPECT_NEAR(back[k] / (k <= 3 ? direct[k] : 1), direct[k] / (k <= 3 ? direct[k] : 1), 1E-4) << k;
    }
    const Indices hkl{static_cast<float>(index(random)), static_cast<float>(index(random)), 1.5F};
    const double q = PlainQ(recip, hkl.H, hkl.K, hkl.L);
    EXPECT_NEAR(QuadraticFormOf(cell.CellQuad, hkl) / q, 1, 1E-4);
    const double sine = 0.7 * std::sqrt(q);
    const auto two_theta = TwoThetaOf(cell, hkl);
    EXPECT_TRUE(two_theta.has_value() == (sine < 1) || std::abs(sine - 1) < 1E-4);
    // At grazing cosines the arc is steep.
    if (sine < 0.99) {
      EXPECT_NEAR(two_theta.value_or(0), 2 * std::asin(sine) / Degree, 0.01);
    }
  }
  EXPECT_GT(cells, 1000);
}

TEST(CellModel, ReachesAsFarAsTheWavelength) {
  // A cubic cell with a = 2: sin theta of (h 0 0) is lambda h / 4.
  CellModel cell = KnownCell{CrystalSystems::Cubic, {0, 2, 2, 2, 90, 90, 90}}.Model(4);
  EXPECT_EQ(TwoThetaOf(cell, {1, 0, 0}), 180.0F);
  EXPECT_EQ(TwoThetaOf(cell, {0, 0, 0}), 0.0F);
  EXPECT_NEAR(TwoThetaOf(cell, {0, 0.5F, 0}).value_or(0), 60, 1E-5);
  EXPECT_FALSE(TwoThetaOf(cell, {1.001F, 0, 0}));
}

}  // namespace
}  // namespace koprax
