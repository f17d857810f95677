// Journeys in the Multiprofile window: what is live in which state, the zoom and its way back, the saving of
// one buffer, and what is refused.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/command_form.h"

namespace koprax {
namespace {

/// Peaks of 1000 counts at 15 degrees, of 500 at 12, and a third profile that reaches from 5 to 20, each in a
/// buffer of its own.
class SeveralProfilesTest : public testing::Test {
 protected:
  SeveralProfilesTest() {
    Load('a', "1.5406", "10 0\r\n14 0\r\n15 1000\r\n16 0\r\n20 0\r\n");
    Load('b', "1.5406", "10 0\r\n12 500\r\n20 0\r\n");
    Load('c', "1.5406", "5 10\r\n20 10\r\n");
  }

  void Load(char letter, const std::string& wavelength, const std::string& points) {
    const std::string name(1, letter);
    session_.Play(WorkbenchSession::LoadCommands(
        session_.File(name + ".xy", "Profile " + name + "\r\n" + wavelength + "\r\n" + points), 3, letter));
    session_.Play("close Form6\n");
  }
  /// What it leads to that the buffers ("ab") are picked for display.
  std::vector<std::string> Display(const std::string& letters) {
    std::string script = "click Form1.cmdDisp\n";
    for (const char letter : letters) {
      script += "click Form11.Check" + std::to_string(letter - 'a' + 1) + "\n";
    }
    return WordsOf(session_.Events(script + "click Form11.Command1\n"));
  }
  void Drag(const std::string& from, const std::string& to) {
    session_.Play("down Form2.Picture1 left " + from + "\nmove Form2.Picture1 " + to +
                  "\nup Form2.Picture1 left " + to + "\n");
  }
  Json Get(const std::string& name) { return session_.Value("get " + name); }
  /// "+" on, "-" off: zoom, arithmetic, save, print, bitmap, main menu.
  std::string Commands() {
    std::string states;
    for (const char* name : {"cmdZoom", "cmdMod", "cmdSave", "Command1", "cmdBitMap", "cmdMain"}) {
      states += Get("Form2." + std::string(name) + ".Enabled").get<bool>() ? '+' : '-';
    }
    return states;
  }
  /// The number of a read-out, which comes of the 32 bits of the scale, unrounded.
  double ReadOut(const std::string& box) {
    return std::stod(Get("Form2." + box + ".Text").get<std::string>().substr(4));
  }
  std::string Range() {
    return Get("Form2.Text6.Text").get<std::string>() + " " + Get("Form2.Text7.Text").get<std::string>();
  }

