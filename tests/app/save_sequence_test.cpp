// Journeys of a profile from a buffer to a file: the questions, the refusals, what is left behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>
#include <string>
#include <vector>

#include "app/journey.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A session with a profile of a given format in buffer b.
class SaveSequence : public Journey {
 protected:
  SaveSequence() { Fill(FormatCodes::TwoColumns, 0.5F, 3); }

  void Fill(FormatCodes code, float step, int points) {
    ProfileBuffer& buffer = Data().Buffer(2);
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
    return Events(answers + "file " + Json(path).dump() + "\nclick Form1.cmdOut\nclick Form10.optB\n");
  }
  Json ModeOut() { return Value("state ModeOut"); }
  [[nodiscard]] Json Shown() { return Value("forms"); }
};

TEST_F(SaveSequence, AsksForTheNameThenTheFormatAndWrites) {
  const std::string path = Folder() + "/saved.xy";
  EXPECT_THAT(
      WordsOf(Start(path)),
      ElementsAre("save \"\" 1 of All Files (*.*)|*.*| dat Files (*.dat)|*.dat| adf Files (*.adf)|*.adf| "
                  "udf Files (*.udf)|*.udf| uxd Files (*uxd)|*.uxd",
                  "unloaded Form10", "shown Form7"));
  EXPECT_EQ(Values("CurBuf FileName Form7.Option7.Enabled"), (Json{2, path, false}));
  EXPECT_EQ(ModeOut(), -1);
  EXPECT_EQ(Click("Form7.Option3"), (Json{UnloadedEvent("Form7")}));  // which leaves the main menu in front
  EXPECT_EQ(Value("state InputFormat"), 3);
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(BytesOf(path),
            FixedField("Quartz", TitleWidth) + "\r\n 1.5406 \r\n 1   0\r\n 2   0\r\n 3   0\r\n");
  // The next load is a load.
  Play(LoadCommands(path, 3, 'a'));
  EXPECT_EQ(Value("buffer a")["PermX"], (Json{1.0, 2.0, 3.0}));
  // The main menu comes to the front from behind another window.
  Start(Folder() + "/again.xy");
  Play("move Form6.Picture1 50 50\n");
  EXPECT_EQ(Click("Form7.Option3").back(), FrontEvent("Form1"));
}

TEST_F(SaveSequence, AnExistingFileIsOverwrittenOnlyAfterAYes) {
  const std::string path = File("there.dat", "as it was");
  EXPECT_EQ(WordsOf(Start(path, "answer no\n")).at(2),
            "Information, information: file  " + path + "  already exists!!\r\n\r\nOverwrite ?");
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(Shown(), Json{"Form1"});
  Start(path, "answer yes\n");
  EXPECT_EQ(BytesOf(path), "as it was");
  Click("Form7.Option1");
  EXPECT_THAT(BytesOf(path), HasSubstr("\r\n3\r\n1,3,0.5\r\n0\r\n0\r\n0\r\n"));
}

TEST_F(SaveSequence, EndsWhereverItIsGivenUp) {
  const std::string path = Folder() + "/never.dat";
  const std::string pick = "click Form1.cmdOut\nclick Form10.optB\n";
  const std::string start = "file " + Json(path).dump() + "\n" + pick;
  const std::string other_load =
      "file " + Json(File("x", "1 2\r\n2 3\r\n")).dump() + "\nclick Form1.cmdInp\nclick Form4.cmdCancel\n";
  for (const std::string& given_up :
       {"click Form1.cmdOut\nclose Form10\n" + std::string(), "file cancel\n" + pick, "file \"\"\n" + pick,
        start + "close Form7\n", "click Form1.cmdOut\n" + other_load, start + other_load}) {
    Play(given_up);
    EXPECT_EQ(ModeOut(), 0) << given_up;
    EXPECT_EQ(Shown(), Json{"Form1"}) << given_up;
  }
  // A card is refused before any dialog.
  Fill(FormatCodes::Card, 0, 3);
  EXPECT_THAT(Words(pick),
              ElementsAre("Warning, none: PDS files (*.aid) cannot be saved", "unloaded Form10"));
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(BytesOf(path), "");
}

TEST_F(SaveSequence, AnotherCommandNeverWritesOrReadsTheFileOfThisOne) {
  const std::string there = File("there.xy", "1 2\r\n2 3\r\n");
  const std::string list = "file " + Json(Folder() + "/list.pks").dump() + "\n";
  const std::string display = "click Form1.cmdDisp\nclick Form11.Check2\nclick Form11.Command1\n";
  Play(LoadCommands(File("other.xy", "5 6\r\n7 8\r\n"), 3, 'c'));
  const auto load_to = [&](const std::string& window) {
    Play("file " + Json(there).dump() + "\nclick Form1.cmdInp\n");
    if (window == "Form7") Click("Form4.cmdOK");
    EXPECT_EQ(Shown()[0], window);
  };
  const auto start_new = [&] { Start(Folder() + "/new.xy"); };
  const auto ends = [&](const std::string& script, const std::string& window = "Form7") {
    Play(script);
    EXPECT_EQ(Value("get " + window)["Loaded"], false) << script;
    EXPECT_EQ(BytesOf(there), "1 2\r\n2 3\r\n");
  };
  for (const char* window : {"Form4", "Form7"}) {  // a save that is started while a load waits
    load_to(window);
    ends("click Form1.cmdOut\n", window);
    Play("close Form10\n");
  }
  start_new();
  ends("click Form1.cmdOut\n");  // a second save
  Play("close Form10\n");
  EXPECT_EQ(ModeOut(), 0);

  Data().Buffer(2).NPeaks = 1;
  Play(display + "click Form6.cmdManExpl\n");
  start_new();
  ends(list + "click Form6.cmdSavePeaks\n");  // else Form7 would write the profile over the list now
  Data().Buffer(2).Wavelength = 0;
  Play(display);
  start_new();
  ends(list + "click Form6.cmdComboOK\n");
  EXPECT_EQ(ModeOut(), 0);
  Play("close Form4\n");
  load_to("Form7");
  Play("answer no\nclick Form1.cmdDelBuff\nclick Form17.optC\n");
  EXPECT_EQ(Get("Form7")["Loaded"], true);  // a load may wait for any buffer
  Play("close Form7\n");

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
    const Json events = Events("file cancel\nclick Form1.cmdOut\nclick Form10.optB\n");
    EXPECT_EQ(events[0]["filterIndex"], index) << code;
  }
}

