// A computed profile as it is drawn, and as it lands in a buffer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "display/computed_profile_plot.h"
#include "display/computed_profile_saving.h"
#include "display/plot_axes.h"
#include "display/plot_transform.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;

/// Buffers b and e at work in a plot from 10 to 20, with a result that begins at 12.
class ComputedProfileTest : public testing::Test {
 protected:
  ComputedProfileTest() {
    Data.CurBuf = Data.SumSource = 2;
    Data.PlotXMin = 10;
    Data.PlotXMax = 20;
    Data.SumWavelength = 1.25F;
    ProfileBuffer& source = Data.Buffer(2);
    source.Title = FixedField("Source", TitleWidth);
    source.FormatCode = static_cast<std::int16_t>(FormatCodes::Philips);
    source.UdfHeader[7] = "Anode,Cu,/";
    source.NPeaks = 1;
  }
  void Compute(const std::vector<float>& y, float ymin, float ymax) {
    Data.Sum = {.SumNpts = static_cast<float>(y.size()),
                .SumXMin = 12,
                .SumXMax = 16,
                .SumYMin = ymin,
                .SumYMax = ymax,
                .SumXStep = 2};
    for (std::size_t i = 1; i <= y.size(); ++i) {
      Data.Sum.SumX[i] = 10 + 2 * static_cast<float>(i);
      Data.Sum.SumY[i] = y[i - 1];
    }
  }
  /// What lies above the frame: the curve, without the three texts of the labels.
  std::vector<LineOperation> Curve(TwoProfileOperation operation, int messages = 0) {
    Surface picture{TallPlotPicture("").Scale};
    int told = 0;
    EXPECT_TRUE(DrawComputedProfile(Data, operation, picture, [&](const Message&) { ++told; }));
    EXPECT_EQ(told, messages);
    Surface frame{TallPlotPicture("").Scale};
    Workspace other;
    (void)DrawAxes(other, {10, 20, Data.Sum.SumYMin, Data.Sum.SumYMax}, frame);
    std::vector<LineOperation> curve;
    for (std::size_t i = frame.Operations().size(); i + 3 < picture.Operations().size(); ++i) {
      curve.push_back(std::get<LineOperation>(picture.Operations()[i]));
    }
    return curve;
  }

  Workspace Data;
};

/// Within a few bits of coordinates up to 120, in 32 bits.
MATCHER_P4(IsLine, x1, y1, x2, y2, "") {
  const auto near = [](double drawn, double expected) { return std::abs(drawn - expected) < 3e-5; };
  return near(arg.X1, x1) && near(arg.Y1, y1) && near(arg.X2, x2) && near(arg.Y2, y2) &&
         arg.LineColour == colours::Black;
}

TEST_F(ComputedProfileTest, ASumIsScaledFrom0ADifferenceFromItsLeastValue) {
  // 9.5 units a degree from x = 20; the last point lies beyond the common range.
  Compute({50, 100, 25, 75}, 25, 100);
  EXPECT_THAT(Curve(TwoProfileOperation::Sum),
              ElementsAre(IsLine(39, 15 + 50 * 0.7125, 58, 86.25), IsLine(58, 86.25, 77, 15 + 25 * 0.7125)));
  // 71.25 units for 75 counts, from the X axis all the same: 100 counts pass the top.
  EXPECT_EQ(Curve(TwoProfileOperation::Difference).size(), 0U);
  EXPECT_FLOAT_EQ(Data.Plot.ScaleY, 0.95F);
  Compute({-50, 100, 0}, -50, 100);
  EXPECT_THAT(Curve(TwoProfileOperation::Difference),  // stands on the zero line at 38.75
              ElementsAre(IsLine(39, 15, 58, 86.25), IsLine(58, 86.25, 77, 38.75)));
  EXPECT_EQ(Data.Buffer(2).NegativeY, 1);
}

