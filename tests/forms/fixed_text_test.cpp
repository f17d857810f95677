#include "forms/fixed_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace koprax {
namespace {

/// The definition: while the last place of the field is blank, a blank goes in front.
std::string PlainlyRightAligned(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  for (std::size_t i = 1; i < width; ++i) {
    if (text[width - 1] == ' ') text.insert(0, " ");
  }
  return text;
}

TEST(FixedText, RightAlignTextEndsAtTheEndOfTheField) {
  EXPECT_EQ(RightAlignText("7", 3), "  7");
  EXPECT_EQ(RightAlignText("\xC3\xA9", 3), "  \xC3\xA9");
  for (const char* text :
       {"", " ", "7", "12 ", " 5 ", "1 3", "123", "1234", "12 4", "   4", "12   ", "123  "}) {
    EXPECT_EQ(RightTrimmed(RightAlignText(text, 3)), RightTrimmed(PlainlyRightAligned(text, 3))) << text;
    EXPECT_GE(RightAlignText(text, 3).size(), 3U) << text;
  }
}

TEST(FixedText, AlignDecimalPutsThePeriodInItsColumn) {
  EXPECT_EQ(AlignDecimal("12.345", 8, 4), " 12.345 ");
  EXPECT_EQ(AlignDecimal("1234", 8, 1), "  1234  ");
  EXPECT_EQ(AlignDecimal("123456.7", 8, 4), "123456.7");
  EXPECT_EQ(AlignDecimal("1234567.8", 8, 4), "1234567.8");
  EXPECT_EQ(AlignDecimal("123456789", 8, 4), "123456789");
  EXPECT_EQ(AlignDecimal("1234    ", 8, 1), "  1234  ");  // held in a field already
  EXPECT_EQ(AlignDecimal("1.234568E+10", 9, 4), "   1.234568E+10");
  EXPECT_EQ(AlignDecimal("60", 9, 4), "  60     ");
  EXPECT_EQ(AlignDecimal("-.5", 8, 4), "  -.5   ");
  EXPECT_EQ(AlignDecimal("", 8, 4), "        ");
}

}  // namespace
}  // namespace koprax
