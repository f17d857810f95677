// The curve of a profile, and the cutting of a profile to a range.
#include "display/profile_plot.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <utility>
#include <vector>

#include "display/plot_transform.h"
#include "display/zoom.h"
#include "workspace/temporary_copy.h"

namespace koprax {
namespace {

/// A workspace whose buffer a shows the points; the limits of X are the first and the last of them.
Workspace WithProfile(const std::vector<std::pair<float, float>>& points, float ymin, float ymax) {
  Workspace data;
  data.CurBuf = 1;
  ProfileBuffer& buffer = data.Buffer(1);
  buffer.PermNpts = static_cast<std::int16_t>(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::tie(buffer.PermX[i + 1], buffer.PermY[i + 1]) = points[i];
  }
  buffer.PermXMin = points.front().first;
  buffer.PermXMax = points.back().first;
  buffer.PermYMin = ymin;
  buffer.PermYMax = ymax;
  TakeTemporaryCopy(buffer);
  return data;
}

void Unexpected(const Message& message) { ADD_FAILURE() << message.Text; }

std::vector<LineOperation> CurveOf(Workspace& data) {
  Surface frame{PlotPicture().Scale};
  Surface picture{PlotPicture().Scale};
  EXPECT_TRUE(DrawProfile(data, 1, picture, Unexpected));
  const auto points = data.Buffer(1).WorkNpts;
  data.Buffer(1).WorkNpts = 0;
  EXPECT_TRUE(DrawProfile(data, 1, frame, Unexpected));
  data.Buffer(1).WorkNpts = points;
  std::vector<LineOperation> curve;
  for (std::size_t i = frame.Operations().size(); i < picture.Operations().size(); ++i) {
    curve.push_back(std::get<LineOperation>(picture.Operations()[i]));
  }
  return curve;
}

TEST(ProfilePlot, OneSegmentAPairOfNeighboursInTheScaleOfTheFrame) {
  Workspace data = WithProfile({{10, 0}, {15, 100}, {20, 50}}, 0, 100);
  data.Buffer(1).WorkXMin = 5;  // a plot goes by its limits, not by its first point
  // 95 units for 15 degrees, 71.25 for 100 counts; both scales are rounded to 32 bits.
  const auto x = [](double place) {
    return static_cast<float>(20 + (place - 5) * static_cast<double>(95 / 15.0F));
  };
  const auto y = [](double height) { return static_cast<float>(15 + height * static_cast<double>(0.7125F)); };
  EXPECT_EQ(CurveOf(data),
            (std::vector<LineOperation>{{x(10), 15, x(15), y(100), 0}, {x(15), y(100), x(20), y(50), 0}}));
  EXPECT_EQ(data.PlotXMin, 5);
  EXPECT_EQ(data.PlotYMax, 100);
  data.Buffer(1).WorkXMin = 12;
  EXPECT_EQ(CurveOf(data).size(), 1U);  // the segment that begins left of the plot is left out
}

TEST(ProfilePlot, SegmentsPastTheTopOrOutsideTheRangeAreLeftOutThoseBelowTheAxisAreNot) {
  // The plot ends 5 per cent above the highest Y: 105.3 of 100 is above it, 105.2 isn't.
  Workspace data = WithProfile({{10, 1}, {11, 105.3F}, {12, 2}, {13, 105.2F}, {14, -30}, {20, 3}}, 0, 100);
  data.Buffer(1).WorkX[5] = 25;  // beyond the range, without being its end
  EXPECT_EQ(CurveOf(data).size(), 1U);
  data.Buffer(1).WorkX[5] = 14;
  const auto curve = CurveOf(data);
  ASSERT_EQ(curve.size(), 3U);
  EXPECT_LT(curve.back().Y1, 15);
}

TEST(ProfilePlot, TheBaseIsThatOfTheBuffersOwnFrame) {
  Workspace data = WithProfile({{0, 0}, {10, 50}}, 0, 100);
  data.CurBuf = 2;
  data.Buffer(1).NegativeY = 1;  // its last frame reached below 0
  data.Plot.ZeroY = 40;
  const auto curve = CurveOf(data);
  ASSERT_EQ(curve.size(), 1U);
  EXPECT_EQ(curve[0].Y1, 40);
}

TEST(ProfilePlot, AFlatProfileIsToldAndThenDrawnInTheScaleOfTheLastPlot) {
  Workspace data = WithProfile({{0, 0}, {5, 0}, {10, 0}}, 0, 100);
  Surface picture{PlotPicture().Scale};
  ASSERT_TRUE(DrawProfile(data, 1, picture, Unexpected));
  data.Buffer(1).WorkYMax = 0;
  data.Buffer(1).WorkY[2] = 100;
  picture.Cls();
  std::vector<std::size_t> drawn_before_telling;
  EXPECT_TRUE(DrawProfile(data, 1, picture, [&](const Message&) {
    drawn_before_telling.push_back(picture.Operations().size());
  }));
  EXPECT_EQ(drawn_before_telling, std::vector<std::size_t>{4});  // the outer frame
  ASSERT_EQ(picture.Operations().size(), 6U);
  EXPECT_FLOAT_EQ(std::get<LineOperation>(picture.Operations()[4]).Y2, 86.25F);
}

TEST(ProfilePlot, NothingIsDrawnWithoutARangeOfX) {
  Workspace narrow = WithProfile({{0, 1}, {0.000011F, 2}}, 0, 2);
  EXPECT_EQ(CurveOf(narrow).size(), 1U);
  for (const auto& points : std::vector<std::vector<std::pair<float, float>>>{
           {{10, 1}}, {{80, 1}, {10, 2}}, {{0, 1}, {0.0000099F, 2}}, {{-3e38F, 1}, {3e38F, 2}}}) {
    Workspace data = WithProfile(points, 0, 2);
    Surface picture{PlotPicture().Scale};
    EXPECT_FALSE(DrawProfile(data, 1, picture, Unexpected));
    EXPECT_TRUE(picture.Operations().empty());
  }
}

TEST(Zoom, KeepsThePointsOfTheRangeInOrderAndClearsTheRest) {
  Workspace data = WithProfile({{1, 10}, {2, 20}, {3, 30}, {4, 40}, {5, 50}}, 10, 50);
  ProfileBuffer& buffer = data.Buffer(1);
  buffer.WorkX[6] = 99;  // stale, behind the profile
  CutToRange(data, 2, 4);
  EXPECT_EQ(buffer.WorkNpts, 3);
  EXPECT_EQ(std::vector(buffer.WorkX.begin() + 1, buffer.WorkX.begin() + 7),
            (std::vector<float>{2, 3, 4, 0, 0, 99}));
  EXPECT_EQ(std::vector(buffer.WorkY.begin() + 1, buffer.WorkY.begin() + 6),
            (std::vector<float>{20, 30, 40, 0, 0}));
  EXPECT_EQ((std::array{buffer.WorkXMin, buffer.WorkXMax, buffer.WorkYMax}), (std::array{2.0F, 4.0F, 50.0F}));
  EXPECT_TRUE(IsZoomed(buffer));
  CutToRange(data, 2.2F, 2.8F);
  EXPECT_EQ(buffer.WorkNpts, 0);
  CommitTemporaryCopy(buffer);
  EXPECT_EQ(buffer.PermNpts, 0);
  EXPECT_EQ(buffer.PermX[1], 0);
}

TEST(TemporaryCopy, CommitFindsTheLimitsOfYFromStartValuesThatAreNoExtremes) {
  Workspace data = WithProfile({{1, 20000}, {2, 30000}, {3, 25000}}, 0, 0);
  ProfileBuffer& buffer = data.Buffer(1);
  CommitTemporaryCopy(buffer);
  EXPECT_EQ((std::array{buffer.PermYMin, buffer.PermYMax, buffer.PermXMax}),
            (std::array{10000.0F, 30000.0F, 3.0F}));
  EXPECT_FALSE(IsZoomed(buffer));
  for (float* limit : {&buffer.WorkX[1], &buffer.WorkXMin, &buffer.WorkXMax}) {
    *limit += 0.00005F;
    EXPECT_FALSE(IsZoomed(buffer));
    *limit += 0.0002F;
    EXPECT_TRUE(IsZoomed(buffer));
    TakeTemporaryCopy(buffer);
  }
}

}  // namespace
}  // namespace koprax
