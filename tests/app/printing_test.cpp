// Print and pictures from the windows: what goes to the printer or into a file, and what stays as it was.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "app/journey.h"
#include "app/script_values.h"

namespace koprax {
namespace {

using testing::HasSubstr;

/// A profile of five points in buffer a, on the screen: a unit of X is 9.5, one of Y is 0.7125.
class Printing : public Journey {
 protected:
  Printing() { Load('a', "10 0\r\n12.5 100\r\n15 0\r\n17.5 50\r\n20 0\r\n"); }
  /// The lines on the printer from the first one of the curve on.
  Json PrintedCurve() {
    Json curve = Json::array();
    for (const Json& operation : Value("picture Printer")) {
      if (operation["op"] == "line" && operation["y1"] != operation["y2"] &&
          operation["x1"] != operation["x2"]) {
        curve.push_back(
            {operation["x1"], operation["y1"], operation["x2"], operation["y2"], operation["colour"]});
      }
    }
    return curve;
  }
  Json Print(const std::string& click) { return Events(OnPage() + "\nclick " + click + "\n"); }
  std::string OnPage() { return "printer " + Json(Folder() + "/page.pdf").dump(); }
};

TEST_F(Printing, TakesThePermanentCopyAndGivesTheTransformBack) {
  Data().Buffer(1).WorkY[2] = 70;  // a change that is not saved is not printed
  Move("Form6", "67.5 50");
  const Json before = Get("Form6.Text4.Text");
  const Json events = Events(OnPage() + " copies 3\nclick Form6.cmdPrint\n");
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0]["kind"], "printer");
  EXPECT_EQ(events[1], (Json{{"event", "printed"}, {"file", Folder() + "/page.pdf"}}));
  // The axes meet at (95, 130); 9.5 mm for a degree, 0.7125 mm for a count.
  const auto y100 = static_cast<float>(130 - 100.0 * 0.7125F);
  EXPECT_EQ(PrintedCurve(), (Json{{95, 130, 118.75, JsonNumber(y100), 0},
                                  {118.75, JsonNumber(y100), 142.5, 130, 0},
                                  {142.5, 130, 166.25, 94.375, 0},
                                  {166.25, 94.375, 190, 130, 0}}));
  EXPECT_EQ(Get("Printer")["Orientation"], 2);
  EXPECT_EQ(Get("Printer")["ScaleMode"], 6);
  Move("Form6", "67.5 50");
  EXPECT_EQ(Values("Form6.Text4.Text Upward"), (Json{before, 1}));
}

TEST_F(Printing, OfOneProfileLeavesOutWhatLiesOutsideOrPassesTheTop) {
  ProfileBuffer& buffer = Data().Buffer(1);
  buffer.PermNpts = 6;
  for (std::size_t i = 1; i <= 6; ++i) buffer.PermY[i] = 10 * static_cast<float>(i);
  const std::vector<float> x{8, 9, 11, 19, 21, 22};  // in a plot from 10 to 20
  std::copy(x.begin(), x.end(), buffer.PermX.begin() + 1);
  Print("Form6.cmdPrint");
  Json curve = PrintedCurve();
  ASSERT_EQ(curve.size(), 3U) << "a segment with one end in the range stands whole";
  EXPECT_EQ(curve[0][0], 85.5);
  EXPECT_EQ(curve[2][2], 199.5);
  buffer.PermY[4] = 106;  // 75 mm, the height of the plot, are 105.26 counts
  Print("Form6.cmdPrint");
  EXPECT_EQ(PrintedCurve().size(), 1U);
  // 0.475 mm a count, the zero line at 130 - 50 * 0.475.
  Load('b', "10 -50\r\n20 100\r\n");
  Print("Form6.cmdPrint");
  EXPECT_EQ(PrintedCurve(), (Json{{95, 130, 190, 58.75, 0}}));
}

