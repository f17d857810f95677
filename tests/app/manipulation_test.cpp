// The Profile manipulation window, played: what shows and is live in each state, what is asked and told, what
// is drawn, and what goes into a buffer. The numbers of the tools are tested beside them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "app/journey.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "golden_file.h"
#include "manipulation/net_profile.h"
#include "manipulation/robust_background.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A profile of one step from 10 up: level, and one line 400 above it in the middle.
std::string ProfileText(int points, int level) {
  std::string text = "Line\r\n" + std::to_string(points) + "\r\n10," + std::to_string(9 + points) + ",1\r\n";
  for (int i = 1; i <= points; ++i) {
    text += std::to_string(i == (points + 1) / 2 ? level + 400 : level) + "\r\n";
  }
  return text + "500 100\r\n1.5406\r\n";
}

class Manipulation : public Journey {
 protected:
  Manipulation() { Open(41, 'a'); }

  void Load(int points, char letter, int level = 100) {
    Play(LoadCommands(File("line.dat", ProfileText(points, level)), 1, letter));
  }
  void Manipulate(char letter) {
    Click(std::string("Form1.cmdAnal Form10.opt") + static_cast<char>(letter - 'a' + 'A'));
  }
  /// Loads a profile and opens it; the picture is 2.375 wide for each of 41 degrees.
  void Open(int points, char letter, int level = 100) {
    Load(points, letter, level);
    Manipulate(letter);
  }
  /// What a command leads to that asks for these numbers and letters, one after the other.
  std::vector<std::string> Give(const std::vector<std::string>& answers, const std::string& command) {
    std::string script;
    for (const std::string& answer : answers) script += "input " + Json(answer).dump() + "\n";
    return Words(script + "click Form12." + command + "\n");
  }
  /// A background over 6 points, in one cycle.
  void Estimate() { Give({"6", "n"}, "cmdBckg"); }
  void Select(const std::string& from, const std::string& to) { Drag("Form12", from, to); }
  std::string Text(int box) { return Get("Form12.Text" + std::to_string(box) + ".Text"); }
  std::string Limits() { return Text(6) + ", " + Text(7); }
  /// What the window reads at a place of the picture.
  std::string XAt(const std::string& place) {
    Play("move Form12.Picture1 " + place + "\n");
    return Text(3);
  }
  double YAt(const std::string& place) {
    XAt(place);
    return LeadingNumber(Text(4).substr(4));
  }
  bool Is(const std::string& name) { return Get("Form12." + name).get<bool>(); }

  /// The frames that show, by their numbers, and of the commands those that are off.
  std::string State() {
    std::string state;
    for (const char* frame : {"1", "2", "3"}) {
      if (Is(std::string("Frame") + frame + ".Visible")) state += frame;
    }
    state += ":";
    for (const char* command : {"cmdBckg", "cmdMain", "cmdSmo", "cmdZoom", "cmdResume", "cmdSubtr", "cmdRes",
                                "cmdSave", "cmdPrint", "cmdQuitBckg"}) {
      if (!Is(std::string(command) + ".Enabled")) state += std::string(" ") + (command + 3);
    }
    return state;
  }
  /// The slanted and level lines within the axes, as "x1 y1 x2 y2 colour" rounded to 2 decimals.
  std::vector<std::string> Curves(Colour colour, const std::string& surface = "Form12.Picture1") {
    std::vector<std::string> lines;
    for (const Json& operation : Value("picture " + surface)) {
      if (operation["op"] != "line" || operation["colour"] != colour) continue;
      std::string line;
      for (const char* end : {"x1", "y1", "x2", "y2"})
        line += RoundedText(operation[end].get<double>(), 2) + " ";
      lines.push_back(line);
    }
    return lines;
  }
};

