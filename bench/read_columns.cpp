// How long a two-column profile of 8000 points takes to read, against the plain formulation on the same
// file: getline into an 80-character field, words as strings, the number test character by character,
// strtod.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "files/column_formats.h"
#include "workspace/workspace.h"

namespace koprax {
namespace {

/// A scratch file with a title, a wavelength and 8000 points, gone at the end.
class SampleFile {
 public:
  SampleFile()
      : path_(std::filesystem::temp_directory_path() /
              ("read_columns_" + std::to_string(::getpid()) + ".txt")) {
    std::ofstream out(path_, std::ios::binary);
    out << "Corundum, 40 kV 30 mA\r\n1.5406\r\n";
    std::uint32_t seed = 1;
    for (int i = 0; i < MaxPoints; ++i) {
      seed = seed * 1664525 + 1013904223;
      std::array<char, 64> line{};
      std::snprintf(line.data(), line.size(), "%10.4f %10.2f\r\n", 5 + 0.02 * i, (seed >> 12U) / 100.0);
      out << line.data();
    }
  }
  SampleFile(const SampleFile&) = delete;
  SampleFile& operator=(const SampleFile&) = delete;
  ~SampleFile() { std::filesystem::remove(path_); }

  [[nodiscard]] std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

// ---- The plain formulation -------------------------------------------------------------------------

bool IsPlainNumber(const std::string& word) {
  if (word.size() > 24) return true;
  int bad = 0;
  int letters = 0;
  std::size_t last = 0;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const char c = word[i];
    if ((c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-') continue;
    ++bad;
    if (c == 'E' || c == 'e') ++letters;
    last = i;
  }
  return bad == 0 || (bad == 1 && letters == 1 && last != 0 && last + 1 != word.size());
}

struct PlainWords {
  std::vector<float> Numbers;
  std::vector<std::string> Texts;
};

PlainWords PlainTokenise(std::string field) {
  field.resize(79, ' ');
  std::vector<std::string> words;
  std::string word;
  for (const char c : field + " ") {
    if (c != ' ' && c != ',') {
      word += c;
    } else if (!word.empty()) {
      words.push_back(word);
      word.clear();
    }
  }
  PlainWords result;
  for (const std::string& each : words) {
    if (IsPlainNumber(each)) {
      result.Numbers.push_back(static_cast<float>(std::strtod(each.c_str(), nullptr)));
    } else {
      result.Texts.push_back(each);
    }
  }
  return result;
}

bool PlainLine(std::ifstream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  if (line.ends_with('\r')) line.pop_back();
  return true;
}

/// Reads files with a title and a wavelength record, which is all that is measured here.
void PlainReadTwoColumns(const std::string& path, ProfileBuffer& buffer) {
  std::ifstream in(path, std::ios::binary);
  std::string line;
  PlainLine(in, buffer.Title);
  PlainLine(in, line);
  buffer.Wavelength = PlainTokenise(line).Numbers.at(0);
  buffer.PermYMax = -100000;
  buffer.PermYMin = 100000;
  std::size_t n = 0;
  float step = 0;
  bool fixed = true;
  while (n < MaxPoints && PlainLine(in, line)) {
    const PlainWords words = PlainTokenise(line);
    if (words.Numbers.size() < 2) break;
    ++n;
    buffer.PermX[n] = words.Numbers[0];
    buffer.PermY[n] = words.Numbers[1];
    buffer.PermYMax = std::max(buffer.PermYMax, buffer.PermY[n]);
    buffer.PermYMin = std::min(buffer.PermYMin, buffer.PermY[n]);
    if (n < 2) continue;
    const double difference = static_cast<double>(buffer.PermX[n]) - buffer.PermX[n - 1];
    const auto rounded = static_cast<float>(std::nearbyint(difference * 1000) / 1000);
    if (n == 2) step = rounded;
    if (rounded != step) fixed = false;
  }
  buffer.PermNpts = static_cast<std::int16_t>(n);
  buffer.XStep = fixed ? step : 0;
}

// ---- The two, on the same file ---------------------------------------------------------------------

void Plain(benchmark::State& state) {
  const SampleFile file;
  Workspace workspace;
  for (auto _ : state) PlainReadTwoColumns(file.Path(), workspace.Buffer(1));
  state.SetItemsProcessed(state.iterations() * MaxPoints);
}
BENCHMARK(Plain)->Unit(benchmark::kMicrosecond);

void Reader(benchmark::State& state) {
  const SampleFile file;
  Workspace workspace;
  workspace.FileName = file.Path();
  for (auto _ : state) {
    const ReadOutcome outcome = ReadTwoColumns(workspace, 2, [](const Message&) {});
    if (outcome.Failed) state.SkipWithError("not read");
  }
  PlainReadTwoColumns(file.Path(), workspace.Buffer(1));
  const bool same = workspace.Buffer(1).PermX == workspace.Buffer(2).PermX &&
                    workspace.Buffer(1).PermY == workspace.Buffer(2).PermY &&
                    workspace.Buffer(1).XStep == workspace.Buffer(2).XStep;
  if (!same) state.SkipWithError("the two read different profiles");
  state.SetItemsProcessed(state.iterations() * MaxPoints);
}
BENCHMARK(Reader)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace koprax

BENCHMARK_MAIN();
