// Journeys of peak lists to files and back: what is asked, what is written, what is taken.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "app/journey.h"
#include "files/peak_list_commands.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* Question =
    "Input: No peak was selected or refined in buffer 3.\r\nDo you want to load peak list from disk ? (Y/N)";
constexpr const char* SaveDialog = "save \"*.pks\" 2 of All Files (*.*)|*.*| .pks Files (*.pks)|*.pks";

std::string Repeated(const std::string& line, int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) lines += line + "\r\n";
  return lines;
}

/// Lists of buffer c.
class PeakListTest : public Journey {
 protected:
  using CommandSession::Run;  // and not the test's own

  PeakListTest() { Data().CurBuf = 3; }

  ProfileBuffer& Buffer() { return Data().Buffer(3); }
  void AddPeak(const char* theta, const char* y, const char* d, const char* channel = "") {
    const auto k = static_cast<std::size_t>(++Buffer().NPeaks);
    std::tie(Buffer().PeakTheta[k], Buffer().PeakY[k], Buffer().PeakD[k], Buffer().PeakChannel[k]) =
        std::tuple(theta, y, d, channel);
  }
  /// Channel, intensity, d and 2-theta of the list.
  std::string Peaks() {
    std::string peaks;
    for (std::size_t k = 1; k <= static_cast<std::size_t>(Buffer().NPeaks); ++k) {
      peaks += Buffer().PeakChannel[k] + " " + Buffer().PeakY[k] + " " + Buffer().PeakD[k] + " " +
               Buffer().PeakTheta[k] + "\n";
    }
    return peaks;
  }

  using Reading = bool (*)(const WindowContext&, std::function<void()>, std::function<void()>);
  std::vector<std::string> Read(Reading reading, const std::string& answers) {
    return Run(
        [this, reading](const WindowContext& context) {
          opened_ = reading(
              context, [this] { ++drawn_; }, [this] { ++given_up_; });
        },
        answers);
  }
  std::vector<std::string> ReadForCalibration(const std::string& answers) {
    return Read(ReadPeakListForCalibration, answers);
  }
  std::vector<std::string> ReadForCell(const std::string& answers) {
    return Read(ReadPeakListForCell, answers);
  }
  /// The answers that open a file of these contents.
  std::string Open(const std::string& contents) {
    File("list.pks", contents);
    return "input \"y\"\n" + FileAnswer(path_);
  }
  /// What a reading has done, since the last call: opened a preview, drawn peaks, given up; then CurBuf and
  /// CalCancelled, which start again.
  std::vector<int> Outcome() {
    Workspace& data = Data();
    std::vector<int> outcome{opened_ ? 1 : 0, drawn_, given_up_, data.CurBuf, data.CalCancelled};
    drawn_ = given_up_ = data.CalCancelled = 0;
    data.CurBuf = 3;
    return outcome;
  }

  std::string path_ = Folder() + "/list.pks";
  bool opened_ = false;
  int drawn_ = 0;
  int given_up_ = 0;
};

TEST_F(PeakListTest, TheExplorerSavesItsListSortedAndRounded) {
  Play(LoadCommands(File("a.xy", "A\r\n1.5\r\n10 1\r\n11 9\r\n"), 3, 'c'));
  AddPeak("11.50049", "9.25", "7.69");
  AddPeak("10", "1", "8.6057");
  Click("Form6.cmdManExpl");
  EXPECT_THAT(Words("file cancel\nclick Form6.cmdSavePeaks\n"), ElementsAre(SaveDialog));
  const std::string save = FileAnswer(path_) + "click Form6.cmdSavePeaks\n";
  EXPECT_THAT(Words(save), ElementsAre(SaveDialog));
  EXPECT_EQ(BytesOf(path_), " 10  1  8.6057\r\n 11.5  9.2  7.69\r\n");
  EXPECT_EQ(Buffer().PeakTheta[1], "11.50049");
  EXPECT_EQ(Words("answer no\n" + save).size(), 2U);
  EXPECT_THAT(Words("file \"/nowhere/a.pks\"\nclick Form6.cmdSavePeaks\n"),
              ElementsAre(SaveDialog, StartsWith("Error, stop: The file /nowhere/a.pks can't be written: ")));
}

