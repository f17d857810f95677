// Journeys in the Display and Work window: what is live in which mode, the read-out, zoom and its undo,
// the wavelength prompt, the save.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "app/journey.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

/// The window on a profile of 101 points from 10 to 20 degrees: Y = 0 but for a peak of 1000 at 15.
class DisplayWindowTest : public Journey {
 protected:
  explicit DisplayWindowTest(const std::string& wavelength = "1.5406") {
    std::vector points(101, 0);
    points[50] = 1000;
    LoadColumn("10 0.1 " + wavelength, points);
  }

  Json Get(const std::string& name) { return Journey::Get("Form6." + name); }
  Json State(const std::string& field) { return Value("state " + field); }
  std::string Text(int box) { return Get("Text" + std::to_string(box) + ".Text"); }
  std::string Limits() { return Text(6) + ", " + Text(7); }

  /// What the mode of the window shows. First the states of the nine commands: "+" on, "-" off, in the order
  /// edit, zoom, undo-zoom, arithmetic, save, explorer, main menu, print, bitmap. Then the parts that are not
  /// always there.
  std::string Mode() {
    std::string mode =
        Switches("Form6", "cmdEdit cmdZoom cmdUnzoom cmdMod cmdSave cmdManExpl cmdMain cmdPrint Command17");
    for (const char* name : {"Frame1", "Frame2", "Frame3", "Frame4", "Shape1", "Line1", "optOK"}) {
      mode += Get(std::string(name) + ".Visible").get<bool>() ? " " + std::string(name) : "";
    }
    return mode;
  }

  std::string ModeAfter(const std::string& command) {
    Click("Form6." + command);
    return Mode();
  }
  /// The place of an X from 10 to 20: 95 units for 10 degrees, right of the axis at 20.
  static std::string At(double x, double picture_y) {
    return std::to_string(20 + 9.5 * (x - 10)) + " " + std::to_string(picture_y);
  }
  void Press(const std::string& from, const std::string& to, const std::string& button = "left") {
    Journey::Drag("Form6", from, to, button);
  }
  void MoveTo(const std::string& place) { Move("Form6", place); }
  void Drag(double from, double to, double picture_y = 50) { Press(At(from, picture_y), At(to, picture_y)); }
  void ZoomTo(double from, double to) { Select("Form6", "cmdZoom", At(from, 50), At(to, 50)); }
  void StartZoom(double from, double to) {
    Click("Form6.cmdZoom");
    Drag(from, to);
  }
  /// What the answer to the prompt leads to.
  std::vector<std::string> AnswerPrompt(const std::string& text) {
    return Words("set Form6.Combo1 \"" + text + "\"\nclick Form6.cmdComboOK\n");
  }
};

class PromptTest : public DisplayWindowTest {
 protected:
  PromptTest() : DisplayWindowTest("") {}
};

TEST_F(DisplayWindowTest, ThePictureHasNamesOfItsAxesAndIsDrawnAnew) {
  // The last operations are the names of the axes, the second line of the last at the left margin.
  const Json drawn = Value("picture Form6.Picture1");
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
  EXPECT_NE(Value("picture Form6.Picture1"), drawn);
  Click("Form6.cmdUnzoom");
  EXPECT_EQ(Value("picture Form6.Picture1"), drawn);
}

TEST_F(DisplayWindowTest, ReadOutClampsToThePlotAndShowsYUnrounded) {
  const auto at = [&](const std::string& place) {
    MoveTo(place);
    return Text(3) + ", " + Text(4);
  };
  const auto y = [](double height) { return GeneralText(height / static_cast<double>(0.07125F)); };
  EXPECT_EQ(at("67.5 50.625"), "x = 15, y = " + y(35.625));
  EXPECT_EQ(at("0 200"), "x = 10, y = " + y(75));
  EXPECT_EQ(at("150 -7"), "x = 20, y = 0");
  Load('b', "10 -50\r\n20 100\r\n", "1.5");
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
  EXPECT_EQ(ModeAfter("cmdZoom"), "-+------- Shape1");
  EXPECT_EQ(Values("Form6.Picture1.MousePointer Form6.Shape1.Left"), (Json{2, 3.0}));
  Play("down Form6.Picture1 left " + At(12, 50) + "\nmove Form6.Picture1 " + At(16, 30) + "\n");
  EXPECT_EQ(band(), "39.0 50.0 38.0 35.0 ");  // down to the X axis, wherever the mouse is
  Play("up Form6.Picture1 left " + At(16, 30) + "\n");
  EXPECT_EQ(Mode(), "-+------- Shape1 optOK");
  EXPECT_EQ(Limits(), "xmin 12, xmax 16");
  EXPECT_EQ(Get("Picture1.MousePointer"), 1);

  EXPECT_EQ(ModeAfter("optOK"), "+++++-+-+");
  EXPECT_EQ(Values("WorkNpts(a) WorkXMin(a) WorkXMax(a)"), (Json{41, 12.0, 16.0}));
  // The height of the press sets the top of the Y scale; the profile is as high as before.
  EXPECT_FLOAT_EQ(State("WorkYMax(a)").get<float>(), 35.0F / 0.07125F);
  EXPECT_EQ(State("PermNpts(a)"), 101);

  EXPECT_EQ(ModeAfter("cmdUnzoom"), "++-++++++");
  EXPECT_EQ(Values("WorkNpts(a) WorkYMax(a)"), (Json{101, 1000.0}));
  EXPECT_EQ(Limits(), "xmin 10, xmax 20");

  // The band keeps to the plot.
  Play("click Form6.cmdZoom\ndown Form6.Picture1 left 114 16\n");
  EXPECT_EQ(band(), "114.0 16.0 1.0 1.0 ");  // cut from 2.38 at the right and at the axis
  MoveTo("100 50");
  EXPECT_EQ(band(), "114.0 16.0 0.0 1.0 ");
  Play("down Form6.Picture1 left 60 50\nmove Form6.Picture1 130 5\n");
  EXPECT_EQ(band(), "60.0 50.0 55.0 35.0 ");
}

