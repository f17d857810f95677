#include "files/peak_list_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>

#include "files/tokeniser.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "forms/text_file.h"

namespace koprax {

namespace {

using PeakTexts = std::array<std::string, MaxPeaks + 1>;

constexpr float LargestTheta2 = 180;  // degrees; a list with a greater position is one of channels

const PeakTexts& Positions(const ProfileBuffer& buffer) {
  return buffer.InChannels() ? buffer.PeakChannel : buffer.PeakTheta;
}

std::string Rounded(const std::string& text, int decimals) {
  return GeneralText(RoundDecimals(LeadingFloat(text), decimals));
}

/// The numbers of the peaks, upward in position.
std::vector<std::size_t> SortedPeaks(const ProfileBuffer& buffer) {
  std::vector<std::size_t> peaks(static_cast<std::size_t>(buffer.NPeaks));
  std::iota(peaks.begin(), peaks.end(), std::size_t{1});
  std::ranges::stable_sort(peaks, {}, [&](std::size_t i) { return LeadingFloat(Positions(buffer)[i]); });
  return peaks;
}

void StorePeak(ProfileBuffer& buffer, std::size_t k, const ListedPeak& peak) {
  buffer.PeakChannel[k] = GeneralText(peak.Position);
  buffer.PeakY[k] = GeneralText(peak.Intensity);
  buffer.PeakD[k] = GeneralText(peak.Spacing);
  buffer.PeakTheta[k] = GeneralText(peak.Theta2);
}

}  // namespace

std::vector<std::string> SortedPeakLines(const ProfileBuffer& buffer) {
  std::vector<std::string> lines;
  for (const std::size_t i : SortedPeaks(buffer)) {
    std::string line = " " + Rounded(Positions(buffer)[i], 3) + "  " + Rounded(buffer.PeakY[i], 1) + "  " +
                       Rounded(buffer.PeakD[i], 4);
    if (buffer.InChannels()) line += "  " + Rounded(buffer.PeakTheta[i], 3);
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> HeldPeakLines(const ProfileBuffer& buffer) {
  std::vector<std::string> lines;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(buffer.NPeaks); ++i) {
    std::string line = " " + Positions(buffer)[i] + "   " + buffer.PeakY[i] + "   " + buffer.PeakD[i];
    if (buffer.InChannels()) line += "    " + buffer.PeakTheta[i];
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> FirstLines(std::string_view contents, std::size_t most) {
  std::vector<std::string> lines;
  for (LineReader reader(contents); !reader.AtEnd() && lines.size() < most;) {
    lines.push_back(FixedField(reader.NextLine(), LineWidth));
  }
  return lines;
}

PeakLinesRead ReadPeakLines(const std::vector<std::string>& lines, PeakListEnd end, TokenisedWords& words,
                            const TellUser& tell) {
  PeakLinesRead read;
  for (const std::string& line : lines) {
    std::int16_t n_text = 0;
    std::int16_t n_num = 0;
    TokeniseLine(words, line, n_text, n_num, tell);
    const auto& numbers = words.WordVal;
    if (end == PeakListEnd::ZeroPosition && numbers[1] == 0) break;
    read.Peaks.push_back({numbers[1], numbers[2], numbers[3], numbers[4]});
    if (!std::all_of(numbers.begin() + 1, numbers.begin() + 5, [](float x) { return std::isfinite(x); })) {
      read.BadLine = static_cast<int>(read.Peaks.size());
      break;
    }
  }
  return read;
}

void TakePeaksForCalibration(ProfileBuffer& buffer, const std::vector<ListedPeak>& peaks) {
  const std::size_t count = std::min<std::size_t>(peaks.size(), MaxPeaks);
  for (std::size_t k = 1; k <= count; ++k) StorePeak(buffer, k, peaks[k - 1]);
  buffer.NPeaks = static_cast<std::int16_t>(count);
}

void TakePeaksForCell(ProfileBuffer& buffer, const std::vector<ListedPeak>& peaks) {
  TakePeaksForCalibration(buffer, peaks);
  const bool channels =
      std::ranges::any_of(peaks, [](const ListedPeak& peak) { return peak.Position > LargestTheta2; });
  buffer.CellFormat = static_cast<std::int16_t>(channels ? FormatCodes::CpsChannels : FormatCodes::None);
  if (channels) return;
  for (std::size_t k = 1; k <= static_cast<std::size_t>(buffer.NPeaks); ++k) {
    buffer.PeakTheta[k] = buffer.PeakChannel[k];
  }
}

}  // namespace koprax
