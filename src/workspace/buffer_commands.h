// What follows when a buffer has been picked from the main menu: it is shown, loaded or erased; and the
// buffer that a window works on.
#pragma once

#include <vector>

#include "forms/form.h"
#include "workspace/services.h"

namespace koprax {

struct ProfileBuffer;

/// The buffer of a window that shows the profile of a slot. With none at work (CurBuf 0) it is the empty
/// record of slot 0, on which nothing fails.
[[nodiscard]] ProfileBuffer& ShownBuffer(const WindowContext& context, int slot);

/// Makes a slot from 1 to 6, or 0 for none, the one at work. A title that is still being typed, a list or
/// calibration that is still being previewed, and a save that waits for its format belong to the buffer of
/// before, so they are given up first if the slot is another one.
void MakeCurrent(const WindowContext& context, int slot);

/// Loads or opens CurBuf in the window of the pending mode, then clears the modes. `picker` shows the
/// hourglass meanwhile. When no profile came of it, a fit window that opened for it goes away and the
/// main menu comes to the front.
void OpenChosenProfile(const WindowContext& context, Form& picker);

/// Starts the saving of CurBuf. A card is refused, and the mode of saving ends.
void SaveChosenProfile(const WindowContext& context);

/// Opens the cell refinement on the peak list of CurBuf, or on one that the user then names.
void StartCellRefinement(const WindowContext& context);

/// Marks the slots (1 to 6) in SelBuf and displays them; none ticked leaves the display as it was.
void ShowChosenProfiles(const WindowContext& context, const std::vector<int>& slots);

/// Erases the buffer unless the user says No.
void EraseAfterQuestion(const WindowContext& context, int slot);

}  // namespace koprax
