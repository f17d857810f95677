#include "fit/minimiser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

#include "fit/fit_parameters.h"
#include "fit/peak_model.h"
#include "fit/plain_fit.h"
#include "fit/several_points.h"

namespace koprax {
namespace {

constexpr float Infinite = std::numeric_limits<float>::infinity();
constexpr float OpenedLambda = 0.001F;

/// A binary fraction, so that distances between points are exact; so is a tenth of 17 of them.
constexpr float PointDistance = 10.0F / 512;

/// Peaks of a height about 100 at even distances, and something to fit.
PeakFit SampleFit(int peaks, int points, float width) {
  PeakFit fit;
  fit.FitPeakCount = static_cast<std::int16_t>(peaks);
  fit.FitPolyBackground = true;
  fit.FitLine[1] = 0.013F;  // the distances from it take more than 32 bits
  fit.FitParam[ConstantTerm] = 10;
  fit.FitParam[ScaleFactor] = 1;
  const float distance = PointDistance * static_cast<float>(points) / static_cast<float>(peaks + 1);
  for (int k = 1; k <= peaks; ++k) {
    const std::array<float, 6> peak = {
        distance * static_cast<float>(k), 100, width, width * 1.25F, 0.4F, 0.9F};
    std::copy(peak.begin(), peak.end(), &fit.FitParam[NumberOf(k, PeakParameter::Position)]);
  }
  std::mt19937 random(3);
  std::uniform_real_distribution<float> noise(-5, 5);
  ParameterTable d{};
  for (int i = 1; i <= points; ++i) {
    fit.FitX[i] = PointDistance * static_cast<float>(i);
    fit.FitBackgroundY[i] = 10 + noise(random);
    fit.FitY[i] = plain::Model(fit, i, fit.FitParam, d) + noise(random);
  }
  return fit;
}

void Refine(PeakFit& fit, const std::vector<int>& list) {
  fit.FitList = {};
  std::copy(list.begin(), list.end(), fit.FitList.begin() + 1);
  fit.FitListCount = static_cast<std::int16_t>(list.size());
}

struct Equations {
  bool operator==(const Equations&) const = default;
  SquareTable Matrix{};
  ParameterTable Vector{};
  float ChiSquare = 0;
};

void ExpectTheBitsOfThePlainLoops(const PeakFit& fit, int points) {
  ParameterTable derivatives{};
  ParameterTable plain_derivatives{};
  for (int i = 1; i <= points; ++i) {
    EXPECT_EQ(PeakModel(fit, i, fit.FitParam, derivatives),
              plain::Model(fit, i, fit.FitParam, plain_derivatives));
  }
  Equations plainly;
  plain::Equations(fit, points, fit.FitParam, plainly.Matrix, plainly.Vector, plainly.ChiSquare);
  for (const VectorWidth width : VectorWidths()) {
    Equations fast;
    LmEquations(fit, points, fit.FitParam, fast.Matrix, fast.Vector, fast.ChiSquare, width);
    EXPECT_EQ(fast, plainly);
  }
}

TEST(LmEquations, EveryWidthGivesTheBitsOfThePlainLoops) {
  std::vector<int> all(FitParameterCount);
  std::iota(all.begin(), all.end(), 1);
  std::vector<int> mixed = all;
  std::shuffle(mixed.begin(), mixed.end(), std::mt19937(4));
  const std::vector<int> few(mixed.begin(), mixed.begin() + 30);
  using Case = std::tuple<int, int, float, std::vector<int>, bool>;
  for (const auto& [peaks, points, width, list, polynomial] :
       {Case{12, 1000, 3, all, true}, Case{12, 1000, 0.05F, mixed, false}, Case{12, 1001, 0.2F, few, true},
        Case{1, 1, 1, all, true}, Case{2, 63, 0.01F, mixed, true}, Case{3, 65, 0.0F, all, false},
        Case{12, 190, -1, all, true}, Case{0, 100, 1, all, true}}) {
    SCOPED_TRACE(testing::Message() << points << " points, FWHM " << width);
    PeakFit fit = SampleFit(peaks, points, width);
    fit.FitPolyBackground = polynomial;
    fit.FitParam[NumberOf(2, PeakParameter::EtaLeft)] = 1;  // a Gaussian alone falls below all 32-bit numbers
    Refine(fit, list);
    std::swap(fit.FitX[5], fit.FitX[points]);  // the points come in any order
    ExpectTheBitsOfThePlainLoops(fit, points);
  }
}

// Points are taken 16 at a time. Here the last point of such a row belongs to a half without a width, and a
// half ends just at the first or last point of another row.
TEST(LmEquations, PointsAtTheEdgesOfAHalfBelongToIt) {
  constexpr float seventeen_points = 17 * PointDistance / 10;
  using Case = std::tuple<int, float, float>;
  for (const auto& [position, left, right] :
       {Case{16, 5, -1}, Case{16, 1, seventeen_points}, Case{33, seventeen_points, 1}}) {
    SCOPED_TRACE(testing::Message() << position << " " << left << " " << right);
    PeakFit fit = SampleFit(1, 64, 1);
    fit.FitParam[1] = fit.FitX[position];
    fit.FitParam[3] = left;
    fit.FitParam[4] = right;
    Refine(fit, {1, 2, 3, 4, 5, 6});
    ExpectTheBitsOfThePlainLoops(fit, 64);
  }
}

// Here exp(-x^2) lies so close to the middle between two 32-bit numbers that a short series rounds it
// wrongly.
TEST(LmEquations, TheGaussianIsRoundedAsTheLibraryRoundsIt) {
  PeakFit fit;
  fit.FitPeakCount = 1;
  std::fill_n(fit.FitParam.begin() + 2, 5, 1.0F);
  Refine(fit, {1, 2, 3, 4, 5, 6});
  for (const float x : {0x1.008fa6p+0F, 0x1.01325ep+0F, 0x1.0214bap+0F, 0x1.0270bp+0F, 0x1.030dbp+0F}) {
    std::fill_n(fit.FitX.begin() + 1, 16, x);
    ExpectTheBitsOfThePlainLoops(fit, 16);
  }
}

// The library's own is good to 1E-16.
TEST(TakeExponential, IsAsNearAsItSays) {
  using Doubles = Vectors16::Doubles;
  for (double square = 0; square <= 400; square += 0.0123) {
    Doubles exponential;
    TakeExponential<Vectors16>(Doubles{} + square, exponential);
    EXPECT_NEAR(exponential[1] / std::exp(-square), 1, ExponentialError) << square;
  }
}

// A product that went into its sum unrounded would show in the last bit.
TEST(LmEquations, ProductsAreRoundedBeforeTheyAreAdded) {
  PeakFit fit;
  fit.FitBackgroundY[1] = 0x1p-12F;
  fit.FitBackgroundY[2] = 1 + 0x1p-12F;
  Refine(fit, {ScaleFactor});
  Equations sums;
  LmEquations(fit, 2, fit.FitParam, sums.Matrix, sums.Vector, sums.ChiSquare);
  EXPECT_EQ(sums.Matrix[1][1], 1 + 0x1p-11F);
}

class LmStepTest : public testing::Test {
 protected:
  LmStepTest() : Fit(SampleFit(2, Points, 0.8F)) {
    Fit.FitParam[1] += 0.2F;
    Fit.FitParam[8] *= 0.5F;
    Refine(Fit, {8, 1, 73, 2, 3, 9});
    State.Lambda = -1;
  }
  StepFindings Step() { return LmStep(Fit, Points, FitParameterCount, State); }
  void ExpectUnopened() const {
    EXPECT_EQ(State.Lambda, -1);
    EXPECT_EQ(State.ChiSquare, 0);
    EXPECT_EQ(State.AlphaMatrix, SquareTable{});
    EXPECT_EQ(Fit.FitBestChi, 0);
  }
  void ExpectFailed(const StepFindings& findings, float lambda) {
    EXPECT_TRUE(findings.BeyondRange);
    EXPECT_EQ(State.Lambda, lambda);
    EXPECT_EQ(State.ChiSquare, Fit.FitBestChi);
  }