TEST_F(Manipulation, EachToolShowsItsFrameAndSwitchesOffWhatCannotRun) {
  EXPECT_EQ(Value("state ModeAnal"), 0);
  const std::vector<std::tuple<std::string, std::vector<std::string>, std::string>> steps{
      {"cmdBckg", {"6", "n"}, "2: Bckg Main Smo"},
      {"cmdZoom", {}, "2: Bckg Main Smo Resume Subtr Res Save Print QuitBckg"},
      {"cmdZoom", {}, "2: Bckg Main Smo"},
      {"cmdSubtr", {}, "2: Bckg Main Smo Zoom Subtr Res Print"},
      {"cmdResume", {""}, "2: Bckg Main Smo"},
      {"cmdSubtr", {}, "2: Bckg Main Smo Zoom Subtr Res Print"},
      {"cmdQuitBckg", {}, "13:"},
      {"cmdSmo", {"5"}, "3: Bckg Main"},
      {"Command17", {}, "123:"},
      {"cmdDFT", {}, "1: Bckg Main"},
      {"Command16", {}, "123:"},
      {"cmdZoom", {}, "23: Bckg Main Smo Resume Subtr Res Save Print QuitBckg"},
      // Un-zooming brings back what belongs to the background alone.
      {"cmdZoom", {}, "23: Bckg Main Smo"},
      {"cmdQuitBckg", {}, "13:"},
  };
  for (const auto& [command, answers, state] : steps) {
    Give(answers, command);
    EXPECT_EQ(State(), state) << command;
    EXPECT_EQ(Desk().Find("Form12")->MayClose(), Is("cmdMain.Enabled"));
  }
}

TEST_F(Manipulation, TheBackgroundAsksForAWindowUntilItCanBeUsed) {
  const auto question = testing::StartsWith("Background estimate: ");
  const auto again = testing::StartsWith("Continue?: ");
  // Half a degree three times is 1.5 points, made 2.
  EXPECT_THAT(Give({"399", "x", "0.5 deg", "Y", "y", "yes"}, "cmdBckg"),
              ElementsAre(question, HasSubstr("\"399\" gives no window of 2 to 398 points"), question,
                          HasSubstr("\"x\" gives no window"), question, again, again, again));
  Click("Form12.cmdQuitBckg");
  Data().Buffer(1).XStep = 0;
  EXPECT_THAT(Give({"5", "5.5", ""}, "cmdBckg"),
              ElementsAre(question, HasSubstr("variable step"), question, again));
  EXPECT_THAT(Words("input cancel\nclick Form12.cmdResume\n"), ElementsAre(question));
  EXPECT_EQ(State(), "2: Bckg Main Smo");
}

TEST_F(Manipulation, TheBackgroundIsDrawnInDashesResumedAndRescaled) {
  Workspace& data = Data();
  const PointTable y = data.Buffer(1).WorkY;
  Give({"6", "y", "y", "n"}, "cmdBckg");
  // The dashes: five segments of two, in red and white in turn; the profile without the two that reach above
  // the top.
  EXPECT_EQ(Curves(colours::Red).size(), 20U);
  EXPECT_EQ(Curves(colours::White).size(), 20U);
  EXPECT_THAT(Curves(colours::Red), testing::Contains("20 29.25 22.38 29.25 "));
  // Resumed, the first cycle smooths the curve as it stands; a subtraction is taken back before.
  Click("Form12.cmdSubtr");
  EXPECT_EQ(data.NetY[21], 500 - data.BackgroundY[21]);
  EXPECT_EQ(data.BackgroundSubtracted, 1);
  PointTable background = data.BackgroundY, padded(PaddedYBound + 1);
  SmoothBackground(background, 41, 8, MeansAtEnds(y, 41), padded);
  Give({"8", ""}, "cmdResume");
  EXPECT_EQ(data.PaddedY, padded);
  EXPECT_EQ(data.BackgroundSubtracted, 0);
  EXPECT_EQ(data.NetY, PointTable(MaxPoints + 1));
  // A factor; one that is none, or too large, changes nothing.
  const PointTable smooth = data.BackgroundY;
  for (const char* factor : {"ten", "1E38"}) EXPECT_EQ(Give({factor}, "cmdRes").size(), 2U);
  EXPECT_EQ(data.BackgroundY, smooth);
  Give({"-1.5"}, "cmdRes");
  EXPECT_EQ(data.BackgroundY[7], smooth[7] * -1.5F);
  EXPECT_EQ(data.PaddedY, padded) << "the smooth curve isn't scaled";
  Click("Form12.cmdQuitBckg");
  EXPECT_EQ(data.BackgroundY, PointTable(MaxPoints + 1));
  EXPECT_EQ(data.PaddedY, PointTable(PaddedYBound + 1));
}

