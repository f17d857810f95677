// Journeys through Manual Explorer: picks and their list, markers, pause, zoom and return, and what ends it.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "app/workbench_session.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

using Texts = std::vector<std::string>;

/// The window on a profile of 101 points from 10 to 20 degrees: Y = 0 but for peaks of 400, 1000 and 800 at
/// 12, 15 and 17. 9.5 units of the picture a degree, 0.07125 a count.
class ExplorerTest : public testing::Test {
 protected:
  ExplorerTest() {
    std::string contents = "Peaks\r\n10 0.1 1.5406\r\n";
    for (int i = 0; i <= 100; ++i) {
      contents += i == 20 ? "400\r\n" : i == 50 ? "1000\r\n" : i == 70 ? "800\r\n" : "0\r\n";
    }
    session_.Play(WorkbenchSession::LoadCommands(session_.File("peaks.txt", contents), 2, 'a'));
  }

  Json Get(const std::string& name) { return session_.Value("get " + name); }
  /// Whether the last command of a script ends in a message.
  static bool Told(const Json& events) { return !events.empty() && events.back()["event"] == "message"; }
  std::string List() { return Get("Form6.Text17.Text"); }
  bool IsLoaded(const char* form) { return session_.Desk().Find(form) != nullptr; }
  /// Which of the three commands of the list are on.
  std::string ListCommands() {
    std::string states;
    for (const char* name : {"cmdErsLaIt", "cmdClearPeaks", "cmdSavePeaks"}) {
      states += Get("Form6." + std::string(name) + ".Enabled").get<bool>() ? '+' : '-';
    }
    return states;
  }

  /// The markers drawn on a picture from operation `first` on, as "x: bottom to top", and "x: bottom off top"
  /// where one is rubbed out; to 4 decimals, since places on a picture are rounded to 32 bits.
  Texts Markers(const std::string& form, std::size_t first) {
    const auto number = [](const Json& value) { return GeneralText(RoundDecimals(value.get<double>(), 4)); };
    const Json drawn = session_.Value("picture " + form + ".Picture1");
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
    for (const Json& line : session_.Value("picture " + form + ".Picture1")) {
      const double width = line["op"] == "line" ? line["x2"].get<double>() - line["x1"].get<double>() : 0;
      count += width > 0 && width < 10 && line["x1"] >= 20.0 && line["colour"] == 0 ? 1 : 0;
    }
    return count;
  }
  std::size_t Drawn(const std::string& form = "Form6") {
    return session_.Value("picture " + form + ".Picture1").size();
  }

  static std::string At(double x, double y = 50) {
    return GeneralText(20 + 9.5 * (x - 10)) + " " + GeneralText(y);
  }
  Json Press(const std::string& picture, const std::string& button, const std::string& place) {
    return session_.Events("move " + picture + " " + place + "\nup " + picture + " right " + place +
                           "\ndown " + picture + " " + button + " " + place + "\n");
  }
  void Pick(double x) { Press("Form6.Picture1", "right", At(x)); }
  void Pause() {
    session_.Play("down Form6.Picture1 left " + At(15) + "\nup Form6.Picture1 left " + At(15) + "\n");
  }
  void Zoom(double from, double to, double top) {
    session_.Play("click Form6.cmdZoom\ndown Form6.Picture1 left " + At(from, top) +
                  "\nmove Form6.Picture1 " + At(to) + "\nup Form6.Picture1 left " + At(to) +
                  "\nclick Form6.optOK\n");
  }
  /// Loads a profile of two columns into buffer b.
  void LoadPoints(const std::string& points) {
    session_.Play(
        WorkbenchSession::LoadCommands(session_.File("points.xy", "Points\r\n1.5\r\n" + points), 3, 'b'));
  }

  WorkbenchSession session_;
};

// The rows, d = 1.5406 / (2 sin theta) worked out in 64 bits.
const std::string RowA = "  1) 12.05     7.3388    400  \r\n";
const std::string RowB = "  2) 15        5.9015   1000  \r\n";
const std::string RowC = "  3) 17        5.2114    800  \r\n";
const std::string RowD = "  4) 13        6.8046      0  \r\n";

