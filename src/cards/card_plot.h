// The stick pattern of a reference card, in the small frame of its window. What the window writes beside it
// is left to the window.
#pragma once

#include "display/plot_transform.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// The picture of a card: 8175 x 2895 twips; x from 0 at its left edge in units of 69.41 twips, y from 45 at
/// its top edge and growing upward in units of 63 twips.
[[nodiscard]] PictureSetup CardPicture();

/// The limits in which a card is drawn: five degrees around its reflections, and 0 to 120, which leaves room
/// above intensities on the usual scale up to 100.
[[nodiscard]] PlotLimits CardLimits(const ProfileBuffer& card);

/// Draws the frame and one red stick for each reflection of the temporary copy, as high as the card gives its
/// intensity, and fixes the transform of the window for them. False when the limits span no X: then nothing
/// is drawn.
[[nodiscard]] bool DrawCard(const ProfileBuffer& card, PlotTransform& plot, Surface& picture);

}  // namespace koprax
