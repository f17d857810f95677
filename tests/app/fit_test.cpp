// The Peak fit window, played from the range to the saved list: what shows and is live in each stage, what is
// asked and told, and what is drawn. The numbers of model and minimiser are tested beside them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "app/journey.h"
#include "fit/peak_model.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

/// From 20 to 29.5 degrees in steps of 0.05, which are half a unit of the picture each: two Gaussian lines on
/// a background that rises from 100 by 2 a degree.
std::string TwoLines() {
  std::string text;
  for (int i = 0; i <= 190; ++i) {
    const double x = 20 + 0.05 * i;
    const auto line = [x](double position, double height, double width) {
      return height * std::exp(-4 * std::log(2.0) * std::pow((x - position) / width, 2));
    };
    const double y = 100 + 2 * (x - 20) + line(23, 1000, 0.3) + line(26, 600, 0.4);
    text += RoundedText(x, 2) + " " + RoundedText(y, 3) + "\r\n";
  }
  return text;
}

class Fit : public Journey {
 protected:
  Fit() {
    Load('a', TwoLines());
    Click("Form6.cmdMain Form1.cmdFit Form10.optA");
  }

  void Press(const std::string& place, const std::string& button = "left") {
    Play("down Form19.Picture1 " + button + " " + place + "\nup Form19.Picture1 " + button + " " + place +
         "\n");
  }
  void Move(const std::string& place) { Play("move Form19.Picture1 " + place + "\n"); }
  /// The range from 22 to 27.5 degrees.
  void SelectRange() {
    Click("Form19.cmdSelectRange");
    Press("40 50");
    Press("95 50");
    Click("Form19.optOK");
  }
  /// The line of the background, as a user sees it.
  void DrawLine() {
    SelectRange();
    Click("Form19.cmdDefBkg");
    Press("20 " + PictureYOf(104));
    Press("115 " + PictureYOf(115));
    Click("Form19.optOK Form19.Command5");
  }
  std::string PictureYOf(double y) {
    const Json plot = Values("PlotBottom ScaleY");
    return RoundedText(plot[0].get<double>() + plot[1].get<double>() * y, 4);
  }
  /// What a press on the picture leads to, with the answers to the width question and whether it is right.
  std::vector<std::string> Pick(const std::string& place, const std::string& answers) {
    return WordsOf(
        Play(answers + "down Form19.Picture1 left " + place + "\n").back().value("events", Json::array()));
  }
  /// Both lines by the mouse, their widths read off the plot.
  void PickBoth() {
    Click("Form19.cmdSelPeaks");
    Pick("37.273 60", "input \"0.4\"\nanswer yes\n");
    Pick("89.091 60", "input \"0.4\"\nanswer yes\n");
  }
  void Confirm() { Play("click Form19.cmdShowParam\nanswer yes\nclick Form20.Command2\n"); }
  std::string Text(int box) { return Get("Form19.Text" + std::to_string(box) + ".Text"); }
  bool Shows(const std::string& control) { return Get("Form19." + control + ".Visible").get<bool>(); }
  std::string Frames() {
    std::string frames;
    for (const char* frame : {"1", "3", "4"}) {
      if (Shows(std::string("Frame") + frame)) frames += frame;
    }
    return frames;
  }
  /// How many operations of a kind and colour are on the picture.
  int Drawn(const std::string& kind, Colour colour) {
    int count = 0;
    for (const Json& operation : Value("picture Form19.Picture1")) {
      count += operation["op"] == kind && operation["colour"] == colour ? 1 : 0;
    }
    return count;
  }
};

