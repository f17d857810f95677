// The frame of a plot: its lines, ticks and labels, against numbers worked out by hand or by a plain walk.
#include "display/plot_axes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "display/plot_ticks.h"

namespace koprax {
namespace {

struct Plotted {
  Workspace Data;
  Surface Picture{PlotPicture().Scale};
  bool Framed = false;

  explicit Plotted(const PlotLimits& limits) {
    Data.CurBuf = 1;
    Draw(limits);
  }
  void Draw(const PlotLimits& limits) {
    Picture.Cls();
    Framed = DrawAxes(Data, limits, Picture);
  }
  template <class Operation>
  [[nodiscard]] std::vector<Operation> Drawn() const {
    std::vector<Operation> drawn;
    for (const auto& operation : Picture.Operations()) {
      if (const auto* one = std::get_if<Operation>(&operation)) drawn.push_back(*one);
    }
    return drawn;
  }
  /// The ticks along X, then those along Y, each as "label@place-distance of the label".
  [[nodiscard]] std::string Ticks() const {
    std::ostringstream ticks;
    ticks << std::fixed;
    const auto& drawn = Picture.Operations();
    for (std::size_t i = 1; i < drawn.size(); ++i) {
      const auto* line = std::get_if<LineOperation>(&drawn[i - 1]);
      const auto* text = std::get_if<TextOperation>(&drawn[i]);
      if (line == nullptr || text == nullptr || text->TextColour != colours::Black) continue;
      const bool along_x = line->X1 == line->X2;
      const float from = along_x ? line->X1 : 20;  // what the label stands left of
      EXPECT_FLOAT_EQ(text->Y, along_x ? 13 : line->Y1 + 1);
      EXPECT_EQ(along_x ? line->Y1 * line->Y2 : line->X1 * line->X2, along_x ? 14 * 16 : 19 * 21);
      ticks << text->Text << "@" << std::setprecision(2) << (along_x ? line->X1 : line->Y1) << "-"
            << std::setprecision(0) << from - text->X << " ";
    }
    return ticks.str();
  }
  [[nodiscard]] std::vector<std::string> Labels() const {
    std::vector<std::string> labels;
    for (const auto& text : Drawn<TextOperation>()) labels.push_back(text.Text);
    return labels;
  }
};

TEST(PlotAxes, TheFrameAndTheAxesComeFirst) {
  const Plotted plot({5, 80, 0, 1000});
  ASSERT_TRUE(plot.Framed);
  EXPECT_EQ(plot.Data.Buffer(1).NegativeY, 0);
  EXPECT_EQ(plot.Data.Plot.ScaleX, static_cast<float>(95.0 / 75.0));
  EXPECT_EQ(plot.Data.Plot.ScaleY, 0.07125F);
  auto lines = plot.Drawn<LineOperation>();
  ASSERT_EQ(lines.size(), 6U + 8U + 7U);
  lines.resize(6);
  EXPECT_EQ(lines, (std::vector<LineOperation>{{5, 5, 5, 95, 0},
                                               {5, 95, 120, 95, 0},
                                               {120, 95, 120, 5, 0},
                                               {120, 5, 5, 5, 0},
                                               {20, 15, 115, 15, 0},
                                               {20, 15, 20, 90, 0}}));
}

TEST(PlotAxes, AZeroLineInRedWhereThePlotReachesBelowZero) {
  const Plotted plot({0, 10, -50, 100});
  EXPECT_EQ(plot.Data.Buffer(1).NegativeY, 1);
  EXPECT_EQ(plot.Data.Plot.ScaleY, 0.475F);
  EXPECT_FLOAT_EQ(plot.Data.Plot.ZeroY, 38.75F);  // the scale is rounded before it is multiplied
  const float zero = plot.Data.Plot.ZeroY;
  EXPECT_EQ(plot.Drawn<LineOperation>()[6], (LineOperation{20, zero, 115, zero, colours::Red}));
  const TextOperation label = plot.Drawn<TextOperation>().front();
  EXPECT_EQ(label, (TextOperation{18, zero + 2, "0", colours::Red, std::string(DefaultFont), 8}));
  EXPECT_EQ(plot.Picture.ForeColor, colours::Black);
  // The walk starts at Fix(1.05 * -50 - 20) = -72, so the first tick would be -52, which lies outside.
  EXPECT_EQ(plot.Labels(),
            (std::vector<std::string>{"0", "", "5", "10", "-32", "-12", " 8", " 28", " 48", " 68", " 88"}));
}

// Places worked out by a walk of its own in 64 bits, outside this program.
TEST(PlotAxes, TicksOfPlotsOneAfterTheOther) {
  struct Row {
    PlotLimits Limits;
    float ZeroY;
    std::string Ticks;
  };
  const std::vector<Row> rows{
      {{0, 10, -10, 10}, 50.625F, "@20.00-3 5@67.50-3 10@115.00-3 -5@32.81-8  0@50.62-6  5@68.44-6 "},
      // A plot above 0 leaves the zero line of the one before where it was.
      {{90, 260, 0, 10},
       50.625F,
       "90@20.00-3 120@36.76-4 150@53.53-4 180@70.29-4 210@87.06-4 240@103.82-4 "
       " 0@15.00-6  2@29.25-6  4@43.50-6  6@57.75-6  8@72.00-6  10@86.25-8 "},
      {{950, 1350, 0, 20000},
       50.625F,
       "960@22.38-4 1040@41.38-5 1120@60.38-5 1200@79.38-5 1280@98.38-5 "
       " 0@15.00-6  3000@25.69-10  6000@36.38-10  9000@47.06-10  12000@57.75-11  15000@68.44-11 "
       " 18000@79.12-11 "},
      {{4.97F, 5.03F, 0, 7},
       50.625F,
       "4.98@35.83-5 5.@67.50-5 5.02@99.17-5  0@15.00-6  2@35.36-6  4@55.71-6  6@76.07-6 "},
      // 480 times 0.2 adds up to 96 within the tolerance of a whole number.
      {{95.5F, 96.5F, -0.5F, 2},
       29.25F,
       "95.6@29.50-5 95.8@48.50-5 96@67.50-3 96.2@86.50-5 96.4@105.50-5  0@29.25-6 "},
      {{0, 0.5F, -3000, 9000},
       32.8125F,
       "@20.00-3 .08@35.20-5 .16@50.40-5 .24@65.60-5 .32@80.80-5 .4@96.00-5 .48@111.20-5 "
       "-150@31.92-10  2850@49.73-10  5850@67.55-10  8850@85.36-10 "},
  };
  Plotted plot({0, 1, 0, 1});
  for (const Row& row : rows) {
    plot.Draw(row.Limits);
    EXPECT_EQ(plot.Ticks(), row.Ticks);
    EXPECT_EQ(plot.Data.Buffer(1).NegativeY, row.Limits.YMin < 0 ? 1 : 0);
    EXPECT_FLOAT_EQ(plot.Data.Plot.ZeroY, row.ZeroY);
  }
}

TEST(PlotAxes, LimitsWithoutSpanOfYDrawTheOuterFrameAlone) {
  Plotted plot({0, 10, -1, 9});
  ASSERT_TRUE(plot.Framed);
  const PlotTransform before = plot.Data.Plot;
  for (const float y : {-3.0F, 0.0F}) {
    plot.Draw({0, 20, y, y});
    EXPECT_FALSE(plot.Framed);
    EXPECT_EQ(plot.Picture.Operations().size(), 4U);
    EXPECT_EQ(plot.Data.Plot.ScaleY, before.ScaleY);
    EXPECT_EQ(plot.Data.Plot.ZeroY, before.ZeroY);
    EXPECT_EQ(plot.Data.Plot.ScaleX, 4.75F);
  }
}

// The steps are strict at their thresholds: the span itself still has the finer step.
TEST(PlotTicks, StepsChangeJustAboveTheirThresholds) {
  struct Row {
    float Above;
    double Step;
  };
  const std::vector<Row> along_x{{0.08F, .04}, {0.2F, .08}, {0.5F, .2}, {1, .3},   {2, .5},
                                 {3, 1},       {8, 5},      {40, 10},   {100, 30}, {300, 80},
                                 {600, 160},   {1000, 300}, {3000, 800}};
  double finer = 0.02;
  for (const Row& row : along_x) {
    EXPECT_EQ(TickStepX(std::nextafter(row.Above, 0.0F)), finer) << row.Above;
    EXPECT_EQ(TickStepX(std::nextafter(row.Above, 1e9F)), row.Step) << row.Above;
    finer = row.Step;
  }
  EXPECT_EQ(TickStepX(8), 1);
  // The thresholds are decimals: the 32-bit 0.08 lies below its own, 0.2 above, 0.5 is exact.
  EXPECT_EQ((std::vector{TickStepX(0.08F), TickStepX(0.2F), TickStepX(0.5F)}),
            (std::vector<double>{0.02, 0.08, 0.08}));
  const std::vector<Row> along_y{{10, 5},        {50, 20},        {200, 70},        {800, 150},
                                 {2000, 500},    {5000, 1000},    {10000, 3000},    {30000, 6000},
                                 {60000, 15000}, {200000, 50000}, {500000, 100000}, {1000000, 200000},
                                 {3000000, 1e6}, {10000000, 2e6}};
  finer = 2;
  for (const Row& row : along_y) {
    EXPECT_EQ(TickStepY(row.Above), finer) << row.Above;
    EXPECT_EQ(TickStepY(std::nextafter(row.Above, 1e9F)), row.Step) << row.Above;
    finer = row.Step;
  }
}

TEST(PlotTicks, LabelsStandFurtherLeftTheLongerTheyAre) {
  struct Row {
    double Y, InPositivePlot, InNegativePlot;
  };
  for (const auto& [y, positive, negative] :
       {Row{0, 6, 6}, Row{9.9, 6, 6}, Row{10, 8, 8}, Row{99, 8, 8}, Row{100, 9, 9}, Row{1000, 10, 10},
        Row{1e4, 11, 11}, Row{1e5, 12, 12}, Row{1e6, 13, 13}, Row{1e7, 14, 14}, Row{-0.9, 6, 6},
        Row{-1, 6, 8}, Row{-10, 6, 9}, Row{-100, 6, 10}, Row{-1e3, 6, 11}, Row{-1e4, 6, 12}, Row{-1e5, 6, 13},
        Row{-1e6, 6, 14}}) {
    EXPECT_EQ(TickOffsetY(y, false), positive) << y;
    EXPECT_EQ(TickOffsetY(y, true), negative) << y;
  }
}

TEST(PlotTicks, AWalkThatWouldNotEndIsNotBegun) {
  int rounds = 0;
  const auto count = [&](double) { ++rounds; };
  WalkTicks(-0.02, 0.02, 1e17, 1e17, count);  // the step is lost in the size of the numbers
  WalkTicks(-3e38, 2e6, 0, 1, count);
  WalkTicks(0, 1, 0, std::nan(""), count);
  WalkTicks(0, 1, INFINITY, INFINITY, count);
  WalkTicks(0, 1, 0, 2e6, count);  // more ticks than anyone could tell apart
  EXPECT_EQ(rounds, 0);
  WalkTicks(0, 1, 1e6, 1e6 + 2, count);
  EXPECT_EQ(rounds, 3);
  // A narrow plot far from 0 draws its curve without ticks along X, rather than hanging.
  const Plotted far({1e9F, 1e9F + 64, 0, 5});
  EXPECT_EQ(far.Labels(), (std::vector<std::string>{" 0", " 2", " 4"}));
}

}  // namespace
}  // namespace koprax
