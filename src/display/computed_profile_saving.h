// How a computed profile lands in a buffer: the question about what is there already, the storing, the title.
#pragma once

#include <string_view>

#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// Stores data.Sum in both copies of a buffer, with the wavelength SumWavelength, and with the format and
/// the header lines of a PHILIPS file from SumSource, which may be the same buffer. An occupied buffer is
/// reset before, its title too. The title is left to be given.
void StoreComputedProfile(Workspace& data, int slot);

/// Stores the computed profile in CurBuf, the slot just picked; an occupied one only if the user wants it
/// overwritten. Then asks for its title; if that is left blank it becomes the formula.
void SaveComputedProfile(const WindowContext& context, int slot, std::string_view formula);

}  // namespace koprax
