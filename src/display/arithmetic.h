// Operations on one profile: what becomes of the temporary copy when a number is added to it, and the like.
// The new values are computed first and taken over in a step of its own, so that the user can still decline.
#pragma once

#include <functional>

#include "workspace/workspace.h"

namespace koprax {

enum class OperationEnd {
  Complete,
  Declined,      ///< the user doesn't go on
  NotPositive,   ///< a value has no logarithm
  Beyond32Bits,  ///< a new value is too large for its field
};

/// What was found as the new values were computed.
struct OperationResult {
  OperationEnd End = OperationEnd::Complete;
  bool AnyNegative = false;
  float Min = 1000000;  ///< of the new values; where they are all above this or below Max, these stand
  float Max = -1000000;
};

/// Asks whether to go on at a doubtful value.
using AskToGoOn = std::function<bool()>;

/// Compute Y + k and Y * k into ScratchY, and X + k into ScratchX, for points 1 to WorkNpts.
[[nodiscard]] OperationResult AddToY(Workspace& data, const ProfileBuffer& buffer, float k);
[[nodiscard]] OperationResult MultiplyY(Workspace& data, const ProfileBuffer& buffer, float k);
[[nodiscard]] OperationResult AddToX(Workspace& data, const ProfileBuffer& buffer, float k);

/// Computes e^Y into ScratchY. Asks once, at the first Y that isn't between -10 and 10.
[[nodiscard]] OperationResult ExponentialOfY(Workspace& data, const ProfileBuffer& buffer,
                                             const AskToGoOn& go_on);
/// Computes ln Y into ScratchY, as far as all Y are above 0. Asks at each Y below 0.001.
[[nodiscard]] OperationResult LogarithmOfY(Workspace& data, const ProfileBuffer& buffer,
                                           const AskToGoOn& go_on);

/// What the top of the scale of Y becomes.
enum class TopOfScale {
  NeverFalls,      ///< the highest new value if that is above it
  Highest,         ///< the highest new value
  LogarithmOfOld,  ///< ln of 1.2 times what it was; the highest new value where that has no logarithm
};

/// Takes ScratchY into the temporary copy. WorkYMin becomes the least new value.
void TakeNewY(Workspace& data, ProfileBuffer& buffer, const OperationResult& result, TopOfScale top);
/// Takes those points of ScratchX into the temporary copy whose X is not negative, each with its Y. The
/// first of them becomes WorkXMin, the greatest new X WorkXMax.
void TakeNewX(Workspace& data, ProfileBuffer& buffer, const OperationResult& result);

}  // namespace koprax
