// Journeys through the main menu: loading, picking, erasing, help, the end of the run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/workbench_session.h"
#include "workspace/buffer_picker.h"

namespace koprax {
namespace {

using testing::HasSubstr;

constexpr const char* TwoColumns = "Quartz\r\n1.5406\r\n10 5\r\n10.5 7\r\n11 6\r\n";

std::vector<std::string> NamesOf(const Json& list) { return list.get<std::vector<std::string>>(); }

TEST(MainMenu, AFileGoesFromTheDialogToTheDisplayWindow) {
  WorkbenchSession session;
  const std::string path = session.File("quartz.xy", TwoColumns);
  const auto answers = session.Play(WorkbenchSession::LoadCommands(path, 3, 'b'));
  EXPECT_EQ(answers[1]["events"][0]["filterIndex"], 2);
  EXPECT_EQ(answers[1]["events"][0]["filter"],
            "All Files (*.*)|*.*| dat Files (*.dat)|*.dat| adf Files (*.adf)|*.adf| udf Files (*.udf)|*.udf| "
            "uxd Files (*.uxd)|*.uxd| aid Files (*.aid)|*.aid");
  const auto pointer = [](int shape) {
    return Json{{"event", "pointer"}, {"of", "Form10"}, {"pointer", shape}};
  };
  EXPECT_EQ(answers[4]["events"],
            (Json{pointer(11), ShownEvent("Form6"), pointer(1), UnloadedEvent("Form10")}));
  EXPECT_EQ(answers[1]["events"][1], ShownEvent("Form4"));
  EXPECT_EQ(answers[2]["events"], (Json{UnloadedEvent("Form4"), ShownEvent("Form7")}));
  EXPECT_EQ(answers[3]["events"], (Json{ShownEvent("Form10"), UnloadedEvent("Form7")}));
  EXPECT_EQ(NamesOf(session.Value("forms")), (std::vector<std::string>{"Form6", "Form1"}));
  EXPECT_EQ(session.Value("state FileName"), path);
  EXPECT_EQ(session.Value("state CurBuf"), 2);
  EXPECT_EQ(session.Value("buffer b")["WorkX"], (Json{10.0, 10.5, 11.0}));
  EXPECT_EQ(session.Value("get Form6.Text2.Text"), "buffer b");
  EXPECT_EQ(session.Value("get Form6.Text1.Text"), path);
}

TEST(MainMenu, ComesToTheFrontAfterAnItalLoadAndAfterACancelledPreview) {
  WorkbenchSession session;
  const std::string ital = session.File("i.dat", "Ital\r\n2\r\n1 2 1\r\n5\r\n6\r\n");
  const Json events = session.Events(WorkbenchSession::LoadCommands(ital, 1, 'a'));
  EXPECT_EQ(events[1], FrontEvent("Form1"));
  EXPECT_EQ(events[2], ShownEvent("Form6"));
  // The help and the profile lie between the preview and the menu.
  session.Play("file \"x\"\nclick Form1.cmdInp\nclick Form6.cmdZoomGuide\n");
  EXPECT_EQ(session.Events("click Form4.cmdCancel\n").back(), FrontEvent("Form1"));
}

TEST(MainMenu, AGivenUpDialogChangesNothing) {
  WorkbenchSession session;
  session.Data().FileName = "before";
  session.Play("file cancel\nclick Form1.cmdInp\n");
  EXPECT_EQ(session.Value("state FileName"), "before");
  session.Play("file \"\"\nclick Form1.cmdInp\n");
  EXPECT_EQ(NamesOf(session.Value("forms")), std::vector<std::string>{"Form1"});
}

TEST(MainMenu, AFileThatCannotBeReadIsToldAndLeavesTheBufferAlone) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'a'));
  const Json before = session.Value("buffer a");
  for (const std::string& path :
       {session.Folder() + "/nothing.dat", session.Folder(), session.File("e", "")}) {
    const Json events = session.Events(WorkbenchSession::LoadCommands(path, 1, 'a'));
    EXPECT_EQ(events[1]["event"], "message") << events.dump();
    EXPECT_THAT(events[1]["text"].get<std::string>(), HasSubstr(path));
    EXPECT_EQ(events[2], FrontEvent("Form1"));
    EXPECT_EQ(events.back(), UnloadedEvent("Form10"));
    Json after = session.Value("buffer a");
    EXPECT_EQ(after["FormatCode"], 3);
    after["FormatCode"] = 2;
    EXPECT_EQ(after, before);
  }
}