TEST_F(Fit, SelectsARangeByTwoClicksInEitherOrder) {
  EXPECT_EQ(Text(8), "l = 1.5406");
  EXPECT_EQ(Text(18), "0 selected peaks");
  EXPECT_EQ(Switches("Form19", "cmdSelectRange cmdMain cmdShowParam"), "++-");
  EXPECT_EQ(Values("ModeFit Form19.Frame1.Visible Form19.Line1.Visible"), Json({0, false, false}));
  Move("30 50");
  EXPECT_EQ(Text(3), "x = 21");
  EXPECT_EQ(Text(10) + " " + Text(14) + " " + Text(15), "21 21 4.2269");  // 1.5406 / (2 sin 10.5)
  Click("Form19.cmdSelectRange");
  EXPECT_EQ(Get("Form19.Picture1.MousePointer"), 9);
  Move("30 50");
  EXPECT_EQ(Values("Form19.Line1.X1 Form19.Line1.X2 Form19.Line2.Visible"), Json({30, 30, false}));
  Press("95 50");
  Move("60 50");
  EXPECT_EQ(Text(3), "x = 24");
  EXPECT_EQ(Values("Form19.Line1.X1 Form19.Line2.X1"), Json({95, 60}));
  Press("2 50");  // left of the plot only the first limit is held
  EXPECT_EQ(Text(16), "lower limit = 18.2");
  EXPECT_EQ(Text(17), "upper limit = 27.5");
  Click("Form19.optNO");
  EXPECT_EQ(Values("Form19.optOK.Visible Form19.Text16.Text Form19.Picture1.MousePointer"),
            Json({false, " ", 9}));
  Press("2 50");
  Press("200 50");
  EXPECT_EQ(Text(16) + ", " + Text(17), "lower limit = 20, upper limit = 29.5");
  Click("Form19.optNO");
  Press("200 50");
  Press("60.333 50");
  EXPECT_EQ(Text(16) + ", " + Text(17), "lower limit = 24.033, upper limit = 38");
  Click("Form19.optNO");
  Press("50 50");
  Press("50 50");
  EXPECT_THAT(After("Form19.optOK"), ElementsAre(HasSubstr("The range has no width.")));
  EXPECT_EQ(Frames(), "");
  Press("95 50");
  Press("40 50");
  Click("Form19.optOK");
  EXPECT_EQ(Text(6) + ", " + Text(7), "xmin 22, xmax 27.5");
  EXPECT_EQ(Frames(), "1");
  EXPECT_EQ(Switches("Form19", "cmdSelectRange"), "-");
  // Both limits are in the range: point 41 is at 22, point 151 at 27.5.
  EXPECT_EQ(Value("state FitPointCount"), 111);
  EXPECT_EQ(Value("state FitX")[1], 22);
  EXPECT_EQ(Value("state FitX")[111], 27.5);
  for (int i = 0; i < 4; ++i) Press("60 50");  // which select nothing any more
  Move("20 50");
  EXPECT_EQ(Text(3), "x = 22");
  EXPECT_FALSE(Shows("optOK"));
}

TEST_F(Fit, ThePictureTellsWhatTheMouseDoes) {
  const std::string left = "down Form19.Picture1 left 40 50\n";
  const std::string right = "down Form19.Picture1 left 95 60\n";
  ExpectTips("Form19.Picture1", {{"forms\n", "boxes"},
                                 {"click Form19.cmdSelectRange\n", "one end"},
                                 {left, "other end"},
                                 {right, "range between"}});
  EXPECT_TRUE(PressEscape("Form19"));
  ExpectTips("Form19.Picture1", {{"forms\n", "one end"},
                                 {left + right + "click Form19.optOK\n", "boxes"},
                                 {"click Form19.cmdDefBkg\n", "begins"},
                                 {left, "ends"},
                                 {right, "takes the line"},
                                 {"click Form19.optNO\n", "begins"},
                                 {"click Form19.Command2\n", "boxes"},
                                 {"click Form19.Command5\nclick Form19.cmdSelPeaks\n", "right button ends"},
                                 {"down Form19.Picture1 right 40 50\n", "boxes"},
                                 {"click Form19.cmdSelPeaks\nclick Form19.Command10\n", "boxes"}});
}

