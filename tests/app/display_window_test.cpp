// Journeys in the Display and Work window: what is live in which mode, the read-out, zoom and its undo,
// the wavelength prompt, the save.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

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
    Play(WorkbenchSession::LoadCommands(session_.File("peak.txt", contents), 2, 'a'));
  }

  void Play(const std::string& script) { session_.Play(script); }
  Json Get(const std::string& name) { return session_.Value("get Form6." + name); }
  Json State(const std::string& field) { return session_.Value("state " + field); }
  std::string Text(int box) { return Get("Text" + std::to_string(box) + ".Text"); }
  /// The boxes of the mouse's place, and of the limits.
  std::string ReadOut() { return Text(3) + ", " + Text(4); }
  std::string Limits() { return Text(6) + ", " + Text(7); }

  /// What the mode of the window shows. First the states of the nine commands: "+" on, "-" off, in the order
  /// edit, zoom, undo-zoom, arithmetic, save, explorer, main menu, print, bitmap. Then the parts that are not
  /// always there.
  std::string Mode() {
    std::string mode;
    for (const char* name : {"cmdEdit", "cmdZoom", "cmdUnzoom", "cmdMod", "cmdSave", "cmdManExpl", "cmdMain",
                             "cmdPrint", "Command17"}) {
      mode += Get(std::string(name) + ".Enabled").get<bool>() ? '+' : '-';
    }
    for (const char* name : {"Frame1", "Frame2", "Frame3", "Frame4", "Shape1", "Line1", "optOK"}) {
      mode += Get(std::string(name) + ".Visible").get<bool>() ? " " + std::string(name) : "";
    }
    return mode;
  }

  /// The place of an X from 10 to 20: 95 units for 10 degrees, right of the axis at 20.
  static std::string At(double x, double picture_y) {
    return std::to_string(20 + 9.5 * (x - 10)) + " " + std::to_string(picture_y);
  }
  void Press(const std::string& from, const std::string& to, const std::string& button = "left") {
    Play("down Form6.Picture1 " + button + " " + from + "\nmove Form6.Picture1 " + to +
         "\nup Form6.Picture1 " + button + " " + to + "\n");
  }
  void Drag(double from, double to, double picture_y = 50) { Press(At(from, picture_y), At(to, picture_y)); }
  void ZoomTo(double from, double to) {
    Play("click Form6.cmdZoom\n");
    Drag(from, to);
    Play("click Form6.optOK\n");
  }
  void AnswerPrompt(const std::string& text) {
    Play("set Form6.Combo1 \"" + text + "\"\nclick Form6.cmdComboOK\n");
  }
  /// Loads a profile of two columns into buffer b.
  void LoadPoints(const std::string& points) {
    Play(WorkbenchSession::LoadCommands(session_.File("points.xy", "Points\r\n1.5\r\n" + points), 3, 'b'));
  }

  WorkbenchSession session_;
};

class PromptTest : public DisplayWindowTest {
 protected:
  PromptTest() : DisplayWindowTest("") {}
};

TEST_F(DisplayWindowTest, PlainModeAndItsPicture) {
  EXPECT_EQ(Mode(), "++-++++++");
  // The last operations are the names of the axes, the second line of the last at the left margin.
  const Json drawn = session_.Value("picture Form6.Picture1");
  const auto label = [&](std::size_t from_end) {
    const Json& text = drawn[drawn.size() - from_end];
    return JsonLine({text["font"], text["size"], text["text"], text["x"], text["y"]});
  };
  EXPECT_EQ(label(3), R"(["symbol",10.0,"2q",103.0,10.0])");
  EXPECT_EQ(label(2), R"(["MS Sans Serif",8.0,"Intensity",6.0,94.0])");
  EXPECT_EQ(label(1), R"x(["MS Sans Serif",8.0,"        (counts)",0.0,)x" +
                          JsonNumber(94 - 1.2F * 8 * 25.4F / 72).dump() + "]");
  // A zoom and its undo leave the same picture behind, not one above the other.
  ZoomTo(12, 16);
  EXPECT_NE(session_.Value("picture Form6.Picture1"), drawn);
  Play("click Form6.cmdUnzoom\n");
  EXPECT_EQ(session_.Value("picture Form6.Picture1"), drawn);
}