TEST_F(DisplayWindowTest, CancelsInARowGiveBackWhatStoodBeforeAndEachSelectionForgetsTheChoice) {
  const auto choices = [&] { return Get("optOK.Value").dump() + " " + Get("optNO.Value").dump(); };
  for (int i = 0; i < 3; ++i) {
    Click("Form6.cmdZoom");
    EXPECT_EQ(choices(), "false false");
    Drag(12, 16);
    Drag(13, 14, 40);  // a second try within the same selection
    EXPECT_EQ(Limits(), "xmin 13, xmax 14");
    Click("Form6.optNO");
    EXPECT_EQ(choices() + " " + Mode(), "false true ++-++++++");
    EXPECT_EQ(Limits(), "xmin 10, xmax 20");
    EXPECT_EQ(Values("WorkYMax(a) Form6.Shape1.Width"), (Json{1000, JsonNumber(2.38F)}));
  }
  Click("Form6.cmdManExpl");
  EXPECT_EQ(choices(), "false false");
  Click("Form6.cmdExiManExp");
  ZoomTo(12, 16);
  EXPECT_EQ(choices(), "true false");
}

TEST_F(DisplayWindowTest, SelectionsThatSelectNothing) {
  Click("Form6.cmdZoom");
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
  Click("Form6.optOK");
  EXPECT_EQ(Get("cmdUnzoom.Enabled"), false);
}

TEST_F(DisplayWindowTest, ASelectionIsTakenAsItsSevenDigitsShowIt) {
  Load('b', "0 5\r\n9500 7\r\n19000 5\r\n", "1.5");  // 200 an unit of the picture
  const auto select = [&](const std::string& from) {
    Click("Form6.cmdZoom");
    Press(from + " 50", "111.72837 50");
    return Text(6);
  };
  EXPECT_EQ(select("20.0039"), "xmin 0");  // within 0.004 of the axis
  EXPECT_EQ(select("20.0041").substr(0, 8), "xmin 0.8");
  EXPECT_EQ(select("81.728395"), "xmin 12345.68");  // 12345.679 in 32 bits
  Click("Form6.optOK");
  EXPECT_EQ(State("WorkXMin(b)").get<float>(), 12345.68F);
  EXPECT_EQ(State("WorkXMax(b)").get<float>(), 18345.67F);  // 18345.674
}

TEST_F(DisplayWindowTest, SeveralProfilesTurnEditAndSaveOff) {
  Data().NumSelected = 0;  // as a closed window leaves it
  Play(FileAnswer(File("two.xy", "Two\r\n1.5\r\n10 1\r\n15 5\r\n20 1\r\n")) + "click Form1.cmdInp\n");
  EXPECT_EQ(State("NumSelected"), 1);
  Data().NumSelected = 2;
  Click("Form4.cmdOK Form7.Option3 Form10.optB");
  EXPECT_EQ(Mode(), "-+-+-++++");
  ZoomTo(12, 16);
  EXPECT_EQ(Mode(), "-+++--+-+");
  EXPECT_EQ(ModeAfter("cmdUnzoom"), "-+-+-++++");
}

TEST_F(DisplayWindowTest, ALoadEndsTheModesOfTheProfileBefore) {
  for (const std::string command : {"ManExpl", "Zoom"}) {
    Play("click Form6.cmd" + command + "\n");
    EXPECT_NE(State("ZoomMode").get<int>() + State("ExplorerMode").get<int>(), 0);
    Display("a");
    EXPECT_EQ(Values("ZoomMode ExplorerMode"), (Json{0, 0}));
    EXPECT_EQ(Mode(), "++-++++++");
  }
}

