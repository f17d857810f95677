#include "files/profile_writers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "files/file_writing.h"
#include "files/scratch_file.h"
#include "forms/fixed_text.h"
#include "golden_file.h"

namespace koprax {
namespace {

/// A profile in buffer b that shows each way of rounding, and a file to write.
class ProfileWriters : public testing::Test {
 protected:
  ProfileWriters() {
    Data.CurBuf = 2;
    Data.FileName = File.Path();
    Buffer().Title = FixedField("Quartz, 40 kV 30 mA", TitleWidth);
    Buffer().Wavelength = 1.5405981F;
    Buffer().XStep = 0.016711F;
    SetIntensities(
        {0.125F, 0.15F, 2.5F, -3.5F, 0, 1234.565F, 999999.94F, 1.5E+07F, 0.00001234F, 253, -0.25F});
    Buffer().PermYMax = 1.5E+07F;
    Buffer().PermYMin = -3.5F;
    Buffer().PermXMin = 5.01446F;  // the limits count, not the points
    Buffer().PermXMax = 5.182F;
  }

  ProfileBuffer& Buffer() { return Data.Buffer(2); }

  void SetIntensities(const std::vector<float>& intensities) {
    for (std::size_t i = 1; i <= intensities.size(); ++i) {
      Buffer().PermX[i] = static_cast<float>(5.014365 + 0.016711 * static_cast<double>(i - 1));
      Buffer().PermY[i] = intensities[i - 1];
    }
    Buffer().PermNpts = Buffer().WorkNpts = static_cast<std::int16_t>(intensities.size());
    Buffer().PermXMin = Buffer().PermX[1];
    Buffer().PermXMax = Buffer().PermX[intensities.size()];
  }
  void SetFormat(FormatCodes code) { Buffer().FormatCode = static_cast<std::int16_t>(code); }
  void SetUdfHeader(const std::vector<std::string>& lines) {
    std::ranges::copy(lines, Buffer().UdfHeader.begin() + 1);
  }

  /// The last line of a PHILIPS file with these counts.
  std::string LastUdfLine(const std::vector<float>& counts) {
    SetUdfHeader({"RawScan"});
    SetIntensities(counts);
    EXPECT_FALSE(SaveUdf(Data));
    const std::string text = File.Bytes();
    const auto start = text.rfind("\r\n", text.size() - 3) + 2;
    return text.substr(start, text.size() - 2 - start);
  }

