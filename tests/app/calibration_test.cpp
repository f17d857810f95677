// Journeys through the calibration: a standard is chosen and shifted, peaks are coupled, the polynomial is
// fitted, saved, and read back where a profile in channels needs it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "app/journey.h"
#include "calibration/known_detector.h"
#include "calibration/standards.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr float Wavelength = 1.5406F;

using known_detector::TwoThetaAt;

/// 2-theta of a line of silicon, from 1, at the wavelength of the profile.
double Line(std::size_t i) {
  const Standard silicon = SiliconStandard();
  return PositionAt(silicon.Peaks[i - 1].TwoTheta, silicon.Lambda, Wavelength).value_or(0);
}

double ChannelOfLine(std::size_t i) { return known_detector::ChannelOf(Line(i)); }

/// The detector's profile in buffer a, without wavelength; a file with the nine lines of silicon on it.
class CalibrationWindowTest : public Journey {
 protected:
  static constexpr std::size_t Lines = 9;

  CalibrationWindowTest() {
    Play(LoadCommands(KOPRAX_SOURCE_DIR "/examples/silicon_channels.adf", 4, 'a'));
    std::string list;
    for (std::size_t i = 1; i <= Lines; ++i) {
      char line[80];
      std::snprintf(line, sizeof line, " %.3f  %zu  0\r\n", ChannelOfLine(i), 100 * i);
      list += line;
    }
    path_ = File("silicon.pks", list);
  }

  ProfileBuffer& Buffer() { return Data().Buffer(1); }
  const Couples& Coupled() { return Data().Coupled; }
  /// "Calibration" on buffer a with these answers to its questions for a list.
  std::vector<std::string> Open(const std::string& answers = "") {
    return Words("click Form1.cmdCalib\n" + answers + "click Form16.optA\n");
  }
  std::string List() const { return "input \"Y\"\n" + FileAnswer(path_); }
  /// The window with the list, the wavelength and silicon; the coupling has begun.
  void OpenForCoupling() {
    Buffer().Wavelength = Wavelength;
    Open(List());
    Click("Form25.cmdOK Form24.cmdSi Form24.cmdStartCou");
  }
  /// Clicks near a place on one of the pictures; what that leads to.
  std::vector<std::string> Press(int picture, double x, const std::string& button = "left") {
    return Words("down Form24.Picture" + std::to_string(picture) + " " + button + " " + std::to_string(x) +
                 " 20\n");
  }
  /// A pick of line i: in the standard, in the sample.
  std::vector<std::string> PickAbove(std::size_t i) { return Press(1, 13 + 99.0 / 120 * Line(i) + 0.2); }
  std::vector<std::string> PickBelow(std::size_t i) {
    return Press(2, 13 + 99.0 / 4096 * ChannelOfLine(i) - 0.2);
  }
  void Couple(std::size_t above, std::size_t below) {
    PickAbove(above);
    PickBelow(below);
    Click("Form24.cmdAccept");
  }
  /// The lines of a colour on a picture since its last Cls, axes aside.
  std::vector<Json> Sticks(int picture, Colour colour = colours::Red) {
    std::vector<Json> sticks;
    for (const Json& line : Value("picture Form24.Picture" + std::to_string(picture))) {
      if (line["op"] == "line" && line["colour"] == colour) sticks.push_back(line);
    }
    return sticks;
  }
  std::string Answers() { return Switches("Form24", "cmdAccept cmdSkip"); }

  std::string path_;
};

TEST_F(CalibrationWindowTest, AWindowThatFindsNoListLeavesNoTrace) {
  const std::vector<std::string> given_up{"input \"n\"\n", "input cancel\n", "input \"y\"\nfile cancel\n",
                                          "input \"y\"\nfile \"\"\n", "input \"y\"\nfile \"/nowhere/a\"\n"};
  for (const std::string& answers : given_up) {
    Open(answers);
    EXPECT_FALSE(IsLoaded("Form24")) << answers;
    EXPECT_EQ(Values("CurBuf CalCancelled"), (Json{1, 0})) << answers;
  }
  for (const char* way : {"click Form25.cmdCancel\n", "close Form25\n"}) {
    Open(List());
    EXPECT_TRUE(IsLoaded("Form25"));
    Play(way);
    EXPECT_FALSE(IsLoaded("Form24")) << way;
  }
  EXPECT_EQ(Buffer().NPeaks, 0);
  EXPECT_EQ(Data().ModeCalib, false);
  Open(List());  // one that waits for its list gives way to the next start
  Play("click Form1.cmdCalib\n" + List() + "click Form16.optA\n");
  EXPECT_THAT(After("Form25.cmdOK"), testing::Contains("shown Form24"));
  EXPECT_EQ(Buffer().NPeaks, 9);
  // One that waits while its buffer gets a list otherwise.
  Buffer().NPeaks = 0;
  Open(List());
  Buffer().NPeaks = 1;
  Open();
  EXPECT_FALSE(IsLoaded("Form25"));
  EXPECT_TRUE(IsLoaded("Form24"));
}

