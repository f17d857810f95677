// Journeys through the arithmetic: on one profile, on one of two, and of both into a buffer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "app/journey.h"
#include "display/arithmetic_window.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// Three points in buffer a and three in buffer b, at 10, 10.9 and 12 degrees.
class ArithmeticTest : public Journey {
 protected:
  ArithmeticTest() {
    Load('b', "10 1\r\n10.9 2\r\n12 3\r\n");
    Load('a', "10 5\r\n10.9 20\r\n12 10\r\n");
  }
  std::vector<std::string> OnOne(const std::string& script) { return Words("click Form6.cmdMod\n" + script); }
  static std::vector<float> Points(const PointTable& table) { return {table.begin() + 1, table.begin() + 4}; }
  std::vector<float> Y(int slot = 1) { return Points(Data().Buffer(slot).WorkY); }
  /// "+" or "-" for the operations on one profile, and for those on two.
  std::string Frames() { return Switches("Form8", "Frame1 Frame2"); }
  static std::string Input(const std::string& number) { return "input \"" + number + "\"\n"; }
};

const std::string ReadOut = "Form30.Text1.Text Form30.Text2.Text Form30.Text3.Text";

TEST_F(ArithmeticTest, AnOperationOnOneProfileShowsAtOnceAndIsNotSaved) {
  EXPECT_THAT(OnOne(""), ElementsAre("shown Form8"));
  EXPECT_EQ(Frames(), "+-");
  const Json before = Value("picture Form6.Picture1");
  EXPECT_EQ(Words("input \"2\"\nclick Form8.cmdProd\n").back(), "unloaded Form8");
  EXPECT_THAT(Y(), ElementsAre(10, 40, 20));
  EXPECT_NE(Value("picture Form6.Picture1"), before);
  EXPECT_EQ(Data().Buffer(1).PermY[2], 20);
  Display("a");
  EXPECT_EQ(Value("picture Form6.Picture1"), before);

  OnOne("answer yes\ninput \"-5.5\"\nclick Form8.cmdAdd\n");
  EXPECT_EQ(Values("WorkYMin(a) WorkYMax(a)"), (Json{-0.5, 20}));
  OnOne("answer yes\ninput \"-10.9\"\nclick Form8.cmdSumX\n");
  EXPECT_EQ(Values("Form6.Text6.Text WorkNpts(a)"), (Json{"xmin 0", 2}));
}

TEST_F(ArithmeticTest, LogarithmAndExponentialTakeTheirOwnTops) {
  EXPECT_THAT(OnOne("click Form8.cmdLogY\n"), ElementsAre("unloaded Form8"));
  EXPECT_FLOAT_EQ(Y()[1], static_cast<float>(std::log(20.0)));
  EXPECT_FLOAT_EQ(Data().Buffer(1).WorkYMax, static_cast<float>(std::log(1.2 * 20)));
  EXPECT_THAT(OnOne("click Form8.cmdExpY\n"), ElementsAre("unloaded Form8"));  // all between -10 and 10
  EXPECT_FLOAT_EQ(Data().Buffer(1).WorkYMax, 20);
}

TEST_F(ArithmeticTest, WhatIsLeftWithoutPointsIsNotSavedAndASelectionEndsTheArithmetic) {
  for (const char* command : {"cmdEdit", "cmdZoom"}) {
    Display("a");
    EXPECT_THAT(OnOne("click Form6." + std::string(command) + "\n"), testing::Contains("unloaded Form8"));
  }
  Display("a");
  OnOne("answer yes\ninput \"-100\"\nclick Form8.cmdSumX\n");
  EXPECT_THAT(After("Form6.cmdSave"), ElementsAre(HasSubstr("Buffer a holds no points")));
  EXPECT_EQ(Values("WorkNpts(a) PermNpts(a)"), (Json{0, 3}));
}

