// The wavelength that the user has chosen or typed into the prompt of a window. What follows from it is left
// to the window.
#pragma once

#include <optional>
#include <string>

#include "workspace/services.h"

namespace koprax {

/// The first number of the text, in angstrom; 0 where it has none. Nothing if the number doesn't fit 32 bits,
/// which the user has been told.
[[nodiscard]] std::optional<float> TypedWavelength(const WindowContext& context, const std::string& text);

/// The same where work needs a wavelength: it has to be above 0, which is told as well.
[[nodiscard]] std::optional<float> NeededWavelength(const WindowContext& context, const std::string& text);

}  // namespace koprax
