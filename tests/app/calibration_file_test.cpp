// Journeys of calibration files: one is saved with its title, one is read where a profile in channels needs
// it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/command_form.h"
#include "files/calibration_commands.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

TEST(SaveCalibration, AsksForAFileAndItsTitleAndWritesAtOnce) {
  CommandSession session;
  session.Data().CurBuf = 1;
  const std::string path = session.Folder() + "/new.cal";
  const auto save = [&](const std::string& answers) {
    const auto save_three = [](const WindowContext& context) {
      SaveCalibration(context, std::vector<float>{-0.5F, 0.03F, 1E-8F});
    };
    return session.EventsOf(save_three, answers);
  };
  Json dialog{
      {"event", "dialog"}, {"kind", "save"}, {"filter", "All Files (*.*)|*.*| .cal Files (*.cal)|*.cal"},
      {"filterIndex", 2},  {"name", ""},     {"answer", path}};
  const Json input{{"event", "input"},
                   {"prompt", "Type a title for the file containing calibration parameters (max 80 char.)"},
                   {"title", "Input title"},
                   {"default", ""},
                   {"answer", "Silicon, May"}};
  const std::string coefficients = "\r\n-0.5\r\n0.03\r\n1E-08\r\n\r\n\r\n\r\n";
  EXPECT_EQ(save("file " + Json(path).dump() + "\ninput \"Silicon, May\"\n"), (Json{dialog, input}));
  EXPECT_EQ(BytesOf(path), FixedField("Silicon, May", 80) + coefficients);

  EXPECT_EQ(save("file " + Json(path).dump() + "\nanswer no\n").size(), 2U);
  EXPECT_EQ(BytesOf(path), FixedField("Silicon, May", 80) + coefficients);
  save("file " + Json(path).dump() + "\nanswer yes\ninput cancel\n");
  EXPECT_EQ(BytesOf(path), std::string(80, ' ') + coefficients);
  dialog["answer"] = nullptr;
  EXPECT_EQ(save("file cancel\n"), Json{dialog});

  const Json failed = save("file \"/nowhere/new.cal\"\ninput \"\"\n");
  EXPECT_THAT(failed[2]["text"].get<std::string>(),
              testing::StartsWith("The file /nowhere/new.cal can't be written: "));
}

/// A profile of three channels in buffer b, with the prompt for its wavelength up.
class ReadCalFileTest : public testing::Test {
 protected:
  ReadCalFileTest() {
    session_.Play(
        WorkbenchSession::LoadCommands(session_.File("a.xy", "Channels\r\n1 5\r\n2 7\r\n3 5\r\n"), 3, 'b'));
  }

  ProfileBuffer& Buffer() { return session_.Data().Buffer(2); }
  Json Get(const std::string& name) { return session_.Value("get " + name); }

  /// The events of the prompt's OK with the answers before it.
  Json AcceptPrompt(const std::string& answers) {
    return session_.Events(answers + "set Form6.Combo1 \"1.5406\"\nclick Form6.cmdComboOK\n");
  }
  /// The prompt's OK and the preview of a file of these contents.
  Json Open(const std::string& contents) {
    session_.File("a.cal", contents);
    return AcceptPrompt("file " + Json(path_).dump() + "\n");
  }
  Json Accept() { return session_.Events("click Form4.cmdOK\n"); }
  std::vector<double> Coefficients() { return {Buffer().CalPar.begin() + 1, Buffer().CalPar.end()}; }
  /// ReadingCal, CalCancelled, whether the preview and the prompt are there.
  std::vector<int> State() {
    return {session_.Data().ReadingCal ? 1 : 0, session_.Data().CalCancelled,
            Get("Form4")["Loaded"].get<bool>() ? 1 : 0, Get("Form6.Frame3.Visible").get<bool>() ? 1 : 0};
  }

  WorkbenchSession session_;
  std::string path_ = session_.Folder() + "/a.cal";
};

TEST_F(ReadCalFileTest, APromptOfAProfileInChannelsAsksForTheCalibration) {
  EXPECT_EQ(
      Open("Title\r\n-0.5\r\n0.1D0\r\n0.1\r\n"),
      (Json{ToldEvent(
                "Read now calibration parameters for converting 'channel' units into 2-theta units.\r\n"
                "Calibration parameters are stored in a  *.cal  file.\r\n"
                "Locate, in the following dialog window, the proper calibration file and load it.\r\n"
                "If no file is chosen and no conversion occurs then 'd' data (crystal spacings) in the \r\n"
                "Explorer Window are not displayed.",
                "Communication", "none"),
            {{"event", "dialog"},
             {"kind", "open"},
             {"filter", "All Files (*.*)|*.*| calib. Files (*.cal)|*.cal"},
             {"filterIndex", 2},
             {"name", "*.cal"},
             {"answer", path_}},
            ShownEvent("Form4")}));
  EXPECT_EQ(State(), (std::vector{1, 0, 1, 0}));
  EXPECT_EQ(Get("Form6.Text16.Text"), "l = 1.5406");
  EXPECT_EQ(Get("Form4.Text1.Text"), "Title\r\n-0.5\r\n0.1D0\r\n0.1\r\n");
  EXPECT_EQ(Accept(), Json{UnloadedEvent("Form4")});
  EXPECT_EQ(Coefficients(), (std::vector<double>{-0.5, 0.1, static_cast<double>(0.1F), 0, 0, 0, 0}));
  EXPECT_EQ(State(), (std::vector{0, 0, 0, 0}));
}

