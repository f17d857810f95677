// Peak lists: what is read are numbers, and a list comes back from its file, as it is held and sorted.
#include <algorithm>
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

void RequireNear(double value, double expected, double lost) {
  Require(std::abs(value - expected) <= lost, "a number comes back from the list");
}

/// The list in its own order, written with the digits that it is held with.
void CheckHeldList(const ProfileBuffer& buffer, const std::vector<ListedPeak>& peaks) {
  const auto read = ReadPeaks(HeldPeakLines(buffer), PeakListEnd::LastLine);
  Require(read.size() == peaks.size(), "all peaks come back");
  for (std::size_t k = 0; k < read.size(); ++k) {
    RequireNear(read[k].Position, peaks[k].Position, DigitsLost(peaks[k].Position));
    RequireNear(read[k].Intensity, peaks[k].Intensity, DigitsLost(peaks[k].Intensity));
    RequireNear(read[k].Spacing, peaks[k].Spacing, DigitsLost(peaks[k].Spacing));
    RequireNear(read[k].Theta2, peaks[k].Theta2, DigitsLost(peaks[k].Theta2));
  }
}

/// The sorted list, written with fixed decimals. The peaks are held with 7 digits, so it is these that sort.
void CheckSortedList(const ProfileBuffer& buffer, std::vector<ListedPeak> peaks) {
  const auto as_held = [](float value) { return static_cast<float>(LeadingNumber(GeneralText(value))); };
  std::ranges::stable_sort(peaks, {}, [&](const ListedPeak& peak) { return as_held(peak.Position); });
  const auto read = ReadPeaks(SortedPeakLines(buffer), PeakListEnd::LastLine);
  Require(read.size() == peaks.size(), "all sorted peaks come back");
  // Each number is rounded twice, to be held and to be written.
  for (std::size_t k = 0; k < read.size(); ++k) {
    RequireNear(read[k].Position, peaks[k].Position, 2 * DecimalsLost(peaks[k].Position, 3));
    RequireNear(read[k].Intensity, peaks[k].Intensity, 2 * DecimalsLost(peaks[k].Intensity, 1));
    RequireNear(read[k].Spacing, peaks[k].Spacing, 2 * DecimalsLost(peaks[k].Spacing, 4));
    RequireNear(read[k].Theta2, peaks[k].Theta2, 2 * DecimalsLost(peaks[k].Theta2, 3));
  }
}

void CheckForCalibration(ProfileBuffer& buffer, std::vector<ListedPeak> peaks) {
  TakePeaksForCalibration(buffer, peaks);
  peaks.resize(std::min<std::size_t>(peaks.size(), MaxPeaks));
  Require(buffer.NPeaks == static_cast<int>(peaks.size()), "a list has up to 100 peaks");
  CheckHeldList(buffer, peaks);
  CheckSortedList(buffer, peaks);
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