  WorkbenchSession session_;
};

TEST_F(SeveralProfilesTest, ThreeAreShownWithoutArithmeticTwoWithIt) {
  EXPECT_EQ(Display("abc"), (std::vector<std::string>{"unloaded Form11", "shown Form2"}));
  EXPECT_EQ(Commands(), "+-++++");
  EXPECT_EQ(Range(), "xmin 5 xmax 20");
  EXPECT_EQ(session_.Value("picture Form2.Picture2").size(), 6U);
  Load('d', "1.5406", "30 1\r\n40 20\r\n");  // another window has drawn meanwhile
  session_.Play("move Form2.Picture1 67.5 50.625\n");
  EXPECT_NEAR(ReadOut("Text3"), 12.5, 1e-6);
  EXPECT_NEAR(ReadOut("Text4"), 500, 1e-4);
  EXPECT_EQ(Display("ab"), (std::vector<std::string>{"unloaded Form11", "unloaded Form2", "shown Form2"}));
  EXPECT_EQ(Commands(), "++++++");
  EXPECT_EQ(Range(), "xmin 10 xmax 20");
  EXPECT_EQ(WordsOf(session_.Events("close Form2\n")), std::vector<std::string>{"unloaded Form2"});
  EXPECT_EQ(session_.Value("state NumSelected"), 1);
}

TEST_F(SeveralProfilesTest, ARefusalLeavesTheOpenWindowAtWork) {
  Load('d', "0.7107", "30 1\r\n40 2\r\n");
  Display("abc");
  const Json drawn = session_.Value("picture Form2.Picture1");
  const auto words = Display("ad");
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(words[1].substr(0, 29), "Error, stop: Profiles collect");
  EXPECT_EQ(session_.Value("picture Form2.Picture1"), drawn);
  session_.Play("move Form2.Picture1 20 15\n");
  EXPECT_EQ(Get("Form2.Text3.Text"), "x = 5");
  EXPECT_EQ(session_.Value("state ModeDisp"), 0);
  session_.Play("click Form2.cmdMain\n");
  EXPECT_EQ(Display("ad").size(), 2U);
  EXPECT_FALSE(session_.Desk().Find("Form2"));
}

TEST_F(SeveralProfilesTest, AZoomOpensAPartAndItsEndGivesTheCommandsBack) {
  Display("abc");
  session_.Play("click Form2.cmdZoom\n");
  EXPECT_EQ(Commands(), "+-----");
  EXPECT_EQ(Get("Form2.Picture1.MousePointer"), 2);
  EXPECT_NE(session_.Refusal("close Form2"), "");
  Drag("67.5 89", "80 20");
  EXPECT_EQ(Get("Form2.Picture1.MousePointer"), 1);
  session_.Play("click Form2.optNO\n");
  EXPECT_EQ(Commands(), "+-++++");
  session_.Play("click Form2.cmdZoom\n");
  // 95 units for 15 degrees: 12.5 stands at 67.5, 17.5 near 99.17; 74 units are 1039 counts.
  Drag("67.5 89", "99.166664 20");
  EXPECT_EQ(Range(), "xmin 12.5 xmax 17.5");
  EXPECT_EQ(Get("Form2.optOK.Visible"), true);
  EXPECT_EQ(WordsOf(session_.Events("click Form2.optOK\n")), std::vector<std::string>{"shown Form15"});
  EXPECT_EQ(Commands(), "+----+");
  EXPECT_EQ(session_.Value("state CurBuf"), 3);
  EXPECT_EQ(session_.Value("state ZoomXMin"), 12.5);
  EXPECT_NEAR(session_.Value("state ZoomYMax").get<double>(), 74 / 0.07125, 0.001);
  std::vector<int> colours_drawn;  // of a the two sides of the peak; b and c have no two points in the part
  for (const Json& operation : session_.Value("picture Form15.Picture1")) {
    if (operation["colour"] != 0) colours_drawn.push_back(operation["colour"]);
  }
  EXPECT_EQ(colours_drawn, (std::vector<int>{16711935, 16711935}));
  EXPECT_EQ(session_.Value("picture Form15.Picture2"), session_.Value("picture Form2.Picture2"));
  EXPECT_EQ(Get("Form15.cmdCancel.Caption"), "Undo Zoom");
  session_.Play("move Form15.Picture1 60 50\ndown Form15.Picture1 right 60 50\n");
  EXPECT_EQ(session_.Value("state NPeaks(c)"), 0);
  session_.Play("move Form2.Picture1 67.5 15\n");
  EXPECT_NEAR(ReadOut("Text3"), 12.5, 1e-6);
  EXPECT_EQ(WordsOf(session_.Events("click Form15.cmdCancel\n")),
            (std::vector<std::string>{"front Form15", "unloaded Form15"}));
  EXPECT_EQ(Commands(), "+-++++");
  EXPECT_EQ(Range(), "xmin 5 xmax 20");
  session_.Play("move Form2.Picture1 67.5 15\n");
  EXPECT_NEAR(ReadOut("Text3"), 12.5, 1e-6);
}

TEST_F(SeveralProfilesTest, AZoomKeepsSticksAndLeavesAPlotBelowZeroAsItWas) {
  Load('d', "1.5406", "10.0004 -50\r\n20 100\r\n");
  Load('e', "1.5406", "12 40\r\n15 50\r\n");
  session_.Data().Buffer(5).FormatCode = static_cast<std::int16_t>(FormatCodes::Card);
  Display("de");
  session_.Data().Sum.SumNpts = 7;  // of a sum that was left
  session_.Play("click Form2.cmdZoom\n");
  Drag("30 90", "90 50");
  session_.Play("click Form2.optOK\n");
  EXPECT_NE(session_.Data().Plot.ZeroY, 38.75F);
  int sticks = 0;
  for (const Json& line : session_.Value("picture Form15.Picture1")) {
    if (line["colour"] == 16776960) sticks += line["x1"] == line["x2"] ? 1 : -1;
  }
  EXPECT_EQ(sticks, 2);
  session_.Play("click Form15.cmdCancel\n");
  Load('f', "1.5406", "30 1\r\n40 20\r\n");  // CurBuf is none of the plot any more
  session_.Play("move Form2.Picture1 67.5 62.5\n");
  EXPECT_EQ(session_.Data().Sum.SumNpts, 0);
  EXPECT_EQ(Range(), "xmin 10 xmax 20");    // to 3 decimals
  EXPECT_NEAR(ReadOut("Text4"), 50, 1e-4);  // 0.475 a count above the zero line at 38.75
}

TEST_F(SeveralProfilesTest, SelectionsThatNoPlotCanShow) {
  Display("ab");
  session_.Play("click Form2.cmdZoom\n");
  Drag("10 50", "60 50");  // left of the axis: the release is swallowed
  EXPECT_EQ(Get("Form2.optOK.Visible"), false);
  Drag("80 50", "60 50");
  auto words = WordsOf(session_.Events("click Form2.optOK\n"));
  ASSERT_EQ(words.size(), 1U);
  EXPECT_NE(words[0].find("range of X"), std::string::npos);
  EXPECT_EQ(Commands(), "+-----");
  session_.Play("click Form2.optNO\n");
  EXPECT_EQ(Commands(), "++++++");
  EXPECT_EQ(Get("Form2.Shape1.Visible"), false);
  session_.Play("click Form2.cmdZoom\n");
  Drag("60 15", "80 50");  // on the axis: no height
  words = WordsOf(session_.Events("click Form2.optOK\n"));
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(words[0], "shown Form15");
  EXPECT_NE(words[1].find("is NULL"), std::string::npos);
  session_.Play("click Form15.cmdCancel\n");
  EXPECT_EQ(Commands(), "++++++");
}

TEST_F(SeveralProfilesTest, AnOperationOnOneOfTwoIsShownAndSavedThroughItsPicker) {
  Display("ab");
  session_.Play("click Form2.cmdMod\nclick Form8.optY2\ninput \"100\"\nclick Form8.cmdAdd\n");
  EXPECT_EQ(session_.Value("state WorkY(b)")[2], 600.0);
  EXPECT_EQ(session_.Value("state PermY(b)")[2], 500.0);
  const Json drawn = session_.Value("picture Form2.Picture1");
  // 0.07125 a count: the peak of b stands at 57.75 now.
  EXPECT_NEAR(drawn[drawn.size() - 4]["y1"].get<double>(), 57.75, 1e-4);
  EXPECT_EQ(session_.Value("picture Form2.Picture2").size(), 6U);

  session_.Play("modal close Form32\nclick Form2.cmdSave\n");
  EXPECT_EQ(session_.Value("state CurBuf"), 2);
  for (const std::string other : {"optC", "optD"}) {  // not shown, and empty
    const auto words = WordsOf(session_.Events("modal click Form32." + other + "\nclick Form2.cmdSave\n"));
    EXPECT_NE(words.back().find("is none of those shown"), std::string::npos);
    EXPECT_EQ(session_.Value("state CurBuf"), 2);
  }
  EXPECT_EQ(session_.Value("state PermY(b)")[2], 500.0);
  session_.Play("modal click Form32.optB\nclick Form2.cmdSave\n");
  EXPECT_EQ(session_.Value("state PermY(b)")[2], 600.0);
  EXPECT_EQ(session_.Value("state PermYMin(b)"), 100.0);
}

TEST_F(SeveralProfilesTest, WindowsThatActForThePlotGoWithItAndOthersStay) {
  Display("ab");
  session_.Play("click Form2.cmdMod\nclick Form8.optY1\n");
  EXPECT_EQ(session_.Value("state MultiOp"), -1);
  Display("abc");
  EXPECT_FALSE(session_.Desk().Find("Form8"));
  EXPECT_EQ(session_.Value("state MultiOp"), 0);
  session_.Play("click Form2.cmdZoom\n");
  Drag("50 80", "90 80");
  session_.Play("click Form2.optOK\nclick Form2.cmdMain\n");
  EXPECT_FALSE(session_.Desk().Find("Form15"));
}

TEST_F(SeveralProfilesTest, AnErasedBufferOfNoPlotChangesNothingAChangedOneStopsRedrawAndArithmetic) {
  Display("bc");
  session_.Play("click Form1.cmdDelBuff\nanswer yes\nclick Form17.optA\n");  // a place of the list
  for (const std::string save : {"optB", "optC"}) {
    EXPECT_EQ(WordsOf(session_.Events("modal click Form32." + save + "\nclick Form2.cmdSave\n")).back(),
              "shown Form32");  // and nothing told
  }
  session_.Play("printer \"" + session_.Folder() + "/page.pdf\"\nclick Form2.Command1\n");
  session_.Play("click Form2.cmdMod\nclick Form8.optY1\ninput \"1\"\nclick Form8.cmdAdd\n");
  EXPECT_EQ(session_.Value("state WorkY(b)")[2], 501.0);
  for (const char* picture : {"Printer", "Form2.Picture1"}) {  // both show b
    EXPECT_NE(session_.Value("picture " + std::string(picture)).dump().find("16711680"), std::string::npos);
  }
  session_.Play("click Form2.cmdMod\n");
  Load('c', "0.7107", "10 1\r\n20 2\r\n");
  const auto told = WordsOf(session_.Events("click Form8.optY1\ninput \"1\"\nclick Form8.cmdAdd\n"));
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back().substr(0, 29), "Error, stop: Profiles collect");
  EXPECT_EQ(session_.Value("picture Form2.Picture1").size(), 0U);
  EXPECT_NE(WordsOf(session_.Events("click Form2.cmdZoom\n")).back().find("no plot"), std::string::npos);
  EXPECT_EQ(Commands(), "++++++");
  session_.Play("click Form1.cmdDelBuff\nanswer yes\nclick Form17.optB\n");
  const auto words = WordsOf(session_.Events("click Form2.cmdMod\n"));
  EXPECT_EQ(words.back().substr(0, 40), "Error, stop: Arithmetic takes two profil");
}

}  // namespace
}  // namespace koprax