TEST_F(Manipulation, EachCycleIsDrawnBeforeTheNextQuestionAndAllIsDrawnAnewAtTheEnd) {
  Click("Form12.cmdDFT Form12.Command16");                  // other colours, another picture
  Try("input \"6\"\ninput \"y\"\nclick Form12.cmdBckg\n");  // left at the second question
  EXPECT_EQ(Curves(colours::Red).size(), 2 * 40U);
  EXPECT_THAT(Curves(colours::Blue), IsEmpty());
  const std::vector<std::string> profile = Curves(colours::Black);
  Give({"6", "n"}, "cmdResume");
  Click("Form12.cmdSubtr");
  Give({""}, "cmdResume");
  EXPECT_EQ(Curves(colours::White).size(), 20U) << "the subtraction is taken back";
  Click("Form12.cmdSubtr Form12.cmdQuitBckg");
  EXPECT_EQ(Data().BackgroundSubtracted, 0);
  EXPECT_EQ(Data().NetY, PointTable(MaxPoints + 1));
  EXPECT_EQ(Curves(colours::Black), profile);
  EXPECT_THAT(Curves(colours::Red), IsEmpty());
  // A subtraction of nothing, before any estimate, ends with the next one.
  Give({"5"}, "cmdSmo");
  Click("Form12.Command17 Form12.cmdSubtr");
  Estimate();
  EXPECT_EQ(Data().BackgroundSubtracted, 0);
}

TEST_F(Manipulation, ResultsBeyond32BitsAreToldAndChangeNothing) {
  Estimate();
  Give({"2E36"}, "cmdRes");  // two points together go beyond
  const PointTable scaled = Data().BackgroundY;
  EXPECT_THAT(Give({"6"}, "cmdResume").back(), HasSubstr("A sum of intensities"));
  EXPECT_EQ(Data().BackgroundY, scaled);
  const char* const huge =
      "Huge\r\n7\r\n10,16,1\r\n0\r\n0\r\n3.4E38\r\n3.4E38\r\n3.4E38\r\n0\r\n0\r\n3.4E38 0\r\n1.5\r\n";
  Play(LoadCommands(File("huge.dat", huge), 1, 'a'));
  Manipulate('a');
  const PointTable before = Data().Buffer(1).WorkY;
  for (const char* script : {"input \"5\"\nclick Form12.cmdSmo\n",
                             "click Form12.Command17\nclick Form12.cmdDFT\nclick Form12.cmdDFTInv\n",
                             "click Form12.Command16\ninput \"6\"\nclick Form12.cmdBckg\n"}) {
    EXPECT_THAT(Words(script).back(), HasSubstr("beyond 3.4E+38")) << script;
    EXPECT_TRUE(Data().Buffer(1).WorkY == before) << script;
    EXPECT_EQ(Data().BackgroundY, PointTable(MaxPoints + 1));
    EXPECT_EQ(Data().PaddedY, PointTable(PaddedYBound + 1));
  }
  Data().BackgroundY[3] = -3.4E38F;
  EXPECT_THAT(Give({}, "cmdSubtr"), ElementsAre(HasSubstr("beyond 3.4E+38")));
  EXPECT_EQ(Data().NetY, PointTable(MaxPoints + 1));
  EXPECT_EQ(Data().BackgroundSubtracted, 0);
}