TEST_F(ExplorerTest, PicksListsMarksAndErases) {
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(ListCommands(), "---");
  const std::size_t plot = Drawn();
  for (const double x : {12.05, 15.0, 17.0, 13.0, 19.0}) Pick(x);
  EXPECT_EQ(ListCommands(), "+++");
  EXPECT_EQ(List(), RowA + RowB + RowC + RowD + "  5) 19        4.6671      0  \r\n");
  // From 3 above the peak, 10 long, but never past the frame: 1000 counts end at 86.25.
  const Texts markers{"39.475: 46.5 to 56.5", "67.5: 89.25 to 95", "86.5: 75 to 85"};
  EXPECT_EQ(Markers("Form6", plot),
            (Texts{markers[0], markers[1], markers[2], "48.5: 18 to 28", "105.5: 18 to 28"}));
  session_.Play("click Form6.cmdErsLaIt\n");
  EXPECT_EQ(List(), RowA + RowB + RowC + RowD);
  EXPECT_EQ(Markers("Form6", plot + 5), Texts{"105.5: 17.5 off 28.5"});

  // The list is saved sorted; the buffer keeps its own order.
  const std::string path = session_.Folder() + "/list.pks";
  session_.Play("file " + Json(path).dump() + "\nclick Form6.cmdSavePeaks\n");
  std::ifstream file(path);
  std::vector<double> saved;
  for (std::string line; std::getline(file, line);) saved.push_back(LeadingNumber(line));
  EXPECT_EQ(saved, (std::vector<double>{12.05, 13, 15, 17}));

  // Leaving rubs the markers out and keeps the list for the next start, which draws those on the plot again.
  session_.Play("click Form6.cmdExiManExp\n");
  EXPECT_EQ(List(), "");
  EXPECT_EQ(session_.Value("state PeakListText(a)"), RowA + RowB + RowC + RowD);
  EXPECT_EQ(Markers("Form6", plot + 6),
            (Texts{"39.475: 46 off 57", "67.5: 88.75 off 95", "86.5: 74.5 off 85.5", "48.5: 17.5 off 28.5"}));
  session_.Data().Buffer(1).PeakTheta[4] = "20.01";
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(Markers("Form6", plot + 10), markers);
  session_.Play("click Form6.cmdClearPeaks\n");
  EXPECT_EQ(List() + ListCommands(), "---");
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 0);
  EXPECT_EQ(Markers("Form6", plot + 13).size(), 4U);
}

TEST_F(ExplorerTest, WhereAPickIsMadeAndWhereNot) {
  session_.Play("click Form6.cmdManExpl\ndown Form6.Picture1 right " + At(17) +
                "\ndown Form6.Picture1 right " + At(12) + "\n");
  const std::string row = RowC.substr(3);
  EXPECT_EQ(List(),
            "  1" + row + "  2" + row);  // at the press before any move, then where the mouse has been
  Pause();
  Pick(12);
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 2);
  session_.Play("click Form6.cmdManExpl\n");
  session_.Data().Buffer(1).NPeaks = 99;
  Pick(15);
  const std::size_t drawn = Drawn();
  EXPECT_TRUE(Told(Press("Form6.Picture1", "right", At(17))));  // the list is full
  Pause();
  Zoom(14, 16, 90);
  EXPECT_TRUE(Told(Press("Form15.Picture1", "right", "50 50")));
  EXPECT_EQ(Drawn(), drawn);
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 100);
}

