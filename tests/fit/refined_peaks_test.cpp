// The refined peaks and the list of their buffer: which goes where, and what becomes of its numbers.
#include "fit/refined_peaks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "app/journey.h"
#include "fit/refined_peaks_window.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RefinedPeaks : public Journey {
 protected:
  using CommandSession::Run;  // and not the test's own

  RefinedPeaks() { Load('b', "10 0\r\n20 100\r\n30 0\r\n"); }

  ProfileBuffer& Buffer() { return Data().Buffer(2); }
  /// Opens the list of buffer b after a fit of peaks at these positions, of these heights.
  void Open(const std::vector<std::pair<float, float>>& peaks) {
    Data().CurBuf = 2;
    Data().Fit.FitPeakCount = static_cast<std::int16_t>(peaks.size());
    for (std::size_t k = 0; k < peaks.size(); ++k) {
      const int peak = static_cast<int>(k) + 1;
      Data().Fit.FitParam[NumberOf(peak, PeakParameter::Position)] = peaks[k].first;
      Data().Fit.FitParam[NumberOf(peak, PeakParameter::Intensity)] = peaks[k].second;
    }
    Run([](const WindowContext& context) { context.Desk.Load<Form23>(context)->Show(); });
  }
  void List(const std::vector<std::string>& positions) {
    Buffer().NPeaks = static_cast<std::int16_t>(positions.size());
    for (std::size_t k = 0; k < positions.size(); ++k) {
      (Buffer().InChannels() ? Buffer().PeakChannel : Buffer().PeakTheta)[k + 1] = positions[k];
      Buffer().PeakY[k + 1] = "1";
    }
  }
  std::string Lists() {
    return Get("Form23.Text1.Text").get<std::string>() + "|" + Get("Form23.Text2.Text").get<std::string>();
  }
  /// Fills boxes and clicks: "Text5=2 cmdInsert".
  std::vector<std::string> Do(const std::string& words) {
    std::istringstream in(words);
    std::string script;
    for (std::string word; in >> word;) {
      const auto equals = word.find('=');
      script += equals == std::string::npos
                    ? "click Form23." + word + "\n"
                    : "set Form23." + word.substr(0, equals) + " \"" + word.substr(equals + 1) + "\"\n";
    }
    return Words(script);
  }
};

TEST_F(RefinedPeaks, StandOnTheirBackground) {
  PeakFit& fit = Data().Fit;
  fit.FitPolyBackground = true;
  fit.FitLine[1] = 20;
  fit.FitParam[ConstantTerm] = 100;
  fit.FitParam[LinearTerm] = 2;
  fit.FitParam[CubicTerm] = 0.5F;
  Open({{22.00004F, 10.126F}, {19, -5}});
  EXPECT_EQ(Lists(), "|1) 22   118.1303\r\n2) 19   92.5\r\n") << "10.13 + 100 + 2 t + t^3 / 2";

  fit.FitPolyBackground = false;
  fit.FitPointCount = 3;
  fit.FitX[1] = 20, fit.FitX[2] = 21, fit.FitX[3] = 23;
  fit.FitBackgroundY[1] = 4, fit.FitBackgroundY[2] = 8, fit.FitBackgroundY[3] = 2;
  fit.FitParam[ScaleFactor] = 10;
  Open({{19, 1}, {20.25F, 1}, {21, 1}, {22.5F, 1}, {23, 1}, {24, 1}});
  EXPECT_EQ(Lists(),
            "|1) 19   41\r\n2) 20.25   51\r\n3) 21   81\r\n4) 22.5   36\r\n5) 23   21\r\n6) 24   21\r\n");
}

TEST_F(RefinedPeaks, MoveFromOneListToTheOther) {
  List({"11", "12.50", "13"});
  Open({{20, 5}, {21, 6}, {22, 7}, {23, 8}});
  const std::vector<std::pair<std::string, std::string>> steps{
      // What is done, and the positions of both lists behind it; an empty entry is a "-".
      {"Text5=2.5 cmdInsert", "11 12.50 13 21|20 22 23"},  // a half goes to the even number
      {"Text3=2 Text4=1 cmdSubs", "11 20 13 21|22 23"},
      {"Text3=0 Text4=1 cmdSubs", "11 20 13 21|22 23"},
      {"Text3=1 Text4=13 cmdSubs", "11 20 13 21|22 23"},
      {"Text5=0.5 cmdInsert", "11 20 13 21|22 23"},
      {"Text5=99999 cmdInsert", "11 20 13 21|22 23"},
      {"Text6=none cmdDelete", "11 20 13 21|22 23"},
      {"Text3=6 Text4=2 cmdSubs", "11 20 13 21|22"},  // behind the list, which gets no longer
      {"Text6=1 cmdDelete", "20 13 21|22"},
      {"Text6=99 cmdDelete", "20 13|22"},
      {"Text5=1 cmdInsert", "20 13 22|"},
      {"Text5=4 cmdInsert", "20 13 22 -|"},
      {"Text6=3 cmdDelete cmdDelete cmdDelete", "20|"},
      {"Text6=50 cmdDelete cmdDelete", "|"},
  };
  const auto positions = [](const std::string& lines) {
    std::string words;
    std::istringstream in(lines);
    for (std::string line; std::getline(in, line);) {
      const std::string rest = line.substr(line.find(')') + 2);
      words += (words.empty() ? "" : " ") + (rest[0] == ' ' ? "-" : rest.substr(0, rest.find(' ')));
    }
    return words;
  };
  for (const auto& [doing, expected] : steps) {
    EXPECT_TRUE(Do(doing).empty()) << doing;
    EXPECT_EQ(positions(Get("Form23.Text1.Text")) + "|" + positions(Get("Form23.Text2.Text")), expected)
        << doing;
  }
  EXPECT_EQ(Buffer().PeakTheta[6], "23");

  // Height, d and channel go along.
  Buffer().FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);
  List({"100", "200", "300"});
  Buffer().PeakY = {"", "1100", "1200", "1300"};
  Buffer().PeakD = {"", "d100", "d200", "d300"};
  Do("Text3=1 Text4=1 Text6=1");
  EXPECT_FALSE(PressEnter("Form23", "Text3"));
  EXPECT_TRUE(PressEnter("Form23", "Text6"));
  Do("Text6=9 cmdDelete");
  EXPECT_EQ(Buffer().PeakChannel[1] + Buffer().PeakY[1] + Buffer().PeakD[1], "2001200d200");
}

