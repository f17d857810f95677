// Lists as they stand in the windows, one of each kind, against what a spreadsheet should get of them.
#include "forms/table_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace koprax {
namespace {

using testing::ElementsAre;

TEST(TableText, EachKindOfListBecomesColumns) {
  EXPECT_THAT(TabSeparatedRows("  1) 746.405   3.1358  16574  \r\n  2)1447.837   1.92     8608  \r\n"),
              ElementsAre("1)\t746.405\t3.1358\t16574", "2)\t1447.837\t1.92\t8608"))
      << "picked peaks, refined ones alike: the number may touch the position";
  EXPECT_THAT(TabSeparatedRows("    2-theta     Channel \r\n1) 28.442  746.41\r\n"),
              ElementsAre("\t2-theta\tChannel", "1)\t28.442\t746.41"))
      << "couples: the running number has no heading";
  EXPECT_THAT(TabSeparatedRows("     Parameter        Sigma\r\n A0 =  8.247656    0.05050042\r\n"
                               " A2 =  -1.488499E-07    5.225169E-08\r\nres = 6.972033E-09"),
              ElementsAre("\tParameter\tSigma", "A0 =\t8.247656\t0.05050042",
                          "A2 =\t-1.488499E-07\t5.225169E-08", "res =\t6.972033E-09"))
      << "calibration";
  EXPECT_THAT(
      TabSeparatedRows("  H   K   L  Intens.  2Theta     d \r\n -1   0  10   100     25.595   3.4803\r\n"),
      ElementsAre("H\tK\tL\tIntens.\t2Theta\td", "-1\t0\t10\t100\t25.595\t3.4803"))
      << "card";
  EXPECT_THAT(TabSeparatedRows("  23.277   1 -10   0\r\n"), ElementsAre("23.277\t1\t-10\t0"))
      << "reflections";
  EXPECT_THAT(TabSeparatedRows("  X          Y \r\n  28.44    1234.5  \r\n  28.46 -1234567.25\r\n"),
              ElementsAre("X\tY", "28.44\t1234.5", "28.46\t-1234567.25"))
      << "points to edit";
  EXPECT_THAT(TabSeparatedRows("  h   k   l   2th(Obs)    2th(Calc) ')\r\n1  1  1    28.461    28.46\r\n\r\n"
                               "Zero correction (2-theta) = 0.0012\r\n   a   = 5.4308   0.0001\r\n"
                               "For a new refinement cycle click again on the \"Refine\" button."),
              ElementsAre("h\tk\tl\t2th(Obs)\t2th(Calc) ')", "1\t1\t1\t28.461\t28.46", "",
                          "Zero correction (2-theta) =\t0.0012", "a =\t5.4308\t0.0001",
                          "For a new refinement cycle click again on the \"Refine\" button."))
      << "cell";
  EXPECT_THAT(TabSeparatedRows("Silicon powder, run 2\r\n1.5406\r\n20 282 1.5E+03\r\n12,\t13\n"),
              ElementsAre("Silicon powder, run 2", "1.5406", "20\t282\t1.5E+03", "12,\t13"))
      << "a file";
}

}  // namespace
}  // namespace koprax
