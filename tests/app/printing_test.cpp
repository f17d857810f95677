// Print and pictures from the windows: what goes to the printer or into a file, and what stays as it was.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "app/script_values.h"
#include "app/workbench_session.h"
#include "display/colours_window.h"

namespace koprax {
namespace {

using testing::HasSubstr;

/// A profile of five points in buffer a, on the screen: a unit of X is 9.5, one of Y is 0.7125.
class Printing : public testing::Test {
 protected:
  Printing() {
    const std::string path =
        session_.File("five.xy", "Five\r\n1.5406\r\n10 0\r\n12.5 100\r\n15 0\r\n17.5 50\r\n20 0\r\n");
    session_.Play(WorkbenchSession::LoadCommands(path, 3, 'a'));
  }
  /// The lines on the printer from the first one of the curve on.
  Json PrintedCurve() {
    Json curve = Json::array();
    for (const Json& operation : session_.Value("picture Printer")) {
      if (operation["op"] == "line" && operation["y1"] != operation["y2"] &&
          operation["x1"] != operation["x2"]) {
        curve.push_back(
            {operation["x1"], operation["y1"], operation["x2"], operation["y2"], operation["colour"]});
      }
    }
    return curve;
  }
  std::string Quoted(const std::string& name) { return Json(session_.Folder() + "/" + name).dump(); }

