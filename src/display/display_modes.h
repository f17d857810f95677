// Which commands of the Display and Work window are live in which of its modes: one table.
#pragma once

#include <array>
#include <cstddef>

#include "forms/control.h"

namespace koprax {

enum class DisplayMode {
  Prompt,
  PlainAfterPrompt,
  ZoomSelection,
  Zoomed,
  ZoomCancelled,
  UndoZoomed,
  Saved,
  EditSelection,
  EditLeft,
  Explorer,
  ExplorerPaused,
  ExplorerZoomCancelled,
  ExplorerZoomLeft,
  ExplorerLeft,
};

/// The commands of the window in the order of the table's columns: cmdEdit, cmdZoom, cmdUnzoom, cmdMod,
/// cmdSave, cmdManExpl, cmdMain, cmdPrint, Command17.
inline constexpr std::size_t DisplayCommandCount = 9;
using DisplayCommands = std::array<Button*, DisplayCommandCount>;

/// What some entries of the table depend on.
struct DisplayConditions {
  bool SingleProfile;  ///< one profile alone is selected for display
  bool Zoomed;         ///< the temporary copy differs from the permanent one
};

/// Switches the commands on and off on entering the mode; some are not touched.
void EnterDisplayMode(DisplayMode mode, const DisplayCommands& commands, const DisplayConditions& conditions);

}  // namespace koprax