const std::string WholeRange =
    "Data files with CPS-120 format can ONLY be saved as '4096 channels' sized files.\r\n"
    "Files organized in 'channels' but with different dimensions, can be saved in TWO COLUMNS format.";

TEST_F(SaveSequence, AFormatIsWrittenOrRefusedWithTheReason) {
  using Code = FormatCodes;
  const std::string written = "unloaded Form7";
  const struct {
    Code From;
    float Step;
    int Points, Option;
    std::string Told;
    bool Stays = false;
  } rows[] = {
      {Code::TwoColumns, 0, 3, 1,
       "Variable step, none: Profile with variable step cannot be saved as an ITAL STRUCTURES data file."},
      {Code::CpsChannels, 1, 4096, 1, "Error, none:  CPS-120 data cannot be saved as ITAL STRUCTURES data"},
      {Code::CpsChannels, 1, 4096, 2,
       "Error, none: File type \"CPS-120 (4096 channels)\" can be saved ONLY with its own format \r\n"
       "or in TWO COLUMNS format."},
      {Code::TwoColumns, 0, 3, 2,
       "Error, none: Data with variable step cannot be saved as a \"one column\" file."},
      {Code::Siemens, 1, 4096, 4,
       "Error, none: Files different from \"CPS-120 (4096 channels)\" cannot be saved in this format.", true},
      {Code::CpsChannels, 1, 4095, 4, "Warning, stop: " + WholeRange, true},
      {Code::CpsChannels, 1, 4104, 4, "Warning, stop: " + WholeRange, true},
      {Code::Siemens, 1, 3, 5,
       "Warning, stop: Data files loaded with PHILIPS format ONLY be saved in this way.", true},
      {Code::Philips, 1, 3, 6,
       "Warning, stop: Data files loaded with D0005 format ONLY be saved in this way.", true},
      {Code::OneColumn, 0, 3, 2, written},
      {Code::TwoColumns, 0.5F, 3, 2, written},
      {Code::ItalDat, 0.5F, 3, 1, written},
      {Code::CpsChannels, 1, 4096, 4, written},
      {Code::Philips, 0.5F, 3, 5, written},
      {Code::Siemens, 0, 3, 6, written},
      {Code::Philips, 0.5F, 3, 3, written},
      {Code::None, 0, 3, 3, written}};
  for (const auto& row : rows) {
    const std::string option = "Form7.Option" + std::to_string(row.Option);
    const std::string path = Folder() + "/" + option + std::to_string(&row - rows);
    SCOPED_TRACE(path);
    Fill(row.From, row.Step, row.Points);
    Start(path);
    EXPECT_EQ(After(option)[0], row.Told);
    EXPECT_EQ(ModeOut(), row.Stays ? -1 : 0);
    EXPECT_EQ(Shown(), row.Stays ? (Json{"Form7", "Form1"}) : Json{"Form1"});
    EXPECT_EQ(std::filesystem::exists(path), row.Told == written);
    EXPECT_EQ(BytesOf(path).size() > 3, row.Told == written);
    if (row.Stays) {
      EXPECT_EQ(Value("get " + option + ".Value"), false);
      Play((row.From == Code::CpsChannels ? "input \"n\"\n" : "") + std::string("click Form7.Option3\n"));
      EXPECT_THAT(BytesOf(path), HasSubstr("Quartz"));
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
    Try(LoadCommands(File("load", contents), format, 'b'));
  };
  load(channels, 4);
  load(broken, 4);
  Start(Folder() + "/mixed");
  EXPECT_EQ(Click("Form7.Option4")[0]["text"], WholeRange);
  load(header + "1,2,3,/\r\n", 5);
  load(header + "9,8,1E39,/\r\n", 5);
  Start(Folder() + "/mixed");
  Click("Form7.Option5");
  EXPECT_THAT(BytesOf(Folder() + "/mixed"), testing::EndsWith("RawScan\r\n"));
}

TEST_F(SaveSequence, AFailedWriteIsToldAndLeavesAllAsItWas) {
  Start("/dev/full", "answer yes\n");
  const Json buffer = Value("buffer b");
  EXPECT_EQ(Words("click Form7.Option3\n").at(1),
            "Error, stop: The file /dev/full can't be written: No space left on device.");
  EXPECT_EQ(Shown(), Json{"Form1"});
  EXPECT_EQ(Value("buffer b"), buffer);
  EXPECT_EQ(ModeOut(), 0);
}

}  // namespace
}  // namespace koprax
