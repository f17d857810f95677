// What a profile may be saved as: it depends on where it came from. Telling the user and writing are left to
// others.
#pragma once

#include <cstdint>
#include <optional>

#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

struct SaveRefusal {
  Message Why;
  bool AnotherChoice = false;  ///< the user may choose another format; else the save ends
};

/// Why the buffer can't be saved in the format of that InputFormat (1 to 6); nothing if it can.
[[nodiscard]] std::optional<SaveRefusal> WhyNotSaved(const ProfileBuffer& buffer, std::int16_t input_format);

}  // namespace koprax
