// What the writers of all profile formats share: the file, and the texts of numbers in it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/number_text.h"
#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

using Lines = std::vector<std::string>;

/// Writes the lines to FileName, in the encoding that the buffer's texts came from.
[[nodiscard]] std::optional<Message> WriteProfile(const Workspace& workspace, const ProfileBuffer& buffer,
                                                  const Lines& lines);
/// What the user is told when FileName was not even begun.
[[nodiscard]] Message NotWritten(const Workspace& workspace, const std::string& reason);

/// What the user is told when FileName was written as the format wants it, but reads back as another profile.
[[nodiscard]] Message NotReadBack(const Workspace& workspace, const std::string& reason_and_advice);

/// A number rounded to n decimals, as its shortest text.
[[nodiscard]] inline std::string Rounded(float value, int decimals) {
  return GeneralText(RoundDecimals(value, decimals));
}

/// The shortest texts of numbers, with commas between them.
template <class... Values>
[[nodiscard]] std::string Listed(float first, Values... others) {
  return (GeneralText(first) + ... + ("," + GeneralText(others)));
}

}  // namespace koprax
