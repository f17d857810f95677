// Backgrounds in dashes, against dashes counted by hand.
#include "manipulation/background_plot.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "display/plot_transform.h"

namespace koprax {
namespace {

/// X 0 to 10 over picture x 20 to 120, y one unit a count from 15 up to the top at 90.
constexpr PlotTransform OnScreen{.PlotLeft = 20, .PlotBottom = 15, .PlotTop = 90, .ScaleX = 10, .ScaleY = 1};

PointTable Ramp(int count) {
  PointTable table;
  for (int i = 0; i <= count; ++i) table.push_back(static_cast<float>(i));
  return table;
}

using Draw = void (*)(const PlotTransform&, const CurvePoints&, const CurveOrigin&, Colour, Surface&);

/// The first segments of a curve over X = 1, 2, ... as letters, w for white and a blank for what has been
/// left out.
std::string Segments(Draw draw, const PointTable& y, const PlotTransform& plot = OnScreen, float base = 15) {
  const int count = static_cast<int>(y.size()) - 1;
  Surface surface{PlotPicture().Scale};
  draw(plot, {Ramp(count), y, count}, {.XMin = 0, .Base = base}, colours::Red, surface);
  std::string segments(static_cast<std::size_t>(count - 1), ' ');
  for (const DrawingOperation& operation : surface.Operations()) {
    const auto& line = std::get<LineOperation>(operation);
    EXPECT_EQ(line.X2 - line.X1, 10);
    segments.at(static_cast<std::size_t>((line.X1 - 30) / 10)) =
        line.LineColour == colours::White ? 'w' : 'C';
  }
  return segments.substr(0, 20);
}

TEST(BackgroundPlot, TheDashesGoByTheNumberOfPoints) {
  const std::vector<std::pair<int, int>> rows{{2, 2},    {499, 2},  {500, 4},  {1499, 4},  {1500, 6},
                                              {2499, 6}, {2500, 8}, {3499, 8}, {3500, 10}, {MaxPoints, 10}};
  for (const auto& [points, length] : rows) {
    EXPECT_EQ(DashLength(points), length) << points;
  }
  EXPECT_EQ(Segments(DrawDashedCurve, PointTable(2, 5)), "");
  EXPECT_EQ(Segments(DrawDashedCurve, PointTable(13, 5)), "CCwwwCCCwww");
  EXPECT_EQ(Segments(DrawDashedCurve, PointTable(601, 5)), "CCCCwwwwwCCCCCwwwwwC");
}

TEST(BackgroundPlot, WhatPassesTheTopIsLeftOutButCounts) {
  PointTable y(13, 75);  // just at the top
  y[4] = 75.01F;
  EXPECT_EQ(Segments(DrawDashedCurve, y), "CC  wCCCwww");
  EXPECT_EQ(Segments(DrawWholeCurve, y), "CC  CCCCCCC");
  PlotTransform on_paper = OnScreen;  // y grows downward, and the top is the smaller number
  on_paper.Upward = -1;
  on_paper.PlotTop = 15;
  EXPECT_EQ(Segments(DrawWholeCurve, y, on_paper, 90), "CC  CCCCCCC");
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

}  // namespace
}  // namespace koprax