TEST_F(ExplorerTest, ThePausedExplorerZoomsIntoAWindowOfItsOwn) {
  session_.Play("click Form6.cmdManExpl\n");
  for (const double x : {12.05, 15.0, 17.0, 13.0}) Pick(x);
  Pause();
  session_.Play("click Form6.cmdErsLaIt\n");  // the list can be worked on meanwhile
  Zoom(11.5, 15.5, 90);
  EXPECT_EQ(session_.Value("forms")[0], "Form15");
  EXPECT_EQ(Get("Form15.cmdRet.Enabled"), true);
  EXPECT_EQ(Get("Form15.cmdCancel.Enabled"), false);
  EXPECT_EQ(session_.Value("state ZoomXMin"), 11.5);
  EXPECT_EQ(session_.Value("state ZoomXMax"), 15.5);
  EXPECT_EQ(session_.Value("state WorkNpts(a)"), 101);  // nothing is cut
  EXPECT_EQ(session_.Value("state WorkYMax(a)"), 1000.0);
  EXPECT_EQ(Get("Form15.Line1.Visible"), true);
  EXPECT_EQ(Segments("Form15"), 40);  // 41 points, both ends in
  // 23.75 units a degree; the top at 90 was 1052.63 counts: 0.0676875 a count. The markers are 7 long.
  EXPECT_EQ(Markers("Form15", 0), (Texts{"33.0625: 45.075 to 52.075", "103.125: 85.6875 to 92.6875"}));

  session_.Play("move Form15.Picture1 79.375 42.075\n");
  EXPECT_EQ(Get("Form15.Text1.Text"), "X-pos = 14");
  EXPECT_EQ(Get("Form15.Text2.Text"), "d = 6.3207");
  EXPECT_EQ(Get("Form15.Text3.Text"), "400");
  EXPECT_EQ(Get("Form15.Line1.X1"), 79.375);
  const std::size_t plot = Drawn();
  const std::size_t zoomed = Drawn("Form15");
  session_.Play("down Form15.Picture1 right 79.375 50\n");
  EXPECT_EQ(List(), RowA + RowB + RowC + "  4) 14        6.3207      0  \r\n");
  // What is erased meanwhile goes from both pictures where it stands there, and the window below keeps its
  // own read-out.
  session_.Play("click Form6.cmdErsLaIt\nclick Form6.cmdErsLaIt\nmove Form6.Picture1 " + At(15) + "\n");
  EXPECT_EQ(Markers("Form6", plot), (Texts{"58: 18 to 28", "58: 17.5 off 28.5", "86.5: 74.5 off 85.5"}));
  EXPECT_EQ(Markers("Form15", zoomed), (Texts{"79.375: 18 to 28", "79.375: 17.5 off 28.5"}));
  EXPECT_EQ(Get("Form6.Text3.Text"), "x = 15");

  session_.Play("click Form15.cmdRet\n");
  EXPECT_FALSE(IsLoaded("Form15"));
  for (const char* on : {"cmdManExpl", "cmdPrint", "Command17", "cmdMain", "cmdZoom", "cmdErsLaIt"}) {
    EXPECT_EQ(Get("Form6." + std::string(on) + ".Enabled"), true) << on;
  }
  EXPECT_EQ(Get("Form6.Shape1.Visible"), false);
  EXPECT_EQ(Get("Form6.Text6.Text"), "xmin 10");
  EXPECT_EQ(Get("Form6.Text7.Text"), "xmax 20");
  session_.Play("click Form6.cmdManExpl\n");
  Pick(13);
  EXPECT_EQ(List(), RowA + RowB + "  3" + RowD.substr(3));
  EXPECT_EQ(Markers("Form6", plot + 3), Texts{"48.5: 18 to 28"});
}

TEST_F(ExplorerTest, TheReturnGivesTheWholeTransformBackAndTurnsTheListOn) {
  LoadPoints("10 -50\r\n11 100\r\n12 7\r\n20 100\r\n");
  const PlotTransform before = session_.Data().Plot;
  session_.Play("click Form6.cmdManExpl\n");
  Pause();
  Zoom(10.5, 14, 38.75);
  EXPECT_NE(session_.Data().Plot.ZeroY, before.ZeroY);
  // 23.75 above the axis are 50 counts: 100 in all, 0.7125 each, the zero line at 50.625.
  session_.Play("move Form15.Picture1 50 64.875\n");
  EXPECT_EQ(Get("Form15.Text3.Text"), "20");
  const std::size_t plot = Drawn();
  Press("Form15.Picture1", "right", At(10));  // on the Y axis: 10.5
  EXPECT_EQ(Markers("Form6", plot),
            Texts{"24.75: 89.25 to 95"});  // 0.475 a count above the zero line at 38.75
  EXPECT_EQ(ListCommands(), "---");
  session_.Play("close Form15\n");
  EXPECT_EQ(ListCommands(), "+++");
  EXPECT_EQ(session_.Data().Plot.ZeroY, before.ZeroY);
  EXPECT_EQ(session_.Data().Plot.ScaleX, before.ScaleX);
  EXPECT_EQ(session_.Data().Plot.ScaleY, before.ScaleY);
}

