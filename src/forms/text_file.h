// Reading and writing of whole text files. Lines end with CR LF or a lone LF; texts are UTF-8, or
// Latin-1 where a file is no UTF-8. What the lines mean is left to the readers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/whole_file.h"

namespace koprax {

enum class TextEncoding { Utf8, Latin1 };

/// A text file in memory, its lines as UTF-8 without their line ends.
class TextFile {
 public:
  TextFile(std::string contents, TextEncoding encoding);
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;
  TextFile(TextFile&&) = default;
  TextFile& operator=(TextFile&&) = default;
  ~TextFile() = default;

  /// The whole text as UTF-8 with its line ends, without a byte order mark.
  [[nodiscard]] std::string_view Contents() const { return contents_; }
  [[nodiscard]] TextEncoding Encoding() const { return encoding_; }

 private:
  std::string contents_;
  TextEncoding encoding_;
};

/// Reads lines one after the other from a text, as sequential input does. A line ends at LF, with all CR
/// directly before it; a CR elsewhere is an ordinary character. A line end at the very end of the text
/// starts no further line.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  /// The next line without its end; an empty text at the end of the file.
  std::string_view NextLine();
  /// The text of the next free-format number: blanks and line ends before it are passed over, it ends at
  /// a blank, a comma or the end of the line. Reading goes on behind that end; blanks that lead to a comma
  /// or to the end of the line are part of it. Empty where a comma stands without a number before it;
  /// nothing at the end of the file.
  std::optional<std::string_view> NextNumber();
  /// The number of the line that was read last, from 1.
  [[nodiscard]] int LineNumber() const { return line_number_; }

 private:
  std::string_view rest_;
  int line_number_ = 0;
  bool inside_line_ = false;  // a number was read, and more of its line is left
};

/// Reads a whole text file, or fails as ReadWholeFile does.
[[nodiscard]] std::variant<TextFile, FileError> ReadTextFile(const std::string& path);

/// Writes lines, ended by CR LF, as WriteWholeFile does. Characters outside Latin-1 are written as "?" in
/// that encoding. Returns the system's words on failure; the old file is then as it was.
[[nodiscard]] std::optional<FileError> WriteTextFile(const std::string& path,
                                                     const std::vector<std::string>& lines,
                                                     TextEncoding encoding);

/// Makes the system report a write that it refuses as a failure, where it would end the program by a signal:
/// beyond a limit on the size of files, or into a pipe that nobody reads. Programs call it at their start.
void LetRefusedWritesReturn();

}  // namespace koprax