TEST_F(Printing, OfSeveralTakesWorkYAtPermXInTheColoursOfThePlotWhole) {
  Load('b', "10 10\r\n20 40\r\n");
  Display("ab");
  ProfileBuffer& b = Data().Buffer(2);
  b.WorkX[1] = 12;
  b.PermY[1] = 0;
  b.PermX[2] = 25;   // beyond the frame
  b.WorkY[2] = 200;  // above it
  Print("Form2.Command1");
  const Json curve = PrintedCurve();
  ASSERT_EQ(curve.size(), 5U);
  EXPECT_EQ(curve[0][4], 16711935);
  EXPECT_EQ(curve[4],
            (Json{95, 130 - 7.125, 237.5, JsonNumber(static_cast<float>(130 - 200.0 * 0.7125F)), 16711680}));
}

TEST_F(Printing, TellsWhatIsErasedAndPrintsWithoutASpanOfY) {
  Load('b', "10 0\r\n20 0\r\n");
  Data().Buffer(2).PermY[2] = 10;
  Print("Form6.cmdPrint");
  EXPECT_EQ(Value("picture Printer").size(), 5U) << "the frame and the curve";
  EXPECT_EQ(PrintedCurve(), (Json{{95, 130, 190, JsonNumber(130 - 7.125F), 0}}));  // in the scale of before
  Display("ab");
  Erase('a');
  Erase('b');
  EXPECT_THAT(After("Form6.cmdPrint").back(), HasSubstr("holds no points"));
  EXPECT_THAT(After("Form2.Command1").back(), HasSubstr("have been erased"));
}

TEST_F(Printing, ABitmapIsSavedShownAndPrintedInScale) {
  const std::string path = Folder() + "/plot.bmp";
  Play(FileAnswer(path) + "click Form6.Command17\n");
  EXPECT_EQ(Values("FileName BitmapSource"), (Json{path, 0}));
  // The image that comes back has 2 x 1 pixels; a pixel is 15 twips.
  EXPECT_EQ(Value("picture Form36.Picture1"),
            (Json{{{"op", "image"}, {"x", 0}, {"y", 0}, {"width", 30}, {"height", 15}}}));
  const auto print = [&](const std::string& answer) {
    return Events("input " + answer + "\n" + OnPage() + "\nclick Form36.Command1\n");
  };
  print("\"0.5\"");
  // A landscape page of A4 is 297 mm, 16837.8 twips, wide; half of it.
  const auto width = [&] { return Value("picture Printer")[0]["width"].get<double>(); };
  EXPECT_NEAR(width(), 297 * 1440 / 25.4 / 2, 0.01);
  for (const char* none : {"cancel", "\"\"", "\"0\""}) {
    print(none);
    EXPECT_EQ(width(), 0) << none;
  }
  for (const char* refused : {"2", "-0.1", "half", "1.001"}) {
    EXPECT_THAT(Words("input \"" + std::string(refused) + "\"\nclick Form36.Command1\n").back(),
                HasSubstr("no scale factor"));
  }
  Play("input \"1\"\nprinter cancel\nclick Form36.Command1\nclick Form36.Command2\n");
  EXPECT_FALSE(IsLoaded("Form36"));
}

TEST_F(Printing, EachWindowSavesItsOwnPicture) {
  const auto save = [&](const std::string& form, const std::string& button) {
    const std::string path = Folder() + "/" + form + ".bmp";
    Play(FileAnswer(path) + "click " + form + "." + button + "\n");
    const auto& picture = dynamic_cast<PictureBox&>(*Desk().Find(form)->Find("Picture1"));
    EXPECT_EQ(Platform().Pictures[path], picture.Operations());
  };
  save("Form6", "Command17");
  Load('b', "10 10\r\n20 40\r\n");
  Display("ab");
  save("Form2", "cmdBitMap");
  Select("Form2", "cmdZoom", "40 80", "80 20");
  save("Form15", "Command1");
}