TEST_F(CalibrationWindowTest, TheStandardStandsAboveTheSampleAtItsWavelengthAndCanBeShifted) {
  Buffer().Wavelength = 0;
  Open(List());
  Click("Form25.cmdOK");
  EXPECT_EQ(Values("Form24.Frame3.Visible Form24.Frame1.Visible Form24.Text9.Visible Form24.Text10.Visible "
                   "Form24.Command3.Visible Form24.Command4.Visible Form24.cmdStartCou.Enabled "
                   "Form24.Text1.Text Form24.Text3.Text"),
            (Json{true, false, false, false, false, false, false, "", ""}));
  const auto sample = Sticks(2);
  ASSERT_EQ(sample.size(), Lines);
  EXPECT_NEAR(sample[2]["x1"].get<double>(), 13 + 99.0 / 4096 * ChannelOfLine(3), 1e-4);
  EXPECT_NEAR(sample[2]["y2"].get<double>(), 10 + 28.5 / 120 * 100 * 3 / 9, 1e-4);

  EXPECT_THAT(After("Form24.cmdSi"), ElementsAre(StartsWith("Error, stop: The wave length of the ")));
  EXPECT_THAT(Words("set Form24.Combo1 \"-1\"\nclick Form24.cmdComboOK\n"),
              ElementsAre(StartsWith("Error, stop: The wave length -1 is out of range.")));
  Move("Form24", "30 20");
  EXPECT_EQ(Values("Form24.Text7.Text Form24.Text8.Text"), (Json{"", ""}));
  EXPECT_THAT(Words("set Form24.Combo1 \"1.79026   (Co)\"\nclick Form24.cmdComboOK\n"), ElementsAre());
  Click("Form24.cmdSi");
  EXPECT_EQ(Values("Form24.Frame3.Visible Form24.Text1.Text Form24.Text7.Text Form24.Text3.Text "
                   "Form24.Text4.Text Wavelength(a) Form24.cmdStartCou.Enabled"),
            (Json{false, "  l = 1.79026", " l = 1.79026", "x-min = 0 ", "x-max = 120", 1.79026, true}));
  EXPECT_EQ(Sticks(1).size(), 7U);  // nine have a position, two of them beyond 120 degrees
  Play("set Form24.Text2 \"2.5x\"\nclick Form24.Command2\n");
  Click("Form24.Command2");
  EXPECT_EQ(Values("Form24.Text3.Text Form24.Text4.Text"), (Json{"x-min = -5", "x-max = 115"}));
  EXPECT_EQ(Sticks(1).size(), 8U) << "those without a position stand at 0";
  EXPECT_NEAR(Sticks(1).back()["x1"].get<double>(), 13 + 99.0 / 120 * 5, 1e-4);

  Move("Form24", std::to_string(13 + 99.0 / 120 * 65) + " 24.25");  // 60 degrees, 60 counts
  EXPECT_EQ(Values("Form24.Text8.Text Form24.Text6.Text Form24.Text5.Text"),
            (Json{"x = 60", "y = 60", "1.7903"}));  // 2 sin 30 is 1
  Move("Form24", "0 99");
  EXPECT_EQ(Values("Form24.Text8.Text Form24.Text6.Text Form24.Text5.Text"),
            (Json{"x = -5", "y = 126.3158", "0"}));

  const auto drawn = Value("picture Form24.Picture1");
  for (const char* shift : {"1e39", "-1E12", "1d400"}) {
    EXPECT_THAT(Words("set Form24.Text2 \"" + std::string(shift) + "\"\nclick Form24.Command2\n"),
                ElementsAre(StartsWith("Error, stop: The standard can't be shifted by ")));
  }
  EXPECT_EQ(Value("picture Form24.Picture1"), drawn);
  EXPECT_EQ(Get("Form24.Text3.Text"), "x-min = -5");
}

