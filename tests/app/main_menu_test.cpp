// Journeys through the main menu: loading, picking, erasing, the end of the run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/journey.h"
#include "forms/fixed_text.h"
#include "workspace/buffer_picker.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* ThreePoints = "10 5\r\n10.5 7\r\n11 6\r\n";
const std::string Blank(TitleWidth, ' ');

class MainMenu : public Journey {};
class Pickers : public Journey {};

TEST_F(MainMenu, AFileGoesFromTheDialogToTheDisplayWindow) {
  const std::string path = File("a.xy", std::string("Quartz\r\n1.5406\r\n") + ThreePoints);
  const auto answers = Play(LoadCommands(path, 3, 'b'));
  EXPECT_EQ(WordsOf(answers[1]["events"]).back(), "shown Form4");
  EXPECT_THAT(WordsOf(answers[2]["events"]), ElementsAre("unloaded Form4", "shown Form7"));
  EXPECT_THAT(WordsOf(answers[3]["events"]), ElementsAre("shown Form10", "unloaded Form7"));
  const auto pointer = [](int shape) {
    return Json{{"event", "pointer"}, {"of", "Form10"}, {"pointer", shape}};
  };
  EXPECT_EQ(answers[4]["events"],
            (Json{pointer(11), ShownEvent("Form6"), pointer(1), UnloadedEvent("Form10")}));
  EXPECT_EQ(Value("forms"), (Json{"Form6", "Form1"}));
  EXPECT_EQ(Values("FileName CurBuf"), (Json{path, 2}));
  EXPECT_EQ(Value("buffer b")["WorkX"], (Json{10.0, 10.5, 11.0}));
}

TEST_F(MainMenu, ComesToTheFrontAfterAnItalLoadAndAfterACancelledPreview) {
  const Json events = Events(LoadCommands(File("i.dat", "Ital\r\n2\r\n1 2 1\r\n5\r\n6\r\n"), 1, 'a'));
  EXPECT_EQ((Json{events[1], events[2]}), (Json{FrontEvent("Form1"), ShownEvent("Form6")}));
  // The help and the profile lie between the preview and the menu.
  Play("file \"x\"\nclick Form1.cmdInp\nclick Form6.cmdZoomGuide\n");
  EXPECT_EQ(Value("forms")[0], "Form5");
  EXPECT_EQ(Click("Form4.cmdCancel").back(), FrontEvent("Form1"));
}

TEST_F(MainMenu, AGivenUpDialogChangesNothing) {
  Data().FileName = "before";
  Play("file cancel\nclick Form1.cmdInp\n");
  EXPECT_EQ(Value("state FileName"), "before");
  Play("file \"\"\nclick Form1.cmdInp\n");
  EXPECT_EQ(Value("forms"), Json{"Form1"});
}

TEST_F(MainMenu, AReadingTellsOnItsWayAndAFailedOneLeavesTheBufferEmptyAndNoMode) {
  Load('a', ThreePoints);
  std::string contents = "Long\r\n1.5\r\n";
  for (int i = 1; i <= 25; ++i) contents += "1 ";  // more words than a line may have
  for (int i = 1; i <= 8001; ++i) contents += "\r\n" + std::to_string(i) + " 1";
  EXPECT_THAT(Words(LoadCommands(File("l", contents), 3, 'a')),
              ElementsAre("Truncated, stop: More than 24 words found in input.",
                          HasSubstr("more than 8000 points"), "front Form1", "unloaded Form10"));
  EXPECT_EQ(Values("PermNpts(a) Title(a) ModeDisp"), (Json{0, Blank, 0}));
  EXPECT_EQ(Value("forms"), (Json{"Form1", "Form6"}));
}

