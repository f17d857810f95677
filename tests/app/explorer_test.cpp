// Journeys through Manual Explorer: picks and their list, markers, pause, zoom and return, and what ends it.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "app/journey.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

using Texts = std::vector<std::string>;

/// The window on a profile of 101 points from 10 to 20 degrees: Y = 0 but for peaks of 400, 1000 and 800 at
/// 12, 15 and 17. 9.5 units of the picture a degree, 0.07125 a count.
class ExplorerTest : public Journey {
 protected:
  ExplorerTest() {
    std::vector points(101, 0);
    points[20] = 400;
    points[50] = 1000;
    points[70] = 800;
    LoadColumn("10 0.1 1.5406", points);
  }

  /// Whether the last command of a script ends in a message.
  static bool Told(const Json& events) { return !events.empty() && events.back()["event"] == "message"; }
  std::string List() { return Get("Form6.Text17.Text"); }
  /// Which of the three commands of the list are on.
  std::string ListCommands() { return Switches("Form6", "cmdErsLaIt cmdClearPeaks cmdSavePeaks"); }

  /// The markers drawn on a picture from operation `first` on, as "x: bottom to top", and "x: bottom off top"
  /// where one is rubbed out; to 4 decimals, since places on a picture are rounded to 32 bits.
  Texts Markers(const std::string& form, std::size_t first) {
    const auto number = [](const Json& value) { return GeneralText(RoundDecimals(value.get<double>(), 4)); };
    const Json drawn = Value("picture " + form + ".Picture1");
    Texts markers;
    for (std::size_t i = first; i < drawn.size(); ++i) {
      const Json& line = drawn[i];
      if (line["op"] == "line" && line["colour"] != 0) {
        markers.push_back(number(line["x1"]) + ": " + number(line["y1"]) +
                          (line["colour"] == 255 ? " to " : " off ") + number(line["y2"]));
      }
    }
    return markers;
  }
  /// The pieces of a curve: the lines in black that run to the right, without the axes and their ticks.
  int Segments(const std::string& form) {
    int count = 0;
    for (const Json& line : Value("picture " + form + ".Picture1")) {
      const double width = line["op"] == "line" ? line["x2"].get<double>() - line["x1"].get<double>() : 0;
      count += width > 0 && width < 10 && line["x1"] >= 20.0 && line["colour"] == 0 ? 1 : 0;
    }
    return count;
  }
  std::size_t Drawn(const std::string& form = "Form6") {
    return Value("picture " + form + ".Picture1").size();
  }

  static std::string At(double x, double y = 50) {
    return GeneralText(20 + 9.5 * (x - 10)) + " " + GeneralText(y);
  }
  Json Press(const std::string& picture, const std::string& button, const std::string& place) {
    return Events("move " + picture + " " + place + "\nup " + picture + " right " + place + "\ndown " +
                  picture + " " + button + " " + place + "\n");
  }
  void Pick(double x) { Press("Form6.Picture1", "right", At(x)); }
  void Pause() { Drag("Form6", At(15), At(15)); }
  void Zoom(double from, double to, double top) { Select("Form6", "cmdZoom", At(from, top), At(to)); }
};

// The rows, d = 1.5406 / (2 sin theta) worked out in 64 bits.
const std::string RowA = "  1) 12.05     7.3388    400  \r\n";
const std::string RowB = "  2) 15        5.9015   1000  \r\n";
const std::string RowC = "  3) 17        5.2114    800  \r\n";
const std::string RowD = "  4) 13        6.8046      0  \r\n";

TEST_F(ExplorerTest, PicksListsMarksAndErases) {
  Click("Form6.cmdManExpl");
  EXPECT_EQ(ListCommands(), "---");
  const std::size_t plot = Drawn();
  for (const double x : {12.05, 15.0, 17.0, 13.0, 19.0}) Pick(x);
  EXPECT_EQ(ListCommands(), "+++");
  EXPECT_EQ(List(), RowA + RowB + RowC + RowD + "  5) 19        4.6671      0  \r\n");
  // From 3 above the peak, 10 long, but never past the frame: 1000 counts end at 86.25.
  const Texts markers{"39.475: 46.5 to 56.5", "67.5: 89.25 to 95", "86.5: 75 to 85"};
  EXPECT_EQ(Markers("Form6", plot),
            (Texts{markers[0], markers[1], markers[2], "48.5: 18 to 28", "105.5: 18 to 28"}));
  Click("Form6.cmdErsLaIt");
  EXPECT_EQ(List(), RowA + RowB + RowC + RowD);
  EXPECT_EQ(Markers("Form6", plot + 5), Texts{"105.5: 17.5 off 28.5"});

  // Leaving rubs the markers out and keeps the list for the next start, which draws those on the plot again.
  Click("Form6.cmdExiManExp");
  EXPECT_EQ(List(), "");
  EXPECT_EQ(Value("state PeakListText(a)"), RowA + RowB + RowC + RowD);
  EXPECT_EQ(Markers("Form6", plot + 6),
            (Texts{"39.475: 46 off 57", "67.5: 88.75 off 95", "86.5: 74.5 off 85.5", "48.5: 17.5 off 28.5"}));
  Data().Buffer(1).PeakTheta[4] = "20.01";
  Click("Form6.cmdManExpl");
  EXPECT_EQ(Markers("Form6", plot + 10), markers);
  Click("Form6.cmdClearPeaks");
  EXPECT_EQ(List() + ListCommands(), "---");
  EXPECT_EQ(Value("state NPeaks(a)"), 0);
  EXPECT_EQ(Markers("Form6", plot + 13).size(), 4U);
}

