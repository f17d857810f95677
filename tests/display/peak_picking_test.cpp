// Peaks picked by hand: what is read at the cursor, the heights, the list and its rows.
#include "display/peak_picking.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <numbers>
#include <string>

#include "display/peak_markers.h"

namespace koprax {
namespace {

/// A buffer with the points in both copies; d spacings for 1.5406 angstrom.
ProfileBuffer WithPoints(std::initializer_list<std::pair<float, float>> points) {
  ProfileBuffer buffer;
  buffer.Wavelength = 1.5406F;
  for (const auto& [x, y] : points) {
    const auto i = static_cast<std::size_t>(++buffer.WorkNpts);
    buffer.WorkX[i] = buffer.PermX[i] = x;
    buffer.WorkY[i] = y;
  }
  return buffer;
}

ProfileBuffer Channels() {
  ProfileBuffer buffer = WithPoints({{0, 5}, {1, 7}, {2, 5}});
  buffer.FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);
  return buffer;
}

/// Bragg's law in 64 bits; the texts round to 4 decimals, and 32 bits hold 7 digits.
void ExpectSpacing(const std::string& text, double two_theta) {
  const double d = 1.5406 / (2 * std::sin(two_theta / 2 * std::numbers::pi / 180));
  EXPECT_NEAR(std::stod(text), d, 5.1e-5) << two_theta;
}

TEST(PeakPicking, ReadsDegreesToTheDecimalsOfItsWindow) {
  const ProfileBuffer buffer = WithPoints({{10, 0}, {10.1F, 0}});
  const PeakPick full = ReadOutAt(buffer, 15.12344F);
  EXPECT_EQ(full.Theta, "15.1234");
  EXPECT_EQ(full.Channel, "15.1234");
  ExpectSpacing(full.D, 15.12344);
  const PeakPick zoomed = ZoomedReadOutAt(buffer, 0.1F, 15.12344F);
  EXPECT_EQ(zoomed.Theta, "15.123");
  EXPECT_EQ(zoomed.Channel, "15.123");
  ExpectSpacing(zoomed.D, 15.123);
  EXPECT_EQ(ReadOutAt(buffer, 0).D, "0");  // where the sine is 0
}

TEST(PeakPicking, ReadsChannelsByTheirCalibration) {
  ProfileBuffer buffer = Channels();
  EXPECT_EQ(ReadOutAt(buffer, 50.5F).Theta, "50.5");
  EXPECT_EQ(ReadOutAt(buffer, 50.5F).D, "0");
  EXPECT_EQ(ZoomedReadOutAt(buffer, 1, 50.5F).D, "0");

  buffer.CalPar = {0, 20, 0.2, 0, -1e-5};  // 2-theta = 20 + 0.2 c - 0.00001 c^3
  const double two_theta = 20 + 0.2 * 33.33333 - 1e-5 * std::pow(33.33333, 3);
  const PeakPick full = ReadOutAt(buffer, 33.33333F);
  EXPECT_EQ(full.Channel, "33.3333");
  EXPECT_NEAR(std::stod(full.Theta), two_theta, 8e-6);  // to 7 digits, as 32 bits hold it
  ExpectSpacing(full.D, two_theta);
  const PeakPick zoomed = ZoomedReadOutAt(buffer, 1, 33.33333F);
  EXPECT_EQ(zoomed.Channel, "33.333");
  EXPECT_EQ(zoomed.Theta, "26.2962");  // 20 + 6.6666 - 0.370359
  // A step up to 0.98 is one of degrees, whatever the calibration.
  EXPECT_EQ(ZoomedReadOutAt(buffer, 0.97F, 33.33333F).Theta, "33.333");
  EXPECT_EQ(ZoomedReadOutAt(buffer, 0.99F, 33.33333F).Theta, "26.2962");
  buffer.PermX[2] = 0.97F;
  EXPECT_EQ(ReadOutAt(buffer, 33.33333F).Theta, "33.3333");
}

TEST(PeakPicking, TheHeightIsThatOfTheHigherNeighbour) {
  const ProfileBuffer buffer = WithPoints({{10, 9}, {11, 5.25F}, {12, 3}, {13, -2}});
  struct Case {
    float X;
    float Height;
  };
  // On a point the last pair that holds it counts; outside there is none.
  for (const Case& one :
       {Case{10.9F, 9}, {11.5F, 5.25F}, {11, 5.25F}, {12.1F, 3}, {10, 9}, {9.9F, 0}, {13.1F, 0}}) {
    EXPECT_EQ(PeakHeightAt(buffer, one.X), one.Height) << one.X;
  }
  EXPECT_EQ(PickedAt(buffer, {.Theta = "11.5", .D = "", .Channel = "10", .Y = ""}).Y, "5.2");
  ProfileBuffer channels = buffer;
  channels.FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);
  EXPECT_EQ(PickedAt(channels, {.Theta = "11.5", .D = "", .Channel = "10", .Y = ""}).Y, "9");
}