TEST_F(Fit, DrawsTheBackgroundAsALine) {
  SelectRange();
  Click("Form19.cmdDefBkg");
  EXPECT_EQ(Values("FitPolyBackground Form19.Line3.Visible Form19.Line3.X2"), Json({-1, true, 2}));
  Press("110 " + PictureYOf(120));
  Move("60 70");
  EXPECT_EQ(Values("Form19.Line3.X1 Form19.Line3.X2 Form19.Line3.Y2"), Json({110, 60, 70}));
  EXPECT_THAT(WordsOf(Play("down Form19.Picture1 left 110 50\n").back()["events"]),
              ElementsAre(HasSubstr("same x")));
  EXPECT_FALSE(Shows("optOK"));
  Press("110 " + PictureYOf(120));
  Press("20 " + PictureYOf(102));
  const Json line = Value("state FitLine");
  EXPECT_EQ(line[1], 22);
  EXPECT_NEAR(line[2].get<double>(), 102, 0.01);  // the picture's units are rounded
  EXPECT_NEAR(line[3].get<double>(), 18 / (90 * 5.5 / 95), 0.01);
  EXPECT_EQ(Value("state FitParam")[73], line[2]);
  EXPECT_EQ(Value("state FitParam")[74], line[3]);
  Click("Form19.optNO");
  EXPECT_EQ(Values("Form19.Line3.X1 Form19.Line3.X2 Form19.optOK.Visible"), Json({1, 2, false}));
  Click("Form19.Command2");  // with no line left there is no polynomial
  EXPECT_EQ(Values("FitPolyBackground FitOrigin"), Json({0, 0}));
  // A line that was accepted stands as long as the next one isn't complete.
  Click("Form19.cmdDefBkg");
  Press("20 " + PictureYOf(102));
  Press("110 " + PictureYOf(120));
  Click("Form19.optOK Form19.cmdDefBkg");
  Press("20 50");
  Press("110 50");
  Click("Form19.optNO Form19.Command5");
  EXPECT_EQ(Values("FitPolyBackground FitLine"), Json({-1, line}));
  EXPECT_EQ(Value("state FitParam")[74], line[3]);
  EXPECT_EQ(Frames(), "3");
}

TEST_F(Fit, TakesAMeasuredBackgroundFromABuffer) {
  Load('b', "22 50\r\n23 60\r\n24 70\r\n40 80\r\n");
  Click("Form6.cmdMain Form1.cmdFit Form10.optA");
  SelectRange();
  EXPECT_THAT(After("Form19.Command2"), ElementsAre("shown Form21"));
  EXPECT_EQ(Get("Form21.Text3.Text"), " Empty");
  EXPECT_THAT(After("Form21.optC"), ElementsAre(HasSubstr("Buffer c holds no profile."), "unloaded Form21"));
  EXPECT_EQ(Value("state FitParam")[77], 0);
  Click("Form19.cmdDefBkg");
  Press("20 20");
  Press("115 20");
  Click("Form19.optOK Form19.Command2");
  EXPECT_EQ(Value("state FitPolyBackground"), 0);
  EXPECT_THAT(After("Form19.cmdDefBkg"), Contains("unloaded Form21"));  // the line is still there
  EXPECT_EQ(Value("state FitPolyBackground"), -1);
  Click("Form19.Command2");
  EXPECT_THAT(After("Form21.optB"), ElementsAre("unloaded Form21"));
  EXPECT_EQ(Values("CurBuf FitPolyBackground"), Json({1, 0}));
  const Json background = Value("state FitBackgroundY");
  EXPECT_EQ(Json({background[1], background[2], background[3], background[4]}), Json({50, 60, 70, 0}));
  EXPECT_EQ(Value("state BackgroundX")[4], 40);
  EXPECT_EQ(Value("state FitParam")[77], 1);
  EXPECT_EQ(Drawn("line", colours::Magenta), 110);
}

TEST_F(Fit, LeavesTheManipulationWindowItsOwnBackground) {
  Play("click Form1.cmdAnal\nclick Form10.optA\ninput \"30\"\ninput \"n\"\nclick Form12.cmdBckg\n");
  const Json estimate = Value("state BackgroundY");
  Click("Form19.cmdSelectRange");
  Press("40 50");
  Load('b', "10 5\r\n20 7\r\n");  // whose window draws in another scale
  Press("95 50");
  EXPECT_EQ(Text(17), "upper limit = 27.5");
  Click("Form19.optOK Form19.Command2 Form21.optA");
  EXPECT_NE(Value("state BackgroundY"), estimate);
  Click("Form12.cmdSave Form16.optC");
  EXPECT_EQ(Value("state PermY(c)")[50], estimate[50]);
}

