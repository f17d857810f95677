#include "manipulation/fourier_transform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>

namespace koprax {
namespace {

struct Coefficients {
  CoefficientTable Re = CoefficientTable(MaxPoints + 1);
  CoefficientTable Im = CoefficientTable(MaxPoints + 1);
};

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

void SumForward(const PointTable& y, int count, int highest, Coefficients& x) {
  for (int k = 1; k <= highest; ++k) {
    double re = 0;
    double im = 0;
    for (int j = 1; j <= count; ++j) {
      const double a = static_cast<double>(j - 1) * (k - 1) * StepFor(count);
      re += y[static_cast<std::size_t>(j)] * std::cos(a);
      im += y[static_cast<std::size_t>(j)] * (-1 * std::sin(a));
    }
    x.Re[static_cast<std::size_t>(k)] = re;
    x.Im[static_cast<std::size_t>(k)] = im;
  }
}

void SumBack(const Coefficients& x, int highest, int count, PointTable& y) {
  for (int j = 1; j <= count; ++j) {
    float sum = 0;
    for (int k = 1; k <= highest; ++k) {
      const double a = static_cast<double>(j - 1) * (k - 1) * StepFor(count);
      const double c = std::cos(a);
      const double d = -std::sin(a);
      const double re = x.Re[static_cast<std::size_t>(k)];
      const double im = x.Im[static_cast<std::size_t>(k)];
      sum = static_cast<float>(k == 1 ? sum + c * re : sum + 2 * c * re + 2 * d * im);
    }
    y[static_cast<std::size_t>(j)] = sum;
  }
}

/// The steps at which a transform has to tell how far it is.
std::vector<int> Twentieths(int last) {
  std::vector<int> steps;
  for (int i = 20; i <= last; i += 20) steps.push_back(i);
  return steps;
}

// A 64-bit sum of thousands of terms errs by some 1E-16 of its largest part; 1E-14 of the largest coefficient
// leaves room for both ways of summing.
void ExpectSameCoefficients(const Coefficients& fast, const Coefficients& plain, int highest) {
  const auto size = [&](std::size_t k) { return std::hypot(plain.Re[k], plain.Im[k]); };
  double largest = 0;
  for (std::size_t k = 1; k <= static_cast<std::size_t>(highest); ++k) largest = std::max(largest, size(k));
  for (std::size_t k = 1; k <= static_cast<std::size_t>(highest); ++k) {
    const double error = std::hypot(fast.Re[k] - plain.Re[k], fast.Im[k] - plain.Im[k]);
    ASSERT_LE(error, 1e-12 * size(k) + 1e-14 * largest) << "coefficient " << k;
  }
}

// Sines that differ in their last bit tip the rounding of a sum now and then: of one point in ten thousand at
// most, by one unit of its last place.
void ExpectNearlyAllPointsTheSame(const PointTable& fast, const PointTable& plain, int count) {
  int differing = 0;
  for (std::size_t j = 1; j <= static_cast<std::size_t>(count); ++j) {
    differing += fast[j] == plain[j] ? 0 : 1;
    EXPECT_TRUE(fast[j] == plain[j] || fast[j] == std::nextafter(plain[j], fast[j])) << "point " << j;
  }
  EXPECT_LE(differing, (count + 9999) / 10000);
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
  SumForward(y, count, highest, plain);
  Coefficients first;
  PointTable plain_back(MaxPoints + 1);
  PointTable first_back;
  for (const VectorWidth width : VectorWidths()) {
    Coefficients fast;
    std::vector<int> told;
    const TellReached tell = [&](int reached) { told.push_back(reached); };
    ForwardDft(y, count, StepFor(count), highest, fast.Re, fast.Im, tell, width);
    EXPECT_EQ(told, Twentieths(highest));
    if (width == VectorWidth::Baseline) {
      ExpectSameCoefficients(fast, plain, highest);
      first = fast;
      for (double& re : first.Re) re /= count;
      for (double& im : first.Im) im /= count;
      SumBack(first, highest, count, plain_back);
    } else {
      for (double& re : fast.Re) re /= count;
      for (double& im : fast.Im) im /= count;
      EXPECT_EQ(fast.Re, first.Re);
      EXPECT_EQ(fast.Im, first.Im);
    }
    told.clear();
    PointTable back(MaxPoints + 1);
    InverseDft(first.Re, first.Im, highest, StepFor(count), count, back, tell, width);
    EXPECT_EQ(told, Twentieths(count));
    if (width == VectorWidth::Baseline) {
      first_back = back;
      ExpectNearlyAllPointsTheSame(back, plain_back, count);
    }
    EXPECT_EQ(back, first_back);
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
    SumBack(x, highest, count, plain);
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
  SumBack(x, highest, 1, plain);
  for (const VectorWidth width : VectorWidths()) {
    InverseDft(
        x.Re, x.Im, highest, StepFor(1), 1, fast, [](int) {}, width);
    EXPECT_EQ(fast[1], plain[1]);
  }
}

}  // namespace
}  // namespace koprax
