// Reads the files of the position-sensitive detector CPS-120 (*.adf), whose X are channels, into a buffer.
// Turning channels into 2-theta is left to others.
#pragma once

#include "files/read_outcome.h"
#include "workspace/workspace.h"

namespace koprax {

struct ProfileReading;

/// Reads the file named by Workspace::FileName into the permanent copy of a slot from 1 to 6: channels 1, 2,
/// 3 and so on, eight to a line, where a short line stands for intensities of 0. The wavelength stays.
/// `tell` hears of records with too many words. A file that can't be opened or is empty touches nothing but
/// FormatCode; any later failure leaves the buffer empty.
[[nodiscard]] ReadOutcome ReadAdf(Workspace& workspace, int slot, const TellUser& tell);
/// Its steps on a file that is open.
[[nodiscard]] ReadOutcome ReadAdfRecords(ProfileReading& reading);

}  // namespace koprax