TEST(MainMenu, AFailedReadingLeavesTheBufferEmptyAndNoModeBehind) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'a'));
  std::string long_file = "Long\r\n1.5\r\n";
  for (int i = 1; i <= 8001; ++i) {
    long_file += std::to_string(i) + " 1\r\n";
  }
  const Json events = session.Events(WorkbenchSession::LoadCommands(session.File("l", long_file), 3, 'a'));
  EXPECT_EQ(events[1]["text"],
            "Profile with more than 8000 points.\r\nNot allowed in the present version of the program.\r\n"
            "Return to main menu.");
  EXPECT_EQ(events[1]["title"], "Error");
  EXPECT_EQ(session.Value("buffer a")["PermNpts"], 0);
  EXPECT_EQ(session.Value("state Title(a)"), std::string(80, ' '));
  EXPECT_EQ(NamesOf(session.Value("forms")), (std::vector<std::string>{"Form1", "Form6"}));
  EXPECT_EQ(session.Value("state ModeDisp"), 0);
}

TEST(MainMenu, ALineOfManyWordsIsToldAndTheLoadGoesOn) {
  WorkbenchSession session;
  std::string words;
  for (int i = 1; i <= 25; ++i) {
    words += std::to_string(i) + " ";
  }
  const std::string path = session.File("w.xy", "Words\r\n1.5\r\n0 3\r\n" + words + "\r\n");
  const Json told = session.Events(WorkbenchSession::LoadCommands(path, 3, 'a'))[1];
  EXPECT_EQ(told["text"], "More than 24 words found in input.");
  EXPECT_EQ(told["title"], "Truncated");
  EXPECT_EQ(told["icon"], "stop");
  EXPECT_EQ(session.Value("state PermNpts(a)"), 2);
}

TEST(MainMenu, ModesEndWithTheOpeningThatTheyWereFor) {
  for (const char letter : {'a', 'b'}) {  // a profile, and an empty buffer that can't be shown
    WorkbenchSession session;
    session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'a'));
    session.Play("file \"x\"\nclick Form1.cmdInp\nclick Form4.cmdOK\nclick Form7.Option3\n");
    session.Data().ModeDisp = session.Data().ModeAnal = session.Data().ModeFit = true;
    session.Play(std::string("click Form10.opt") + (letter == 'a' ? "A" : "B") + "\n");
    EXPECT_FALSE(session.Data().ModeDisp || session.Data().ModeAnal || session.Data().ModeFit);
    EXPECT_EQ(session.Value("forms")[0], letter == 'a' ? "Form12" : "Form1");
  }
}

TEST(MainMenu, ADownwardProfileOpensTheWindowWithoutAPlot) {
  WorkbenchSession session;
  session.Play(
      WorkbenchSession::LoadCommands(session.File("d.xy", "Down\r\n1.5\r\n30 1\r\n20 2\r\n"), 3, 'a'));
  EXPECT_EQ(session.Value("picture Form6.Picture1"), Json::array());
  EXPECT_EQ(NamesOf(session.Value("forms")), (std::vector<std::string>{"Form1", "Form6"}));
  EXPECT_EQ(session.Value("state PermXMin(a)"), 30.0);
  const Json events = session.Events("move Form6.Picture1 60 50\nclick Form6.cmdZoom\n");
  EXPECT_EQ(events[0]["event"], "message");
  EXPECT_EQ(session.Value("get Form6.cmdMain.Enabled"), true);
  EXPECT_EQ(session.Value("get Form6.Text3.Text"), "");
}

