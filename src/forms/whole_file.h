// Files as whole texts of bytes, read and written in one go: a file is there as it was, or complete. What the
// bytes mean is left to the callers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace koprax {

/// A reason in the system's own words.
struct FileError {
  std::string Reason;
};

/// Reads a whole file. Fails with the system's words when it can't be opened, is a folder or is larger
/// than 64 MiB.
[[nodiscard]] std::variant<std::string, FileError> ReadWholeFile(const std::string& path);

/// How a new file lies in its folder until it is complete.
enum class NewFile {
  Nameless,  ///< without a name, gone with its process; with one where the file system knows no such files
  Named,     ///< under a temporary name, as on those file systems
};

/// Writes a new file beside the target, flushes it and renames it to the target, so that a failure leaves the
/// old file as it was. A target that is no regular file is written in place; links are followed; rights are
/// kept, and a protected file is not replaced. Temporary files that killed processes left in the folder are
/// removed first. Returns the system's words on failure.
[[nodiscard]] std::optional<FileError> WriteWholeFile(const std::string& path, std::string_view bytes,
                                                      NewFile way = NewFile::Nameless);

}  // namespace koprax