TEST_F(Manipulation, ASubtractionIsDrawnDownToItsLowestValue) {
  Estimate();
  Give({"2"}, "cmdRes");
  Click("Form12.cmdSubtr");
  EXPECT_EQ(Data().Buffer(1).NegativeY, 1);
  EXPECT_EQ(Data().PlotYMin, 100);
  // Counts of 100 on a background of 200: 100 below the red zero line, which stands at 15 + 71.25 * 100 /
  // 600.
  EXPECT_EQ(Curves(colours::Red).size(), 1U);
  const PointTable& net = Data().NetY;
  EXPECT_NEAR(YAt("20 15"), *std::min_element(net.begin() + 1, net.begin() + 42), 1e-3);
  PointTable high(2);
  EXPECT_EQ(SubtractBackground({0, 300000}, {0, 1}, 1, high), 100000) << "where the lowest value starts";
}

TEST_F(Manipulation, AZoomReachesFromThePressDownToTheAxis) {
  Estimate();
  Click("Form12.cmdZoom");
  EXPECT_EQ(Values("Form12.cmdZoom.Caption Form12.Picture1.MousePointer"), (Json{"Un-zoom", 2}));
  EXPECT_EQ(XAt("67.5 29.25"), "x = 30");
  EXPECT_NEAR(YAt("67.5 29.25"), 100, 1e-4);
  Select("91.25 60", "43.75 60");  // from right to left
  EXPECT_EQ(Limits(), "xmin 40, xmax 20");
  EXPECT_THAT(Give({}, "optOK").at(0), HasSubstr("no width or no height"));
  Select("43.75 60", "91.25 60");
  EXPECT_EQ(Limits(), "xmin 20, xmax 40");
  EXPECT_NEAR(Data().Buffer(1).WorkYMax, 45 / 0.1425, 1e-3);
  Click("Form12.optOK");
  EXPECT_EQ(XAt("115 86.25") + ", " + Limits(), "x = 40, xmin 20, xmax 40");
  EXPECT_EQ(Get("Form12.Picture1.MousePointer"), 1);
  EXPECT_NEAR(YAt("115 86.25"), 45 / 0.1425, 1e-3);
  // From 20 to 40, all below the top; point 11 of the smooth curve stands behind a padding of three.
  EXPECT_EQ(Curves(colours::Red).size(), 20U);
  const double height = 15 + Data().PaddedY[3 + 11] * 71.25 / (45 / 0.1425);
  EXPECT_THAT(Curves(colours::Red).front(), testing::StartsWith("20 " + RoundedText(height, 2) + " 24.75 "));
  // A portion of the portion, given up: all is as before the zoom.
  Select("67.5 60", "90 60");
  EXPECT_EQ(Text(6), "xmin 30");
  Click("Form12.optNO");
  EXPECT_EQ(Get("Form12.cmdZoom.Caption"), "Zoom");
  EXPECT_EQ(State(), "2: Bckg Main Smo");
  EXPECT_EQ(Limits(), "xmin 10, xmax 50");
  EXPECT_EQ(Curves(colours::Red).size(), 40U);
  EXPECT_EQ(XAt("115 15"), "x = 50");
}

TEST_F(Manipulation, ThePictureTellsWhatTheMouseDoes) {
  const std::string press = "down Form12.Picture1 left 40 60\n";
  const std::string drag = press + "move Form12.Picture1 90 60\nup Form12.Picture1 left 90 60\n";
  Estimate();
  ExpectTips("Form12.Picture1", {{"click Form12.cmdZoom\n", "corner"},
                                 {drag, "\"OK\""},
                                 {press, "corner"},
                                 {"up Form12.Picture1 left 90 60\nclick Form12.optOK\n", "Un-zoom"},
                                 {drag, "\"OK\""}});
  EXPECT_TRUE(PressEscape("Form12"));
  EXPECT_FALSE(PressEscape("Form12"));
  ExpectTips("Form12.Picture1", {{"forms\n", "boxes"},
                                 {"click Form12.cmdZoom\n", "corner"},
                                 {"click Form12.cmdZoom\n", "boxes"},
                                 {"click Form12.cmdQuitBckg\nclick Form12.cmdDFT\n", "boxes"}});
}

