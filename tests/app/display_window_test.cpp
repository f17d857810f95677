// Journeys in the Display and Work window: what is live in which mode, the read-out, zoom and its undo,
// the wavelength prompt, the save.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "app/workbench_session.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

/// The window on a profile of 101 points from 10 to 20 degrees: Y = 0 but for a peak of 1000 at 15.
class DisplayWindowTest : public testing::Test {
 protected:
  explicit DisplayWindowTest(const std::string& wavelength = "1.5406") {
    std::string contents = "Peak\r\n10 0.1 " + wavelength + "\r\n";
    for (int i = 0; i <= 100; ++i) {
      contents += i == 50 ? "1000\r\n" : "0\r\n";
    }
    session_.Play(WorkbenchSession::LoadCommands(session_.File("peak.txt", contents), 2, 'a'));
  }

  Json Get(const std::string& name) { return session_.Value("get Form6." + name); }

  /// The states of the nine commands as a text: "+" on, "-" off, in the order edit, zoom, undo-zoom,
  /// arithmetic, save, explorer, main menu, print, bitmap.
  std::string Commands() {
    std::string states;
    for (const char* name : {"cmdEdit", "cmdZoom", "cmdUnzoom", "cmdMod", "cmdSave", "cmdManExpl", "cmdMain",
                             "cmdPrint", "Command17"}) {
      states += Get(std::string(name) + ".Enabled").get<bool>() ? '+' : '-';
    }
    return states;
  }
  /// The parts that a mode shows, of those that are not always there.
  std::string Shown() {
    std::string shown;
    for (const char* name : {"Frame1", "Frame2", "Frame3", "Frame4", "Shape1", "Line1", "optOK"}) {
      shown += Get(std::string(name) + ".Visible").get<bool>() ? std::string(name) + " " : "";
    }
    return shown;
  }

  /// The picture x of an X from 10 to 20: 95 units for 10 degrees, right of the axis at 20.
  static std::string At(double x, double picture_y) {
    return std::to_string(20 + 9.5 * (x - 10)) + " " + std::to_string(picture_y);
  }
  static float PictureOf(double x) { return static_cast<float>(20 + 9.5 * (x - 10)); }
  void Drag(double from, double to, double picture_y) {
    session_.Play("down Form6.Picture1 left " + At(from, picture_y) + "\nmove Form6.Picture1 " +
                  At(to, picture_y) + "\nup Form6.Picture1 left " + At(to, picture_y) + "\n");
  }
  /// Loads a profile of two columns into buffer b.
  void LoadPoints(const std::string& points) {
    session_.Play(
        WorkbenchSession::LoadCommands(session_.File("points.xy", "Points\r\n1.5\r\n" + points), 3, 'b'));
  }
  void ZoomTo(double from, double to, double picture_y = 50) {
    session_.Play("click Form6.cmdZoom\n");
    Drag(from, to, picture_y);
    session_.Play("click Form6.optOK\n");
  }

  WorkbenchSession session_;
};

class PromptTest : public DisplayWindowTest {
 protected:
  PromptTest() : DisplayWindowTest("") {}
};

TEST_F(DisplayWindowTest, PlainModeAndItsPicture) {
  EXPECT_EQ(Commands(), "++-++++++");
  EXPECT_EQ(Shown(), "");
  // The last operations are the names of the axes, the second line of the last at the left margin.
  const Json drawn = session_.Value("picture Form6.Picture1");
  const auto count = drawn.size();
  EXPECT_EQ(drawn[count - 3], (Json{{"op", "text"},
                                    {"x", 103.0},
                                    {"y", 10.0},
                                    {"text", "2q"},
                                    {"colour", 0},
                                    {"font", "symbol"},
                                    {"size", 10.0}}));
  Json heading{{"op", "text"},        {"x", 6.0},    {"y", 94.0},
               {"text", "Intensity"}, {"colour", 0}, {"font", "MS Sans Serif"},
               {"size", 8.0}};
  EXPECT_EQ(drawn[count - 2], heading);
  heading["x"] = 0.0;
  heading["y"] = JsonNumber(94 - 1.2F * 8 * 25.4F / 72);
  heading["text"] = "        (counts)";
  EXPECT_EQ(drawn[count - 1], heading);
  // A zoom and its undo leave the same picture behind, not one above the other.
  ZoomTo(12, 16);
  EXPECT_NE(session_.Value("picture Form6.Picture1"), drawn);
  session_.Play("click Form6.cmdUnzoom\n");
  EXPECT_EQ(session_.Value("picture Form6.Picture1"), drawn);
}

