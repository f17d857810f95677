#include "files/column_formats.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "files/card_format.h"
#include "files/channel_format.h"
#include "files/philips_format.h"
#include "files/reader_test.h"
#include "files/siemens_format.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

using ReaderFunction = ReadOutcome (*)(Workspace&, int, const TellUser&);

class ColumnFormats : public ReaderTest {
 protected:
  void Load(ReaderFunction reader, const std::string& text) {
    ReaderTest::Load(reader, text, reader == ReadItalDat);
  }
  void ExpectLimitFailure(ReaderFunction reader, const std::string& text) {
    ReaderTest::ExpectLimitFailure(reader, text);
    EXPECT_NE(Buffer().Wavelength, 0);  // stays, as the file or the buffer had it
  }
  std::vector<float> Intensities() {
    return {Buffer().PermY.begin() + 1, Buffer().PermY.begin() + 1 + Buffer().PermNpts};
  }
  /// The first and the last X, the step, the least and the greatest Y.
  std::vector<float> Limits() {
    return {Buffer().FileXMin, Buffer().FileXMax, Buffer().XStep, Buffer().PermYMin, Buffer().PermYMax};
  }
};

// ---- All readers -----------------------------------------------------------------------------------

TEST_F(ColumnFormats, AFileThatCannotBeReadTouchesNothingButTheFormat) {
  const auto card = [](Workspace& data, int slot, const TellUser& tell) {
    return ReadAid(data, slot, tell, [] { return 1.5F; });
  };
  const std::vector<std::pair<Reader, int>> readers{{ReadOneColumn, 1}, {ReadTwoColumns, 2}, {ReadItalDat, 3},
                                                    {ReadAdf, 4},       {ReadUdf, 5},        {ReadUxd, 6},
                                                    {card, 7}};
  for (const auto& [reader, code] : readers) {
    for (const char* bytes : {"", "\xEF\xBB\xBF"}) {
      const ReadOutcome outcome = Read(reader, bytes);
      ASSERT_TRUE(outcome.Failed && outcome.Problem && outcome.FrontMainMenu);
      EXPECT_EQ(outcome.Problem->Text, "The file " + Data.FileName + " is empty.");
    }
    Data.FileName = "/nowhere/profile.dat";
    const ReadOutcome outcome = reader(Data, 2, [](const Message&) {});
    ASSERT_TRUE(outcome.Failed && outcome.Problem);
    EXPECT_NE(outcome.Problem->Text.find("/nowhere/profile.dat"), std::string::npos);
    EXPECT_EQ(Buffer().FormatCode, code);
    EXPECT_EQ(Title(), "old profile");
    EXPECT_EQ(Buffer().PermNpts, 11);
    EXPECT_EQ(Buffer().FileXMin, stale);
  }
}

TEST_F(ColumnFormats, TitlesAreCutAt80CharactersAndLoseTheirQuotes) {
  const std::string records = "\r\n1 1 1\r\n5\r\n";
  const std::vector<std::tuple<std::string, std::string, bool>> cases{
      {"\"Al2O3\" \xC3\x85 " + std::string(90, 'x'), " Al2O3  \xC3\x85 " + std::string(70, 'x'), false},
      {"\xC5 title", "\xC3\x85 title", true},
      {"plain", "plain", false},
      {"\xEF\xBB\xBF\xC5", "\xC3\x85", true},  // marked, but no UTF-8 behind it
      {"t " + std::string(1 << 20, 'x'), "t " + std::string(78, 'x'), false}};
  for (const auto& [line, title, latin1] : cases) {
    Load(ReadOneColumn, line + records);
    EXPECT_EQ(Title(), title);
    EXPECT_EQ(Buffer().Latin1Text, latin1) << title;
  }
  Load(ReadTwoColumns, "t\n1.54\n1 2\r");
  EXPECT_EQ(Y(1), 2);
}

TEST_F(ColumnFormats, TheLastRecordStandsInTheWordTablesAndTooManyWordsAreOnlyReported) {
  std::string many;
  for (int i = 1; i <= 25; ++i) many += std::to_string(i) + " ";
  Load(ReadTwoColumns, "title\r\n1.54\r\n" + many + "\r\n2 5\r\n" + many + "\r\n6 abc 7");
  EXPECT_EQ(Told.size(), 2U);
  EXPECT_EQ(Buffer().PermNpts, 4);
  EXPECT_EQ(std::vector(&Data.Words.WordVal[1], &Data.Words.WordVal[4]), (std::vector<float>{6, 7, 0}));
  EXPECT_EQ(Data.Words.WordStr[1], FixedField("abc", 24));
  EXPECT_EQ(Data.Words.LineChars[3], "a");
  EXPECT_EQ(Data.Words.LineChars[8], " ");
}

