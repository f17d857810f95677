// Where lines, points and printed texts leave the position of a surface.
#include "forms/surface.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace koprax {
namespace {

std::pair<float, float> Position(const Surface& surface) { return {surface.CurrentX, surface.CurrentY}; }

TEST(Surface, PrintedLinesStand12FontSizesApartWhicheverWayYGrows) {
  // Sizes in points, 25.4 / 72 mm each: 8 points are 2.8222 mm, their line 3.3867 mm.
  const std::vector<std::pair<UserScale, float>> scales{
      {{.Left = 2, .Top = 98, .Width = 120, .Height = -95}, 50 - 3.386667F},
      {{.Left = 2, .Top = 0, .Width = 297, .Height = 210}, 50 + 3.386667F},
      {{.Left = 2, .Top = 0, .Width = 9000, .Height = 9000, .UnitsPerPoint = 20}, 50 + 192}};
  for (const auto& [scale, next] : scales) {
    Surface surface(scale);
    EXPECT_EQ(Position(surface), std::pair(scale.Left, scale.Top));
    surface.MoveTo(30, 50);
    surface.Print("one\r\ntwo");
    ASSERT_EQ(surface.Operations().size(), 2U);
    EXPECT_EQ(std::get<TextOperation>(surface.Operations()[0]),
              (TextOperation{30, 50, "one", colours::Black, "MS Sans Serif", 8}));
    const auto& second = std::get<TextOperation>(surface.Operations()[1]);
    EXPECT_EQ(second.Text, "two");
    EXPECT_EQ(second.X, 2);
    EXPECT_FLOAT_EQ(second.Y, next);
    EXPECT_FLOAT_EQ(surface.CurrentY, 2 * next - 50);
  }
}

TEST(Surface, EverythingDrawnMovesThePosition) {
  Surface surface({.Left = 1, .Top = 98, .Width = 120, .Height = -95});
  surface.ForeColor = colours::Blue;
  surface.Line(1, 2, 3, 4);
  EXPECT_EQ(Position(surface), std::pair(3.0F, 4.0F));
  surface.PSet(5, 6, colours::Red);
  EXPECT_EQ(Position(surface), std::pair(5.0F, 6.0F));
  std::string texts;
  for (const double number : {0.0, 12.5, -12.5, 1e15}) {
    surface.Print(number);
    texts += std::get<TextOperation>(surface.Operations().back()).Text + "/";
  }
  EXPECT_EQ(texts, " 0/ 12.5/-12.5/ 1E+15/");
  EXPECT_EQ(std::get<LineOperation>(surface.Operations()[0]), (LineOperation{1, 2, 3, 4, colours::Blue}));
  EXPECT_EQ(std::get<PointOperation>(surface.Operations()[1]), (PointOperation{5, 6, colours::Red}));
  surface.Cls();
  EXPECT_TRUE(surface.Operations().empty());
  EXPECT_EQ(Position(surface), std::pair(1.0F, 98.0F));
}

}  // namespace
}  // namespace koprax
