// Several windows open at once: each goes on with the profile that it shows, whatever is done in the others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "app/journey.h"

namespace koprax {
namespace {

using testing::HasSubstr;

/// Profiles of 41 points from 10 to 50 degrees: a and c positive, b down to -50; a is shown by itself.
class SeveralWindows : public Journey {
 protected:
  SeveralWindows() {
    for (const char letter : {'c', 'b', 'a'}) {
      std::string points;
      for (int x = 10; x <= 50; ++x) {
        points += std::to_string(x) + " " + std::to_string(letter == 'b' ? x - 60 : 2 * x) + "\r\n";
      }
      Load(letter, points);
    }
  }
  std::string Told(const std::string& clicks) { return Click(clicks).dump(); }
};

TEST_F(SeveralWindows, APictureTakesUpItsProfileBeforeItsCommands) {
  const Json c = Value("buffer c");
  const std::string work_on_c = "file cancel\nclick Form1.cmdOut\nclick Form10.optC\n";
  Play(work_on_c + "click Form6.cmdManExpl\nmove Form6.Picture1 67.5 50\n" +
       "down Form6.Picture1 right 67.5 50\n");
  EXPECT_EQ(Value("state CurBuf"), 1);
  EXPECT_EQ(Value("state PeakTheta(a)")[1], "30");
  Play("click Form6.cmdExiManExp\n" + work_on_c + "click Form6.cmdSave\nclick Form3.Command1\n");
  EXPECT_EQ(Value("buffer c"), c);
  EXPECT_THAT(Data().Buffer(1).Title, HasSubstr("Modified"));
}

TEST_F(SeveralWindows, AMarkerStandsOnTheBaseOfItsOwnPlot) {
  Click("Form6.cmdManExpl");
  Display("bc");  // b reaches below 0
  Move("Form6", "67.5 50");
  EXPECT_EQ(Get("Form6.Text3.Text"), "x = 30");
  Play("down Form6.Picture1 right 67.5 50\n");
  const Json marker = Value("picture Form6.Picture1").back();
  // Of the neighbours the higher one.
  EXPECT_NEAR(marker["y1"].get<double>(), 15 + 71.25 / 100 * 62 + 3, 1e-4);
  EXPECT_EQ(Value("state NPeaks(b)"), 0);
}

TEST_F(SeveralWindows, AnEditEndsWhenItsPointsHaveBeenTakenAnew) {
  Select("Form6", "cmdZoom", "44 80", "115 80");
  Select("Form6", "cmdEdit", "40 80", "60 80");
  Click("Form6.cmdEditOK");
  Display("ac");  // which takes a as it was before the zoom
  const Json before = Value("buffer a");
  for (const std::string command : {"cmdAccept", "cmdEditOK", "cmdEditNO", "Command15"}) {
    EXPECT_THAT(Told("Form6." + command), HasSubstr("changed in another window"));
  }
  EXPECT_EQ(Value("buffer a"), before);
  Click("Form6.cmdQuitEdit");
}

TEST_F(SeveralWindows, APlotOfSeveralIsNotMixedWithACutProfile) {
  Display("ac");
  Select("Form6", "cmdZoom", "44 80", "80 80");
  const Json before = Value("state PermX(a)");
  EXPECT_THAT(Words("modal click Form32.optA\nclick Form2.cmdSave\n"),
              testing::Contains(HasSubstr("points, of which only")));
  EXPECT_EQ(Value("state PermX(a)"), before);
  EXPECT_THAT(Told("Form2.cmdMod Form8.Command1"), HasSubstr("buffer a has lost points"));
}

TEST_F(SeveralWindows, UndoZoomLeavesASelectionElsewhereAlone) {
  Display("bc");
  Select("Form2", "cmdZoom", "30 80", "90 80");
  Click("Form6.cmdZoom");
  Drag("Form6", "44 50", "80 50");
  Click("Form15.cmdCancel Form6.optNO");
  EXPECT_EQ(Values("WorkYMax(a) Form6.Text6.Text"), (Json{100, "xmin 10"}));
}

TEST_F(SeveralWindows, ACardInTheBufferOfACurveIsNotWorkedOnThere) {
  LoadCard('a');
  const Json card = Value("buffer a");
  for (const std::string command : {"cmdEdit", "cmdZoom", "cmdManExpl", "cmdMod", "cmdSave", "cmdPrint"}) {
    EXPECT_THAT(Told("Form6." + command), HasSubstr("Display a profile first")) << command;
  }
  EXPECT_EQ(Value("buffer a"), card);
}

TEST_F(SeveralWindows, AZoomOfCardsReadsInDegrees) {
  LoadCard('d');
  LoadCard('e');
  Display("de");
  Select("Form2", "cmdZoom", "30 80", "90 80");
  Move("Form15", "60 50");
  const double two_theta = std::stod(Get("Form15.Text1.Text").get<std::string>().substr(8));
  const double d = std::stod(Get("Form15.Text2.Text").get<std::string>().substr(4));
  // Bragg's law for copper; both are shown in decimals, d in 4 of them.
  EXPECT_NEAR(d, 1.54184 / 2 / std::sin(two_theta / 2 * std::acos(-1.0) / 180), 1e-4);
}

}  // namespace
}  // namespace koprax
