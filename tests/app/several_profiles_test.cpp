// Journeys in the Multiprofile window: what is live in which state, the zoom and its way back, the saving of
// one buffer, and what is refused.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/journey.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Peaks of 1000 counts at 15 degrees, of 500 at 12, and a third profile that reaches from 5 to 20, each in a
/// buffer of its own.
class SeveralProfilesTest : public Journey {
 protected:
  SeveralProfilesTest() {
    Load('a', "10 0\r\n14 0\r\n15 1000\r\n16 0\r\n20 0\r\n");
    Load('b', "10 0\r\n12 500\r\n20 0\r\n");
    Load('c', "5 10\r\n20 10\r\n");
  }

  void Load(char letter, const std::string& points, const std::string& wavelength = "1.5406") {
    Journey::Load(letter, points, wavelength);
    Play("close Form6\n");
  }
  void Drag(const std::string& from, const std::string& to) { Journey::Drag("Form2", from, to); }
  /// "+" on, "-" off: zoom, arithmetic, save, print, bitmap, main menu.
  std::string Commands() { return Switches("Form2", "cmdZoom cmdMod cmdSave Command1 cmdBitMap cmdMain"); }
  std::string CommandsAfter(const std::string& clicks) {
    Click(clicks);
    return Commands();
  }
  /// The number of a read-out, which comes of the 32 bits of the scale, unrounded.
  double ReadOut(const std::string& box, const std::string& place = "") {
    if (!place.empty()) Play("move Form2.Picture1 " + place + "\n");
    return std::stod(Get("Form2." + box + ".Text").get<std::string>().substr(4));
  }
  std::string Range() {
    return Get("Form2.Text6.Text").get<std::string>() + " " + Get("Form2.Text7.Text").get<std::string>();
  }
};

TEST_F(SeveralProfilesTest, ThreeAreShownWithoutArithmeticTwoWithIt) {
  EXPECT_THAT(Display("abc"), ElementsAre("unloaded Form11", "shown Form2"));
  EXPECT_EQ(Commands(), "+-++++");
  EXPECT_EQ(Range(), "xmin 5 xmax 20");
  EXPECT_EQ(Value("picture Form2.Picture2").size(), 6U);
  Load('d', "30 1\r\n40 20\r\n");  // another window has drawn meanwhile
  EXPECT_NEAR(ReadOut("Text3", "67.5 50.625"), 12.5, 1e-6);
  EXPECT_NEAR(ReadOut("Text4"), 500, 1e-4);
  EXPECT_THAT(Display("ab"), ElementsAre("unloaded Form11", "unloaded Form2", "shown Form2"));
  EXPECT_EQ(Commands(), "++++++");
  EXPECT_EQ(Range(), "xmin 10 xmax 20");
  EXPECT_THAT(Words("close Form2\n"), ElementsAre("unloaded Form2"));
  EXPECT_EQ(Value("state NumSelected"), 1);
}

TEST_F(SeveralProfilesTest, ARefusalLeavesTheOpenWindowAtWork) {
  Load('d', "30 1\r\n40 2\r\n", "0.7107");
  Display("abc");
  const Json drawn = Value("picture Form2.Picture1");
  EXPECT_THAT(Display("ad"), ElementsAre("unloaded Form11", HasSubstr("Profiles collect")));
  EXPECT_EQ(Value("picture Form2.Picture1"), drawn);
  Play("move Form2.Picture1 20 15\n");
  EXPECT_EQ(Values("Form2.Text3.Text ModeDisp"), (Json{"x = 5", 0}));
  Click("Form2.cmdMain");
  EXPECT_EQ(Display("ad").size(), 2U);
  EXPECT_FALSE(Desk().Find("Form2"));
}