TEST_F(CalibrationWindowTest, PeaksAreCoupledInEitherOrder) {
  OpenForCoupling();
  EXPECT_EQ(Switches("Form24", "cmdSi cmdCorundum Command2 cmdAccept cmdSkip cmdStartCou"), "-----+");
  PickAbove(2);
  PickAbove(3);  // the second one is awaited below
  EXPECT_EQ(Answers(), "--");
  EXPECT_THAT(Press(2, 1e6), ElementsAre(StartsWith("Error, stop: There is no peak near this place.")));
  PickBelow(2);
  EXPECT_EQ(Answers(), "++");
  Click("Form24.cmdAccept");
  EXPECT_EQ(Answers(), "--");
  ASSERT_EQ(Sticks(1, colours::Blue).size(), 1U);
  for (const int picture : {1, 2}) {
    EXPECT_EQ(Sticks(picture).back()["x1"], Sticks(picture, colours::Blue).back()["x1"]);
  }

  PickBelow(4);
  PickAbove(5);
  PickAbove(4);  // instead of 5
  EXPECT_EQ(Answers(), "++");
  Click("Form24.cmdAccept");
  PickBelow(4);
  PickAbove(4);          // the pick that has replaced 5 awaits nothing any more
  Press(2, 8, "right");  // left of the plot
  Press(1, 200);         // the last line lies beyond the picture
  Click("Form24.cmdSkip");
  EXPECT_EQ(Answers(), "--");
  for (const int picture : {1, 2}) {
    EXPECT_EQ(Sticks(picture).back()["x1"], Sticks(picture, colours::Blue).back()["x1"]);
  }
  EXPECT_EQ(Sticks(2, colours::Blue).size(), 4U);
  EXPECT_EQ(Coupled().CoupleCount, 2);
  std::string expected = "    2-theta     Channel \r\n";
  for (const std::size_t i : {1U, 2U}) {
    expected += std::to_string(i) + ") " + RoundedText(static_cast<float>(Line(2 * i)), 3) + "  " +
                RoundedText(ChannelOfLine(2 * i), 2) + "\r\n";
  }
  EXPECT_EQ(Get("Form24.Text9.Text"), expected);

  for (int i = Coupled().CoupleCount; i < MaxCouples; ++i) Couple(1, 1);
  PickAbove(1);
  PickBelow(1);
  EXPECT_THAT(After("Form24.cmdAccept"), ElementsAre(StartsWith("Error, stop: There are 100 couples")));
  EXPECT_EQ(Answers(), "++");
  EXPECT_EQ(Coupled().CoupleCount, 100);
  Click("Form24.cmdStartCou");
  EXPECT_EQ(Answers(), "--");
  EXPECT_EQ(Coupled().CoupleCount, 0);
}

TEST_F(CalibrationWindowTest, EachPictureTellsWhatTheMouseDoes) {
  const auto tips = [this](const std::string& above, const std::string& below) {
    ExpectTips("Form24.Picture1", {{"forms\n", above}});
    ExpectTips("Form24.Picture2", {{"forms\n", below}});
  };
  Buffer().Wavelength = Wavelength;
  Open(List());
  Click("Form25.cmdOK");
  tips("", "");
  Click("Form24.cmdSi");
  tips("boxes", "");
  Click("Form24.cmdStartCou");
  tips("of the standard", "of the sample");
  PickAbove(2);
  tips("partner of the blue peak", "of the sample");
  PickBelow(2);
  tips("refuse", "refuse");
  EXPECT_TRUE(PressEscape("Form24"));
  EXPECT_EQ(Answers(), "--");
  PickBelow(2);
  tips("of the standard", "partner of the blue peak");
  PickAbove(2);
  Click("Form24.cmdAccept");
  tips("of the standard", "of the sample");
  Click("Form24.cmdQuit");
  tips("boxes", "");
  Click("Form24.Command3");  // for which there are too few couples
  tips("of the standard", "of the sample");
}

TEST_F(CalibrationWindowTest, ASecondStandardIsDrawnOverTheFirst) {
  Buffer().Wavelength = 0;
  Buffer().NPeaks = 1;
  Buffer().PeakTheta[1] = "28.4";
  EXPECT_THAT(Open(),
              testing::Contains(StartsWith("Warning, exclamation: The peaks in the list of buffer a have "
                                           "no channels.")));
  Buffer().Wavelength = 1.54056F;  // in another window
  Click("Form24.cmdCorundum");
  EXPECT_EQ(Values("Form24.Frame3.Visible Form24.Text1.Text"), (Json{false, "  l = 1.54056"}));
  EXPECT_EQ(Sticks(1).size(), 17U);  // up to 120 degrees
  EXPECT_NEAR(Sticks(1)[0]["x1"].get<double>(), 13 + 99.0 / 120 * 25.676, 1e-4);
  Click("Form24.cmdSi");
  EXPECT_EQ(Sticks(1).size(), 17U + 9);
  Buffer().PeakTheta[1] = "28.5";
  EXPECT_THAT(After("Form24.cmdSi"),
              ElementsAre(StartsWith("Error, stop: The peak list of buffer a has been ")));
  Buffer().PeakTheta[1] = "28.4";
  Buffer().Wavelength = 0;
  EXPECT_THAT(After("Form24.cmdSi"), ElementsAre(StartsWith("Error, stop: The wave length of the ")));
  EXPECT_EQ(Values("Form24.Frame3.Visible Form24.Text1.Text"), (Json{true, ""}));
  EXPECT_THAT(After("Form24.cmdStartCou"),
              ElementsAre(StartsWith("Error, stop: The wave length of buffer a is ")));
  // The sticks are still those of the former wavelength.
  Move("Form24", std::to_string(13 + 99.0 / 120 * 60) + " 20");
  EXPECT_EQ(Get("Form24.Text5.Text"), "1.5406");
  Play("close Form24\n");
  EXPECT_FALSE(IsLoaded("Form24"));
}