TEST_F(DisplayWindowTest, ReadOutClampsToThePlotAndShowsYUnrounded) {
  session_.Play("move Form6.Picture1 67.5 50.625\n");
  EXPECT_EQ(Get("Text3.Text"), "x = 15");
  EXPECT_EQ(Get("Text4.Text"), "y = " + GeneralText(35.625 / static_cast<double>(0.07125F)));
  session_.Play("move Form6.Picture1 0 200\n");
  EXPECT_EQ(Get("Text3.Text"), "x = 10");
  EXPECT_EQ(Get("Text4.Text"), "y = " + GeneralText(75 / static_cast<double>(0.07125F)));
  session_.Play("move Form6.Picture1 150 -7\n");
  EXPECT_EQ(Get("Text3.Text"), "x = 20");
  EXPECT_EQ(Get("Text4.Text"), "y = 0");
}

TEST_F(DisplayWindowTest, ReadOutOfAPlotThatReachesBelowZero) {
  LoadPoints("10 -50\r\n20 100\r\n");
  session_.Play("move Form6.Picture1 67.5 62.5\n");
  // 0.475 units a count, the zero line at 38.75; both are rounded to 32 bits.
  EXPECT_NEAR(std::stod(Get("Text4.Text").get<std::string>().substr(4)), 50, 1e-4);
}

TEST_F(DisplayWindowTest, ZoomCutsTheProfileAndUndoZoomTakesItBack) {
  session_.Play("click Form6.cmdZoom\n");
  EXPECT_EQ(Commands(), "-+-------");
  EXPECT_EQ(Shown(), "Shape1 ");
  EXPECT_EQ(Get("Picture1.MousePointer"), 2);
  EXPECT_EQ(Get("Shape1.Left"), 3.0);

  session_.Play("down Form6.Picture1 left " + At(12, 50) + "\nmove Form6.Picture1 " + At(16, 30) + "\n");
  EXPECT_EQ(Get("Shape1.Left"), 39.0);
  EXPECT_EQ(Get("Shape1.Top"), 50.0);
  EXPECT_EQ(Get("Shape1.Width"), 38.0);
  EXPECT_EQ(Get("Shape1.Height"), 35.0);  // down to the X axis, wherever the mouse is
  session_.Play("up Form6.Picture1 left " + At(16, 30) + "\n");
  EXPECT_EQ(Shown(), "Shape1 optOK ");
  EXPECT_EQ(Get("Text6.Text"), "xmin 12");
  EXPECT_EQ(Get("Text7.Text"), "xmax 16");
  EXPECT_EQ(Get("Picture1.MousePointer"), 1);

  session_.Play("click Form6.optOK\n");
  EXPECT_EQ(Commands(), "+++++-+-+");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(session_.Value("state WorkNpts(a)"), 41);
  EXPECT_EQ(session_.Value("state WorkXMin(a)"), 12.0);
  EXPECT_EQ(session_.Value("state WorkXMax(a)"), 16.0);
  EXPECT_EQ(session_.Value("state WorkX(a)")[42], 0.0);
  // The height of the press sets the top of the Y scale; the profile is as high as before.
  EXPECT_FLOAT_EQ(session_.Value("state WorkYMax(a)").get<float>(), 35.0F / 0.07125F);
  EXPECT_EQ(session_.Value("state PermNpts(a)"), 101);

  session_.Play("click Form6.cmdUnzoom\n");
  EXPECT_EQ(Commands(), "++-++++++");
  EXPECT_EQ(session_.Value("state WorkNpts(a)"), 101);
  EXPECT_EQ(session_.Value("state WorkYMax(a)"), 1000.0);
  EXPECT_EQ(Get("Text6.Text"), "xmin 10");
}

TEST_F(DisplayWindowTest, CancelsInARowGiveBackWhatStoodBefore) {
  for (int i = 0; i < 3; ++i) {
    session_.Play("click Form6.cmdZoom\n");
    Drag(12, 16, 50);
    Drag(13, 14, 40);  // a second try within the same selection
    EXPECT_EQ(Get("Text6.Text"), "xmin 13");
    session_.Play("click Form6.optNO\n");
    EXPECT_EQ(Commands(), "++-++++++");
    EXPECT_EQ(Get("Text6.Text"), "xmin 10");
    EXPECT_EQ(Get("Text7.Text"), "xmax 20");
    EXPECT_EQ(session_.Value("state WorkYMax(a)"), 1000.0);
    EXPECT_FLOAT_EQ(Get("Shape1.Width").get<float>(), 2.38F);
  }
}