TEST_F(ArithmeticTest, WhatIsDeclinedOrRefusedChangesNothing) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> cases{
      {"answer no\ninput \"-1\"\nclick Form8.cmdProd\n", {"unloaded Form8"}},
      {"answer no\nclick Form8.cmdExpY\n", {"unloaded Form8", "front Form6"}},
      {"input cancel\nclick Form8.cmdAdd\n", {}},
      {"click Form8.Command5\n", {"unloaded Form8", "front Form6"}},
      {"close Form8\n", {"unloaded Form8", "front Form6"}},
  };
  Display("a");
  for (const auto& [script, expected] : cases) {
    // With another window in front the opener has to come back.
    std::vector<std::string> words = OnOne("click Form1.cmdDisp\n" + script);
    std::erase_if(words, [](const auto& one) { return one == "front Form8" || one.find(": ") != one.npos; });
    EXPECT_EQ(words, expected);
    EXPECT_THAT(Y(), ElementsAre(5, 20, 10)) << script;
  }
  for (const char* number : {"much", "1e39", "-"}) {  // the window stays
    EXPECT_EQ(OnOne(Input(number) + "click Form8.cmdSumX\n").size(), 2U);
  }
  EXPECT_EQ(OnOne(Input("3e38") + "click Form8.cmdProd\n").back(), "unloaded Form8");
  auto& y = Data().Buffer(1).WorkY;
  y[1] = 0.0001F;
  y[2] = 0;
  for (const char* answer : {"answer no\n", "answer yes\n"}) {
    EXPECT_EQ(OnOne(std::string(answer) + "click Form8.cmdLogY\n").back(), "unloaded Form8");
  }
  EXPECT_THAT(Y(), ElementsAre(0.0001F, 0, 10));
  Data().Buffer(1).WorkNpts = 0;
  EXPECT_THAT(OnOne("click Form8.cmdLogY\n"), ElementsAre(HasSubstr("no points")));
}

TEST_F(ArithmeticTest, OneOfTwoIsChosenAndTheOtherStays) {
  Display("ab");
  Click("Form2.cmdMod");
  EXPECT_EQ(Frames(), "-+");
  Click("Form8.optY2");
  EXPECT_EQ(Frames(), "++");
  EXPECT_EQ(Value("state CurBuf"), 2);
  Play("click Form1.cmdDisp\nclose Form11\n");
  Data().CurBuf = 1;  // another command has been at another buffer meanwhile
  EXPECT_THAT(Words(Input("4") + "click Form8.cmdProd\n"),
              ElementsAre("front Form8", testing::_, "unloaded Form8", "front Form2"));
  EXPECT_THAT(Y(2), ElementsAre(4, 8, 12));
  EXPECT_THAT(Y(1), ElementsAre(5, 20, 10));
  EXPECT_EQ(Value("state MultiOp"), 0);
  Play("click Form2.cmdMod\nclick Form8.optY1\ninput \"2\"\nclick Form8.cmdProd\n");
  EXPECT_THAT(Y(1), ElementsAre(10, 40, 20));
  EXPECT_THAT(Y(2), ElementsAre(4, 8, 12));
  Click("Form2.cmdMod Form8.optY1 Form8.Command5");
  EXPECT_EQ(Value("state MultiOp"), 0) << "or the next plot would keep the temporary copies";
}

TEST_F(ArithmeticTest, ACommandForAWindowThatIsGoneOnlyCloses) {
  SilentServices services(*this);
  for (const char* command : {"Form8.cmdProd", "Form8.Command1", "Form8.optY1"}) {
    const int profiles = std::string(command) == "Form8.cmdProd" ? 1 : 2;
    const auto never = [] { ADD_FAILURE(); };
    OpenArithmetic(services.Context,
                   {.Profiles = profiles, .Redraw = never, .ComeBack = never, .ResultLeft = never});
    EXPECT_THAT(Words(std::string("click ") + command + "\n"), ElementsAre("unloaded Form8"));
  }
  // Two that were not there at the load, or are there no more.
  Display("ab");
  Data().SelBuf[2] = 0;
  OpenArithmetic(services.Context, {.Profiles = 2, .Opener = Desk().Find("Form2"), .TakeUp = [] {}});
  for (const char* command : {"Command2", "optY1"}) {
    EXPECT_THAT(Words(std::string("click Form8.") + command + "\n"),
                ElementsAre(HasSubstr("no two profiles")));
  }
  EXPECT_EQ(Get("Form8.optY1.Value"), false);
  Display("ab");
  EXPECT_THAT(Words("click Form2.cmdMod\nanswer yes\nclick Form1.cmdDelBuff\nclick Form17.optB\nclick "
                    "Form8.Command1\n"),
              ElementsAre("front Form8", HasSubstr("no points in buffer b"), "unloaded Form8"));
}

