// Journeys of peak lists to files and back: what is asked, what is written, what is taken.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/command_form.h"
#include "files/peak_list_commands.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

class PeakListTest : public testing::Test {
 protected:
  PeakListTest() : path_(session_.Folder() + "/list.pks") { session_.Data().CurBuf = 3; }

  ProfileBuffer& Buffer() { return session_.Data().Buffer(3); }

  void AddPeak(const std::string& theta, const std::string& y, const std::string& d,
               const std::string& channel = "") {
    const auto k = static_cast<std::size_t>(++Buffer().NPeaks);
    Buffer().PeakTheta[k] = theta;
    Buffer().PeakY[k] = y;
    Buffer().PeakD[k] = d;
    Buffer().PeakChannel[k] = channel;
  }
  /// Channel, intensity, d and 2-theta of the list, a peak a line.
  std::string Peaks() {
    std::string peaks;
    for (std::size_t k = 1; k <= static_cast<std::size_t>(Buffer().NPeaks); ++k) {
      peaks += Buffer().PeakChannel[k] + " " + Buffer().PeakY[k] + " " + Buffer().PeakD[k] + " " +
               Buffer().PeakTheta[k] + "\n";
    }
    return peaks;
  }

  Json ReadForCalibration(const std::string& script) {
    return session_.EventsOf(
        [this](const WindowContext& context) {
          opened_ = ReadPeakListForCalibration(context, [this] { ++drawn_; });
        },
        script);
  }
  Json ReadForCell(const std::string& script) {
    return session_.EventsOf(
        [this](const WindowContext& context) {
          opened_ = ReadPeakListForCell(
              context, [this] { ++drawn_; }, [this] { ++given_up_; });
        },
        script);
  }
  /// The answers that open a file of these contents.
  std::string OpenCommands(const std::string& contents) {
    session_.File("list.pks", contents);
    return "input \"y\"\nfile " + Json(path_).dump() + "\n";
  }
  /// What a read has done: preview opened, peaks drawn, given up, CurBuf, CalCancelled.
  std::vector<int> Outcome() {
    return {opened_ ? 1 : 0, drawn_, given_up_, session_.Data().CurBuf, session_.Data().CalCancelled};
  }

  CommandSession session_;
  std::string path_;
  bool opened_ = false;
  int drawn_ = 0;
  int given_up_ = 0;
};

Json ListInput(const char* answer) {
  Json event{
      {"event", "input"},
      {"prompt",
       "No peak was selected or refined in buffer 3.\r\nDo you want to load peak list from disk ? (Y/N)"},
      {"title", "Input"},
      {"default", ""},
      {"answer", nullptr}};
  if (answer != nullptr) event["answer"] = answer;
  return event;
}

Json ListDialog(const char* kind, const std::string& name, const Json& answer) {
  return {{"event", "dialog"},
          {"kind", kind},
          {"filter", kind == std::string("save") ? "All Files (*.*)|*.*| .pks Files (*.pks)|*.pks"
                                                 : "All Files (*.*)|*.*| calib. Files (*.pks)|*.pks"},
          {"filterIndex", 2},
          {"name", name},
          {"answer", answer}};
}

// ---- Saving ----------------------------------------------------------------------------------------