TEST_F(Manipulation, AZoomOfAProfileBelowZeroKeepsItsBottomAndEndsAtTheLastPoint) {
  Open(41, 'b', -50);
  Estimate();
  Click("Form12.cmdZoom");
  Select("67.5 80", "130 80");
  EXPECT_EQ(Limits(), "xmin 30, xmax 50");
  Click("Form12.optOK");
  EXPECT_NEAR(YAt("20 15"), -50, 1e-4);
  // A print in other colours doesn't colour a later zoom.
  Play(
      "click Form12.cmdZoom\nmodal set Form31.Combo2 \"Green\"\nmodal click Form31.Command1\n"
      "printer \"page.pdf\"\nclick Form12.cmdPrint\nclick Form12.cmdZoom\nclick Form12.cmdZoom\n");
  EXPECT_THAT(Curves(65280), IsEmpty());
  Play("file " + Json(Folder() + "/plot.bmp").dump() + "\nclick Form12.Command18\n");
  const auto& picture = dynamic_cast<PictureBox&>(*Desk().Find("Form12")->Find("Picture1"));
  EXPECT_EQ(Platform().Pictures[Folder() + "/plot.bmp"], picture.Operations());
}

TEST_F(Manipulation, SmoothingAsksUntilItGetsAWindow) {
  EXPECT_EQ(Give({"", "6", "5.5", "5 points"}, "cmdSmo").size(), 4U);
  // A line of 400 counts among others of 0, weighted by 17 / 35.
  EXPECT_FLOAT_EQ(Data().Buffer(1).WorkY[21], 100 + 400.0F * 17 / 35);
  EXPECT_EQ(Data().Buffer(1).PermY[21], 500);
  EXPECT_EQ(Curves(colours::Red).size(), 40U);
  EXPECT_EQ(Curves(colours::Red)[20].substr(0, 11), "67.5 56.94 ");  // 15 + 294.29 * 0.1425
}

TEST_F(Manipulation, WhatCannotBeDoneIsToldAndChangesNothing) {
  const auto expect_refusal = [&](const std::vector<std::string>& answers, const std::string& command,
                                  const std::string& told) {
    const Json before = Value("buffer a");
    const std::string state = State();
    EXPECT_THAT(Give(answers, command).back(), HasSubstr(told));
    EXPECT_EQ(Value("buffer a"), before) << command;
    EXPECT_EQ(State(), state) << command;
  };
  expect_refusal({}, "cmdFilter", "Press \"DFT\" first");
  expect_refusal({}, "cmdDFTInv", "Press \"DFT\" first");
  Click("Form12.cmdDFT");
  expect_refusal({}, "Command7", "Press \"DFT\" and \"DFT inv.\" first");
  Click("Form12.Command16 Form12.cmdMain");
  Open(6, 'a');
  expect_refusal({"7"}, "cmdSmo", "6 points can't be smoothed over 7");
  Open(4, 'a');
  expect_refusal({}, "cmdBckg", "It takes at least 5 points");
  Erase('a');
  for (const char* command : {"cmdSmo", "cmdBckg", "cmdDFT", "Command14"}) {
    expect_refusal({}, command, "Buffer a holds no profile");
  }
  // A buffer that was empty from the start: the window stays, without a plot.
  Manipulate('b');
  EXPECT_EQ(Value("forms")[0], "Form1");
  EXPECT_EQ(Get("Form12")["Visible"], true);
  expect_refusal({}, "Command18", "There is no plot");
  EXPECT_THAT(Value("picture Form12.Picture1"), IsEmpty());
}

