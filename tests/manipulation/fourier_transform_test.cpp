#include "manipulation/fourier_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "manipulation/plain_fourier.h"

namespace koprax {
namespace {

int HighestFor(int count) { return static_cast<int>(std::nearbyint(count / 2.0 + 1)); }

float StepFor(int count) { return 6.2831855F / static_cast<float>(count); }

/// Peaks on a sloping background with the noise of counting.
PointTable MeasuredProfile(int count, float scale) {
  std::mt19937 random(static_cast<unsigned>(count));
  PointTable y(MaxPoints + 1);
  for (int j = 1; j <= count; ++j) {
    double counts = 90 + 30.0 * j / count;
    for (int peak = 1; peak <= 9; ++peak) {
      const double distance = (j - count * peak / 10.3) / (count / 700.0 + 1);
      counts += 3000.0 / peak / (1 + distance * distance);
    }
    y[static_cast<std::size_t>(j)] =
        scale * static_cast<float>(std::poisson_distribution<int>(counts)(random));
  }
  return y;
}

/// The steps at which a transform has to tell how far it is.
std::vector<int> Twentieths(int last) {
  std::vector<int> steps;
  for (int i = 20; i <= last; i += 20) steps.push_back(i);
  return steps;
}

struct Transform {
  int Count;
  float Scale;
};

class FourierTransformTest : public testing::TestWithParam<Transform> {};

TEST_P(FourierTransformTest, GivesTheNumbersOfThePlainLoopsInEveryWidth) {
  const int count = GetParam().Count;
  const int highest = HighestFor(count);
  const PointTable y = MeasuredProfile(count, GetParam().Scale);
  Coefficients plain;
  SumForward(y, count, StepFor(count), highest, plain);
  Coefficients normalised = plain;
  for (double& re : normalised.Re) re /= count;
  for (double& im : normalised.Im) im /= count;
  PointTable plain_back(MaxPoints + 1);
  SumBack(normalised, highest, StepFor(count), count, plain_back);
  Coefficients first;
  PointTable first_back;
  for (const VectorWidth width : VectorWidths()) {
    std::vector<int> told;
    const TellReached tell = [&](int reached) { told.push_back(reached); };
    Coefficients x;
    ForwardDft(y, count, StepFor(count), highest, x.Re, x.Im, tell, width);
    EXPECT_EQ(told, Twentieths(highest));
    told.clear();
    PointTable back(MaxPoints + 1);
    InverseDft(normalised.Re, normalised.Im, highest, StepFor(count), count, back, tell, width);
    EXPECT_EQ(told, Twentieths(count));
    if (width == VectorWidth::Baseline) {
      EXPECT_EQ(FirstOtherCoefficient(x, plain, highest), 0U);
      EXPECT_TRUE(NearlyAllPointsAreTheSame(back, plain_back, count));
      first = x;
      first_back = back;
    }
    EXPECT_TRUE(x.Re == first.Re && x.Im == first.Im && back == first_back) << static_cast<int>(width);
  }
}

INSTANTIATE_TEST_SUITE_P(Counts, FourierTransformTest,
                         testing::Values(Transform{1, 1}, Transform{2, 1}, Transform{3, -1}, Transform{5, 1},
                                         Transform{64, 1e30F}, Transform{65, 1e-40F}, Transform{999, -2.5F},
                                         Transform{1000, 1}, Transform{1003, 1}, Transform{4096, 1},
                                         Transform{8000, 1}),
                         [](const auto& test) { return "Case" + std::to_string(test.index); });

// Sums that pass the largest 32-bit number, that come near the smallest, and a coefficient of no use.
TEST(InverseDftTest, RoundsLikeThePlainLoopAtTheEndsOfTheRange) {
  const int count = 40;
  const int highest = HighestFor(count);
  std::mt19937 random(7);
  std::normal_distribution<double> spread;
  for (const double scale : {0.0, 1e-44, 1e-38, 1e-25, 1e-15, 1.0, 1e36, 1e38, 1e39}) {
    Coefficients x;
    for (std::size_t k = 1; k <= static_cast<std::size_t>(highest); ++k) {
      x.Re[k] = scale * spread(random);
      x.Im[k] = scale * spread(random);
    }
    PointTable plain(MaxPoints + 1);
    PointTable fast(MaxPoints + 1);
    SumBack(x, highest, StepFor(count), count, plain);
    InverseDft(x.Re, x.Im, highest, StepFor(count), count, fast, [](int) {});
    for (std::size_t j = 1; j <= count; ++j) {
      EXPECT_TRUE(fast[j] == plain[j] || (std::isnan(fast[j]) && std::isnan(plain[j])))
          << scale << " at " << j << ": " << fast[j] << " for " << plain[j];
    }
  }
}

// Sums of few binary digits fall on the middle between two 32-bit numbers all the time where the cosine is 1.
TEST(InverseDftTest, RoundsAHalfToTheEvenNeighbour) {
  const int highest = 4000;
  Coefficients x;
  std::mt19937 random(11);
  for (std::size_t k = 1; k <= highest; ++k) x.Re[k] = static_cast<double>(random() >> 8U) * 0x1p-20;
  PointTable plain(MaxPoints + 1);
  PointTable fast(MaxPoints + 1);
  SumBack(x, highest, StepFor(1), 1, plain);
  for (const VectorWidth width : VectorWidths()) {
    InverseDft(
        x.Re, x.Im, highest, StepFor(1), 1, fast, [](int) {}, width);
    EXPECT_EQ(fast[1], plain[1]);
  }
}

}  // namespace
}  // namespace koprax
