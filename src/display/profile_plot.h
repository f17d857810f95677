// The plot of one profile: the temporary copy of a buffer as a curve in its frame, and what the windows
// write about it in their boxes.
#pragma once

#include <string>

#include "files/read_outcome.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// Draws the temporary copy of a slot (1 to 6) in its limits, which become those of the drawing: frame,
/// ticks and one segment for each pair of neighbouring points. A segment that leaves the X range or
/// passes the top of the plot is left out. The picture is not cleared before. Limits that span no Y are
/// told; the curve is then drawn in the scale of the last drawing. False, and nothing is drawn, when the X
/// range is below 0.00001, or runs downward, or is too large for 32 bits.
[[nodiscard]] bool DrawProfile(Workspace& data, int slot, Surface& picture, const TellUser& tell);

/// The texts that a window with a profile shows about it.
struct ProfileTexts {
  std::string XMin;    ///< "xmin 5"
  std::string XMax;    ///< "xmax 80"
  std::string Step;    ///< "step 0.02"
  std::string File;    ///< the path
  std::string Buffer;  ///< "buffer a"
  std::string Title;   ///< 80 characters
};
[[nodiscard]] ProfileTexts TextsOf(const Workspace& data, int slot);

}  // namespace koprax
