// The Profile manipulation window, played: what shows and is live in each state, what is asked and told, what
// is drawn, and what goes into a buffer. The numbers of the tools are tested beside them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "app/command_form.h"
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

class Manipulation : public testing::Test {
 protected:
  Manipulation() { Open(41, 'a'); }

  void Load(int points, char letter, int level = 100) {
    session_.Play(
        WorkbenchSession::LoadCommands(session_.File("line.dat", ProfileText(points, level)), 1, letter));
  }
  /// Loads a profile and opens it; the picture is 2.375 wide for each of 41 degrees.
  void Open(int points, char letter, int level = 100) {
    Load(points, letter, level);
    session_.Play(std::string("click Form1.cmdAnal\nclick Form10.opt") +
                  static_cast<char>(letter - 'a' + 'A') + "\n");
  }
  /// One answer after the other to the question for a window, and then for another cycle.
  void Estimate(const std::string& answers = "input \"6\"\ninput \"n\"\n") {
    session_.Play(answers + "click Form12.cmdBckg\n");
  }
  void Select(const std::string& from, const std::string& to) {
    session_.Play("down Form12.Picture1 left " + from + "\nmove Form12.Picture1 " + to +
                  "\nup Form12.Picture1 left " + to + "\n");
  }
  std::vector<std::string> Words(const std::string& script) { return session_.Words(script); }
  std::string Get(const std::string& name) { return session_.Value("get Form12." + name).get<std::string>(); }
  bool Is(const std::string& name) { return session_.Value("get Form12." + name).get<bool>(); }

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
    for (const Json& operation : session_.Value("picture " + surface)) {
      if (operation["op"] != "line" || operation["colour"] != colour) continue;
      std::string line;
      for (const char* end : {"x1", "y1", "x2", "y2"})
        line += RoundedText(operation[end].get<double>(), 2) + " ";
      lines.push_back(line);
    }
    return lines;
  }
  Json Points(const std::string& field) { return session_.Value("state " + field); }

  CommandSession session_;
};

TEST_F(Manipulation, EachToolShowsItsFrameAndSwitchesOffWhatCannotRun) {
  EXPECT_EQ(State(), "13:");
  EXPECT_EQ(session_.Value("state ModeAnal"), 0);
  EXPECT_EQ(Get("Text6.Text") + Get("Text7.Text") + Get("Text9.Text") + Get("Text2.Text"),
            "xmin 10xmax 50step 1buffer a");
  const std::vector<std::pair<std::string, std::string>> steps{
      {"input \"6\"\ninput \"n\"\nclick Form12.cmdBckg\n", "2: Bckg Main Smo"},
      {"click Form12.cmdZoom\n", "2: Bckg Main Smo Resume Subtr Res Save Print QuitBckg"},
      {"click Form12.cmdZoom\n", "2: Bckg Main Smo"},
      {"click Form12.cmdSubtr\n", "2: Bckg Main Smo Zoom Subtr Res Print"},
      {"input \"\"\nclick Form12.cmdResume\n", "2: Bckg Main Smo"},
      {"click Form12.cmdSubtr\nclick Form12.cmdQuitBckg\n", "13:"},
      {"input \"5\"\nclick Form12.cmdSmo\n", "3: Bckg Main"},
      {"click Form12.Command17\n", "123:"},
      {"click Form12.cmdDFT\n", "1: Bckg Main"},
      {"click Form12.Command16\n", "123:"},
      // Un-zooming brings back what belongs to the background alone.
      {"click Form12.cmdZoom\nclick Form12.cmdZoom\n", "23: Bckg Main Smo"},
      {"click Form12.cmdQuitBckg\n", "13:"},
  };
  for (const auto& [script, state] : steps) {
    session_.Play(script);
    EXPECT_EQ(State(), state) << script;
    EXPECT_EQ(session_.Desk().Find("Form12")->MayClose(), Is("cmdMain.Enabled"));
  }
}

