#include "files/file_preview.h"

#include <cstddef>
#include <deque>
#include <string_view>

#include "files/read_outcome.h"
#include "forms/fixed_text.h"
#include "workspace/workspace.h"

namespace koprax {

namespace {

constexpr std::string_view LineBreak = "\r\n";

void AddLine(std::string& text, std::string_view line) {
  text += line;
  text += LineBreak;
}

void AddEndOfLongFile(std::string_view contents, std::string& text) {
  std::deque<std::string_view> last;
  for (LineReader lines(contents); !lines.AtEnd();) {
    last.push_back(lines.NextLine());
    if (last.size() > FilePreview::LastLines) {
      last.pop_front();
    }
  }
  for (int i = 0; i < 3; ++i) {
    AddLine(text, "etc.......");
  }
  for (const std::string_view line : last) {
    AddLine(text, line);
  }
}

}  // namespace

FilePreview PreviewOf(std::string_view contents) {
  FilePreview preview;
  preview.PreviewLine.fill(std::string(LineWidth, ' '));
  LineReader lines(contents);
  for (int i = 1; i <= FilePreview::MaxLines; ++i) {
    if (lines.AtEnd()) {
      preview.NLines = i;
      return preview;
    }
    const std::string_view line = FirstCharacters(lines.NextLine(), LineWidth);
    preview.PreviewLine[static_cast<std::size_t>(i)] = FixedField(line, LineWidth);
    AddLine(preview.Text, line);
  }
  AddEndOfLongFile(contents, preview.Text);
  return preview;
}

FilePreview PreviewOfFile(const std::string& path) {
  const auto file = ReadTextFile(path);
  if (const auto* error = std::get_if<FileError>(&file)) {
    FilePreview preview = PreviewOf("");
    preview.Problem = UnreadableFile(path, error->Reason).Problem;
    preview.Text = preview.Problem->Text;
    return preview;
  }
  return PreviewOf(std::get<TextFile>(file).Contents());
}

}  // namespace koprax