TEST_F(DisplayWindowTest, ReadOutClampsToThePlotAndShowsYUnrounded) {
  const auto at = [&](const std::string& place) {
    Play("move Form6.Picture1 " + place + "\n");
    return ReadOut();
  };
  const auto y = [](double height) { return GeneralText(height / static_cast<double>(0.07125F)); };
  EXPECT_EQ(at("67.5 50.625"), "x = 15, y = " + y(35.625));
  EXPECT_EQ(at("0 200"), "x = 10, y = " + y(75));
  EXPECT_EQ(at("150 -7"), "x = 20, y = 0");
  LoadPoints("10 -50\r\n20 100\r\n");
  // 0.475 units a count, the zero line at 38.75; both are rounded to 32 bits.
  EXPECT_NEAR(std::stod(at("67.5 62.5").substr(12)), 50, 1e-4);
}

TEST_F(DisplayWindowTest, ZoomCutsTheProfileAndUndoZoomTakesItBack) {
  const auto band = [&] {
    std::string place;
    for (const char* side : {"Left", "Top", "Width", "Height"}) {
      place += Get("Shape1." + std::string(side)).dump() + " ";
    }
    return place;
  };
  Play("click Form6.cmdZoom\n");
  EXPECT_EQ(Mode(), "-+------- Shape1");
  EXPECT_EQ(Get("Picture1.MousePointer"), 2);
  EXPECT_EQ(Get("Shape1.Left"), 3.0);
  Play("down Form6.Picture1 left " + At(12, 50) + "\nmove Form6.Picture1 " + At(16, 30) + "\n");
  EXPECT_EQ(band(), "39.0 50.0 38.0 35.0 ");  // down to the X axis, wherever the mouse is
  Play("up Form6.Picture1 left " + At(16, 30) + "\n");
  EXPECT_EQ(Mode(), "-+------- Shape1 optOK");
  EXPECT_EQ(Limits(), "xmin 12, xmax 16");
  EXPECT_EQ(Get("Picture1.MousePointer"), 1);

  Play("click Form6.optOK\n");
  EXPECT_EQ(Mode(), "+++++-+-+");
  EXPECT_EQ(State("WorkNpts(a)"), 41);
  EXPECT_EQ(State("WorkXMin(a)"), 12.0);
  EXPECT_EQ(State("WorkXMax(a)"), 16.0);
  // The height of the press sets the top of the Y scale; the profile is as high as before.
  EXPECT_FLOAT_EQ(State("WorkYMax(a)").get<float>(), 35.0F / 0.07125F);
  EXPECT_EQ(State("PermNpts(a)"), 101);

  Play("click Form6.cmdUnzoom\n");
  EXPECT_EQ(Mode(), "++-++++++");
  EXPECT_EQ(State("WorkNpts(a)"), 101);
  EXPECT_EQ(State("WorkYMax(a)"), 1000.0);
  EXPECT_EQ(Limits(), "xmin 10, xmax 20");

  // The band keeps to the plot.
  Play("click Form6.cmdZoom\ndown Form6.Picture1 left 114 16\n");
  EXPECT_EQ(band(), "114.0 16.0 1.0 1.0 ");  // cut from 2.38 at the right and at the axis
  Play("move Form6.Picture1 100 50\n");
  EXPECT_EQ(band(), "114.0 16.0 0.0 1.0 ");
  Play("down Form6.Picture1 left 60 50\nmove Form6.Picture1 130 5\n");
  EXPECT_EQ(band(), "60.0 50.0 55.0 35.0 ");
}

TEST_F(DisplayWindowTest, CancelsInARowGiveBackWhatStoodBeforeAndEachSelectionForgetsTheChoice) {
  const auto choices = [&] { return Get("optOK.Value").dump() + " " + Get("optNO.Value").dump(); };
  for (int i = 0; i < 3; ++i) {
    Play("click Form6.cmdZoom\n");
    EXPECT_EQ(choices(), "false false");
    Drag(12, 16);
    Drag(13, 14, 40);  // a second try within the same selection
    EXPECT_EQ(Limits(), "xmin 13, xmax 14");
    Play("click Form6.optNO\n");
    EXPECT_EQ(choices(), "false true");
    EXPECT_EQ(Mode(), "++-++++++");
    EXPECT_EQ(Limits(), "xmin 10, xmax 20");
    EXPECT_EQ(State("WorkYMax(a)"), 1000.0);
    EXPECT_FLOAT_EQ(Get("Shape1.Width").get<float>(), 2.38F);
  }
  Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(choices(), "false false");
  Play("click Form6.cmdExiManExp\n");
  ZoomTo(12, 16);
  EXPECT_EQ(choices(), "true false");
  Play("click Form6.cmdZoom\n");
  EXPECT_EQ(choices(), "false false");
}

