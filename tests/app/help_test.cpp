// The "?" buttons of all windows and the topics that they show.
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "app/window_walk.h"
#include "app/workbench.h"
#include "workspace/help_button.h"
#include "workspace/help_topics.h"

namespace koprax {
namespace {

using enum HelpTopic;

/// Each help button, by window and name, with its topic.
const std::map<std::string, std::map<std::string, HelpTopic>> HelpButtons{
    {"Form1",
     {{"Command1", HelpLoad},
      {"Command2", HelpSaveDisk},
      {"Command3", HelpDisplay},
      {"Command4", HelpManipulation},
      {"Command5", HelpFit},
      {"Command6", HelpErase},
      {"Command7", HelpAbout},
      {"Command8", HelpDisclaimer},
      {"Command9", HelpCalibration},
      {"Command10", HelpRefineCell}}},
    {"Form7",
     {{"Command1", HelpFormatItal},
      {"Command2", HelpFormatOneColumn},
      {"Command3", HelpFormatTwoColumns},
      {"Command4", HelpFormatCps},
      {"Command5", HelpFormatPhilips},
      {"Command6", HelpFormatUxd},
      {"Command7", HelpFormatCard}}},
    {"Form6",
     {{"cmdZoomGuide", HelpZoom},
      {"Command1", HelpClearList},
      {"Command2", HelpEdit},
      {"Command3", HelpArithmetic},
      {"Command4", HelpUndoZoom},
      {"Command5", HelpSave},
      {"Command6", HelpMainMenu},
      {"Command7", HelpExplorer},
      {"Command8", HelpAccept},
      {"Command9", HelpShowChanges},
      {"Command10", HelpCancel},
      {"Command11", HelpSaveList},
      {"Command12", HelpQuitExplorer},
      {"Command13", HelpPrint},
      {"Command14", HelpEraseLast},
      {"Command16", HelpChangeAll},
      {"Command18", HelpBitmap}}},
    {"Form2",
     {{"cmdZoomGuide", HelpZoom},
      {"Command2", HelpPrint},  // stands beside "Print"
      {"Command3", HelpArithmetic},
      {"Command4", HelpBitmap},
      {"Command5", HelpSaveSelected},
      {"Command6", HelpMainMenu}}},
    {"Form8", {{"Command3", HelpDefineY}, {"Command4", HelpAddProfiles}, {"Command6", HelpSubtractProfiles}}},
    {"Form12",
     {{"cmdSmoGuide", HelpSmoothing},
      {"Command6", HelpSmoothing},
      {"Command15", HelpSmoothing},  // beside "Quit" of the smoothing
      {"Command1", HelpBackground},
      {"Command4", HelpDft},
      {"Command13", HelpDft},  // beside "Save" of the filtered profile
      {"Command2", HelpDftInverse},
      {"Command3", HelpFilter},
      {"Command12", HelpQuitBackground},
      {"Command8", HelpZoomBackground},
      {"Command9", HelpResume},
      {"Command10", HelpPrintBackground},
      {"Command11", HelpSubtract},
      {"Command5", HelpSaveBackground},
      {"Command19", HelpBitmap},
      {"Command20", HelpRescale}}},
    {"Form19",
     {{"Command1", HelpSelectRange},
      {"Command6", HelpQuitFit},
      {"Command7", HelpShowParam},
      {"Command8", HelpBackgroundBuffer},
      {"Command9", HelpDrawBackground},
      {"Command12", HelpDefineBackground},
      {"Command11", HelpDefinePeaks},
      {"Command3", HelpLoadPeaks},
      {"Command4", HelpSelectPeaks},
      {"Command13", HelpStartFit},
      {"Command14", HelpFitFrame},
      {"Command16", HelpSaveFit}}},
    {"Form24",
     {{"Command5", HelpCorundum},
      {"Command6", HelpSilicon},
      {"Command7", HelpCoupling},
      {"Command8", HelpStartCalibration},
      {"Command9", HelpSaveCalibration}}},
};

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

TEST(Help, EachButtonOfEachWindowShowsItsTopicAndEachTopicHasAButton) {
  WindowWalk walk;
  std::set<std::string> visited{"Form9"};  // which is never shown
  const auto visit = [&](const Form& form) {
    visited.insert(form.Name());
    const auto row = HelpButtons.find(form.Name());
    auto expected = row == HelpButtons.end() ? std::map<std::string, HelpTopic>{} : row->second;
    for (const Control* control : form.Controls()) {
      const auto* button = dynamic_cast<const Button*>(control);
      const bool helps = dynamic_cast<const HelpButton*>(control) != nullptr;
      if (button == nullptr || (!helps && button->Caption.Get() != "?")) continue;
      const std::string name = form.Name() + "." + button->FullName();
      ASSERT_TRUE(expected.contains(button->FullName())) << name << " has no row in the table";
      const HelpTopic topic = expected.extract(button->FullName()).mapped();
      EXPECT_EQ(ShownBy(walk, *button), HelpText(topic)) << name;
      EXPECT_EQ(button->Meaning, "Help on " + std::string(HelpSubject(topic))) << name;
    }
    EXPECT_TRUE(expected.empty()) << form.Name() << " lacks " << expected.begin()->first;
  };
  walk.VisitWindows(visit);
  walk.VisitOtherPickers(visit);
  const auto& names = Workbench::FormNames();
  EXPECT_EQ(visited, std::set<std::string>(names.begin(), names.end()));

  std::set<HelpTopic> reached;
  for (const auto& [form, buttons] : HelpButtons) {
    for (const auto& [name, topic] : buttons) reached.insert(topic);
  }
  EXPECT_EQ(reached.size(), HelpTopicCount);
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

/// In small letters, without the marks of access keys, and with a single blank for blanks and line ends.
std::string Plain(const std::string& text) {
  std::string plain;
  for (const unsigned char character : text) {
    if (character == '&' || (std::isspace(character) != 0 && plain.ends_with(' '))) continue;
    plain += std::isspace(character) != 0 ? ' ' : static_cast<char>(std::tolower(character));
  }
  return plain;
}

TEST(Help, WhatATopicQuotesStandsInAWindow) {
  std::ifstream file(KOPRAX_SOURCE_DIR "/tests/app/windows.golden");
  const std::string windows = Plain({std::istreambuf_iterator<char>(file), {}});
  // Captions that come with a command, words of titles, files, messages and results, answers.
  const std::string others =
      "|un-zoom|yes|no|y|?|=|f|i|rawscan|dft inverse|singular matrix|modified by koprax|smoothed|"
      "smoothed by dft|without background|file without title|zero correction (2-theta)|2th(calc)|"
      "before refinement|";
  for (std::size_t i = 0; i < HelpTopicCount; ++i) {
    const std::string text = HelpText(static_cast<HelpTopic>(i));
    for (auto open = text.find('"'); open != std::string::npos;) {
      const auto close = text.find('"', open + 1);
      ASSERT_NE(close, std::string::npos) << text;
      const std::string quoted = Plain(text.substr(open + 1, close - open - 1));
      EXPECT_TRUE(others.find("|" + quoted + "|") != std::string::npos ||
                  windows.find(quoted) != std::string::npos)
          << HelpSubject(static_cast<HelpTopic>(i)) << ": " << quoted;
      open = text.find('"', close + 1);
    }
  }
}

}  // namespace
}  // namespace koprax