TEST_F(PeakListTest, AnEmptyListIsWrittenOnlyAsHeld) {
  EXPECT_THAT(Run(SavePeakListSorted), ElementsAre());
  EXPECT_THAT(Run(SavePeakListAsHeld, FileAnswer(path_)), ElementsAre(SaveDialog));
  EXPECT_EQ(BytesOf(path_), "");
  AddPeak("21.50", "9.25", "", "700.0");
  Run(SavePeakListAsHeld, "answer yes\n" + FileAnswer(path_));
  EXPECT_EQ(BytesOf(path_), " 21.50   9.25   \r\n");
}

TEST_F(PeakListTest, AListOfChannelsComesBackForACalibration) {
  Buffer().FormatCode = 4;
  AddPeak("21.5004", "9.5", "4.1297", "700.25");
  AddPeak("9.5", "8", "9.3021", "31");
  Run(SavePeakListSorted, FileAnswer(path_));
  Buffer().NPeaks = 0;
  EXPECT_THAT(ReadForCalibration("input \"Y\"\n" + FileAnswer(path_)),
              ElementsAre(Question, "open \"\" 2 of All Files (*.*)|*.*| calib. Files (*.pks)|*.pks",
                          "shown Form25"));
  EXPECT_EQ(Get("Form25")["Caption"], "Input file (Form25)");
  EXPECT_EQ(Get("Form25.Text1.Text"), FixedField(" 31  8  9.3021  9.5", 80) + "\r\n" +
                                          FixedField(" 700.25  9.5  4.1297  21.5", 80) + "\r\n");
  EXPECT_THAT(Outcome(), ElementsAre(1, 0, 0, 3, 0));
  EXPECT_THAT(Words("click Form25.cmdOK\n"), ElementsAre("unloaded Form25"));
  EXPECT_THAT(Outcome(), ElementsAre(1, 1, 0, 3, 0));
  EXPECT_EQ(Peaks(), "31 8 9.3021 9.5\n700.25 9.5 4.1297 21.5\n");
}

TEST_F(PeakListTest, AListIsTakenUpToItsLimitsAndNotAtAllWhereItIsBad) {
  const auto taken = [&](const std::string& form, const std::string& contents) {
    Read(form == "Form25" ? ReadPeakListForCalibration : ReadPeakListForCell, Open(contents));
    const bool closed = Words("click " + form + ".cmdOK\n").back() == "unloaded " + form;
    return closed ? Buffer().NPeaks : -1;
  };
  for (const auto& [form, limit] : {std::pair("Form25", 100), std::pair("Form28", 200)}) {
    EXPECT_EQ(taken(form, "1 2 3\n2 1E39\n"), -1);  // the list stays for a look
    EXPECT_EQ(Peaks() + Buffer().PeakY[1], "");
    EXPECT_EQ(taken(form, Repeated("50 1 2 3", limit)), 0);
    EXPECT_THAT(Outcome(), ElementsAre(1, 1, 0, 3, 0));
  }
  EXPECT_EQ(taken("Form25", Repeated("50 1 2 3", 99)), 99);
  for (const int peaks : {100, 101}) EXPECT_EQ(taken("Form28", Repeated("50 1 2 3", peaks)), 100);
}

TEST_F(PeakListTest, AListBelongsToTheBufferItWasOpenedFor) {
  ReadForCalibration(Open("1 2 3 4\n"));
  ReadForCell(Open("1 2 3 4\n"));
  Play("click Form1.cmdDelBuff\nanswer no\nclick Form17.optE\n");  // another buffer is picked
  EXPECT_EQ(Value("forms"), (Json{"Form1", "Command"}));
  EXPECT_THAT(Outcome(), ElementsAre(1, 0, 2, 5, 0));
  ReadForCalibration(Open("1 2 3 4\n"));
  ReadForCell("input \"n\"\n");  // this one is left
  EXPECT_EQ(Get("Form25")["Loaded"], false);
  Outcome();
  ReadForCell(Open("1 2 3 4\n"));
  ReadForCell("input \"y\"\nfile \"\"\n");  // a new start ends the one before, without a word
  EXPECT_EQ(Get("Form28")["Loaded"], false);
  EXPECT_THAT(Outcome(), ElementsAre(0, 0, 0, 3, 0));
  ReadForCell(Open("1 2 3 4\n"));
  Play("click Form1.cmdDelBuff\nanswer yes\nclick Form17.optC\n");  // erased, and still at work
  EXPECT_EQ(Get("Form28")["Loaded"], false);
  EXPECT_THAT(Outcome(), ElementsAre(1, 0, 1, 3, 0));
}

}  // namespace
}  // namespace koprax