TEST_F(MainMenu, ModesEndWithTheOpeningThatTheyWereFor) {
  for (const char letter : {'a', 'b'}) {  // a profile, and an empty buffer that can't be shown
    Load('a', ThreePoints);
    Play("file \"x\"\nclick Form1.cmdInp\nclick Form4.cmdOK\nclick Form7.Option3\n");
    Data().ModeDisp = Data().ModeAnal = Data().ModeFit = true;
    Click(letter == 'a' ? "Form10.optA" : "Form10.optB");
    EXPECT_FALSE(Data().ModeDisp || Data().ModeAnal || Data().ModeFit);
    EXPECT_EQ(Value("forms")[0], letter == 'a' ? "Form12" : "Form1");
  }
}

TEST_F(MainMenu, ADownwardProfileOpensTheWindowWithoutAPlot) {
  Load('a', "30 1\r\n20 2\r\n");
  EXPECT_EQ(Value("picture Form6.Picture1"), Json::array());
  EXPECT_EQ(Value("forms"), (Json{"Form1", "Form6"}));
  EXPECT_EQ(Value("state PermXMin(a)"), 30.0);
  Move("Form6", "60 50");
  EXPECT_EQ(Click("Form6.cmdZoom")[0]["event"], "message");
  EXPECT_EQ(Values("Form6.cmdMain.Enabled Form6.Text3.Text"), (Json{true, ""}));
}

