// Reads cards of the Powder Diffraction File (*.aid) into a buffer as a stick pattern. Asking for the
// wavelength and showing the card are left to others.
#pragma once

#include <functional>

#include "files/read_outcome.h"
#include "workspace/workspace.h"

namespace koprax {

struct ProfileReading;

/// Gives the wavelength, in angstrom, at which the reflections of a card are to be placed.
using AskWavelength = std::function<float()>;

/// Reads the file named by Workspace::FileName into the permanent copy of a slot from 1 to 6: cell, space
/// group and reflections, at most 500, placed in degrees at the wavelength that is asked for when all of them
/// are read. Reflections from the first one on that this wavelength can't reach are no points; `tell` hears
/// of that. A file that can't be opened or is empty touches nothing but FormatCode; any later failure leaves
/// the buffer empty.
[[nodiscard]] ReadOutcome ReadAid(Workspace& workspace, int slot, const TellUser& tell,
                                  const AskWavelength& ask_wavelength);
/// Its steps on a file that is open.
[[nodiscard]] ReadOutcome ReadAidRecords(ProfileReading& reading, const AskWavelength& ask_wavelength);

}  // namespace koprax
