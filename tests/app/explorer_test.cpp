// Journeys through Manual Explorer: picks and their list, markers, pause, zoom and return, and what ends it.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "app/workbench_session.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

constexpr int Red = 255;
constexpr int White = 16777215;

/// A marker as it is drawn or rubbed out.
struct Bar {
  float X, From, To;
  int Colour;
  /// To the rounding of a place on the picture in 32 bits.
  bool operator==(const Bar& other) const {
    const auto same = [](float a, float b) { return std::abs(a - b) < 1e-5; };
    return same(X, other.X) && same(From, other.From) && same(To, other.To) && Colour == other.Colour;
  }
};
void PrintTo(const Bar& bar, std::ostream* out) {
  *out << bar.X << ": " << bar.From << " to " << bar.To << " in " << bar.Colour;
}

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

  /// The bars on a picture from operation `first` on; all else drawn there are longer or no lines upright.
  std::vector<Bar> Bars(const std::string& form, std::size_t first) {
    const Json drawn = session_.Value("picture " + form + ".Picture1");
    std::vector<Bar> bars;
    for (std::size_t i = first; i < drawn.size(); ++i) {
      const int colour = drawn[i]["colour"];
      if (drawn[i]["op"] == "line" && (colour == Red || colour == White)) {
        bars.push_back({drawn[i]["x1"], drawn[i]["y1"], drawn[i]["y2"], colour});
      }
    }
    return bars;
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
  for (const double x : {12.05, 15.0, 17.0, 13.0, 19.0}) {
    Pick(x);
  }
  EXPECT_EQ(ListCommands(), "+++");
  EXPECT_EQ(List(), RowA + RowB + RowC + RowD + "  5) 19        4.6671      0  \r\n");
  EXPECT_EQ(session_.Value("state PeakD(a)")[5], "4.6671");
  // From 3 above the peak, 10 long, but never past the frame: 1000 counts end at 86.25.
  const std::vector<Bar> markers{{39.475F, 46.5, 56.5, Red},
                                 {67.5, 89.25, 95, Red},
                                 {86.5, 75, 85, Red},
                                 {48.5, 18, 28, Red},
                                 {105.5, 18, 28, Red}};
  EXPECT_EQ(Bars("Form6", plot), markers);

  session_.Play("click Form6.cmdErsLaIt\n");
  EXPECT_EQ(List(), RowA + RowB + RowC + RowD);
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 4);
  EXPECT_EQ(Bars("Form6", plot + 5), (std::vector<Bar>{{105.5, 17.5, 28.5, White}}));

  // The list is saved sorted; the buffer keeps its own order.
  const std::string path = session_.Folder() + "/list.pks";
  session_.Play("file " + Json(path).dump() + "\nclick Form6.cmdSavePeaks\n");
  std::ifstream file(path);
  std::vector<double> saved;
  for (std::string line; std::getline(file, line);) {
    saved.push_back(LeadingNumber(line));
  }
  EXPECT_EQ(saved, (std::vector<double>{12.05, 13, 15, 17}));

  // Leaving rubs the markers out and keeps the list for the next start, which draws them again.
  session_.Play("click Form6.cmdExiManExp\n");
  EXPECT_EQ(List(), "");
  EXPECT_EQ(session_.Value("state PeakListText(a)"), RowA + RowB + RowC + RowD);
  EXPECT_EQ(Bars("Form6", plot + 6), (std::vector<Bar>{{39.475F, 46, 57, White},
                                                       {67.5, 88.75, 95, White},
                                                       {86.5, 74.5, 85.5, White},
                                                       {48.5, 17.5, 28.5, White}}));
  session_.Data().Buffer(1).PeakTheta[4] = "20.01";  // right of the plot
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(Bars("Form6", plot + 10), (std::vector<Bar>{markers[0], markers[1], markers[2]}));
  EXPECT_EQ(ListCommands(), "+++");

  session_.Play("click Form6.cmdClearPeaks\n");
  EXPECT_EQ(List(), "");
  EXPECT_EQ(ListCommands(), "---");
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 0);
  EXPECT_EQ(Bars("Form6", plot + 13).size(), 4U);
  session_.Play("click Form6.cmdExiManExp\nclick Form6.cmdManExpl\n");
  EXPECT_EQ(List(), "");
}

TEST_F(ExplorerTest, APickIsMadeWhereTheCursorIsAndOnlyByTheRightButton) {
  session_.Play("click Form6.cmdManExpl\ndown Form6.Picture1 right " + At(17) + "\n");
  EXPECT_EQ(List(), "  1) 17        5.2114    800  \r\n");  // the mouse had not moved before
  session_.Play("down Form6.Picture1 right " + At(12) + "\n");
  EXPECT_EQ(session_.Value("state PeakTheta(a)")[2], "17");  // as it was read last
  Pause();
  Pick(12);
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 2);
  session_.Play("click Form6.cmdManExpl\n");
  Pick(12);
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 3);
}

