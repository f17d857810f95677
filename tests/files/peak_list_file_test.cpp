// Peak lists as lines: how they are written, and what is taken from lines that a file may hold.
#include "files/peak_list_file.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "forms/fixed_text.h"

namespace koprax {
namespace {

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

/// The first `count` peaks as they stand in the buffer.
std::vector<Texts> PeaksOf(const ProfileBuffer& buffer, std::size_t count) {
  std::vector<Texts> peaks;
  for (std::size_t k = 1; k <= count; ++k) {
    peaks.push_back({buffer.PeakTheta[k], buffer.PeakY[k], buffer.PeakD[k], buffer.PeakChannel[k]});
  }
  return peaks;
}

std::vector<std::array<float, 4>> Numbers(const PeakLinesRead& read) {
  std::vector<std::array<float, 4>> numbers;
  for (const ListedPeak& peak : read.Peaks) {
    numbers.push_back({peak.Position, peak.Intensity, peak.Spacing, peak.Theta2});
  }
  return numbers;
}

PeakLinesRead Read(const Lines& lines, PeakListEnd end, int* told = nullptr) {
  TokenisedWords words;
  return ReadPeakLines(lines, end, words, [&](const Message& message) {
    EXPECT_EQ(message.Text, "More than 24 words found in input.");
    if (told != nullptr) ++*told;
  });
}

TEST(PeakListFile, ASortedListIsRoundedAndLosesNothing) {
  const std::vector<Texts> peaks{{"150000", "1", "1", ""},         {"30.1239999", "0.25", "2.96545", ""},
                                 {"100000", "0.15", "1", ""},         {"10", "5", "8.8", "7"},
                                 {"9.99951", "12345.67", "0", ""}, {"10.0", "6", "8.80004", ""},
                                 {"-2 deg", "none", "", ""}};
  const ProfileBuffer degrees = BufferWith(FormatCodes::TwoColumns, peaks);
  EXPECT_EQ(SortedPeakLines(degrees), (Lines{" -2  0  0", " 10  12345.7  0", " 10  5  8.8", " 10  6  8.8",
                                             " 30.124  0.2  2.9655", " 100000  0.2  1", " 150000  1  1"}));
  EXPECT_EQ(PeaksOf(degrees, 7), peaks);

  const ProfileBuffer channels = BufferWith(
      FormatCodes::CpsChannels, {{"21.23456", "7", "4.1811", "2000.12345"}, {"9.5", "8", "9.3", "31"}});
  EXPECT_EQ(SortedPeakLines(channels), (Lines{" 31  8  9.3  9.5", " 2000.123  7  4.1811  21.235"}));
}

TEST(PeakListFile, AListAsHeldKeepsItsOrderAndItsTexts) {
  const std::vector<Texts> peaks{{"30.50", "0.25", "", "11"}, {"10", "5", "8.80001", "22.00"}};
  EXPECT_EQ(HeldPeakLines(BufferWith(FormatCodes::Philips, peaks)),
            (Lines{" 30.50   0.25   ", " 10   5   8.80001"}));
  EXPECT_EQ(HeldPeakLines(BufferWith(FormatCodes::CpsChannels, peaks)),
            (Lines{" 11   0.25       30.50", " 22.00   5   8.80001    10"}));
  EXPECT_EQ(HeldPeakLines(ProfileBuffer()), Lines());
  EXPECT_EQ(SortedPeakLines(ProfileBuffer()), Lines());
}

TEST(PeakListFile, LinesAreFieldsOf80Characters) {
  const std::string longer(81, 'x');
  EXPECT_EQ(FirstLines("1 2\r\n\n" + longer + "\r\n4", 9),
            (Lines{FixedField("1 2", 80), std::string(80, ' '), longer.substr(1), FixedField("4", 80)}));
  EXPECT_EQ(FirstLines("1\n2\n3\n", 2).size(), 2U);
  EXPECT_EQ(FirstLines("", 2), Lines());
}

TEST(PeakListFile, ALineIsAPeakWhateverItHolds) {
  const Lines lines{" 31  8  9.3  9.5", "peak 1.5,2 d 3", "", "0 7", "nothing", "1 2 3 4 1E99"};
  EXPECT_EQ(Numbers(Read(lines, PeakListEnd::LastLine)),
            (std::vector<std::array<float, 4>>{
                {31, 8, 9.3F, 9.5F}, {1.5F, 2, 3, 0}, {}, {0, 7, 0, 0}, {}, {1, 2, 3, 4}}));
  // For the cell, a line without a position ends the list, as a position of 0 does.
  EXPECT_EQ(Read(lines, PeakListEnd::ZeroPosition).Peaks.size(), 2U);
  EXPECT_EQ(Read({"5 1", "-0 3", "6 1"}, PeakListEnd::ZeroPosition).Peaks.size(), 1U);

  int told = 0;
  std::string many = "1 2 3 4";
  for (int i = 0; i < 21; ++i) many += " 5";
  EXPECT_EQ(Numbers(Read({many, "7 8"}, PeakListEnd::LastLine, &told)),
            (std::vector<std::array<float, 4>>{{1, 2, 3, 4}, {7, 8, 0, 0}}));
  EXPECT_EQ(told, 1);
}

TEST(PeakListFile, ANumberBeyond32BitsNamesItsLine) {
  for (const char* line : {"1E39", "1 -1E39", "1 2 1E39", "1 2 3 1E400 9"}) {
    EXPECT_EQ(Read({"1 2", line, "3 4"}, PeakListEnd::LastLine).BadLine, 2) << line;
    EXPECT_EQ(Read({"1 2", line, "3 4"}, PeakListEnd::ZeroPosition).BadLine, 2) << line;
  }
  EXPECT_EQ(Read({"1 2", "0", "1E39"}, PeakListEnd::ZeroPosition).BadLine, 0);  // behind the end
}

TEST(PeakListFile, TheFirstColumnIsTheChannelOfACalibration) {
  ProfileBuffer buffer = BufferWith(FormatCodes::TwoColumns, {});
  TakePeaksForCalibration(buffer, {{31.25F, 8, 9.3F, 9.5F}, {2, 1.5E7F, 0, 0}});
  EXPECT_EQ(buffer.NPeaks, 2);
  EXPECT_EQ(PeaksOf(buffer, 2),
            (std::vector<Texts>{{"9.5", "8", "9.3", "31.25"}, {"0", "1.5E+07", "0", "2"}}));
  EXPECT_EQ(buffer.CellFormat, 0);
}

TEST(PeakListFile, TheGreatestPositionTellsTheCellWhatTheListHolds) {
  struct Case {
    float Greatest;
    std::int16_t CellFormat;
    const char* Theta;
  };
  for (const Case& one : {Case{180, 0, "20"}, {180.001F, 4, "5"}, {4096, 4, "5"}, {-3, 0, "20"}}) {
    ProfileBuffer buffer = BufferWith(FormatCodes::CpsChannels, {});
    buffer.CellFormat = 7;
    TakePeaksForCell(buffer, {{one.Greatest, 1, 1, 5}, {20, 2, 3, 5}});
    EXPECT_EQ(buffer.CellFormat, one.CellFormat) << one.Greatest;
    EXPECT_EQ(PeaksOf(buffer, 2)[1], (Texts{one.Theta, "2", "3", "20"})) << one.Greatest;
  }
}

TEST(PeakListFile, AListTakesAHundredPeaksAndJudgesByAll) {
  std::vector<ListedPeak> peaks(150, {90, 1, 1, 0});
  peaks.back().Position = 2000;
  ProfileBuffer buffer;
  TakePeaksForCell(buffer, peaks);
  EXPECT_EQ(buffer.NPeaks, 100);
  EXPECT_EQ(buffer.PeakChannel[100], "90");
  EXPECT_EQ(buffer.CellFormat, 4);
  TakePeaksForCell(buffer, {});
  EXPECT_EQ(buffer.NPeaks, 0);
  EXPECT_EQ(buffer.CellFormat, 0);
}

TEST(PeakListFile, AListOfChannelsComesBackFromItsOwnLines) {
  const std::vector<Texts> peaks{{"9.5", "8", "9.3", "31"}, {"21.235", "7.5", "4.1811", "2000.123"}};
  const ProfileBuffer saved = BufferWith(FormatCodes::CpsChannels, {peaks[1], peaks[0]});
  std::string text;
  for (const std::string& line : SortedPeakLines(saved)) text += line + "\r\n";
  ProfileBuffer read;
  TakePeaksForCalibration(read, Read(FirstLines(text, 100), PeakListEnd::LastLine).Peaks);
  EXPECT_EQ(read.NPeaks, 2);
  EXPECT_EQ(PeaksOf(read, 2), peaks);
}

}  // namespace
}  // namespace koprax