TEST_F(PeakListTest, TheExplorerSavesItsListSorted) {
  session_.Play(
      WorkbenchSession::LoadCommands(session_.File("a.xy", "A\r\n1.5\r\n10 1\r\n11 9\r\n12 1\r\n"), 3, 'c'));
  const std::string path = session_.Folder() + "/new.pks";
  session_.Play("click Form6.cmdManExpl\n");
  EXPECT_THAT(session_.Refusal("click Form6.cmdSavePeaks"), testing::HasSubstr("disabled"));
  AddPeak("11.50049", "9.25", "7.69");
  AddPeak("10", "1", "8.6057");
  session_.Play("click Form6.cmdExiManExp\nclick Form6.cmdManExpl\n");

  const auto save = [&](const std::string& answers) {
    return session_.Events("file " + Json(path).dump() + "\n" + answers + "click Form6.cmdSavePeaks\n");
  };
  EXPECT_EQ(session_.Events("file cancel\nclick Form6.cmdSavePeaks\n"),
            Json{ListDialog("save", "*.pks", nullptr)});
  EXPECT_EQ(save(""), Json{ListDialog("save", "*.pks", path)});
  const std::string first = " 10  1  8.6057\r\n 11.5  9.2  7.69\r\n";
  EXPECT_EQ(BytesOf(path), first);
  EXPECT_EQ(Buffer().PeakTheta[1], "11.50049");

  AddPeak("12", "3", "7.1755");
  Json question{{"event", "message"},     {"text", "file  " + path + "  already exists!!\r\n\r\nOverwrite ?"},
                {"title", "Information"}, {"buttons", "yesno"},
                {"icon", "information"},  {"answer", "no"}};
  EXPECT_EQ(save("answer no\n"), (Json{ListDialog("save", "*.pks", path), question}));
  EXPECT_EQ(BytesOf(path), first);
  save("answer yes\n");
  EXPECT_EQ(BytesOf(path), first + " 12  3  7.1755\r\n");

  const std::string nowhere = session_.Folder() + "/none/list.pks";
  const Json events = session_.Events("file " + Json(nowhere).dump() + "\nclick Form6.cmdSavePeaks\n");
  EXPECT_THAT(events[1]["text"].get<std::string>(),
              testing::StartsWith("The file " + nowhere + " can't be written: "));
  EXPECT_EQ(Buffer().NPeaks, 3);
}

TEST_F(PeakListTest, AnEmptyListIsWrittenOnlyAsHeld) {
  const std::string path = session_.Folder() + "/list.pks";
  EXPECT_EQ(session_.EventsOf(SavePeakListSorted, ""), Json::array());
  EXPECT_EQ(session_.EventsOf(SavePeakListAsHeld, "file " + Json(path).dump() + "\n"),
            Json{ListDialog("save", "*.pks", path)});
  EXPECT_EQ(BytesOf(path), "");
  Buffer().FormatCode = 4;
  AddPeak("21.50", "9.25", "", "700.0");
  session_.EventsOf(SavePeakListAsHeld, "answer yes\nfile " + Json(path).dump() + "\n");
  EXPECT_EQ(BytesOf(path), " 700.0   9.25       21.50\r\n");
}

// ---- Reading for a calibration ---------------------------------------------------------------------

TEST_F(PeakListTest, AListOfChannelsComesBackForACalibration) {
  Buffer().FormatCode = 4;
  AddPeak("21.5004", "9.5", "4.1297", "700.25");
  AddPeak("9.5", "8", "9.3021", "31");
  session_.EventsOf(SavePeakListSorted, "file " + Json(path_).dump() + "\n");
  Buffer().NPeaks = 0;
  EXPECT_EQ(ReadForCalibration("input \"Y\"\nfile " + Json(path_).dump() + "\n"),
            (Json{ListInput("Y"), ListDialog("open", "", path_), ShownEvent("Form25")}));
  EXPECT_EQ(session_.Value("get Form25")["Caption"], "Input file (Form25)");
  const Json text = session_.Value("get Form25.Text1");
  EXPECT_EQ(text["Text"], FixedField(" 31  8  9.3021  9.5", 80) + "\r\n" +
                              FixedField(" 700.25  9.5  4.1297  21.5", 80) + "\r\n");
  EXPECT_EQ(text["Font"], "Courier");
  EXPECT_EQ(Outcome(), (std::vector{1, 0, 0, 3, 0}));
  EXPECT_EQ(session_.Events("click Form25.cmdOK\n"), Json{UnloadedEvent("Form25")});
  EXPECT_EQ(Outcome(), (std::vector{1, 1, 0, 3, 0}));
  EXPECT_EQ(Peaks(), "31 8 9.3021 9.5\n700.25 9.5 4.1297 21.5\n");
}