TEST_F(DisplayWindowTest, SelectionsThatSelectNothing) {
  session_.Play("click Form6.cmdZoom\n");
  Drag(16, 12, 50);  // to the left
  EXPECT_EQ(Shown(), "Shape1 ");
  for (const char* outside : {"10 50", "60 10", "118 50"}) {  // left of the axis, below it, right of the plot
    session_.Play(std::string("down Form6.Picture1 left ") + outside + "\nup Form6.Picture1 left 60 50\n");
    EXPECT_EQ(Shown(), "Shape1 ") << outside;
    EXPECT_EQ(Get("Shape1.Left"), JsonNumber(PictureOf(16))) << outside;  // of the drag before
  }
  session_.Play("down Form6.Picture1 right 40 50\nup Form6.Picture1 right 60 50\n");
  EXPECT_EQ(Shown(), "Shape1 ");
  // A press above the plot counts at its top, one at the axis from exactly its X; beyond the end is the end.
  session_.Play("down Form6.Picture1 left 20.003 97\nup Form6.Picture1 left 122 50\n");
  EXPECT_EQ(Get("Shape1.Top"), 90.0);
  EXPECT_EQ(Get("Text6.Text"), "xmin 10");
  EXPECT_EQ(Get("Text7.Text"), "xmax 20");
  session_.Play("click Form6.optOK\n");
  EXPECT_EQ(Get("cmdUnzoom.Enabled"), false);
}

TEST_F(DisplayWindowTest, TheBandKeepsToThePlot) {
  const auto band = [&] { return Get("Shape1.Width").dump() + " x " + Get("Shape1.Height").dump(); };
  session_.Play("click Form6.cmdZoom\ndown Form6.Picture1 left 114 16\n");
  EXPECT_EQ(band(), "1.0 x 1.0");  // cut from 2.38 at the right and at the axis
  session_.Play("move Form6.Picture1 100 50\n");
  EXPECT_EQ(band(), "0.0 x 1.0");
  session_.Play("down Form6.Picture1 left 60 50\nmove Form6.Picture1 130 5\n");
  EXPECT_EQ(band(), "55.0 x 35.0");
}

TEST_F(DisplayWindowTest, ASelectionIsTakenAsItsSevenDigitsShowIt) {
  LoadPoints("0 5\r\n9500 7\r\n19000 5\r\n");  // 200 an unit of the picture
  const auto select = [&](const std::string& from) {
    session_.Play("click Form6.cmdZoom\ndown Form6.Picture1 left " + from +
                  " 50\nup Form6.Picture1 left 111.72837 50\n");
    return Get("Text6.Text").get<std::string>();
  };
  EXPECT_EQ(select("20.0039"), "xmin 0");  // within 0.004 of the axis
  EXPECT_EQ(select("20.0041").substr(0, 8), "xmin 0.8");
  EXPECT_EQ(select("81.728395"), "xmin 12345.68");  // 12345.679 in 32 bits
  session_.Play("click Form6.optOK\n");
  EXPECT_EQ(session_.Value("state WorkXMin(b)").get<float>(), 12345.68F);
  EXPECT_EQ(session_.Value("state WorkXMax(b)").get<float>(), 18345.67F);  // 18345.674
}

TEST_F(DisplayWindowTest, AChoiceIsForgottenWithTheNextSelection) {
  const auto choices = [&] { return Get("optOK.Value").dump() + " " + Get("optNO.Value").dump(); };
  ZoomTo(12, 16);
  EXPECT_EQ(choices(), "true false");
  session_.Play("click Form6.cmdZoom\n");
  EXPECT_EQ(choices(), "false false");
  Drag(13, 14, 50);
  session_.Play("click Form6.optNO\n");
  EXPECT_EQ(choices(), "false true");
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(choices(), "false false");
}

TEST_F(DisplayWindowTest, SeveralProfilesTurnEditAndSaveOff) {
  session_.Data().NumSelected = 0;  // as a closed window leaves it
  session_.Play("file \"" + session_.File("two.xy", "Two\r\n1.5\r\n10 1\r\n15 5\r\n20 1\r\n") +
                "\"\nclick Form1.cmdInp\n");
  EXPECT_EQ(session_.Value("state NumSelected"), 1);
  session_.Data().NumSelected = 2;
  session_.Play("click Form4.cmdOK\nclick Form7.Option3\nclick Form10.optB\n");
  EXPECT_EQ(Commands(), "-+-+-++++");
  ZoomTo(12, 16);
  EXPECT_EQ(Commands(), "-+++--+-+");
  session_.Play("click Form6.cmdUnzoom\n");
  EXPECT_EQ(Commands(), "-+-+-++++");
}

