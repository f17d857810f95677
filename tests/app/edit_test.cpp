// Journeys through Edit mode of the Display and Work window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/workbench_session.h"
#include "forms/form.h"

namespace koprax {
namespace {

using testing::HasSubstr;

/// The window on 101 points from 10 to 20 whose Y is 100, in a plot whose X axis has 95 units.
class EditTest : public testing::Test {
 protected:
  EditTest() { Load(101, 0.1); }

  void Load(int points, double step) {
    std::string contents = "Flat\r\n10 " + std::to_string(step) + " 1.5406\r\n";
    for (int i = 0; i < points; ++i) contents += "100\r\n";
    session_.Play(WorkbenchSession::LoadCommands(session_.File("flat.txt", contents), 2, 'a'));
  }
  Json Get(const std::string& name) { return session_.Value("get Form6." + name); }
  float WorkY(std::size_t i) { return session_.Data().Buffer(1).WorkY[i]; }

  /// Drags the rubber band between two places on the picture; the events of "OK".
  Json Select(double from, double to) {
    return session_.Events("click Form6.cmdEdit\ndown Form6.Picture1 left " + std::to_string(from) +
                           " 50\nup Form6.Picture1 left " + std::to_string(to) + " 50\nclick Form6.optOK\n");
  }
  /// The colours of the segments that a command adds to the plot.
  std::vector<int> Drawn(const std::string& command) {
    const auto before = session_.Value("picture Form6.Picture1").size();
    session_.Play(command);
    const Json after = session_.Value("picture Form6.Picture1");
    std::vector<int> colours;
    for (auto i = before; i < after.size(); ++i) colours.push_back(after[i]["colour"]);
    return colours;
  }
  /// "+" on, "-" off: accept and cancel, the rest of the list, the commands that the mode turns off.
  std::string Enabled() {
    std::string states;
    for (const char* name :
         {"cmdAccept", "cmdEditNO", "cmdEditOK", "Command15", "cmdQuitEdit", "cmdEdit", "cmdZoom",
          "cmdUnzoom", "cmdMod", "cmdSave", "cmdManExpl", "cmdMain", "cmdPrint", "Command17"}) {
      states += Get(std::string(name) + ".Enabled").get<bool>() ? '+' : '-';
    }
    return states;
  }