TEST_F(Manipulation, TheBackgroundAsksForAWindowUntilItCanBeUsed) {
  const std::string question =
      "Background estimate: Give approximate FWHM (2-theta units) of Bragg peaks  or number of points for "
      "the "
      "averaging procedure (30-40 suggested, 6 min, 300 max)";
  const std::string again = "Continue?: Repeat smoothing? (Y/N)";
  // Half a degree three times is 1.5 points, made 2.
  EXPECT_THAT(Words("input \"399\"\ninput \"x\"\ninput \"0.5 deg\"\ninput \"Y\"\ninput \"y\"\ninput \"yes\"\n"
                    "click Form12.cmdBckg\n"),
              ElementsAre(question, HasSubstr("\"399\" gives no window of 2 to 398 points"), question,
                          HasSubstr("\"x\" gives no window"), question, again, again, again));
  session_.Play("click Form12.cmdQuitBckg\n");
  session_.Data().Buffer(1).XStep = 0;
  EXPECT_THAT(Words("input \"5\"\ninput \"5.5\"\ninput \"\"\nclick Form12.cmdBckg\n"),
              ElementsAre(question, "Warning, none: Profile with variable step!!! Give number of POINTS!",
                          question, "Continue?: Repeat smoothing? (Y/N)"));
  EXPECT_THAT(Words("input cancel\nclick Form12.cmdResume\n"), ElementsAre(question));
  EXPECT_EQ(State(), "2: Bckg Main Smo");
}

TEST_F(Manipulation, TheCyclesAreThoseOfTheEstimateAndDrawnOneAboveTheOther) {
  Workspace& data = session_.Data();
  const PointTable y = data.Buffer(1).WorkY;
  PointTable background(MaxPoints + 1), padded(PaddedYBound + 1);
  ASSERT_TRUE(StartBackground(y, 41, background));
  for (int cycle = 1; cycle <= 3; ++cycle) {
    if (cycle > 1) ClipToMeasurement(y, padded, 41, 3, background);
    SmoothBackground(background, 41, 6, MeansAtEnds(y, 41), padded);
    std::copy_n(padded.begin() + 4, 41, background.begin() + 1);
  }
  Estimate("input \"6\"\ninput \"y\"\ninput \"y\"\ninput \"n\"\n");
  EXPECT_EQ(data.BackgroundY, background);
  EXPECT_EQ(data.PaddedY, padded);
  // The dashes: five segments of two, in red and white in turn; the profile without the two that reach above
  // the top.
  EXPECT_EQ(Curves(colours::Red).size(), 20U);
  EXPECT_EQ(Curves(colours::White).size(), 20U);
  EXPECT_THAT(Curves(colours::Red), testing::Contains("20 29.25 22.38 29.25 "));
  // Resumed, the first cycle smooths the curve as it stands; a subtraction is taken back before.
  session_.Play("click Form12.cmdSubtr\n");
  EXPECT_EQ(data.NetY[21], 500 - background[21]);
  EXPECT_EQ(data.BackgroundSubtracted, 1);
  SmoothBackground(background, 41, 8, MeansAtEnds(y, 41), padded);
  session_.Play("input \"8\"\ninput \"\"\nclick Form12.cmdResume\n");
  EXPECT_EQ(data.PaddedY, padded);
  EXPECT_EQ(data.BackgroundSubtracted, 0);
  EXPECT_EQ(data.NetY, PointTable(MaxPoints + 1));
  // A factor; one that is none, or too large, changes nothing.
  const PointTable smooth = data.BackgroundY;
  EXPECT_THAT(Words("input \"ten\"\nclick Form12.cmdRes\n"),
              ElementsAre("bckg = bckg*K: Give K\r\n(real number)", HasSubstr("K is to be a real number")));
  EXPECT_THAT(Words("input \"1E38\"\nclick Form12.cmdRes\n").back(), HasSubstr("background would go beyond"));
  EXPECT_EQ(data.BackgroundY, smooth);
  session_.Play("input \"-1.5\"\nclick Form12.cmdRes\n");
  EXPECT_EQ(data.BackgroundY[7], smooth[7] * -1.5F);
  EXPECT_EQ(data.PaddedY, padded) << "the smooth curve isn't scaled";
  session_.Play("click Form12.cmdQuitBckg\n");
  EXPECT_EQ(data.BackgroundY, PointTable(MaxPoints + 1));
  EXPECT_EQ(data.PaddedY, PointTable(PaddedYBound + 1));
}