TEST_F(SeveralProfilesTest, AZoomOpensAPartAndItsEndGivesTheCommandsBack) {
  Display("abc");
  EXPECT_EQ(CommandsAfter("Form2.cmdZoom"), "+-----");
  EXPECT_EQ(Get("Form2.Picture1.MousePointer"), 2);
  EXPECT_THAT(Get("Form2.Picture1.ToolTip"), HasSubstr("drag"));
  EXPECT_NE(Refusal("close Form2"), "");
  Drag("67.5 89", "80 20");
  EXPECT_EQ(Get("Form2.Picture1.MousePointer"), 1);
  EXPECT_THAT(Get("Form2.Picture1.ToolTip"), HasSubstr("\"OK\""));
  EXPECT_EQ(CommandsAfter("Form2.optNO"), "+-++++");
  EXPECT_THAT(Get("Form2.Picture1.ToolTip"), HasSubstr("boxes"));
  Click("Form2.cmdZoom");
  // 95 units for 15 degrees: 12.5 stands at 67.5, 17.5 near 99.17; 74 units are 1039 counts.
  Drag("67.5 89", "99.166664 20");
  EXPECT_EQ(Range(), "xmin 12.5 xmax 17.5");
  EXPECT_THAT(After("Form2.optOK"), ElementsAre("shown Form15"));
  EXPECT_EQ(Commands(), "+----+");
  EXPECT_EQ(Values("CurBuf ZoomXMin"), (Json{3, 12.5}));
  EXPECT_NEAR(Value("state ZoomYMax").get<double>(), 74 / 0.07125, 0.001);
  std::vector<int> colours_drawn;  // of a the two sides of the peak; b and c have no two points in the part
  for (const Json& operation : Value("picture Form15.Picture1")) {
    if (operation["colour"] != 0) colours_drawn.push_back(operation["colour"]);
  }
  EXPECT_EQ(colours_drawn, (std::vector<int>{16711935, 16711935}));
  EXPECT_EQ(Value("picture Form15.Picture2"), Value("picture Form2.Picture2"));
  Play("move Form15.Picture1 60 50\ndown Form15.Picture1 right 60 50\n");
  EXPECT_EQ(Value("state NPeaks(c)"), 0);
  EXPECT_NEAR(ReadOut("Text3", "67.5 15"), 12.5, 1e-6);
  EXPECT_THAT(After("Form15.cmdCancel"), ElementsAre("front Form15", "unloaded Form15"));
  EXPECT_EQ(Commands(), "+-++++");
  EXPECT_EQ(Range(), "xmin 5 xmax 20");
  EXPECT_NEAR(ReadOut("Text3", "67.5 15"), 12.5, 1e-6);
}

TEST_F(SeveralProfilesTest, AZoomKeepsSticksAndLeavesAPlotBelowZeroAsItWas) {
  Load('d', "10.0004 -50\r\n20 100\r\n");
  Load('e', "12 40\r\n15 50\r\n");
  Data().Buffer(5).FormatCode = static_cast<std::int16_t>(FormatCodes::Card);
  Display("de");
  Data().Sum.SumNpts = 7;  // of a sum that was left
  Click("Form2.cmdZoom");
  Drag("30 90", "90 50");
  Click("Form2.optOK");
  EXPECT_NE(Data().Plot.ZeroY, 38.75F);
  int sticks = 0;
  for (const Json& line : Value("picture Form15.Picture1")) {
    if (line["colour"] == 16776960) sticks += line["x1"] == line["x2"] ? 1 : -1;
  }
  EXPECT_EQ(sticks, 2);
  Click("Form15.cmdCancel");
  Load('f', "30 1\r\n40 20\r\n");  // CurBuf is none of the plot any more
  Play("move Form2.Picture1 67.5 62.5\n");
  EXPECT_EQ(Data().Sum.SumNpts, 0);
  EXPECT_EQ(Range(), "xmin 10 xmax 20");    // to 3 decimals
  EXPECT_NEAR(ReadOut("Text4"), 50, 1e-4);  // 0.475 a count above the zero line at 38.75
}

TEST_F(SeveralProfilesTest, SelectionsThatNoPlotCanShow) {
  Display("ab");
  Click("Form2.cmdZoom");
  Drag("10 50", "60 50");  // left of the axis: the release is swallowed
  EXPECT_EQ(Get("Form2.optOK.Visible"), false);
  Drag("80 50", "60 50");
  EXPECT_THAT(After("Form2.optOK"), ElementsAre(HasSubstr("range of X")));
  EXPECT_EQ(Commands(), "+-----");
  EXPECT_EQ(CommandsAfter("Form2.optNO"), "++++++");
  EXPECT_EQ(Get("Form2.Shape1.Visible"), false);
  Click("Form2.cmdZoom");
  Drag("60 15", "80 50");  // on the axis: no height
  EXPECT_THAT(After("Form2.optOK"), ElementsAre("shown Form15", HasSubstr("is NULL")));
  EXPECT_EQ(CommandsAfter("Form15.cmdCancel"), "++++++");
}

