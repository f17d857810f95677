// Journeys of a profile from a buffer to a file: the questions, the refusals, what is left behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <numeric>
#include <string>
#include <vector>

#include "app/workbench_session.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using testing::HasSubstr;

constexpr const char* SaveFilter =
    "All Files (*.*)|*.*| dat Files (*.dat)|*.dat| adf Files (*.adf)|*.adf| udf Files (*.udf)|*.udf| "
    "uxd Files (*uxd)|*.uxd";

/// A session with a profile of a given format in buffer b.
class SaveSequence : public testing::Test {
 protected:
  SaveSequence() {
    Fill(FormatCodes::TwoColumns, 0.5F, 3);
    Session.Play("forms\n");
  }

  void Fill(FormatCodes code, float step, int points) {
    ProfileBuffer& buffer = Session.Data().Buffer(2);
    buffer.Title = FixedField("Quartz", TitleWidth);
    buffer.FormatCode = static_cast<std::int16_t>(code);
    buffer.Wavelength = 1.5406F;
    buffer.XStep = step;
    buffer.PermNpts = buffer.WorkNpts = static_cast<std::int16_t>(points);
    std::iota(buffer.PermX.begin() + 1, buffer.PermX.begin() + 1 + points, 1.0F);
    buffer.PermXMin = 1;
    buffer.PermXMax = static_cast<float>(points);
    buffer.UdfHeader[1] = "RawScan";
    buffer.UxdHeader[1] = "_2THETACOUNTS";
    buffer.UxdHeaderLines = 1;
  }

  /// Starts to save buffer b under a name; the events of the picker's choice.
  Json Start(const std::string& path, const std::string& answers = "") {
    return Session.Events(answers + "file " + Json(path).dump() +
                          "\nclick Form1.cmdOut\nclick Form10.optB\n");
  }
  Json ModeOut() { return Session.Value("state ModeOut"); }
  [[nodiscard]] Json Shown() { return Session.Value("forms"); }
  static Json MessageEvent(const std::string& text, const std::string& title, const std::string& icon,
                           const std::string& buttons = "ok", const std::string& answer = "ok") {
    return {{"event", "message"}, {"text", text}, {"title", title},
            {"buttons", buttons}, {"icon", icon}, {"answer", answer}};
  }
  static std::string Contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  WorkbenchSession Session;
};

TEST_F(SaveSequence, AsksForTheNameThenTheFormatAndWrites) {
  const std::string path = Session.Folder() + "/saved.xy";
  EXPECT_EQ(Start(path), (Json{{{"event", "dialog"},
                                {"kind", "save"},
                                {"filter", SaveFilter},
                                {"filterIndex", 1},
                                {"name", ""},
                                {"answer", path}},
                               UnloadedEvent("Form10"),
                               ShownEvent("Form7")}));
  EXPECT_EQ(Session.Value("state CurBuf"), 2);
  EXPECT_EQ(Session.Value("state FileName"), path);
  EXPECT_EQ(Session.Value("get Form7.Option7.Enabled"), false);
  EXPECT_EQ(ModeOut(), -1);
  EXPECT_EQ(Session.Events("click Form7.Option3\n"),
            (Json{UnloadedEvent("Form7")}));  // which leaves the main menu in front
  EXPECT_EQ(Session.Value("state InputFormat"), 3);
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(Contents(path),
            FixedField("Quartz", TitleWidth) + "\r\n 1.5406 \r\n 1   0\r\n 2   0\r\n 3   0\r\n");
  // The next load is a load.
  Session.Play(WorkbenchSession::LoadCommands(path, 3, 'a'));
  EXPECT_EQ(Session.Value("buffer a")["PermX"], (Json{1.0, 2.0, 3.0}));
  // The main menu comes to the front from behind another window.
  Start(Session.Folder() + "/again.xy");
  Session.Play("move Form6.Picture1 50 50\n");
  EXPECT_EQ(Session.Events("click Form7.Option3\n").back(), FrontEvent("Form1"));
}

TEST_F(SaveSequence, AnExistingFileIsOverwrittenOnlyAfterAYes) {
  const std::string path = Session.File("there.dat", "as it was");
  EXPECT_EQ(Start(path, "answer no\n")[2],
            MessageEvent("file  " + path + "  already exists!!\r\n\r\nOverwrite ?", "Information",
                         "information", "yesno", "no"));
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(Shown(), Json{"Form1"});
  Start(path, "answer yes\n");
  EXPECT_EQ(Contents(path), "as it was");
  Session.Play("click Form7.Option1\n");
  EXPECT_THAT(Contents(path), HasSubstr("\r\n3\r\n1,3,0.5\r\n0\r\n0\r\n0\r\n"));
}

