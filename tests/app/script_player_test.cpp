#include "app/script_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "forms/form.h"
#include "forms/memory_platform.h"

namespace koprax {
namespace {

using testing::HasSubstr;

/// A window with one control of each kind that a script can act on.
struct ToyForm final : Form {
  explicit ToyForm(Desktop& desk) : Form(desk, "Form6", "Toy") {
    SetLayout(Column({cmdGo, cmdOff, cmdAsk, cmdModal, cmdFault, Check1, Framed(Frame1, Column({optA, optB})),
                      Text1, Text2, Text3, Text4, Combo1, Label1, Picture1}));
    cmdGo.OnClick = [this] { Caption = "Gone"; };
    cmdAsk.OnClick = [this] {
      const bool yes = Desk().Host().MsgBox({.Text = "Sure?\r\n",
                                             .Title = "T",
                                             .Buttons = MessageButtons::YesNo,
                                             .Icon = MessageIcon::Question}) == MessageAnswer::Yes;
      Label1.Caption = yes ? "yes" : "no";
    };
    cmdModal.OnClick = [this] {
      MousePointer = Pointer::Hourglass;
      Desk().Find("Form33")->ShowModal();
      MousePointer = Pointer::Arrow;
    };
    cmdFault.OnClick = [] { throw std::runtime_error("no such thing"); };
    Picture1.OnMouseMove = [this](float x, float y) {
      Picture1.MousePointer = Pointer::Cross;
      Picture1.Line(0, 0, x, y, colours::Blue);
      Line1.X2 = x;
      Line1.Refresh();
    };
  }

  Button cmdGo{*this, "cmdGo", {.Caption = "Go"}};
  Button cmdOff{*this, "cmdOff", {.Caption = "Off", .Enabled = false}};
  Button cmdAsk{*this, "cmdAsk", {.Caption = "Ask"}};
  Button cmdModal{*this, "cmdModal", {.Caption = "Modal"}};
  Button cmdFault{*this, "cmdFault", {.Caption = "Fault"}};
  CheckBox Check1{*this, "Check1", {.Caption = "Tick"}};
  Frame Frame1{*this, "Frame1", {.Caption = "Choices", .Visible = false}};
  OptionButton optA{*this, "optA", {.Caption = "A"}};
  OptionButton optB{*this, "optB", {.Caption = "B"}};
  TextBox Text1{*this, "Text1", {.Text = "old"}};
  TextBox Text2{*this, "Text2", {.MultiLine = true}};
  TextBox Text3{*this, "Text3", {.Text = "fixed", .Locked = true}};
  TextBox Text4{*this, "Text4", {}, 2};
  ComboBox Combo1{*this, "Combo1", {.Text = "Black", .Items = {"Black", "Red"}}};
  Label Label1{*this, "Label1", {}};
  PictureBox Picture1{*this, "Picture1", {}};
  LineShape Line1{Picture1, "Line1", colours::Blue, 0, 15, 0, 90};
};

struct SmallForm final : Form {
  SmallForm(Desktop& desk, const std::string& name, const std::string& caption) : Form(desk, name, caption) {
    SetLayout(Column({Text1, cmdOk}));
    cmdOk.OnClick = [this] { Name() == "Form1" ? Desk().Quit() : Hide(); };
  }
  TextBox Text1{*this, "Text1", {}};
  Button cmdOk{*this, "cmdOk", {.Caption = "OK"}};
};

struct ScriptPlayerTest : testing::Test {
  ScriptPlayerTest() {
    Data.CurBuf = 3;
    Data.Buffer(2).PermNpts = 7;
  }

  /// Plays a script on the toy windows, the menu Form1 in front. Answers without that of the start.
  std::vector<Json> Play(const std::string& script) {
    std::istringstream commands(script);
    std::ostringstream output;
    ScriptPlayer player({.Desk = Desk, .Data = Data, .FormNames = Names, .Runtime = Host, .Host = Store},
                        output);
    Status = player.Play(
        [this] {
          Desk.Load<SmallForm>(Desk, "Form33", "Wavelength");
          Desk.Load<ToyForm>(Desk)->Show();
          Desk.Load<SmallForm>(Desk, "Form1", "Main menu")->Show();
        },
        commands);
    std::vector<Json> answers;
    std::istringstream lines(output.str());
    for (std::string line; std::getline(lines, line);) {
      answers.push_back(Json::parse(line));
    }
    Start = answers.at(0);
    answers.erase(answers.begin());
    return answers;
  }

