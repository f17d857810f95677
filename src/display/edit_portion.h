// The editing of a short portion of a profile as text: its points as the lines of a box, the lines as
// points again, the curve that they give, and their way into the temporary copy. What the user is told, and
// which commands are live meanwhile, is left to the window.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "display/curve.h"
#include "files/read_outcome.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// The points of a profile that are edited.
struct EditRange {
  std::int16_t EditFirst = 0;
  std::int16_t EditLast = 0;
  std::int16_t EditCount = 0;
};

/// A portion as it is listed in the box.
struct EditList {
  std::string Text;       ///< a heading and one line a point, each with a line break
  bool TooLong = false;   ///< the box is full, and holds the front of the portion alone
  std::string CutNumber;  ///< the first number that is longer than its field, where its end is missing
};

/// The points of a portion, X and then Y, to tell later whether they are the same.
using PortionPoints = std::vector<float>;
[[nodiscard]] PortionPoints PointsOf(const ProfileBuffer& buffer, const EditRange& range);

/// The points of the temporary copy that a selection takes: from the first one in the range up to the next
/// one above it, or to the end. Nothing when no point lies in the range.
[[nodiscard]] std::optional<EditRange> RangeToEdit(const ProfileBuffer& buffer, const XRange& selected);

/// Lists the points with X to 3 and Y to 2 decimals. Sets EditX and EditY, and EditNewX and EditNewY to the
/// same numbers, so that a point whose line is never read stays as it is.
[[nodiscard]] EditList FillEditList(Workspace& data, int slot, const EditRange& range);

/// The same with `k` listed for all Y, which EditNewY takes; EditX and EditY stay.
[[nodiscard]] EditList ChangeAllY(Workspace& data, int slot, const EditRange& range, float k);

/// What ApplyEdit draws, and in which colour.
enum class EditDrawing {
  Changes = 1,   ///< what the box says, in magenta
  RubOut = 2,    ///< what the box says, in white
  AsChosen = 3,  ///< the portion as it was chosen, in black; the box says that again, in full length
};

/// Reads the box into EditNewX and EditNewY, each line for the point of its number, and draws the portion
/// by the transform of the frame drawn last. A line ends with CR LF; the first one is the heading, those
/// behind the last point play no part, and a number that is missing counts as 0. The number of the line
/// that holds a number beyond 32 bits, if there is one: then nothing of the box is taken, and changes
/// are not drawn.
[[nodiscard]] std::optional<int> ApplyEdit(Workspace& data, int slot, const EditRange& range,
                                           EditDrawing drawing, std::string& box, Surface& picture,
                                           const TellUser& tell);

/// Takes EditNewX and EditNewY into the temporary copy; its limits stay.
void AcceptEdit(Workspace& data, int slot, const EditRange& range);

}  // namespace koprax
