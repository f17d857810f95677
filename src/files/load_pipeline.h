// The way of a profile from a file to the window that shows it: the load sequence and the dispatcher
// behind it.
#pragma once

#include "workspace/services.h"

namespace koprax {

/// Asks for a file and opens its preview; a cancel or an empty name ends the command.
void StartLoadSequence(const WindowContext& context);

/// Reads the file FileName into the slot (1 to 6) by the reader of InputFormat, if a load is due: when no
/// mode asks for a profile that is there already. Then takes a fresh temporary copy and opens the window
/// of the mode on it; a card has a window of its own. A title that is still being typed is given up
/// before. False when no profile came of it; the user has been told of a failed reading.
[[nodiscard]] bool ShowBuffer(const WindowContext& context, int slot, bool for_display);

}  // namespace koprax