TEST_F(Manipulation, EachCycleIsDrawnBeforeTheNextQuestionAndAllIsDrawnAnewAtTheEnd) {
  session_.Play("click Form12.cmdDFT\nclick Form12.Command16\n");    // other colours, another picture
  session_.Try("input \"6\"\ninput \"y\"\nclick Form12.cmdBckg\n");  // left at the second question
  EXPECT_EQ(Curves(colours::Red).size(), 2 * 40U);
  EXPECT_THAT(Curves(colours::Blue), IsEmpty());
  const std::vector<std::string> profile = Curves(colours::Black);
  session_.Play(
      "input \"6\"\ninput \"n\"\nclick Form12.cmdResume\nclick Form12.cmdSubtr\ninput \"\"\nclick "
      "Form12.cmdResume\n");
  EXPECT_EQ(Curves(colours::White).size(), 20U) << "the subtraction is taken back";
  session_.Play("click Form12.cmdSubtr\nclick Form12.cmdQuitBckg\n");
  EXPECT_EQ(session_.Data().BackgroundSubtracted, 0);
  EXPECT_EQ(session_.Data().NetY, PointTable(MaxPoints + 1));
  EXPECT_EQ(Curves(colours::Black), profile);
  EXPECT_THAT(Curves(colours::Red), IsEmpty());
  // A subtraction of nothing, before any estimate, ends with the next one.
  session_.Play("input \"5\"\nclick Form12.cmdSmo\nclick Form12.Command17\nclick Form12.cmdSubtr\n");
  Estimate();
  EXPECT_EQ(session_.Data().BackgroundSubtracted, 0);
}

TEST_F(Manipulation, ResultsBeyond32BitsAreToldAndChangeNothing) {
  Estimate();
  session_.Play("input \"2E36\"\nclick Form12.cmdRes\n");  // two points together go beyond
  const PointTable scaled = session_.Data().BackgroundY;
  EXPECT_THAT(Words("input \"6\"\nclick Form12.cmdResume\n").back(), HasSubstr("A sum of intensities"));
  EXPECT_EQ(session_.Data().BackgroundY, scaled);
  const std::string path = session_.File(
      "huge.dat",
      "Huge\r\n7\r\n10,16,1\r\n0\r\n0\r\n3.4E38\r\n3.4E38\r\n3.4E38\r\n0\r\n0\r\n3.4E38 0\r\n1.5\r\n");
  session_.Play(WorkbenchSession::LoadCommands(path, 1, 'a') + "click Form1.cmdAnal\nclick Form10.optA\n");
  const PointTable before = session_.Data().Buffer(1).WorkY;
  const char* const filtered = "click Form12.Command17\nclick Form12.cmdDFT\nclick Form12.cmdDFTInv\n";
  for (const char* script : {"input \"5\"\nclick Form12.cmdSmo\n", filtered,
                             "click Form12.Command16\ninput \"6\"\nclick Form12.cmdBckg\n"}) {
    EXPECT_THAT(Words(script).back(), HasSubstr("beyond 3.4E+38")) << script;
    EXPECT_TRUE(session_.Data().Buffer(1).WorkY == before) << script;
    EXPECT_EQ(session_.Data().BackgroundY, PointTable(MaxPoints + 1));
    EXPECT_EQ(session_.Data().PaddedY, PointTable(PaddedYBound + 1));
  }
  session_.Data().BackgroundY[3] = -3.4E38F;
  EXPECT_THAT(Words("click Form12.cmdSubtr\n"), ElementsAre(HasSubstr("beyond 3.4E+38")));
  EXPECT_EQ(session_.Data().NetY, PointTable(MaxPoints + 1));
  EXPECT_EQ(session_.Data().BackgroundSubtracted, 0);
}