TEST_F(ComputedProfileTest, LabelsAndLegend) {
  Compute({50, 100}, 0, 100);
  for (const float step : {0.5F, 1.0F}) {
    Data.Buffer(2).WorkX[2] = step;
    Surface picture{TallPlotPicture("").Scale};
    (void)DrawComputedProfile(Data, TwoProfileOperation::Sum, picture, [](const Message&) {});
    EXPECT_EQ(picture.Operations().at(picture.Operations().size() - 3),
              DrawingOperation(step < 0.97F
                                   ? TextOperation{103, 10, "2q", colours::Black, "symbol", 12}
                                   : TextOperation{101, 9, "Channel", colours::Black, "MS Sans Serif", 8}));
  }
  Surface legend{LegendPicture().Scale};
  DrawComputedLegend(TwoProfileOperation::Sum, legend);
  EXPECT_EQ(legend.Operations(),
            (std::vector<DrawingOperation>{
                LineOperation{1, 3, 16, 3, colours::Black},
                TextOperation{18, 2, "Y = Y1 + Y2,  no buffer yet", colours::Black, "MS Sans Serif", 8}}));
}

TEST_F(ComputedProfileTest, LimitsThatSpanNothing) {
  Compute({50, 100}, 0, 100);
  Curve(TwoProfileOperation::Sum);
  const float scale = Data.Plot.ScaleY;
  Compute({0, 0}, 0, 0);
  EXPECT_EQ(Curve(TwoProfileOperation::Sum, 1).size(), 1U);
  EXPECT_EQ(Data.Plot.ScaleY, scale);
  Data.PlotXMax = 10;
  Surface picture{TallPlotPicture("").Scale};
  EXPECT_FALSE(DrawComputedProfile(Data, TwoProfileOperation::Sum, picture, [](const Message&) {}));
  EXPECT_TRUE(picture.Operations().empty());
}

TEST_F(ComputedProfileTest, ItLandsInAFreeBufferOrInPlaceOfOneOfItsSources) {
  Compute({50, 100, 25}, 25, 100);
  Data.Buffer(4).WorkX[9] = 7;  // a free buffer isn't reset
  for (const int slot : {4, 2}) {
    ProfileBuffer& buffer = Data.Buffer(slot);
    buffer.PermY[9] = 7;
    StoreComputedProfile(Data, slot);
    EXPECT_TRUE(buffer.Empty()) << "the title is still to be given";
    EXPECT_EQ(buffer.PermNpts + buffer.WorkNpts, 6);
    EXPECT_EQ(buffer.FormatCode, 5);
    EXPECT_EQ(buffer.UdfHeader[7], "Anode,Cu,/");
    EXPECT_EQ(buffer.Wavelength, 1.25F);
    EXPECT_EQ(buffer.XStep, 2);
    EXPECT_EQ(buffer.PermX[3] + buffer.WorkX[3] + buffer.PermY[3] + buffer.WorkY[3], 82);
    EXPECT_EQ(buffer.PermXMin + buffer.WorkXMin + buffer.FileXMin, 36);
    EXPECT_EQ(buffer.PermXMax + buffer.WorkXMax + buffer.FileXMax, 48);
    EXPECT_EQ(buffer.PermYMin + buffer.WorkYMin + buffer.PermYMax + buffer.WorkYMax, 250);
    EXPECT_EQ(buffer.PermY[9], slot == 4 ? 7 : 0);
  }
  EXPECT_EQ(Data.Buffer(2).NPeaks, 1) << "the list stays with its buffer";
  for (const auto format : std::array<std::int16_t, 5>{1, 2, 3, 4, 6}) {  // all without such a header
    Data.Buffer(2).FormatCode = format;
    StoreComputedProfile(Data, 5);
    EXPECT_NE(Data.Buffer(5).UdfHeader[7], "Anode,Cu,/") << format;
  }
}

}  // namespace
}  // namespace koprax
