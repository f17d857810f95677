// The question for the constant K of an operation on a profile.
#pragma once

#include <optional>
#include <string>

#include "forms/runtime.h"

namespace koprax {

/// Asks for K in a box of that title. Nothing when the answer is empty, or when it is no number of 32 bits,
/// which the user is told.
[[nodiscard]] std::optional<float> AskForConstant(Runtime& host, const std::string& title);

}  // namespace koprax