TEST_F(PeakListTest, NoListIsReadForACalibrationWithoutConsent) {
  for (const char* answer : {"n", "yes", "", " y"}) {
    EXPECT_EQ(ReadForCalibration("input " + Json(answer).dump() + "\n"), Json{ListInput(answer)});
    EXPECT_FALSE(opened_);
  }
  EXPECT_EQ(ReadForCalibration("input cancel\n"), Json{ListInput(nullptr)});
  EXPECT_EQ(ReadForCalibration("input \"y\"\nfile cancel\n").size(), 2U);
  EXPECT_EQ(ReadForCalibration("input \"y\"\nfile \"\"\n").size(), 2U);
  const Json events = ReadForCalibration("input \"y\"\nfile \"/nowhere/list.pks\"\n");
  EXPECT_THAT(events[2]["text"].get<std::string>(),
              testing::StartsWith("The file /nowhere/list.pks can't be read: "));
  EXPECT_EQ(Outcome(), (std::vector{0, 0, 0, 3, 0}));

  ReadForCalibration(OpenCommands("1 2 3 4"));
  EXPECT_EQ(session_.Events("click Form25.cmdCancel\n"), Json{UnloadedEvent("Form25")});
  ReadForCalibration(OpenCommands("1 2 3 4"));
  EXPECT_EQ(session_.Events("close Form25\n"), Json{UnloadedEvent("Form25")});
  EXPECT_EQ(Outcome(), (std::vector{1, 0, 0, 3, 0}));
  EXPECT_EQ(Buffer().NPeaks, 0);
}

TEST_F(PeakListTest, ANumberBeyond32BitsTakesNothingAndKeepsThePreview) {
  const auto refused = [&](const std::string& form) {
    EXPECT_EQ(session_.Events("click " + form + ".cmdOK\n"),
              Json{ToldEvent("The file " + path_ +
                                 " can't be read, line 2: a number is beyond the range of 32-bit numbers, "
                                 "-3.402823E+38 to 3.402823E+38.",
                             "Error", "stop")});
    EXPECT_EQ(Buffer().NPeaks, 0);
    EXPECT_EQ(Buffer().PeakY[1], "");
  };
  ReadForCalibration(OpenCommands("1 2 3\n2 1E39\n"));
  refused("Form25");
  ReadForCell(OpenCommands("1 2 3\n2 1E39\n"));
  refused("Form28");
  EXPECT_EQ(Outcome(), (std::vector{1, 0, 0, 3, 0}));
}

std::string Repeated(const std::string& line, int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) lines += line + "\r\n";
  return lines;
}

TEST_F(PeakListTest, AListTooLongForThePreviewGivesNoPeak) {
  for (const int limit : {100, 200}) {
    const auto read = [&](int lines) {
      const std::string opening = OpenCommands(Repeated("50 1 2 3", lines));
      limit == 100 ? ReadForCalibration(opening) : ReadForCell(opening);
      return session_.Events(limit == 100 ? "click Form25.cmdOK\n" : "click Form28.cmdOK\n");
    };
    const std::string number = std::to_string(limit);
    EXPECT_EQ(read(limit)[0], ToldEvent("The file " + path_ + " has " + number +
                                            " lines or more. No peak was taken.\r\nA list to be read has "
                                            "fewer than " +
                                            number + " lines.",
                                        "Warning", "exclamation"));
    EXPECT_EQ(Buffer().NPeaks, 0);
    EXPECT_EQ(read(limit - 1).size(), limit == 100 ? 1U : 2U);
    EXPECT_EQ(Buffer().NPeaks, limit == 100 ? 99 : 100);
  }
  EXPECT_EQ(drawn_, 4);
}

// ---- Reading for a cell refinement -----------------------------------------------------------------