TEST_F(ExplorerTest, WhereAPickIsMadeAndWhereNot) {
  Play("click Form6.cmdManExpl\ndown Form6.Picture1 right " + At(17) + "\ndown Form6.Picture1 right " +
       At(12) + "\n");
  const std::string row = RowC.substr(3);
  EXPECT_EQ(List(),
            "  1" + row + "  2" + row);  // at the press before any move, then where the mouse has been
  Pause();
  Pick(12);
  EXPECT_EQ(Value("state NPeaks(a)"), 2);
  Click("Form6.cmdManExpl");
  Data().Buffer(1).NPeaks = 99;
  Pick(15);
  const std::size_t drawn = Drawn();
  EXPECT_TRUE(Told(Press("Form6.Picture1", "right", At(17))));  // the list is full
  Pause();
  Zoom(14, 16, 90);
  EXPECT_TRUE(Told(Press("Form15.Picture1", "right", "50 50")));
  EXPECT_EQ(Drawn(), drawn);
  EXPECT_EQ(Value("state NPeaks(a)"), 100);
}

TEST_F(ExplorerTest, ThePausedExplorerZoomsIntoAWindowOfItsOwn) {
  Click("Form6.cmdManExpl");
  for (const double x : {12.05, 15.0, 17.0, 13.0}) Pick(x);
  Pause();
  Click("Form6.cmdErsLaIt");  // the list can be worked on meanwhile
  Zoom(11.5, 15.5, 90);
  EXPECT_EQ(Value("forms")[0], "Form15");
  EXPECT_EQ(Values("Form15.cmdRet.Enabled Form15.cmdCancel.Enabled ZoomXMin ZoomXMax"),
            (Json{true, false, 11.5, 15.5}));
  EXPECT_EQ(Value("state WorkNpts(a)"), 101);  // nothing is cut
  EXPECT_EQ(Values("WorkYMax(a) Form15.Line1.Visible"), (Json{1000.0, true}));
  EXPECT_NE(Get("Form15.Picture1.ToolTip").get<std::string>().find("picks"), std::string::npos);
  EXPECT_EQ(Segments("Form15"), 40);  // 41 points, both ends in
  // 23.75 units a degree; the top at 90 was 1052.63 counts: 0.0676875 a count. The markers are 7 long.
  EXPECT_EQ(Markers("Form15", 0), (Texts{"33.0625: 45.075 to 52.075", "103.125: 85.6875 to 92.6875"}));

  Move("Form15", "79.375 42.075");
  EXPECT_EQ(Values("Form15.Text1.Text Form15.Text2.Text Form15.Text3.Text Form15.Line1.X1"),
            (Json{"X-pos = 14", "d = 6.3207", "400", 79.375}));
  const std::size_t plot = Drawn();
  const std::size_t zoomed = Drawn("Form15");
  Play("down Form15.Picture1 right 79.375 50\n");
  EXPECT_EQ(List(), RowA + RowB + RowC + "  4) 14        6.3207      0  \r\n");
  // What is erased meanwhile goes from both pictures where it stands there, and the window below keeps its
  // own read-out.
  Play("click Form6.cmdErsLaIt\nclick Form6.cmdErsLaIt\nmove Form6.Picture1 " + At(15) + "\n");
  EXPECT_EQ(Markers("Form6", plot), (Texts{"58: 18 to 28", "58: 17.5 off 28.5", "86.5: 74.5 off 85.5"}));
  EXPECT_EQ(Markers("Form15", zoomed), (Texts{"79.375: 18 to 28", "79.375: 17.5 off 28.5"}));
  EXPECT_EQ(Get("Form6.Text3.Text"), "x = 15");

  Click("Form15.cmdRet");
  EXPECT_FALSE(IsLoaded("Form15"));
  EXPECT_EQ(
      Switches("Form6",
               "cmdEdit cmdZoom cmdUnzoom cmdMod cmdSave cmdManExpl cmdMain cmdPrint Command17 cmdErsLaIt"),
      "-+---+++++");
  EXPECT_EQ(Values("Form6.Shape1.Visible Form6.Text6.Text Form6.Text7.Text"),
            (Json{false, "xmin 10", "xmax 20"}));
  Click("Form6.cmdManExpl");
  Pick(13);
  EXPECT_EQ(List(), RowA + RowB + "  3" + RowD.substr(3));
  EXPECT_EQ(Markers("Form6", plot + 3), Texts{"48.5: 18 to 28"});
}

