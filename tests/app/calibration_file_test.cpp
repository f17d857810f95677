// Journeys of calibration files: one is saved with its title, one is read where a profile in channels needs
// it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "app/command_form.h"
#include "files/calibration_commands.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

/// A profile of three channels in buffer b, with the prompt for its wavelength up.
class CalibrationTest : public testing::Test {
 protected:
  CalibrationTest() {
    session_.Play(
        WorkbenchSession::LoadCommands(session_.File("a.xy", "Channels\r\n1 5\r\n2 7\r\n3 5\r\n"), 3, 'b'));
  }

  ProfileBuffer& Buffer() { return session_.Data().Buffer(2); }
  std::string Get(const std::string& name) { return session_.Value("get " + name).get<std::string>(); }
  std::vector<double> Coefficients() { return {Buffer().CalPar.begin() + 1, Buffer().CalPar.end()}; }

  std::vector<std::string> AcceptPrompt(const std::string& answers = "") {
    return session_.Words(answers + "set Form6.Combo1 \"1.5406\"\nclick Form6.cmdComboOK\n");
  }
  /// The prompt's OK and the preview of a file of these contents.
  std::vector<std::string> Open(const std::string& contents) {
    session_.File("a.cal", contents);
    return AcceptPrompt(CommandSession::FileAnswer(path_));
  }
  std::vector<std::string> Accept() { return session_.Words("click Form4.cmdOK\n"); }
  /// ReadingCal, CalCancelled, whether the preview and the prompt are there.
  std::vector<int> State() {
    return {session_.Data().ReadingCal ? 1 : 0, session_.Data().CalCancelled,
            session_.Value("get Form4")["Loaded"].get<bool>() ? 1 : 0,
            session_.Value("get Form6.Frame3.Visible").get<bool>() ? 1 : 0};
  }

  CommandSession session_;
  std::string path_ = session_.Folder() + "/a.cal";
};

TEST_F(CalibrationTest, IsSavedUnderItsTitle) {
  const char* const dialog = "save \"\" 2 of All Files (*.*)|*.*| .cal Files (*.cal)|*.cal";
  const char* const question =
      "Input title: Type a title for the file containing calibration parameters (max 80 char.)";
  const auto save = [&](const std::string& path, const std::string& answers) {
    const auto save_three = [](const WindowContext& context) {
      SaveCalibration(context, std::vector<float>{-0.5F, 0.03F, 1E-8F});
    };
    return session_.Run(save_three, CommandSession::FileAnswer(path) + answers);
  };
  const std::string coefficients = "\r\n-0.5\r\n0.03\r\n1E-08\r\n\r\n\r\n\r\n";
  EXPECT_THAT(save(path_, "input \"Silicon, May\"\n"), ElementsAre(dialog, question));
  EXPECT_EQ(CommandSession::BytesOf(path_), FixedField("Silicon, May", 80) + coefficients);
  EXPECT_EQ(save(path_, "answer no\n").size(), 2U);
  save(path_, "answer yes\ninput cancel\n");
  EXPECT_EQ(CommandSession::BytesOf(path_), std::string(80, ' ') + coefficients);
  EXPECT_THAT(
      save("/nowhere/a.cal", "input \"\"\n"),
      ElementsAre(dialog, question, StartsWith("Error, stop: The file /nowhere/a.cal can't be written: ")));
}

TEST_F(CalibrationTest, IsAskedForByThePromptOfAProfileInChannels) {
  EXPECT_THAT(
      Open("Title\r\n-0.5\r\n0.1D0\r\n0.1\r\n"),
      ElementsAre("Communication, none: Read now calibration parameters for converting 'channel' units into "
                  "2-theta units.\r\n"
                  "Calibration parameters are stored in a  *.cal  file.\r\n"
                  "Locate, in the following dialog window, the proper calibration file and load it.\r\n"
                  "If no file is chosen and no conversion occurs then 'd' data (crystal spacings) in the \r\n"
                  "Explorer Window are not displayed.",
                  "open \"*.cal\" 2 of All Files (*.*)|*.*| calib. Files (*.cal)|*.cal", "shown Form4"));
  EXPECT_THAT(State(), ElementsAre(1, 0, 1, 0));
  EXPECT_EQ(Get("Form6.Text16.Text"), "l = 1.5406");
  EXPECT_THAT(Accept(), ElementsAre("unloaded Form4"));
  EXPECT_THAT(Coefficients(), ElementsAre(-0.5, 0.1, static_cast<double>(0.1F), 0, 0, 0, 0));
  EXPECT_THAT(State(), ElementsAre(0, 0, 0, 0));
}

