// The first and last lines of a text file, to be looked at before it is loaded.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "forms/runtime.h"
#include "forms/text_file.h"

namespace koprax {

struct FilePreview {
  static constexpr int MaxLines = 30;
  static constexpr int LastLines = 10;

  /// The first lines, numbered from 1, each in a field of 80 characters; blank behind the end of the file.
  std::array<std::string, MaxLines + 1> PreviewLine;
  /// The number of the first line that isn't there; 0 for a file of MaxLines lines or more.
  int NLines = 0;
  /// What the preview shows: the whole file, or its first MaxLines and its last LastLines lines.
  std::string Text;
  /// Why the file can't be read, if it can't; the text says it, too.
  std::optional<Message> Problem;
};

/// Previews the text of a file.
[[nodiscard]] FilePreview PreviewOf(std::string_view contents);

/// Previews a file by its path. Of a file that can't be read the text says why.
[[nodiscard]] FilePreview PreviewOfFile(const std::string& path);

}  // namespace koprax