  MemoryPlatform Store;
  ScriptedRuntime Host{Store};
  Desktop Desk{Host};
  Workspace Data;
  const std::vector<std::string> Names{"Form1", "Form6", "Form12", "Form33"};
  Json Start;
  int Status = -1;
};

TEST_F(ScriptPlayerTest, AnswersTheStartAndEachCommandOnALineOfItsOwn) {
  const auto answers =
      Play("\xEF\xBB\xBF# a script\r\n\r\n  \nforms\r\nclick Form6.cmdGo\nget Form6.cmdGo.Caption");
  EXPECT_EQ(JsonLine(Start),
            R"({"line":0,"command":"","ok":true,"events":[{"event":"shown","form":"Form6","modal":false},)"
            R"({"event":"shown","form":"Form1","modal":false}]})");
  EXPECT_EQ(
      JsonLine(answers),
      R"([{"line":4,"command":"forms","ok":true,"value":["Form1","Form6"]},)"
      R"({"line":5,"command":"click Form6.cmdGo","ok":true,"events":[{"event":"front","form":"Form6"}]},)"
      R"({"line":6,"command":"get Form6.cmdGo.Caption","ok":true,"value":"Go"}])");
  EXPECT_EQ(Status, 0);
}

TEST_F(ScriptPlayerTest, ActsAsAPersonWould) {
  const auto answers = Play(R"(click Form6.Check1
set Form6.Text1 "new\nrest"
set Form6.Text2 "a\nb\r\nc\rd"
set Form6.Text4(2) ""
set Form6.Combo1 "any\r\n"
move Form6.Picture1 57.5 -1
get Form6
picture Form6.Picture1)");
  EXPECT_EQ(Status, 0);
  const Json& controls = answers.at(6)["value"]["controls"];
  EXPECT_EQ(controls["Check1"]["Value"], 1);
  EXPECT_EQ(controls["Text1"]["Text"], "new") << "nobody can enter a line break in a box of one line";
  EXPECT_EQ(controls["Text2"]["Text"], "a\r\nb\r\nc\r\nd");
  EXPECT_EQ(controls["Text4(2)"]["Text"], "");
  EXPECT_EQ(controls["Combo1"]["Text"], "any");
  EXPECT_EQ(controls["Combo1"]["Items"], Json({"Black", "Red"}));
  EXPECT_EQ(controls["optA"]["Visible"], true) << "its own setting, whatever the frame says";
  EXPECT_EQ(answers[6]["value"]["Loaded"], true);
  EXPECT_EQ(JsonLine(answers[7]["value"]),
            R"([{"op":"line","x1":0.0,"y1":0.0,"x2":57.5,"y2":-1.0,"colour":16711680}])");
  EXPECT_EQ(
      JsonLine(answers[5]["events"]),
      R"([{"event":"pointer","of":"Form6.Picture1","pointer":2},)"
      R"({"event":"refresh","control":"Form6.Line1","Visible":true,"X1":0.0,"Y1":15.0,"X2":57.5,"Y2":90.0}])");
}

TEST_F(ScriptPlayerTest, RefusesWhatAPersonCouldNotDoAndListsTheNearNames) {
  const std::vector<std::vector<std::string>> cases{
      {"click Form6.cmdOff", "Form6.cmdOff is disabled"},
      {"click Form6.optA", "Form6.Frame1 is hidden"},
      {"set Form6.Text3 \"x\"", "locked"},
      {"click Form33.cmdOk", "Form33 is not shown"},
      {"close Form33", "Form33 is not shown"},
      {R"(snapshot Form33 "a.png")", "not shown"},
      {"click Form12.cmdMain", "Form12 is not loaded"},
      {"get Form12.cmdMain", "not loaded"},
      {"click Form6.Label1", "a label"},
      {"set Form6.cmdGo \"x\"", "a button"},
      {"move Form6.Text1 1 1", "a text box"},
      {"picture Form6.Text1", "picture boxes"},
      {"click Form66.cmdGo", "no form Form66", "Form6"},
      {"click Form6.cmdgo", "no control cmdgo", "names are cmdGo"},
      {"get Form6.Text4", "Text4(2)"},
      {"get Form6.Text1.Value", "no Value", "Text"},
      {"state PermZ(a)", "PermX"},
      {"state PermX", "state PermX(a)"},
      {"state CurBuf(a)", "no field of a buffer"},
      {"click Form6.cmdFault", "no such thing"}};
  for (const auto& words : cases) {
    const auto answers = Play(words[0] + "\n");
    ASSERT_EQ(answers.size(), 1U) << words[0];
    EXPECT_EQ(answers[0]["ok"], false) << words[0];
    EXPECT_EQ(Status, 1) << words[0];
    for (std::size_t i = 1; i < words.size(); ++i) {
      EXPECT_THAT(answers[0].value("error", ""), HasSubstr(words[i])) << words[0];
    }
    if (words[0] == "click Form6.cmdOff") {
      EXPECT_EQ(Desk.ShownForms().front()->Name(), "Form1") << "it brings nothing to the front";
    }
  }
}

TEST_F(ScriptPlayerTest, LooksUpFormsAndState) {
  const auto answers =
      Play("get Form12\nstate CurBuf\nstate PermNpts\nstate PermNpts(b)\nstate SelBuf(a)\nget Printer");
  EXPECT_EQ(JsonLine(answers.at(0)["value"]), R"({"Loaded":false,"Visible":false})");
  EXPECT_EQ(answers[1]["value"], 3);
  EXPECT_EQ(answers[2]["value"], Json({0, 0, 7, 0, 0, 0, 0})) << "slots 0 to 6";
  EXPECT_EQ(answers[3]["value"], 7);
  EXPECT_EQ(answers[4]["value"], 0);
  EXPECT_EQ(answers[5]["value"]["Fonts"], Json({"Symbol", "Times", "Arial", "Courier", "Helvetica-narrow"}));
}

TEST_F(ScriptPlayerTest, ABoxTakesItsAnswerWhenItComesUpOrEndsTheScript) {
  auto answers = Play("answer yes\nclick Form6.cmdAsk\nget Form6.Label1.Caption");
  EXPECT_EQ(
      JsonLine(answers.at(1)["events"][1]),
      R"({"event":"message","text":"Sure?\r\n","title":"T","buttons":"yesno","icon":"question","answer":"yes"})");
  EXPECT_EQ(answers.at(2)["value"], "yes");
  EXPECT_EQ(Status, 0);
  answers = Play("file cancel\nprinter \"p.pdf\"\nmodal forms\nclick Form6.cmdAsk\nforms");
  ASSERT_EQ(answers.size(), 4U);
  EXPECT_EQ(answers[2]["ok"], false);
  EXPECT_THAT(answers[2].value("error", ""), HasSubstr("Sure?"));
  EXPECT_EQ(answers[3]["line"], 0);
  EXPECT_THAT(answers[3].value("error", ""), HasSubstr("file cancel, printer \"p.pdf\", modal forms"));
  EXPECT_EQ(Status, 2);
  Play("answer yes");
  EXPECT_EQ(Status, 1) << "what is left over is a fault, too";
}

TEST_F(ScriptPlayerTest, ModalCommandsAreAnsweredBeforeTheOneThatBroughtTheWindowUp) {
  const auto answers = Play(R"(modal click Form6.cmdGo
modal set Form33.Text1 "1.5"
modal click Form33.cmdOk
click Form6.cmdModal
get Form33.Text1.Text)");
  ASSERT_EQ(answers.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(answers[i]["line"], i + 1);
    EXPECT_EQ(answers[i]["ok"], i > 0);
  }
  EXPECT_THAT(answers[0].value("error", ""), HasSubstr("modal window Form33"));
  EXPECT_EQ(JsonLine(answers[2]["events"]), R"([{"event":"hidden","form":"Form33"}])");
  EXPECT_EQ(
      JsonLine(answers[3]["events"]),
      R"([{"event":"front","form":"Form6"},{"event":"pointer","of":"Form6","pointer":11},)"
      R"({"event":"shown","form":"Form33","modal":true},{"event":"pointer","of":"Form6","pointer":1}])");
  EXPECT_EQ(answers[4]["value"], "1.5");
  EXPECT_EQ(Status, 1);
}

TEST_F(ScriptPlayerTest, AfterTheQuitNothingCanBeDone) {
  const auto answers = Play("click Form1.cmdOk\nforms\nanswer yes\nmodal forms\nnonsense");
  ASSERT_EQ(answers.size(), 5U);
  EXPECT_EQ(JsonLine(answers[0]["events"]), R"([{"event":"quit"}])");
  for (std::size_t i = 1; i < answers.size(); ++i) {
    EXPECT_EQ(answers[i]["ok"], false);
    EXPECT_THAT(answers[i].value("error", ""), HasSubstr("quit"));
  }
  EXPECT_EQ(Status, 1);
}

TEST_F(ScriptPlayerTest, SnapshotsAndClosesGoByForm) {
  Store.SnapshotFailure = "No such file or directory";
  EXPECT_THAT(Play(R"(snapshot Form6 "/none/a.png")").at(0).value("error", ""), HasSubstr("No such file"));
  Store.SnapshotFailure.reset();
  const auto answers = Play("snapshot Form6 \"a.png\"\nclose Form6\nget Form6");
  EXPECT_EQ(Store.Snapshots.at("a.png"), "Form6");
  EXPECT_EQ(JsonLine(answers.at(1)["events"]),
            R"([{"event":"front","form":"Form6"},{"event":"unloaded","form":"Form6"}])");
  EXPECT_EQ(answers.at(2)["value"]["Loaded"], false);
}

TEST_F(ScriptPlayerTest, BrokenInputIsAnsweredAndTheScriptGoesOn) {
  std::string script = "set Form6.Text1 \"\xE9\"\nclick \xFF\xFE\n";
  script += std::string("get\0Form6\n", 10);
  script += std::string(2000000, '[') + "\nclick Form6.cmdFault\nget Form6.Text1.Text";
  const auto answers = Play(script);
  ASSERT_EQ(answers.size(), 6U);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(answers[i]["ok"], i == 0 || i == 5) << i;
  EXPECT_EQ(answers[5]["value"], "\xEF\xBF\xBD");
  EXPECT_EQ(Status, 1);
}

}  // namespace
}  // namespace koprax
