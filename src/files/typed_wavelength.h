// The wavelength that the user has chosen or typed into the prompt of a window. What follows from it is left
// to the window.
#pragma once

#include <optional>
#include <string>

#include "workspace/services.h"
#include "workspace/workspace.h"

namespace koprax {

/// The first number of the text, in angstrom; 0 where it has none. Nothing if the number is below 0 or
/// doesn't fit 32 bits, which the user has been told.
[[nodiscard]] std::optional<float> TypedWavelength(const WindowContext& context, const std::string& text);

/// The same where work on a buffer needs a wavelength: one of 0 is told as well. If the buffer has got one
/// meanwhile, from another window, that is taken, and told.
[[nodiscard]] std::optional<float> NeededWavelength(const WindowContext& context, const ProfileBuffer& buffer,
                                                    const std::string& text);

}  // namespace koprax
