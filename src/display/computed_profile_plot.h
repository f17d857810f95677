// The plot of a computed profile: its frame in the limits of the plot of both sources, its curve, its
// legend. The window that shows it is left to others.
#pragma once

#include "display/profile_sum.h"
#include "files/read_outcome.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// Draws data.Sum for CurBuf, which is its first source, on the picture. X is scaled by the limits of the
/// drawing, Y by the limits of the computed profile: a sum from 0, a difference from its least value.
/// Limits that span no Y are told; the curve is then drawn in the scale of the last drawing. False, and
/// nothing is drawn, when the limits of the drawing span no X.
[[nodiscard]] bool DrawComputedProfile(Workspace& data, TwoProfileOperation operation, Surface& picture,
                                       const TellUser& tell);

/// The line and the text that tell what is drawn.
void DrawComputedLegend(TwoProfileOperation operation, Surface& legend);

}  // namespace koprax
