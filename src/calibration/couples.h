// The couples of a calibration: peaks of the standard and of the sample that belong together, as they are
// listed. Picking them is left to the window.
#pragma once

#include <string>

#include "workspace/workspace.h"

namespace koprax {

/// Adds a couple of a 2-theta in degrees and a channel at the end. False, and nothing is changed, where there
/// are MaxCouples already.
[[nodiscard]] bool AddCouple(Couples& couples, float two_theta, float channel);

/// The list of couples as text: a heading, then a numbered line for each, 2-theta to 3 decimals and the
/// channel to 2.
[[nodiscard]] std::string CouplesText(const Couples& couples);

}  // namespace koprax