TEST_F(Manipulation, ASubtractionIsDrawnDownToItsLowestValue) {
  Estimate();
  session_.Play("input \"2\"\nclick Form12.cmdRes\nclick Form12.cmdSubtr\n");
  EXPECT_EQ(session_.Data().Buffer(1).NegativeY, 1);
  EXPECT_EQ(session_.Data().PlotYMin, 100);
  // Counts of 100 on a background of 200: 100 below the red zero line, which stands at 15 + 71.25 * 100 /
  // 600.
  const auto zero = Curves(colours::Red);
  ASSERT_EQ(zero.size(), 1U);
  session_.Play("move Form12.Picture1 20 15\n");
  const PointTable& net = session_.Data().NetY;
  EXPECT_NEAR(LeadingNumber(Get("Text4.Text").substr(4)),
              *std::min_element(net.begin() + 1, net.begin() + 42), 1e-3);
  EXPECT_EQ(Get("Text3.Text"), "x = 10");
  PointTable high(2);
  EXPECT_EQ(SubtractBackground({0, 300000}, {0, 1}, 1, high), 100000) << "where the lowest value starts";
}

TEST_F(Manipulation, AZoomReachesFromThePressDownToTheAxis) {
  Estimate();
  session_.Play("click Form12.cmdZoom\nmove Form12.Picture1 67.5 29.25\n");
  EXPECT_EQ(Get("cmdZoom.Caption"), "Un-zoom");
  EXPECT_EQ(session_.Value("get Form12.Picture1.MousePointer"), 2);
  EXPECT_EQ(Get("Text3.Text"), "x = 30");
  EXPECT_NEAR(LeadingNumber(Get("Text4.Text").substr(4)), 100, 1e-4);
  Select("91.25 60", "43.75 60");  // from right to left
  EXPECT_EQ(Get("Text6.Text") + Get("Text7.Text"), "xmin 40xmax 20");
  EXPECT_THAT(Words("click Form12.optOK\n").at(0), HasSubstr("no width or no height"));
  Select("43.75 60", "91.25 60");
  EXPECT_EQ(Get("Text6.Text") + Get("Text7.Text"), "xmin 20xmax 40");
  EXPECT_NEAR(session_.Data().Buffer(1).WorkYMax, 45 / 0.1425, 1e-3);
  session_.Play("click Form12.optOK\nmove Form12.Picture1 115 86.25\n");
  EXPECT_EQ(Get("Text3.Text") + Get("Text6.Text") + Get("Text7.Text"), "x = 40xmin 20xmax 40");
  EXPECT_EQ(session_.Value("get Form12.Picture1.MousePointer"), 1);
  EXPECT_NEAR(LeadingNumber(Get("Text4.Text").substr(4)), 45 / 0.1425, 1e-3);
  // From 20 to 40, all below the top; point 11 of the smooth curve stands behind a padding of three.
  EXPECT_EQ(Curves(colours::Red).size(), 20U);
  const double height = 15 + session_.Data().PaddedY[3 + 11] * 71.25 / (45 / 0.1425);
  EXPECT_THAT(Curves(colours::Red).front(), testing::StartsWith("20 " + RoundedText(height, 2) + " 24.75 "));
  EXPECT_EQ(State(), "2: Bckg Main Smo Resume Subtr Res Save Print QuitBckg");
  // A portion of the portion, given up: all is as before the zoom.
  Select("67.5 60", "90 60");
  EXPECT_EQ(Get("Text6.Text"), "xmin 30");
  session_.Play("click Form12.optNO\n");
  EXPECT_EQ(Get("cmdZoom.Caption") + State(), "Zoom2: Bckg Main Smo");
  EXPECT_EQ(Get("Text6.Text") + Get("Text7.Text"), "xmin 10xmax 50");
  EXPECT_EQ(Curves(colours::Red).size(), 40U);
  session_.Play("move Form12.Picture1 115 15\n");
  EXPECT_EQ(Get("Text3.Text"), "x = 50");
}