TEST_F(Pickers, ShowTheTitlesAndDisplayNoneOrOneProfileAnew) {
  Load('b', ThreePoints);
  for (const char* none : {"click Form11.Command1\n", "close Form11\n"}) {
    EXPECT_THAT(Words(std::string("click Form1.cmdDisp\n") + none), ElementsAre("unloaded Form11"));
    EXPECT_EQ(Values("NumSelected ModeDisp"), (Json{0, 0}));
  }
  Click("Form1.cmdDisp");
  EXPECT_EQ(Values("ModeDisp Form11.Text1.Text Form11.Text2.Text"),
            (Json{-1, " Empty", FixedField("Profile b", TitleWidth)}));
  EXPECT_THAT(Refusal("click Form11.Check1"), HasSubstr("disabled"));
  Data().Buffer(2).WorkY[1] = 99;  // a change that is not saved goes with a new opening
  EXPECT_EQ(Click("Form11.Check2 Form11.Command1"),
            (Json{UnloadedEvent("Form11"), UnloadedEvent("Form6"), ShownEvent("Form6")}));
  EXPECT_EQ(Values("ModeDisp NumSelected"), (Json{0, 1}));
  EXPECT_EQ(Value("state SelBuf"), (Json{0, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(Value("buffer b")["WorkY"][0], 5.0);
}

TEST_F(Pickers, TheDisplayPickerStartsAfreshAndReadsNothing) {
  for (const char letter : {'b', 'c'}) Load(letter, ThreePoints);
  Data().SelBuf[5] = 1;
  Click("Form1.cmdDisp");
  EXPECT_EQ(Value("state SelBuf"), (Json{0, 0, 0, 0, 0, 0, 0}));
  Click("Form11.Check2 Form11.Check3 Form11.Check2");
  // Whatever came between, OK shows what is there and reads nothing.
  Data().ModeDisp = false;
  Data().FileName = "/nowhere";
  const Json events = Click("Form11.Command1");
  EXPECT_EQ(events.back(), ShownEvent("Form6"));
  for (const Json& event : events) EXPECT_NE(event["event"], "message");
}

TEST_F(Pickers, AnotherBufferGivesUpATitleThatIsBeingTyped) {
  Load('a', ThreePoints);
  Play("click Form6.cmdSave\nset Form3.Text1 \"lost\"\n");
  Play("click Form1.cmdDelBuff\nanswer no\nclick Form17.optA\n");
  EXPECT_TRUE(IsLoaded("Form3"));
  EXPECT_NE(Get("Form6.Text1.Text"), "Modified file");
  Play("click Form1.cmdDelBuff\nanswer no\nclick Form17.optB\n");
  EXPECT_FALSE(IsLoaded("Form3"));
  EXPECT_EQ(Values("Form6.Text1.Text Title(a)"),
            (Json{"Modified file", FixedField("Profile a Modified by KOPRAX", TitleWidth)}));
  // So do a new profile in the same buffer, and its erase.
  Display("a");
  Click("Form6.cmdSave");
  Load('a', ThreePoints);
  EXPECT_FALSE(IsLoaded("Form3"));
  Click("Form6.cmdSave");
  Erase('a');
  EXPECT_FALSE(IsLoaded("Form3"));
  EXPECT_EQ(Value("state Title(a)"), Blank);
}

TEST_F(Pickers, DifferInWhatBecomesOfTheCurrentBuffer) {
  SilentServices services(*this);
  for (const PickerKind& kind :
       {pickers::Profile, pickers::CalibrationOrBackground, pickers::Erase, pickers::SmoothedResult,
        pickers::FitBackground, pickers::Cell, pickers::ComputedProfile, pickers::SeveralSaved}) {
    const std::string name = kind.Name;
    Data().CurBuf = 4;
    Data().Buffer(6).Title[0] = 'x';  // not all buffers are empty
    Desk().Load<BufferPicker>(services.Context, kind, PickerActions{});
    EXPECT_EQ(Data().CurBuf, 4) << name;
    Data().Buffer(6).Title[0] = ' ';
    bool loaded_while_acting = false;
    const auto picker = Desk().Load<BufferPicker>(
        services.Context, kind, PickerActions{.Chosen = [&](Form& form, const std::vector<int>& slots) {
          loaded_while_acting = form.Loaded();
          EXPECT_EQ(slots, std::vector<int>{2});
        }});
    const bool counts_empty = name == "Form16" || name == "Form29" || name == "Form32";
    EXPECT_EQ(Data().CurBuf, counts_empty ? 1 : 4) << name;
    Data().CurBuf = 4;
    dynamic_cast<OptionButton&>(*picker->Find("optB")).Value = true;
    EXPECT_EQ(Data().CurBuf, name == "Form21" ? 4 : 2) << name;
    EXPECT_EQ(loaded_while_acting, name == "Form10" || name == "Form21" || name == "Form27") << name;
  }
  EXPECT_EQ(services.TitlesGivenUp, 10);
}

TEST_F(Pickers, OfCalibrationAndCellEndTheirModesAndAllEmptyNeedsNoPicker) {
  EXPECT_THAT(Words("input \"n\"\nclick Form1.cmdCalib\n"),
              ElementsAre("shown Form16", "unloaded Form16",
                          HasSubstr("No peak was selected or refined in buffer 1."), "unloaded Form24"));
  EXPECT_EQ(Values("CurBuf ModeCalib NoProfileForCalib"), (Json{1, 0, 0}));
  Load('b', ThreePoints);
  Click("Form1.cmdCalib Form1.cmdRefineCell");
  EXPECT_EQ(Values("ModeCalib ModeCell"), (Json{-1, -1}));
  Play("close Form16\nclose Form27\n");
  EXPECT_EQ(Values("ModeCalib ModeCell"), (Json{0, 0}));
}

TEST_F(Pickers, EraseAsksFirst) {
  Load('b', ThreePoints);
  EXPECT_EQ(Words("answer no\nclick Form1.cmdDelBuff\nclick Form17.optB\n").front(), "unloaded Form17");
  EXPECT_EQ(Value("state PermNpts(b)"), 3);
  Erase('b');
  EXPECT_EQ(Values("PermNpts(b) CurBuf"), (Json{0, 2}));
  // The window that shows the erased buffer works on an empty record.
  Play("move Form6.Picture1 60 50\nclick Form6.cmdZoom\n");
}

TEST_F(MainMenu, QuitEndsTheRunAtOnce) {
  for (const char* last : {"click Form1.cmdStop\n", "close Form1\n"}) {
    WorkbenchSession session;
    EXPECT_EQ(session.Events(last), (Json{{{"event", "quit"}}}));
    EXPECT_FALSE(session.Try("forms\n").at(0)["ok"].get<bool>());
  }
}

}  // namespace
}  // namespace koprax
