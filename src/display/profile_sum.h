// The sum and the difference of two profiles. Which points of the two meet is found here; showing and
// saving the result is left to the windows.
#pragma once

#include <optional>
#include <string_view>

#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

enum class TwoProfileOperation { Sum, Difference };

/// The operation as the windows write it: "Y = Y1 + Y2", "Y = Y1 - Y2".
[[nodiscard]] std::string_view FormulaOf(TwoProfileOperation operation);

/// The slots of Y1 and Y2.
struct ProfilePair {
  int First;
  int Second;
  bool operator==(const ProfilePair&) const = default;
};
/// The first two buffers that are selected for display; nothing when there are fewer.
[[nodiscard]] std::optional<ProfilePair> SelectedPair(const Workspace& data);

/// Computes Y1 + Y2 or Y1 - Y2 of the temporary copies into data.Sum. The points of both meet one by one when
/// limits and step are the same; where their X are equal when only the step is, and the points of one fall on
/// points of the other; else Y2 is interpolated linearly, in 32 bits, at the points of Y1, and a point of Y1
/// on a point of Y2 stands twice in the result. How many points there are is told by the permanent copies.
/// The limits of X are those that both share; those of Y start from 100000 and -100000, and a small
/// difference keeps the height of Y1. When there is no result (a card, no points, none in common, more than
/// MaxPoints, a value beyond 32 bits), returns what the user is to be told, and data.Sum is as it was.
[[nodiscard]] std::optional<Message> CombineProfiles(Workspace& data, const ProfilePair& pair,
                                                     TwoProfileOperation operation);

/// Forgets the computed profile, as its window does when it is left.
void ResetComputedProfile(Workspace& data);

}  // namespace koprax