TEST_F(Manipulation, AZoomOfAProfileBelowZeroKeepsItsBottomAndEndsAtTheLastPoint) {
  Open(41, 'b', -50);
  Estimate();
  session_.Play("click Form12.cmdZoom\n");
  Select("67.5 80", "130 80");
  EXPECT_EQ(Get("Text6.Text") + Get("Text7.Text"), "xmin 30xmax 50");
  session_.Play("click Form12.optOK\nmove Form12.Picture1 20 15\n");
  EXPECT_NEAR(LeadingNumber(Get("Text4.Text").substr(4)), -50, 1e-4);
  // A print in other colours doesn't colour a later zoom.
  session_.Play(
      "click Form12.cmdZoom\nmodal set Form31.Combo2 \"Green\"\nmodal click Form31.Command1\n"
      "printer \"page.pdf\"\nclick Form12.cmdPrint\nclick Form12.cmdZoom\nclick Form12.cmdZoom\n");
  EXPECT_THAT(Curves(65280), IsEmpty());
  session_.Play("file " + Json(session_.Folder() + "/plot.bmp").dump() + "\nclick Form12.Command18\n");
  const auto& picture = dynamic_cast<PictureBox&>(*session_.Desk().Find("Form12")->Find("Picture1"));
  EXPECT_EQ(session_.Platform().Pictures[session_.Folder() + "/plot.bmp"], picture.Operations());
}

TEST_F(Manipulation, SmoothingAsksUntilItGetsAWindow) {
  EXPECT_EQ(Words("input \"\"\ninput \"6\"\ninput \"5.5\"\ninput \"5 points\"\nclick Form12.cmdSmo\n"),
            std::vector<std::string>(4, "Smoothing: Give Nr. of points for smoothing (5,7 or 9)"));
  // A line of 400 counts among others of 0, weighted by 17 / 35.
  EXPECT_FLOAT_EQ(session_.Data().Buffer(1).WorkY[21], 100 + 400.0F * 17 / 35);
  EXPECT_EQ(session_.Data().Buffer(1).PermY[21], 500);
  EXPECT_EQ(Curves(colours::Red).size(), 40U);
  EXPECT_EQ(Curves(colours::Red)[20].substr(0, 11), "67.5 56.94 ");  // 15 + 294.29 * 0.1425
}

TEST_F(Manipulation, WhatCannotBeDoneIsToldAndChangesNothing) {
  const auto expect_refusal = [&](const std::string& script, const std::string& told) {
    const Json before = session_.Value("buffer a");
    const std::string state = State();
    EXPECT_THAT(Words(script).back(), HasSubstr(told)) << script;
    EXPECT_EQ(session_.Value("buffer a"), before) << script;
    EXPECT_EQ(State(), state) << script;
  };
  for (const char* command : {"cmdFilter", "cmdDFTInv"}) {
    expect_refusal(std::string("click Form12.") + command + "\n", "Press \"DFT\" first");
  }
  session_.Play("click Form12.cmdDFT\n");
  expect_refusal("click Form12.Command7\n", "Press \"DFT\" and \"DFT inv.\" first");
  session_.Play("click Form12.Command16\nclick Form12.cmdMain\n");
  Open(6, 'a');
  expect_refusal("input \"7\"\nclick Form12.cmdSmo\n", "6 points can't be smoothed over 7");
  Open(4, 'a');
  expect_refusal("click Form12.cmdBckg\n", "It takes at least 5 points");
  session_.Play("answer yes\nclick Form1.cmdDelBuff\nclick Form17.optA\n");
  for (const char* command : {"cmdSmo", "cmdBckg", "cmdDFT", "Command14"}) {
    expect_refusal(std::string("click Form12.") + command + "\n", "Buffer a holds no profile");
  }
  // A buffer that was empty from the start: the window stays, without a plot.
  session_.Play("click Form1.cmdAnal\nclick Form10.optB\n");
  EXPECT_EQ(session_.Value("forms")[0], "Form1");
  EXPECT_TRUE(session_.Value("get Form12")["Visible"].get<bool>());
  expect_refusal("click Form12.Command18\n", "There is no plot");
  EXPECT_THAT(session_.Value("picture Form12.Picture1"), IsEmpty());
}

