// The reflections of a reference card as a stick diagram. Drawing it is left to the window.
#pragma once

#include <vector>

#include "display/stick_plot.h"
#include "workspace/workspace.h"

namespace koprax {

/// The range of 2-theta in which a card is drawn: five degrees around its reflections.
[[nodiscard]] XRange CardRange(const ProfileBuffer& card);

/// One stick for each reflection of the temporary copy, as high as the card gives its intensity.
[[nodiscard]] std::vector<Stick> CardSticks(const ProfileBuffer& card);

}  // namespace koprax