TEST_F(Printing, ABitmapThatIsGivenUpLeavesTheFileAlone) {
  const std::string path = File("old.bmp", "old");
  const auto save = [&](const std::string& answers) { return Words(answers + "click Form6.Command17\n"); };
  EXPECT_EQ(save(FileAnswer(path) + "answer no\n").size(), 2U);
  EXPECT_EQ(Value("state BitmapSource"), 6);
  EXPECT_EQ(save("file cancel\n").size(), 1U);
  Platform().PictureFailure = "no space left";
  EXPECT_THAT(save(FileAnswer(path) + "answer yes\n").back(), HasSubstr("old.bmp:\r\nno space left"));
  EXPECT_FALSE(IsLoaded("Form36"));
  EXPECT_EQ(BytesOf(path), "old");
}

/// The card of the examples in buffer b.
class CardWindow : public Journey {
 protected:
  CardWindow() { LoadCard('b'); }
  Json PrintedPage() {
    Play("printer \"" + Folder() + "/card.pdf\"\nclick Form34.cmdPrint\n");
    return Value("picture Printer");
  }
};

TEST_F(CardWindow, OpensWithTheWavelengthThatItsPromptHolds) {
  EXPECT_EQ(Value("forms")[0], "Form34");
  EXPECT_EQ(Data().Buffer(2).Wavelength, 1.54184F);
  Play("close Form34\n");
  Display("b");
  EXPECT_EQ(Value("forms")[0], "Form34");
  const auto load = [&](const std::string& text, const std::string& act) {
    Data().Buffer(3).Wavelength = 7;
    Play("modal set Form33.Combo1 \"" + text + "\"\nmodal " + act + "\n" +
         LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, 'c'));
    return Data().Buffer(3).Wavelength;
  };
  EXPECT_EQ(load("0.70930 remark 5", "click Form33.cmdComboOK"), 0.7093F);
  EXPECT_EQ(load("1.5406", "close Form33"), 1.5406F);
  for (const char* text : {"copper", "0", "-1.5", "1E39"}) {
    EXPECT_EQ(load(text, "click Form33.cmdComboOK"), 0) << text;
    EXPECT_EQ(Data().Buffer(3).PermNpts, 0) << text;
  }
}

TEST_F(CardWindow, ReadsTheCardUnderTheMouse) {
  const double xmin = Data().Buffer(2).PermXMin - 5;
  const double xmax = Data().Buffer(2).PermXMax + 5;
  Move("Form34", "62.5 99");  // half of the width; above the plot counts as its top
  const auto shown = [&](const std::string& box) {
    return std::stod(Get("Form34." + box + ".Text").get<std::string>().substr(4));
  };
  EXPECT_NEAR(shown("Text4"), (xmin + xmax) / 2, 1e-4);  // shown to 4 decimals
  EXPECT_NEAR(shown("Text5"), 120 / 0.95, 0.05);         // to one
  const double theta = (xmin + xmax) / 4 * std::acos(-1.0) / 180;
  EXPECT_NEAR(shown("Text12"), 1.54184 / 2 / std::sin(theta), 1e-4);
}