TEST_F(Manipulation, ResultsGoIntoBuffersAndTheWindowGoesOn) {
  Estimate();
  const auto title = [&](int slot) {
    const std::string& text = session_.Data().Buffer(slot).Title;
    return text.substr(0, text.find_last_not_of(' ') + 1);
  };
  session_.Play(
      "click Form12.cmdSave\nclick Form16.optB\nclick Form12.cmdSubtr\nclick Form12.cmdSave\nclick "
      "Form16.optC\n");
  EXPECT_EQ(title(2), "Line BACKGROUND");
  EXPECT_EQ(title(3), "Line WITHOUT BACKGROUND");
  EXPECT_EQ(session_.Data().CurBuf, 1);
  EXPECT_EQ(session_.Data().Buffer(3).PermY[21], session_.Data().NetY[21]);
  session_.Play(
      "click Form12.cmdQuitBckg\ninput \"9\"\nclick Form12.cmdSmo\nclick Form12.Command14\nclick "
      "Form18.optD\n");
  EXPECT_EQ(title(4), "Line SMOOTHED");
  EXPECT_EQ(session_.Data().Buffer(4).PermY[21], 100 + 400.0F * 70 / 256);
  EXPECT_EQ(session_.Data().CurBuf, 4) << "the window goes on with the buffer saved to";
  EXPECT_EQ(Get("Text2.Text"), "buffer d");
  EXPECT_EQ(session_.Data().Buffer(4).WorkY[21], 0) << "its temporary copy is taken with the next command";
  // The Fourier filter takes its permanent copy, smoothed; parameter 0 filters nothing, and counts twice the
  // last one.
  session_.Play(
      "click Form12.Command17\nclick Form12.cmdDFT\nclick Form12.cmdDFTInv\nclick Form12.Command7\n");
  EXPECT_EQ(session_.Value("state SaveDft"), -1);
  session_.Play("close Form18\n");
  EXPECT_EQ(session_.Value("state SaveDft"), 0);
  session_.Play("click Form12.Command7\nclick Form18.optE\n");
  EXPECT_EQ(title(5), "Line SMOOTHED SMOOTHED by DFT");
  EXPECT_EQ(session_.Value("state SaveDft"), 0);
  EXPECT_EQ(session_.Value("state WorkY(d)")[21], session_.Value("state PermY(e)")[21]);
  EXPECT_NEAR(session_.Data().Buffer(5).PermY[21], 100 + 400.0F * 70 / 256, 0.01);
}

