#include "files/channel_format.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/reader_test.h"

namespace koprax {
namespace {

class ChannelFormat : public ReaderTest {
 protected:
  /// The first nine lines.
  static std::string Header(const std::string& date = "23/6/98   12:06:43",
                            const std::string& seconds = "1800") {
    return "4096\r\n" + date + "\r\n" + seconds + "\r\nB. \"Bragg\"\r\n" + Records(5, "x");
  }
};

TEST_F(ChannelFormat, EachLineIsEightChannels) {
  Load(ReadAdf, Header() + "1 2 3 4 5 6 7 8 9\r\n-10 x 20.5\r\n", true);
  EXPECT_EQ(Buffer().FormatCode, 4);
  EXPECT_EQ(Title(), "4096  23/6/98 12:06:43  1800 B. \"Bragg\"");
  EXPECT_EQ(Buffer().CpsLine2, FixedField("23/6/98   12:06:43", 80));
  EXPECT_EQ(Buffer().CpsRecNo, 1800);
  EXPECT_EQ(Buffer().CpsLine4, FixedField("B. \"Bragg\"", 80));
  EXPECT_EQ(Points(), (std::vector<float>{1, 1,   2,  2,    3,  3, 4,  4, 5,  5, 6,  6, 7,  7, 8,  8,
                                          9, -10, 10, 20.5, 11, 0, 12, 0, 13, 0, 14, 0, 15, 0, 16, 0}));
  EXPECT_EQ(Buffer().PermYMin, -10);
  EXPECT_EQ(Buffer().PermYMax, 20.5F);
  EXPECT_EQ(Buffer().FileXMin, 1);
  EXPECT_EQ(Buffer().FileXMax, 16);
  EXPECT_EQ(Buffer().XStep, 1);
  EXPECT_EQ(Buffer().Wavelength, 0.7F);

  Load(ReadAdf, Header() + Records(512, "7 7 7 7 7 7 7 7") + "\r\n", true);
  EXPECT_EQ(Buffer().PermNpts, 4104);  // the empty line at the end counts
  Load(ReadAdf, Header(), true);
  EXPECT_EQ(Buffer().PermNpts, 0);
  EXPECT_EQ(Buffer().PermYMin, 100000);  // the running limits as they start
  EXPECT_EQ(Buffer().PermYMax, -100000);
}

TEST_F(ChannelFormat, TheTitleTakesTheWordsOfDateAndHourAndTheNumbersAsTheyAre) {
  Load(ReadAdf,
       "\r\n1 a,2 b c d e f g\r\n40000.5\r\n\xC5ngstr\xF6m " + std::string(90, 'o') + "\r\n" + Records(5, ""),
       true);
  EXPECT_EQ(Buffer().Title, "0  a b c d e f g  40000.5 \xC3\x85ngstr\xC3\xB6m " + std::string(45, 'o'));
  EXPECT_TRUE(Buffer().Latin1Text);
  EXPECT_EQ(Buffer().CpsRecNo, 40000);  // half to even, and beyond 16 bits
  EXPECT_EQ(CharacterCount(Buffer().CpsLine4), 80U);
  ExpectMessage(ReadAdf, Header("a b c d e f g h"),
                {.Text = "Something wrong in the second record of the file",
                 .Title = "Warning",
                 .Icon = MessageIcon::Stop});
}

TEST_F(ChannelFormat, TakesNoMoreThan8000Channels) {
  Load(ReadAdf, Header() + Records(1000, "3"), true);
  EXPECT_EQ(Buffer().PermNpts, 8000);
  EXPECT_EQ(X(8000), 8000);
  EXPECT_EQ(Buffer().Wavelength, 0.7F);
  ExpectLimitFailure(ReadAdf, Header() + Records(1000, "3") + "\r\n");
  EXPECT_EQ(Buffer().Wavelength, 0);
}

TEST_F(ChannelFormat, TellsWhatIsWrong) {
  const std::vector<std::string> expected{"date", "time", "operator", "intensities", "intensities"};
  std::string text = "4096";
  for (const std::string& each : expected) {
    ExpectFailure(ReadAdf, text, {"too early", each});
    text += "\r\n1";
  }
  ExpectFailure(ReadAdf, "4E96\r\n", {"line 1", "number of channels", "range"});
  ExpectFailure(ReadAdf, Header("", "9.3E18"), {"line 3", "seconds"});
  ExpectFailure(ReadAdf, Header("", "-1E39"), {"line 3", "seconds"});
  ExpectFailure(ReadAdf, Header() + "1 1E39\r\n", {"line 10", "intensity", "range"});
}

}  // namespace
}  // namespace koprax
