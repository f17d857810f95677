// Several windows open at once: each goes on with the profile that it shows, whatever is done in the others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "app/workbench_session.h"

namespace koprax {
namespace {

using testing::HasSubstr;

/// Profiles of 41 points from 10 to 50 degrees: a and c positive, b down to -50; a is shown by itself.
class SeveralWindows : public testing::Test {
 protected:
  SeveralWindows() {
    for (const char letter : {'c', 'b', 'a'}) {
      std::string file = std::string("Profile ") + letter + "\r\n1.5406\r\n";
      for (int x = 10; x <= 50; ++x) {
        file += std::to_string(x) + " " + std::to_string(letter == 'b' ? x - 60 : 2 * x) + "\r\n";
      }
      session_.Play(WorkbenchSession::LoadCommands(session_.File(std::string(1, letter), file), 3, letter));
    }
  }
  void ShowTogether(const std::string& checks) {
    std::string script = "click Form1.cmdDisp\n";
    for (const char number : checks) script += std::string("click Form11.Check") + number + "\n";
    session_.Play(script + "click Form11.Command1\n");
  }
  /// A selection on Form6 from one picture x to another.
  void Select(const std::string& command, int from, int to) {
    session_.Play("click Form6." + command + "\ndown Form6.Picture1 left " + std::to_string(from) +
                  " 80\nmove Form6.Picture1 " + std::to_string(to) + " 80\nup Form6.Picture1 left " +
                  std::to_string(to) + " 80\nclick Form6.optOK\n");
  }
  std::string Told(const std::string& script) { return session_.Events(script).dump(); }
  Json Points(const std::string& letter) { return session_.Value("buffer " + letter)["WorkY"]; }

  WorkbenchSession session_;
};

TEST_F(SeveralWindows, APictureTakesUpItsProfileBeforeItsCommands) {
  const Json c = session_.Value("buffer c");
  session_.Play("file cancel\nclick Form1.cmdOut\nclick Form10.optC\n");  // c is at work now
  session_.Play("click Form6.cmdManExpl\nmove Form6.Picture1 67.5 50\ndown Form6.Picture1 right 67.5 50\n");
  EXPECT_EQ(session_.Value("state CurBuf"), 1);
  EXPECT_EQ(session_.Value("state PeakTheta(a)")[1], "30");
  session_.Play("click Form6.cmdExiManExp\nfile cancel\nclick Form1.cmdOut\nclick Form10.optC\n");
  session_.Play("click Form6.cmdSave\nclick Form3.Command1\n");
  EXPECT_EQ(session_.Value("buffer c"), c);
  EXPECT_THAT(session_.Data().Buffer(1).Title, HasSubstr("Modified"));
}

TEST_F(SeveralWindows, AMarkerStandsOnTheBaseOfItsOwnPlot) {
  session_.Play("click Form6.cmdManExpl\n");
  ShowTogether("23");  // b reaches below 0
  session_.Play("move Form6.Picture1 67.5 50\n");
  EXPECT_EQ(session_.Value("get Form6.Text3.Text"), "x = 30");
  session_.Play("down Form6.Picture1 right 67.5 50\n");
  const Json marker = session_.Value("picture Form6.Picture1").back();
  EXPECT_NEAR(marker["y1"].get<double>(), 15 + 71.25 / 100 * 62 + 3,
              1e-4);  // of the neighbours the higher one
  EXPECT_EQ(session_.Value("state NPeaks(b)"), 0);
}

TEST_F(SeveralWindows, AnEditEndsWhenItsPointsHaveBeenTakenAnew) {
  Select("cmdZoom", 44, 115);
  Select("cmdEdit", 40, 60);
  session_.Play("click Form6.cmdEditOK\n");
  ShowTogether("13");  // which takes a as it was before the zoom
  const Json before = Points("a");
  for (const char* command : {"cmdAccept", "cmdEditOK", "cmdEditNO", "Command15"}) {
    EXPECT_THAT(Told(std::string("click Form6.") + command + "\n"), HasSubstr("changed in another window"));
  }
  EXPECT_EQ(Points("a"), before);
  session_.Play("click Form6.cmdQuitEdit\n");
}

TEST_F(SeveralWindows, APlotOfSeveralIsNotMixedWithACutProfile) {
  ShowTogether("13");
  Select("cmdZoom", 44, 80);
  const Json before = session_.Value("buffer a")["PermX"];
  EXPECT_THAT(Told("modal click Form32.optA\nclick Form2.cmdSave\n"), HasSubstr("points, of which only"));
  EXPECT_EQ(session_.Value("buffer a")["PermX"], before);
  EXPECT_THAT(Told("click Form2.cmdMod\nclick Form8.Command1\n"), HasSubstr("buffer a has lost points"));
}

TEST_F(SeveralWindows, UndoZoomLeavesASelectionElsewhereAlone) {
  ShowTogether("23");
  session_.Play(
      "click Form2.cmdZoom\ndown Form2.Picture1 left 30 80\nmove Form2.Picture1 90 80\n"
      "up Form2.Picture1 left 90 80\nclick Form2.optOK\n");
  session_.Play(
      "click Form6.cmdZoom\ndown Form6.Picture1 left 44 50\nmove Form6.Picture1 80 50\n"
      "up Form6.Picture1 left 80 50\nclick Form15.cmdCancel\nclick Form6.optNO\n");
  EXPECT_EQ(session_.Value("state WorkYMax(a)"), 100);
  EXPECT_EQ(session_.Value("get Form6.Text6.Text"), "xmin 10");
}

TEST_F(SeveralWindows, ACardInTheBufferOfACurveIsNotWorkedOnThere) {
  session_.Play("modal click Form33.cmdComboOK\n" +
                WorkbenchSession::LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, 'a'));
  for (const char* command : {"cmdEdit", "cmdZoom", "cmdManExpl", "cmdMod", "cmdSave", "cmdPrint"}) {
    EXPECT_THAT(Told(std::string("click Form6.") + command + "\n"), HasSubstr("Display a profile first"))
        << command;
  }
}

TEST_F(SeveralWindows, AZoomOfCardsReadsInDegrees) {
  for (const char letter : {'d', 'e'}) {
    session_.Play("modal click Form33.cmdComboOK\n" +
                  WorkbenchSession::LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, letter));
  }
  ShowTogether("45");
  session_.Play(
      "click Form2.cmdZoom\ndown Form2.Picture1 left 30 80\nmove Form2.Picture1 90 80\n"
      "up Form2.Picture1 left 90 80\nclick Form2.optOK\nmove Form15.Picture1 60 50\n");
  const double two_theta = std::stod(session_.Value("get Form15.Text1.Text").get<std::string>().substr(8));
  const double d = std::stod(session_.Value("get Form15.Text2.Text").get<std::string>().substr(4));
  // Bragg's law for copper; both are shown in decimals, d in 4 of them.
  EXPECT_NEAR(d, 1.54184 / 2 / std::sin(two_theta / 2 * std::acos(-1.0) / 180), 1e-4);
}

}  // namespace
}  // namespace koprax
