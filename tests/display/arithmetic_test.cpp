// Operations on one profile, up to the temporary copy.
#include "display/arithmetic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace koprax {
namespace {

using testing::ElementsAre;

struct Profile {
  explicit Profile(const std::vector<float>& y, const std::vector<float>& x = {1, 2, 3}) {
    Buffer.WorkNpts = static_cast<std::int16_t>(y.size());
    std::ranges::copy(x, Buffer.WorkX.begin() + 1);
    std::ranges::copy(y, Buffer.WorkY.begin() + 1);
    Buffer.WorkYMin = 0;
    Buffer.WorkYMax = 100;
  }
  static std::vector<float> Points(const PointTable& table, int count) {
    return {table.begin() + 1, table.begin() + 1 + count};
  }
  [[nodiscard]] std::vector<float> X() const { return Points(Buffer.WorkX, Buffer.WorkNpts); }
  [[nodiscard]] std::vector<float> Y() const { return Points(Buffer.WorkY, Buffer.WorkNpts); }

  Workspace Data;
  ProfileBuffer& Buffer = Data.Buffer(1);
};

TEST(Arithmetic, TheTopOfTheScaleNeverFallsAndItsBottomFollows) {
  struct Case {
    OperationResult (*Operation)(Workspace&, const ProfileBuffer&, float);
    float K;
    std::vector<float> Y;
    bool AnyNegative;
    std::pair<float, float> Limits;
  };
  const std::vector<Case> cases{
      {AddToY, 0, {10, 30, 20}, false, {10, 100}},  // the true minimum of the points
      {AddToY, -15, {-5, 15, 5}, true, {-5, 100}},  // the top stays
      {AddToY, 80.5F, {90.5F, 110.5F, 100.5F}, false, {90.5F, 110.5F}},
      {MultiplyY, -1, {-10, -30, -20}, true, {-30, 100}},  // its greatest value lies below the old top
      {MultiplyY, 0, {0, 0, 0}, false, {0, 100}},
      {MultiplyY, 1e5F, {1e6F, 3e6F, 2e6F}, false, {1e6F, 3e6F}},
      {AddToY,
       2e6F,
       {2000010, 2000030, 2000020},
       false,
       {1e6F, 2000030}},  // all above where the search starts
  };
  for (const Case& c : cases) {
    Profile profile({10, 30, 20});
    const OperationResult result = c.Operation(profile.Data, profile.Buffer, c.K);
    EXPECT_EQ(profile.Y(), (std::vector<float>{10, 30, 20})) << "only the scratch is written";
    EXPECT_EQ(result.End, OperationEnd::Complete);
    EXPECT_EQ(result.AnyNegative, c.AnyNegative) << c.K;
    TakeNewY(profile.Data, profile.Buffer, result, TopOfScale::NeverFalls);
    EXPECT_EQ(profile.Y(), c.Y) << c.K;
    EXPECT_EQ(std::pair(profile.Buffer.WorkYMin, profile.Buffer.WorkYMax), c.Limits) << c.K;
  }
}

TEST(Arithmetic, AShiftedProfileLosesItsNegativeX) {
  struct Case {
    float K;
    std::vector<float> X, Y;
    std::pair<float, float> Limits;
  };
  const std::vector<Case> cases{
      {0.5F, {1.5F, 3.5F, 2.5F}, {10, 30, 20}, {1.5F, 3.5F}},
      {-1, {0, 2, 1}, {10, 30, 20}, {0, 2}},          // 0 isn't negative
      {-1.5F, {1.5F, 0.5F}, {30, 20}, {1.5F, 1.5F}},  // those left move to the front, in their order
      {-9, {}, {}, {1, -6}},                          // none is left, and the limits leave nothing to draw
  };
  for (const Case& c : cases) {
    Profile profile({10, 30, 20}, {1, 3, 2});
    const OperationResult result = AddToX(profile.Data, profile.Buffer, c.K);
    EXPECT_EQ(result.AnyNegative, c.X.size() < 3);
    EXPECT_EQ(profile.X(), (std::vector<float>{1, 3, 2})) << "only the scratch is written";
    TakeNewX(profile.Data, profile.Buffer, result);
    EXPECT_EQ(profile.X(), c.X) << c.K;
    EXPECT_EQ(profile.Y(), c.Y) << c.K;
    EXPECT_EQ(std::pair(profile.Buffer.WorkXMin, profile.Buffer.WorkXMax), c.Limits) << c.K;
  }
}

TEST(Arithmetic, ExponentialAsksOnceAndLogarithmAtEachSmallValue) {
  Profile profile({-10, 10, 9.9F, 0, 20});
  int asked = 0;
  const auto yes = [&] { return ++asked > 0; };
  OperationResult result = ExponentialOfY(profile.Data, profile.Buffer, yes);
  EXPECT_EQ(asked, 1);
  TakeNewY(profile.Data, profile.Buffer, result, TopOfScale::Highest);
  // The libraries' exp and log of 64 bits are the definition; rounded once to 32 bits.
  const auto exponential = [](float y) { return static_cast<float>(std::exp(static_cast<double>(y))); };
  EXPECT_THAT(profile.Y(),
              ElementsAre(exponential(-10), exponential(10), exponential(9.9F), 1, exponential(20)));
  EXPECT_EQ(profile.Buffer.WorkYMin, exponential(-10));
  EXPECT_EQ(profile.Buffer.WorkYMax, exponential(20));

  Profile small({0.0009F, 0.001F, 2.7182817F, 0.0001F});
  asked = 0;
  result = LogarithmOfY(small.Data, small.Buffer, yes);
  EXPECT_EQ(asked, 2);
  TakeNewY(small.Data, small.Buffer, result, TopOfScale::LogarithmOfOld);
  EXPECT_NEAR(small.Y()[2], 1, 1e-7);                         // ln e; a unit in the last place
  EXPECT_NEAR(small.Buffer.WorkYMin, std::log(1e-4), 1e-6);   // -9.2 in 32 bits
  EXPECT_NEAR(small.Buffer.WorkYMax, std::log(120.0), 1e-6);  // of 1.2 times the old 100
  small.Buffer.WorkYMax = -3;                                 // has no logarithm
  TakeNewY(small.Data, small.Buffer, result, TopOfScale::LogarithmOfOld);
  EXPECT_EQ(small.Buffer.WorkYMax, result.Max);
}

TEST(Arithmetic, WhatCantBeComputedEndsTheOperation) {
  constexpr float largest = std::numeric_limits<float>::max();
  const auto no = [] { return false; };
  const auto yes = [] { return true; };
  Profile profile({1, largest, 0.5F, 0});
  EXPECT_EQ(AddToY(profile.Data, profile.Buffer, largest).End, OperationEnd::Beyond32Bits);
  EXPECT_EQ(MultiplyY(profile.Data, profile.Buffer, -2).End, OperationEnd::Beyond32Bits);
  EXPECT_EQ(ExponentialOfY(profile.Data, profile.Buffer, yes).End, OperationEnd::Beyond32Bits);
  EXPECT_EQ(ExponentialOfY(profile.Data, profile.Buffer, no).End, OperationEnd::Declined);
  EXPECT_EQ(LogarithmOfY(profile.Data, profile.Buffer, no).End, OperationEnd::NotPositive);
  profile.Buffer.WorkX[2] = largest;
  EXPECT_EQ(AddToX(profile.Data, profile.Buffer, largest).End, OperationEnd::Beyond32Bits);
  profile.Buffer.WorkY[3] = 0.0005F;  // the question comes before the end at the 0 behind it
  EXPECT_EQ(LogarithmOfY(profile.Data, profile.Buffer, no).End, OperationEnd::Declined);
  EXPECT_THAT(profile.Y(), ElementsAre(1, largest, 0.0005F, 0));
}

}  // namespace
}  // namespace koprax