TEST_F(Fit, SelectsPeaksUntilThereAreTwelve) {
  DrawLine();
  Click("Form19.cmdSelPeaks");
  EXPECT_EQ(Values("Form19.Picture1.MousePointer Form19.Line4.Visible"), Json({2, true}));
  Move("37.3 50");
  EXPECT_NEAR(Get("Form19.Line4.X2").get<double>(), 37.3, 1e-5);
  const auto asks = testing::StartsWith("FWHM: ");
  const auto shows = testing::StartsWith("Peak's FWHM");
  EXPECT_THAT(Pick("37.273 90",
                   "input \"\"\ninput \"wide\"\ninput \"0.2\"\nanswer no\ninput \"0.3004\"\nanswer yes\n"),
              ElementsAre(asks, asks, HasSubstr("\"wide\" gives no width."), asks, shows, asks, shows));
  EXPECT_EQ(Text(18), "1 selected peaks");
  const Json parameters = Value("state FitParam");
  EXPECT_NEAR(parameters[1].get<double>(), 23, 1e-3);
  // The top is the greater of two points; below it lies the line from 104 to 115, at 2 a degree.
  EXPECT_NEAR(parameters[2].get<double>(), 1106 - 106, 0.1);
  EXPECT_EQ(Json({parameters[3], parameters[4], parameters[5], parameters[6]}), Json({0.3, 0.3, 0.5, 0.5}));
  EXPECT_EQ(Drawn("line", colours::Blue), 1);
  // From 22 degrees, where the range begins, to 6 widths behind the peak; the first attempt was erased.
  EXPECT_EQ(Drawn("point", colours::White), 45);
  EXPECT_EQ(Drawn("point", colours::Red), 45 + 57);
  Press("60 50", "right");
  EXPECT_EQ(Values("Form19.Line4.Visible Form19.Picture1.MousePointer"), Json({false, 1}));
  Press("60 50");
  EXPECT_EQ(Value("state FitPeakCount"), 1);
  Click("Form19.cmdSelPeaks");
  for (int peak = 2; peak <= 11; ++peak) Pick("60 50", "input \"0.3\"\nanswer yes\n");
  EXPECT_EQ(Pick("60 50", "input \"0.3\"\nanswer yes\n").size(), 3U);
  EXPECT_EQ(Switches("Form19", "cmdSelPeaks cmdLoadPeaks"), "--");
  EXPECT_FALSE(Shows("Line4"));
  EXPECT_EQ(Text(18), "12 selected peaks");
}

TEST_F(Fit, TakesTheListOfTheBufferWithinTheRange) {
  ProfileBuffer& buffer = Data().Buffer(1);
  buffer.NPeaks = 20;
  const char* const positions[] = {"", "21.9", "22", "23.00049", "27.5", "26"};
  for (std::size_t i = 1; i <= 20; ++i) {
    buffer.PeakTheta[i] = i < 6 ? positions[i] : "24";
    buffer.PeakY[i] = "500.125";
  }
  DrawLine();
  std::string answers;
  for (int i = 0; i < 12; ++i) answers += "input \"0.3\"\nanswer yes\n";
  // The upper limit isn't in the range, and the thirteenth isn't asked for.
  EXPECT_THAT(Words(answers + "click Form19.cmdLoadPeaks\n").back(), HasSubstr("You have selected 12 peaks"));
  EXPECT_EQ(Switches("Form19", "cmdSelPeaks cmdLoadPeaks"), "--");
  const Json parameters = Value("state FitParam");
  EXPECT_EQ(Json({parameters[1], parameters[7], parameters[13], parameters[19]}), Json({22, 23, 26, 24}));
  EXPECT_NEAR(parameters[2].get<double>(), 500.12 - 104, 0.01);
  EXPECT_EQ(Value("state FitPeakCount"), 12);
}