TEST_F(SaveSequence, EndsWhereverItIsGivenUp) {
  const std::string path = Session.Folder() + "/never.dat";
  const std::string pick = "click Form1.cmdOut\nclick Form10.optB\n";
  const std::string start = "file " + Json(path).dump() + "\n" + pick;
  const std::string other_load = "file " + Json(Session.File("x", "1 2\r\n2 3\r\n")).dump() +
                                 "\nclick Form1.cmdInp\nclick Form4.cmdCancel\n";
  for (const std::string& given_up :
       {"click Form1.cmdOut\nclose Form10\n" + std::string(), "file cancel\n" + pick, "file \"\"\n" + pick,
        start + "close Form7\n", "click Form1.cmdOut\n" + other_load, start + other_load}) {
    Session.Play(given_up);
    EXPECT_EQ(ModeOut(), 0) << given_up;
    EXPECT_EQ(Shown(), Json{"Form1"}) << given_up;
  }
  // A card is refused before any dialog.
  Fill(FormatCodes::Card, 0, 3);
  EXPECT_EQ(Session.Events(pick), (Json{MessageEvent("PDS files (*.aid) cannot be saved", "Warning", "none"),
                                        UnloadedEvent("Form10")}));
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(Contents(path), "");
}

TEST_F(SaveSequence, AnotherCommandNeverWritesOrReadsTheFileOfThisOne) {
  const std::string there = Session.File("there.xy", "1 2\r\n2 3\r\n");
  const std::string list = "file " + Json(Session.Folder() + "/list.pks").dump() + "\n";
  const std::string display = "click Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n";
  Session.Play(WorkbenchSession::LoadCommands(Session.File("other.xy", "5 6\r\n7 8\r\n"), 3, 'c'));
  const auto load_to = [&](const std::string& window) {
    Session.Play("file " + Json(there).dump() + "\nclick Form1.cmdInp\n");
    if (window == "Form7") Session.Play("click Form4.cmdOK\n");
    EXPECT_EQ(Shown()[0], window);
  };
  const auto start_new = [&] { Start(Session.Folder() + "/new.xy"); };
  const auto ends = [&](const std::string& script, const std::string& window = "Form7") {
    Session.Play(script);
    EXPECT_EQ(Session.Value("get " + window)["Loaded"], false) << script;
    EXPECT_EQ(Contents(there), "1 2\r\n2 3\r\n");
  };
  for (const char* window : {"Form4", "Form7"}) {  // a save that is started while a load waits
    load_to(window);
    ends("click Form1.cmdOut\n", window);
    Session.Play("close Form10\n");
  }
  start_new();
  ends("click Form1.cmdOut\n");  // a second save
  Session.Play("close Form10\n");
  EXPECT_EQ(ModeOut(), 0);

  Session.Data().Buffer(2).NPeaks = 1;
  Session.Play(display + "click Form6.cmdManExpl\n");
  start_new();
  ends(list + "click Form6.cmdSavePeaks\n");  // else Form7 would write the profile over the list now
  Session.Data().Buffer(2).Wavelength = 0;
  Session.Play(display);
  start_new();
  ends(list + "click Form6.cmdComboOK\n");
  EXPECT_EQ(ModeOut(), 0);
  Session.Play("close Form4\n");
  load_to("Form7");
  Session.Play("answer no\nclick Form1.cmdDelBuff\nclick Form17.optC\n");
  EXPECT_EQ(Session.Value("get Form7")["Loaded"], true);  // a load may wait for any buffer
  Session.Play("close Form7\n");

  for (const std::string pick : {"click Form1.cmdDisp\nclick Form11.Check3\nclick Form11.Command1\n",
                                 "answer yes\nclick Form1.cmdDelBuff\nclick Form17.optB\n"}) {
    Start(there, "answer yes\n");
    ends(pick);  // the buffer is not the one any more whose file may be overwritten
    EXPECT_EQ(ModeOut(), 0);
  }
}

TEST_F(SaveSequence, TheFilterStandsAtTheFormatOfTheProfile) {
  int code = 0;
  for (const int index : {1, 1, 1, 1, 3, 4, 5}) {
    Fill(static_cast<FormatCodes>(code++), 1, 3);
    const Json events = Session.Events("file cancel\nclick Form1.cmdOut\nclick Form10.optB\n");
    EXPECT_EQ(events[0]["filterIndex"], index) << code;
  }
}

const std::string WholeRange =
    "Data files with CPS-120 format can ONLY be saved as '4096 channels' sized files.\r\n"
    "Files organized in 'channels' but with different dimensions, can be saved in TWO COLUMNS format.";

