#include "files/file_writing.h"

#include <algorithm>

#include "forms/text_encoding.h"

namespace koprax {

namespace {

/// Whether the lines survive in Latin-1: they have no other characters, and their bytes are not taken for
/// UTF-8 when they are read.
bool ReadsBackFromLatin1(const std::vector<std::string>& lines) {
  bool any_beyond_utf8 = false;
  for (const std::string& line : lines) {
    const std::string bytes = Utf8ToLatin1(line);
    if (Latin1ToUtf8(bytes) != line) return false;
    any_beyond_utf8 = any_beyond_utf8 || !IsUtf8(bytes);
  }
  return any_beyond_utf8;
}

}  // namespace

std::optional<Message> WriteLines(const std::string& path, const std::vector<std::string>& lines,
                                  TextEncoding encoding) {
  if (encoding == TextEncoding::Latin1 && !ReadsBackFromLatin1(lines)) encoding = TextEncoding::Utf8;
  const auto error = WriteTextFile(path, lines, encoding);
  if (!error) return std::nullopt;
  return Message{.Text = "The file " + path + " can't be written: " + error->Reason + ".",
                 .Title = "Error",
                 .Icon = MessageIcon::Stop};
}

}  // namespace koprax
