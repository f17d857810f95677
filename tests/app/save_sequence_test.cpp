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
    return Events(answers + FileAnswer(path) + Pick);
  }
  Json ModeOut() { return Value("state ModeOut"); }
  Json Shown() { return Value("forms"); }

  const std::string Pick = "click Form1.cmdOut\nclick Form10.optB\n";
};

TEST_F(SaveSequence, AsksForTheNameThenTheFormatAndWrites) {
  const std::string path = Folder() + "/saved.xy";
  EXPECT_THAT(WordsOf(Start(path)), ElementsAre(testing::_, "unloaded Form10", "shown Form7"));
  EXPECT_EQ(Values("CurBuf FileName Form7.Option7.Enabled ModeOut"), (Json{2, path, false, -1}));
  EXPECT_EQ(Click("Form7.Option3"), (Json{UnloadedEvent("Form7")}));  // which leaves the main menu in front
  EXPECT_EQ(Values("InputFormat ModeOut"), (Json{3, 0}));
  EXPECT_EQ(BytesOf(path),
            FixedField("Quartz", TitleWidth) + "\r\n 1.5406 \r\n 1   0\r\n 2   0\r\n 3   0\r\n");
  // The next load is a load.
  Play(LoadCommands(path, 3, 'a'));
  EXPECT_EQ(Value("buffer a")["PermX"], (Json{1.0, 2.0, 3.0}));
  // The main menu comes to the front from behind another window.
  Start(Folder() + "/again.xy");
  Move("Form6", "50 50");
  EXPECT_EQ(Click("Form7.Option3").back(), FrontEvent("Form1"));
}

TEST_F(SaveSequence, AnExistingFileIsOverwrittenOnlyAfterAYes) {
  const std::string path = File("there.dat", "as it was");
  Start(path, "answer no\n");
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(Shown(), Json{"Form1"});
  Start(path, "answer yes\n");
  EXPECT_EQ(BytesOf(path), "as it was");
  Click("Form7.Option1");
  EXPECT_THAT(BytesOf(path), HasSubstr("\r\n3\r\n1,3,0.5\r\n0\r\n0\r\n0\r\n"));
}

TEST_F(SaveSequence, EndsWhereverItIsGivenUp) {
  const std::string path = Folder() + "/never.dat";
  const std::string start = FileAnswer(path) + Pick;
  const std::string other_load =
      FileAnswer(File("x", "1 2\r\n2 3\r\n")) + "click Form1.cmdInp\nclick Form4.cmdCancel\n";
  for (const std::string& given_up :
       {std::string("click Form1.cmdOut\nclose Form10\n"), "file cancel\n" + Pick, "file \"\"\n" + Pick,
        start + "close Form7\n", "click Form1.cmdOut\n" + other_load, start + other_load}) {
    Play(given_up);
    EXPECT_EQ(ModeOut(), 0) << given_up;
    EXPECT_EQ(Shown(), Json{"Form1"}) << given_up;
  }
  // A card is refused before any dialog.
  Fill(FormatCodes::Card, 0, 3);
  EXPECT_THAT(Words(Pick), ElementsAre(HasSubstr("cannot be saved"), "unloaded Form10"));
  EXPECT_EQ(ModeOut(), 0);
  EXPECT_EQ(BytesOf(path), "");
}

