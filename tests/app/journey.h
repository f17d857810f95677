// What journeys through the windows share: a test that is a session, and what people do again and again.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "app/command_form.h"

namespace koprax {

class Journey : public testing::Test, public CommandSession {
 public:
  Json Get(const std::string& name) { return Value("get " + name); }
  /// The values of properties and of fields of the workspace, "Form6.Text3.Text CurBuf WorkNpts(a)".
  Json Values(const std::string& names) {
    Json values = Json::array();
    std::istringstream words(names);
    for (std::string name; words >> name;) {
      values.push_back(Value((name.find('.') == std::string::npos ? "state " : "get ") + name));
    }
    return values;
  }
  /// "+" for each of the controls that is on, "-" for each that is off.
  std::string Switches(const std::string& form, const std::string& names) {
    std::string states;
    std::istringstream words(names);
    for (std::string name; words >> name;) {
      states += Get(std::string(form).append(".").append(name).append(".Enabled")).get<bool>() ? '+' : '-';
    }
    return states;
  }
  /// Clicks on one control after the other, "Form1.cmdDelBuff Form17.optA"; what the last one leads to.
  Json Click(const std::string& names) {
    std::string script;
    std::istringstream words(names);
    for (std::string name; words >> name;) script += "click " + name + "\n";
    return Events(script);
  }
  /// The same in few words.
  std::vector<std::string> After(const std::string& names) { return WordsOf(Click(names)); }
  /// Loads a profile of two columns into a buffer.
  void Load(char letter, const std::string& points, const std::string& wavelength = "1.5406") {
    const std::string contents = std::string("Profile ") + letter + "\r\n" + wavelength + "\r\n" + points;
    Play(LoadCommands(File(std::string(1, letter) + ".xy", contents), 3, letter));
  }
  /// Loads a profile of one column into buffer a; the header holds first X, step and wavelength.
  void LoadColumn(const std::string& header, const std::vector<int>& points) {
    std::string contents = "Profile a\r\n" + header + "\r\n";
    for (const int y : points) contents += std::to_string(y) + "\r\n";
    Play(LoadCommands(File("a.txt", contents), 2, 'a'));
  }
  /// Loads the card of the examples: ten reflections of corundum, 25.58 to 76.87 degrees with copper.
  void LoadCard(char letter) {
    Play("modal click Form33.cmdComboOK\n" +
         LoadCommands(KOPRAX_SOURCE_DIR "/examples/corundum.aid", 7, letter));
  }
  /// Picks buffers ("ab") for display.
  std::vector<std::string> Display(const std::string& letters) {
    std::string names = "Form1.cmdDisp ";
    for (const char letter : letters) names += "Form11.Check" + std::to_string(letter - 'a' + 1) + " ";
    return After(names + "Form11.Command1");
  }
  void Erase(char letter) {
    Play(std::string("answer yes\nclick Form1.cmdDelBuff\nclick Form17.opt") +
         static_cast<char>(letter - 'a' + 'A') + "\n");
  }
  /// Presses a button at one place of the picture of a window, moves and lets go.
  void Drag(const std::string& form, const std::string& from, const std::string& to,
            const std::string& button = "left") {
    const std::string picture = " " + form + ".Picture1 ";
    Play("down" + picture + button + " " + from + "\nmove" + picture + to + "\nup" + picture + button + " " +
         to + "\n");
  }
  void Move(const std::string& form, const std::string& place) {
    Play("move " + form + ".Picture1 " + place + "\n");
  }
  /// A command of a window that selects a part of its picture, the drag and "OK"; what that leads to.
  Json Select(const std::string& form, const std::string& command, const std::string& from,
              const std::string& to) {
    Click(form + "." + command);
    Drag(form, from, to);
    return Click(form + ".optOK");
  }
  /// After each script the tool tip of the picture says what the mouse does now: it holds the word, or
  /// nothing.
  void ExpectTips(const std::string& picture, const std::vector<std::pair<std::string, std::string>>& steps) {
    for (const auto& [script, word] : steps) {
      Play(script);
      const std::string tip = Get(picture + ".ToolTip");
      EXPECT_TRUE(word.empty() ? tip.empty() : tip.find(word) != std::string::npos) << script << tip;
    }
  }
  /// The keys, and whether they mean something.
  bool PressEnter(const std::string& form, const std::string& box) {
    return Desk().Find(form)->PressEnter(Desk().Find(form)->Find(box));
  }
  bool PressEscape(const std::string& form) { return Desk().Find(form)->PressEscape(); }
  bool IsLoaded(const std::string& form) { return Desk().Find(form) != nullptr; }
};

}  // namespace koprax
