// What a fit starts from, against numbers worked out by hand.
#include "fit/fit_setup.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "fit/fit_parameters.h"

namespace koprax {
namespace {

using Points = std::vector<std::pair<float, float>>;

class FitSetup : public testing::Test {
 protected:
  void Fill(int slot, const Points& points) {
    ProfileBuffer& buffer = data_.Buffer(slot);
    buffer.PermNpts = buffer.WorkNpts = static_cast<std::int16_t>(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
      std::tie(buffer.PermX[i + 1], buffer.PermY[i + 1]) = points[i];
      std::tie(buffer.WorkX[i + 1], buffer.WorkY[i + 1]) = points[i];
    }
  }
  void CollectRange(const XRange& range) { CollectFitRange(data_.Buffer(1), range, fit_); }
  void CollectBackground(const Points& points, const XRange& range) {
    Fill(2, points);
    TakeMeasuredBackground(data_, data_.Buffer(2));
    CollectFitBackground(data_, data_.Buffer(1).PermNpts, range);
  }
  static std::vector<float> FirstOf(const PointTable& table, int count) {
    return {table.begin() + 1, table.begin() + 1 + count};
  }

  Workspace data_;
  PeakFit& fit_ = data_.Fit;
};

TEST_F(FitSetup, TheRangeHoldsBothItsLimits) {
  Fill(1, {{10, 1}, {11, 5}, {12, 9}, {13, 4}, {14, 2}});
  data_.Buffer(1).WorkY[3] = 8;  // changed since it was saved
  CollectRange({11, 13});
  ASSERT_EQ(fit_.FitPointCount, 3);
  EXPECT_EQ(FirstOf(fit_.FitX, 3), (std::vector<float>{11, 12, 13}));
  EXPECT_EQ(FirstOf(fit_.FitY, 3), (std::vector<float>{5, 8, 4}));
  CollectRange({13.5F, 13.9F});
  EXPECT_EQ(fit_.FitPointCount, 0);
  ClearFit(fit_);
  EXPECT_EQ(FirstOf(fit_.FitX, 3), std::vector<float>(3));
}

TEST_F(FitSetup, TheLineStartsThePolynomial) {
  fit_.FitPolyBackground = true;
  fit_.FitParam[QuadraticTerm] = 7;
  fit_.FitParam[CubicTerm] = 8;
  SetBackgroundLine({12, 130}, {16, 90}, 10, fit_);  // 10 counts down each degree
  EXPECT_EQ(std::vector<float>(fit_.FitLine.begin() + 1, fit_.FitLine.begin() + 4),
            (std::vector<float>{10, 150, -10}));
  EXPECT_EQ(std::vector<float>(fit_.FitParam.begin() + ConstantTerm, fit_.FitParam.begin() + ScaleFactor),
            (std::vector<float>{150, -10, 7, 8}));
  EXPECT_EQ(BackgroundLineAt(fit_, 14.5F), 105);
  EXPECT_EQ(HeightAboveBackground(fit_, 14.5F, 1105), 1000);
  EXPECT_EQ(HeightAboveBackground(fit_, 11, 100), -40) << "the profile may lie below";
}

TEST_F(FitSetup, AMeasuredBackgroundGoesPointByPoint) {
  Fill(1, {{10, 0}, {11, 0}, {12, 0}, {13, 0}, {14, 0}});
  CollectRange({10.5F, 14});
  CollectBackground({{9, 1}, {10.6F, 2}, {11.5F, 3}, {12.5F, 4}, {13.5F, 5}}, {10.5F, 14});
  EXPECT_EQ(FirstOf(fit_.FitBackgroundY, 5), (std::vector<float>{2, 3, 4, 5, 0}));
  EXPECT_EQ(fit_.FitParam[ScaleFactor], 1);
  CollectBackground({{10, 30}, {11, 40}, {12, 60}}, {10.5F, 14});
  EXPECT_EQ(FirstOf(fit_.FitBackgroundY, 4), (std::vector<float>{40, 60, 0, 0})) << "none of the one before";
  for (const auto& [x, y] : std::vector<std::pair<float, std::optional<float>>>{
           {10.6F, 40}, {11, 40}, {11.25F, 45}, {12, 60}, {12.5F, 30}, {14, 0}, {14.01F, std::nullopt}}) {
    EXPECT_EQ(MeasuredBackgroundAt(fit_, x), y) << x;
  }
  EXPECT_EQ(HeightAboveBackground(fit_, 11.25F, 1045), 1000);
  EXPECT_EQ(HeightAboveBackground(fit_, 14.01F, 1000), std::nullopt);
  fit_.FitPointCount = 0;
  EXPECT_EQ(MeasuredBackgroundAt(fit_, 12), std::nullopt);
}

TEST_F(FitSetup, NumbersAreRoundedAsTheyAreTaken) {
  for (const auto& [answer, width] :
       std::vector<std::pair<std::string, std::optional<float>>>{{"0.25", 0.25F},
                                                                 {"0.0625", 0.062F},
                                                                 {"0.1875", 0.188F},
                                                                 {" 12D-2 degrees", 0.12F},
                                                                 {"0,3", std::nullopt},
                                                                 {"0.0006", 0.001F},
                                                                 {"0.0004", std::nullopt},
                                                                 {"-1", std::nullopt},
                                                                 {"wide", std::nullopt},
                                                                 {"", std::nullopt},
                                                                 {"1E39", std::nullopt},
                                                                 {"3E38", 3e38F}}) {
    EXPECT_EQ(WidthFromAnswer(answer), width) << answer;
  }
  ProfileBuffer& buffer = data_.Buffer(1);
  buffer.PeakTheta[2] = "28.44271";
  buffer.PeakChannel[2] = "1024.25";
  buffer.PeakY[2] = "100.125";
  for (const bool channels : {false, true}) {
    buffer.FormatCode = static_cast<std::int16_t>(channels ? FormatCodes::CpsChannels : FormatCodes::Siemens);
    const PeakPosition peak = ListedPeakAt(buffer, 2);
    EXPECT_EQ(peak.X, channels ? 1024.2F : 28.443F);
    EXPECT_EQ(peak.Y, 100.12F);
  }
}

}  // namespace
}  // namespace koprax