TEST_F(DisplayWindowTest, SelectionsThatSelectNothing) {
  Play("click Form6.cmdZoom\n");
  Drag(16, 12);  // to the left
  EXPECT_EQ(Mode(), "-+------- Shape1");
  for (const char* outside : {"10 50", "60 10", "118 50"}) {  // left of the axis, below it, right of the plot
    Press(outside, "60 50");
    EXPECT_EQ(Mode(), "-+------- Shape1") << outside;
    EXPECT_EQ(Get("Shape1.Left"), 77.0) << outside;  // of the drag before
  }
  Press("40 50", "60 50", "right");
  EXPECT_EQ(Mode(), "-+------- Shape1");
  // A press above the plot counts at its top, one at the axis from exactly its X; beyond the end is the end.
  Press("20.003 97", "122 50");
  EXPECT_EQ(Get("Shape1.Top"), 90.0);
  EXPECT_EQ(Limits(), "xmin 10, xmax 20");
  Play("click Form6.optOK\n");
  EXPECT_EQ(Get("cmdUnzoom.Enabled"), false);
}

TEST_F(DisplayWindowTest, ASelectionIsTakenAsItsSevenDigitsShowIt) {
  LoadPoints("0 5\r\n9500 7\r\n19000 5\r\n");  // 200 an unit of the picture
  const auto select = [&](const std::string& from) {
    Play("click Form6.cmdZoom\n");
    Press(from + " 50", "111.72837 50");
    return Text(6);
  };
  EXPECT_EQ(select("20.0039"), "xmin 0");  // within 0.004 of the axis
  EXPECT_EQ(select("20.0041").substr(0, 8), "xmin 0.8");
  EXPECT_EQ(select("81.728395"), "xmin 12345.68");  // 12345.679 in 32 bits
  Play("click Form6.optOK\n");
  EXPECT_EQ(State("WorkXMin(b)").get<float>(), 12345.68F);
  EXPECT_EQ(State("WorkXMax(b)").get<float>(), 18345.67F);  // 18345.674
}

TEST_F(DisplayWindowTest, SeveralProfilesTurnEditAndSaveOff) {
  session_.Data().NumSelected = 0;  // as a closed window leaves it
  Play("file \"" + session_.File("two.xy", "Two\r\n1.5\r\n10 1\r\n15 5\r\n20 1\r\n") +
       "\"\nclick Form1.cmdInp\n");
  EXPECT_EQ(State("NumSelected"), 1);
  session_.Data().NumSelected = 2;
  Play("click Form4.cmdOK\nclick Form7.Option3\nclick Form10.optB\n");
  EXPECT_EQ(Mode(), "-+-+-++++");
  ZoomTo(12, 16);
  EXPECT_EQ(Mode(), "-+++--+-+");
  Play("click Form6.cmdUnzoom\n");
  EXPECT_EQ(Mode(), "-+-+-++++");
}

TEST_F(DisplayWindowTest, ALoadEndsTheModesOfTheProfileBefore) {
  for (const std::string command : {"ManExpl", "Zoom"}) {
    Play("click Form6.cmd" + command + "\n");
    EXPECT_NE(State("ZoomMode").get<int>() + State("ExplorerMode").get<int>(), 0);
    Play("click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Command1\n");
    EXPECT_EQ(State("ZoomMode"), 0);
    EXPECT_EQ(State("ExplorerMode"), 0);
    EXPECT_EQ(Mode(), "++-++++++");
  }
}