TEST(Pickers, ShowTheTitlesAndDisplayOneProfileAnew) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'b'));
  session.Play("click Form1.cmdDisp\n");
  EXPECT_EQ(session.Value("state ModeDisp"), -1);
  EXPECT_EQ(session.Value("get Form11.Text1.Text"), " Empty");
  EXPECT_EQ(session.Value("get Form11.Text2.Text"), "Quartz" + std::string(74, ' '));
  EXPECT_THAT(session.Refusal("click Form11.Check1"), HasSubstr("disabled"));
  session.Data().Buffer(2).WorkY[1] = 99;  // a change that is not saved goes with a new opening
  EXPECT_EQ(session.Events("click Form11.Check2\nclick Form11.Command1\n"),
            (Json{UnloadedEvent("Form11"), UnloadedEvent("Form6"), ShownEvent("Form6")}));
  EXPECT_EQ(session.Value("state ModeDisp"), 0);
  EXPECT_EQ(session.Value("state NumSelected"), 1);
  EXPECT_EQ(session.Value("state SelBuf"), (Json{0, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(session.Value("buffer b")["WorkY"][0], 5.0);
}

TEST(Pickers, TheDisplayPickerStartsAfreshAndReadsNothing) {
  WorkbenchSession session;
  const std::string path = session.File("q.xy", TwoColumns);
  session.Play(WorkbenchSession::LoadCommands(path, 3, 'b') + WorkbenchSession::LoadCommands(path, 3, 'c'));
  session.Data().SelBuf[5] = 1;
  session.Play("click Form1.cmdDisp\n");
  EXPECT_EQ(session.Value("state SelBuf"), (Json{0, 0, 0, 0, 0, 0, 0}));
  session.Play("click Form11.Check2\nclick Form11.Check3\nclick Form11.Check2\n");
  // Whatever came between, OK shows what is there and reads nothing.
  session.Data().ModeDisp = false;
  session.Data().FileName = "/nowhere";
  const Json events = session.Events("click Form11.Command1\n");
  EXPECT_EQ(events.back(), ShownEvent("Form6"));
  for (const Json& event : events) {
    EXPECT_NE(event["event"], "message");
  }
}

TEST(Pickers, AnotherBufferGivesUpATitleThatIsBeingTyped) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'a'));
  session.Play("click Form6.cmdSave\nset Form3.Text1 \"lost\"\n");
  session.Play("click Form1.cmdDelBuff\nanswer no\nclick Form17.optA\n");
  EXPECT_EQ(session.Value("get Form3")["Loaded"], true);
  EXPECT_NE(session.Value("get Form6.Text1.Text"), "Modified file");
  session.Play("click Form1.cmdDelBuff\nanswer no\nclick Form17.optB\n");
  EXPECT_EQ(session.Value("get Form3")["Loaded"], false);
  EXPECT_EQ(session.Value("get Form6.Text1.Text"), "Modified file");
  EXPECT_EQ(session.Value("state Title(a)").get<std::string>().substr(0, 26), "Quartz Modified by KOPRAX ");
  // So do a new profile in the same buffer, and its erase.
  session.Play("click Form1.cmdDisp\nclick Form11.Check1\nclick Form11.Command1\nclick Form6.cmdSave\n");
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'a'));
  EXPECT_EQ(session.Value("get Form3")["Loaded"], false);
  session.Play("click Form6.cmdSave\nclick Form1.cmdDelBuff\nanswer yes\nclick Form17.optA\n");
  EXPECT_EQ(session.Value("get Form3")["Loaded"], false);
  EXPECT_EQ(session.Value("state Title(a)"), std::string(80, ' '));
}