  WorkbenchSession session_;
};

constexpr const char* ThreePoints =
    "  X          Y \r\n  11         100   \r\n  11.1       100   \r\n  11.2       100   \r\n";
constexpr const char* TypeTwoPoints = "set Form6.Text8 \"\\r\\n11 50\\r\\n11.15 60\\r\\n\"\n";
constexpr int Magenta = 16711935;
constexpr int White = 16777215;

TEST_F(EditTest, ShownRejectedShownAcceptedAndSaved) {
  const Json events = Select(29.4, 31.5);  // 10.989 to 11.211
  EXPECT_EQ(events, (Json{{{"event", "pointer"}, {"of", "Form6"}, {"pointer", 11}},
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

  session_.Play(std::string(TypeTwoPoints) + "click Form6.cmdEditOK\nclick Form6.cmdAccept\n");
  EXPECT_EQ((std::vector{WorkY(11), WorkY(12), WorkY(13)}), (std::vector{50.0F, 60.0F, 100.0F}));
  EXPECT_EQ(session_.Data().Buffer(1).WorkX[12], 11.15F);
  EXPECT_EQ(Enabled(), "+++++---------");
  EXPECT_EQ(Drawn("click Form6.cmdAccept\n").size(), 0U);  // drawn anew, with the same numbers
  for (const Json& one : session_.Value("picture Form6.Picture1")) EXPECT_NE(one["colour"], Magenta);

  session_.Play("click Form6.cmdQuitEdit\n");
  EXPECT_EQ(Enabled(), "+++++++-++++++");
  EXPECT_EQ(Get("Frame1.Visible"), false);
  EXPECT_EQ(Get("Text6.Text"), "xmin 10");
  EXPECT_EQ(session_.Data().Buffer(1).PermY[11], 100);
  session_.Play("click Form6.cmdSave\n");
  EXPECT_EQ(session_.Data().Buffer(1).PermYMin, 50);
}

TEST_F(EditTest, OneYForAllPoints) {
  Select(29.4, 31.5);
  Json events = session_.Events("input cancel\nclick Form6.Command15\n");
  EXPECT_EQ(events, (Json{{{"event", "input"},
                           {"prompt", "Give K\r\n(real number)"},
                           {"title", "Y = K"},
                           {"default", "0"},
                           {"answer", nullptr}}}));
  for (const char* answer : {"ten", "1e39"}) {
    events = session_.Events("input \"" + std::string(answer) + "\"\nclick Form6.Command15\n");
    EXPECT_THAT(events.at(1)["text"].get<std::string>(), HasSubstr("K is to be a real number"));
  }
  EXPECT_EQ(Get("Text8.Text"), ThreePoints);
  EXPECT_TRUE(Drawn("input \"40 counts\"\nclick Form6.Command15\n").empty());
  EXPECT_EQ(Get("Text8.Text"), " X        Y \r\n  11     40\r\n  11.1   40\r\n  11.2   40\r\n");
  session_.Play("click Form6.cmdEditOK\nclick Form6.cmdAccept\n");
  EXPECT_EQ((std::vector{WorkY(10), WorkY(11), WorkY(13), WorkY(14)}),
            (std::vector{100.0F, 40.0F, 40.0F, 100.0F}));

  // Points that have been moved out of the selected range are no part of it any more.
  session_.Play(
      "set Form6.Text8 \"\\r\\n1 1\\r\\n2 2\\r\\n3 3\\r\\n\"\nclick Form6.cmdEditOK\nclick "
      "Form6.cmdAccept\n");
  events = session_.Events("input \"7\"\nclick Form6.Command15\n");
  EXPECT_THAT(events.at(1)["text"].get<std::string>(),
              HasSubstr("No point of the profile lies between 10.989 and"));
}

TEST_F(EditTest, ASelectionWithoutPointsEndsLikeACancelledOne) {
  const std::string before = Enabled();
  const Json events = Select(29.6, 30.3);
  ASSERT_EQ(events.size(), 1U);
  EXPECT_THAT(events[0]["text"].get<std::string>(), HasSubstr("between 11.011 and 11.084"));
  EXPECT_EQ(Enabled(), before);
  EXPECT_EQ(Get("Text6.Text"), "xmin 10");
  for (const char* hidden : {"Frame1", "Shape1", "optOK"})
    EXPECT_EQ(Get(std::string(hidden) + ".Visible"), false);
}

TEST_F(EditTest, ATooLongPortionIsToldWhileTheWindowIsBusy) {
  Load(1100, 0.01);
  const Json events = Select(20, 115);
  ASSERT_EQ(events.size(), 3U);
  EXPECT_EQ(events[1]["text"],
            "A too long portion of the profile has been selected.\r\n"
            "For speeding up operations it is better to chose one short portion at a time.");
  session_.Play("click Form6.cmdEditOK\nclick Form6.cmdAccept\n");
  EXPECT_EQ(WorkY(1100), 100);
  EXPECT_THAT(session_.Events("input \"123456.75\"\nclick Form6.Command15\n").dump(),
              HasSubstr("A too long"));

  session_.Desk().Find("Form6")->MousePointer = Pointer::Hourglass;
  session_.Play("click Form6.cmdQuitEdit\n");
  EXPECT_EQ(Get("Frame1.Visible"), true);
}

TEST_F(EditTest, NumbersOutOfRangeAreRefusedWithTheirLine) {
  Select(29.4, 31.5);
  session_.Play("set Form6.Text8 \"\\r\\n11 50\\r\\n11.15 1e99\\r\\n\"\n");
  EXPECT_THAT(session_.Events("click Form6.cmdEditOK\n").back()["text"].get<std::string>(),
              HasSubstr("Line 3 of the list"));
  EXPECT_TRUE(Drawn("click Form6.cmdEditOK\n").empty());
  EXPECT_EQ(Enabled(), "--+++---------");
}

}  // namespace
}  // namespace koprax
