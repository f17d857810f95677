// The "?" buttons of all windows and the topics that they show.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "app/window_walk.h"
#include "app/workbench.h"
#include "workspace/help_button.h"
#include "workspace/help_topics.h"

namespace koprax {
namespace {

using enum HelpTopic;

struct HelpRow {
  HelpTopic Topic;
  std::string Beside;  ///< the control before it in the layout; none for a button with a caption of its own
};

/// Each help button, by window and name.
const std::map<std::string, std::map<std::string, HelpRow>> HelpButtons{
    {"Form1",
     {{"Command1", {HelpLoad, "cmdInp"}},
      {"Command2", {HelpSaveDisk, "cmdOut"}},
      {"Command3", {HelpDisplay, "cmdDisp"}},
      {"Command4", {HelpManipulation, "cmdAnal"}},
      {"Command5", {HelpFit, "cmdFit"}},
      {"Command6", {HelpErase, "cmdDelBuff"}},
      {"Command7", {HelpAbout, ""}},
      {"Command8", {HelpDisclaimer, ""}},
      {"Command9", {HelpCalibration, "cmdCalib"}},
      {"Command10", {HelpRefineCell, "cmdRefineCell"}}}},
    {"Form7",
     {{"Command1", {HelpFormatItal, "Option1"}},
      {"Command2", {HelpFormatOneColumn, "Option2"}},
      {"Command3", {HelpFormatTwoColumns, "Option3"}},
      {"Command4", {HelpFormatCps, "Option4"}},
      {"Command5", {HelpFormatPhilips, "Option5"}},
      {"Command6", {HelpFormatUxd, "Option6"}},
      {"Command7", {HelpFormatCard, "Option7"}}}},
    {"Form6",
     {{"cmdZoomGuide", {HelpZoom, "cmdZoom"}},
      {"Command1", {HelpClearList, "cmdClearPeaks"}},
      {"Command2", {HelpEdit, "cmdEdit"}},
      {"Command3", {HelpArithmetic, "cmdMod"}},
      {"Command4", {HelpUndoZoom, "cmdUnzoom"}},
      {"Command5", {HelpSave, "cmdSave"}},
      {"Command6", {HelpMainMenu, "cmdMain"}},
      {"Command7", {HelpExplorer, "cmdManExpl"}},
      {"Command8", {HelpAccept, "cmdAccept"}},
      {"Command9", {HelpShowChanges, "cmdEditOK"}},
      {"Command10", {HelpCancel, "cmdEditNO"}},
      {"Command11", {HelpSaveList, "cmdSavePeaks"}},
      {"Command12", {HelpQuitExplorer, "cmdExiManExp"}},
      {"Command13", {HelpPrint, "cmdPrint"}},
      {"Command14", {HelpEraseLast, "cmdErsLaIt"}},
      {"Command16", {HelpChangeAll, "Command15"}},
      {"Command18", {HelpBitmap, "Command17"}}}},
    {"Form2",
     {{"cmdZoomGuide", {HelpZoom, "cmdZoom"}},
      {"Command2", {HelpPrint, "Command1"}},
      {"Command3", {HelpArithmetic, "cmdMod"}},
      {"Command4", {HelpBitmap, "cmdBitMap"}},
      {"Command5", {HelpSaveSelected, "cmdSave"}},
      {"Command6", {HelpMainMenu, "cmdMain"}}}},
    {"Form8",
     {{"Command3", {HelpDefineY, "optY2"}},
      {"Command4", {HelpAddProfiles, "Command1"}},
      {"Command6", {HelpSubtractProfiles, "Command2"}}}},
    {"Form12",
     {{"cmdSmoGuide", {HelpSmoothing, "cmdSmo"}},
      {"Command6", {HelpSmoothing, "Command14"}},
      {"Command15", {HelpSmoothing, "Command17"}},
      {"Command1", {HelpBackground, "cmdBckg"}},
      {"Command4", {HelpDft, "cmdDFT"}},
      {"Command13", {HelpDft, "Command7"}},
      {"Command2", {HelpDftInverse, "cmdDFTInv"}},
      {"Command3", {HelpFilter, "cmdFilter"}},
      {"Command12", {HelpQuitBackground, "cmdQuitBckg"}},
      {"Command8", {HelpZoomBackground, "cmdZoom"}},
      {"Command9", {HelpResume, "cmdResume"}},
      {"Command10", {HelpPrintBackground, "cmdPrint"}},
      {"Command11", {HelpSubtract, "cmdSubtr"}},
      {"Command5", {HelpSaveBackground, "cmdSave"}},
      {"Command19", {HelpBitmap, "Command18"}},
      {"Command20", {HelpRescale, "cmdRes"}}}},
    {"Form19",
     {{"Command1", {HelpSelectRange, "cmdSelectRange"}},
      {"Command6", {HelpQuitFit, "cmdMain"}},
      {"Command7", {HelpShowParam, "cmdShowParam"}},
      {"Command8", {HelpBackgroundBuffer, "Command2"}},
      {"Command9", {HelpDrawBackground, "cmdDefBkg"}},
      {"Command12", {HelpDefineBackground, "Command5"}},
      {"Command11", {HelpDefinePeaks, "Command10"}},
      {"Command3", {HelpLoadPeaks, "cmdLoadPeaks"}},
      {"Command4", {HelpSelectPeaks, "cmdSelPeaks"}},
      {"Command13", {HelpStartFit, "cmdStartFit"}},
      {"Command14", {HelpFitFrame, "Command15"}},
      {"Command16", {HelpSaveFit, "cmdSave"}}}},
    {"Form24",
     {{"Command5", {HelpCorundum, "cmdCorundum"}},
      {"Command6", {HelpSilicon, "cmdSi"}},
      {"Command7", {HelpCoupling, "cmdStartCou"}},
      {"Command8", {HelpStartCalibration, "Command3"}},
      {"Command9", {HelpSaveCalibration, "Command4"}}}},
};

/// For each control of a window the name of the one before it in the layout.
std::map<const Control*, std::string> ControlBefore(const Form& form) {
  std::map<const Control*, std::string> before;
  std::string last;
  const auto add = [&](const auto& self, const LayoutNode& node) -> void {
    if (node.Item != nullptr) {
      before[node.Item] = std::exchange(last, node.Item->FullName());
    }
    for (const LayoutNode& child : node.Children) self(self, child);
  };
  add(add, form.Layout());
  return before;
}

/// What a click of a help button shows. Windows that the walk loaded by themselves ask its own services.
std::string ShownBy(WindowWalk& walk, const Button& button) {
  walk.Services.Helped.reset();
  walk.Session.Desk().Unload("Form5");
  button.OnClick();
  if (const auto window = walk.Session.Desk().Find("Form5")) {
    return dynamic_cast<const TextBox&>(*window->Find("Text1")).Text.Get();
  }
  return walk.Services.Helped ? HelpText(*walk.Services.Helped) : "";
}

/// In small letters, without the marks of access keys, and with a single blank between words.
std::string Plain(const std::string& text) {
  std::string plain;
  std::istringstream words(text);
  for (std::string word; words >> word;) plain += plain.empty() ? word : " " + word;
  std::erase(plain, '&');
  std::ranges::transform(plain, plain.begin(), [](unsigned char letter) { return std::tolower(letter); });
  return plain;
}

/// The command that a topic opens with; empty where it opens with none.
std::string CommandNamedBy(HelpTopic topic) {
  const std::string text = Plain(HelpText(topic));
  const std::string opening = "command \"";
  return text.starts_with(opening)
             ? text.substr(opening.size(), text.find('"', opening.size()) - opening.size())
             : "";
}

TEST(Help, EachButtonOfEachWindowShowsItsTopicAndEachTopicHasAButton) {
  WindowWalk walk;
  // By topic, of the commands that a button stands beside. The opening on smoothing names the frame.
  std::map<HelpTopic, std::set<std::string>> captions{{HelpSmoothing, {"smoothing"}}};
  std::set<std::string> visited{"Form9"};  // which is never shown
  const auto visit = [&](const Form& form) {
    visited.insert(form.Name());
    const auto row = HelpButtons.find(form.Name());
    auto expected = row == HelpButtons.end() ? std::map<std::string, HelpRow>{} : row->second;
    const auto beside = ControlBefore(form);
    for (const Control* control : form.Controls()) {
      const auto* button = dynamic_cast<const Button*>(control);
      const bool helps = dynamic_cast<const HelpButton*>(control) != nullptr;
      if (button == nullptr || (!helps && button->Caption.Get() != "?")) continue;
      const std::string name = form.Name() + "." + button->FullName();
      ASSERT_TRUE(expected.contains(button->FullName())) << name << " has no row in the table";
      const HelpRow help = expected.extract(button->FullName()).mapped();
      EXPECT_EQ(ShownBy(walk, *button), HelpText(help.Topic)) << name;
      EXPECT_EQ(button->Meaning, "Help on " + std::string(HelpSubject(help.Topic))) << name;
      if (!help.Beside.empty()) {
        EXPECT_EQ(beside.at(button), help.Beside) << name;
        captions[help.Topic].insert(
            Plain(dynamic_cast<const CaptionedControl&>(*form.Find(help.Beside)).Caption));
      }
    }
    EXPECT_TRUE(expected.empty()) << form.Name() << " lacks " << expected.begin()->first;
  };
  walk.VisitWindows(visit);
  walk.VisitOtherPickers(visit);
  const auto& names = Workbench::FormNames();
  EXPECT_EQ(visited, std::set<std::string>(names.begin(), names.end()));

  std::set<HelpTopic> reached;
  for (const auto& [form, buttons] : HelpButtons) {
    for (const auto& [name, help] : buttons) reached.insert(help.Topic);
  }
  EXPECT_EQ(reached.size(), HelpTopicCount);
  for (const HelpTopic topic : reached) {
    const std::string command = CommandNamedBy(topic);
    EXPECT_TRUE(command.empty() || captions[topic].contains(command)) << command;
  }
}

TEST(Help, APressWithinASelectionLeavesTheSelectionAsItIs) {
  WorkbenchSession session;
  session.Play(WorkbenchSession::LoadCommands(session.File("q.xy", "Q\r\n1.5\r\n10 5\r\n11 6\r\n"), 3, 'a') +
               "click Form6.cmdZoom\ndown Form6.Picture1 left 30 60\nmove Form6.Picture1 80 60\n");
  const auto picture = [&] {
    return std::vector<Json>{session.Value("get Form6.Shape1"), session.Value("state ZoomMode"),
                             session.Value("get Form6.optOK.Visible"), session.Value("get Form6.Text6.Text")};
  };
  const auto before = picture();
  session.Play("click Form6.cmdZoomGuide\n");
  EXPECT_EQ(session.Value("forms").at(0), "Form5");
  EXPECT_EQ(picture(), before);
  session.Play("up Form6.Picture1 left 80 60\nclick Form6.optOK\n");
  EXPECT_NE(session.Value("get Form6.Text6.Text"), before.back()) << "the zoom took place";
}

TEST(Help, AnotherTopicTakesThePlaceOfTheFirstAndComesToTheFront) {
  WorkbenchSession session;
  session.Play("click Form1.Command1\nclick Form1.Command6\n");
  EXPECT_EQ(session.Value("get Form5.Text1.Text"), HelpText(HelpErase));
  EXPECT_EQ(session.Value("forms"), Json({"Form5", "Form1"}));
}

TEST(Help, WhatATopicQuotesIsTheCaptionOfAWindowOrOfAControl) {
  // The caption of a command cut, or as it stands for a while; words of titles, files, messages and results;
  // answers.
  const std::string others =
      "|display|un-zoom|dft inverse|channels|modified by koprax|smoothed|smoothed by dft|without background|"
      "file without title|rawscan|=|f|i|singular matrix|before refinement|zero correction "
      "(2-theta)|2th(calc)|"
      "yes|no|y|";
  std::set<std::string> captions;
  const auto add = [&](const std::string& caption) { captions.insert(Plain(caption)); };
  const auto visit = [&](const Form& form) {
    add(form.Caption);
    for (const Control* control : form.Controls()) {
      const auto* captioned = dynamic_cast<const CaptionedControl*>(control);
      if (captioned != nullptr) add(captioned->Caption);
    }
  };
  WindowWalk walk;
  walk.VisitWindows(visit);
  walk.VisitOtherPickers(visit);
  for (std::size_t i = 0; i < HelpTopicCount; ++i) {
    const std::string text = HelpText(static_cast<HelpTopic>(i));
    for (auto open = text.find('"'); open != std::string::npos;) {
      const auto close = text.find('"', open + 1);
      ASSERT_NE(close, std::string::npos) << text;
      const std::string quoted = Plain(text.substr(open + 1, close - open - 1));
      EXPECT_TRUE(captions.contains(quoted) || others.find("|" + quoted + "|") != std::string::npos)
          << HelpSubject(static_cast<HelpTopic>(i)) << ": " << quoted;
      open = text.find('"', close + 1);
    }
  }
}

}  // namespace
}  // namespace koprax
