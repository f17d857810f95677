#include "files/file_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "files/reader_test.h"
#include "files/scratch_file.h"
#include "tools/example_files.h"

namespace koprax {
namespace {

using enum FindingKind;

constexpr int Ital = input_format::ItalDat;
constexpr int One = input_format::OneColumn;
constexpr int Two = input_format::TwoColumns;
constexpr int Adf = input_format::Adf;
constexpr int Udf = input_format::Udf;
constexpr int Uxd = input_format::Uxd;
constexpr int Aid = input_format::Aid;

/// A file, and what is found in it by the check of one format.
struct Expected {
  std::string Name;
  int Format = 0;
  std::string Text;
  FindingKind Kind{};
  int Line = 0;
  int Column = 0;
  int Lines = 1;
  int Points = 0;  ///< as the file is read; -1 where it is refused
  bool Warning = true;
};

std::string Head(int format) {
  switch (format) {
    case Ital:
      return "Silicon\r\n3\r\n20,20.04,0.02\r\n";
    case One:
      return "Silicon\r\n20 0.02 1.5406\r\n";
    case Adf:
      return "16\r\n1/1/26\r\n60\r\nA. Curie\r\n5\r\n6\r\n7\r\n8\r\n9\r\n";
    case Udf:
      return "Title1,Silicon,/\r\nDataAngleRange,20.0,20.04,/\r\nScanStepSize,0.02,/\r\nRawScan\r\n";
    case Uxd:
      return "_SAMPLE='Silicon'\r\n_STEPSIZE=0.02\r\n_RANGE_WL=1.5406\r\n_2THETACOUNTS\r\n";
    default:
      return "Silicon\r\n1.5406\r\n";
  }
}

const std::string channels = "1 2 3 4 5 6 7 8\r\n";
const std::string rows = "20 5\r\n20.02 6\r\n";

std::vector<Expected> Cases() {
  const auto card = [](int wrong_line) {  // three lines of reflections, of which one has another number
    std::string text;
    for (int i = 1; i <= 7; ++i) text += std::string(79, ' ') + (i == 7 ? "F\r\n" : "\r\n");
    text.replace(std::size_t{5} * 81, 5, "Cards");
    for (int i = 1; i <= 3; ++i) {
      const std::string reflection = " 3.4803 75   0  1  2   ";
      text += reflection + reflection + reflection.substr(0, 20) + "   " +
              (i == wrong_line - 1 ? " 9" : " " + std::to_string(i)) + "        I\r\n";
    }
    return text;
  };
  const std::string wide = "Silicon " + std::string(90, 'x');
  const std::string blank(70, ' ');
  return {
      {"tab", Two, Head(Two) + "20\t5\r\n20.02\t6\r\n20.04\t7\r\n", Tabs, 3, 3, 3, 2},
      {"tabs that stop it", Uxd, Head(Uxd) + "20 5\r\n20.02\t6\r\n", Tabs, 6, 6, 1, -1},
      {"commas", Two, Head(Two) + "20,00 5\r\n20,02 6\r\n20,04 7\r\n", CommasInNumbers, 3, 3, 3, 3},
      {"comma in the head", One, "t\r\n20 0,02 1.5406\r\n5\r\n6\r\n", CommasInNumbers, 2, 5, 1, 2},
      {"commas alone", One, Head(One) + "5,5\r\n6,1\r\n5,9\r\n", CommasInNumbers, 3, 2, 3, 3},
      {"comma of a key", Uxd, "_STEPSIZE=0,02\r\n_2THETACOUNTS\r\n" + rows, CommasInNumbers, 1, 12, 1, 2},
      {"comma of a PHILIPS step", Udf,
       "DataAngleRange, 20.0, 20.02,/\r\nScanStepSize, 0,02,/\r\nRawScan\r\n5, 6\r\n", CommasInNumbers, 2, 16,
       1, 2},
      {"long line", Two, Head(Two) + rows + "20.04 " + blank + "  12345\r\n", LongLines, 5, 80, 1, 3},
      {"long PHILIPS line", Udf, Head(Udf) + "5, 6," + blank + blank + "7\r\n", LongLines, 5, 80, 1, 2},
      {"Ctrl-Z", One, Head(One) + "5\r\n6\r\n\x1A", ControlCharacters, 5, 1, 1, 3},
      {"NUL", Two, Head(Two) + "20 5\r\n20.02 6" + '\0' + "\r\n", ControlCharacters, 4, 8, 1, 2},
      {"NUL in the title", Two, std::string("Si") + '\0' + "\r\n1.5\r\n" + rows, ControlCharacters, 1, 3, 1,
       2, false},
      {"CR alone", Two, "Silicon\r1.5406\r20 5\r20.02 6\r", ControlCharacters, 1, 8, 1, -1},
      {"blank line", One, Head(One) + "5\r\n6\r\n \r\n\r\n", BlankLines, 5, 0, 2, 4},
      {"blank line of channels", Adf, Head(Adf) + channels + channels + "\r\n", BlankLines, 12, 0, 1, 24},
      {"text", Two, Head(Two) + "20 5\r\n20.02 n/a\r\n", Texts, 4, 7, 1, 2},
      {"text among intensities", Udf, Head(Udf) + "5, 6,\r\nB7,\r\n7\r\n", Texts, 6, 1, 1, 3},
      {"odd number", Ital, Head(Ital) + "5\r\n1.2.3\r\n6\r\n6,1\r\n1.5\r\n", OddNumbers, 5, 1, 1, 3},
      {"few numbers", Two, Head(Two) + "20 5\r\n20.02\r\n", FewNumbers, 4, 0, 1, 2},
      {"short line of channels", Adf, Head(Adf) + channels + "1 2\r\n", FewNumbers, 11, 0, 1, 16},
      {"more numbers", One, Head(One) + "5\r\n6 7\r\n", MoreNumbers, 4, 3, 1, 2},
      {"downward", Two, Head(Two) + "20.02 5\r\n20 6\r\n19.98 7\r\n", DownwardX, 4, 0, 2, 3},
      {"downward step", One, "t\r\n20 -0.02 1.5\r\n5\r\n6\r\n", DownwardX, 0, 0, 1, 2},
      {"third column of errors", Two, Head(Two) + "20 5 1\r\n20.02 6 1\r\n", MoreNumbers, 3, 6, 2, 2, false},
      {"number behind what counts", One, Head(One) + "5\r\n6" + blank + "        7\r\n", MoreNumbers, 4, 80,
       1, 2},
      {"repeated", Uxd, Head(Uxd) + "20 5\r\n20 6\r\n20.04 7\r\n", RepeatedX, 6, 0, 1, 3},
      {"lone point", Two, Head(Two) + "20 5\r\n", NoRange, 0, 0, 1, 1},
      {"two wavelengths", Two, "t\r\n1.5406 1.5444\r\n" + rows + "20.04 7\r\n", FirstPointApart, 2, 0, 1, 4,
       false},
      {"another step", Uxd, Head(Uxd) + "20 5\r\n20.05 6\r\n", AnotherStep, 0, 0, 1, 2},
      {"card that stops", Aid, card(3), LinesLeftOut, 9, 0, 2, 3},
      {"card whose last line is odd", Aid, card(4), LinesLeftOut, 10, 0, 1, 6},
      {"beyond 180", One, "t\r\n170 20 1.5\r\n5\r\n6\r\n7\r\n", XBeyondDegrees, 0, 0, 2, 3},
      {"missing", Ital, Head(Ital) + "5\r\n", MissingPoints, 0, 0, 2, 3},
      {"another end", Udf, Head(Udf) + "5, 6,/\r\n", AnotherEnd, 0, 0, 1, 2},
      {"another number of channels", Adf, Head(Adf) + channels, AnotherEnd, 0, 0, 1, 8},
      {"no points", One, Head(One), NoPoints, 0, 0, 1, 0},
      {"third column", Two, "20 5 1\r\n20.02 6 1\r\n20.04 7 1\r\n", NumbersAsTitle, 1, 0, 1, 1},
      {"no wavelength", Two, "t\r\n20 5 1\r\n20.02 6 1\r\n", HeadLineLeftOut, 2, 0, 1, 1},
      {"end mark", Two, Head(Two) + rows + "0 0\r\n20.06 5\r\n", LinesLeftOut, 5, 0, 2, 2},
      {"count too small", Ital, Head(Ital) + "5\r\n6\r\n7\r\n8\r\n9\r\n", LinesLeftOut, 7, 0, 2, 3},
      {"long title", Two, wide + "\r\n1.54\r\n" + rows, CutLine, 1, 81, 1, 2, false},
      {"blank title", Two, "\r\n1.54\r\n" + rows, BlankTitle, 0, 0, 1, 2},
      {"many words", Two, Head(Two) + rows + "20.04 1 2 3 4 5 6 7 8 9 1 2 3 4 5 6 7 8 9 1 2 3 4 5 6 7\r\n",
       ManyWords, 5, 0, 1, 3, false},
      {"Latin-1", Two, "K\xF6ln\r\n1.54\r\n" + rows, Latin1, 1, 2, 1, 2, false},
  };
}

const CheckFinding* Find(const FormatCheck& check, FindingKind kind) {
  const auto found = std::ranges::find(check.Findings, kind, &CheckFinding::Kind);
  return found == check.Findings.end() ? nullptr : &*found;
}

FileCheck CheckText(const std::string& text) {
  const ScratchFile file(text, "file_check");
  return CheckFile(file.Path());
}

FormatCheck CheckText(const std::string& text, int format) {
  return CheckText(text).Formats[static_cast<std::size_t>(format)];
}

TEST(FileCheck, EachTroubleIsFoundInItsPlaceAndNothingElse) {
  for (const Expected& each : Cases()) {
    SCOPED_TRACE(each.Name);
    const FormatCheck check = CheckText(each.Text, each.Format);
    EXPECT_EQ(check.Summary.Read ? check.Summary.Points : -1, each.Points);
    const CheckFinding* finding = Find(check, each.Kind);
    ASSERT_NE(finding, nullptr);
    EXPECT_EQ(finding->Line, each.Line);
    EXPECT_EQ(finding->Column, each.Column);
    EXPECT_EQ(finding->Lines, each.Lines);
    EXPECT_EQ(finding->Warning, each.Warning);
    // A file without a wavelength has its first points in the wrong place, too.
    const bool several =
        each.Kind == NumbersAsTitle || each.Kind == HeadLineLeftOut || each.Kind == BlankLines;
    const auto others = std::ranges::count_if(
        check.Findings, [&](const CheckFinding& other) { return other.Warning && other.Kind != each.Kind; });
    EXPECT_TRUE(several || others == 0) << others;
  }
}

TEST(FileCheck, WhatDoesNotMatterToAReaderIsNotTold) {
  const std::vector<std::pair<int, std::string>> harmless{
      {Two, "a\ttitle, 1,5406\r\n1.5406\r\n20 5 0.1\r\n20.02,6,0.1\r\n\r\n"},
      {Two, "t\r\n1.54\r\n1,1000\r\n2,1001\r\n3,1002\r\n"},  // a comma between X and a count
      {Two, Head(Two) + rows + "20.04 7 " + std::string(90, '1') + "\r\n"},
      {One, Head(One) + "5 counts\r\n6 counts"},
      {Ital, Head(Ital) + "5\r\n6\r\n7\r\n6123,45\r\n1.5406\r\n"},
      {Udf, Head(Udf) + "5,6,7,/\r\n"},
      {Uxd, "; a\tcomment of more than eighty columns" + std::string(80, '.') + "\r\n" + Head(Uxd) + rows}};
  for (const auto& [format, text] : harmless) {
    const FormatCheck check = CheckText(text, format);
    EXPECT_TRUE(check.Summary.Read);
    EXPECT_EQ(check.Warnings(), 0) << text << static_cast<int>(check.Findings.front().Kind);
  }
}

TEST(FileCheck, TroublesThatHideEachOtherAreBothTold) {
  const std::string wide = "20.04 " + std::string(80, ' ') + "7\r\n";
  for (const auto& [format, text, kinds] :
       {std::tuple{Uxd, Head(Uxd) + "20,00\t5\r\n20,02\t6\r\n", std::vector{Tabs, CommasInNumbers}},
        std::tuple{Uxd, Head(Uxd) + "20\t5\r\n20.02\x1A\t6\r\n20.04\t7\r\n",
                   std::vector{Tabs, ControlCharacters}},
        std::tuple{Two, Head(Two) + "20,00\t5\r\n20,02\t6\r\n" + wide,
                   std::vector{Tabs, CommasInNumbers, LongLines}}}) {
    const FormatCheck check = CheckText(text, format);
    for (const FindingKind kind : kinds) {
      EXPECT_NE(Find(check, kind), nullptr) << text << static_cast<int>(kind);
    }
  }
}

TEST(FileCheck, NoFormatFitsWhatIsNoProfile) {
  std::string prose = "A letter\r\n";
  for (int i = 0; i < 30; ++i) prose += "with a number, " + std::to_string(i) + ", on a line\r\n";
  EXPECT_TRUE(CheckText(prose).Best.empty());
  EXPECT_FALSE(CheckText(prose).Good());
}

TEST(FileCheck, RefusalsComeInTheWordsOfTheReaderWithTheirLine) {
  const FormatCheck long_one = CheckText(Head(One) + Records(8001, "5"), One);
  EXPECT_FALSE(long_one.Summary.Read);
  EXPECT_EQ(long_one.Summary.Refusal.substr(0, 37), "Profile with more than 8000 points. N");
  EXPECT_EQ(long_one.Summary.RefusalLine, 8003);
  EXPECT_TRUE(CheckText(Head(One) + Records(8000, "5"), One).Summary.Read);
  const FormatCheck text = CheckText(Head(Uxd) + "20 5\r\nend\r\n", Uxd);
  EXPECT_EQ(text.Summary.Refusal, "Something wrong in input  file");
  EXPECT_EQ(text.Summary.RefusalLine, 6);
  EXPECT_EQ(CheckText("20\r\n", Udf).Summary.RefusalLine, 0);  // its words tell

  for (const auto& [path, words] :
       {std::pair{std::string("/nowhere/a.dat"), "No such file"},
        std::pair{std::filesystem::temp_directory_path().string(), "directory"}}) {
    const FileCheck check = CheckFile(path);
    ASSERT_TRUE(check.Unreadable);
    EXPECT_NE(check.Unreadable->find(words), std::string::npos) << *check.Unreadable;
    EXPECT_FALSE(check.Good());
  }
  EXPECT_NE(CheckText("").Unreadable->find("is empty"), std::string::npos);
}

TEST(FileCheck, TheFormatThatFitsIsTheOneThatTheFileHas) {
  const std::vector<std::pair<std::string, int>> endings{
      {".dat", Ital}, {"_one_column.txt", One}, {".txt", Two}, {".adf", Adf}, {".udf", Udf}, {".uxd", Uxd},
      {".aid", Aid}};
  int checked = 0;
  for (const auto& example : examples::ExampleFiles()) {
    const auto ending =
        std::ranges::find_if(endings, [&](const auto& each) { return example.Name.ends_with(each.first); });
    if (ending == endings.end()) continue;  // calibrations are no profiles
    ++checked;
    const FileCheck check = CheckText(example.Contents);
    EXPECT_EQ(check.Best, std::vector{ending->second}) << example.Name;
    EXPECT_TRUE(check.Formats[static_cast<std::size_t>(ending->second)].Findings.empty()) << example.Name;
    EXPECT_TRUE(check.Good()) << example.Name;
  }
  EXPECT_EQ(checked, 13);
  for (const auto& [head, rest] :
       {std::pair{Head(Two), "\t5\r\n"}, {Head(Two), ",5 5\r\n"}, {"", " 5 1\r\n"}}) {
    std::string text = head;
    for (int x = 20; x < 40; ++x) text += std::to_string(x) + rest;
    const FileCheck check = CheckText(text);
    EXPECT_EQ(check.Best, std::vector{Two}) << text;
    EXPECT_FALSE(check.Good()) << text;
  }
}

TEST(FileCheck, TheFormatThatFitsMayStopOrHaveAFinding) {
  std::string downward = Head(Two);
  for (int i = 0; i < 500; ++i) downward += std::to_string(140 - 0.02 * i) + " 5\r\n";
  std::string too_long = Head(Two);
  for (int i = 0; i <= 8000; ++i) too_long += std::to_string(20 + 0.01 * i) + " 5\r\n";
  std::string title_only = std::string(2000000, 'T') + "\r\n1.5406\r\n" + rows;
  for (const std::string& text : {downward, too_long, title_only}) {
    EXPECT_EQ(CheckText(text).Best, std::vector{Two}) << text.substr(0, 100);
  }
  EXPECT_EQ(CheckText(Head(One) + Records(8001, "5")).Best, std::vector{One});
  std::string ended = Head(Uxd);
  for (int x = 20; x < 40; ++x) ended += std::to_string(x) + " 5\r\n";
  EXPECT_EQ(CheckText(ended + "end\r\n").Best, std::vector{Uxd});
  const FormatCheck title = CheckText(title_only, Two);
  EXPECT_EQ(Find(title, NumbersAsTitle), nullptr);
}

/// A law: what the check says of a file is what loading it gives.
TEST(FileCheck, WhatItTellsIsWhatLoadingGives) {
  std::vector<std::string> texts;
  for (const auto& example : examples::ExampleFiles()) texts.push_back(example.Contents);
  for (const Expected& each : Cases()) texts.push_back(each.Text);
  for (const std::string& text : texts) {
    const ScratchFile file(text, "file_check");
    const FileCheck check = CheckFile(file.Path());
    for (int format = 1; format <= NumFormats; ++format) {
      const FormatCheck& told = check.Formats[static_cast<std::size_t>(format)];
      Workspace data;
      data.FileName = file.Path();
      data.InputFormat = static_cast<std::int16_t>(format);
      ProfileBuffer& buffer = data.Buffer(1);
      buffer.Wavelength = -1;
      const ReadOutcome loaded = ReadByFormat(
          data, 1, [](const Message&) {}, [] { return CardWavelength; });
      ASSERT_EQ(told.Summary.Read, !loaded.Failed) << text << format;
      if (loaded.Failed) continue;
      EXPECT_EQ(told.Summary.Points, buffer.PermNpts);
      EXPECT_EQ(told.Summary.Step, buffer.XStep);
      EXPECT_EQ(told.Summary.Title, RightTrimmed(buffer.Title));
      EXPECT_EQ(told.Summary.Wavelength.value_or(-1), buffer.Wavelength);
      std::vector<std::optional<CheckedPoint>> points{told.Summary.Last};
      if (buffer.PermNpts > 0) points.emplace_back(told.Summary.First);
      for (const CheckFinding& finding : told.Findings) {
        const bool has_point = finding.Kind != MissingPoints && finding.Kind != AnotherEnd;
        if (has_point) points.push_back(finding.Point);
      }
      for (const auto& point : points) {
        if (!point || point->Number == 0 || std::isnan(point->Y)) continue;
        const auto i = static_cast<std::size_t>(point->Number);
        EXPECT_EQ(point->X, buffer.PermX[i]);
        EXPECT_EQ(point->Y, buffer.PermY[i]);
      }
    }
  }
}

}  // namespace
}  // namespace koprax
