#include "forms/text_file.h"

#include <algorithm>
#include <csignal>
#include <utility>

#include "forms/text_encoding.h"

namespace koprax {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

std::string Encoded(const std::vector<std::string>& lines, TextEncoding encoding) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\r\n");
  return encoding == TextEncoding::Latin1 ? Utf8ToLatin1(text) : text;
}

/// Cuts off the line that a text starts with, its end included; the line is given without its end.
std::string_view CutLine(std::string_view& rest) {
  const std::size_t feed = rest.find('\n');
  std::string_view line = rest.substr(0, feed);
  rest.remove_prefix(feed == std::string_view::npos ? rest.size() : feed + 1);
  while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

TextFile::TextFile(std::string contents, TextEncoding encoding)
    : contents_(std::move(contents)), encoding_(encoding) {}

std::string_view LineReader::NextLine() {
  if (rest_.empty()) return {};
  if (!inside_line_) ++line_number_;
  inside_line_ = false;
  return CutLine(rest_);
}

std::optional<std::string_view> LineReader::NextNumber() {
  while (!rest_.empty()) {
    std::string_view behind = rest_;
    const std::string_view line = CutLine(behind);
    if (!inside_line_) ++line_number_;
    const std::size_t start = line.find_first_not_of(' ');
    if (start == std::string_view::npos) {
      rest_ = behind;
      inside_line_ = false;
      continue;
    }
    const std::size_t end = std::min(line.find_first_of(" ,", start), line.size());
    // Blanks behind a number are part of its end when they lead to a comma or to the end of the line.
    std::size_t next = std::min(line.find_first_not_of(' ', end), line.size());
    inside_line_ = next < line.size();
    if (inside_line_) next = line[next] == ',' ? next + 1 : end + 1;
    if (inside_line_) {
      rest_.remove_prefix(next);
    } else {
      rest_ = behind;
    }
    return line.substr(start, end - start);
  }
  return std::nullopt;
}

std::variant<TextFile, FileError> ReadTextFile(const std::string& path) {
  auto read = ReadWholeFile(path);
  if (const auto* error = std::get_if<FileError>(&read)) return *error;
  auto& bytes = std::get<std::string>(read);
  // A second mark would become the first one when the text is written, and be lost at the next reading.
  std::size_t marks = 0;
  while (std::string_view(bytes).substr(marks).starts_with(byte_order_mark)) marks += byte_order_mark.size();
  bytes.erase(0, marks);
  if (!IsUtf8(bytes)) return TextFile(Latin1ToUtf8(bytes), TextEncoding::Latin1);
  return TextFile(std::move(bytes), TextEncoding::Utf8);
}

std::optional<FileError> WriteTextFile(const std::string& path, const std::vector<std::string>& lines,
                                       TextEncoding encoding) {
  return WriteWholeFile(path, Encoded(lines, encoding));
}

void LetRefusedWritesReturn() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace koprax