// ---- ITAL STRUCTURES -------------------------------------------------------------------------------

TEST_F(ColumnFormats, ItalDatReadsHeaderPointsAndWavelength) {
  Load(ReadItalDat,
       "Silicon\r\n 3\r\n10, 10.04 0.02\r\n5\r\n17.5 9\r\nno number\r\n17.5 0\r\n1.5406\r\nrest\r\n");
  EXPECT_EQ(Buffer().FormatCode, 3);
  EXPECT_EQ(Title(), "Silicon");
  EXPECT_EQ(Limits(), (std::vector{10.0F, 10.04F, 0.02F, 0.0F, 17.5F}));
  EXPECT_EQ(Buffer().Wavelength, 1.5406F);
  EXPECT_EQ(Intensities(), (std::vector<float>{5, 17.5F, 0}));
  EXPECT_EQ(Y(4), stale);
  EXPECT_EQ(Buffer().PeakTheta[1], "28.44");
}

TEST_F(ColumnFormats, ItalDatGoesByTheRecordBehindTheLastPoint) {
  const std::string points = "t\r\n2\r\n1 2 1\r\n5\r\n6\r\n";
  const std::vector<std::pair<std::string, float>> endings{
      {"", 0.7F},        {"1.5\r\n", 0.7F},        {"1E39\r\n", 0.7F},
      {"9 1\r\n", 0.7F}, {"9 1\r\n1.5\r\n", 1.5F}, {"9 text 1\r\n1.5 8\r\n", 1.5F},
      {"9 1\r\n\r\n", 0}};
  for (const auto& [ending, wavelength] : endings) {
    Buffer().Wavelength = 0.7F;
    Load(ReadItalDat, points + ending);
    EXPECT_EQ(Buffer().Wavelength, wavelength) << ending;
  }
  for (const char* ending : {"\r\n", "text\r\n", "1 2 3\r\n1.5\r\n"}) {
    Buffer().Wavelength = 0.7F;
    ExpectMessage(ReadItalDat, points + ending,
                  {.Text = "Last record is irregular!!\r\nReturn to main menu.", .Title = "Error"});
    EXPECT_EQ(Buffer().Wavelength, 0);
  }
}

TEST_F(ColumnFormats, ItalDatReadsItsHeaderInFreeFormatAndKeepsItsCount) {
  const std::vector<std::pair<std::string, std::vector<float>>> cases{
      {"\r\n2 1\r\n\r\n  2,1\r\n7\r\n8\r\n", {7, 8}},
      {"2.5\r\n1 2 1 9 rest of the line\r\n8\r\n", {9, 8}},
      {"4\r\n1 2 1\r\n5\r\n6", {5, 6, stale, stale}}};  // it ends early
  for (const auto& [text, intensities] : cases) {
    Buffer().PermY.assign(MaxPoints + 1, stale);
    Load(ReadItalDat, "t\r\n" + text);
    EXPECT_EQ(Intensities(), intensities) << text;
    EXPECT_EQ(Buffer().FileXMin, 1);
    EXPECT_EQ(Buffer().FileXMax, 2);
    EXPECT_EQ(Buffer().Wavelength, 0.7F);
  }
}

TEST_F(ColumnFormats, ItalDatTakesNoMoreThan8000Points) {
  Load(ReadItalDat, "t\n8000.4\n10 1 0.013\n" + Records(8000, "3") + "3 3\n1.5\n");
  EXPECT_EQ(Buffer().PermNpts, 8000);
  EXPECT_EQ(Y(8000), 3);
  for (int i = 1; i <= 8000; ++i) {
    // One rounding of the sum in 64 bits.
    ASSERT_EQ(X(i), static_cast<float>((i - 1) * static_cast<double>(0.013F) + 10)) << i;
  }
  EXPECT_EQ(Buffer().Wavelength, 1.5F);
  for (const char* count : {"8001", "8000.6", "70000", "1E999"}) {
    ExpectLimitFailure(ReadItalDat, std::string("t\r\n") + count + "\r\n0 1 0.001\r\n1\r\n");
  }
}