TEST_F(ExplorerTest, TheReturnGivesTheWholeTransformBackAndTurnsTheListOn) {
  Load('b', "10 -50\r\n11 100\r\n12 7\r\n20 100\r\n", "1.5");
  const PlotTransform before = Data().Plot;
  Click("Form6.cmdManExpl");
  Pause();
  Zoom(10.5, 14, 38.75);
  EXPECT_NE(Data().Plot.ZeroY, before.ZeroY);
  // 23.75 above the axis are 50 counts: 100 in all, 0.7125 each, the zero line at 50.625.
  Move("Form15", "50 64.875");
  EXPECT_EQ(Get("Form15.Text3.Text"), "20");
  const std::size_t plot = Drawn();
  Press("Form15.Picture1", "right", At(10));  // on the Y axis: 10.5
  EXPECT_EQ(Markers("Form6", plot),
            Texts{"24.75: 89.25 to 95"});  // 0.475 a count above the zero line at 38.75
  EXPECT_EQ(ListCommands(), "---");
  Play("close Form15\n");
  EXPECT_EQ(ListCommands(), "+++");
  EXPECT_EQ((std::array{Data().Plot.ZeroY, Data().Plot.ScaleX, Data().Plot.ScaleY}),
            (std::array{before.ZeroY, before.ScaleX, before.ScaleY}));
}

TEST_F(ExplorerTest, ChannelsAreReadByTheCalibrationInTheZoom) {
  Load('b', "0 5\r\n1 7\r\n2 5\r\n30 9\r\n31 5\r\n100 1\r\n", "1.5");
  Data().Buffer(2).FormatCode = 4;
  Data().Buffer(2).CalPar = {0, 20, 0.2};
  Click("Form6.cmdManExpl");
  Pause();
  Zoom(10, 15, 90);              // channels 0 to 50
  Move("Form15", "77.0019 50");  // channel 30.001; 1.5 / (2 sin 13.0001 degrees) = 3.33404
  EXPECT_EQ(Values("Form15.Text1.Text Form15.Text2.Text"), (Json{"X-pos = 26.0002", "d = 3.334"}));
  Play("down Form15.Picture1 right 50 50\n");  // what the boxes show is picked
  EXPECT_EQ(List(), "  1)  30.001   3.334       9  \r\n");
}

TEST_F(ExplorerTest, WhatActsForTheWindowGoesWithIt) {
  for (const char* commands : {"Form6.cmdZoom Form6.cmdExiManExp", "Form6.cmdExiManExp",
                               "Form1.cmdDisp Form11.Check1 Form11.Command1"}) {
    Click("Form6.cmdManExpl");
    Pause();
    Zoom(14, 16, 50);
    EXPECT_TRUE(IsLoaded("Form15"));
    EXPECT_EQ(Segments("Form15"), 18);  // of 20; the peak is too high
    Click(commands);
    EXPECT_FALSE(IsLoaded("Form15")) << commands;
    EXPECT_EQ(Data().Plot.ScaleX, 9.5F);
    EXPECT_EQ(Value("state ZoomMode"), 0);
  }
  // Arithmetic would change the points under the explorer or a selection.
  for (const char* commands :
       {"Form6.cmdMod Form6.cmdManExpl Form6.cmdExiManExp", "Form6.cmdMod Form6.cmdEdit"}) {
    Click(commands);
    EXPECT_FALSE(IsLoaded("Form8")) << commands;
  }
}

TEST_F(ExplorerTest, ArithmeticDrawsTheMarkersAnewAndAnEditEndsTheExplorer) {
  Data().Buffer(1).Wavelength = 0;  // the answer to the prompt turns both on
  Play("click Form6.cmdManExpl\nset Form6.Combo1 \"1.5406\"\nclick Form6.cmdComboOK\n");
  Pick(15);
  Play("click Form6.cmdMod\ninput \"2\"\nclick Form8.cmdProd\n");
  EXPECT_EQ(Markers("Form6", 0), Texts{"67.5: 53.625 to 63.625"});  // 1000 of 2000
  Click("Form6.cmdEdit");
  EXPECT_EQ(Values("Form6.Frame4.Visible ExplorerMode"), (Json{false, 0}));
}

}  // namespace
}  // namespace koprax