TEST_F(SaveSequence, AnotherCommandNeverWritesOrReadsTheFileOfThisOne) {
  const std::string two_points = "1 2\r\n2 3\r\n";
  const std::string there = File("there.xy", two_points);
  const std::string list = FileAnswer(Folder() + "/list.pks");
  Load('c', "5 6\r\n7 8\r\n");
  const auto start_load = [&](const std::string& window) {
    Play(FileAnswer(there) + "click Form1.cmdInp\n");
    if (window == "Form7") Click("Form4.cmdOK");
    EXPECT_EQ(Shown()[0], window);
  };
  const auto ends = [&](const std::string& script, const std::string& window = "Form7") {
    Play(script);
    EXPECT_FALSE(IsLoaded(window)) << script;
    EXPECT_EQ(BytesOf(there), two_points);
    EXPECT_EQ(ModeOut(), 0);
  };
  for (const char* window : {"Form4", "Form7"}) {  // a save that is started while a load waits
    start_load(window);
    ends("click Form1.cmdOut\nclose Form10\n", window);
  }
  Start(Folder() + "/new.xy");
  ends("click Form1.cmdOut\nclose Form10\n");  // a second save

  Data().Buffer(2).NPeaks = 1;
  Display("b");
  Click("Form6.cmdManExpl");
  Start(Folder() + "/new.xy");
  ends(list + "click Form6.cmdSavePeaks\n");  // else Form7 would write the profile over the list now
  Data().Buffer(2).Wavelength = 0;
  Display("b");
  Start(Folder() + "/new.xy");
  ends(list + "click Form6.cmdComboOK\nclose Form4\n");
  start_load("Form7");
  Play("answer no\nclick Form1.cmdDelBuff\nclick Form17.optC\n");
  EXPECT_TRUE(IsLoaded("Form7"));  // a load may wait for any buffer
  Play("close Form7\n");

  for (const std::string pick : {"click Form1.cmdDisp\nclick Form11.Check3\nclick Form11.Command1\n",
                                 "answer yes\nclick Form1.cmdDelBuff\nclick Form17.optB\n"}) {
    Start(there, "answer yes\n");
    ends(pick);  // the buffer is not the one any more whose file may be overwritten
  }
}

TEST_F(SaveSequence, TheFilterStandsAtTheFormatOfTheProfile) {
  int code = 0;
  for (const int index : {1, 1, 1, 1, 3, 4, 5}) {
    Fill(static_cast<FormatCodes>(code++), 1, 3);
    EXPECT_EQ(Events("file cancel\n" + Pick)[0]["filterIndex"], index) << code;
  }
}

TEST_F(SaveSequence, AFormatIsWrittenOrRefused) {
  using Code = FormatCodes;
  enum { Written, Refused, Stays };  // a refusal ends the save, or lets choose again
  const struct {
    Code From;
    float Step;
    int Points, Option, Outcome;
  } rows[] = {{Code::TwoColumns, 0, 3, 1, Refused},
              {Code::CpsChannels, 1, 4096, 1, Refused},
              {Code::CpsChannels, 1, 4096, 2, Refused},
              {Code::TwoColumns, 0, 3, 2, Refused},
              {Code::Siemens, 1, 4096, 4, Stays},
              {Code::CpsChannels, 1, 4095, 4, Stays},
              {Code::CpsChannels, 1, 4104, 4, Stays},
              {Code::Siemens, 1, 3, 5, Stays},
              {Code::Philips, 1, 3, 6, Stays},
              {Code::OneColumn, 0, 3, 2, Written},
              {Code::TwoColumns, 0.5F, 3, 2, Written},
              {Code::ItalDat, 0.5F, 3, 1, Written},
              {Code::CpsChannels, 1, 4096, 4, Written},
              {Code::Philips, 0.5F, 3, 5, Written},
              {Code::Siemens, 0, 3, 6, Written},
              {Code::Philips, 0.5F, 3, 3, Written},
              {Code::None, 0, 3, 3, Written}};
  for (const auto& row : rows) {
    const std::string option = "Form7.Option" + std::to_string(row.Option);
    const std::string path = Folder() + "/" + option + std::to_string(&row - rows);
    SCOPED_TRACE(path);
    Fill(row.From, row.Step, row.Points);
    Start(path);
    const bool stays = row.Outcome == Stays;
    EXPECT_EQ(After(option)[0] == "unloaded Form7", row.Outcome == Written);
    EXPECT_EQ(ModeOut(), stays ? -1 : 0);
    EXPECT_EQ(Shown(), stays ? (Json{"Form7", "Form1"}) : Json{"Form1"});
    EXPECT_EQ(std::filesystem::exists(path), row.Outcome == Written);
    EXPECT_EQ(BytesOf(path).size() > 3, row.Outcome == Written);
    if (stays) {
      EXPECT_EQ(Get(option + ".Value"), false);
      Play((row.From == Code::CpsChannels ? "input \"n\"\n" : "") + std::string("click Form7.Option3\n"));
      EXPECT_THAT(BytesOf(path), HasSubstr("Quartz"));
      EXPECT_EQ(ModeOut(), 0);
    }
  }
}

}  // namespace
}  // namespace koprax