// In channels, with a measured background that is known up to channel 150, and below 0.
TEST_F(Fit, ReadsAndDrawsFromTheZeroLine) {
  std::string text;
  for (int i = 0; i <= 95; ++i) text += std::to_string(100 + i) + (i == 50 ? " 200.126" : " -40") + "\r\n";
  Load('b', text);
  ProfileBuffer& buffer = Data().Buffer(2);
  buffer.FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);
  buffer.CalPar = {0, 10, 0.1};
  buffer.NPeaks = 2;
  buffer.PeakChannel = {"", "150", "150.5"};
  buffer.PeakY = {"", "200", "300"};
  Click("Form6.cmdMain Form1.cmdFit Form10.optB Form19.cmdSelectRange");
  Press("20 50");
  Press("70.7 50");
  Click("Form19.optOK");
  const double zero = Value("state ZeroY");
  const double scale = Value("state ScaleY");
  EXPECT_GT(zero, 20);
  Move("115 " + RoundedText(zero + 100 * scale, 4));
  EXPECT_EQ(Text(3) + ", " + Text(10) + ", " + Text(14), "x = 150.7, 150.7, 25.07");
  EXPECT_NEAR(LeadingNumber(Text(4).substr(4)), 100, 1e-3);
  EXPECT_NEAR(Value("picture Form19.Picture1").back()["y2"], zero + 200.126 * scale, 1e-4);
  Click("Form19.Command2 Form21.optB Form19.Command5");
  Play("input \"4\"\nanswer yes\ninput \"4\"\nanswer yes\nclick Form19.cmdLoadPeaks\n");
  Click("Form19.cmdSelPeaks");
  Pick("114.9 50", "input \"4\"\nanswer yes\n");  // beyond channel 150
  const Json parameters = Value("state FitParam");
  // The first stands on the last point of the background. The second, right of it, takes its height; by the
  // mouse it has none.
  EXPECT_EQ(Json({parameters[1], parameters[7], parameters[14]}), Json({150, 150.5, 0}));
  EXPECT_NEAR(parameters[2].get<double>(), 200 - 200.126, 1e-5);
  EXPECT_EQ(parameters[8], parameters[2]);
  std::vector<double> marker;
  for (const Json& operation : Value("picture Form19.Picture1")) {
    if (operation["op"] == "line" && operation["colour"] == colours::Blue)
      marker = {operation["y1"], operation["y2"]};
  }
  EXPECT_NEAR(marker.at(0), zero + 200.13 * scale + 3, 1e-4);  // of the rounded height
  EXPECT_NEAR(marker.at(1), 95, 1e-4);                         // the top of the frame
}

// The choice of a buffer for a fit is never taken for one of a load, which would write over it.
TEST_F(Fit, IsWhatItsPickerLeadsToWhenAnotherFitIsLeft) {
  Load('b', "22 50\r\n23 60\r\n24 70\r\n");
  const std::string points = Value("state PermNpts(b)").dump();
  Play("click Form1.cmdFit\nclick Form19.cmdMain\n");
  EXPECT_THAT(After("Form10.optA"), Contains("shown Form19"));
  EXPECT_EQ(Value("state PermNpts(a)"), 191);
}

