#include "cell/normal_equations.h"

#include <gtest/gtest.h>

#include <cmath>

namespace koprax {
namespace {

// Straight lines through points.
TEST(NormalEquations, TellWhatIsNotDetermined) {
  const auto is_solved = [](const std::vector<float>& xs) {
    std::vector<CellParameters> rows(xs.size());
    for (std::size_t k = 0; k < xs.size(); ++k) rows[k] = {0, 1, xs[k]};
    return SolveNormalEquations(rows, xs, 2).has_value();
  };
  EXPECT_FALSE(is_solved({0.3F, 0.3F, 0.3F, 0.3F}) || is_solved({0, 0, 0, 0}));
  // What two points differ by has to stand out from the rounding of the sums.
  EXPECT_FALSE(is_solved({300, 301, 300, 301}));
  EXPECT_TRUE(is_solved({100, 101, 100, 101}));
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