TEST_F(DisplayWindowTest, ALoadEndsTheModesOfTheProfileBefore) {
  for (const char* command : {"click Form6.cmdManExpl\n", "click Form6.cmdZoom\n"}) {
    session_.Play(command);
    EXPECT_NE(session_.Value("state ZoomMode").get<int>() + session_.Value("state ExplorerMode").get<int>(),
              0);
    session_.Play("click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Command1\n");
    EXPECT_EQ(session_.Value("state ZoomMode"), 0);
    EXPECT_EQ(session_.Value("state ExplorerMode"), 0);
    EXPECT_EQ(Commands(), "++-++++++");
    EXPECT_EQ(Shown(), "");
  }
}

TEST_F(DisplayWindowTest, AZoomWithoutAPointDrawsTheFrameAlone) {
  ZoomTo(12.02, 12.08);
  EXPECT_EQ(session_.Value("state WorkNpts(a)"), 0);
  EXPECT_EQ(Get("cmdUnzoom.Enabled"), true);
  session_.Play("click Form6.cmdUnzoom\nmove Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Get("Text3.Text"), "x = 15");
}

TEST_F(DisplayWindowTest, AZoomPressedOnTheAxisHasNoHeight) {
  session_.Play("click Form6.cmdZoom\n");
  Drag(12, 16, 15);
  const Json events = session_.Events("click Form6.optOK\n");
  EXPECT_EQ(events[0]["text"],
            "For some reason the width of the window to be displayed is NULL. This leads to an error "
            "'divide by 0'. Return to main menu.");
  EXPECT_EQ(events[0]["icon"], "stop");
  session_.Play("click Form6.cmdUnzoom\n");
}

TEST_F(DisplayWindowTest, SaveCommitsTheViewAndAsksForATitle) {
  ZoomTo(12, 16);
  EXPECT_EQ(session_.Events("click Form6.cmdSave\n"), Json{ShownEvent("Form3")});
  EXPECT_EQ(Commands(), "++-++-+-+");
  EXPECT_EQ(session_.Value("get Form3.Text1.Text"), "Peak Modified by KOPRAX");
  session_.Play("set Form3.Text1 \"Narrow\"\nclick Form3.Command1\n");
  EXPECT_EQ(Get("Text5.Text"), "Narrow" + std::string(74, ' '));
  EXPECT_EQ(Get("Text1.Text"), "Modified file");
  const Json saved = session_.Value("buffer a");
  EXPECT_EQ(saved["PermNpts"], 41);
  EXPECT_EQ(saved["PermXMin"], 12.0);
  EXPECT_EQ(saved["PermYMax"], 1000.0);
  EXPECT_EQ(session_.Value("state PermX(a)")[42], 0.0);
  // A title that is given up leaves the one that the save has made.
  session_.Play("click Form6.cmdSave\nset Form3.Text1 \"lost\"\nclose Form3\n");
  EXPECT_EQ(Get("Text5.Text").get<std::string>().substr(0, 25), "Narrow Modified by KOPRAX");
  // A long title is cut, and the window comes to the front of whatever lies above it.
  session_.Play("click Form6.cmdSave\nset Form3.Text1 \"" + std::string(75, 'x') +
                "\"\nclick Form3.Command1\nclick Form6.cmdSave\nclick Form1.Command1\n");
  EXPECT_EQ(session_.Value("state Title(a)"), std::string(75, 'x') + " Modi");
  session_.Play("click Form3.Command1\n");
  EXPECT_EQ(session_.Value("forms")[0], "Form6");
  // The window may have gone before the title comes.
  session_.Play("click Form6.cmdSave\nclick Form6.cmdMain\nset Form3.Text1 \"Late\"\nclick Form3.Command1\n");
  EXPECT_EQ(session_.Value("state Title(a)"), "Late" + std::string(76, ' '));
}

TEST_F(DisplayWindowTest, EditSelectionTurnsAllOffAndGivesAllBack) {
  ZoomTo(12, 16);
  session_.Play("click Form6.cmdEdit\n");
  EXPECT_EQ(Commands(), "---------");
  EXPECT_EQ(Shown(), "Shape1 ");
  EXPECT_THAT(session_.Refusal("close Form6"), testing::HasSubstr("can't be closed now"));
  EXPECT_EQ(session_.Value("get Form6")["Loaded"], true);  // refused while Main Menu is off
  session_.Play("down Form6.Picture1 left 40 50\nup Form6.Picture1 left 60 50\n");
  EXPECT_FLOAT_EQ(session_.Value("state WorkYMax(a)").get<float>(), 35.0F / 0.07125F);
  session_.Play("click Form6.optOK\n");
  EXPECT_EQ(Shown(), "Frame1 Shape1 ");
  session_.Play("click Form6.cmdQuitEdit\n");
  EXPECT_EQ(Commands(), "+++++-+++");  // the explorer as it was
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Get("Text6.Text"), "xmin 12");

  session_.Play(
      "click Form6.cmdEdit\ndown Form6.Picture1 left 40 50\nup Form6.Picture1 left 60 50\n"
      "click Form6.optNO\n");
  EXPECT_EQ(Commands(), "+++++++++");
  EXPECT_EQ(Get("Text6.Text"), "xmin 12");
}

