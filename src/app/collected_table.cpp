#include "app/collected_table.h"

#include <cstddef>
#include <map>
#include <string_view>

namespace koprax {

namespace {

using Record = std::vector<std::string>;

std::string Field(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string field = "\"";
  for (const char c : text) field.append(c == '"' ? 2 : 1, c);
  return field + '"';
}

std::string Joined(const Record& record) {
  std::string line = Field(record.front());
  for (std::size_t i = 1; i < record.size(); ++i) line.append(",").append(Field(record[i]));
  return line;
}

std::string ErrorOf(const CollectedRun& run) {
  const bool both = !run.Broken.empty() && !run.FirstError.empty();
  return run.Broken + (both ? "; " : "") + run.FirstError;
}

}  // namespace

std::vector<std::string> TableOfRuns(const std::vector<CollectedRun>& runs) {
  Record names{"file", "ok", "failed", "error"};
  std::map<std::string, std::size_t, std::less<>> places;
  for (const CollectedRun& run : runs) {
    for (const CollectedCell& cell : run.Cells) {
      if (places.try_emplace(cell.Column, names.size()).second) names.push_back(cell.Column);
    }
  }
  std::vector<std::string> lines{Joined(names)};
  for (const CollectedRun& run : runs) {
    Record record{run.FileName, run.Well() ? "true" : "false", std::to_string(run.Failed), ErrorOf(run)};
    record.resize(names.size());
    for (const CollectedCell& cell : run.Cells) record[places.find(cell.Column)->second] = cell.Text;
    lines.push_back(Joined(record));
  }
  return lines;
}

}  // namespace koprax