TEST_F(Manipulation, TheTransformsShowHowFarTheyAre) {
  session_.Play("click Form12.cmdMain\n");
  Open(100, 'a');
  const auto progress = [&](const std::string& click) {
    std::vector<std::string> seen;
    for (const Json& event : session_.Events("click Form12." + click + "\n")) {
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
  EXPECT_EQ(Words("input \"-1\"\ninput \"9.5\"\ninput \"9\"\nclick Form12.cmdFilter\n"),
            std::vector<std::string>(3, "Filter Parameter: Give filter parameter (0 --- 9)"));
  EXPECT_EQ(Curves(colours::Blue).size(), 50U);
  EXPECT_EQ(Curves(colours::Blue).front().substr(0, 5), "21.86");  // coefficient 1 of 51 on 95 units
  const Json shown = session_.Value("picture Form12.Picture1");
  session_.Play("input \"\"\nclick Form12.cmdFilter\n");
  EXPECT_EQ(session_.Value("picture Form12.Picture1"), shown) << "0 filters nothing";
}

TEST_F(Manipulation, TheTransformsAreDrawnInFramesOfTheirOwn) {
  session_.Play("click Form12.cmdDFT\n");
  // 41 points have 21.5 coefficients; the first, the mean, is the highest, without an imaginary part.
  const std::string first = RoundedText(20 + 95 / 21.5, 2);
  EXPECT_THAT(Curves(colours::Red), testing::Contains(testing::StartsWith(first + " 86.25 ")));
  const double zero = session_.Data().Plot.ZeroY;
  EXPECT_THAT(Curves(colours::Blue).front(), testing::StartsWith(first + " " + RoundedText(zero, 2)));
  session_.Play("move Form12.Picture1 115 86.25\n");
  EXPECT_EQ(Get("Text3.Text"), "x = 21.5");
  session_.Play("click Form12.cmdDFTInv\nmove Form12.Picture1 115 86.25\n");
  EXPECT_EQ(Get("Text3.Text"), "x = 50");
  EXPECT_THAT(Curves(colours::Black), testing::Contains(testing::HasSubstr(" 67.5 86.25 ")));
}

TEST_F(Manipulation, ThePrintTakesTheColoursChosen) {
  const std::string path =
      session_.File("five.xy", "Five\r\n1.5406\r\n10 0\r\n12.5 100\r\n15 0\r\n17.5 50\r\n20 -42.5\r\n");
  session_.Play(WorkbenchSession::LoadCommands(path, 3, 'b') + "click Form1.cmdAnal\nclick Form10.optB\n");
  Estimate("input cancel\n");
  for (std::size_t i = 1; i <= 5; ++i) session_.Data().BackgroundY[i] = 10 * static_cast<float>(i);
  const auto print = [&](const std::string& background, const std::string& printer) {
    session_.Play("modal set Form31.Combo1 \"Cyano\"\nmodal set Form31.Combo2 \"" + background +
                  "\"\nmodal click Form31.Command1\nprinter " + printer + "\nclick Form12.cmdPrint\n");
  };
  session_.Play("move Form12.Picture1 60 70\n");
  const std::string y = Get("Text4.Text");
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
  session_.Play("move Form12.Picture1 60 70\n");
  EXPECT_EQ(Get("Text4.Text"), y) << "the screen keeps its scale";
  EXPECT_THAT(session_.Events("modal close Form31\nclick Form12.cmdPrint\n").dump(),
              testing::Not(HasSubstr("dialog")));
  print("Green", "cancel");
  session_.Play("input \"1\"\nclick Form12.cmdRes\n");
  EXPECT_EQ(Curves(0x00FF00).size(), 2U) << "the colours stay chosen for the next drawing";
}

TEST_F(Manipulation, AnotherProfileFindsNothingOfTheFormerOne) {
  Estimate();
  session_.Play("click Form12.cmdSubtr\nclick Form12.cmdSave\n");
  Open(21, 'b');
  EXPECT_EQ(session_.Data().BackgroundSubtracted, 0);
  EXPECT_EQ(session_.Data().BackgroundY, PointTable(MaxPoints + 1));
  EXPECT_FALSE(session_.Value("get Form16")["Loaded"].get<bool>());
  // Its buffer is at work again before its commands, whatever has been picked meanwhile.
  session_.Play("file cancel\nclick Form1.cmdOut\nclick Form10.optA\ninput \"5\"\nclick Form12.cmdSmo\n");
  EXPECT_EQ(session_.Data().CurBuf, 2);
  EXPECT_EQ(session_.Data().Buffer(1).WorkY[21], 500);
  // A quit leaves nothing that a picker could still save.
  session_.Play("click Form12.Command17\n");
  Estimate();
  session_.Play("click Form12.cmdSave\nclick Form12.cmdQuitBckg\n");
  EXPECT_FALSE(session_.Value("get Form16")["Loaded"].get<bool>());
}

TEST_F(Manipulation, WhatAnotherWindowHasChangedIsNotTakenForItsOwn) {
  const auto told = [&](const std::string& script) { return session_.Events(script).dump(); };
  Estimate();
  session_.Play("click Form12.cmdSave\n");
  Load(41, 'a', 300);  // another profile of as many points
  EXPECT_THAT(told("click Form16.optC\n"), HasSubstr("changed in another window"));
  EXPECT_TRUE(session_.Data().Buffer(3).Empty());
  EXPECT_THAT(told("click Form12.cmdSubtr\n"), HasSubstr("changed in another window"));
  // A smoothed profile that has been taken anew for a display is smoothed no more.
  Open(41, 'a');
  session_.Play(
      "input \"5\"\nclick Form12.cmdSmo\nclick Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Command1\n");
  EXPECT_THAT(told("click Form12.Command14\n"), HasSubstr("changed in another window"));
  // Nor does a window that shows what was smoothed here save it, not having shown it.
  session_.Play("click Form1.cmdAnal\nclick Form10.optA\ninput \"5\"\nclick Form12.cmdSmo\n");
  EXPECT_THAT(told("click Form6.cmdSave\n"), HasSubstr("changed in another window"));
  // Windows that show a buffer which a result goes into don't write over it.
  Load(41, 'b');
  session_.Play("click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Check2\nclick Form11.Command1\n");
  Open(41, 'a');
  session_.Play("click Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n");
  Estimate();
  session_.Play("click Form12.cmdSave\nclick Form16.optB\n");
  const Json background = session_.Value("buffer b");
  EXPECT_THAT(told("click Form6.cmdSave\n"), HasSubstr("changed in another window"));
  EXPECT_THAT(told("modal click Form32.optB\nclick Form2.cmdSave\n"), HasSubstr("changed in another window"));
  EXPECT_THAT(told("click Form2.cmdMod\nclick Form8.Command1\n"), HasSubstr("changed in another window"));
  EXPECT_EQ(session_.Value("buffer b"), background);
  // A shift of X, and a change before the temporary copy of the buffer saved to is taken.
  const std::string add_1_to_x = "input \"1\"\nclick Form6.cmdMod\nclick Form8.cmdSumX\n";
  session_.Play("click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Command1\n" + add_1_to_x);
  EXPECT_THAT(told("click Form12.cmdSubtr\n"), HasSubstr("changed in another window"));
  Open(41, 'a');
  session_.Play(
      "click Form12.Command14\nclick Form18.optB\nclick Form1.cmdDisp\nclick Form11.Check2\nclick "
      "Form11.Command1\n"
      "input \"5\"\nclick Form12.cmdSmo\nclick Form12.Command14\nclick Form18.optC\n" +
      std::string("click Form1.cmdDisp\nclick Form11.Check3\nclick Form11.Command1\n") + add_1_to_x);
  EXPECT_THAT(told("click Form12.Command17\nclick Form12.cmdDFT\n"), HasSubstr("changed in another window"));
}

/// The whole way on a computed profile of silicon, with results that were looked at and kept.
TEST(ManipulationJourney, SiliconWithoutItsBackgroundAndFiltered) {
  CommandSession session;
  session.Play(WorkbenchSession::LoadCommands(KOPRAX_SOURCE_DIR "/examples/silicon.dat", 1, 'a') +
               "click Form1.cmdAnal\nclick Form10.optA\ninput \"60\"\ninput \"y\"\ninput \"y\"\ninput \"n\"\n"
               "click Form12.cmdBckg\nclick Form12.cmdSave\nclick Form16.optB\n"
               "click Form12.cmdSubtr\nclick Form12.cmdSave\nclick Form16.optC\nclick Form12.cmdQuitBckg\n"
               "click Form12.cmdMain\nclick Form1.cmdAnal\nclick Form10.optC\n"
               "click Form12.cmdDFT\ninput \"1.5\"\nclick Form12.cmdFilter\nclick Form12.cmdDFTInv\n"
               "click Form12.Command7\nclick Form18.optD\n");
  std::string text = "2-theta, background, net, filtered\n";
  for (std::size_t i = 1; i <= 6001; i += 75) {
    const auto y = [&](int slot) { return session.Data().Buffer(slot).PermY[i]; };
    // The filtered profile may differ in its last bit with the sines of the system.
    text += GeneralText(session.Data().Buffer(2).PermX[i]) + " " + GeneralText(y(2)) + " " +
            GeneralText(y(3)) + " " + RoundedText(y(4), 2) + "\n";
  }
  ExpectGolden(text, "app/manipulation_journey.golden");
}

}  // namespace
}  // namespace koprax