TEST_F(SaveSequence, AFormatIsWrittenOrRefusedWithTheReason) {
  using Code = FormatCodes;
  const struct {
    Code From;
    float Step;
    int Points, Option;
    std::string Text, Title, Icon;
    bool Stays;
  } rows[] = {{Code::TwoColumns, 0, 3, 1,
               "Profile with variable step cannot be saved as an ITAL STRUCTURES data file.", "Variable step",
               "none", false},
              {Code::CpsChannels, 1, 4096, 1, " CPS-120 data cannot be saved as ITAL STRUCTURES data",
               "Error", "none", false},
              {Code::CpsChannels, 1, 4096, 2,
               "File type \"CPS-120 (4096 channels)\" can be saved ONLY with its own format \r\n"
               "or in TWO COLUMNS format.",
               "Error", "none", false},
              {Code::TwoColumns, 0, 3, 2, "Data with variable step cannot be saved as a \"one column\" file.",
               "Error", "none", false},
              {Code::Siemens, 1, 4096, 4,
               "Files different from \"CPS-120 (4096 channels)\" cannot be saved in this format.", "Error",
               "none", true},
              {Code::CpsChannels, 1, 4095, 4, WholeRange, "Warning", "stop", true},
              {Code::CpsChannels, 1, 4104, 4, WholeRange, "Warning", "stop", true},
              {Code::Siemens, 1, 3, 5, "Data files loaded with PHILIPS format ONLY be saved in this way.",
               "Warning", "stop", true},
              {Code::Philips, 1, 3, 6, "Data files loaded with D0005 format ONLY be saved in this way.",
               "Warning", "stop", true},
              {Code::OneColumn, 0, 3, 2, "", "", "", false},
              {Code::TwoColumns, 0.5F, 3, 2, "", "", "", false},
              {Code::ItalDat, 0.5F, 3, 1, "", "", "", false},
              {Code::CpsChannels, 1, 4096, 4, "", "", "", false},
              {Code::Philips, 0.5F, 3, 5, "", "", "", false},
              {Code::Siemens, 0, 3, 6, "", "", "", false},
              {Code::Philips, 0.5F, 3, 3, "", "", "", false},
              {Code::None, 0, 3, 3, "", "", "", false}};
  for (const auto& row : rows) {
    const std::string option = "Form7.Option" + std::to_string(row.Option);
    const std::string path = Session.Folder() + "/" + option + std::to_string(&row - rows);
    SCOPED_TRACE(path);
    Fill(row.From, row.Step, row.Points);
    Start(path);
    EXPECT_EQ(Session.Events("click " + option + "\n")[0],
              row.Text.empty() ? UnloadedEvent("Form7") : MessageEvent(row.Text, row.Title, row.Icon));
    EXPECT_EQ(ModeOut(), row.Stays ? -1 : 0);
    EXPECT_EQ(Shown(), row.Stays ? (Json{"Form7", "Form1"}) : Json{"Form1"});
    EXPECT_EQ(std::ifstream(path).is_open(), row.Text.empty());
    EXPECT_EQ(Contents(path).size() > 3, row.Text.empty());
    if (row.Stays) {
      EXPECT_EQ(Session.Value("get " + option + ".Value"), false);
      Session.Play((row.From == Code::CpsChannels ? "input \"n\"\n" : "") +
                   std::string("click Form7.Option3\n"));
      EXPECT_THAT(Contents(path), HasSubstr("Quartz"));
      EXPECT_EQ(ModeOut(), 0);
    }
  }
}

TEST_F(SaveSequence, WhatAFailedLoadLeftIsNoProfile) {
  std::string channels = "4096\r\ndate\r\n1\r\nx\r\n\r\n\r\n\r\n\r\n\r\n";
  for (int i = 0; i < 512; ++i) channels += "5 5 5 5 5 5 5 5\r\n";
  std::string broken = channels;
  broken.replace(broken.find("5 5 5"), 5, "9 1E39");
  const std::string header = "DataAngleRange,1,2,/\r\nScanStepSize,1,/\r\nRawScan\r\n";
  const auto load = [&](const std::string& contents, int format) {
    Session.Try(WorkbenchSession::LoadCommands(Session.File("load", contents), format, 'b'));
  };
  load(channels, 4);
  load(broken, 4);
  Start(Session.Folder() + "/mixed");
  EXPECT_EQ(Session.Events("click Form7.Option4\n")[0]["text"], WholeRange);
  load(header + "1,2,3,/\r\n", 5);
  load(header + "9,8,1E39,/\r\n", 5);
  Start(Session.Folder() + "/mixed");
  Session.Play("click Form7.Option5\n");
  EXPECT_THAT(Contents(Session.Folder() + "/mixed"), testing::EndsWith("RawScan\r\n"));
}

TEST_F(SaveSequence, AFailedWriteIsToldAndLeavesAllAsItWas) {
  Start("/dev/full", "answer yes\n");
  const Json buffer = Session.Value("buffer b");
  const Json events = Session.Events("click Form7.Option3\n");
  EXPECT_EQ(events[1],
            MessageEvent("The file /dev/full can't be written: No space left on device.", "Error", "stop"));
  EXPECT_EQ(Shown(), Json{"Form1"});
  EXPECT_EQ(Session.Value("buffer b"), buffer);
  EXPECT_EQ(ModeOut(), 0);
}

}  // namespace
}  // namespace koprax
