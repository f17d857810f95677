// The findings of the check of a file in words, to be read, and as JSON, to be worked on.
#pragma once

#include <string>
#include <string_view>

#include "app/script_values.h"
#include "files/file_check.h"

namespace koprax {

/// The name of a format, 1 to 7, as the window "Format" begins its caption.
[[nodiscard]] std::string_view FormatName(int format);

/// What a finding tells, without its place.
[[nodiscard]] std::string FindingText(const CheckFinding& finding);

/// The report on one file, of lines that end with LF.
[[nodiscard]] std::string FileReport(const FileCheck& check);
/// The same as one object.
[[nodiscard]] Json JsonOfFileCheck(const FileCheck& check);

}  // namespace koprax
