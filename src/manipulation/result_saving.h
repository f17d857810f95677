// The two ways of a result of the manipulation window into a buffer. An occupied buffer is overwritten
// without a question; the buffer of the window may be the picked one.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// Puts the background of the buffer SumSource, or the profile less the background where it has been
/// subtracted, into the permanent copy of CurBuf, with the facts about its source. CurBuf becomes SumSource
/// again.
void SaveBackgroundResult(Workspace& data);

/// Puts the temporary copy of the buffer SumSource, which has been smoothed, into the permanent copy of
/// CurBuf, with the facts about its source. CurBuf stays. SaveDft ends.
void SaveSmoothedResult(Workspace& data);

}  // namespace koprax