TEST_F(Fit, RefinesInRunsOfFiveAndDrawsTheResult) {
  DrawLine();
  PickBoth();
  Click("Form19.Command10");
  EXPECT_EQ(Switches("Form19", "cmdShowParam cmdStartFit cmdSave"), "+--");
  EXPECT_EQ(Frames(), "4");
  Confirm();
  EXPECT_EQ(Switches("Form19", "cmdStartFit cmdSave"), "++");
  ParameterTable derivatives{};
  double starting_sum = 0;
  for (int i = 1; i <= 111; ++i) {
    const PeakFit& fit = Data().Fit;
    starting_sum +=
        std::pow(fit.FitY[static_cast<std::size_t>(i)] - PeakModel(fit, i, fit.FitParam, derivatives), 2);
  }
  std::vector<double> progress;
  for (const Json& event : Click("Form19.cmdStartFit")) {
    if (event["event"] == "refresh") progress.push_back(event["X2"]);
    if (event["event"] == "pointer") progress.push_back(event["pointer"]);
  }
  EXPECT_THAT(progress, ElementsAre(11, 400, 800, 1200, 1600, 2000, 2400, 1));
  EXPECT_EQ(Values("FitRunning FitStopping Form19.Line5.X2"), Json({-1, 0, 2}));
  const auto chi = [this](int box) {
    return LeadingNumber(Get("Form22.Text" + std::to_string(box) + ".Text").get<std::string>());
  };
  const double start = chi(2);
  EXPECT_NEAR(start, starting_sum, 1e-5 * start);  // summed in 32 bits over 111 points
  EXPECT_GT(start, chi(1));
  for (int box = 3; box <= 6; ++box) EXPECT_GE(chi(box == 3 ? 1 : box - 1), chi(box));
  // The close box doesn't end the refinement; other parameters that are taken do. What is typed but not taken
  // is not lost by another look, but by a run.
  EXPECT_TRUE(PressEscape("Form22"));
  Click("Form19.cmdStartFit");
  EXPECT_EQ(chi(2), start);
  Play("click Form19.cmdShowParam\nclick Form20.Check2(3)\nclick Form19.cmdShowParam\n");
  EXPECT_EQ(Get("Form20.Check2(3).Value"), 0);
  EXPECT_THAT(After("Form22.Command1"), Contains("unloaded Form20"));
  EXPECT_EQ(chi(2), start);
  Play("click Form19.cmdShowParam\nclick Form20.Check2(3)\nanswer no\nclick Form20.Command2\n");
  EXPECT_EQ(Values("FitRunning FitListCount"), Json({0, 15}));
  Click("Form22.Command1");
  EXPECT_LT(chi(2), start / 1000);
  // All ticked again, which only the closing step sees.
  Confirm();
  const Json parameters = Value("state FitParam");
  EXPECT_THAT(After("Form22.Command2"), ElementsAre("front Form22", "unloaded Form22"));
  EXPECT_EQ(Value("state FitParam"), parameters);
  for (std::size_t i = 1; i <= 111; ++i) EXPECT_NEAR(Data().Fit.FitCalc[i], Data().Fit.FitY[i], 1);
  EXPECT_EQ(
      Values(
          "FitRunning FitStopping Form19.Picture2.Visible Form19.Line3.Visible Form19.cmdStartFit.Enabled"),
      Json({0, 0, false, false, false}));
  // The lines are Gaussian, their heights in the file rounded to 3 decimals.
  EXPECT_NEAR(parameters[1].get<double>(), 23, 1e-4);
  EXPECT_NEAR(parameters[8].get<double>(), 600, 0.1);
  EXPECT_NEAR(parameters[10].get<double>(), 0.4, 1e-3);
  EXPECT_NEAR(parameters[11].get<double>(), 1, 1e-2);
  EXPECT_EQ(Drawn("line", colours::Red), 110);
  EXPECT_EQ(Drawn("line", colours::Blue), 110);
  EXPECT_EQ(Drawn("line", colours::Magenta), 110);
  Confirm();  // which leads on from the refined values
  EXPECT_EQ(Switches("Form19", "cmdStartFit"), "+");

  EXPECT_THAT(After("Form19.cmdSave"), ElementsAre("shown Form23"));
  for (int i = 0; i < 2; ++i) Play("set Form23.Text5 \"1\"\nclick Form23.cmdInsert\n");
  const std::string list = Folder() + "/lines.pks";
  Play(FileAnswer(list) + "click Form23.cmdSave\n");
  EXPECT_THAT(BytesOf(list), testing::MatchesRegex(
                                 " 23   110[56].*\r\n 26   71[12].*   3.424[0-9]\r\n"));  // d of 26 degrees
}

// Without any background its scale factor has no effect, which the opening and each cycle tell.
TEST_F(Fit, TellsOfASingularMatrixInEachCycle) {
  SelectRange();
  Click("Form19.Command5 Form19.cmdSelPeaks");
  Pick("37.273 60", "input \"0.4\"\nanswer yes\n");
  Click("Form19.Command10");
  Confirm();
  const std::vector<std::string> told = After("Form19.cmdStartFit");
  EXPECT_EQ(std::ranges::count(told, "Warning, stop: Singular matrix"), 6);
}

