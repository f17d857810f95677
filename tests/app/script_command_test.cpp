#include "app/script_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "app/script_names.h"

namespace koprax {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

/// The command of that kind that a line reads as; a failure of the test if it reads as another one.
template <class Kind>
Kind Read(const std::string& line) {
  const auto parsed = ParseScriptCommand(line);
  if (const auto* error = std::get_if<ScriptError>(&parsed)) {
    ADD_FAILURE() << line << ": " << error->Reason;
    return Kind{};
  }
  return std::get<Kind>(std::get<ScriptCommand>(parsed));
}

std::string ErrorOf(const std::string& line) {
  const auto parsed = ParseScriptCommand(line);
  const auto* error = std::get_if<ScriptError>(&parsed);
  return error == nullptr ? "read without an error" : error->Reason;
}

TEST(ScriptCommand, ReadsNamesAndTexts) {
  EXPECT_EQ(Read<ClickCommand>(" \tclick\t Form6.cmdZoom  ").Target, (ControlName{"Form6", "cmdZoom", {}}));
  const auto property = Read<GetControlCommand>("get Form20.Text1(3).Text");
  EXPECT_EQ(property.Target, (ControlName{"Form20", "Text1", 3}));
  EXPECT_EQ(property.Target.Text(), "Form20.Text1(3)");
  EXPECT_EQ(property.Property, "Text");
  EXPECT_EQ(Read<GetControlCommand>("get Form6.Line1").Property, std::nullopt);
  EXPECT_EQ(Read<SetCommand>(R"(set Form3.Text1 "\"q\" \\ \u00e9\r\n ")").Text, "\"q\" \\ \xC3\xA9\r\n ");
  EXPECT_EQ(Read<InputCommand>(R"(input "cancel")").Text, "cancel");
  EXPECT_EQ(Read<InputCommand>("input cancel").Text, std::nullopt);
  EXPECT_EQ(Read<SnapshotCommand>(R"(snapshot Form6 "a b.png")").Path, "a b.png");
  EXPECT_EQ(Read<StateCommand>("state CurBuf").Slot, std::nullopt);
  EXPECT_EQ(Read<StateCommand>("state PermX(f)").Slot, 6);
}

TEST(ScriptCommand, ReadsCoordinatesExactlyAndChoicesOfAPrinter) {
  const auto press = Read<MouseCommand>("down Form6.Picture1 right -0.1 1e2");
  EXPECT_EQ(press.Button, MouseButton::Right);
  EXPECT_EQ(press.X, -0.1F);
  EXPECT_EQ(press.Y, 100.0F);
  EXPECT_EQ(Read<MouseCommand>("move Form6.Picture1 57.123456 .5").X, 57.123456F);
  EXPECT_EQ(Read<AnswerCommand>("answer cancel").Answer, MessageAnswer::Cancel);
  const auto choice =
      Read<PrinterCommand>(R"(printer "a.pdf" without symbol copies 2 without "Helvetica-narrow")");
  EXPECT_EQ(choice.Choice->File, "a.pdf");
  EXPECT_THAT(choice.Choice->MissingFonts, ElementsAre("Symbol", "Helvetica-narrow"));
  EXPECT_EQ(choice.Choice->Copies, 2);
  const auto modal = Read<std::shared_ptr<const ModalCommand>>(R"(modal set Form33.Combo1 "1.5406")");
  EXPECT_EQ(std::get<SetCommand>(modal->Command).Text, "1.5406");
  EXPECT_EQ(modal->Text, R"(set Form33.Combo1 "1.5406")");
}

TEST(ScriptCommand, TellsWhatIsWantedInstead) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> refused{
      {"",
       {"click", "click Form6", "click Form6.", "click .cmdZoom", "click Form6.Text1(",
        "click Form6.Text1(x)", "click Form6.Text1()", "click Form6.Text1(3",
        "click Form6.Text1(99999999999)", "click Form6.cmdZoom.Text", "get Form6.Text1.", "get",
        "get Form6.Text1.Text.Text", "close Form6.cmdZoom", "close"}},
      {"JSON string",
       {"set Form3.Text1", "set Form3.Text1 a", R"(set Form3.Text1 "a)", R"(set Form3.Text1 "a\")",
        R"(set Form3.Text1 "\x")", R"(set Form3.Text1 "\ud800")", "set Form3.Text1 5",
        "set Form3.Text1 \"a\tb\"", "file", "input canceled"}},
      {"does not belong", {R"(set Form3.Text1 "a" "b")", "printer cancel copies 2", "forms now"}},
      {"left or right, not 'middle'", {"down Form6.Picture1 middle 1 2"}},
      {"coordinate",
       {"move Form6.Picture1 1", "move Form6.Picture1 1 y", "move Form6.Picture1 nan 1",
        "move Form6.Picture1 inf 1", "move Form6.Picture1 1e99 1", "move Form6.Picture1 1x 1",
        "move Form6.Picture1 left 1"}},
      {"yes, no, ok or cancel", {"answer maybe"}},
      {"Courier", {R"(printer "a.pdf" without Comic)"}},
      {"copies", {R"(printer "a.pdf" copies 0)"}},
      {"letters a to f",
       {"state PermX(g)", "state PermX(1)", "state PermX()", "state PermX(a", "state PermX(ab)",
        "state PermX.a", "buffer", "buffer 1", "buffer A"}},
      {"workspace field", {"state"}},
      {"clik", {"modal clik Form33.cmdComboOK"}},
      {"modal wants a command", {"modal"}},
      {"once", {"modal modal forms"}},
      {"click, set, down", {"clik Form1.cmdInp"}}};
  for (const auto& [words, lines] : refused) {
    for (const std::string& line : lines) {
      EXPECT_THAT(ErrorOf(line), AllOf(HasSubstr(words), testing::Not(HasSubstr("without an error"))))
          << line;
    }
  }
  EXPECT_LT(ErrorOf(std::string(1000000, 'x')).size(), 400U) << "a long line isn't all repeated";
}

TEST(ScriptNames, DistanceCountsLettersAndForgivesCapitals) {
  EXPECT_EQ(EditDistance("kitten", "sitting"), 3U);
  EXPECT_EQ(EditDistance("", "abc"), 3U);
  EXPECT_EQ(EditDistance("CMDZOOM", "cmdZoom"), 0U);
  const std::vector<std::string> names{"cmdSave", "cmdUnzoom", "cmdZoom", "Text1", "Text2", "Text3", "Text4"};
  EXPECT_EQ(NearestNames("cmdZom", names).at(0), "cmdZoom");
  EXPECT_EQ(NearestNames("cmdZom", names).at(1), "cmdUnzoom");
  EXPECT_EQ(NearestNames(std::string(1000000, 'x'), names).size(), 5U);
}

}  // namespace
}  // namespace koprax
