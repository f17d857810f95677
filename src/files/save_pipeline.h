// The way of a profile from a buffer to a file: the questions, the refusals, the writer.
#pragma once

#include "workspace/services.h"

namespace koprax {

/// Asks under which name CurBuf is to be saved, and whether a file of that name may be overwritten; then
/// opens the format window. The mode of saving ends when the save is given up.
void StartSaveSequence(const WindowContext& context);

}  // namespace koprax
