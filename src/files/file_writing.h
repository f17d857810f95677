// Writes the lines of a file so that they read back as they were. What the lines hold is left to the formats.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/runtime.h"
#include "forms/text_file.h"

namespace koprax {

/// Writes a text file; on failure the old file is as it was, and what comes back is to be told to the user.
/// A text from a file in Latin-1 is written so again, unless it would read back as another text: then it is
/// written in UTF-8.
[[nodiscard]] std::optional<Message> WriteLines(const std::string& path,
                                                const std::vector<std::string>& lines, TextEncoding encoding);

}  // namespace koprax