TEST_F(DisplayWindowTest, AZoomMayHoldNoPointOrNoHeight) {
  ZoomTo(12.02, 12.08);
  EXPECT_EQ(State("WorkNpts(a)"), 0);
  EXPECT_EQ(Get("cmdUnzoom.Enabled"), true);
  Play("click Form6.cmdUnzoom\nmove Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Text(3), "x = 15");

  Play("click Form6.cmdZoom\n");
  Drag(12, 16, 15);  // on the axis
  const Json events = session_.Events("click Form6.optOK\n");
  EXPECT_EQ(events[0]["text"],
            "For some reason the width of the window to be displayed is NULL. This leads to an error "
            "'divide by 0'. Return to main menu.");
  EXPECT_EQ(events[0]["icon"], "stop");
  Play("click Form6.cmdUnzoom\n");
}

TEST_F(DisplayWindowTest, SaveCommitsTheViewAndAsksForATitle) {
  ZoomTo(12, 16);
  EXPECT_EQ(session_.Events("click Form6.cmdSave\n"), Json{ShownEvent("Form3")});
  EXPECT_EQ(Mode(), "++-++-+-+");
  EXPECT_EQ(session_.Value("get Form3.Text1.Text"), "Peak Modified by KOPRAX");
  const auto give = [](const std::string& title) {
    return "set Form3.Text1 \"" + title + "\"\nclick Form3.Command1\n";
  };
  Play(give("Narrow"));
  EXPECT_EQ(Text(5), "Narrow" + std::string(74, ' '));
  EXPECT_EQ(Text(1), "Modified file");
  const Json saved = session_.Value("buffer a");
  EXPECT_EQ(saved["PermNpts"], 41);
  EXPECT_EQ(saved["PermXMin"], 12.0);
  EXPECT_EQ(saved["PermYMax"], 1000.0);
  // A title that is given up leaves the one that the save has made.
  Play("click Form6.cmdSave\nset Form3.Text1 \"lost\"\nclose Form3\n");
  EXPECT_EQ(Text(5).substr(0, 25), "Narrow Modified by KOPRAX");
  // A long title is cut, and the window comes to the front of whatever lies above it.
  Play("click Form6.cmdSave\n" + give(std::string(75, 'x')) + "click Form6.cmdSave\nclick Form1.Command1\n");
  EXPECT_EQ(State("Title(a)"), std::string(75, 'x') + " Modi");
  Play("click Form3.Command1\n");
  EXPECT_EQ(session_.Value("forms")[0], "Form6");
  // The window may have gone before the title comes.
  Play("click Form6.cmdSave\nclick Form6.cmdMain\n" + give("Late"));
  EXPECT_EQ(State("Title(a)"), "Late" + std::string(76, ' '));
  EXPECT_EQ(State("NumSelected"), 0);
}

TEST_F(DisplayWindowTest, EditSelectionTurnsAllOffAndGivesAllBack) {
  ZoomTo(12, 16);
  Play("click Form6.cmdEdit\n");
  EXPECT_EQ(Mode(), "--------- Shape1");
  EXPECT_THAT(session_.Refusal("close Form6"), testing::HasSubstr("can't be closed now"));
  EXPECT_EQ(session_.Value("get Form6")["Loaded"], true);  // refused while Main Menu is off
  Press("40 50", "60 50");
  EXPECT_FLOAT_EQ(State("WorkYMax(a)").get<float>(), 35.0F / 0.07125F);
  Play("click Form6.optOK\n");
  EXPECT_EQ(Mode(), "--------- Frame1 Shape1");
  Play("click Form6.cmdQuitEdit\n");
  EXPECT_EQ(Mode(), "+++++-+++");  // the explorer as it was
  EXPECT_EQ(Text(6), "xmin 12");

  Play("click Form6.cmdEdit\n");
  Press("40 50", "60 50");
  Play("click Form6.optNO\n");
  EXPECT_EQ(Mode(), "+++++++++");
  EXPECT_EQ(Text(6), "xmin 12");
}

TEST_F(DisplayWindowTest, ExplorerFollowsPausesResumesAndLeaves) {
  const auto start_selection = [&] {
    Play("click Form6.cmdZoom\n");
    Drag(12, 16);
  };
  Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(Mode(), "------+++ Frame2 Frame4 Line1");
  Play("move Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Get("Line1.X1"), 67.5);
  EXPECT_EQ(Text(10) + " " + Text(14), "15 15");
  EXPECT_EQ(Text(15), "5.9015");       // 1.5406 / (2 sin 7.5 degrees) = 5.90146
  Press("60 50", "67.5 50", "right");  // which does not pause it
  EXPECT_EQ(State("ExplorerMode"), -1);
  EXPECT_EQ(Get("cmdManExpl.Caption"), "Man. Expl.");
  Press("67.5 50", "67.5 50");
  EXPECT_EQ(Mode(), "-+---++++ Frame2 Frame4");
  EXPECT_EQ(Get("cmdManExpl.Caption"), "Resume");
  EXPECT_EQ(State("ExplorerMode"), 0);
  Play("move Form6.Picture1 20 50\n");
  EXPECT_EQ(Text(10), "15");  // the explorer waits
  EXPECT_EQ(Text(3), "x = 10");

  start_selection();
  Play("click Form6.optNO\n");
  EXPECT_EQ(Mode(), "-+---++-- Frame2 Frame4");
  EXPECT_EQ(State("WorkYMax(a)"), 1000.0);

  Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(Mode(), "-----++-- Frame2 Frame4 Line1");
  EXPECT_EQ(Get("cmdManExpl.Caption"), "Manual Explorer");
  // Leaving in the middle of a selection gives that up, too.
  Press("67.5 50", "67.5 50");
  start_selection();
  Play("click Form6.cmdExiManExp\n");
  EXPECT_EQ(State("ZoomMode"), 0);
  EXPECT_EQ(Text(6), "xmin 10");
  EXPECT_EQ(Mode(), "++-++++--");
  EXPECT_EQ(Get("Picture1.MousePointer"), 1);
}

TEST_F(DisplayWindowTest, TheExplorerOfChannelsGoesByTheCalibration) {
  LoadPoints("0 5\r\n1 7\r\n2 5\r\n100 1\r\n");
  const Json drawn = session_.Value("picture Form6.Picture1");
  const Json& name = drawn[drawn.size() - 3];
  EXPECT_EQ(JsonLine({name["text"], name["x"], name["font"]}), R"(["Channel",103.0,"MS Sans Serif"])");
  session_.Data().Buffer(2).CalPar = {0, 20, 0.2};  // 2-theta 30: d = 1.5 / (2 sin 15 degrees)
  Play("click Form6.cmdManExpl\nmove Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Text(10) + " " + Text(14) + " " + Text(15), "50 30 2.8978");
}

TEST_F(PromptTest, OnlyTheMainMenuAndThePromptAreLive) {
  EXPECT_EQ(Mode(), "------+-- Frame3");
  const Json events = session_.Events("set Form6.Combo1 \"1E99\"\nclick Form6.cmdComboOK\n");
  EXPECT_EQ(events[0]["event"], "message");  // it is beyond all numbers
  EXPECT_EQ(Mode(), "------+-- Frame3");
  EXPECT_EQ(State("Wavelength(a)"), 0.0);
  AnswerPrompt("0.71073   (Mo  K-a1 + K-a2)");
  EXPECT_EQ(Mode(), "++-++++++");
  EXPECT_EQ(Text(16), "l = 0.71073");
  EXPECT_EQ(State("Wavelength(a)").get<float>(), 0.71073F);
}

TEST_F(PromptTest, ATextWithoutANumberIsTakenAndTheExplorerAsksAgain) {
  AnswerPrompt("copper");
  EXPECT_EQ(Text(16), "l = 0");
  Play("click Form6.cmdManExpl\nmove Form6.Picture1 67.5 50\n");
  const std::string asking = Mode();
  EXPECT_THAT(asking, testing::EndsWith(" Frame3 Frame4"));
  EXPECT_EQ(Text(10), "");
  Press("60 50", "60 50");  // which does not pause it
  EXPECT_EQ(Mode(), asking);
  EXPECT_EQ(State("ExplorerMode"), -1);
  AnswerPrompt("1.5406");
  Play("move Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Mode(), "++-++++++ Frame2 Frame4 Line1");
  EXPECT_EQ(Text(15), "5.9015");
  // A cancelled zoom gives back the height with the explorer running.
  Play("click Form6.cmdZoom\n");
  Drag(12, 16);
  EXPECT_LT(State("WorkYMax(a)"), 500.0);
  Play("click Form6.optNO\n");
  EXPECT_EQ(State("WorkYMax(a)"), 1000.0);
  EXPECT_EQ(Text(6), "xmin 10");
}

TEST_F(PromptTest, TheExplorersPromptGoesWithTheExplorer) {
  AnswerPrompt("none");
  Play("click Form6.cmdManExpl\nclick Form6.cmdExiManExp\n");
  EXPECT_THAT(Mode(), testing::Not(testing::HasSubstr("Frame")));
  ZoomTo(12, 16);  // a fresh drawing asks again
  EXPECT_EQ(Mode(), "------+-- Frame3");
}

}  // namespace
}  // namespace koprax
