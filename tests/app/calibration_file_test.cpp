// Journeys of calibration files: one is saved with its title, one is read where a profile in channels needs
// it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "app/journey.h"
#include "files/calibration_commands.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

/// A profile of three channels in buffer b, with the prompt for its wavelength up.
class CalibrationTest : public Journey {
 protected:
  CalibrationTest() { Load('b', "1 5\r\n2 7\r\n3 5\r\n", "0"); }

  ProfileBuffer& Buffer() { return Data().Buffer(2); }
  std::vector<double> Coefficients() { return {Buffer().CalPar.begin() + 1, Buffer().CalPar.end()}; }

  std::vector<std::string> AcceptPrompt(const std::string& answers = "") {
    return Words(answers + "set Form6.Combo1 \"1.5406\"\nclick Form6.cmdComboOK\n");
  }
  /// The prompt's OK and the preview of a file of these contents.
  std::vector<std::string> Open(const std::string& contents) {
    return AcceptPrompt(FileAnswer(File("a.cal", contents)));
  }
  std::vector<std::string> Accept() { return After("Form4.cmdOK"); }
  /// ReadingCal, CalCancelled, whether the preview and the prompt are there.
  Json State() {
    return {Data().ReadingCal, Data().CalCancelled, IsLoaded("Form4"), Get("Form6.Frame3.Visible")};
  }

  const std::string path_ = Folder() + "/a.cal";
};

const Json AllDone{false, 0, false, false};

TEST_F(CalibrationTest, IsSavedUnderItsTitle) {
  const auto save = [&](const std::string& path, const std::string& answers) {
    const auto save_three = [](const WindowContext& context) {
      SaveCalibration(context, std::vector<float>{-0.5F, 0.03F, 1E-8F});
    };
    return CommandSession::Run(save_three, FileAnswer(path) + answers);
  };
  const std::string coefficients = "\r\n-0.5\r\n0.03\r\n1E-08\r\n\r\n\r\n\r\n";
  save(path_, "input \"Silicon, May\"\n");
  EXPECT_EQ(BytesOf(path_), FixedField("Silicon, May", 80) + coefficients);
  EXPECT_EQ(save(path_, "answer no\n").size(), 2U);
  save(path_, "answer yes\ninput cancel\n");
  EXPECT_EQ(BytesOf(path_), std::string(80, ' ') + coefficients);
}

TEST_F(CalibrationTest, IsAskedForByThePromptOfAProfileInChannels) {
  EXPECT_THAT(Open("Title\r\n-0.5\r\n0.1D0\r\n0.1\r\n"),
              ElementsAre(StartsWith("Communication"), StartsWith("open"), "shown Form4"));
  EXPECT_EQ(State(), (Json{true, 0, true, false}));
  EXPECT_EQ(Get("Form6.Text16.Text"), "l = 1.5406");
  EXPECT_THAT(Accept(), ElementsAre("unloaded Form4"));
  EXPECT_THAT(Coefficients(), ElementsAre(-0.5, 0.1, static_cast<double>(0.1F), 0, 0, 0, 0));
  EXPECT_EQ(State(), AllDone);
}

TEST_F(CalibrationTest, IsNotAskedForWhereNoneIsMissing) {
  Buffer().CalPar[1] = -0.5;  // is none
  EXPECT_EQ(AcceptPrompt("file \"\"\n").size(), 2U);
  Buffer().Wavelength = 0;
  Display("b");
  Buffer().CalPar[1] = 0.0001;
  EXPECT_THAT(AcceptPrompt(), ElementsAre());
  Load('c', "1 5\r\n1.96875 7\r\n3 5\r\n", "0");
  EXPECT_THAT(AcceptPrompt(), ElementsAre());
}

TEST_F(CalibrationTest, ACancelLeavesThePromptAndNoPeaks) {
  Play("set Form6.Combo1 \"none\"\nfile \"\"\nclick Form6.cmdComboOK\n");
  EXPECT_EQ(State(), AllDone);  // an empty name is no cancel
  Buffer().NPeaks = 1;
  Buffer().PeakListText = "row\r\n";
  Click("Form6.cmdManExpl");
  EXPECT_EQ(AcceptPrompt("file cancel\n").size(), 2U);
  EXPECT_EQ(State(), (Json{false, 0, false, true}));
  EXPECT_EQ(Values("Form6.Text16.Text Form6.Line1.Visible Form6.Text17.Text PeakListText(b) NPeaks(b)"),
            (Json{"l = 1.5406", false, "", "", 0}));
  EXPECT_EQ(Switches("Form6", "cmdErsLaIt cmdClearPeaks cmdSavePeaks"), "---");
  EXPECT_EQ(Buffer().Wavelength, 0);
  AcceptPrompt("file \"\"\n");  // the explorer goes on where the prompt is answered
  EXPECT_EQ(Values("Form6.Line1.Visible Form6.Picture1.MousePointer"), (Json{true, 2}));
}

TEST_F(CalibrationTest, AnIrregularLineKeepsThePreviewForAnotherTry) {
  Open("Title\r\n5\r\n1 2\r\n7\r\n");
  for (int i = 0; i < 2; ++i) {
    Buffer().CalPar[1] = 0;
    EXPECT_THAT(Accept(), ElementsAre(StartsWith("Error, stop")));
    EXPECT_THAT(Coefficients(), ElementsAre(5, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(State(), (Json{false, 0, true, false}));
  }
  EXPECT_THAT(After("Form4.cmdCancel"), ElementsAre("unloaded Form4"));
}

TEST_F(CalibrationTest, APreviewThatIsGivenUpReadsNothing) {
  Load('c', "1 5\r\n2 7\r\n");
  const struct {
    std::string Commands;
    std::vector<std::string> Words;  // the main menu stays where it is
  } cases[] = {
      // another buffer is picked
      {"click Form1.cmdDelBuff\nanswer no\nclick Form17.optC\n", {"unloaded Form4", "unloaded Form17"}},
      {"click Form4.cmdCancel\n", {"unloaded Form4"}},
      {"close Form4\n", {"unloaded Form4"}},
      {FileAnswer(Folder() + "/b.xy") + "click Form1.cmdInp\nclick Form4.cmdOK\n",
       {"unloaded Form4", "shown Form7"}}};  // of a load instead
  for (const auto& one : cases) {
    Buffer().Wavelength = 0;
    Display("b");
    Open("Title\r\n5\r\n");
    const auto words = Words(one.Commands);
    EXPECT_EQ(std::vector(words.begin(), words.begin() + std::ssize(one.Words)), one.Words);
    EXPECT_EQ(State(), AllDone);
    EXPECT_EQ(Coefficients(), std::vector<double>(7, 0));
  }
}

}  // namespace
}  // namespace koprax