TEST_F(DisplayWindowTest, AZoomMayHoldNoPointOrNoHeight) {
  ZoomTo(12.02, 12.08);
  EXPECT_EQ(Values("WorkNpts(a) Form6.cmdUnzoom.Enabled"), (Json{0, true}));
  Click("Form6.cmdUnzoom Form6.cmdZoom");
  Drag(12, 16, 15);  // on the axis
  EXPECT_EQ(
      After("Form6.optOK").at(0),
      "Error, stop: For some reason the width of the window to be displayed is NULL. This leads to an error "
      "'divide by 0'. Return to main menu.");
}

TEST_F(DisplayWindowTest, SaveCommitsTheViewAndAsksForATitle) {
  ZoomTo(12, 16);
  EXPECT_EQ(Click("Form6.cmdSave"), Json{ShownEvent("Form3")});
  EXPECT_EQ(Mode(), "++-++-+-+");
  EXPECT_EQ(Journey::Get("Form3.Text1.Text"), "Profile a Modified by KOPRAX");
  const auto give = [](const std::string& title) {
    return "set Form3.Text1 \"" + title + "\"\nclick Form3.Command1\n";
  };
  Play(give("Narrow"));
  EXPECT_EQ(Values("Form6.Text5.Text Form6.Text1.Text"),
            (Json{"Narrow" + std::string(74, ' '), "Modified file"}));
  EXPECT_EQ(Values("PermNpts(a) PermXMin(a) PermYMax(a)"), (Json{41, 12, 1000}));
  // A title that is given up leaves the one that the save has made.
  Play("click Form6.cmdSave\nset Form3.Text1 \"lost\"\nclose Form3\n");
  EXPECT_EQ(Text(5).substr(0, 25), "Narrow Modified by KOPRAX");
  // A long title is cut, and the window comes to the front of whatever lies above it.
  Play("click Form6.cmdSave\n" + give(std::string(75, 'x')) + "click Form6.cmdSave\nclick Form1.Command1\n");
  EXPECT_EQ(State("Title(a)"), std::string(75, 'x') + " Modi");
  Click("Form3.Command1");
  EXPECT_EQ(Value("forms")[0], "Form6");
  // The window may have gone before the title comes.
  Play("click Form6.cmdSave\nclick Form6.cmdMain\n" + give("Late"));
  EXPECT_EQ(Values("Title(a) NumSelected"), (Json{"Late" + std::string(76, ' '), 0}));
}

TEST_F(DisplayWindowTest, EditSelectionTurnsAllOffAndGivesAllBack) {
  ZoomTo(12, 16);
  EXPECT_EQ(ModeAfter("cmdEdit"), "--------- Shape1");
  EXPECT_THAT(Refusal("close Form6"), testing::HasSubstr("can't be closed now"));
  EXPECT_EQ(Journey::Get("Form6")["Loaded"], true);  // refused while Main Menu is off
  Press("40 50", "60 50");
  EXPECT_FLOAT_EQ(State("WorkYMax(a)").get<float>(), 35.0F / 0.07125F);
  EXPECT_EQ(ModeAfter("optOK"), "--------- Frame1 Shape1");
  EXPECT_EQ(ModeAfter("cmdQuitEdit"), "+++++-+++");  // the explorer as it was
  EXPECT_EQ(Text(6), "xmin 12");

  Click("Form6.cmdEdit");
  Press("40 50", "60 50");
  EXPECT_EQ(ModeAfter("optNO"), "+++++++++");
  EXPECT_EQ(Text(6), "xmin 12");
}

TEST_F(DisplayWindowTest, ExplorerFollowsPausesResumesAndLeaves) {
  EXPECT_EQ(ModeAfter("cmdManExpl"), "------+++ Frame2 Frame4 Line1");
  MoveTo("67.5 50");
  EXPECT_EQ(Get("Line1.X1"), 67.5);
  EXPECT_EQ(Text(10) + " " + Text(14), "15 15");
  EXPECT_EQ(Text(15), "5.9015");       // 1.5406 / (2 sin 7.5 degrees) = 5.90146
  Press("60 50", "67.5 50", "right");  // which does not pause it
  EXPECT_EQ(Values("ExplorerMode Form6.cmdManExpl.Caption"), (Json{-1, "Man. Expl."}));
  Press("67.5 50", "67.5 50");
  EXPECT_EQ(Mode(), "-+---++++ Frame2 Frame4");
  EXPECT_EQ(Values("Form6.cmdManExpl.Caption ExplorerMode"), (Json{"Resume", 0}));
  MoveTo("20 50");  // the explorer waits
  EXPECT_EQ(Text(3) + ", " + Text(10), "x = 10, 15");
  StartZoom(12, 16);
  EXPECT_EQ(ModeAfter("optNO"), "-+---++-- Frame2 Frame4");
  EXPECT_EQ(State("WorkYMax(a)"), 1000.0);
  EXPECT_EQ(ModeAfter("cmdManExpl"), "-----++-- Frame2 Frame4 Line1");
  EXPECT_EQ(Get("cmdManExpl.Caption"), "Manual Explorer");
  // Leaving in the middle of a selection gives that up, too.
  Press("67.5 50", "67.5 50");
  StartZoom(12, 16);
  Click("Form6.cmdExiManExp");
  EXPECT_EQ(Values("ZoomMode Form6.Text6.Text Form6.Picture1.MousePointer"), (Json{0, "xmin 10", 1}));
  EXPECT_EQ(Mode(), "++-++++--");
}

