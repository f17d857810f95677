#include "files/philips_format.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "files/reader_test.h"

namespace koprax {
namespace {

class PhilipsFormat : public ReaderTest {
 protected:
  /// A header with range and step behind the given lines.
  static std::string Header(const std::string& lines, const std::string& first_x = "10",
                            const std::string& step = "0.02") {
    return lines + "DataAngleRange," + first_x + ",20,/\r\nScanStepSize," + step + ",/\r\nRawScan\r\n";
  }
};

TEST_F(PhilipsFormat, ReadsHeaderAndIntensities) {
  Buffer().UdfHeader[7] = "line of another file";
  Load(ReadUdf,
       Header("SampleIdent,S1,/\r\nTitle1,\xC5kermanite \"5\" 5 mm,/   \r\nTitle2," + std::string(90, 'r') +
                  "\r\n",
              "28.38", "0.0200") +
           "     212,  1000001,\r\n-20000,3 x,/\r\n",
       true);
  EXPECT_EQ(Buffer().FormatCode, 5);
  EXPECT_EQ(Title(), " \xC3\x85kermanite \"5\" mm / 28.38 20 0.02");
  EXPECT_TRUE(Buffer().Latin1Text);
  EXPECT_EQ(Points(), (std::vector<float>{28.38F, 212, 28.4F, 1000001, 28.42F, -20000, 28.44F, 3}));
  EXPECT_EQ(Buffer().PermYMin, -20000);
  EXPECT_EQ(Buffer().PermYMax, 1000001);
  EXPECT_EQ(Buffer().PermXMin, 28.38F);
  EXPECT_EQ(Buffer().PermXMax, 20);
  EXPECT_EQ(Buffer().XStep, 0.02F);
  EXPECT_EQ(Buffer().FileXMin, stale);
  EXPECT_EQ(Buffer().FileXMax, stale);
  EXPECT_EQ(Buffer().UdfHeader[2], "Title1,\xC3\x85kermanite \"5\" 5 mm,/");
  EXPECT_EQ(Buffer().UdfHeader[3], "Title2," + std::string(73, 'r'));
  EXPECT_EQ(Buffer().UdfHeader[6], "RawScan");
  EXPECT_EQ(Buffer().UdfHeader[7], " ");

  Load(ReadUdf, Header("") + "2000000\r\n", true);
  EXPECT_EQ(Buffer().PermYMin, 1000000);  // the running limits start there
  Load(ReadUdf, Header("") + "-20000\r\n", true);
  EXPECT_EQ(Buffer().PermYMax, -10000);
}

TEST_F(PhilipsFormat, XIsBuiltUpByStepsEachRoundedToThreeDecimals) {
  Load(ReadUdf, Header("", "2") + Records(8000, "1"), true);
  for (int i = 1; i <= 8000; ++i) ASSERT_EQ(X(i), static_cast<float>((1980 + 20 * i) / 1000.0)) << i;
  ExpectLimitFailure(ReadUdf, Header("", "2") + Records(8000, "1") + "1 1\r\n");
  EXPECT_EQ(Buffer().Wavelength, 0.7F);
  // By hand: 9.9833, 10.0000, 10.0167, 10.0337, 10.0507; the roundings add up.
  Load(ReadUdf, Header("", "10", "0.0167") + "1 1 1 1\r\n", true);
  EXPECT_EQ(Points(), (std::vector<float>{10, 1, 10.017F, 1, 10.034F, 1, 10.051F, 1}));
  EXPECT_EQ(X(0), 9.9833F);
  std::string many = "0";
  for (int i = 1; i < 25; ++i) many += ",0";
  Load(ReadUdf, Header("") + many + "\r\n5\r\n", true);
  EXPECT_EQ(Buffer().PermNpts, 25);
  EXPECT_EQ(Y(25), 5);
  EXPECT_EQ(Told, std::vector<std::string>{"More than 24 words found in input."});
}

TEST_F(PhilipsFormat, TheMonochromatorDecidesTheWavelength) {
  const std::string first = "LabdaAlpha1,1.54060,/\r\n";
  const std::string both = first + "LabdaAlpha2,1.54439,/\r\nRatioAlpha21,0.5,/\r\n";
  const auto mean = static_cast<float>((0.5 * 1.54439F + 1.5406F) / 1.5);
  const std::vector<std::pair<std::string, float>> cases{
      {"", 0.7F},
      {"LambdaAlpha1,1.5,/\r\nlabdaalpha1,1.5,/\r\n", 0.7F},
      {"LabdaAlpha2,1.5,/\r\nRatioAlpha21,0.5,/\r\n", 0.7F},
      {first, 1.5406F},
      {both, mean},
      {both + "MonochromatorUsed,YES,/\r\n", mean},
      {both + "MonochromatorUse,Yes,/\r\n", mean},
      {both + "MonochromatorUse,NO,/\r\n", mean},
      {both + "MonochromatorUse,YES,/\r\n", 1.5406F},
      {"LabdaAlpha2,1.5,/\r\nRatioAlpha21,1,/\r\nMonochromatorUse,NO,/\r\n", 0.75F},
      {"MonochromatorUse,YES,/\r\n", 0},
  };
  for (const auto& [lines, wavelength] : cases) {
    Buffer().Wavelength = 0.7F;
    Load(ReadUdf, Header(lines) + "1,/\r\n", true);
    EXPECT_EQ(Buffer().Wavelength, wavelength) << lines;
  }
  ExpectFailure(ReadUdf, Header(first + "RatioAlpha21,-1,/\r\n"), {"line 5", "RatioAlpha21"});
}

TEST_F(PhilipsFormat, TellsWhatIsWrong) {
  Load(ReadUdf, Header(Records(27, "key")) + "1\r\n", true);
  EXPECT_EQ(Buffer().UdfHeader[30], "RawScan");
  ExpectFailure(ReadUdf, Header(Records(28, "key")) + "1\r\n", {"line 30", "RawScan", "30 lines"});
  ExpectFailure(ReadUdf, "Title1,a,/\r\nrawscan\r\n", {"too early", "RawScan"});
  ExpectFailure(ReadUdf, "ScanStepSize,1,/\r\nRawScan\r\n1\r\n", {"line 2", "DataAngleRange"});
  ExpectFailure(ReadUdf, "DataAngleRange,1,2,/\r\nRawScan\r\n1\r\n", {"line 2", "ScanStepSize"});
  ExpectFailure(ReadUdf, Header("", "1E39"), {"line 1", "range"});
  ExpectFailure(ReadUdf, Header("", "1", "1E39"), {"line 2", "step"});
  Buffer().PermX[0] = stale;
  ExpectFailure(ReadUdf, Header("", "-3E38", "3E38"), {"X of the first point"});
  EXPECT_EQ(X(0), stale);
  ExpectFailure(ReadUdf, Header("", "0", "3E38") + "1,1,1", {"line 4", "X"});
  ExpectFailure(ReadUdf, Header("") + "1\r\n1E39", {"line 5", "intensity"});
}

}  // namespace
}  // namespace koprax