// ---- One column ------------------------------------------------------------------------------------

TEST_F(ColumnFormats, OneColumnReadsWithAndWithoutTitle) {
  Load(ReadOneColumn, "Sample 3\r\n10 0.5 1.54\r\n5\r\n\r\n7 8\r\n");
  EXPECT_EQ(Buffer().FormatCode, 1);
  EXPECT_EQ(Title(), "Sample 3");
  EXPECT_EQ(Points(), (std::vector<float>{10, 5, 10.5F, 0, 11, 7}));
  EXPECT_EQ(Buffer().Wavelength, 1.54F);
  EXPECT_EQ(Limits(), (std::vector{10.0F, 11.0F, 0.5F, 0.0F, 7.0F}));
  Load(ReadOneColumn, "10 0.5\r\n5\r\n");
  EXPECT_EQ(Buffer().Title, FixedField(" File without title ", 80));
  EXPECT_EQ(Buffer().Wavelength, 0);
  EXPECT_EQ(Buffer().PermNpts, 1);
  Load(ReadOneColumn, "1 1\r\n-200000\r\n-150000\r\n");
  EXPECT_EQ(Limits(), (std::vector<float>{1, 2, 1, -200000, -100000}));  // where the running limits start
}

// ---- Two columns -----------------------------------------------------------------------------------

TEST_F(ColumnFormats, TwoColumnsFindsTitleAndWavelength) {
  const struct {
    std::string Head, Title;
    float Wavelength, FirstX;
  } cases[]{
      {"Sample\r\n1.54\r\n1 10\r\n", "Sample", 1.54F, 1},
      {"Sample\r\nLambda 1.54\r\n1 10\r\n", "Sample", 1.54F, 1},
      {"Sample\r\n1 10\r\n", "Sample", 0, 1},
      {"Sample\r\nx y z\r\n1 10\r\n", "Sample", 0.7F, 1},
      {"Sample\r\n1 2 3\r\n1 10\r\n", "Sample", 0.7F, 1},
      {"1.54\r\n1 10\r\n", " file without title", 1.54F, 1},
      {"0.5 100\r\n1 10\r\n", " file without title", 0, 0.5F},
      {"1 2 3\r\n1.54\r\n1 10\r\n", "1 2 3", 1.54F, 1},
      {"\r\n1.54\r\n1 10\r\n", "", 1.54F, 1},
  };
  for (const auto& each : cases) {
    Buffer().Wavelength = 0.7F;
    Load(ReadTwoColumns, each.Head + "2 20\r\n3 30\r\n");
    EXPECT_EQ(Buffer().FormatCode, 2);
    EXPECT_EQ(Title(), each.Title) << each.Head;
    EXPECT_EQ(Buffer().Wavelength, each.Wavelength) << each.Head;
    EXPECT_EQ(X(1), each.FirstX) << each.Head;
    EXPECT_EQ(Buffer().FileXMin, each.FirstX) << each.Head;
    EXPECT_EQ(Buffer().FileXMax, 3) << each.Head;
  }
}

TEST_F(ColumnFormats, TwoColumnsTakesPointsOfOneOrManyNumbers) {
  Load(ReadTwoColumns, "t\r\n1.5\r\n3\r\n2 20 99\r\n1,10\r\n");
  EXPECT_EQ(Points(), (std::vector<float>{3, 0, 2, 20, 1, 10}));
  EXPECT_EQ(Limits(), (std::vector<float>{3, 1, -1, 0, 20}));
}

TEST_F(ColumnFormats, TwoColumnsEndsAtASmallXFromTheThirdPointOn) {
  for (const char* end : {"\r\n", "0.00009 5\r\n", "12.5\t300\r\n", "-3 7\r\n"}) {
    Load(ReadTwoColumns, std::string("t\r\n1.5\r\n-1 10\r\n0 20\r\n") + end + "5 50\r\n");
    EXPECT_EQ(Buffer().PermNpts, 2) << end;
    EXPECT_EQ(Buffer().FileXMax, 0) << end;
  }
  Load(ReadTwoColumns, "t\r\n1.5\r\n-1 10\r\n0 20\r\n0.0001 5\r\n");
  EXPECT_EQ(Buffer().PermNpts, 3);
}