TEST_F(ExplorerTest, TheHundredAndFirstPickIsRefused) {
  session_.Play("click Form6.cmdManExpl\n");
  session_.Data().Buffer(1).NPeaks = 99;
  Pick(15);
  const std::string list = List();
  const std::size_t drawn = Drawn();
  EXPECT_TRUE(Told(Press("Form6.Picture1", "right", At(17))));
  EXPECT_EQ(List(), list);
  EXPECT_EQ(Drawn(), drawn);
  EXPECT_EQ(session_.Value("state NPeaks(a)"), 100);
  Pause();
  Zoom(14, 16, 90);
  EXPECT_TRUE(Told(Press("Form15.Picture1", "right", "50 50")));
  EXPECT_EQ(List(), list);
}

TEST_F(ExplorerTest, ThePausedExplorerZoomsIntoAWindowOfItsOwn) {
  session_.Play("click Form6.cmdManExpl\n");
  for (const double x : {12.05, 15.0, 17.0, 13.0}) {
    Pick(x);
  }
  Pause();
  session_.Play("click Form6.cmdErsLaIt\n");  // the list can be worked on meanwhile
  Zoom(11.5, 15.5, 90);
  EXPECT_EQ(session_.Value("forms")[0], "Form15");
  EXPECT_EQ(Get("Form15.cmdRet.Enabled"), true);
  EXPECT_EQ(Get("Form15.cmdCancel.Enabled"), false);
  EXPECT_EQ(Get("Form15.Line1.Visible"), true);
  EXPECT_EQ(session_.Value("state ZoomXMin"), 11.5);
  EXPECT_EQ(session_.Value("state ZoomXMax"), 15.5);
  EXPECT_EQ(session_.Value("state WorkNpts(a)"), 101);  // nothing is cut
  // 23.75 units a degree; the top at 90 was 1052.63 counts: 0.0676875 a count. The markers are 7 long.
  std::vector<Bar> bars = Bars("Form15", 0);
  ASSERT_EQ(bars.size(), 2U);
  EXPECT_FLOAT_EQ(static_cast<float>(bars[0].X), 33.0625F);
  EXPECT_FLOAT_EQ(static_cast<float>(bars[0].From), 45.075F);
  EXPECT_FLOAT_EQ(static_cast<float>(bars[0].To), 52.075F);
  EXPECT_FLOAT_EQ(static_cast<float>(bars[1].From), 85.6875F);
  EXPECT_FLOAT_EQ(static_cast<float>(bars[1].To), 92.6875F);

  session_.Play("move Form15.Picture1 79.375 42.075\n");
  EXPECT_EQ(Get("Form15.Text1.Text"), "X-pos = 14");
  EXPECT_EQ(Get("Form15.Text2.Text"), "d = 6.3207");
  EXPECT_EQ(Get("Form15.Text3.Text"), "400");
  EXPECT_EQ(Get("Form15.Line1.X1"), 79.375);
  const std::size_t plot = Drawn();
  const std::size_t zoomed = Drawn("Form15");
  session_.Play("down Form15.Picture1 right 79.375 50\n");
  EXPECT_EQ(List(), RowA + RowB + RowC + "  4) 14        6.3207      0  \r\n");
  EXPECT_EQ(Bars("Form6", plot), (std::vector<Bar>{{58, 18, 28, Red}}));
  EXPECT_EQ(Bars("Form15", zoomed), (std::vector<Bar>{{79.375, 18, 28, Red}}));
  // What is erased meanwhile goes from both pictures, and the window below keeps its own read-out.
  session_.Play("click Form6.cmdErsLaIt\nmove Form6.Picture1 " + At(15) + "\n");
  EXPECT_EQ(Bars("Form6", plot + 1), (std::vector<Bar>{{58, 17.5, 28.5, White}}));
  EXPECT_EQ(Bars("Form15", zoomed + 1), (std::vector<Bar>{{79.375, 17.5, 28.5, White}}));
  EXPECT_EQ(Get("Form6.Text3.Text"), "x = 15");

  session_.Play("click Form15.cmdRet\n");
  EXPECT_FALSE(IsLoaded("Form15"));
  EXPECT_EQ(session_.Value("state ZoomMode"), 0);
  for (const char* on : {"cmdManExpl", "cmdPrint", "Command17", "cmdMain", "cmdZoom", "cmdErsLaIt"}) {
    EXPECT_EQ(Get("Form6." + std::string(on) + ".Enabled"), true) << on;
  }
  EXPECT_EQ(Get("Form6.optOK.Visible"), false);
  EXPECT_EQ(Get("Form6.Shape1.Visible"), false);
  EXPECT_EQ(Get("Form6.Text6.Text"), "xmin 10");
  EXPECT_EQ(Get("Form6.Text7.Text"), "xmax 20");
  session_.Play("click Form6.cmdManExpl\n");
  Pick(13);
  EXPECT_EQ(List(), RowA + RowB + RowC + RowD);
  EXPECT_EQ(Bars("Form6", plot + 2), (std::vector<Bar>{{48.5, 18, 28, Red}}));
}