TEST_F(Manipulation, ResultsGoIntoBuffersAndTheWindowGoesOn) {
  Estimate();
  const auto title = [&](int slot) { return RightTrimmed(Data().Buffer(slot).Title); };
  // The picker of a calibration that is left open gives way.
  Click(
      "Form1.cmdCalib Form12.cmdSave Form16.optB Form12.cmdSubtr Form12.cmdSave Form16.optC "
      "Form12.cmdQuitBckg");
  EXPECT_EQ(Value("state ModeCalib"), 0);
  EXPECT_EQ(title(2), "Line BACKGROUND");
  EXPECT_EQ(title(3), "Line WITHOUT BACKGROUND");
  EXPECT_EQ(Data().CurBuf, 1);
  Give({"9"}, "cmdSmo");
  Click("Form12.Command14 Form18.optD");
  EXPECT_EQ(title(4), "Line SMOOTHED");
  EXPECT_EQ(Data().Buffer(4).PermY[21], 100 + 400.0F * 70 / 256);
  EXPECT_EQ(Data().CurBuf, 4) << "the window goes on with the buffer saved to";
  EXPECT_EQ(Text(2), "buffer d");
  EXPECT_EQ(Data().Buffer(4).WorkY[21], 0) << "its temporary copy is taken with the next command";
  // The Fourier filter takes its permanent copy, smoothed; parameter 0 filters nothing, and counts twice the
  // last one.
  Click("Form12.Command17 Form12.cmdDFT Form12.cmdDFTInv Form12.Command7");
  EXPECT_EQ(Value("state SaveDft"), -1);
  Play("close Form18\n");
  EXPECT_EQ(Value("state SaveDft"), 0);
  Click("Form12.Command7 Form18.optE");
  EXPECT_EQ(title(5), "Line SMOOTHED SMOOTHED by DFT");
  EXPECT_EQ(Value("state SaveDft"), 0);
  EXPECT_EQ(Value("state WorkY(d)")[21], Value("state PermY(e)")[21]);
  EXPECT_NEAR(Data().Buffer(5).PermY[21], 100 + 400.0F * 70 / 256, 0.01);
}

TEST_F(Manipulation, TheTransformsShowHowFarTheyAre) {
  Click("Form12.cmdMain");
  Open(100, 'a');
  const auto progress = [&](const std::string& command) {
    std::vector<std::string> seen;
    for (const Json& event : Click("Form12." + command)) {
      if (event["event"] == "pointer") seen.push_back("pointer " + event["pointer"].dump());
      if (event["event"] == "refresh")
        seen.push_back((event["Visible"] == true ? "line " : "none ") + event["X2"].dump());
    }
    return seen;
  };
  // 51 coefficients, and a line of 2470: 20 / 51 of it, and 40 / 51.
  EXPECT_THAT(progress("cmdDFT"),
              ElementsAre("pointer 11", "line 969.0", "line 1937.0", "pointer 1", "none 2.0"));
  EXPECT_THAT(progress("cmdDFTInv"), ElementsAre("pointer 11", "line 494.0", "line 988.0", "line 1482.0",
                                                 "line 1976.0", "line 2470.0", "pointer 1", "none 2.0"));
  EXPECT_EQ(Give({"-1", "9.5", "9"}, "cmdFilter").size(), 3U);
  EXPECT_EQ(Curves(colours::Blue).size(), 50U);
  EXPECT_EQ(Curves(colours::Blue).front().substr(0, 5), "21.86");  // coefficient 1 of 51 on 95 units
  const Json shown = Value("picture Form12.Picture1");
  Give({""}, "cmdFilter");
  EXPECT_EQ(Value("picture Form12.Picture1"), shown) << "0 filters nothing";
}

