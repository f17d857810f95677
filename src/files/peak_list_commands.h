// The commands that save the peak list of CurBuf to a file, and those that read one from a file before a
// calibration or a cell refinement starts.
#pragma once

#include <functional>

#include "workspace/services.h"

namespace koprax {

/// Asks for a file and writes the list sorted and rounded; does nothing for an empty list.
void SavePeakListSorted(const WindowContext& context);
/// Asks for a file and writes the list as it is held; an empty list gives an empty file.
void SavePeakListAsHeld(const WindowContext& context);

/// Asks whether and from which file the missing list is to be read, and shows the file. Once the user accepts
/// it the list is in CurBuf and `draw_peaks` runs; a preview that is given up runs `given_up`,
/// unless a new start has taken its place. Both are
/// called when the caller may be gone, which has to see to that (Form::WhileLoaded). True if the preview has
/// opened: it isn't modal. Without it nothing more will come, and a window that waits for the list has to go.
/// A file that can't be read is told.
[[nodiscard]] bool ReadPeakListForCalibration(const WindowContext& context, std::function<void()> draw_peaks,
                                              std::function<void()> given_up);

/// The same for a cell refinement, which sets CellFormat, too. A refusal of the list, a cancelled file dialog
/// or a file that can't be read sets CurBuf to 0 and CalCancelled to 1; an empty file name does not. A
/// preview that is given up sets CurBuf to 0 first.
[[nodiscard]] bool ReadPeakListForCell(const WindowContext& context, std::function<void()> draw_peaks,
                                       std::function<void()> given_up);

}  // namespace koprax