TEST(PeakPicking, RowsHaveTheirNumbersInColumns) {
  struct Case {
    int Number;
    PeakPick Pick;
    std::string Row;
  };
  const ProfileBuffer degrees;
  for (const Case& one : {
           Case{7, {"12.345", "7.1635", "", "1234.5"}, "  7) 12.345    7.1635   1234.5\r\n"},
           Case{42, {"30", "2.9", "", "1234"}, " 42) 30        2.9      1234  \r\n"},
           Case{100, {"123456.78", "0", "", "123456789.5"}, "100)123456.7   0      12345678\r\n"},
       }) {
    EXPECT_EQ(PickedRow(degrees, one.Number, one.Pick), one.Row);
    EXPECT_EQ(one.Row.size(), 32U);
  }
}

TEST(PeakPicking, ChannelsStandAtTheRightWhenPickedAndInLineWhenListed) {
  ProfileBuffer buffer = Channels();
  const PeakPick pick{.Theta = "26.2962", .D = "3.3864", .Channel = "512.25", .Y = "7"};
  EXPECT_EQ(PickedRow(buffer, 1, pick), "  1)  512.25   3.3864      7  \r\n");
  ASSERT_TRUE(AddPeak(buffer, pick));
  EXPECT_EQ(PeakRows(buffer), "  1)512.25     3.3864      7  \r\n");
  EXPECT_EQ(PositionOf(buffer, 1).X, 512.25F);
  // The zoom marks by 2-theta.
  EXPECT_EQ(PeaksWithin(buffer, {26, 27}).size(), 1U);
  EXPECT_EQ(PeaksWithin(buffer, {512, 513}).size(), 0U);
}

TEST(PeakPicking, TheListHoldsAHundredInTheOrderOfPicking) {
  ProfileBuffer buffer;
  for (int i = 1; i <= 100; ++i) {
    ASSERT_TRUE(AddPeak(buffer, {.Theta = std::to_string(200 - i), .D = "2", .Channel = "9", .Y = "5"}));
  }
  const ProfileBuffer full = buffer;
  EXPECT_FALSE(AddPeak(buffer, {.Theta = "1", .D = "1", .Channel = "1", .Y = "1"}));
  EXPECT_EQ(buffer.NPeaks, 100);
  EXPECT_EQ(buffer.PeakTheta, full.PeakTheta);
  EXPECT_EQ(buffer.PeakTheta[2], "198");
  EXPECT_EQ(buffer.PeakChannel[1], "");  // kept in channels alone
  const std::string rows = PeakRows(buffer);
  EXPECT_EQ(rows.size(), 3200U);

  RemoveLastPeak(buffer);
  EXPECT_EQ(buffer.NPeaks, 99);
  EXPECT_EQ(buffer.PeakTheta[100] + buffer.PeakD[100] + buffer.PeakY[100], "");
  EXPECT_EQ(WithoutLastRow(rows), PeakRows(buffer));
  EXPECT_EQ(WithoutLastRow(rows.substr(0, 32)), "");
  EXPECT_EQ(WithoutLastRow(""), "");
  ClearPeaks(buffer);
  EXPECT_EQ(buffer.NPeaks, 0);
  EXPECT_EQ(buffer.PeakTheta[1] + buffer.PeakY[99], "");
}

TEST(PeakPicking, MarkersFloatAboveThePeakAndEndAtTheFrame) {
  PlotTransform plot;
  plot.PlotLeft = 20;
  plot.FrameTop = 95;
  plot.ScaleX = 2;
  plot.ScaleY = 0.5F;
  const CurveOrigin origin{.XMin = 10, .Base = 15};
  Surface picture{PlotPicture().Scale};
  DrawMarker(plot, origin, {15, 40}, MarkerLength, picture);  // px 30, py 35
  DrawMarker(plot, origin, {15, 40}, ZoomedMarkerLength, picture);
  EraseMarker(plot, origin, {15, 40}, picture);
  DrawMarker(plot, origin, {15, 150}, MarkerLength, picture);  // py 90
  EraseMarker(plot, origin, {15, 150}, picture);
  const std::vector<DrawingOperation> expected{
      LineOperation{30, 38, 30, 48, 255}, LineOperation{30, 38, 30, 45, 255},
      LineOperation{30, 37.5F, 30, 48.5F, 16777215}, LineOperation{30, 93, 30, 95, 255},
      LineOperation{30, 92.5F, 30, 95, 16777215}};
  EXPECT_EQ(picture.Operations(), expected);
}

}  // namespace
}  // namespace koprax