TEST_F(ExplorerTest, AFirstPickInTheZoomTurnsTheListOnWithTheReturn) {
  session_.Play("click Form6.cmdManExpl\n");
  Pause();
  Zoom(14, 16, 90);
  Press("Form15.Picture1", "right", "67.5 50");
  EXPECT_EQ(ListCommands(), "---");
  session_.Play("close Form15\n");
  EXPECT_EQ(ListCommands(), "+++");
}

TEST_F(ExplorerTest, TheReturnGivesTheWholeTransformBack) {
  LoadPoints("10 -50\r\n11 100\r\n12 7\r\n20 100\r\n");
  const PlotTransform before = session_.Data().Plot;
  session_.Play("click Form6.cmdManExpl\n");
  Pause();
  Zoom(10.5, 14, 60);
  EXPECT_NE(session_.Data().Plot.ZeroY, before.ZeroY);
  const std::size_t plot = Drawn();
  Press("Form15.Picture1", "right", At(10));  // on the Y axis: 10.5
  EXPECT_EQ(session_.Value("state PeakTheta(b)")[1], "10.5");
  const Bar marker = Bars("Form6", plot).at(0);
  EXPECT_EQ(marker.X, 24.75);
  EXPECT_FLOAT_EQ(static_cast<float>(marker.From), 38.75F + 47.5F + 3);  // 0.475 a count above the zero line
  session_.Play("click Form15.cmdRet\n");
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
  session_.Play(
      "click Form6.cmdZoom\ndown Form6.Picture1 left 20 90\nmove Form6.Picture1 67.5 50\n"
      "up Form6.Picture1 left 67.5 50\nclick Form6.optOK\nmove Form15.Picture1 77.0019 50\n");
  EXPECT_EQ(Get("Form15.Text1.Text"), "X-pos = 26.0002");  // channel 30.001
  EXPECT_EQ(Get("Form15.Text2.Text"), "d = 3.334");        // 1.5 / (2 sin 13.0001 degrees) = 3.33404
  session_.Play("down Form15.Picture1 right 77 50\n");
  EXPECT_EQ(List(), "  1)      30   3.3341      9  \r\n");
  EXPECT_EQ(session_.Value("state PeakTheta(b)")[1], "26");
  EXPECT_EQ(session_.Value("state PeakChannel(b)")[1], "30");
}

TEST_F(ExplorerTest, WhatEndsTheZoomFromBelow) {
  const auto open_zoom = [&] {
    session_.Play("click Form6.cmdManExpl\n");
    Pause();
    Zoom(14, 16, 90);
    ASSERT_TRUE(IsLoaded("Form15"));
  };
  open_zoom();
  session_.Play("click Form6.cmdZoom\n");  // another selection, in the scale of the window itself
  EXPECT_FALSE(IsLoaded("Form15"));
  EXPECT_EQ(session_.Data().Plot.ScaleX, 9.5F);
  session_.Play("click Form6.cmdExiManExp\n");
  EXPECT_EQ(session_.Value("state ZoomMode"), 0);
  open_zoom();
  session_.Play("click Form6.cmdExiManExp\n");
  EXPECT_FALSE(IsLoaded("Form15"));
  EXPECT_EQ(session_.Data().Plot.ScaleX, 9.5F);
  open_zoom();
  session_.Play("click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Command1\n");
  EXPECT_FALSE(IsLoaded("Form15"));
  session_.Play("click Form6.cmdMod\nclick Form6.cmdMain\n");
  EXPECT_FALSE(IsLoaded("Form8"));
}

TEST_F(ExplorerTest, ArithmeticRedrawsThePlotWithItsMarkers) {
  session_.Play("click Form6.cmdMod\nclick Form6.cmdManExpl\n");
  Pick(15);
  session_.Play("input \"2\"\nclick Form8.cmdProd\n");
  EXPECT_EQ(session_.Value("state WorkYMax(a)"), 2000.0);
  EXPECT_EQ(Bars("Form6", 0), (std::vector<Bar>{{67.5, 53.625, 63.625, Red}}));  // 1000 of 2000
  EXPECT_FLOAT_EQ(session_.Data().ExplorerScaleY, 0.035625F);
}

TEST_F(ExplorerTest, ACancelledCalibrationEmptiesTheListAndThePicture) {
  LoadPoints("0 5\r\n1 7\r\n2 5\r\n100 1\r\n");
  session_.Play("click Form6.cmdManExpl\n");
  Press("Form6.Picture1", "right", "67.5 50");
  session_.Play("click Form6.cmdExiManExp\n");
  session_.Data().Buffer(2).Wavelength = 0;
  session_.Play("click Form6.cmdManExpl\n");
  // Nothing is picked behind the prompt.
  Press("Form6.Picture1", "right", "80 50");
  EXPECT_EQ(session_.Value("state NPeaks(b)"), 1);
  const std::size_t drawn = Drawn();
  session_.Play("file cancel\nclick Form6.cmdComboOK\n");
  EXPECT_EQ(session_.Value("state NPeaks(b)"), 0);
  EXPECT_EQ(List(), "");
  EXPECT_EQ(Bars("Form6", drawn).size(), 1U);
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
  EXPECT_EQ(session_.Value("state NPeaks(b)"), 0);
}

}  // namespace
}  // namespace koprax