TEST_F(CalibrationTest, IsNotAskedForWhereNoneIsMissing) {
  Buffer().CalPar[1] = -0.5;  // is none
  EXPECT_EQ(AcceptPrompt("file \"\"\n").size(), 2U);
  Buffer().Wavelength = 0;
  session_.Play("click Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n");
  Buffer().CalPar[1] = 0.0001;
  EXPECT_THAT(AcceptPrompt(), ElementsAre());
  session_.Play(WorkbenchSession::LoadCommands(
      session_.File("b.xy", "Degrees\r\n1 5\r\n1.96875 7\r\n3 5\r\n"), 3, 'c'));
  EXPECT_THAT(AcceptPrompt(), ElementsAre());
}

TEST_F(CalibrationTest, ACancelLeavesThePromptAndNoPeaks) {
  session_.Play("set Form6.Combo1 \"none\"\nfile \"\"\nclick Form6.cmdComboOK\n");
  EXPECT_THAT(State(), ElementsAre(0, 0, 0, 0));  // an empty name is no cancel
  Buffer().NPeaks = 1;
  Buffer().PeakListText = "row\r\n";
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_EQ(AcceptPrompt("file cancel\n").size(), 2U);
  EXPECT_THAT(State(), ElementsAre(0, 0, 0, 1));
  EXPECT_EQ(Get("Form6.Text16.Text"), "l = 1.5406");
  EXPECT_EQ(session_.Value("get Form6.Line1.Visible"), false);
  EXPECT_EQ(Get("Form6.Text17.Text") + Buffer().PeakListText, "");
  for (const std::string command : {"cmdErsLaIt", "cmdClearPeaks", "cmdSavePeaks"}) {
    EXPECT_EQ(session_.Value("get Form6." + command + ".Enabled"), false);
  }
  EXPECT_EQ(Buffer().NPeaks, 0);
  EXPECT_EQ(Buffer().Wavelength, 0);
  AcceptPrompt("file \"\"\n");  // the explorer goes on where the prompt is answered
  EXPECT_EQ(session_.Value("get Form6.Line1.Visible"), true);
  EXPECT_EQ(session_.Value("get Form6.Picture1.MousePointer"), 2);
}

TEST_F(CalibrationTest, AnIrregularLineKeepsThePreviewForAnotherTry) {
  Open("Title\r\n5\r\n1 2\r\n7\r\n");
  for (int i = 0; i < 2; ++i) {
    Buffer().CalPar[1] = 0;
    EXPECT_THAT(Accept(),
                ElementsAre("Error, stop: Error!!\r\nSomething irregular in reading " + path_ + " file."));
    EXPECT_THAT(Coefficients(), ElementsAre(5, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(State(), ElementsAre(0, 0, 1, 0));
  }
  EXPECT_THAT(session_.Words("click Form4.cmdCancel\n"), ElementsAre("unloaded Form4"));
}

TEST_F(CalibrationTest, APreviewThatIsGivenUpReadsNothing) {
  session_.Play(WorkbenchSession::LoadCommands(session_.Folder() + "/a.xy", 3, 'c'));
  const struct {
    std::string Commands;
    std::vector<std::string> Words;  // the main menu stays where it is
  } cases[] = {
      // another buffer is picked
      {"click Form1.cmdDelBuff\nanswer no\nclick Form17.optC\n", {"unloaded Form4", "unloaded Form17"}},
      {"click Form4.cmdCancel\n", {"unloaded Form4"}},
      {"close Form4\n", {"unloaded Form4"}},
      {CommandSession::FileAnswer(session_.Folder() + "/a.xy") + "click Form1.cmdInp\nclick Form4.cmdOK\n",
       {"unloaded Form4", "shown Form7"}}};  // of a load instead
  for (const auto& one : cases) {
    Buffer().Wavelength = 0;
    session_.Play("click Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n");
    Open("Title\r\n5\r\n");
    const auto words = session_.Words(one.Commands);
    EXPECT_EQ(std::vector(words.begin(), words.begin() + std::ssize(one.Words)), one.Words);
    EXPECT_THAT(State(), ElementsAre(0, 0, 0, 0));
    EXPECT_EQ(Coefficients(), std::vector<double>(7, 0));
  }
}

TEST_F(CalibrationTest, AFileThatGivesNothingIsTold) {
  AcceptPrompt("file \"/nowhere/a.cal\"\n");
  const std::string shown = Get("Form4.Text1.Text");
  EXPECT_THAT(shown, StartsWith("The file /nowhere/a.cal can't be read: "));
  EXPECT_THAT(Accept(), ElementsAre("Error, stop: " + shown, "unloaded Form4"));
}

}  // namespace
}  // namespace koprax