TEST_F(PeakListTest, AListForTheCellIsOneOf2ThetaOrOfChannels) {
  EXPECT_EQ(ReadForCell(OpenCommands("10.5 7 8.4\r\n180 3 0.9\r\n\r\n200 1 1\r\n")),
            (Json{ListInput("y"), ListDialog("open", "*.pks", path_), ShownEvent("Form28")}));
  EXPECT_EQ(session_.Value("get Form28")["Caption"], "Input file (Form28)");
  EXPECT_EQ(session_.Events("click Form28.cmdOK\n"), Json{UnloadedEvent("Form28")});
  EXPECT_EQ(Peaks(), "10.5 7 8.4 10.5\n180 3 0.9 180\n");
  EXPECT_EQ(Buffer().CellFormat, 0);

  ReadForCell(OpenCommands("180.001 7 8.4 20\r\n"));
  session_.Play("click Form28.cmdOK\n");
  EXPECT_EQ(Peaks(), "180.001 7 8.4 20\n");
  EXPECT_EQ(Buffer().CellFormat, 4);
  EXPECT_EQ(Outcome(), (std::vector{1, 2, 0, 3, 0}));
}

TEST_F(PeakListTest, PeaksBehindTheHundredthAreTold) {
  ReadForCell(OpenCommands(Repeated("20 1 2 3", 101)));
  EXPECT_EQ(session_.Events("click Form28.cmdOK\n"),
            (Json{ToldEvent("The file " + path_ + " holds more than 100 peaks.\r\nThe first 100 were taken.",
                            "Warning", "exclamation"),
                  UnloadedEvent("Form28")}));
  EXPECT_EQ(Buffer().NPeaks, 100);
}

TEST_F(PeakListTest, ARefusedListForTheCellLeavesNoBufferAtWork) {
  for (const char* refusal : {"input \"n\"\n", "input cancel\n", "input \"y\"\nfile cancel\n",
                              "input \"y\"\nfile \"/nowhere/list.pks\"\n"}) {
    session_.Data().CurBuf = 3;
    session_.Data().CalCancelled = 0;
    ReadForCell(refusal);
    EXPECT_EQ(Outcome(), (std::vector{0, 0, 0, 0, 1})) << refusal;
  }
  session_.Data().CurBuf = 3;
  session_.Data().CalCancelled = 0;
  ReadForCell("input \"Y\"\nfile \"\"\n");
  EXPECT_EQ(Outcome(), (std::vector{0, 0, 0, 3, 0}));

  for (const char* way : {"click Form28.cmdCancel\n", "close Form28\n"}) {
    session_.Data().CurBuf = 3;
    given_up_ = 0;
    ReadForCell(OpenCommands("1 2 3\n"));
    EXPECT_EQ(session_.Events(way), Json{UnloadedEvent("Form28")});
    EXPECT_EQ(Outcome(), (std::vector{1, 0, 1, 0, 0})) << way;
  }
  EXPECT_EQ(Buffer().NPeaks, 0);
}

TEST_F(PeakListTest, AListBelongsToTheBufferItWasOpenedFor) {
  // Picking another buffer, or leaving this one, gives up the lists that wait for it.
  ReadForCalibration(OpenCommands("1 2 3 4\n"));
  ReadForCell(OpenCommands("1 2 3 4\n"));
  session_.Play("click Form1.cmdDelBuff\nanswer no\nclick Form17.optE\n");
  EXPECT_EQ(session_.Value("forms"), (Json{"Form1", "Command"}));
  EXPECT_EQ(Outcome(), (std::vector{1, 0, 1, 5, 0}));

  ReadForCalibration("input \"y\"\nfile " + Json(path_).dump() + "\n");
  ReadForCell("input \"n\"\n");
  EXPECT_EQ(session_.Value("get Form25")["Loaded"], false);

  // An erase gives them up, too, and the erased buffer stays the one at work.
  session_.Data().CurBuf = 3;
  ReadForCell(OpenCommands("1 2 3 4\n"));
  session_.Play("click Form1.cmdDelBuff\nanswer yes\nclick Form17.optC\n");
  EXPECT_EQ(session_.Value("get Form28")["Loaded"], false);
  EXPECT_EQ(session_.Data().CurBuf, 3);
}

}  // namespace
}  // namespace koprax