TEST_F(DisplayWindowTest, ExplorerFollowsPausesResumesAndLeaves) {
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(Commands(), "------+++");
  EXPECT_EQ(Shown(), "Frame2 Frame4 Line1 ");
  session_.Play("move Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Get("Line1.X1"), 67.5);
  EXPECT_EQ(Get("Text10.Text"), "15");
  EXPECT_EQ(Get("Text14.Text"), "15");
  EXPECT_EQ(Get("Text15.Text"), "5.9015");  // 1.5406 / (2 sin 7.5 degrees) = 5.90146
  session_.Play("down Form6.Picture1 left 67.5 50\nup Form6.Picture1 left 67.5 50\n");
  EXPECT_EQ(Commands(), "-+---++++");
  EXPECT_EQ(Shown(), "Frame2 Frame4 ");
  EXPECT_EQ(Get("cmdManExpl.Caption"), "Resume");
  EXPECT_EQ(session_.Value("state ExplorerMode"), 0);
  session_.Play("move Form6.Picture1 20 50\n");
  EXPECT_EQ(Get("Text10.Text"), "15");  // the explorer waits
  EXPECT_EQ(Get("Text3.Text"), "x = 10");

  session_.Play("click Form6.cmdZoom\n");
  Drag(12, 16, 50);
  session_.Play("click Form6.optNO\n");
  EXPECT_EQ(Commands(), "-+---++--");
  EXPECT_EQ(session_.Value("state WorkYMax(a)"), 1000.0);

  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(Commands(), "-----++--");
  EXPECT_EQ(Get("cmdManExpl.Caption"), "Manual Explorer");
  EXPECT_EQ(Shown(), "Frame2 Frame4 Line1 ");
  // Leaving in the middle of a selection gives that up, too.
  session_.Play("down Form6.Picture1 left 67.5 50\nup Form6.Picture1 left 67.5 50\nclick Form6.cmdZoom\n");
  Drag(12, 16, 50);
  session_.Play("click Form6.cmdExiManExp\n");
  EXPECT_EQ(session_.Value("state ZoomMode"), 0);
  EXPECT_EQ(Get("Text6.Text"), "xmin 10");
  EXPECT_EQ(Commands(), "++-++++--");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Get("Picture1.MousePointer"), 1);
}

TEST_F(DisplayWindowTest, ARightPressDoesNotPauseTheExplorer) {
  session_.Play("click Form6.cmdManExpl\ndown Form6.Picture1 right 60 50\nup Form6.Picture1 right 60 50\n");
  EXPECT_EQ(session_.Value("state ExplorerMode"), -1);
  EXPECT_EQ(Shown(), "Frame2 Frame4 Line1 ");
  EXPECT_EQ(Get("cmdManExpl.Caption"), "Man. Expl.");
}