  WorkbenchSession session_;
};

TEST_F(Printing, TakesThePermanentCopyAndGivesTheTransformBack) {
  session_.Data().Buffer(1).WorkY[2] = 70;  // a change that is not saved is not printed
  session_.Play("move Form6.Picture1 67.5 50\n");
  const Json before = session_.Value("get Form6.Text4.Text");
  const Json events = session_.Events("printer " + Quoted("page.pdf") + " copies 3\nclick Form6.cmdPrint\n");
  EXPECT_EQ(events, (Json{{{"event", "dialog"},
                           {"kind", "printer"},
                           {"filter", ""},
                           {"filterIndex", 0},
                           {"name", ""},
                           {"answer", session_.Folder() + "/page.pdf"}},
                          {{"event", "printed"}, {"file", session_.Folder() + "/page.pdf"}}}));
  // The axes meet at (95, 130); 9.5 mm for a degree, 0.7125 mm for a count.
  const auto y100 = static_cast<float>(130 - 100.0 * 0.7125F);
  EXPECT_EQ(PrintedCurve(), (Json{{95, 130, 118.75, JsonNumber(y100), 0},
                                  {118.75, JsonNumber(y100), 142.5, 130, 0},
                                  {142.5, 130, 166.25, 94.375, 0},
                                  {166.25, 94.375, 190, 130, 0}}));
  EXPECT_EQ(session_.Value("get Printer")["Orientation"], 2);
  EXPECT_EQ(session_.Value("get Printer")["ScaleMode"], 6);
  session_.Play("move Form6.Picture1 67.5 50\n");
  EXPECT_EQ(session_.Value("get Form6.Text4.Text"), before);
  EXPECT_EQ(session_.Value("state Upward"), 1);
}

TEST_F(Printing, ACancelPrintsNothing) {
  EXPECT_EQ(session_.Events("printer cancel\nclick Form6.cmdPrint\n").size(), 1U);
  EXPECT_EQ(session_.Value("picture Printer"), Json::array());
}

TEST_F(Printing, ABitmapIsSavedShownAndPrintedInScale) {
  session_.Play("file " + Quoted("plot.bmp") + "\nclick Form6.Command17\n");
  EXPECT_TRUE(std::filesystem::exists(session_.Folder() + "/plot.bmp"));
  EXPECT_EQ(session_.Value("state FileName"), session_.Folder() + "/plot.bmp");
  EXPECT_EQ(session_.Value("state BitmapSource"), 0);
  // The image that comes back has 2 x 1 pixels; a pixel is 15 twips.
  EXPECT_EQ(session_.Value("picture Form36.Picture1"),
            (Json{{{"op", "image"}, {"x", 0}, {"y", 0}, {"width", 30}, {"height", 15}}}));
  // A landscape page of A4 is 297 mm, 16837.8 twips, wide; half of it, in the middle of it.
  const Json events =
      session_.Events("input \"0.5\"\nprinter " + Quoted("b.pdf") + "\nclick Form36.Command1\n");
  EXPECT_EQ(events[1]["prompt"], "give a scale factor, 0 < scale factor < 1");
  EXPECT_EQ(events[1]["title"], "Scale factor");
  EXPECT_EQ(events[1]["default"], "0.5");
  const Json image = session_.Value("picture Printer")[0];
  EXPECT_NEAR(image["width"].get<double>(), 297 * 1440 / 25.4 / 2, 0.01);
  EXPECT_NEAR(image["x"].get<double>(), 297 * 1440 / 25.4 / 4, 0.01);
  EXPECT_EQ(session_.Value("get Printer")["Orientation"], 2);
}

TEST_F(Printing, TheScaleOfABitmap) {
  session_.Play("file " + Quoted("plot.bmp") + "\nclick Form6.Command17\n");
  for (const char* refused : {"2", "-0.1", "half", "1.001"}) {
    const Json events = session_.Events("input " + Json(refused).dump() + "\nclick Form36.Command1\n");
    EXPECT_THAT(events.back().value("text", ""), HasSubstr("no scale factor")) << refused;
  }
  for (const char* none : {"input cancel", "input \"\"", "input \"0\""}) {
    session_.Play(std::string(none) + "\nprinter " + Quoted("b.pdf") + "\nclick Form36.Command1\n");
    EXPECT_EQ(session_.Value("picture Printer")[0]["width"], 0) << none;
  }
  session_.Play("input \"1\"\nprinter cancel\nclick Form36.Command1\nclick Form36.Command2\n");
  EXPECT_EQ(session_.Value("get Form36")["Loaded"], false);
}

TEST_F(Printing, ABitmapThatIsGivenUpLeavesTheFileAlone) {
  const std::string path = session_.File("old.bmp", "old");
  const std::string start = "file " + Json(path).dump() + "\n";
  const Json events = session_.Events(start + "answer no\nclick Form6.Command17\n");
  EXPECT_EQ(events[0]["filter"], "All Files (*.*)|*.*| bmp Files (*.bmp)|*.bmp| ");
  EXPECT_EQ(events[0]["filterIndex"], 2);
  EXPECT_EQ(events[1]["text"], "file  " + path + "  already exists!!\r\n\r\nOverwrite ?");
  EXPECT_EQ(session_.Value("state BitmapSource"), 6);
  EXPECT_EQ(session_.Events("file cancel\nclick Form6.Command17\n").size(), 1U);
  session_.Platform().PictureFailure = "no space left";
  const Json failed = session_.Events(start + "answer yes\nclick Form6.Command17\n");
  EXPECT_THAT(failed.back().value("text", ""), HasSubstr("old.bmp:\r\nno space left"));
  EXPECT_EQ(session_.Value("get Form36")["Loaded"], false);
  std::string kept;
  std::ifstream(path) >> kept;
  EXPECT_EQ(kept, "old");
}

TEST_F(Printing, APrinterThatFailsIsTold) {
  session_.Platform().PrintFailure = "out of paper";
  const Json events = session_.Events("printer " + Quoted("p.pdf") + "\nclick Form6.cmdPrint\n");
  EXPECT_THAT(events.back().value("text", ""), HasSubstr("could not be printed: out of paper"));
}

TEST_F(Printing, TheColoursAreTakenOnlyByOk) {
  SilentServices services(session_);
  const auto ask = [&](const std::string& commands) {
    session_.Desk().Load<Form31>(services.Context)->Show();
    session_.Play(commands);
    return session_.Data().ProfileColourName + "," + session_.Data().BackgroundColourName;
  };
  EXPECT_EQ(ask("set Form31.Combo1 \"Blue\"\nclose Form31\n"), ",");
  EXPECT_EQ(ask("set Form31.Combo2 \"Cyano\"\nclick Form31.Command1\n"), "Black,Cyano");
}

/// The card of the examples in buffer b: ten reflections, 25.58 to 76.87 degrees with copper.
class CardWindow : public testing::Test {
 protected:
  CardWindow() {
    session_.Play("modal click Form33.cmdComboOK\n" +
                  WorkbenchSession::LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, 'b'));
  }
  WorkbenchSession session_;
};

TEST_F(CardWindow, ShowsTheCardAndReadsItUnderTheMouse) {
  EXPECT_EQ(session_.Value("get Form34.Text6.Text"), "4.75936");
  EXPECT_EQ(session_.Value("get Form34.Text11.Text"), "120");
  EXPECT_EQ(session_.Value("get Form34.Label3.Caption"), "R-3c");
  EXPECT_EQ(session_.Value("get Form34.Text3.Text"), "  l = 1.54184");
  EXPECT_EQ(session_.Value("get Form34.Label6.Font"), "symbol");
  const double xmin = session_.Data().Buffer(2).PermXMin - 5;
  const double xmax = session_.Data().Buffer(2).PermXMax + 5;
  session_.Play("move Form34.Picture1 62.5 99\n");  // half of the width; above the plot counts as its top
  const auto shown = [&](const char* box, std::size_t label) {
    return std::stod(
        session_.Value(std::string("get Form34.") + box + ".Text").get<std::string>().substr(label));
  };
  EXPECT_NEAR(shown("Text4", 4), (xmin + xmax) / 2, 1e-4);  // shown to 4 decimals
  EXPECT_NEAR(shown("Text5", 4), 120 / 0.95, 0.05);         // to one
  const double theta = (xmin + xmax) / 4 * std::acos(-1.0) / 180;
  EXPECT_NEAR(shown("Text12", 4), 1.54184 / 2 / std::sin(theta), 1e-4);
}

TEST_F(CardWindow, PrintsItsPage) {
  session_.Play("printer \"" + session_.Folder() + "/card.pdf\"\nclick Form34.cmdPrint\n");
  const Json page = session_.Value("picture Printer");
  std::vector<std::string> texts;
  for (const Json& operation : page) {
    if (operation["op"] != "text") continue;
    texts.push_back(Json{operation["x"], operation["y"], operation["font"], operation["text"]}.dump());
  }
  EXPECT_EQ(texts.front(), Json({30.0, 25.0, "Helvetica-narrow", session_.Data().Buffer(2).Title}).dump());
  for (const Json& line : {Json{145.0, 40.0, "courier", "Crystal Data"},  //
                           Json{145.0, 45.0, "courier", "a = 4.75936 alpha = 90 "},
                           Json{145.0, 55.0, "courier", "c = 12.99231 gamma = 120 "},
                           Json{145.0, 60.0, "courier", "SpaceGroup = R-3c"},
                           Json{145.0, 65.0, "courier", "Wave length =1.54184"}}) {
    EXPECT_THAT(texts, testing::Contains(line.dump()));
  }
  // The rows start at the left edge, 1.2 times 8 points below each other; the last of them has what is left.
  EXPECT_EQ(page.back()["x"], 0);
  const int rows = (session_.Data().Buffer(2).PermNpts + 2) / 3;
  EXPECT_NEAR(page.back()["y"].get<double>(), 135 + (rows - 1) * 1.2 * 8 * 25.4 / 72, 1e-4);
}

TEST_F(CardWindow, LacksWhatTheCardLacksAndTellsWhenTheCardIsGone) {
  ProfileBuffer& card = session_.Data().Buffer(2);
  card.CardCell = {0, 4.5F, 0, 0, 0, 0, 0};
  card.CardSpaceGroup = "";
  card.Wavelength = 0;
  session_.Play("click Form34.Command3\nclick Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n");
  EXPECT_EQ(session_.Value("get Form34.Text7.Text"), "");
  EXPECT_EQ(session_.Value("get Form34.Text3.Text"), "");
  session_.Play("move Form34.Picture1 50 20\nprinter \"" + session_.Folder() +
                "/c.pdf\"\nclick Form34.cmdPrint\n");
  EXPECT_EQ(session_.Value("get Form34.Text12.Text"), "d = 0");
  const std::string page = session_.Value("picture Printer").dump();
  EXPECT_THAT(page, HasSubstr("\"a = 4.5 alpha =        \""));
  EXPECT_THAT(page, HasSubstr("\"b =           beta  =        \""));
  EXPECT_THAT(page, testing::Not(HasSubstr("SpaceGroup")));
  const Json told =
      session_.Events("answer yes\nclick Form1.cmdDelBuff\nclick Form17.optB\nclick Form34.cmdPrint\n");
  EXPECT_THAT(told.back().value("text", ""), HasSubstr("Buffer b holds no card"));
}

}  // namespace
}  // namespace koprax
