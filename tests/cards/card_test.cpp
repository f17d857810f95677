// A reference card as sticks and as text, against what is worked out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cards/card_plot.h"
#include "cards/card_table.h"

namespace koprax {
namespace {

struct Reflection {
  float H, K, L, Intensity, TwoTheta, D;
};

ProfileBuffer CardOf(const std::vector<Reflection>& reflections) {
  ProfileBuffer card;
  card.PermNpts = card.WorkNpts = static_cast<std::int16_t>(reflections.size());
  for (std::size_t i = 0; i < reflections.size(); ++i) {
    const Reflection& one = reflections[i];
    card.CardH[i + 1] = one.H;
    card.CardK[i + 1] = one.K;
    card.CardL[i + 1] = one.L;
    card.PermY[i + 1] = card.WorkY[i + 1] = one.Intensity;
    card.PermX[i + 1] = card.WorkX[i + 1] = one.TwoTheta;
    card.CardD[i + 1] = one.D;
  }
  card.PermXMin = reflections.front().TwoTheta;
  card.PermXMax = reflections.back().TwoTheta;
  return card;
}

const std::vector<Reflection> Four{{1, 1, 1, 100, 28.44251F, 3.13551F},
                                   {2, 2, 0, 55.55F, 47.3F, 1.92F},
                                   {-1, 0, 12, 7, 101.23456F, 12.5F},
                                   {0, 4, 0, 0.25F, 9.5F, 123.45678F}};

TEST(CardTable, RoundsItsNumbersIntoColumns) {
  EXPECT_EQ(CardTable(CardOf(Four)),
            "  H   K   L  Intens.  2Theta     d \r\n"
            "  1   1   1   100     28.443   3.1355\r\n"
            "  2   2   0  55.5     47.3     1.92  \r\n"
            " -1   0  12     7    101.235  12.5   \r\n"
            "  0   4   0   0.2      9.5    123.456\r\n");
}

TEST(CardTable, PrintsThreeReflectionsARowWithAllTheirDigits) {
  EXPECT_EQ(PrintedCardRows(CardOf(Four)),
            (std::vector<std::string>{"         1   1   1 100   3.1355  28.442   "
                                      "  2   2   055.55  1.92    47.3     "
                                      " -1   0  12   7  12.5    101.234   ",
                                      "         0   4   00.25 123.4568   9.5     "}));
}

TEST(CardTable, ListsOfAProfileThatIsTakenForACardWhatACardCanHave) {
  ProfileBuffer profile;
  profile.PermNpts = profile.WorkNpts = MaxPoints;
  const std::string table = CardTable(profile);
  EXPECT_EQ(std::ranges::count(table, '\n'), 1 + MaxReflections);
  EXPECT_EQ(PrintedCardRows(profile).size(), 167U);
}

TEST(CardPlot, DrawsAStickForEachReflectionAsHighAsTheCardSays) {
  const ProfileBuffer card = CardOf({{1, 1, 1, 100, 30, 3}, {2, 2, 0, 60, 119, 2}});
  StickPlot plot;
  Surface picture(StickPicture().Scale);
  ASSERT_TRUE(plot.DrawFrame(CardRange(card), picture));
  plot.DrawSticks(CardSticks(card), picture);
  // 99 units for 25 to 124 degrees; 28.5 units for 120.
  const auto y = [](double intensity) { return static_cast<float>(10 + 28.5 / 120 * intensity); };
  const auto& drawn = picture.Operations();
  EXPECT_EQ(drawn[0], DrawingOperation(LineOperation{3, 2, 3, 43, 0}));
  EXPECT_EQ(drawn[5], DrawingOperation(LineOperation{13, 10, 13, 40, 0}));
  EXPECT_EQ(drawn[drawn.size() - 2], DrawingOperation(LineOperation{18, 10, 18, y(100), colours::Red}));
  EXPECT_EQ(drawn[drawn.size() - 1], DrawingOperation(LineOperation{107, 10, 107, y(60), colours::Red}));
}

}  // namespace
}  // namespace koprax