TEST_F(Manipulation, TheTransformsAreDrawnInFramesOfTheirOwn) {
  Click("Form12.cmdDFT");
  // 41 points have 21.5 coefficients; the first, the mean, is the highest, without an imaginary part.
  const std::string first = RoundedText(20 + 95 / 21.5, 2);
  EXPECT_THAT(Curves(colours::Red), testing::Contains(testing::StartsWith(first + " 86.25 ")));
  const double zero = Data().Plot.ZeroY;
  EXPECT_THAT(Curves(colours::Blue).front(), testing::StartsWith(first + " " + RoundedText(zero, 2)));
  EXPECT_EQ(XAt("115 86.25"), "x = 21.5");
  Click("Form12.cmdDFTInv");
  EXPECT_EQ(XAt("115 86.25"), "x = 50");
  EXPECT_THAT(Curves(colours::Black), testing::Contains(testing::HasSubstr(" 67.5 86.25 ")));
}

TEST_F(Manipulation, ThePrintTakesTheColoursChosen) {
  Journey::Load('b', "10 0\r\n12.5 100\r\n15 0\r\n17.5 50\r\n20 -42.5\r\n");
  Manipulate('b');
  Play("input cancel\nclick Form12.cmdBckg\n");
  for (std::size_t i = 1; i <= 5; ++i) Data().BackgroundY[i] = 10 * static_cast<float>(i);
  const auto print = [&](const std::string& background, const std::string& printer) {
    Play("modal set Form31.Combo1 \"Cyano\"\nmodal set Form31.Combo2 \"" + background +
         "\"\nmodal click Form31.Command1\nprinter " + printer + "\nclick Form12.cmdPrint\n");
  };
  const double y = YAt("60 70");
  print("green", "\"page.pdf\"");
  // 9.5 mm for a degree, half a mm for a count, upward from the red zero line 108.75 mm below the page's top.
  // A colour of no name leaves the red of before; the pieces in white are printed too.
  EXPECT_THAT(Curves(colours::Red, "Printer"),
              ElementsAre(HasSubstr(" 108.75 "), "95 103.75 118.75 98.75 ", "118.75 98.75 142.5 93.75 "));
  EXPECT_THAT(Curves(colours::White, "Printer"),
              ElementsAre("142.5 93.75 166.25 88.75 ", "166.25 88.75 190 83.75 "));
  EXPECT_THAT(Curves(0xFFFF00, "Printer"),
              ElementsAre("95 108.75 118.75 58.75 ", "118.75 58.75 142.5 108.75 ",
                          "142.5 108.75 166.25 83.75 ", "166.25 83.75 190 130 "));
  EXPECT_EQ(YAt("60 70"), y) << "the screen keeps its scale";
  Play("modal set Form31.Combo2 \"Blue\"\nmodal close Form31\nclick Form12.cmdPrint\n");  // asks for no
                                                                                          // printer
  EXPECT_EQ(Data().BackgroundColourName, "green") << "colours are taken only by OK";
  print("Green", "cancel");
  Give({"1"}, "cmdRes");
  EXPECT_EQ(Curves(0x00FF00).size(), 2U) << "the colours stay chosen for the next drawing";
}

TEST_F(Manipulation, AnotherProfileFindsNothingOfTheFormerOne) {
  Estimate();
  Click("Form12.cmdSubtr Form12.cmdSave");
  Open(21, 'b');
  EXPECT_EQ(Data().BackgroundSubtracted, 0);
  EXPECT_EQ(Data().BackgroundY, PointTable(MaxPoints + 1));
  EXPECT_FALSE(Get("Form16")["Loaded"].get<bool>());
  // Its buffer is at work again before its commands, whatever has been picked meanwhile.
  Play("file cancel\nclick Form1.cmdOut\nclick Form10.optA\ninput \"5\"\nclick Form12.cmdSmo\n");
  EXPECT_EQ(Data().CurBuf, 2);
  EXPECT_EQ(Data().Buffer(1).WorkY[21], 500);
  // A quit leaves nothing that a picker could still save.
  Click("Form12.Command17");
  Estimate();
  Click("Form12.cmdSave Form12.cmdQuitBckg");
  EXPECT_FALSE(Get("Form16")["Loaded"].get<bool>());
}

