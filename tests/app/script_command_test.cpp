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

TEST(ScriptCommand, TakesNamesTextsPlacesAndBuffersAsTheyAreWritten) {
  EXPECT_EQ(Read<ClickCommand>(" \tclick\t Form6.cmdZoom  ").Target, (ControlName{"Form6", "cmdZoom", {}}));
  EXPECT_EQ(Read<SetCommand>("set Form20.Text1(3) \"1\"").Target, (ControlName{"Form20", "Text1", 3}));
  EXPECT_EQ(Read<GetControlCommand>("get Form20.Text1(3).Text").Property, "Text");
  EXPECT_EQ(Read<GetControlCommand>("get Form6.Line1").Property, std::nullopt);
  EXPECT_EQ(Read<GetFormCommand>("get Form6").Form, "Form6");
  (void)Read<GetPrinterCommand>("get Printer");
  (void)Read<PrinterPictureCommand>("picture Printer");
  EXPECT_EQ(Read<SetCommand>(R"(set Form3.Text1 "a\r\n\"q\" \\ \u00e9 ")").Text, "a\r\n\"q\" \\ \xC3\xA9 ");
  EXPECT_EQ(Read<InputCommand>(R"(input "cancel")").Text, "cancel");
  EXPECT_EQ(Read<InputCommand>("input cancel").Text, std::nullopt);
  const auto press = Read<MouseCommand>("down Form6.Picture1 right -0.1 1e2");
  EXPECT_EQ(press.Event, MouseCommand::Kind::Down);
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
  EXPECT_EQ(Read<PrinterCommand>("printer cancel").Choice, std::nullopt);
  EXPECT_EQ(Read<StateCommand>("state CurBuf").Slot, std::nullopt);
  EXPECT_EQ(Read<StateCommand>("state PermX(f)").Slot, 6);
  EXPECT_EQ(Read<BufferCommand>("buffer a").Slot, 1);
}

TEST(ScriptCommand, TellsWhyALineIsNone) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> refused{
      {"Form",
       {"click", "click Form6", "click Form6.", "click .cmdZoom", "click Form6.Text1(",
        "click Form6.Text1(x)", "click Form6.Text1()", "click Form6.Text1(3",
        "click Form6.Text1(99999999999)", "click Form6.cmdZoom.Text", "get Form6.Text1.", "get",
        "get Form6.Text1.Text.Text", "close Form6.cmdZoom", "close"}},
      {"JSON string",
       {"set Form3.Text1", "set Form3.Text1 a", R"(set Form3.Text1 "a)", R"(set Form3.Text1 "a\")",
        R"(set Form3.Text1 "\x")", R"(set Form3.Text1 "\ud800")", "set Form3.Text1 5",
        "set Form3.Text1 \"a\tb\"", "file", "input canceled"}},
      {"coordinate",
       {"move Form6.Picture1 1", "move Form6.Picture1 1 y", "move Form6.Picture1 nan 1",
        "move Form6.Picture1 inf 1", "move Form6.Picture1 1e99 1", "move Form6.Picture1 1x 1",
        "move Form6.Picture1 left 1"}},
      {"letters a to f",
       {"state PermX(g)", "state PermX(1)", "state PermX()", "state PermX(a", "state PermX(ab)",
        "state PermX.a", "buffer", "buffer 1", "buffer A"}},
      {"does not belong", {R"(set Form3.Text1 "a" "b")", "printer cancel copies 2", "forms now"}},
      {"left or right", {"down Form6.Picture1 middle 1 2"}},
      {"yes, no, ok or cancel", {"answer maybe"}},
      {"Comic", {R"(printer "a.pdf" without Comic)"}},
      {"copies", {R"(printer "a.pdf" copies 0)"}},
      {"workspace field", {"state"}}};
  for (const auto& [reason, lines] : refused) {
    for (const std::string& line : lines) EXPECT_THAT(ErrorOf(line), HasSubstr(reason)) << line;
  }
}

TEST(ScriptCommand, ModalCommandsAreReadWhenTheyAreQueued) {
  const auto modal = Read<std::shared_ptr<const ModalCommand>>(R"(modal set Form33.Combo1 "1.5406")");
  EXPECT_EQ(std::get<SetCommand>(modal->Command).Text, "1.5406");
  EXPECT_EQ(modal->Text, R"(set Form33.Combo1 "1.5406")");
  EXPECT_THAT(ErrorOf("modal clik Form33.cmdComboOK"), HasSubstr("clik"));
  EXPECT_THAT(ErrorOf("modal"), HasSubstr("modal wants a command"));
  EXPECT_THAT(ErrorOf("modal modal forms"), HasSubstr("once"));
}

TEST(ScriptCommand, UnknownCommandsListTheKnownOnes) {
  EXPECT_THAT(ErrorOf("clik Form1.cmdInp"), AllOf(HasSubstr("'clik'"), HasSubstr("click, set, down")));
  EXPECT_THAT(ErrorOf("forms now"), HasSubstr("does not belong"));
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