TEST_F(SeveralProfilesTest, AnOperationOnOneOfTwoIsShownAndSavedThroughItsPicker) {
  Display("ab");
  Play("click Form2.cmdMod\nclick Form8.optY2\ninput \"100\"\nclick Form8.cmdAdd\n");
  EXPECT_EQ(Value("state WorkY(b)")[2], 600.0);
  EXPECT_EQ(Value("state PermY(b)")[2], 500.0);
  const Json drawn = Value("picture Form2.Picture1");
  // 0.07125 a count: the peak of b stands at 57.75 now.
  EXPECT_NEAR(drawn[drawn.size() - 4]["y1"].get<double>(), 57.75, 1e-4);
  EXPECT_EQ(Value("picture Form2.Picture2").size(), 6U);

  Play("modal close Form32\nclick Form2.cmdSave\n");
  EXPECT_EQ(Value("state CurBuf"), 2);
  for (const std::string other : {"optC", "optD"}) {  // not shown, and empty
    EXPECT_THAT(Words("modal click Form32." + other + "\nclick Form2.cmdSave\n").back(),
                HasSubstr("is none of those shown"));
    EXPECT_EQ(Value("state CurBuf"), 2);
  }
  EXPECT_EQ(Value("state PermY(b)")[2], 500.0);
  Play("modal click Form32.optB\nclick Form2.cmdSave\n");
  EXPECT_EQ(Value("state PermY(b)")[2], 600.0);
  EXPECT_EQ(Value("state PermYMin(b)"), 100.0);
}

TEST_F(SeveralProfilesTest, WindowsThatActForThePlotGoWithItAndOthersStay) {
  Display("ab");
  Click("Form2.cmdMod Form8.optY1");
  EXPECT_EQ(Value("state MultiOp"), -1);
  Display("abc");
  EXPECT_FALSE(Desk().Find("Form8"));
  EXPECT_EQ(Value("state MultiOp"), 0);
  Click("Form2.cmdZoom");
  Drag("50 80", "90 80");
  Click("Form2.optOK Form2.cmdMain");
  EXPECT_FALSE(Desk().Find("Form15"));
}

TEST_F(SeveralProfilesTest, AnErasedBufferOfNoPlotChangesNothingAChangedOneStopsRedrawAndArithmetic) {
  Display("bc");
  Erase('a');  // a place of the list
  for (const std::string save : {"optB", "optC"}) {
    EXPECT_EQ(WordsOf(Events("modal click Form32." + save + "\nclick Form2.cmdSave\n")).back(),
              "shown Form32");  // and nothing told
  }
  Play("printer \"" + Folder() + "/page.pdf\"\nclick Form2.Command1\n");
  Play("click Form2.cmdMod\nclick Form8.optY1\ninput \"1\"\nclick Form8.cmdAdd\n");
  EXPECT_EQ(Value("state WorkY(b)")[2], 501.0);
  for (const char* picture : {"Printer", "Form2.Picture1"}) {  // both show b
    EXPECT_NE(Value("picture " + std::string(picture)).dump().find("16711680"), std::string::npos);
  }
  Click("Form2.cmdMod");
  Load('c', "10 1\r\n20 2\r\n", "0.7107");
  EXPECT_THAT(Words("click Form8.optY1\ninput \"1\"\nclick Form8.cmdAdd\n").back(),
              HasSubstr("Profiles collect"));
  EXPECT_EQ(Value("picture Form2.Picture1").size(), 0U);
  EXPECT_THAT(After("Form2.cmdZoom").back(), HasSubstr("no plot"));
  EXPECT_EQ(Commands(), "++++++");
  Erase('b');
  EXPECT_THAT(After("Form2.cmdMod").back(), HasSubstr("Arithmetic takes two profil"));
}

}  // namespace
}  // namespace koprax
