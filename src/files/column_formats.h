// Reads profiles from the three column formats into a buffer: ITAL STRUCTURES *.dat, one column, two
// columns. Choosing the format and showing the profile is left to others.
#pragma once

#include "files/read_outcome.h"
#include "workspace/workspace.h"

namespace koprax {

struct ProfileReading;

/// From the third point on a smaller X ends the data of a two-column file.
inline constexpr float LeastXOfData = 0.0001F;

/// Each reads the file named by Workspace::FileName into the permanent copy of a slot from 1 to 6, and
/// leaves the words of the last record in the workspace's tables. `tell` hears of records with too many
/// words. A file that can't be opened or is empty touches nothing but FormatCode; any later failure
/// leaves the buffer empty.
[[nodiscard]] ReadOutcome ReadItalDat(Workspace& workspace, int slot, const TellUser& tell);
[[nodiscard]] ReadOutcome ReadOneColumn(Workspace& workspace, int slot, const TellUser& tell);
[[nodiscard]] ReadOutcome ReadTwoColumns(Workspace& workspace, int slot, const TellUser& tell);

/// The steps of each on a file that is open.
[[nodiscard]] ReadOutcome ReadItalDatRecords(ProfileReading& reading);
[[nodiscard]] ReadOutcome ReadOneColumnRecords(ProfileReading& reading);
[[nodiscard]] ReadOutcome ReadTwoColumnsRecords(ProfileReading& reading);

}  // namespace koprax
