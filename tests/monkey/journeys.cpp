#include "tests/monkey/journeys.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "fuzz/law.h"

namespace koprax {

namespace {

constexpr std::string_view NewJourney = "# journey";
constexpr std::array<std::string_view, 6> LookingWords{"get ",     "state ", "buffer ",
                                                       "picture ", "forms",  "snapshot "};

bool OnlyLooks(const std::string& line) {
  return line.empty() || line.starts_with('#') ||
         std::ranges::any_of(LookingWords, [&](std::string_view word) { return line.starts_with(word); });
}

/// The line with what stands behind a quotation mark put in place.
std::string WithFolder(std::string line, const std::string& from, const std::string& to) {
  const auto at = line.find('"' + from);
  return at == std::string::npos ? line : line.replace(at + 1, from.size(), to);
}

/// A file to be saved, under one of the names that are for this.
std::string WithSavedFile(const std::string& line, const SampleFiles& files) {
  const auto at = line.find("\"output/");
  if (at == std::string::npos) return line;
  return line.substr(0, at) + '"' + files.ToSave()[line.size() % 3] + '"';
}

void ReadScript(const std::filesystem::path& path, const SampleFiles& files, std::vector<Journey>& journeys) {
  std::ifstream script(path);
  Require(script.good(), path.string() + " can be read");
  journeys.emplace_back();
  for (std::string line; std::getline(script, line);) {
    if (line.starts_with(NewJourney)) journeys.emplace_back();
    if (OnlyLooks(line)) continue;
    line = WithFolder(line, "examples/", files.Folder() + "/");
    line = WithFolder(line, "samples/", files.Folder() + "/");
    journeys.back().push_back(WithSavedFile(line, files));
  }
}

}  // namespace

std::vector<Journey> ReadJourneys(const std::string& sources, const SampleFiles& files) {
  std::vector<std::filesystem::path> scripts{sources + "/tests/monkey/journeys.kop"};
  for (const auto& entry : std::filesystem::directory_iterator(sources + "/examples")) {
    if (entry.path().extension() == ".kop") scripts.push_back(entry.path());
  }
  std::ranges::sort(scripts);
  std::vector<Journey> journeys;
  for (const auto& path : scripts) ReadScript(path, files, journeys);
  std::erase_if(journeys, [](const Journey& journey) { return journey.empty(); });
  return journeys;
}

std::string WithBuffers(std::string line, const std::string& letters) {
  constexpr std::string_view option = ".opt";
  if (const auto at = line.find(option); at != std::string::npos && at + option.size() + 1 == line.size()) {
    const auto letter = static_cast<std::size_t>(line.back() - 'A');
    if (letter < letters.size()) line.back() = letters[letter];
  }
  return line;
}

}  // namespace koprax