TEST_F(Fit, KeepsTheParametersWhereNumbersLeaveTheirRange) {
  DrawLine();
  PickBoth();
  Click("Form19.Command10");
  Confirm();
  Click("Form19.cmdStartFit");
  Play("click Form19.cmdShowParam\nset Form20.Text1(1) \"1E30\"\nanswer yes\nclick Form20.Command2\n");
  const Json before = Value("state FitParam");
  EXPECT_THAT(After("Form22.Command1"),
              ElementsAre("front Form22", "unloaded Form22", HasSubstr("to start from")));
  EXPECT_EQ(Value("state FitParam"), before);
  EXPECT_EQ(Values("FitRunning Form19.Picture2.Visible"), Json({0, false}));
  EXPECT_EQ(Switches("Form19", "cmdStartFit"), "+");
  // Numbers that only the steps lead out of the range: one message for all of a run.
  Play("click Form19.cmdShowParam\nset Form20.Text1(1) \"1E18\"\nanswer yes\nclick Form20.Command2\n");
  const std::vector<std::string> told = After("Form19.cmdStartFit");
  EXPECT_EQ(std::ranges::count_if(
                told, [](const auto& words) { return words.find("This step led") != words.npos; }),
            1);
}

TEST_F(Fit, RefinesNoPeakThatHasBeenDeleted) {
  DrawLine();
  PickBoth();
  Click("Form19.Command10");
  Confirm();
  Click("Form19.cmdStartFit Form19.cmdShowParam Form20.Number(0)");
  for (const char* command : {"Form22.Command1", "Form22.Command2", "Form19.cmdStartFit", "Form19.cmdSave"}) {
    EXPECT_THAT(After(command), Contains(HasSubstr("A peak has been deleted")));
    EXPECT_EQ(Get("Form22")["MousePointer"], 1);
  }
  Play("answer yes\nclick Form20.Command2\n");
  EXPECT_EQ(Value("state FitParam")[1], 26);
  EXPECT_THAT(After("Form19.cmdStartFit"), Contains("front Form22"));
  EXPECT_EQ(Value("state FitRunning"), -1);
}

TEST_F(Fit, DrawsNoResultThatCannotBeCalculated) {
  DrawLine();
  PickBoth();
  Click("Form19.Command10");
  Press("60 50");  // which selects no peak any more
  Confirm();
  Click("Form19.cmdStartFit Form19.cmdShowParam");
  for (const char* box : {"0", "6"}) Play(std::string("set Form20.Text1(") + box + ") \"24\"\n");
  for (const char* box : {"1", "7"}) Play(std::string("set Form20.Text1(") + box + ") \"3E38\"\n");
  Play("answer yes\nclick Form20.Command2\n");
  EXPECT_THAT(After("Form22.Command2"), Contains(HasSubstr("No result is drawn")));
  EXPECT_EQ(Value("state FitPeakCount"), 2);
  EXPECT_EQ(Drawn("line", colours::Red), 0);
}

TEST_F(Fit, LeavesNothingBehindWhenItIsLeft) {
  DrawLine();
  PickBoth();
  Click("Form19.Command10");
  Confirm();
  Click("Form19.cmdStartFit Form19.cmdShowParam");
  EXPECT_THAT(After("Form19.Command15"), ElementsAre("front Form19", "unloaded Form20", "unloaded Form22"));
  EXPECT_EQ(Frames(), "");
  EXPECT_EQ(Values("FitRunning FitPeakCount FitPolyBackground"), Json({0, 0, 0}));
  EXPECT_EQ(Switches("Form19", "cmdSelectRange cmdMain"), "-+");
  EXPECT_THAT(After("Form19.cmdMain"), ElementsAre("unloaded Form19"));
  // Opened anew, nothing of the former fit is left.
  Click("Form1.cmdFit Form10.optA");
  EXPECT_EQ(Values("FitPointCount FitOrigin"), Json({0, 0}));
  EXPECT_EQ(Value("state FitParam")[1], 0);
  SelectRange();
  Click("Form1.cmdDisp Form11.Check1 Form11.Command1 Form6.cmdMain");
  Erase('a');
  EXPECT_THAT(After("Form19.cmdDefBkg"),
              Contains(HasSubstr("Buffer a holds no profile.\r\nOpen a profile with \"Fit\"")));
  // An empty buffer has no range of X: the window goes away again.
  EXPECT_THAT(After("Form19.cmdMain Form1.cmdFit Form10.optB"),
              ElementsAre("shown Form19", "unloaded Form19", "front Form1", "unloaded Form10"));
  EXPECT_EQ(Value("state ModeFit"), 0);
}

}  // namespace
}  // namespace koprax