TEST_F(ExplorerTest, ChannelsAreReadByTheCalibrationInTheZoom) {
  LoadPoints("0 5\r\n1 7\r\n2 5\r\n30 9\r\n31 5\r\n100 1\r\n");
  session_.Data().Buffer(2).FormatCode = 4;
  session_.Data().Buffer(2).CalPar = {0, 20, 0.2};
  session_.Play("click Form6.cmdManExpl\n");
  Pause();
  Zoom(10, 15, 90);  // channels 0 to 50
  session_.Play("move Form15.Picture1 77.0019 50\n");
  EXPECT_EQ(Get("Form15.Text1.Text"), "X-pos = 26.0002");  // channel 30.001
  EXPECT_EQ(Get("Form15.Text2.Text"), "d = 3.334");        // 1.5 / (2 sin 13.0001 degrees) = 3.33404
  session_.Play("down Form15.Picture1 right 50 50\n");     // what the boxes show is picked
  EXPECT_EQ(List(), "  1)  30.001   3.334       9  \r\n");
  EXPECT_EQ(session_.Value("state PeakTheta(b)")[1], "26.0002");
  EXPECT_EQ(session_.Value("state PeakChannel(b)")[1], "30.001");
}

TEST_F(ExplorerTest, WhatActsForTheWindowGoesWithIt) {
  for (const char* command : {"click Form6.cmdZoom\nclick Form6.cmdExiManExp\n", "click Form6.cmdExiManExp\n",
                              "click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Command1\n"}) {
    session_.Play("click Form6.cmdManExpl\n");
    Pause();
    Zoom(14, 16, 50);
    EXPECT_TRUE(IsLoaded("Form15"));
    EXPECT_EQ(Segments("Form15"), 18);  // of 20; the peak is too high
    session_.Play(command);
    EXPECT_FALSE(IsLoaded("Form15")) << command;
    EXPECT_EQ(session_.Data().Plot.ScaleX, 9.5F);
    EXPECT_EQ(session_.Value("state ZoomMode"), 0);
  }
  // Arithmetic would change the points under the explorer or a selection.
  for (const char* command : {"cmdManExpl\nclick Form6.cmdExiManExp", "cmdEdit"}) {
    session_.Play("click Form6.cmdMod\nclick Form6." + std::string(command) + "\n");
    EXPECT_FALSE(IsLoaded("Form8")) << command;
  }
}

TEST_F(ExplorerTest, ArithmeticDrawsTheMarkersAnewAndAnEditEndsTheExplorer) {
  session_.Data().Buffer(1).Wavelength = 0;  // the answer to the prompt turns both on
  session_.Play("click Form6.cmdManExpl\nset Form6.Combo1 \"1.5406\"\nclick Form6.cmdComboOK\n");
  Pick(15);
  session_.Play("click Form6.cmdMod\ninput \"2\"\nclick Form8.cmdProd\n");
  EXPECT_EQ(Markers("Form6", 0), Texts{"67.5: 53.625 to 63.625"});  // 1000 of 2000
  session_.Play("click Form6.cmdEdit\n");
  EXPECT_EQ(Get("Form6.Frame4.Visible"), false);
  EXPECT_EQ(session_.Value("state ExplorerMode"), 0);
}

TEST_F(ExplorerTest, ACancelledCalibrationEmptiesTheListAndThePicture) {
  LoadPoints("0 5\r\n1 7\r\n2 5\r\n100 1\r\n");
  session_.Play("click Form6.cmdManExpl\n");
  Pick(15);
  session_.Data().Buffer(2).Wavelength = 0;
  session_.Play("click Form6.cmdExiManExp\nclick Form6.cmdManExpl\n");
  Pick(17);  // behind the prompt
  EXPECT_EQ(session_.Value("state NPeaks(b)"), 1);
  const std::size_t drawn = Drawn();
  session_.Play("file cancel\nclick Form6.cmdComboOK\n");
  EXPECT_EQ(session_.Value("state NPeaks(b)"), 0);
  EXPECT_EQ(List(), "");
  EXPECT_EQ(Markers("Form6", drawn).size(), 1U);
}

TEST_F(ExplorerTest, WithoutAPlotOrAWavelengthTheUserIsTold) {
  session_.Data().Buffer(1).Wavelength = 0;
  session_.Play("click Form6.cmdManExpl\nset Form6.Combo1 \"none\"\nclick Form6.cmdComboOK\n");
  EXPECT_TRUE(Told(Press("Form6.Picture1", "right", At(15))));
  LoadPoints("20 1\r\n10 5\r\n");  // X runs downward
  for (const char* command : {"click Form6.cmdPrint\n", "click Form6.Command17\n"}) {
    EXPECT_TRUE(Told(session_.Events(command))) << command;
  }
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_TRUE(Told(Press("Form6.Picture1", "right", At(15))));
}

}  // namespace
}  // namespace koprax
