#include "files/siemens_format.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "files/reader_test.h"

namespace koprax {
namespace {

using SiemensFormat = ReaderTest;

const std::string end_of_header = "_2THETACOUNTS\r\n";

TEST_F(SiemensFormat, ReadsHeaderAndPoints) {
  Buffer().UxdHeader[6] = "line of another file";
  Load(ReadUxd,
       "; \"remark\"  \r\n_SAMPLE=first\r\n_SAMPLE='\"\xC5\"'\r\n_STEPSIZE=0.020000\r\n" + end_of_header +
           " 28.38  20000\r\n28.4,30000.5",
       true);
  EXPECT_EQ(Buffer().FormatCode, 6);
  EXPECT_EQ(Title(), "_SAMPLE='\"\xC3\x85\"'");
  EXPECT_TRUE(Buffer().Latin1Text);
  EXPECT_EQ(Points(), (std::vector<float>{28.38F, 20000, 28.4F, 30000.5F}));
  EXPECT_EQ(Buffer().PermYMin, 10000);  // the running limit starts there
  EXPECT_EQ(Buffer().PermYMax, 30000.5F);
  EXPECT_EQ((std::vector<float>{Buffer().PermXMin, Buffer().FileXMin}), std::vector<float>(2, 28.38F));
  EXPECT_EQ((std::vector<float>{Buffer().PermXMax, Buffer().FileXMax}), std::vector<float>(2, 28.4F));
  EXPECT_EQ(Buffer().XStep, 0.02F);
  EXPECT_EQ(Buffer().Wavelength, 0.7F);
  EXPECT_EQ(Buffer().UxdHeaderLines, 5);
  EXPECT_EQ(Buffer().UxdHeader[1], "; \"remark\"  ");
  EXPECT_EQ(Buffer().UxdHeader[5], "_2THETACOUNTS");
  EXPECT_EQ(Buffer().UxdHeader[6], " ");
  Load(ReadUxd, "\xC5\r\n" + Records(68, std::string(100, 'x')) + end_of_header, true);
  EXPECT_EQ(Title(), " file without title");
  EXPECT_TRUE(Buffer().Latin1Text);  // for the lines that are kept
  EXPECT_EQ(Buffer().PermYMax, -10000);
  EXPECT_EQ(Buffer().PermNpts, 0);
  EXPECT_EQ(Buffer().UxdHeader[69], std::string(100, 'x'));
}

TEST_F(SiemensFormat, ValuesStandInTwelveCharactersBehindTheEqualsSign) {
  struct Case {
    std::string Lines;
    float Step;
    float Wavelength;
  };
  const std::vector<Case> cases{
      {"", 0, 0.7F},
      {"_STEPSIZE=0.5\r\n_RANGE_WL= 1.5406 A\r\n", 0.5F, 1.5406F},
      {"_STEPSIZE=0.5\r\n_STEPSIZE=0.25\r\n", 0.25F, 0.7F},
      {"_STEPSIZ=0000000000.25\r\n_RANGE_W=000000000000.7\r\n", 0.2F, 0},
      {"_STEPSIZ\xC3\x85\xC3\x85=0\xC3\x85\r\n_RANGE_Wxxx=1D-1\r\n", 0, 0.1F},
      {"_STEPSIZE 0.5\r\n_RANGE_WL=none\r\n", 0, 0},
      {"_STEPSIZ\xC3\x85" + std::string(20, 'x') + "=0.5\r\n", 0.5F, 0.7F},
      {"_STEPSIZ" + std::string(22, 'x') + "=0.5\r\n", 0, 0.7F},
      {"_stepsize=0.5\r\n STEPSIZE=0.5\r\n", 0, 0.7F},
  };
  for (const Case& each : cases) {
    Buffer().Wavelength = 0.7F;
    Load(ReadUxd, each.Lines + end_of_header + "1 2\r\n", true);
    EXPECT_EQ(Buffer().XStep, each.Step) << each.Lines;
    EXPECT_EQ(Buffer().Wavelength, each.Wavelength) << each.Lines;
  }
}

TEST_F(SiemensFormat, ALineThatIsNoPointFails) {
  for (const char* line : {"", "1", "1 2 3", "1 2 x", "3.000\t187"}) {
    ExpectMessage(ReadUxd, end_of_header + "1 2\r\n" + line + "\r\n",
                  {.Text = "Something wrong in input  file", .Title = "Warning", .Icon = MessageIcon::Stop});
  }
  Load(ReadUxd, end_of_header + Records(8000, "1 2"), true);
  EXPECT_EQ(Buffer().PermNpts, 8000);
  ExpectLimitFailure(ReadUxd, end_of_header + Records(8001, "1 2"));
  EXPECT_EQ(Buffer().Wavelength, 0.7F);
  const ReadOutcome wrong_line = Read(ReadUxd, end_of_header + Records(8000, "1 2") + "1\r\n");
  EXPECT_EQ(wrong_line.Problem->Title, "Warning");  // before the limit
}

TEST_F(SiemensFormat, TellsWhatIsWrong) {
  ExpectFailure(ReadUxd, Records(70, ";") + end_of_header, {"line 70", "_2THETAC", "70 lines"});
  ExpectFailure(ReadUxd, ";\r\n_2theta\r\n", {"too early", "_2THETAC"});
  ExpectFailure(ReadUxd, "_STEPSIZE=1E39\r\n", {"line 1", "step", "range"});
  ExpectFailure(ReadUxd, "_RANGE_WL=-1E39\r\n", {"line 1", "wavelength", "range"});
  ExpectFailure(ReadUxd, end_of_header + "1 1\r\n1E39 1\r\n", {"line 3", "X", "range"});
  EXPECT_EQ(Buffer().PermXMax, 1);
}

}  // namespace
}  // namespace koprax
