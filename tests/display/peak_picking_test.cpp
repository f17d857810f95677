// Peaks picked by hand: what is read at the cursor, the heights, the list and its rows.
#include "display/peak_picking.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace koprax {
namespace {

/// A buffer with the points in both copies; d spacings for 1.5406 angstrom.
ProfileBuffer WithPoints(const std::vector<std::pair<float, float>>& points, FormatCodes format) {
  ProfileBuffer buffer;
  buffer.Wavelength = 1.5406F;
  buffer.FormatCode = static_cast<std::int16_t>(format);
  for (const auto& [x, y] : points) {
    const auto i = static_cast<std::size_t>(++buffer.WorkNpts);
    buffer.WorkX[i] = buffer.PermX[i] = x;
    buffer.WorkY[i] = y;
  }
  return buffer;
}

/// Bragg's law in 64 bits; the texts round to 4 decimals, and 32 bits hold 7 digits.
void ExpectSpacing(const std::string& text, double two_theta) {
  const double d = 1.5406 / (2 * std::sin(two_theta / 2 * std::numbers::pi / 180));
  EXPECT_NEAR(std::stod(text), d, 5.1e-5) << two_theta;
}

/// 2-theta and channel of a read-out, as they are shown.
std::string Shown(const PeakPick& pick) { return pick.Theta + " " + pick.Channel; }

TEST(PeakPicking, ReadsDegreesToTheDecimalsOfItsWindow) {
  const ProfileBuffer buffer = WithPoints({{10, 0}, {10.1F, 0}}, FormatCodes::TwoColumns);
  EXPECT_EQ(Shown(ReadOutAt(buffer, 15.12344F)), "15.1234 15.1234");
  ExpectSpacing(ReadOutAt(buffer, 15.12344F).D, 15.12344);
  EXPECT_EQ(Shown(ZoomedReadOutAt(buffer, 0.1F, 15.12344F)), "15.123 15.123");
  ExpectSpacing(ZoomedReadOutAt(buffer, 0.1F, 15.12344F).D, 15.123);
  EXPECT_EQ(ReadOutAt(buffer, 0).D, "0");  // where the sine is 0
}

TEST(PeakPicking, ReadsChannelsByTheirCalibration) {
  ProfileBuffer buffer = WithPoints({{0, 5}, {1, 7}}, FormatCodes::CpsChannels);
  EXPECT_EQ(Shown(ReadOutAt(buffer, 50.5F)), "50.5 50.5");
  EXPECT_EQ(ReadOutAt(buffer, 50.5F).D + ZoomedReadOutAt(buffer, 1, 50.5F).D, "00");

  buffer.CalPar = {0, 20, 0.2, 0, -1e-5};  // 2-theta = 20 + 0.2 c - 0.00001 c^3
  const double two_theta = 20 + 0.2 * 33.33333 - 1e-5 * std::pow(33.33333, 3);
  const PeakPick full = ReadOutAt(buffer, 33.33333F);
  EXPECT_NEAR(std::stod(full.Theta), two_theta, 8e-6);  // to 7 digits, as 32 bits hold it
  ExpectSpacing(full.D, two_theta);
  EXPECT_EQ(Shown(ZoomedReadOutAt(buffer, 1, 33.33333F)), "26.2962 33.333");  // 20 + 6.6666 - 0.370359
  // A step up to 0.98 is one of degrees, whatever the calibration.
  EXPECT_EQ(Shown(ZoomedReadOutAt(buffer, 0.99F, 33.33333F)), "26.2962 33.333");
  EXPECT_EQ(Shown(ZoomedReadOutAt(buffer, 0.97F, 33.33333F)), "33.333 33.333");
  buffer.PermX[2] = 0.97F;
  EXPECT_EQ(Shown(ReadOutAt(buffer, 33.33333F)), "33.3333 33.3333");
}

TEST(PeakPicking, TheHeightIsThatOfTheHigherNeighbour) {
  const std::vector<std::pair<float, float>> points{{10, 9}, {11, 5.25F}, {12, 3}, {13, -2}};
  const ProfileBuffer buffer = WithPoints(points, FormatCodes::TwoColumns);
  // On a point the last pair that holds it counts; outside there is none.
  for (const auto& [x, height] : std::vector<std::pair<float, float>>{
           {10.9F, 9}, {11.5F, 5.25F}, {11, 5.25F}, {12.1F, 3}, {10, 9}, {9.9F, 0}, {13.1F, 0}}) {
    EXPECT_EQ(PeakHeightAt(buffer, x), height) << x;
  }
  const PeakPick read{.Theta = "11.5", .D = "", .Channel = "10", .Y = ""};
  EXPECT_EQ(PickedAt(buffer, read).Y, "5.2");
  EXPECT_EQ(PickedAt(WithPoints(points, FormatCodes::CpsChannels), read).Y, "9");
}

TEST(PeakPicking, RowsHaveTheirNumbersInColumns) {
  struct Case {
    FormatCodes Format;
    int Number;
    PeakPick Pick;
    std::string Row;
  };
  constexpr FormatCodes degrees = FormatCodes::Siemens;
  const std::vector<Case> cases{
      {degrees, 7, {"12.345", "7.1635", "", "1234.5"}, "  7) 12.345    7.1635   1234.5"},
      {degrees, 42, {"30", "2.9", "", "1234"}, " 42) 30        2.9      1234  "},
      {degrees, 100, {"123456.78", "0", "", "123456789.5"}, "100)123456.7   0      12345678"},
      {FormatCodes::CpsChannels, 1, {"26.2962", "3.3864", "512.5", "7"}, "  1)   512.5   3.3864      7  "},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(PickedRow(WithPoints({}, one.Format), one.Number, one.Pick), one.Row + "\r\n");
    EXPECT_EQ(one.Row.size(), 30U);
  }
}

TEST(PeakPicking, TheListHoldsAHundredInTheOrderOfPicking) {
  ProfileBuffer buffer = WithPoints({}, FormatCodes::CpsChannels);
  buffer.Title = "Full";
  buffer.Wavelength = 1.5F;
  for (int i = 1; i <= 100; ++i) {
    EXPECT_FALSE(WhyNotPicked(buffer));
    AddPeak(buffer, {std::to_string(200 - i), "2", std::to_string(i) + ".5", "7"});
  }
  EXPECT_TRUE(WhyNotPicked(buffer));
  EXPECT_EQ(buffer.NPeaks, 100);
  EXPECT_EQ(buffer.PeakTheta[100], "100");
  // In a list that is built anew channels stand with their period in line.
  const std::string rows = PeakRows(buffer);
  constexpr std::size_t row = 32;
  EXPECT_EQ(rows.substr(31 * row, row), " 32) 32.5      2           7  \r\n");
  EXPECT_EQ(PositionOf(buffer, 32).X, 32.5F);
  EXPECT_EQ(PeaksWithin(buffer, {150, 152}).size(), 3U);  // by 2-theta

  RemoveLastPeak(buffer);
  EXPECT_EQ(buffer.PeakTheta[100] + buffer.PeakD[100] + buffer.PeakY[100] + buffer.PeakChannel[100], "");
  EXPECT_EQ(WithoutLastRow(rows), PeakRows(buffer));
  EXPECT_EQ(WithoutLastRow(rows.substr(0, row)) + WithoutLastRow(""), "");
  ClearPeaks(buffer);
  EXPECT_EQ(buffer.NPeaks, 0);
  EXPECT_EQ(buffer.PeakTheta[1] + buffer.PeakY[99], "");
}

}  // namespace
}  // namespace koprax
