// Reads PHILIPS files (*.udf) into a buffer: a header of keyed lines, then intensities of a profile with a
// step. The header lines are kept, so that the profile can be written back to its own format.
#pragma once

#include "files/read_outcome.h"
#include "workspace/workspace.h"

namespace koprax {

struct ProfileReading;

/// Reads the file named by Workspace::FileName into the permanent copy of a slot from 1 to 6. X is built up
/// step by step in degrees, rounded to 3 decimals each time; PermX(0) keeps the start of that row. The
/// wavelength stays where the header tells none. `tell` hears of records with too many words. A file that
/// can't be opened or is empty touches nothing but FormatCode; any later failure leaves the buffer empty.
[[nodiscard]] ReadOutcome ReadUdf(Workspace& workspace, int slot, const TellUser& tell);
/// Its steps on a file that is open.
[[nodiscard]] ReadOutcome ReadUdfRecords(ProfileReading& reading);

}  // namespace koprax
