#include "forms/scripted_runtime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "forms/desktop.h"
#include "forms/form.h"
#include "forms/memory_platform.h"

namespace koprax {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

struct ScriptedRuntimeTest : testing::Test {
  ScriptedRuntimeTest() {
    Host.OnEvent = [this](const RuntimeEvent& event) { Events.push_back(event); };
  }

  /// The words with which the script ends in a call.
  template <class Call>
  static std::string EndOf(Call call) {
    try {
      call();
    } catch (const ScriptEnded& end) {
      return end.what();
    }
    return "it did not end";
  }

  MemoryPlatform Store;
  ScriptedRuntime Host{Store};
  std::vector<RuntimeEvent> Events;
  const Message YesNoBox{.Text = "Overwrite ?", .Title = "Warning", .Buttons = MessageButtons::YesNo};
  const Message OkBox{.Text = "No data", .Title = "Error"};
};

TEST_F(ScriptedRuntimeTest, MessageBoxesTakeAnswersThatFitInOrder) {
  Host.QueueAnswer(MessageAnswer::Yes);
  Host.QueueAnswer(MessageAnswer::No);
  Host.QueueAnswer(MessageAnswer::Cancel);
  Host.QueueAnswer(MessageAnswer::Ok);
  EXPECT_EQ(Host.MsgBox(OkBox), MessageAnswer::Ok) << "an OK box leaves answers to other boxes alone";
  EXPECT_EQ(Host.MsgBox(YesNoBox), MessageAnswer::Yes);
  EXPECT_EQ(Host.MsgBox(YesNoBox), MessageAnswer::No);
  EXPECT_EQ(Host.MsgBox(YesNoBox), MessageAnswer::No) << "giving up a Yes and No box is a No";
  EXPECT_THAT(Host.LeftOver(), ElementsAre("answer ok"));
  EXPECT_EQ(Host.MsgBox(OkBox), MessageAnswer::Ok);
  EXPECT_THAT(Host.LeftOver(), ElementsAre());
  EXPECT_EQ(Host.MsgBox(OkBox), MessageAnswer::Ok) << "an OK box needs no answer";

  std::vector<MessageAnswer> told;
  for (const RuntimeEvent& event : Events) {
    told.push_back(std::get<MessageEvent>(event).Answer);
  }
  EXPECT_THAT(told, ElementsAre(MessageAnswer::Ok, MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::No,
                                MessageAnswer::Ok, MessageAnswer::Ok));
}

TEST_F(ScriptedRuntimeTest, WhatNothingWasQueuedForEndsTheScriptWithTheWordsOfTheDialog) {
  Printer printer;
  EXPECT_THAT(EndOf([&] { (void)Host.MsgBox(YesNoBox); }),
              AllOf(HasSubstr("Warning"), HasSubstr("Overwrite ?")));
  EXPECT_THAT(EndOf([&] {
                (void)Host.InputBox({"give a factor", "Factor", "0.5"});
              }),
              AllOf(HasSubstr("give a factor"), HasSubstr("Factor")));
  EXPECT_THAT(EndOf([&] { (void)Host.FileDialog({.Filter = "All|*.*", .Name = "a.dat"}); }),
              AllOf(HasSubstr("open"), HasSubstr("All|*.*"), HasSubstr("a.dat")));
  EXPECT_THAT(EndOf([&] { (void)Host.FileDialog({.Type = FileDialogRequest::Kind::Save}); }),
              HasSubstr("save"));
  EXPECT_THAT(EndOf([&] { (void)Host.PrinterDialog(printer); }), HasSubstr("printer"));
  EXPECT_THAT(Events, testing::IsEmpty());

  Host.QueueAnswer(MessageAnswer::Ok);
  EXPECT_THAT(EndOf([&] { (void)Host.MsgBox(YesNoBox); }),
              AllOf(HasSubstr("answer ok does not fit"), HasSubstr("Overwrite ?")));
}

TEST_F(ScriptedRuntimeTest, TextsAndPathsComeBackLetterForLetterAndEachKindHasItsQueue) {
  Host.QueueFile("  a b.dat ");
  Host.QueueInput("\xC3\xA9\r\n");
  Host.QueueFile(std::nullopt);
  Host.QueueInput(std::nullopt);
  EXPECT_EQ(Host.InputBox({}), "\xC3\xA9\r\n");
  EXPECT_EQ(Host.FileDialog({}), "  a b.dat ");
  EXPECT_EQ(Host.FileDialog({}), std::nullopt);
  EXPECT_EQ(Host.InputBox({.Default = "0.5"}), "") << "a cancel gives nothing, not the default";
  EXPECT_EQ(std::get<InputEvent>(Events.back()).Answer, std::nullopt);
}

TEST_F(ScriptedRuntimeTest, APrinterChoiceSetsUpADocumentAndACancelTouchesNothing) {
  Printer printer;
  Host.QueuePrinter(PrinterChoice{"a.pdf", {"Symbol", "Times"}});
  Host.QueuePrinter(std::nullopt);
  EXPECT_TRUE(Host.PrinterDialog(printer));
  EXPECT_THAT(printer.Fonts(), ElementsAre("Arial", "Courier", "Helvetica-narrow"));
  printer.SetScaleMode(PrinterScale::Millimetres);
  EXPECT_EQ(printer.ScaleWidth(), 210);
  EXPECT_EQ(printer.ScaleHeight(), 297);
  printer.Line(0, 0, 1, 1);
  EXPECT_EQ(Host.PrintDocument(printer), std::nullopt);
  EXPECT_EQ(Store.Printed.at("a.pdf").size(), 1U);
  EXPECT_EQ(std::get<PrintedEvent>(Events.back()).File, "a.pdf");

  EXPECT_FALSE(Host.PrinterDialog(printer));
  EXPECT_EQ(printer.Operations().size(), 1U);
  EXPECT_EQ(printer.ScaleMode(), PrinterScale::Millimetres);

  Store.PrintFailure = "No space left on device";
  Events.clear();
  EXPECT_EQ(Host.PrintDocument(printer), Store.PrintFailure);
  EXPECT_THAT(Events, testing::IsEmpty()) << "what was not printed is not told as printed";
}

TEST_F(ScriptedRuntimeTest, AModalWindowTakesWhatIsQueuedUntilItClosesAndLeavesTheRest) {
  Desktop desk(Host);
  const auto outer = desk.Load<Form>(desk, "Form31", "Colors");
  const auto inner = desk.Load<Form>(desk, "Form33", "Wavelength");
  std::vector<std::string> done;
  Host.QueueModal("1", [&] { done.emplace_back("first"); });
  Host.QueueModal("2", [&] {
    inner->ShowModal();
    done.emplace_back("inner closed");
  });
  Host.QueueModal("3", [&] { inner->Unload(); });
  Host.QueueModal("4", [&] { outer->Hide(); });
  Host.QueueModal("5", [&] { done.emplace_back("too many"); });
  outer->ShowModal();
  EXPECT_THAT(done, ElementsAre("first", "inner closed"));
  EXPECT_THAT(Host.LeftOver(), ElementsAre("modal 5"));

  EXPECT_THAT(EndOf([&] { outer->ShowModal(); }), AllOf(HasSubstr("Form31"), HasSubstr("Colors")));
  EXPECT_EQ(done.back(), "too many");
}

}  // namespace
}  // namespace koprax