TEST_F(ReadCalFileTest, ACancelLeavesThePromptAsItWas) {
  session_.Play("set Form6.Combo1 \"none\"\nfile \"\"\nclick Form6.cmdComboOK\nclick Form6.cmdManExpl\n");
  EXPECT_EQ(State(), (std::vector{0, 0, 0, 1}));  // an empty name is no cancel
  Buffer().NPeaks = 1;
  Buffer().PeakListText = "row\r\n";
  const std::string box = Get("Form6.Text16.Text");
  EXPECT_EQ(AcceptPrompt("file cancel\n").size(), 2U);
  EXPECT_EQ(State(), (std::vector{0, 0, 0, 1}));
  EXPECT_EQ(Get("Form6.Text16.Text"), box);
  EXPECT_EQ(Get("Form6.Line1.Visible"), false);
  EXPECT_EQ(Get("Form6.Text17.Text").get<std::string>() + Buffer().PeakListText, "");
  for (const char* command : {"cmdErsLaIt", "cmdClearPeaks", "cmdSavePeaks"}) {
    EXPECT_EQ(Get(std::string("Form6.") + command + ".Enabled"), false);
  }
  EXPECT_EQ(Buffer().NPeaks, 0);
  EXPECT_EQ(Buffer().Wavelength, 0);
  // The explorer goes on where the prompt is answered.
  AcceptPrompt("file \"\"\n");
  EXPECT_EQ(Get("Form6.Line1.Visible"), true);
  EXPECT_EQ(Buffer().Wavelength, 1.5406F);
}

TEST_F(ReadCalFileTest, NoCalibrationIsAskedForWhereNoneIsMissing) {
  Buffer().CalPar[1] = 0.0001;
  EXPECT_EQ(AcceptPrompt(""), Json::array());
  EXPECT_EQ(State(), (std::vector{0, 0, 0, 0}));
  session_.Play(WorkbenchSession::LoadCommands(
      session_.File("b.xy", "Degrees\r\n1 5\r\n1.96875 7\r\n3 5\r\n"), 3, 'c'));
  EXPECT_EQ(AcceptPrompt(""), Json::array());
}

TEST_F(ReadCalFileTest, AnIrregularLineKeepsThePreviewForAnotherTry) {
  Open("Title\r\n5\r\n1 2\r\n7\r\n");
  const Json irregular{
      ToldEvent("Error!!\r\nSomething irregular in reading " + path_ + " file.", "Error", "stop")};
  EXPECT_EQ(Accept(), irregular);
  EXPECT_EQ(Coefficients(), (std::vector<double>{5, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(State(), (std::vector{0, 0, 1, 0}));
  Buffer().CalPar[1] = 0;
  EXPECT_EQ(Accept(), irregular);
  EXPECT_EQ(Buffer().CalPar[1], 5);
  EXPECT_EQ(session_.Events("click Form4.cmdCancel\n"), Json{UnloadedEvent("Form4")});
  EXPECT_EQ(State(), (std::vector{0, 0, 0, 0}));
}

TEST_F(ReadCalFileTest, ACancelledPreviewReadsNothing) {
  for (const char* way : {"click Form4.cmdCancel\n", "close Form4\n"}) {
    session_.Play(WorkbenchSession::LoadCommands(session_.Folder() + "/a.xy", 3, 'b'));
    Buffer().Wavelength = 0;
    session_.Play("click Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n");
    Open("Title\r\n5\r\n");
    EXPECT_EQ(session_.Events(way), Json{UnloadedEvent("Form4")});  // and the main menu stays where it is
    EXPECT_EQ(Coefficients(), std::vector<double>(7, 0));
    EXPECT_EQ(State(), (std::vector{0, 0, 0, 0}));
  }
}

TEST_F(ReadCalFileTest, WhatThePreviewCannotTakeIsTold) {
  std::string lines = "Title\r\n";
  for (int i = 2; i <= 30; ++i) lines += "5\r\n";
  Open(lines);
  EXPECT_EQ(Accept(),
            (Json{ToldEvent("The file " + path_ +
                                " has 30 lines or more. No coefficient was read.\r\nA calibration file "
                                "has fewer lines: a title and up to 7 coefficients.",
                            "Warning", "exclamation"),
                  UnloadedEvent("Form4")}));
  EXPECT_EQ(Coefficients(), std::vector<double>(7, 0));
}

TEST_F(ReadCalFileTest, AFileThatCannotBeReadIsToldTwice) {
  AcceptPrompt("file \"/nowhere/a.cal\"\n");
  const std::string shown = Get("Form4.Text1.Text");
  EXPECT_THAT(shown, testing::StartsWith("The file /nowhere/a.cal can't be read: "));
  EXPECT_EQ(Accept(), (Json{ToldEvent(shown, "Error", "stop"), UnloadedEvent("Form4")}));
}

TEST_F(ReadCalFileTest, ALoadInBetweenEndsTheReading) {
  Open("Title\r\n5\r\n");
  session_.Play("file " + Json(session_.Folder() + "/a.xy").dump() + "\nclick Form1.cmdInp\n");
  EXPECT_EQ(State(), (std::vector{0, 0, 1, 0}));
  EXPECT_EQ(Accept(), (Json{UnloadedEvent("Form4"), ShownEvent("Form7")}));
  EXPECT_EQ(Coefficients(), std::vector<double>(7, 0));
}

}  // namespace
}  // namespace koprax