  ScratchFile File{"as it was", "profile_writers"};
  Workspace Data;
  std::string Asked;
  std::string Answer;
  AskForText Ask = [this](const InputRequest& request) {
    Asked = request.Title + ": " + request.Prompt;
    return Answer;
  };
};

TEST_F(ProfileWriters, WriteTheColumnFormatsAsKept) {
  EXPECT_FALSE(SaveItalDat(Data));
  ExpectGolden(File.Bytes(), "files/golden/ital.dat");
  EXPECT_FALSE(SaveOneColumn(Data));
  ExpectGolden(File.Bytes(), "files/golden/one_column.txt");
  EXPECT_FALSE(SaveTwoColumns(Data, Ask));
  ExpectGolden(File.Bytes(), "files/golden/two_columns.txt");
  EXPECT_EQ(Asked, "");
}

TEST_F(ProfileWriters, WriteTheFormatsOfInstrumentsAsKept) {
  Buffer().CpsLine2 = FixedField("23/6/98   12:06:43", LineWidth);
  Buffer().CpsRecNo = 100000;  // more than a day of measurement
  Buffer().CpsLine4 = FixedField("Operator", LineWidth);
  Buffer().PermY[4089] = -999999.9F;     // the first on its line
  Buffer().PermY[4092] = -999999.9F;     // runs into the number before
  Buffer().PermY[4093] = 1.234567E+07F;  // is cut
  Buffer().PermY[4095] = 99999.95F;
  Buffer().PermY[4096] = 7;
  Buffer().PermY[4097] = 8;  // not written
  const auto warning = SaveAdf(Data);
  ASSERT_TRUE(warning);
  EXPECT_NE(warning->Text.find(Data.FileName + " was written, but doesn't read back as it was: 2 of its"),
            0U);
  ExpectGolden(File.Bytes(), "files/golden/channels.adf");

  Buffer().WorkNpts = 10;  // one point less than the permanent copy
  SetUdfHeader({"SampleIdent,QUARTZ  ,/", "Title1,Quartz,/", "DataAngleRange,   2.0000,  60.0000,/",
                "ScanStepSize,   0.020,/", " RawScan", "RawScan"});
  const auto fewer = SaveUdf(Data);
  ASSERT_TRUE(fewer);
  EXPECT_NE(fewer->Text.find("it has 10 of the 11 points"), std::string::npos) << fewer->Text;
  ExpectGolden(File.Bytes(), "files/golden/philips.udf");

  const std::string title = "_SAMPLE='Quartz' Modified by KOPRAX";
  Buffer().Title = FixedField(title, TitleWidth);
  const std::vector<std::string> header{
      "; a remark that is kept as it was, however long it may be: not cut at 80 characters, nor padded",
      "_SAMPLE='Quartz'",
      "_STEPSIZE=0.020000",
      "_FILEVERSION=1",
      "_A_KEY_WITH_A_LONG_VALUE=" + std::string(60, '9'),
      "_RANGE_WL=1.540600",
      "_2THETACOUNTS with a remark",
      "_STEPSIZE of an older file"};
  std::ranges::copy(header, Buffer().UxdHeader.begin() + 1);
  Buffer().UxdHeaderLines = 7;
  EXPECT_FALSE(SaveUxd(Data));
  ExpectGolden(File.Bytes(), "files/golden/siemens.uxd");
  EXPECT_EQ(Buffer().UxdHeader[2], Buffer().Title);
  EXPECT_EQ(Buffer().UxdHeader[3], "_STEPSIZE=0.016711");
  EXPECT_EQ(Buffer().UxdHeader[5], header[4]);
  EXPECT_EQ(Buffer().UxdHeader[6], "_RANGE_WL=1.540598");
  EXPECT_EQ(Buffer().UxdHeader[8], header[7]);
}

TEST_F(ProfileWriters, ChannelsAreConvertedOnlyOnAYes) {
  SetFormat(FormatCodes::CpsChannels);
  SetIntensities({1, 2, 3});
  for (std::size_t i = 1; i <= 3; ++i) Buffer().PermX[i] = static_cast<float>(1000 * i);
  // The definition: each term is added and the sum stored in 32 bits; a coefficient of 0 adds nothing.
  Buffer().CalPar = {0, 10.123456789, 0.02, 0, 1e-10, 0, 0, 1e-22};
  std::string converted = Buffer().Title + "\r\n 1.540598 \r\n";
  for (const double c : {1000.0, 2000.0, 3000.0}) {
    auto sum = static_cast<float>(10.123456789);
    sum = static_cast<float>(sum + 0.02 * c);
    sum = static_cast<float>(sum + 1e-10 * c * c * c);
    sum = static_cast<float>(sum + 1e-22 * c * c * c * c * c * c);
    std::array<char, 32> text{};  // seven digits are five decimals here
    std::snprintf(text.data(), text.size(), "%.7g", static_cast<double>(sum));
    converted += " " + std::string(text.data()) + "   " + std::to_string(static_cast<int>(c / 1000)) + "\r\n";
  }
  const std::string channels = Buffer().Title + "\r\n 1.540598 \r\n 1000   1\r\n 2000   2\r\n 3000   3\r\n";
  for (const auto& [answer, expected] : std::vector<std::pair<std::string, std::string>>{
           {"Y", converted}, {"y", converted}, {"n", channels}, {"", channels}, {"Yes", channels}}) {
    Answer = answer;
    EXPECT_FALSE(SaveTwoColumns(Data, Ask));
    EXPECT_EQ(File.Bytes(), expected) << answer;
  }
  EXPECT_EQ(Asked,
            "Input: File type \"CPS-120 (4096 channels)\" will be saved in TWO COLUMNS format.\r\n"
            "Channels are to be changed into 2-theta units? (Y/N)");
  EXPECT_EQ(Buffer().PermX[1], 1000);

  Answer = "y";
  Buffer().CalPar = {};
  EXPECT_TRUE(SaveTwoColumns(Data, Ask));  // told that it doesn't read back
  EXPECT_EQ(File.Bytes(), Buffer().Title + "\r\n 1.540598 \r\n 0   1\r\n 0   2\r\n 0   3\r\n");
  Buffer().CalPar[7] = 1e300;
  const std::string before = File.Bytes();
  const auto refusal = SaveTwoColumns(Data, Ask);
  ASSERT_TRUE(refusal);
  EXPECT_NE(refusal->Text.find(Data.FileName + " was not written"), std::string::npos);
  EXPECT_EQ(File.Bytes(), before);
}

TEST_F(ProfileWriters, WhatReadsBackAsAnotherProfileIsTold) {
  const auto told = [&](const std::string& title, const std::vector<float>& xs) {
    Buffer().Title = FixedField(title, TitleWidth);
    SetIntensities(std::vector<float>(xs.size(), 1));
    std::ranges::copy(xs, Buffer().PermX.begin() + 1);
    const auto one = SaveOneColumn(Data);
    const auto two = SaveTwoColumns(Data, Ask);
    return std::pair(one && one->Text.find("title") != std::string::npos, two ? two->Text : "");
  };
  Buffer().XStep = 1;
  const std::string title = "taken for data";
  const std::string end = "ends the data";
  EXPECT_EQ(told("Quartz 1", {-1, 0, 1}), std::pair(false, std::string()));
  EXPECT_EQ(told("1 2 3", {1, 2, 3}), std::pair(true, std::string()));
  EXPECT_EQ(told("", {1, 2, 3}), std::pair(true, std::string()));
  EXPECT_NE(told("300", {1, 2, 3}).second.find(title), std::string::npos);
  EXPECT_NE(told("300 2", {1, 2, 3}).second.find(title), std::string::npos);
  EXPECT_NE(told("Quartz", {-2, -1, 0}).second.find(end), std::string::npos);

  Buffer().Title = Data.BlankTitle;
  Buffer().PermNpts = 0;
  EXPECT_FALSE(SaveOneColumn(Data));  // nothing is lost of an empty buffer
}

TEST_F(ProfileWriters, AStepThatMissesTheLastPointIsTold) {
  SetIntensities(std::vector<float>(101, 1));  // from 5.014365 to 6.685465
  for (const auto& [step, last] : std::vector<std::pair<float, std::string>>{
           {0.016711F, ""}, {0.01675F, ""}, {0.017F, "6.714"}, {0, "5.014"}}) {
    Buffer().XStep = step;
    for (const auto& problem : {SaveItalDat(Data), SaveOneColumn(Data)}) {
      EXPECT_EQ(problem.has_value(), step == 0.017F || step == 0) << step;
      EXPECT_NE((problem ? problem->Text : "leads to " + last).find("leads to " + last), std::string::npos);
    }
  }

  Buffer().XStep = 0.016666668F;  // 0.01667 in one column
  SetIntensities(std::vector<float>(8000, 1));
  Buffer().PermXMax = static_cast<float>(5.014365 + 7999 * 0.016666668);
  EXPECT_FALSE(SaveItalDat(Data));
  EXPECT_TRUE(SaveOneColumn(Data));
}

TEST_F(ProfileWriters, ATitleThatASiemensFileLosesIsTold) {
  Buffer().UxdHeader[1] = "_SAMPLE='Quartz'";
  Buffer().UxdHeader[2] = "_2THETACOUNTS";
  Buffer().UxdHeaderLines = 2;
  const auto uxd_title = [&](const char* title) {
    Buffer().Title = FixedField(title, TitleWidth);
    const auto told = SaveUxd(Data);
    return told ? told->Text.substr(told->Text.find("its title will")).substr(0, 39) : "";
  };
  EXPECT_EQ(uxd_title("_SAMPLE='Silicon'"), "");
  EXPECT_EQ(uxd_title("Silicon"), "its title will be \" file without title\"");
  EXPECT_EQ(uxd_title("_SAMPLE='Silicon'"), "its title will be \" file without title\"");  // the key is gone
  EXPECT_EQ(uxd_title(" file without title "), "");
  Buffer().PermNpts = 0;
  EXPECT_EQ(uxd_title(""), "");
}

TEST_F(ProfileWriters, PhilipsCountsKeepAllTheirDigitsAndReadBack) {
  EXPECT_EQ(LastUdfLine({1, 2, 3, 4, 5, 6, 7, 8}),
            "       1,       2,       3,       4,       5,       6,       7,       8,/");
  EXPECT_EQ(LastUdfLine({0.5F, 1.5F, -0.4F}), "       0,       2,       0,/");
  EXPECT_EQ(LastUdfLine({32768, -40000, 1234567936.0F}), "   32768,  -40000,1234567936,/");
  // Seven counts of ten digits leave no room for an eighth within the columns that are read.
  const float large = 4294967296.0F;
  EXPECT_EQ(LastUdfLine({large, large, large, large, large, large, large, 5}), "       5,/");
}

TEST_F(ProfileWriters, HeadersWithoutTheirLastLineAreNotWritten) {
  SetUdfHeader({"Title1,Quartz,/"});
  Buffer().UxdHeader[1] = "_2THETACOUNTS";  // of an older file: no line counts
  for (const auto& refusal : {SaveUdf(Data), SaveUxd(Data)}) {
    ASSERT_TRUE(refusal);
    EXPECT_NE(refusal->Text.find(Data.FileName + " was not written"), std::string::npos);
    EXPECT_EQ(refusal->Icon, MessageIcon::Stop);
  }
  EXPECT_EQ(File.Bytes(), "as it was");
}

TEST_F(ProfileWriters, AFailureChangesNothing) {
  Data.FileName = "/dev/full";
  Buffer().UxdHeader[1] = "_STEPSIZE=1";
  Buffer().UxdHeader[2] = "_2THETACOUNTS";
  Buffer().UxdHeaderLines = 2;
  const auto problem = SaveUxd(Data);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->Text, "The file /dev/full can't be written: No space left on device.");
  EXPECT_EQ(problem->Title, "Error");
  EXPECT_EQ(Buffer().UxdHeader[1], "_STEPSIZE=1");
}

TEST_F(ProfileWriters, TextsOfALatin1FileAreWrittenInLatin1) {
  Buffer().Title = FixedField("M\xC3\xBCller", TitleWidth);
  Buffer().Latin1Text = true;
  EXPECT_FALSE(SaveItalDat(Data));
  EXPECT_EQ(File.Bytes().substr(0, 7), "M\xFCller ");
}

TEST(FileWriting, KeepsLatin1WhereItReadsBackAsItWas) {
  const ScratchFile file("", "file_writing");
  const auto written = [&](const std::vector<std::string>& lines) {
    EXPECT_FALSE(WriteLines(file.Path(), lines, TextEncoding::Latin1));
    return file.Bytes();
  };
  EXPECT_EQ(written({"M\xC3\xBCller"}), "M\xFCller\r\n");
  EXPECT_EQ(written({"plain"}), "plain\r\n");
  EXPECT_EQ(written({"\xCE\xB1-quartz"}), "\xCE\xB1-quartz\r\n");    // has no place in Latin-1
  EXPECT_EQ(written({"\xC3\x83\xC2\xBC"}), "\xC3\x83\xC2\xBC\r\n");  // its bytes are "ü" in UTF-8
  EXPECT_EQ(written({"\xC3\x83\xC2\xBC", "\xC3\xBC"}),
            "\xC3\xBC\r\n\xFC\r\n");  // but not beside the second line
}

}  // namespace
}  // namespace koprax