TEST_F(Manipulation, WhatAnotherWindowHasChangedIsNotTakenForItsOwn) {
  const auto refused = [&](const std::string& names) {
    return Click(names).dump().find("changed in another window") != std::string::npos;
  };
  const auto add_1_to_x = [&] { Play("input \"1\"\nclick Form6.cmdMod\nclick Form8.cmdSumX\n"); };
  Estimate();
  Click("Form12.cmdSave");
  Load(41, 'a', 300);  // another profile of as many points
  EXPECT_TRUE(refused("Form16.optC"));
  EXPECT_TRUE(Data().Buffer(3).Empty());
  EXPECT_TRUE(refused("Form12.cmdSubtr"));
  // A smoothed profile that has been taken anew for a display is smoothed no more.
  Open(41, 'a');
  Give({"5"}, "cmdSmo");
  Display("a");
  EXPECT_TRUE(refused("Form12.Command14"));
  // Nor does a window that shows what was smoothed here save it, not having shown it.
  Manipulate('a');
  Give({"5"}, "cmdSmo");
  EXPECT_TRUE(refused("Form6.cmdSave"));
  // Windows that show a buffer which a result goes into don't write over it.
  Load(41, 'b');
  Display("ab");
  Open(41, 'a');
  Display("b");
  Estimate();
  Click("Form12.cmdSave Form16.optB");
  const Json background = Value("buffer b");
  EXPECT_TRUE(refused("Form6.cmdSave"));
  EXPECT_THAT(Words("modal click Form32.optB\nclick Form2.cmdSave\n").back(),
              HasSubstr("changed in another window"));
  EXPECT_TRUE(refused("Form2.cmdMod Form8.Command1"));
  EXPECT_EQ(Value("buffer b"), background);
  // A shift of X, and a change before the temporary copy of the buffer saved to is taken.
  Display("a");
  add_1_to_x();
  EXPECT_TRUE(refused("Form12.cmdSubtr"));
  Open(41, 'a');
  Click("Form12.Command14 Form18.optB");
  Display("b");
  Give({"5"}, "cmdSmo");
  Click("Form12.Command14 Form18.optC");
  Display("c");
  add_1_to_x();
  EXPECT_TRUE(refused("Form12.Command17 Form12.cmdDFT"));
}

/// The whole way on a computed profile of silicon, with results that were looked at and kept.
TEST_F(Manipulation, SiliconWithoutItsBackgroundAndFiltered) {
  Play(LoadCommands(KOPRAX_SOURCE_DIR "/examples/silicon.dat", 1, 'a'));
  Manipulate('a');
  Give({"60", "y", "y", "n"}, "cmdBckg");
  Click("Form12.cmdSave Form16.optB Form12.cmdSubtr Form12.cmdSave Form16.optC");
  Click("Form12.cmdQuitBckg Form12.cmdMain");
  Manipulate('c');
  Click("Form12.cmdDFT");
  Give({"1.5"}, "cmdFilter");
  Click("Form12.cmdDFTInv Form12.Command7 Form18.optD");
  std::string text = "2-theta, background, net, filtered\n";
  for (std::size_t i = 1; i <= 6001; i += 75) {
    const auto y = [&](int slot) { return Data().Buffer(slot).PermY[i]; };
    // The filtered profile may differ in its last bit with the sines of the system.
    text += GeneralText(Data().Buffer(2).PermX[i]) + " " + GeneralText(y(2)) + " " + GeneralText(y(3)) + " " +
            RoundedText(y(4), 2) + "\n";
  }
  ExpectGolden(text, "app/manipulation_journey.golden");
}

}  // namespace
}  // namespace koprax