TEST_F(DisplayWindowTest, TheExplorerOfChannelsGoesByTheCalibration) {
  Load('b', "0 5\r\n1 7\r\n2 5\r\n100 1\r\n", "1.5");
  const Json drawn = Value("picture Form6.Picture1");
  const Json& name = drawn[drawn.size() - 3];
  EXPECT_EQ(JsonLine({name["text"], name["x"], name["font"]}), R"(["Channel",103.0,"MS Sans Serif"])");
  Data().Buffer(2).CalPar = {0, 20, 0.2};  // 2-theta 30: d = 1.5 / (2 sin 15 degrees)
  Play("click Form6.cmdManExpl\nmove Form6.Picture1 67.5 50\n");
  EXPECT_EQ(Text(10) + " " + Text(14) + " " + Text(15), "50 30 2.8978");
}

TEST_F(DisplayWindowTest, ThePictureTellsWhatTheMouseDoesInEachMode) {
  const std::string drag = "down Form6.Picture1 left 40 50\nup Form6.Picture1 left 80 50\n";
  ExpectTips("Form6.Picture1", {{"forms\n", "boxes"},
                                {"click Form6.cmdEdit\n", "portion"},
                                {drag, "\"OK\""},
                                {"down Form6.Picture1 left 40 50\n", "portion"},
                                {"up Form6.Picture1 left 80 50\nclick Form6.optOK\n", "boxes"},
                                {"click Form6.cmdQuitEdit\nclick Form6.cmdManExpl\n", "pauses"},
                                {drag, "paused"},
                                {"click Form6.cmdZoom\n", "corner"},
                                {drag + "click Form6.optOK\n", "boxes"},
                                {"click Form15.cmdRet\n", "paused"},
                                {"click Form6.cmdManExpl\n", "pauses"},
                                {"click Form6.cmdExiManExp\n", "boxes"},
                                {"click Form6.cmdZoom\n" + drag, "\"OK\""}});
  EXPECT_TRUE(PressEscape("Form6"));
  EXPECT_EQ(Mode(), "++-++++++");
  ExpectTips("Form6.Picture1", {{"forms\n", "boxes"}});
}

TEST_F(PromptTest, OnlyTheMainMenuAndThePromptAreLive) {
  EXPECT_EQ(Mode(), "------+-- Frame3");
  EXPECT_EQ(AnswerPrompt("1E99").size(), 1U);  // told that it is beyond all numbers
  EXPECT_EQ(Mode(), "------+-- Frame3");
  EXPECT_EQ(State("Wavelength(a)"), 0.0);
  Play("set Form6.Combo1 \"0.71073   (Mo  K-a1 + K-a2)\"\n");
  EXPECT_TRUE(PressEnter("Form6", "Combo1"));
  EXPECT_EQ(Mode(), "++-++++++");
  EXPECT_EQ(Values("Form6.Text16.Text Wavelength(a)"), (Json{"l = 0.71073", JsonNumber(0.71073F)}));
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
  MoveTo("67.5 50");
  EXPECT_EQ(Mode(), "++-++++++ Frame2 Frame4 Line1");
  EXPECT_EQ(Text(15), "5.9015");
  // A cancelled zoom gives back the height with the explorer running.
  StartZoom(12, 16);
  EXPECT_LT(State("WorkYMax(a)"), 500.0);
  Click("Form6.optNO");
  EXPECT_EQ(Values("WorkYMax(a) Form6.Text6.Text"), (Json{1000.0, "xmin 10"}));
}

TEST_F(PromptTest, TheExplorersPromptGoesWithTheExplorer) {
  AnswerPrompt("none");
  Click("Form6.cmdManExpl Form6.cmdExiManExp");
  EXPECT_THAT(Mode(), testing::Not(testing::HasSubstr("Frame")));
  ZoomTo(12, 16);  // a fresh drawing asks again
  EXPECT_EQ(Mode(), "------+-- Frame3");
}

}  // namespace
}  // namespace koprax
