// Journeys through Edit mode of the Display and Work window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/journey.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The window on 101 points from 10 to 20 whose Y is 100, in a plot whose X axis has 95 units.
class EditTest : public Journey {
 protected:
  EditTest() { LoadColumn("10 0.1 1.5406", std::vector(101, 100)); }

  Json Get(const std::string& name) { return Journey::Get("Form6." + name); }
  float WorkY(std::size_t i) { return Data().Buffer(1).WorkY[i]; }

  /// Drags the rubber band between two places on the picture; the events of "OK".
  Json Edit(const std::string& from, const std::string& to) {
    return Select("Form6", "cmdEdit", from + " 50", to + " 50");
  }
  /// What "Y = K" leads to with an answer to its question.
  std::vector<std::string> OneY(const std::string& answer) {
    return Words("input \"" + answer + "\"\nclick Form6.Command15\n");
  }
  /// The colours of the segments that a command adds to the plot.
  std::vector<int> Drawn(const std::string& command) {
    const auto before = Value("picture Form6.Picture1").size();
    Play(command);
    const Json after = Value("picture Form6.Picture1");
    std::vector<int> colours;
    for (auto i = before; i < after.size(); ++i) colours.push_back(after[i]["colour"]);
    return colours;
  }
  /// "+" on, "-" off: accept and cancel, the rest of the list, the commands that the mode turns off.
  std::string Enabled() {
    return Switches("Form6",
                    "cmdAccept cmdEditNO cmdEditOK Command15 cmdQuitEdit cmdEdit cmdZoom cmdUnzoom cmdMod "
                    "cmdSave cmdManExpl cmdMain cmdPrint Command17");
  }
};

constexpr const char* ThreePoints =
    "  X          Y \r\n  11         100   \r\n  11.1       100   \r\n  11.2       100   \r\n";
constexpr const char* TypeTwoPoints = "set Form6.Text8 \"\\r\\n11 50\\r\\n11.15 60\\r\\n\"\n";
constexpr int Magenta = 16711935;
constexpr int White = 16777215;

TEST_F(EditTest, ShownRejectedShownAcceptedAndSaved) {
  EXPECT_EQ(Edit("29.4", "31.5"),  // 10.989 to 11.211
            (Json{{{"event", "pointer"}, {"of", "Form6"}, {"pointer", 11}},
                  {{"event", "pointer"}, {"of", "Form6"}, {"pointer", 1}}}));
  EXPECT_EQ(Get("Text8.Text"), ThreePoints);
  EXPECT_EQ(Enabled(), "--+++---------");
  EXPECT_EQ(Get("Shape1.Visible"), true);  // the mark of the portion

  EXPECT_EQ(Drawn(std::string(TypeTwoPoints) + "click Form6.cmdEditOK\n"), (std::vector{Magenta, Magenta}));
  EXPECT_EQ(Enabled(), "+++++---------");
  EXPECT_EQ(Get("Shape1.Visible"), false);
  EXPECT_EQ(Drawn("click Form6.cmdEditNO\n"), (std::vector{White, White, 0, 0}));
  EXPECT_EQ(Get("Text8.Text"), ThreePoints);
  EXPECT_EQ(Enabled(), "--+++---------");  // what was rejected can't be accepted any more

  Play(std::string(TypeTwoPoints) + "click Form6.cmdEditOK\nclick Form6.cmdAccept\n");
  EXPECT_EQ((std::vector{WorkY(11), WorkY(12), WorkY(13)}), (std::vector{50.0F, 60.0F, 100.0F}));
  EXPECT_EQ(Data().Buffer(1).WorkX[12], 11.15F);
  EXPECT_EQ(Enabled(), "+++++---------");
  EXPECT_EQ(Drawn("click Form6.cmdAccept\n").size(), 0U);  // drawn anew, with the same numbers
  for (const Json& one : Value("picture Form6.Picture1")) EXPECT_NE(one["colour"], Magenta);

  Click("Form6.cmdQuitEdit");
  EXPECT_EQ(Enabled(), "+++++++-++++++");
  EXPECT_EQ(Values("Form6.Frame1.Visible Form6.Text6.Text"), (Json{false, "xmin 10"}));
  EXPECT_EQ(Data().Buffer(1).PermY[11], 100);
  Click("Form6.cmdSave");
  EXPECT_EQ(Data().Buffer(1).PermYMin, 50);
}

TEST_F(EditTest, OneYForAllPoints) {
  Edit("29.4", "31.5");
  EXPECT_EQ(Words("input cancel\nclick Form6.Command15\n").size(), 1U);
  for (const char* answer : {"ten", "1e39"}) EXPECT_EQ(OneY(answer).size(), 2U);
  EXPECT_EQ(Get("Text8.Text"), ThreePoints);
  EXPECT_TRUE(Drawn("input \"40 counts\"\nclick Form6.Command15\n").empty());
  EXPECT_EQ(Get("Text8.Text"), " X        Y \r\n  11     40\r\n  11.1   40\r\n  11.2   40\r\n");
  Click("Form6.cmdEditOK Form6.cmdAccept");
  EXPECT_EQ((std::vector{WorkY(10), WorkY(11), WorkY(13), WorkY(14)}),
            (std::vector{100.0F, 40.0F, 40.0F, 100.0F}));

  // Points that have been moved out of the selected range are no part of it any more.
  Play("set Form6.Text8 \"\\r\\n1 1\\r\\n2 2\\r\\n3 3\\r\\n\"\n");
  Click("Form6.cmdEditOK Form6.cmdAccept");
  EXPECT_THAT(OneY("7").back(), HasSubstr("No point of the profile lies between 10.989 and"));
}

TEST_F(EditTest, ASelectionWithoutPointsEndsLikeACancelledOne) {
  const std::string before = Enabled();
  EXPECT_THAT(WordsOf(Edit("29.6", "30.3")), ElementsAre(HasSubstr("between 11.011 and 11.084")));
  EXPECT_EQ(Enabled(), before);
  EXPECT_EQ(Values("Form6.Text6.Text Form6.Frame1.Visible Form6.Shape1.Visible Form6.optOK.Visible"),
            (Json{"xmin 10", false, false, false}));
}

TEST_F(EditTest, ATooLongPortionIsToldWhileTheWindowIsBusy) {
  LoadColumn("10 0.01 1.5406", std::vector(1100, 100));
  const Json events = Edit("20", "115");
  ASSERT_EQ(events.size(), 3U);  // between the two of the pointer
  EXPECT_EQ(events[1]["event"], "message");
  Click("Form6.cmdEditOK Form6.cmdAccept");
  EXPECT_EQ(WorkY(1100), 100);
  EXPECT_THAT(OneY("123456.75"), testing::Contains(HasSubstr("A too long")));

  Desk().Find("Form6")->MousePointer = Pointer::Hourglass;
  Click("Form6.cmdQuitEdit");
  EXPECT_EQ(Get("Frame1.Visible"), true);
}

TEST_F(EditTest, NumbersOutOfRangeAreRefusedWithTheirLine) {
  Edit("29.4", "31.5");
  Play("set Form6.Text8 \"\\r\\n11 50\\r\\n11.15 1e99\\r\\n\"\n");
  EXPECT_THAT(After("Form6.cmdEditOK"), ElementsAre(HasSubstr("Line 3 of the list")));
  EXPECT_TRUE(Drawn("click Form6.cmdEditOK\n").empty());
  EXPECT_EQ(Enabled(), "--+++---------");
}

}  // namespace
}  // namespace koprax
