// The "?" buttons of all windows and the topics that they show.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
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

/// The topic that a button is said to help on; which button that is stands in windows.golden.
std::optional<HelpTopic> TopicOf(const Button& button) {
  for (std::size_t i = 0; i < HelpTopicCount; ++i) {
    const auto topic = static_cast<HelpTopic>(i);
    if (button.Meaning == "Help on " + std::string(HelpSubject(topic))) return topic;
  }
  return {};
}

TEST(Help, EachButtonOfEachWindowShowsItsTopicAndEachTopicHasAButton) {
  WindowWalk walk;
  // By topic, of the commands that a button stands beside. The opening on smoothing names the frame.
  std::map<HelpTopic, std::set<std::string>> captions{{HelpSmoothing, {"smoothing"}}};
  std::set<HelpTopic> reached;
  std::set<std::string> visited{"Form9"};  // which is never shown
  const auto visit = [&](const Form& form) {
    visited.insert(form.Name());
    const auto beside = ControlBefore(form);
    for (const Control* control : form.Controls()) {
      const auto* button = dynamic_cast<const Button*>(control);
      const bool helps = dynamic_cast<const HelpButton*>(control) != nullptr;
      const bool small = button != nullptr && button->Caption.Get() == "?";
      if (!helps && !small) continue;
      const std::string name = form.Name() + "." + button->FullName();
      const auto topic = TopicOf(*button);
      ASSERT_TRUE(topic) << name << " " << button->Meaning;
      EXPECT_EQ(ShownBy(walk, *button), HelpText(*topic)) << name;
      reached.insert(*topic);
      const auto* command =
          small ? dynamic_cast<const CaptionedControl*>(form.Find(beside.at(button))) : nullptr;
      if (command != nullptr) captions[*topic].insert(Plain(command->Caption));
    }
  };
  walk.VisitWindows(visit);
  walk.VisitOtherPickers(visit);
  const auto& names = Workbench::FormNames();
  EXPECT_EQ(visited, std::set<std::string>(names.begin(), names.end()));
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