TEST_F(ArithmeticTest, TheDifferenceOfTwoInAWindowOfItsOwn) {
  Display("ab");
  Click("Form2.cmdMod");
  Data().CurBuf = 2;
  EXPECT_THAT(After("Form8.Command2"), ElementsAre("shown Form30", "unloaded Form8"));
  EXPECT_THAT(Points(Data().Sum.SumY), ElementsAre(4, 18, 7));
  EXPECT_EQ(Value("state CurBuf"), 1) << "Y1 is the one at work";
  // The scale of Y is 71.25 for 18 - 4 counts: the middle of the plot lies at 37.5 / (71.25 / 14). By Bragg's
  // law d is 1.5406 / (2 sin 5.5 deg).
  Move("Form30", "67.5 52.5");
  EXPECT_EQ(Values(ReadOut), (Json{"X-pos = 11", "d = 8.0369", "7.37"}));
  EXPECT_THAT(After("Form30.cmdCancel"), ElementsAre("unloaded Form30"));
  EXPECT_EQ(Value("state SumNpts"), 0);
  Move("Form2", "67.5 52.5");  // 71.25 for 20 counts again
  EXPECT_EQ(Get("Form2.Text4.Text").get<std::string>().substr(0, 10), "y = 10.526");
  // From -10 to 7: 71.25 / 17 a count, 0 stands 10 counts above the bottom.
  Data().Buffer(2).WorkY[2] = 30;
  Click("Form2.cmdMod Form8.Command2");
  Move("Form30", "67.5 52.5");
  EXPECT_EQ(Get("Form30.Text3.Text"), "-1.05");  // 37.5 / (71.25 / 17) - 10
}

TEST_F(ArithmeticTest, ChannelsAreReadIn2ThetaOnceCalibrated) {
  Load('b', "10 1\r\n11 2\r\n12 3\r\n");
  Load('a', "10 5\r\n11 20\r\n12 10\r\n");
  for (const int slot : {1, 2}) {
    Data().Buffer(slot).FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);
  }
  Display("ab");
  Click("Form2.cmdMod Form8.Command1");
  // 37.5 / (71.25 / 22): the scale begins at 0
  Move("Form30", "67.5 52.5");
  EXPECT_EQ(Values(ReadOut), (Json{"X-pos = 11", "d = 0", "11.58"}));
  Data().Buffer(1).CalPar[1] = 8;
  Data().Buffer(1).CalPar[3] = 0.1;
  Move("Form30", "67.5 52.5");  // 8 + 0.1 * 11^2; 1.5406 / (2 sin 10.05 deg)
  EXPECT_EQ(Values(ReadOut), (Json{"X-pos = 20.1", "d = 4.4141", "11.58"}));
}

TEST_F(ArithmeticTest, TheResultIsSavedUnderATitleAndNeverLost) {
  Display("ab");
  Click("Form2.cmdMod Form8.Command1");
  const auto save = [&](const std::string& script) { return Words("click Form30.cmdSave\n" + script); };
  EXPECT_THAT(save("answer no\nclick Form29.optB\n"), ElementsAre("unloaded Form29", testing::_));
  EXPECT_THAT(Y(2), ElementsAre(1, 2, 3));
  EXPECT_THAT(save("click Form29.optC\n"), ElementsAre("unloaded Form29", "shown Form14"));
  EXPECT_EQ(Value("state SumSource"), 2) << "it was CurBuf, and is one of the two";
  Play("set Form14.Text1 \"Both\"\nclick Form14.Command1\n");
  EXPECT_EQ(Data().Buffer(3).Title, FixedField("Both", TitleWidth));
  EXPECT_THAT(Points(Data().Buffer(3).PermY), ElementsAre(6, 22, 13));
  // Over one of its own sources, without a title.
  EXPECT_THAT(save("answer yes\nclick Form29.optA\n"),
              ElementsAre("unloaded Form29", testing::_, "shown Form14"));
  EXPECT_EQ(Value("state SumSource"), 1) << "CurBuf is neither of the two now";
  Play("close Form14\n");
  EXPECT_EQ(Data().Buffer(1).Title, FixedField("Y = Y1 + Y2", TitleWidth));
  EXPECT_EQ(Data().Buffer(1).FormatCode, 2);
  // The picker of a window that has been left goes with it, and both sources stand on the base of their plot.
  Data().Buffer(2).NegativeY = 1;
  EXPECT_THAT(save("click Form30.cmdCancel\n"),
              ElementsAre("front Form30", "unloaded Form30", "unloaded Form29"));
  EXPECT_EQ(Data().Buffer(2).NegativeY, 0);
  // A plot of another wavelength, shown meanwhile, changes nothing.
  Display("ab");
  Click("Form2.cmdMod Form8.Command1");
  for (const char letter : {'e', 'f'}) Load(letter, "10 1\r\n12 3\r\n", "0.7107");
  Display("ef");
  EXPECT_FLOAT_EQ(Data().SumWavelength, 0.7107F);
  save("click Form29.optD\nclick Form14.Command1\n");
  EXPECT_FLOAT_EQ(Data().Buffer(4).Wavelength, 1.5406F);
}

}  // namespace
}  // namespace koprax
