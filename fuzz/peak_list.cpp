// Peak lists: what is read are numbers, and a list comes back from its file, as it is held and sorted.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "files/peak_list_file.h"
#include "forms/number_text.h"
#include "fuzz/law.h"

namespace koprax {
namespace {

constexpr std::size_t MostLines = 200;

std::vector<ListedPeak> ReadPeaks(const std::vector<std::string>& lines, PeakListEnd end) {
  TokenisedWords words;
  PeakLinesRead read = ReadPeakLines(lines, end, words, [](const Message&) {});
  Require(read.Peaks.size() <= lines.size(), "a line holds one peak");
  Require(read.BadLine >= 0 && read.BadLine <= static_cast<int>(lines.size()), "a bad line is one of them");
  if (read.BadLine > 0) return {};
  for (const ListedPeak& peak : read.Peaks) {
    for (const float value : {peak.Position, peak.Intensity, peak.Spacing, peak.Theta2}) {
      Require(std::isfinite(value), "peaks are numbers");
    }
    Require(end == PeakListEnd::LastLine || peak.Position != 0, "the position 0 ends the list");
  }
  return read.Peaks;
}

/// The four numbers of a peak, and their decimals in the sorted list.
struct PeakNumber {
  float ListedPeak::*Field;
  int Decimals;
};
constexpr std::array<PeakNumber, 4> PeakNumbers{{{&ListedPeak::Position, 3},
                                                 {&ListedPeak::Intensity, 1},
                                                 {&ListedPeak::Spacing, 4},
                                                 {&ListedPeak::Theta2, 3}}};

/// The peaks that lines give are the expected ones, but for what their digits or decimals lose.
void CheckList(const std::vector<std::string>& lines, const std::vector<ListedPeak>& expected,
               bool decimals) {
  const auto read = ReadPeaks(lines, PeakListEnd::LastLine);
  Require(read.size() == expected.size(), "all peaks come back");
  for (std::size_t k = 0; k < read.size(); ++k) {
    for (const auto& [field, places] : PeakNumbers) {
      const double value = expected[k].*field;
      // With decimals each number is rounded twice, to be held and to be written.
      const double lost = decimals ? 2 * DecimalsLost(value, places) : DigitsLost(value);
      Require(std::abs(read[k].*field - value) <= lost, "a number comes back from the list");
    }
  }
}

void CheckForCalibration(ProfileBuffer& buffer, std::vector<ListedPeak> peaks) {
  TakePeaksForCalibration(buffer, peaks);
  peaks.resize(std::min<std::size_t>(peaks.size(), MaxPeaks));
  Require(buffer.NPeaks == static_cast<int>(peaks.size()), "a list has up to 100 peaks");
  CheckList(HeldPeakLines(buffer), peaks, false);
  // The peaks are held with 7 digits, so it is these that sort.
  const auto as_held = [](float value) { return static_cast<float>(LeadingNumber(GeneralText(value))); };
  std::ranges::stable_sort(peaks, {}, [&](const ListedPeak& peak) { return as_held(peak.Position); });
  CheckList(SortedPeakLines(buffer), peaks, true);
}

void CheckForCell(ProfileBuffer& buffer, const std::vector<ListedPeak>& peaks) {
  TakePeaksForCell(buffer, peaks);
  Require(buffer.NPeaks >= 0 && buffer.NPeaks <= MaxPeaks, "a list has up to 100 peaks");
  const bool in_channels = std::ranges::any_of(peaks, [](const ListedPeak& p) { return p.Position > 180; });
  Require(buffer.CellFormat == (in_channels ? 4 : 0), "a position above 180 makes the list one of channels");
}

void Check(const std::string& text) {
  static ProfileBuffer buffer;
  buffer.FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);  // all four columns are written
  const std::vector<std::string> lines = FirstLines(text, MostLines);
  Require(lines.size() <= MostLines, "no more lines are taken than asked for");
  CheckForCalibration(buffer, ReadPeaks(lines, PeakListEnd::LastLine));
  CheckForCell(buffer, ReadPeaks(lines, PeakListEnd::ZeroPosition));
}

}  // namespace
}  // namespace koprax

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  koprax::Check(koprax::InputText(data, size));
  return 0;
}
