// What is live in which mode of the Display and Work window, as a table of its own.
#include "display/display_modes.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>

#include "forms/desktop.h"
#include "forms/form.h"
#include "forms/memory_platform.h"
#include "forms/scripted_runtime.h"

namespace koprax {
namespace {

/// The nine commands after entering a mode, as a text: "+" on, "-" off.
std::string Entered(DisplayMode mode, bool on_before, const DisplayConditions& conditions) {
  MemoryPlatform platform;
  ScriptedRuntime runtime(platform);
  Desktop desk(runtime);
  Form form(desk, "Form6", "");
  std::deque<Button> buttons;
  DisplayCommands commands{};
  for (Button*& command : commands) {
    command = &buttons.emplace_back(form, "command" + std::to_string(buttons.size()), CaptionSetup{});
    command->Enabled = on_before;
  }
  EnterDisplayMode(mode, commands, conditions);
  std::string states;
  for (const Button* command : commands) {
    states += command->Enabled ? '+' : '-';
  }
  return states;
}

TEST(DisplayModes, SwitchEachCommandAsItsRowTells) {
  struct Row {
    DisplayMode Mode;
    std::string States;  // "=" not touched, "1" with one profile alone, "z" in a zoomed view
  };
  const std::vector<Row> rows{
      {DisplayMode::Prompt, "------+--"},
      {DisplayMode::PlainAfterPrompt, "++-++++++"},
      {DisplayMode::ZoomSelection, "-==------"},
      {DisplayMode::Zoomed, "1+z+1-+=+"},
      {DisplayMode::ZoomCancelled, "++=++++++"},
      {DisplayMode::UndoZoomed, "1+-+1+++="},
      {DisplayMode::Saved, "++-++=+=="},
      {DisplayMode::EditSelection, "---------"},
      {DisplayMode::Explorer, "------+=="},
      {DisplayMode::ExplorerPaused, "=+===+==="},
      {DisplayMode::ExplorerZoomCancelled, "-==--++=="},
      {DisplayMode::ExplorerZoomLeft, "=====++++"},
      {DisplayMode::ExplorerLeft, "++z++++=="},
      {DisplayMode::EditLeft, "1+z+1=+++"},
  };
  for (const Row& row : rows) {
    for (const int bits : {0, 1, 2, 3, 4, 5, 6, 7}) {
      const bool on_before = (bits & 1) != 0;
      const DisplayConditions conditions{.SingleProfile = (bits & 2) != 0, .Zoomed = (bits & 4) != 0};
      std::string expected = row.States;
      for (char& state : expected) {
        const bool on = state == '+' || (state == '=' && on_before) ||
                        (state == '1' && conditions.SingleProfile) || (state == 'z' && conditions.Zoomed);
        state = on ? '+' : '-';
      }
      EXPECT_EQ(Entered(row.Mode, on_before, conditions), expected) << row.States << " " << bits;
    }
  }
}

}  // namespace
}  // namespace koprax