TEST_F(RefinedPeaks, GetTheirSpacingAndTheirTwoTheta) {
  constexpr double radians = std::numbers::pi / 180;
  const auto d = [&](double two_theta) {
    return RoundedText(static_cast<float>(1.5406 / 2 / std::sin(two_theta / 2 * radians)), 4);
  };
  Open({{28.44213F, 100}, {0.001F, 1}, {-20, 1}});
  Buffer().PeakD[2] = "7";
  Do("Text5=1 cmdInsert cmdInsert cmdInsert");
  EXPECT_EQ(Buffer().PeakD[1], d(28.4421));
  EXPECT_EQ(Buffer().PeakD[2], "7") << "too close to 0 to have one";
  EXPECT_EQ(Buffer().PeakD[3], d(-20));
  Buffer().Wavelength = 0;
  Open({{30, 1}});
  Do("Text3=1 Text4=1 cmdSubs");
  EXPECT_EQ(Buffer().PeakD[1], "0");

  Buffer().FormatCode = static_cast<std::int16_t>(FormatCodes::CpsChannels);
  Buffer().NPeaks = 0;
  Buffer().PeakD[1] = "";
  Buffer().Wavelength = 1.5406F;
  Open({{512.25F, 3}, {100, 4}});
  Do("Text5=1 cmdInsert");
  EXPECT_EQ(Buffer().PeakTheta[1] + "," + Buffer().PeakD[1], "0,") << "without a calibration";
  Buffer().CalPar = {0, 5, 0.02, 1e-6};
  Do("Text5=1 cmdInsert");
  EXPECT_EQ(Buffer().PeakTheta[2] + "," + Buffer().PeakD[2], "7.01," + d(7.01));
  Do("cmdOrder");
  EXPECT_EQ(Lists(), "1)100   4\r\n2)512.25   3\r\n|") << "by channel";
  EXPECT_EQ(Buffer().PeakTheta[1], "7.01");
}

TEST_F(RefinedPeaks, AreOrderedAndSavedAsTheyAreHeld) {
  List({"30.50", "9", "30.5", "", "100"});
  Buffer().PeakY[3] = "2.10";
  Buffer().PeakD[3] = "2.9285";
  Open({});
  Do("cmdOrder");
  EXPECT_EQ(Lists(), "1) 0   1\r\n2) 9   1\r\n3) 30.5   1\r\n4) 30.5   2.1\r\n5) 100   1\r\n|");
  EXPECT_EQ(Buffer().PeakD[4] + Buffer().PeakD[3] + Buffer().PeakChannel[5], "2.928500");
  Data().CurBuf = 1;  // another buffer has been picked meanwhile
  Words(FileAnswer(Folder() + "/list.pks") + "click Form23.cmdSave\n");
  EXPECT_THAT(BytesOf(Folder() + "/list.pks"), HasSubstr("\r\n 30.5   2.1   2.9285\r\n 100   1   0\r\n"));
  EXPECT_EQ(Data().CurBuf, 2);
  EXPECT_THAT(After("Form23.cmdBack"), ElementsAre("unloaded Form23"));
}

TEST_F(RefinedPeaks, StayWhereTheyAreWhenThereIsNoPlaceForThem) {
  List(std::vector<std::string>(MaxPeaks, "15"));
  Open({{20, 1}});
  const std::string before = Lists();
  EXPECT_THAT(Do("Text5=1 cmdInsert"), ElementsAre(HasSubstr("holds 100 peaks already")));
  for (const char* doing : {"Text5=-1 cmdInsert", "Text3=-1 Text4=1 cmdSubs", "Text3=101 Text4=1 cmdSubs",
                            "Text3=1 Text4=-1 cmdSubs", "Text6=101 cmdDelete", "Text6=-1E9 cmdDelete"}) {
    EXPECT_THAT(Do(doing), ElementsAre(HasSubstr("from 1 to 100"))) << doing;
  }
  EXPECT_EQ(Lists(), before);
  Data().Buffer(2).PermY[2] = 99;
  for (const char* command : {"Text3=1 Text4=1 cmdSubs", "cmdOrder", "cmdSave"}) {
    EXPECT_THAT(Do(command), ElementsAre(HasSubstr("doesn't hold the profile"))) << command;
  }
  EXPECT_EQ(Buffer().PeakTheta[1], "15");

  Data().CurBuf = 0;
  Run([](const WindowContext& context) { context.Desk.Load<Form23>(context)->Show(); });
  EXPECT_TRUE(Do("Text5=1 cmdInsert cmdOrder").empty());
  EXPECT_EQ(Lists(), "1) 20   1\r\n|") << "of no buffer";
}

}  // namespace
}  // namespace koprax
