// The way of a profile between the permanent copy of its buffer and the temporary copy that the windows
// work on.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// Takes points 1 to PermNpts, their number and the four limits from the permanent to the temporary copy.
/// What the temporary copy held is gone.
void TakeTemporaryCopy(ProfileBuffer& buffer);

/// Commits the temporary to the permanent copy: the points, their number and the limits. The limits of Y
/// are found by comparing with 10000 and -10000, so a profile that lies wholly above 10000 gets the
/// minimum 10000, and likewise below.
void CommitTemporaryCopy(ProfileBuffer& buffer);

/// Whether the temporary copy differs from the permanent one by more than 0.0001 in the X of its first
/// point, the number of points, or a limit of X.
[[nodiscard]] bool IsZoomed(const ProfileBuffer& buffer);

}  // namespace koprax
