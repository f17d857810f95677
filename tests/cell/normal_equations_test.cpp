#include "cell/normal_equations.h"

#include <gtest/gtest.h>

#include <cmath>

namespace koprax {
namespace {

/// A straight line through points: residuals of 2 + 3 x, and slopes 1 and x.
std::vector<CellParameters> LineSlopes(const std::vector<float>& xs) {
  std::vector<CellParameters> rows;
  for (const float x : xs) rows.push_back({0, 1, x});
  return rows;
}

TEST(NormalEquations, FitAStraightLine) {
  const std::vector<float> residuals{-1.5F, 3, 5, 7.5F};  // -1, 2, 5, 8 and errors
  const auto solution = SolveNormalEquations(LineSlopes({-1, 0, 1, 2}), residuals, 2);
  ASSERT_TRUE(solution);
  // The sums are 4, 2 and 6, and their inverse 6, -2 and 4 twentieths.
  EXPECT_FLOAT_EQ(solution->Inverse[1][1], 0.3F);
  EXPECT_FLOAT_EQ(solution->Inverse[1][2], -0.1F);
  EXPECT_FLOAT_EQ(solution->Inverse[2][2], 0.2F);
  // The right-hand side is 14 and 21.5.
  EXPECT_FLOAT_EQ(solution->Shifts[1], 2.05F);
  EXPECT_FLOAT_EQ(solution->Shifts[2], 2.9F);
}

TEST(NormalEquations, TellWhatIsNotDetermined) {
  const std::vector<float> four(4, 1);
  EXPECT_FALSE(SolveNormalEquations(LineSlopes({0.3F, 0.3F, 0.3F, 0.3F}), four, 2));
  EXPECT_FALSE(SolveNormalEquations(LineSlopes({0, 0, 0, 0}), four, 2));
  EXPECT_FALSE(SolveNormalEquations(LineSlopes({1E30F, 0, 1, 2}), four, 2)) << "32 bits don't hold the sums";
  // What two points differ by has to stand out from the rounding of the sums.
  EXPECT_FALSE(SolveNormalEquations(LineSlopes({10000, 10001, 10000, 10001}), four, 2));
  EXPECT_TRUE(SolveNormalEquations(LineSlopes({100, 101, 100, 101}), four, 2));
}

TEST(NormalEquations, GiveDeviationsAndTellNegativeVariances) {
  ParameterMatrix inverse{};
  inverse[1][1] = 2;
  inverse[2][2] = -0.5F;
  inverse[3][3] = 0.5F;
  const auto found = DeviationsOf(inverse, std::vector<float>{1, -2, 0, 1, 2}, 3);  // 10 over 2 degrees
  EXPECT_FLOAT_EQ(found.Sigma[1], std::sqrt(10.0F));
  EXPECT_EQ(found.Sigma[2], 0);
  EXPECT_FLOAT_EQ(found.Sigma[3], std::sqrt(2.5F));
  EXPECT_EQ(found.NegativeVariances, std::vector<int>{2});
}

}  // namespace
}  // namespace koprax
