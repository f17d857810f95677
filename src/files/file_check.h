// What each of the seven readers makes of a file, and what of that may surprise whoever made the file. The
// readers themselves read it, into a workspace of the check's own. The words for it are left to the report.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "files/profile_readers.h"
#include "files/reading_findings.h"
#include "forms/text_file.h"

namespace koprax {

struct FormatCheck {
  ReadSummary Summary{};
  std::vector<CheckFinding> Findings{};
  /// How many lines and points speak against the format when the file is without tabs and the like; the lines
  /// from the one where the reader stops do. -1 where it isn't read even so, or most of its lines aren't
  /// those of the format.
  int Misfit = -1;

  [[nodiscard]] int Warnings() const;
};

struct FileCheck {
  std::string FileName{};
  std::optional<std::string> Unreadable{};  ///< why, in words; then nothing below is set
  TextEncoding Encoding = TextEncoding::Utf8;
  int Lines = 0;
  std::array<FormatCheck, NumFormats + 1> Formats{};  ///< by the number of the format, from 1
  std::vector<int> Best{};                            ///< the numbers of those that fit best, if any does

  /// Whether a reader takes it as it looks.
  [[nodiscard]] bool Good() const;
};

/// Reads a file by all readers. One that can't be opened is told in the result.
[[nodiscard]] FileCheck CheckFile(const std::string& file_name);

}  // namespace koprax
