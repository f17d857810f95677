// Backgrounds in dashes, against dashes counted by hand.
#include "manipulation/background_plot.h"

#include <gtest/gtest.h>

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "display/named_colours.h"
#include "display/plot_transform.h"

namespace koprax {
namespace {

/// X 0 to 10 over picture x 20 to 120, y one unit a count from 15 up to the top at 90.
constexpr PlotTransform OnScreen{.PlotLeft = 20, .PlotBottom = 15, .PlotTop = 90, .ScaleX = 10, .ScaleY = 1};
constexpr CurveOrigin FromZero{.XMin = 0, .Base = 15};

PointTable Ramp(int count) {
  PointTable table;
  for (int i = 0; i <= count; ++i) table.push_back(static_cast<float>(i));
  return table;
}

/// The segments of a curve as letters, lower case for white and a blank for what has been left out. A segment
/// stands at its X.
std::string Dashes(const Surface& surface, int count) {
  std::string dashes(static_cast<std::size_t>(count - 1), ' ');
  for (const DrawingOperation& operation : surface.Operations()) {
    const auto& line = std::get<LineOperation>(operation);
    EXPECT_EQ(line.X2 - line.X1, 10);
    const auto at = static_cast<std::size_t>((line.X1 - 20) / 10) - 1;
    dashes.at(at) = line.LineColour == colours::White ? 'w' : 'C';
  }
  return dashes;
}

TEST(BackgroundPlot, TheDashesGoByTheNumberOfPoints) {
  const std::vector<std::pair<int, int>> rows{{2, 2},    {499, 2},  {500, 4},  {1499, 4},  {1500, 6},
                                              {2499, 6}, {2500, 8}, {3499, 8}, {3500, 10}, {MaxPoints, 10}};
  for (const auto& [points, length] : rows) {
    EXPECT_EQ(DashLength(points), length) << points;
  }
  const PointTable flat(601, 5.0F);
  for (const int count : {1, 12, 600}) {
    Surface surface{PlotPicture().Scale};
    DrawDashedCurve(OnScreen, {Ramp(count), flat, count}, FromZero, colours::Red, surface);
    const std::string start = count < 500 ? "CCwwwCCCwww" : "CCCCwwwwwCCCCCwwwww";
    EXPECT_TRUE(Dashes(surface, count).starts_with(start.substr(0, static_cast<std::size_t>(count - 1))));
    EXPECT_EQ(surface.Operations().size(), static_cast<std::size_t>(count - 1));
  }
}

TEST(BackgroundPlot, WhatPassesTheTopIsLeftOutButCounts) {
  PointTable y(13, 75);  // just at the top
  y[4] = 75.01F;
  const PointTable x = Ramp(12);
  Surface dashed{PlotPicture().Scale};
  DrawDashedCurve(OnScreen, {x, y, 12}, FromZero, colours::Red, dashed);
  EXPECT_EQ(Dashes(dashed, 12), "CC  wCCCwww");
  Surface whole{PlotPicture().Scale};
  DrawWholeCurve(OnScreen, {x, y, 12}, FromZero, colours::Blue, whole);
  EXPECT_EQ(Dashes(whole, 12), "CC  CCCCCCC");
  EXPECT_EQ(whole.Operations()[0], DrawingOperation(LineOperation{30, 90, 40, 90, colours::Blue}));

  // On paper y grows downward and the top is the smaller number.
  PlotTransform on_paper = OnScreen;
  on_paper.Upward = -1;
  on_paper.PlotTop = 15;
  Surface paper{PlotPicture().Scale};
  DrawWholeCurve(on_paper, {x, y, 12}, {.XMin = 0, .Base = 90}, colours::Black, paper);
  EXPECT_EQ(Dashes(paper, 12), "CC  CCCCCCC");
  EXPECT_EQ(paper.Operations()[0], DrawingOperation(LineOperation{30, 15, 40, 15, colours::Black}));
}

TEST(BackgroundPlot, AZoomDrawsEachSegmentOfBothWhereItLiesInTheRange) {
  const PointTable x = Ramp(6);
  const PointTable profile{0, 10, 20, 30, 80, 10, 10};
  const PointTable padded{9, 9, 9, 1, 2, 3, 4, 5, 99};  // the background stands from position 3 on
  Surface surface{PlotPicture().Scale};
  DrawProfileWithBackground(
      OnScreen,
      {.X = x, .Profile = profile, .Background = std::span<const float>(padded).subspan(2), .Count = 6},
      {.XMin = 2, .Base = 15}, {.Low = 2, .High = 5}, {.Profile = colours::Black, .Background = colours::Red},
      surface);
  // Of the segments from 3 to 4 and 4 to 5 the profile passes the top.
  EXPECT_EQ(surface.Operations(),
            (std::vector<DrawingOperation>{
                LineOperation{20, 35, 30, 45, colours::Black}, LineOperation{20, 17, 30, 18, colours::Red},
                LineOperation{30, 18, 40, 19, colours::Red}, LineOperation{40, 19, 50, 20, colours::Red}}));
}

TEST(NamedColours, HaveRedInTheLowByte) {
  EXPECT_EQ(ColourOfName("Cyano"), 0xFFFF00U);
  EXPECT_EQ(ColourOfName("Green"), 0x00FF00U);
  EXPECT_EQ(ColourOfName("red"), std::nullopt);
}

}  // namespace
}  // namespace koprax