  static constexpr int Points = 300;
  PeakFit Fit;
  Minimiser State;
};

TEST_F(LmStepTest, GoesOnTillNothingIsBetterAndCloses) {
  ASSERT_FALSE(Step().BeyondRange);
  EXPECT_EQ(State.Lambda, static_cast<float>(OpenedLambda * 0.1));
  EXPECT_EQ((std::array{Fit.FitList[6], Fit.FitList[7], Fit.FitList[8], Fit.FitList[12], Fit.FitList[77]}),
            (std::array<std::int16_t, 5>{9, 4, 5, 11, 77}));
  EXPECT_LT(State.ChiSquare, State.StartingChiSquare / 2);
  PeakFit plain_fit = Fit;
  Minimiser plain_state = State;
  int better = 0;
  for (int n = 1; n <= 30; ++n) {
    const float lambda = State.Lambda;
    const float chi_square = State.ChiSquare;
    ASSERT_FALSE(Step().BeyondRange);
    const bool fell = State.ChiSquare < chi_square;
    EXPECT_EQ(State.Lambda, static_cast<float>(lambda * (fell ? 0.1 : 10.0)));
    better += fell ? 1 : 0;
    plain::Step(plain_fit, Points, plain_state);
    EXPECT_EQ(Fit.FitParam, plain_fit.FitParam);
    EXPECT_EQ(State.CovarMatrix, plain_state.CovarMatrix) << "the equations of the trial";
    EXPECT_EQ(State.AlphaMatrix, plain_state.AlphaMatrix);
    EXPECT_EQ(State.BetaVector, plain_state.BetaVector);
    EXPECT_EQ(State.ChiSquare, Fit.FitBestChi);
  }
  EXPECT_GT(better, 1);
  EXPECT_LT(better, 25);

  const Minimiser before = State;
  State.Lambda = 0;
  ASSERT_FALSE(Step().SingularMatrix);
  EXPECT_EQ(Fit.FitParam, plain_fit.FitParam);
  EXPECT_EQ(State.AlphaMatrix, before.AlphaMatrix);
  EXPECT_EQ(State.ChiSquare, before.ChiSquare);
  ParameterTable d{};
  for (int i = 1; i <= Points; ++i) EXPECT_EQ(Fit.FitCalc[i], PeakModel(Fit, i, Fit.FitParam, d));
  for (int j = 1; j <= 6; ++j) {
    double product = 0;  // of curvature and covariance; 32 bits and a condition of some 100 leave 1E-04
    for (int k = 1; k <= 6; ++k) {
      product += 1.0 * State.AlphaMatrix[j][k] * State.CovarMatrix[Fit.FitList[k]][Fit.FitList[j]];
    }
    EXPECT_NEAR(product, 1, 1E-4);
  }
}

TEST_F(LmStepTest, NothingToRefineIsAFailureWithAnEqualChiSquare) {
  Refine(Fit, {});
  EXPECT_FALSE(Step().BeyondRange);
  EXPECT_EQ(State.Lambda, static_cast<float>(OpenedLambda * 10.0));
  EXPECT_EQ(State.ChiSquare, State.StartingChiSquare);
  for (std::size_t j = 1; j <= 77; ++j) EXPECT_EQ(Fit.FitList[j], static_cast<int>(j));
  State.CovarMatrix[1][1] = 5;
  State.Lambda = 0;
  Step();
  EXPECT_EQ(State.CovarMatrix[1], ParameterTable{});
}

TEST_F(LmStepTest, RefusesListsThatAreNoPermutation) {
  for (const std::vector<int>& list : {std::vector{3, 1, 3}, {0}, {78}, {-4, 2}, std::vector<int>(77, 100)}) {
    Refine(Fit, list);
    EXPECT_TRUE(Step().ImproperPermutation);
    ExpectUnopened();
  }
}

TEST_F(LmStepTest, RefusesToOpenBeyondTheRange) {
  const float y = std::exchange(Fit.FitY[7], 1E30F);
  EXPECT_TRUE(Step().BeyondRange);
  ExpectUnopened();
  EXPECT_EQ(Fit.FitList[77], 77);
  Fit.FitY[7] = y;
  Fit.FitX[7] = 1E10F;  // the chi square is none the worse, but t^6 is beyond all
  Refine(Fit, {CubicTerm});
  EXPECT_TRUE(Step().BeyondRange);
  ExpectUnopened();
}

TEST_F(LmStepTest, TellsASingularMatrixAndGoesOn) {
  Refine(Fit, {1, 13});  // the third peak is none
  EXPECT_TRUE(Step().SingularMatrix);
  EXPECT_LE(State.ChiSquare, State.StartingChiSquare);
}

TEST_F(LmStepTest, LambdaNeverFallsToZero) {
  Step();
  State.Lambda = std::numeric_limits<float>::denorm_min();
  const float chi_square = State.ChiSquare;
  Step();
  EXPECT_LT(State.ChiSquare, chi_square);
  EXPECT_GT(State.Lambda, 0) << "the next step would close";
}

TEST_F(LmStepTest, NumbersBeyondTheRangeFailTheStep) {
  ASSERT_FALSE(Step().BeyondRange);
  const Minimiser opened = State;
  const ParameterTable before = Fit.FitParam;
  const auto risen = static_cast<float>(opened.Lambda * 10.0);
  for (const float gradient : {Infinite, 3E38F, 1E30F}) {  // the system, the solution, or the trial
    State = opened;
    State.BetaVector[1] = gradient;
    ExpectFailed(Step(), risen);
    EXPECT_EQ(Fit.FitParam, before);
    EXPECT_EQ(State.AlphaMatrix, opened.AlphaMatrix);
    EXPECT_EQ(State.BetaVector[1], gradient);
  }
  State = opened;
  State.BetaVector[4] *= -1;  // away from the least sum, so that nothing but Lambda fails
  State.AlphaMatrix = {};
  for (int j = 1; j <= 6; ++j) State.AlphaMatrix[j][j] = 1;
  State.Lambda = 5E37F;
  ExpectFailed(Step(), 5E37F);
  State.AlphaMatrix[1][1] = 1E20F;
  State.Lambda = 1E20F;
  ExpectFailed(Step(), static_cast<float>(1E20F * 10.0));

  State.Lambda = 0;
  const PointTable calculated = Fit.FitCalc;
  Fit.FitParam[ConstantTerm] = Infinite;
  EXPECT_TRUE(Step().BeyondRange);
  EXPECT_EQ(Fit.FitCalc, calculated);
}

TEST_F(LmStepTest, ABetterTrialBeyondTheRangeFails) {
  Fit.FitBestChi = 1E30F;
  State.AlphaMatrix[1][1] = State.Lambda = 1;
  Fit.FitX[7] = 1E10F;
  Refine(Fit, {CubicTerm});  // which is 0 and stays so; its curvature there is beyond the range
  ExpectFailed(Step(), 10);
  EXPECT_EQ(State.AlphaMatrix[1][1], 1);

  Fit.FitParam[1] = State.BetaVector[1] = 3E38F;
  State.Lambda = 0.01F;
  Refine(Fit, {1});  // a peak so far away that it adds nothing
  ExpectFailed(Step(), static_cast<float>(0.01F * 10.0));
  EXPECT_EQ(Fit.FitParam[1], 3E38F);
}

// K. Eckerle, NIST, Circular Interference Transmittance Study: 35 points of (b1 / b2) exp(-((x - b3) / b2)^2
// / 2), from the Statistical Reference Datasets of NIST, a Gaussian peak of the height b1 / b2.
TEST(LmStep, ReachesTheCertifiedGaussian) {
  constexpr std::array<double, 35> y = {
      0.0001575, 0.0001699, 0.0002350, 0.0003102, 0.0004917, 0.0008710, 0.0017418, 0.0046400, 0.0065895,
      0.0097302, 0.0149002, 0.0237310, 0.0401683, 0.0712559, 0.1264458, 0.2073413, 0.2902366, 0.3445623,
      0.3698049, 0.3668534, 0.3106727, 0.2078154, 0.1164354, 0.0616764, 0.0337200, 0.0194023, 0.0117831,
      0.0074357, 0.0022732, 0.0008800, 0.0004579, 0.0002345, 0.0001586, 0.0001143, 0.0000710};
  constexpr double b1 = 1.5543827178;
  constexpr double b2 = 4.0888321754;
  constexpr double b3 = 451.54121844;
  constexpr double certified = 1.4635887487E-03;
  const auto x_of = [](int i) { return i < 8 ? 400 + 5.0 * i : i < 28 ? 424.5 + 1.5 * i : 330 + 5.0 * i; };
  PeakFit fit;
  double residuals = 0;
  for (int i = 0; i < 35; ++i) {
    fit.FitX[i + 1] = static_cast<float>(x_of(i));
    fit.FitY[i + 1] = static_cast<float>(y[i]);
    residuals += std::pow(y[i] - b1 / b2 * std::exp(-std::pow((x_of(i) - b3) / b2, 2) / 2), 2);
  }
  ASSERT_NEAR(residuals, certified, 1E-13) << "the table is copied rightly";
  fit.FitPeakCount = 1;
  const auto fwhm = static_cast<float>(2 * std::sqrt(2 * std::log(2.0)) * b2);
  const std::array<float, 6> start = {452, 0.4F, fwhm, fwhm, 1, 1};
  std::copy(start.begin(), start.end(), fit.FitParam.begin() + 1);
  Refine(fit, {1, 2});
  Minimiser state;
  state.Lambda = -1;
  for (int n = 0; n < 12; ++n) EXPECT_FALSE(LmStep(fit, 35, FitParameterCount, state).BeyondRange);
  // The sum of squares is known to 1E-07 of itself, so it can't tell a position nearer than 1E-04, nor a
  // height nearer than 1E-05, from the best one.
  EXPECT_NEAR(fit.FitParam[1], b3, 2E-4);
  EXPECT_NEAR(fit.FitParam[2], b1 / b2, 1E-5);
  EXPECT_NEAR(state.ChiSquare, certified, 1E-6 * certified);
}

}  // namespace
}  // namespace koprax
