#include "files/profile_writers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "files/file_writing.h"
#include "files/scratch_file.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "golden_file.h"

namespace koprax {
namespace {

using testing::HasSubstr;

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
  void SetUdfHeader(const std::vector<std::string>& lines) {
    std::ranges::copy(lines, Buffer().UdfHeader.begin() + 1);
  }
  void SetUxdHeader(const std::vector<std::string>& lines, int count) {
    std::ranges::copy(lines, Buffer().UxdHeader.begin() + 1);
    Buffer().UxdHeaderLines = static_cast<std::int16_t>(count);
  }
  static std::string TextOf(const std::optional<Message>& told) { return told ? told->Text : ""; }

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
  EXPECT_THAT(TextOf(SaveAdf(Data)),
              HasSubstr(Data.FileName + " was written, but doesn't read back as it was: 2 of its"));
  ExpectGolden(File.Bytes(), "files/golden/channels.adf");

  Buffer().WorkNpts = 10;  // one point less than the permanent copy
  SetUdfHeader({"SampleIdent,QUARTZ  ,/", "Title1,Quartz,/", "DataAngleRange,   2.0000,  60.0000,/",
                "ScanStepSize,   0.020,/", " RawScan", "RawScan"});
  EXPECT_THAT(TextOf(SaveUdf(Data)), HasSubstr("it has 10 of the 11 points"));
  ExpectGolden(File.Bytes(), "files/golden/philips.udf");

  Buffer().Title = FixedField("_SAMPLE='Quartz' Modified by KOPRAX", TitleWidth);
  const std::vector<std::string> header{
      "; a remark that is kept as it was, however long it may be: not cut at 80 characters, nor padded",
      "_SAMPLE='Quartz'",
      "_STEPSIZE=0.020000",
      "_FILEVERSION=1",
      "_A_KEY_WITH_A_LONG_VALUE=" + std::string(60, '9'),
      "_RANGE_WL=1.540600",
      "_2THETACOUNTS with a remark",
      "_STEPSIZE of an older file"};
  SetUxdHeader(header, 7);
  EXPECT_FALSE(SaveUxd(Data));
  ExpectGolden(File.Bytes(), "files/golden/siemens.uxd");
  EXPECT_EQ(Buffer().UxdHeader[2], Buffer().Title);
  EXPECT_EQ(Buffer().UxdHeader[3], "_STEPSIZE=0.016711");
  EXPECT_EQ(Buffer().UxdHeader[6], "_RANGE_WL=1.540598");
  EXPECT_EQ(Buffer().UxdHeader[8], header[7]);
}

TEST_F(ProfileWriters, ChannelsAreConvertedOnlyOnAYes) {
  Buffer().FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);
  SetIntensities({1, 2, 3});
  for (std::size_t i = 1; i <= 3; ++i) Buffer().PermX[i] = static_cast<float>(1000 * i);
  // The definition: each term is added and the sum stored in 32 bits; a coefficient of 0 adds nothing.
  Buffer().CalPar = {0, 10.123456789, 0.02, 0, 1e-10, 0, 0, 1e-22};
  std::string converted = Buffer().Title + "\r\n 1.540598 \r\n";
  for (const int i : {1, 2, 3}) {
    const double c = 1000 * i;
    auto sum = static_cast<float>(10.123456789);
    sum = static_cast<float>(sum + 0.02 * c);
    sum = static_cast<float>(sum + 1e-10 * c * c * c);
    sum = static_cast<float>(sum + 1e-22 * c * c * c * c * c * c);
    converted += " " + GeneralText(sum) + "   " + std::to_string(i) + "\r\n";
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
  EXPECT_THAT(TextOf(SaveTwoColumns(Data, Ask)), HasSubstr(Data.FileName + " was not written"));
  EXPECT_EQ(File.Bytes(), before);
}

TEST_F(ProfileWriters, WhatReadsBackAsAnotherProfileIsTold) {
  const auto told = [&](const std::string& title, const std::vector<float>& xs) {
    Buffer().Title = FixedField(title, TitleWidth);
    SetIntensities(std::vector<float>(xs.size(), 1));
    std::ranges::copy(xs, Buffer().PermX.begin() + 1);
    const bool of_one_column = TextOf(SaveOneColumn(Data)).find("title") != std::string::npos;
    return std::pair(of_one_column, TextOf(SaveTwoColumns(Data, Ask)));
  };
  Buffer().XStep = 1;
  EXPECT_EQ(told("Quartz 1", {-1, 0, 1}), std::pair(false, std::string()));
  EXPECT_EQ(told("1 2 3", {1, 2, 3}), std::pair(true, std::string()));
  EXPECT_EQ(told("", {1, 2, 3}), std::pair(true, std::string()));
  EXPECT_THAT(told("300", {1, 2, 3}).second, HasSubstr("taken for data"));
  EXPECT_THAT(told("300 2", {1, 2, 3}).second, HasSubstr("taken for data"));
  EXPECT_THAT(told("Quartz", {-2, -1, 0}).second, HasSubstr("ends the data"));
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
      EXPECT_EQ(problem.has_value(), !last.empty()) << step;
      EXPECT_THAT(TextOf(problem), HasSubstr(last.empty() ? "" : "leads to " + last));
    }
  }

  Buffer().XStep = 0.016666668F;  // 0.01667 in one column
  SetIntensities(std::vector<float>(8000, 1));
  Buffer().PermXMax = static_cast<float>(5.014365 + 7999 * 0.016666668);
  EXPECT_FALSE(SaveItalDat(Data));
  EXPECT_TRUE(SaveOneColumn(Data));
}

TEST_F(ProfileWriters, ATitleThatASiemensFileLosesIsTold) {
  SetUxdHeader({"_SAMPLE='Quartz'", "_2THETACOUNTS"}, 2);
  const auto uxd_title = [&](const char* title) {
    Buffer().Title = FixedField(title, TitleWidth);
    const std::string told = TextOf(SaveUxd(Data));
    return told.empty() ? told : told.substr(told.find("its title will")).substr(0, 39);
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

TEST_F(ProfileWriters, AFailureChangesNothing) {
  SetUdfHeader({"Title1,Quartz,/"});
  SetUxdHeader({"_2THETACOUNTS"}, 0);  // of an older file: no line counts
  for (const auto& refusal : {SaveUdf(Data), SaveUxd(Data)}) {
    EXPECT_THAT(TextOf(refusal), HasSubstr(Data.FileName + " was not written"));
    EXPECT_EQ(refusal->Icon, MessageIcon::Stop);
  }
  EXPECT_EQ(File.Bytes(), "as it was");
  Data.FileName = "/dev/full";
  SetUxdHeader({"_STEPSIZE=1", "_2THETACOUNTS"}, 2);
  EXPECT_EQ(TextOf(SaveUxd(Data)), "The file /dev/full can't be written: No space left on device.");
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
