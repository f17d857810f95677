// How long each reader takes for the largest file of its format, against reading no more than the bytes of
// that same file.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <variant>

#include "files/card_format.h"
#include "files/channel_format.h"
#include "files/column_formats.h"
#include "files/philips_format.h"
#include "files/siemens_format.h"
#include "forms/text_file.h"
#include "workspace/workspace.h"

namespace koprax {
namespace {

/// The values of a line in the given pattern.
template <class... Values>
std::string Line(const char* pattern, Values... values) {
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), pattern, values...);
  return text.data();
}

/// Counts that look like measured ones, the same at each start.
class Counts {
 public:
  double Next() {
    seed_ = seed_ * 1664525 + 1013904223;
    return seed_ >> 12U;
  }

 private:
  std::uint32_t seed_ = 1;
};

/// MaxPoints counts, so many a line.
std::string Rows(const char* pattern, int a_line) {
  Counts counts;
  std::string text;
  for (int i = 1; i <= MaxPoints; ++i) {
    text += Line(pattern, counts.Next()) + (i % a_line == 0 ? "\r\n" : "");
  }
  return text;
}

/// MaxPoints lines of X and count.
std::string Pairs(const char* pattern) {
  Counts counts;
  std::string text;
  for (int i = 0; i < MaxPoints; ++i) text += Line(pattern, 5 + 0.02 * i, counts.Next());
  return text;
}

std::string ItalDat() {
  return "Corundum\r\n 8000\r\n5,164.98,0.02\r\n" + Rows("%.0f", 1) + "1048575,0\r\n1.5406\r\n";
}
std::string OneColumn() { return "Corundum\r\n5 0.02 1.5406\r\n" + Rows("%.0f", 1); }
std::string TwoColumns() { return "Corundum\r\n1.5406\r\n" + Pairs("%10.4f %10.2f\r\n"); }
std::string Adf() {
  return "4096\r\n23/6/98   12:06:43\r\n1800\r\nOperator\r\n\r\n\r\n\r\n\r\n\r\n" + Rows("%10.1f", 8);
}
std::string Udf() {
  return "Title1,Corundum,/\r\nLabdaAlpha1,1.54060,/\r\nDataAngleRange,5.0000,164.9800,/\r\n"
         "ScanStepSize,0.0200,/\r\nRawScan\r\n" +
         Rows("%8.0f,", 8) + "/\r\n";
}
std::string Uxd() {
  return "_SAMPLE='Corundum'\r\n_STEPSIZE=0.020000\r\n_RANGE_WL=1.540600\r\n_2THETACOUNTS\r\n" +
         Pairs(" %.4f  %.2f\r\n");
}
std::string Aid() {
  const std::string blank(79, ' ');
  std::string text =
      "   4.7588   4.7588  12.9930   90.00   90.00  120.00\r\n\r\nR-3c\r\n\r\n\r\nCorundum\r\n" + blank +
      "F\r\n";
  for (int i = 0; i < MaxReflections; ++i) {
    text += Line("%7.4f%3d %3d%3d%3d   ", 4.0 - 0.006 * i, i % 100, i % 9, -i % 5, i % 20);
    if (i % 3 == 2 || i + 1 == MaxReflections) {
      text += Line("%*s%2d        I\r\n", i % 3 == 2 ? 0 : 23, "", (i / 3 + 1) % 100);
    }
  }
  return text;
}

// ---- The readers and their files -------------------------------------------------------------------

ReadOutcome ReadAidAtCopper(Workspace& workspace, int slot, const TellUser& tell) {
  return ReadAid(workspace, slot, tell, [] { return 1.54184F; });
}

struct Format {
  const char* Name;
  ReadOutcome (*Reader)(Workspace&, int, const TellUser&);
  std::string (*Contents)();
  int Points;
};

constexpr std::array formats{
    Format{"ItalDat", ReadItalDat, ItalDat, MaxPoints},
    Format{"OneColumn", ReadOneColumn, OneColumn, MaxPoints},
    Format{"TwoColumns", ReadTwoColumns, TwoColumns, MaxPoints},
    Format{"Adf", ReadAdf, Adf, MaxPoints},
    Format{"Udf", ReadUdf, Udf, MaxPoints},
    Format{"Uxd", ReadUxd, Uxd, MaxPoints},
    Format{"Aid", ReadAidAtCopper, Aid, MaxReflections},
};

/// A file of a format, gone at the end.
class SampleFile {
 public:
  explicit SampleFile(const Format& format)
      : path_(std::filesystem::temp_directory_path() /
              (std::string("read_formats_") + format.Name + std::to_string(::getpid()))) {
    std::ofstream(path_, std::ios::binary) << format.Contents();
  }
  SampleFile(const SampleFile&) = delete;
  SampleFile& operator=(const SampleFile&) = delete;
  ~SampleFile() { std::filesystem::remove(path_); }

  [[nodiscard]] std::string Path() const { return path_.string(); }
  [[nodiscard]] std::int64_t Size() const {
    return static_cast<std::int64_t>(std::filesystem::file_size(path_));
  }

 private:
  std::filesystem::path path_;
};

void Bytes(benchmark::State& state, const Format& format) {
  const SampleFile file(format);
  for (auto _ : state) {
    auto read = ReadTextFile(file.Path());
    if (!std::holds_alternative<TextFile>(read)) state.SkipWithError("not read");
    benchmark::DoNotOptimize(read);
  }
  state.SetBytesProcessed(state.iterations() * file.Size());
}

void Profile(benchmark::State& state, const Format& format) {
  const SampleFile file(format);
  Workspace workspace;
  workspace.FileName = file.Path();
  for (auto _ : state) {
    const ReadOutcome outcome = format.Reader(workspace, 1, [](const Message&) {});
    if (outcome.Failed) state.SkipWithError("not read");
  }
  if (workspace.Buffer(1).PermNpts != format.Points) state.SkipWithError("not all points are there");
  state.SetBytesProcessed(state.iterations() * file.Size());
}

}  // namespace
}  // namespace koprax

int main(int argc, char** argv) {
  for (const koprax::Format& format : koprax::formats) {
    const std::string name = format.Name;
    benchmark::RegisterBenchmark((name + "/bytes").c_str(), koprax::Bytes, format)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark((name + "/profile").c_str(), koprax::Profile, format)
        ->Unit(benchmark::kMicrosecond);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