TEST_F(CardWindow, PrintsItsPage) {
  const Json page = PrintedPage();
  std::vector<std::string> texts;
  for (const Json& operation : page) {
    if (operation["op"] != "text") continue;
    texts.push_back(Json{operation["x"], operation["y"], operation["font"], operation["text"]}.dump());
  }
  EXPECT_EQ(texts.front(), Json({30.0, 25.0, "Helvetica-narrow", Data().Buffer(2).Title}).dump());
  const char* const heading =
      "   H   K   L  Int.  d      2theta  "
      "   H   K   L  Int.  d      2theta  "
      "   H   K   L  Int.  d      2theta";
  for (const Json& line :
       {Json{145.0, 40.0, "courier", "Crystal Data"},  //
        Json{145.0, 45.0, "courier", "a = 4.75936 alpha = 90 "},
        Json{145.0, 50.0, "courier", "b = 4.75936 beta  = 90 "}, Json{10.0, 130.0, "courier", heading},
        Json{145.0, 55.0, "courier", "c = 12.99231 gamma = 120 "},
        Json{145.0, 60.0, "courier", "SpaceGroup = R-3c"},
        Json{145.0, 65.0, "courier", "Wave length =1.54184"}}) {
    EXPECT_THAT(texts, testing::Contains(line.dump()));
  }
  // The axes meet at (35, 110); 95 mm for the reflections and 5 degrees around, 71.25 mm for 120.
  const ProfileBuffer& card = Data().Buffer(2);
  std::size_t i = 0;
  for (const Json& line : page) {
    if (line["op"] != "line" || line["y1"] != 110 || line["y2"] == 110 || line["y2"] == 35) continue;
    ++i;
    const double x = 35 + 95.0 / (card.PermXMax - card.PermXMin + 10) * (card.PermX[i] - card.PermXMin + 5);
    EXPECT_NEAR(line["x1"].get<double>(), x, 1e-4);
    EXPECT_EQ(line["x2"], line["x1"]);
    EXPECT_NEAR(line["y2"].get<double>(), 110 - 71.25 / 120 * card.PermY[i], 1e-4);
  }
  EXPECT_EQ(i, static_cast<std::size_t>(card.PermNpts));
  // The rows start at the left edge, 1.2 times 8 points below each other; the last of them has what is left.
  EXPECT_EQ(page.back()["x"], 0);
  const int rows = (Data().Buffer(2).PermNpts + 2) / 3;
  EXPECT_NEAR(page.back()["y"].get<double>(), 135 + (rows - 1) * 1.2 * 8 * 25.4 / 72, 1e-4);
}

TEST_F(CardWindow, PrintsBesideAPlotThatReachesBelowZero) {
  Load('a', "10 -50\r\n80 100\r\n");
  Display("ab");
  const auto read = [&] {
    Move("Form2", "67.5 50");
    return Get("Form2.Text4.Text");
  };
  const Json before = read();
  Data().CurBuf = 2;
  ASSERT_EQ(Data().Current().NegativeY, 1);
  PrintedPage();
  EXPECT_EQ(Data().Current().NegativeY, 1);
  EXPECT_EQ(read(), before);
}

TEST_F(CardWindow, LacksWhatTheCardLacksAndTellsWhenTheCardIsGone) {
  ProfileBuffer& card = Data().Buffer(2);
  card.CardCell = {0, 4.5F, 0, 0, 0, 0, 0};
  card.CardSpaceGroup = "";
  card.PermX[1] = 3;
  const auto show_anew = [&] {
    Click("Form34.Command3");
    Display("b");
  };
  show_anew();
  Move("Form34", "13 20");  // there is no d at or below 0
  EXPECT_EQ(Values("Form34.Text4.Text Form34.Text12.Text Form34.Label3.Caption"),
            (Json{"x = -2", "d = 0", "not given"}));
  card.Wavelength = 0;
  show_anew();
  Move("Form34", "50 20");
  EXPECT_EQ(Values("Form34.Text7.Text Form34.Text3.Text Form34.Text12.Text"), (Json{"", "", "d = 0"}));
  const std::string page = PrintedPage().dump();
  EXPECT_THAT(page, HasSubstr("\"a = 4.5 alpha =        \""));
  EXPECT_THAT(page, HasSubstr("\"b =           beta  =        \""));
  EXPECT_THAT(page, testing::Not(HasSubstr("SpaceGroup")));
  EXPECT_THAT(page, testing::Not(HasSubstr("Wave length")));
  Erase('b');
  EXPECT_THAT(After("Form34.cmdPrint").back(), HasSubstr("Buffer b holds no card"));
}

}  // namespace
}  // namespace koprax
