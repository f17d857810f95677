// Peak lists as lines: how they are written, and what is taken from lines that a file may hold.
#include "files/peak_list_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace koprax {
namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;
using Texts = std::array<std::string, 4>;  // 2-theta, intensity, d, channel

ProfileBuffer BufferWith(FormatCodes format, const std::vector<Texts>& peaks) {
  ProfileBuffer buffer;
  buffer.FormatCode = static_cast<std::int16_t>(format);
  for (const Texts& peak : peaks) {
    const auto k = static_cast<std::size_t>(++buffer.NPeaks);
    buffer.PeakTheta[k] = peak[0];
    buffer.PeakY[k] = peak[1];
    buffer.PeakD[k] = peak[2];
    buffer.PeakChannel[k] = peak[3];
  }
  return buffer;
}

struct Outcome {
  std::vector<std::array<float, 4>> Peaks;
  int BadLine;
  int Told = 0;  // lines of too many words
};

Outcome Read(const Lines& lines, PeakListEnd end = PeakListEnd::LastLine) {
  Outcome outcome{};
  TokenisedWords words;
  const PeakLinesRead read = ReadPeakLines(lines, end, words, [&](const Message&) { ++outcome.Told; });
  outcome.BadLine = read.BadLine;
  for (const ListedPeak& peak : read.Peaks) {
    outcome.Peaks.push_back({peak.Position, peak.Intensity, peak.Spacing, peak.Theta2});
  }
  return outcome;
}

TEST(PeakListFile, ASortedListIsRoundedIn32BitsAndLosesNothing) {
  const std::vector<Texts> peaks{{"150000", "1", "1", ""},         {"30.1239999", "0.25", "2.9654", ""},
                                 {"100000", "0.15", "1", ""},      {"10", "5", "8.8", "7"},
                                 {"9.99951", "12345.67", "0", ""}, {"10.0", "6", "8.80004", ""},
                                 {"-2 deg", "none", "", ""}};
  const ProfileBuffer degrees = BufferWith(FormatCodes::TwoColumns, peaks);
  EXPECT_THAT(SortedPeakLines(degrees),
              ElementsAre(" -2  0  0", " 10  12345.7  0", " 10  5  8.8", " 10  6  8.8",
                          " 30.124  0.2  2.9654", " 100000  0.2  1", " 150000  1  1"));
  EXPECT_EQ(degrees.PeakTheta[1], "150000");
}

TEST(PeakListFile, AListInChannelsHasFourColumns) {
  const ProfileBuffer channels = BufferWith(
      FormatCodes::CpsChannels, {{"21.23456", "7.0", "4.1811", "2000.12345"}, {"9.5", "8", "9.3", "31"}});
  EXPECT_THAT(SortedPeakLines(channels), ElementsAre(" 31  8  9.3  9.5", " 2000.123  7  4.1811  21.235"));
  EXPECT_THAT(HeldPeakLines(channels),
              ElementsAre(" 2000.12345   7.0   4.1811    21.23456", " 31   8   9.3    9.5"));
}

TEST(PeakListFile, ALineIsAPeakWhateverItHolds) {
  const Lines lines{"31 8 9.3 9.5 1E99", "peak 1.5,2 d 3", "", "0 7"};
  EXPECT_THAT(Read(lines).Peaks, ElementsAre(ElementsAre(31, 8, 9.3F, 9.5F), ElementsAre(1.5F, 2, 3, 0),
                                             ElementsAre(0, 0, 0, 0), ElementsAre(0, 7, 0, 0)));
  for (const char* last : {"", "0 7", "-0 1", "text"}) {
    EXPECT_EQ(Read({"5 1", last, "6 1"}, PeakListEnd::ZeroPosition).Peaks.size(), 1U) << last;
  }
  std::string many = "1 2 3 4";
  for (int i = 0; i < 21; ++i) many += " 5";
  EXPECT_EQ(Read({many, "7 8"}).Told, 1);
  EXPECT_EQ(Read({many, "7 8"}).Peaks.size(), 2U);
}

TEST(PeakListFile, ANumberBeyond32BitsNamesItsLine) {
  for (const char* line : {"1E39", "1 -1E39", "1 2 1E39", "1 2 3 1E400 9"}) {
    EXPECT_EQ(Read({"1 2", line, "3 4"}).BadLine, 2) << line;
  }
  EXPECT_EQ(Read({"1 2", "0", "1E39"}, PeakListEnd::ZeroPosition).BadLine, 0);  // behind the end
}

TEST(PeakListFile, TheGreatestPositionTellsTheCellWhatTheListHolds) {
  const struct {
    float Greatest;
    std::int16_t CellFormat;
    const char* Theta;
  } cases[] = {{180, 0, "20"}, {180.001F, 4, "5"}, {4096, 4, "5"}, {-3, 0, "20"}};
  for (const auto& one : cases) {
    // It counts behind the hundredth peak, too.
    std::vector<ListedPeak> peaks(150, {20, 2, 3, 5});
    peaks.back().Position = one.Greatest;
    ProfileBuffer buffer = BufferWith(FormatCodes::CpsChannels, {});
    buffer.CellFormat = buffer.FormatCode;  // as the start of a refinement sets it
    TakePeaksForCell(buffer, peaks);
    EXPECT_EQ(buffer.CellFormat, one.CellFormat) << one.Greatest;
    EXPECT_EQ(buffer.NPeaks, 100);
    EXPECT_EQ(buffer.PeakTheta[100], one.Theta) << one.Greatest;
    EXPECT_EQ(buffer.PeakChannel[100], "20");
  }
}

}  // namespace
}  // namespace koprax