TEST_F(DisplayWindowTest, TheExplorerOfChannelsGoesByTheCalibration) {
  LoadPoints("0 5\r\n1 7\r\n2 5\r\n100 1\r\n");
  const Json drawn = session_.Value("picture Form6.Picture1");
  EXPECT_EQ(drawn[drawn.size() - 3]["text"], "Channel");
  EXPECT_EQ(drawn[drawn.size() - 3]["x"], 103.0);
  EXPECT_EQ(drawn[drawn.size() - 3]["y"], 10.0);
  EXPECT_EQ(drawn[drawn.size() - 3]["font"], "MS Sans Serif");
  const auto boxes = [&] {
    session_.Play("move Form6.Picture1 67.5 50\n");
    return Get("Text10.Text").get<std::string>() + " " + Get("Text14.Text").get<std::string>() + " " +
           Get("Text15.Text").get<std::string>();
  };
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(boxes(), "50 50 0");
  session_.Data().Buffer(2).CalPar = {0, 20, 0.2};  // 2-theta 30: d = 1.5 / (2 sin 15 degrees)
  EXPECT_EQ(boxes(), "50 30 2.8978");
  session_.Data().Buffer(2).PermX[2] = 0.975F;  // Channel on the plot, but degrees for the explorer
  EXPECT_EQ(boxes(), "50 50 1.7747");           // 1.5 / (2 sin 25 degrees)
}

TEST_F(DisplayWindowTest, MainMenuClosesTheWindow) {
  EXPECT_EQ(session_.Events("close Form6\n"), Json{UnloadedEvent("Form6")});
  EXPECT_EQ(session_.Value("state NumSelected"), 0);
}

TEST_F(PromptTest, OnlyTheMainMenuAndThePromptAreLive) {
  EXPECT_EQ(Commands(), "------+--");
  EXPECT_EQ(Shown(), "Frame3 ");
  session_.Play("set Form6.Combo1 \"0.71073   (Mo  K-a1 + K-a2)\"\nclick Form6.cmdComboOK\n");
  EXPECT_EQ(Commands(), "++-++++++");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Get("Text16.Text"), "l = 0.71073");
  EXPECT_EQ(session_.Value("state Wavelength(a)").get<float>(), 0.71073F);
}

TEST_F(PromptTest, ATextWithoutANumberIsTakenAndTheExplorerAsksAgain) {
  session_.Play("set Form6.Combo1 \"copper\"\nclick Form6.cmdComboOK\n");
  EXPECT_EQ(Get("Text16.Text"), "l = 0");
  EXPECT_EQ(Shown(), "");
  session_.Play("click Form6.cmdManExpl\nmove Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Shown(), "Frame3 Frame4 ");
  EXPECT_EQ(Get("Text10.Text"), "");
  session_.Play("set Form6.Combo1 \"1.5406\"\nclick Form6.cmdComboOK\nmove Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Shown(), "Frame2 Frame4 Line1 ");
  EXPECT_EQ(Get("Text15.Text"), "5.9015");
  EXPECT_EQ(Commands(), "++-++++++");
}

TEST_F(PromptTest, TheExplorersPromptStaysThroughPressesAndGoesWithTheExplorer) {
  session_.Play("set Form6.Combo1 \"none\"\nclick Form6.cmdComboOK\nclick Form6.cmdManExpl\n");
  const std::string commands = Commands();
  session_.Play("down Form6.Picture1 left 60 50\nup Form6.Picture1 left 60 50\n");
  EXPECT_EQ(Shown(), "Frame3 Frame4 ");
  EXPECT_EQ(Commands(), commands);
  EXPECT_EQ(session_.Value("state ExplorerMode"), -1);
  session_.Play("click Form6.cmdExiManExp\n");
  EXPECT_EQ(Shown(), "");
  ZoomTo(12, 16);  // a fresh drawing asks again
  EXPECT_EQ(Shown(), "Frame3 ");
  EXPECT_EQ(Commands(), "------+--");
}

TEST_F(PromptTest, ACancelGivesBackTheHeightWithTheExplorerRunning) {
  session_.Play(
      "set Form6.Combo1 \"none\"\nclick Form6.cmdComboOK\nclick Form6.cmdManExpl\n"
      "set Form6.Combo1 \"1.5\"\nclick Form6.cmdComboOK\nclick Form6.cmdZoom\n");
  Drag(12, 16, 50);
  EXPECT_LT(session_.Value("state WorkYMax(a)"), 500.0);
  session_.Play("click Form6.optNO\n");
  EXPECT_EQ(session_.Value("state WorkYMax(a)"), 1000.0);
  EXPECT_EQ(Get("Text6.Text"), "xmin 10");
}

TEST_F(PromptTest, AWavelengthBeyondAllNumbersIsRefused) {
  const Json events = session_.Events("set Form6.Combo1 \"1E99\"\nclick Form6.cmdComboOK\n");
  EXPECT_EQ(events[0]["event"], "message");
  EXPECT_EQ(Shown(), "Frame3 ");
  EXPECT_EQ(session_.Value("state Wavelength(a)"), 0.0);
}

}  // namespace
}  // namespace koprax
