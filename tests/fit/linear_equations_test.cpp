#include "fit/linear_equations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace koprax {
namespace {

struct System {
  SquareTable Matrix{};
  ParameterTable RightHandSide{};
};

/// Well conditioned: the diagonal outweighs the rest of its row. Row and column 0 and those behind hold
/// something too, that has to stay.
System RandomSystem(int count, std::mt19937& random) {
  std::uniform_real_distribution<float> number(-1, 1);
  System system;
  for (auto& row : system.Matrix) std::generate(row.begin(), row.end(), [&] { return number(random); });
  for (float& value : system.RightHandSide) value = number(random);
  // Each row belongs one further down, so that rows have to be exchanged, and back in the opposite order.
  for (int j = 1; j <= count; ++j) system.Matrix[j][j % count + 1] += static_cast<float>(count);
  return system;
}

// A solution in 32 bits is good to the rounding, 6E-08, times the terms of a row and the condition, which is
// about 3: 1E-05 of numbers about 1.
TEST(GaussJordan, InvertsAndSolves) {
  std::mt19937 random(1);
  for (const int count : {0, 1, 2, 33, 77, 100}) {
    const System before = RandomSystem(count, random);
    System solved = before;
    ASSERT_TRUE(GaussJordan(solved.Matrix, solved.RightHandSide, count));
    for (int i = 0; i < static_cast<int>(ParameterTableSize); ++i) {
      for (int k = 0; k < static_cast<int>(ParameterTableSize); ++k) {
        const bool outside = std::min(i, k) == 0 || std::max(i, k) > count;
        EXPECT_TRUE(!outside || solved.Matrix[i][k] == before.Matrix[i][k]);
      }
    }
    for (int i = 1; i <= count; ++i) {
      double side = 0;
      for (int k = 1; k <= count; ++k) side += 1.0 * before.Matrix[i][k] * solved.RightHandSide[k];
      EXPECT_NEAR(side, before.RightHandSide[i], 1E-5);
      for (int j = 1; j <= count; ++j) {
        double product = 0;
        for (int k = 1; k <= count; ++k) product += 1.0 * before.Matrix[i][k] * solved.Matrix[k][j];
        EXPECT_NEAR(product, i == j ? 1 : 0, 1E-5);
      }
    }
  }
}

System FourByFour(const std::array<std::array<float, 4>, 4>& rows) {
  System system;
  for (std::size_t j = 0; j < 4; ++j)
    std::copy(rows[j].begin(), rows[j].end(), system.Matrix[j + 1].begin() + 1);
  system.RightHandSide = {0, 4, 8, -4, 0};
  return system;
}

TEST(GaussJordan, TakesTheLastOfEqualPivots) {
  const System before = FourByFour({{{1, 1, 1, 1}, {1, -1, 1, -1}, {1, 1, -1, -1}, {1, -1, -1, 1}}});
  System solved = before;
  ASSERT_TRUE(GaussJordan(solved.Matrix, solved.RightHandSide, 4));
  for (int j = 1; j <= 4; ++j) {
    for (int k = 1; k <= 4; ++k) EXPECT_EQ(solved.Matrix[j][k], before.Matrix[j][k] / 4);
  }
  EXPECT_EQ(solved.RightHandSide, (ParameterTable{0, 2, -2, 4, 0}));
  // Of four equal ones the last is the pivot; what is left after its column is 0.
  System stopped = FourByFour({{{2, 2, 0, 0}, {2, 2, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}}});
  EXPECT_FALSE(GaussJordan(stopped.Matrix, stopped.RightHandSide, 2));
  EXPECT_EQ(stopped.Matrix, FourByFour({{{0, -1, 0, 0}, {1, 0.5F, 0, 0}}}).Matrix);
  EXPECT_EQ(stopped.RightHandSide, (ParameterTable{0, -4, 4, -4, 0}));
}

TEST(GaussJordan, RoundsEachResult) {
  System divided = FourByFour({{{41, 20.5F, 0, 0}, {0, 1, 0, 0}}});
  divided.RightHandSide = {0, 41, 0};
  ASSERT_TRUE(GaussJordan(divided.Matrix, divided.RightHandSide, 2));
  EXPECT_EQ(divided.RightHandSide[1], 1 - 0x1p-24F) << "41 times the rounded 1 / 41";
  EXPECT_EQ(divided.Matrix[1][2], -(0.5F - 0x1p-25F)) << "the row is multiplied by it too";
  // The last elements are those that are subtracted from them, once the products have been rounded.
  System left_over = FourByFour({{{4, 2 + 0x1p-11F, 0, 0}, {1 + 0x1p-12F, 0.5F + 0x1p-12F, 0, 0}}});
  left_over.RightHandSide = {0, 4 + 0x1p-10F, 1 + 0x1p-11F};
  EXPECT_FALSE(GaussJordan(left_over.Matrix, left_over.RightHandSide, 2));
  EXPECT_EQ(left_over.RightHandSide[2], 0);
}

TEST(GaussJordan, FindsSingularMatrices) {
  for (System system :
       {FourByFour({}), FourByFour({{{1, 2, 3, 4}, {2, 4, 6, 8}, {0, 1, 0, 1}, {1, 0, 0, 0}}}),
        FourByFour({{{1, 0, 2, 0}, {0, 0, 0, 0}, {2, 0, 1, 0}, {0, 0, 0, 5}}})}) {
    EXPECT_FALSE(GaussJordan(system.Matrix, system.RightHandSide, 4));
  }
  System none = FourByFour({{{std::nanf(""), 0, 0, 0}}});
  EXPECT_FALSE(GaussJordan(none.Matrix, none.RightHandSide, 1));
}

TEST(CovarianceSort, PutsEachElementWhereItsParametersStand) {
  std::mt19937 random(2);
  constexpr int all = 77;
  std::array<std::int16_t, ParameterTableSize> list{};
  std::iota(list.begin(), list.end(), std::int16_t{0});
  for (const int count : {0, 1, 2, 40, 76, 77}) {
    std::shuffle(list.begin() + 1, list.begin() + 1 + all, random);
    System system = RandomSystem(count, random);
    SquareTable& matrix = system.Matrix;
    SquareTable expected{};
    for (int i = 1; i <= count; ++i) {
      for (int j = 1; j <= i; ++j) {
        matrix[i][j] = matrix[j][i];
        expected[list[i]][list[j]] = expected[list[j]][list[i]] = matrix[i][j];
      }
    }
    CovarianceSort(matrix, list, count, all);
    for (int i = 1; i <= all; ++i) {
      for (int j = 1; j <= all; ++j) ASSERT_EQ(matrix[i][j], expected[i][j]) << count << " " << i << " " << j;
    }
  }
}

}  // namespace
}  // namespace koprax