TEST_F(CalibrationWindowTest, AListThatHasChangedElsewhereIsTold) {
  OpenForCoupling();
  Press(1, 20);
  Buffer().Wavelength = 0.7F;
  EXPECT_THAT(PickBelow(1),
              ElementsAre(StartsWith("Error, stop: The wave length of buffer a has been changed")));
  Buffer().Wavelength = Wavelength;
  PickBelow(1);
  Buffer().PeakChannel[1] = "5";
  const auto changed = ElementsAre(StartsWith("Error, stop: The peak list of buffer a has been changed in "));
  EXPECT_THAT(After("Form24.cmdAccept"), changed);
  EXPECT_THAT(PickBelow(2), changed);
  Buffer().NPeaks = 0;
  EXPECT_THAT(PickBelow(2),
              ElementsAre(StartsWith("Error, stop: There is no peak in the list of buffer a ")));
  EXPECT_EQ(Coupled().CoupleCount, 0);
  Click("Form24.cmdSkip");
  EXPECT_EQ(Answers(), "--");
}

TEST_F(CalibrationWindowTest, ACalibrationComesBackFromItsFile) {
  OpenForCoupling();
  for (const std::size_t i : {1U, 2U, 3U}) Couple(i, i);
  Click("Form24.cmdQuit");
  EXPECT_EQ(Switches("Form24", "cmdStartCou Command3"), "-+");
  EXPECT_THAT(After("Form24.Command3"),
              ElementsAre(StartsWith("Error, stop: The calibration can't be computed "
                                     "from 3 couples of peaks, at 3 different")));
  EXPECT_EQ(
      Values("Form24.Frame1.Visible Form24.Command3.Visible Form24.Text10.Visible Form24.Command4.Visible"),
      (Json{true, true, false, false}));
  Couple(4, 4);
  Click("Form24.Command3");
  const std::string path = Folder() + "/detector.cal";
  Play(FileAnswer(path) + "input \"\"\nclick Form24.Command4\n");
  const std::string three = BytesOf(path);
  EXPECT_EQ(std::ranges::count(three, '\n'), 1 + 3 + 3);

  Open();
  Click("Form24.cmdSi Form24.cmdStartCou");
  for (std::size_t i = 1; i <= Lines; ++i) Couple(i, i);
  EXPECT_EQ(Get("Form24.Text9.Visible"), true);
  Click("Form24.cmdQuit");
  EXPECT_EQ(Get("Form24.Frame1.Visible"), false);
  Click("Form24.Command3");
  EXPECT_EQ(
      Values("Form24.Frame1.Visible Form24.Command3.Enabled Form24.Command4.Visible Form24.Text10.Visible"),
      (Json{false, false, true, true}));
  EXPECT_THAT(
      Get("Form24.Text10.Text").get<std::string>(),
      testing::MatchesRegex("     Parameter        Sigma\r\n( A[0-3] =  [^ ]*    [^ ]*\r\n)*res = .*"));

  Play(FileAnswer(path) + "answer yes\ninput \"Detector\"\nclick Form24.Command4\n");
  EXPECT_THAT(After("Form24.Command1"), testing::Contains("unloaded Form24"));
  Play(LoadCommands(KOPRAX_SOURCE_DIR "/examples/silicon_channels.adf", 4, 'b') +
       "set Form6.Combo1 \"1.5406\"\n" + FileAnswer(path) + "click Form6.cmdComboOK\n");
  Click("Form4.cmdOK Form6.cmdManExpl");
  for (const char* place : {"25 50", "60 50", "95 50"}) {
    Move("Form6", place);
    const double channel = LeadingNumber(Get("Form6.Text10.Text").get<std::string>());
    // Channels of the list are right to 0.0005, that of the read-out to 0.00005: 1.4E-05 degrees.
    EXPECT_NEAR(LeadingNumber(Get("Form6.Text14.Text").get<std::string>()), TwoThetaAt(channel), 1e-4);
  }
}

}  // namespace
}  // namespace koprax