TEST(Pickers, DifferInWhatBecomesOfTheCurrentBuffer) {
  WorkbenchSession session;
  session.Play("forms\n");
  SilentServices services(session);
  for (const PickerKind& kind :
       {pickers::Profile, pickers::CalibrationOrBackground, pickers::Erase, pickers::SmoothedResult,
        pickers::FitBackground, pickers::Cell, pickers::ComputedProfile, pickers::SeveralSaved}) {
    const std::string name = kind.Name;
    session.Data().CurBuf = 4;
    session.Data().Buffer(6).Title[0] = 'x';  // not all buffers are empty
    session.Desk().Load<BufferPicker>(services.Context, kind, PickerActions{});
    EXPECT_EQ(session.Data().CurBuf, 4) << name;
    session.Data().Buffer(6).Title[0] = ' ';
    bool loaded_while_acting = false;
    const auto picker = session.Desk().Load<BufferPicker>(
        services.Context, kind, PickerActions{.Chosen = [&](Form& form, const std::vector<int>& slots) {
          loaded_while_acting = form.Loaded();
          EXPECT_EQ(slots, std::vector<int>{2});
        }});
    const bool counts_empty = name == "Form16" || name == "Form29" || name == "Form32";
    EXPECT_EQ(session.Data().CurBuf, counts_empty ? 1 : 4) << name;
    session.Data().CurBuf = 4;
    dynamic_cast<OptionButton&>(*picker->Find("optB")).Value = true;
    EXPECT_EQ(session.Data().CurBuf, name == "Form21" ? 4 : 2) << name;
    EXPECT_EQ(loaded_while_acting, name == "Form10" || name == "Form21" || name == "Form27") << name;
  }
  EXPECT_EQ(services.TitlesGivenUp, 10);
}

TEST(Pickers, NoneTickedLeavesTheDisplayAsItWas) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'b'));
  EXPECT_EQ(session.Events("click Form1.cmdDisp\nclick Form11.Command1\n"), Json{UnloadedEvent("Form11")});
  EXPECT_EQ(session.Value("state NumSelected"), 0);
  EXPECT_EQ(session.Value("state ModeDisp"), 0);
  session.Play("click Form1.cmdDisp\nclose Form11\n");
  EXPECT_EQ(session.Value("state ModeDisp"), 0);
}

TEST(Pickers, EraseAsksFirst) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", TwoColumns), 3, 'b'));
  const Json kept = session.Events("click Form1.cmdDelBuff\nanswer no\nclick Form17.optB\n");
  EXPECT_EQ(kept[0], UnloadedEvent("Form17"));
  EXPECT_EQ(kept[1]["text"],
            "Are you sure?\r\nThis will destroy everything in buffer N.2\r\nQuartz" + std::string(74, ' '));
  EXPECT_EQ(kept[1]["title"], "Warning");
  EXPECT_EQ(kept[1]["icon"], "question");
  EXPECT_EQ(session.Value("buffer b")["PermNpts"], 3);
  session.Play("click Form1.cmdDelBuff\nanswer yes\nclick Form17.optB\n");
  EXPECT_EQ(session.Value("buffer b")["PermNpts"], 0);
  EXPECT_EQ(session.Value("state CurBuf"), 2);
  // The window that shows the erased buffer works on an empty record.
  session.Play("move Form6.Picture1 60 50\nclick Form6.cmdZoom\n");
}

TEST(Help, EachTopicReplacesTheOneBefore) {
  WorkbenchSession session;
  EXPECT_EQ(session.Events("click Form1.Command1\n"), Json{ShownEvent("Form5")});
  const Json load = session.Value("get Form5.Text1.Text");
  session.Play("click Form1.Command8\n");
  EXPECT_THAT(session.Value("get Form5.Text1.Text").get<std::string>(), HasSubstr("DISCLAIMER"));
  EXPECT_NE(session.Value("get Form5.Text1.Text"), load);
  session.Play("close Form5\n");
  EXPECT_EQ(session.Value("get Form5"), (Json{{"Loaded", false}, {"Visible", false}}));
}

TEST(MainMenu, QuitEndsTheRunAtOnce) {
  for (const char* last : {"click Form1.cmdStop\n", "close Form1\n"}) {
    WorkbenchSession session;
    EXPECT_EQ(session.Events(last), (Json{{{"event", "quit"}}}));
    EXPECT_FALSE(session.Try("forms\n").at(0)["ok"].get<bool>());
  }
}

}  // namespace
}  // namespace koprax