TEST_F(ColumnFormats, TwoColumnsJudgesTheStepByThreeDecimals) {
  const std::vector<std::pair<std::string, float>> cases{
      {"", 0},
      {"5 1\r\n", 0},
      {"5 1\r\n5.02 1\r\n", 0.02F},
      {"5 1\r\n5.02 1\r\n5.0404 1\r\n5.0604 1\r\n", 0.02F},
      {"5 1\r\n5.02 1\r\n5.041 1\r\n", 0},
      {"5 1\r\n5.02 1\r\n5.041 1\r\n5.061 1\r\n", 0},
      {"1 1\r\n1.0625 1\r\n1.125 1\r\n", 0.062F},  // an exact half goes to the even digit
      // 1000.187499 in 64 bits; in 32 bits it would be the half 1000.1875.
      {"0.000001 1\r\n1000.1875 1\r\n", 1000.187F},
  };
  for (const auto& [points, step] : cases) {
    Load(ReadTwoColumns, "t\r\n1.5\r\n" + points);
    EXPECT_EQ(Buffer().XStep, step) << points;
  }
}

TEST_F(ColumnFormats, ColumnsTakeNoMoreThan8000Points) {
  for (const auto& [reader, head] : std::vector<std::pair<ReaderFunction, std::string>>{
           {ReadOneColumn, "t\r\n0 1 1.5\r\n"}, {ReadTwoColumns, "t\r\n1.5\r\n"}}) {
    Load(reader, head + Records(8000, "3 4"));
    EXPECT_EQ(Buffer().PermNpts, 8000);
    ExpectLimitFailure(reader, head + Records(8000, "3 4") + "3");
  }
  Load(ReadTwoColumns, "t\r\n1.5\r\n" + Records(8000, "3 4") + "\r\n");
  EXPECT_EQ(Buffer().PermNpts, 8000);
  ExpectLimitFailure(ReadOneColumn, "t\r\n0 1 1.5\r\n" + Records(8000, "3") + "\r\n");
}

TEST_F(ColumnFormats, TellWhatIsWrong) {
  ExpectFailure(ReadItalDat, "t", {"too early", "number of points"});
  ExpectFailure(ReadItalDat, "t\r\n5\r\n1 2\r\n", {"too early", "step"});
  ExpectFailure(ReadItalDat, "t\r\nmany\r\n", {"line 2", "number of points", "\"many\""});
  ExpectFailure(ReadItalDat, "t\r\n-1\r\n", {"line 2", "number of points"});
  ExpectFailure(ReadItalDat, "t\r\n5\r\n1 , , 2\r\n", {"line 3", "X of the last point"});
  ExpectFailure(ReadItalDat, "t\r\n5\r\n1 2 1E39\r\n", {"line 3", "step", "range"});
  ExpectFailure(ReadItalDat, "t\r\n5\r\n1 2 1E38\r\n1\r\n2\r\n3\r\n4\r\n5\r\n", {"line 8", "X", "range"});
  ExpectFailure(ReadItalDat, "t\r\n1\r\n1 2 1\r\n5\r\n9 9\r\n-1E39\r\n", {"line 6", "wavelength", "range"});
  ExpectFailure(ReadOneColumn, "title only\r\n", {"too early", "step"});
  ExpectFailure(ReadOneColumn, "t\r\n1 1E39 1\r\n1\r\n", {"line 2", "step", "range"});
  ExpectFailure(ReadOneColumn, "t\r\n1 1 1\r\n5\r\n-1E39\r\n", {"line 4", "intensity", "range"});
  ExpectFailure(ReadTwoColumns, "title only", {"too early", "wavelength"});
  ExpectFailure(ReadTwoColumns, "t\r\n1E39\r\n", {"line 2", "wavelength", "range"});
  ExpectFailure(ReadTwoColumns, "t\r\n1.5\r\n1 1\r\n1E39 1\r\n", {"line 4", "X", "range"});
  ExpectFailure(ReadTwoColumns, "1 1\r\n2 -1E39\r\n", {"line 2", "intensity", "range"});
  ExpectFailure(ReadTwoColumns, "-3E38 1\r\n3E38 1\r\n", {"line 2", "step", "range"});
}

}  // namespace
}  // namespace koprax
