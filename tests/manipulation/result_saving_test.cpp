// What a result of the manipulation window leaves in a buffer: its points, its limits, and what it takes
// along.
#include "manipulation/result_saving.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "forms/fixed_text.h"

namespace koprax {
namespace {

constexpr std::int16_t Count = 7;

/// Buffer b holds a profile that has been worked on, buffer e a longer one with another header.
class ResultSavingTest : public testing::Test {
 protected:
  ResultSavingTest() {
    ProfileBuffer& source = Data.Buffer(2);
    source.Title = FixedField("Corundum", TitleWidth);
    source.Latin1Text = true;
    source.PermNpts = source.WorkNpts = Count;
    for (std::size_t i = 1; i <= Count; ++i) {
      const auto number = static_cast<float>(i);
      source.PermX[i] = source.WorkX[i] = 19 + number;
      source.PermY[i] = 100 + number;
      source.WorkY[i] = 200 + number;
      Data.BackgroundY[i] = 50 + number;
      Data.NetY[i] = 150 - 25 * number;  // down to -25
    }
    source.PermYMin = 5;
    source.PermYMax = 120;
    source.FileXMin = 19.5F;
    source.FileXMax = 26.5F;
    source.Wavelength = 1.25F;
    source.XStep = source.NegativeY = source.NPeaks = 1;
    source.CpsLine2 = "second record";
    source.CpsRecNo = 70000;
    source.CpsLine4 = "fourth record";
    source.PeakListText = "the list";
    source.CalPar[7] = 7;
    source.PeakTheta[100] = "2-";
    source.PeakY[100] = "I";
    source.PeakChannel[100] = "c";
    source.PeakD[100] = "D";
    source.FormatCode = static_cast<std::int16_t>(FormatCodes::Philips);
    source.UdfHeader[30] = "Anode,Cu,/";
    source.UxdHeaderLines = 2;
    source.UxdHeader[2] = "_STEPTIME=1";
    source.UxdHeader[3] = "behind the header";
    ProfileBuffer& other = Data.Buffer(5);
    other.PermNpts = other.WorkNpts = 9;
    other.PermX[9] = other.PermY[9] = other.WorkX[1] = other.WorkY[1] = 77;
    Data.SumSource = 2;
  }
  ProfileBuffer& Save(void (&save)(Workspace&), int slot) {
    Data.CurBuf = static_cast<std::int16_t>(slot);
    save(Data);
    return Data.Buffer(slot);
  }

  Workspace Data;
};

void ExpectFacts(const ProfileBuffer& saved) {
  EXPECT_EQ(saved.PermNpts + saved.WorkNpts, 2 * Count);
  EXPECT_EQ(saved.PermX[1] + saved.PermX[Count], 20 + 26);
  EXPECT_EQ(saved.PermXMin + saved.PermXMax, 20 + 26);
  EXPECT_EQ(saved.PermYMax, 120);
  EXPECT_EQ(saved.FileXMin + saved.FileXMax + saved.XStep + saved.Wavelength, 19.5 + 26.5 + 1 + 1.25);
  EXPECT_EQ(saved.NegativeY + saved.NPeaks, 2);
  EXPECT_EQ(saved.CalPar[7], 7);
  EXPECT_EQ(saved.CpsRecNo, 70000);
  EXPECT_EQ(saved.CpsLine2 + ", " + saved.CpsLine4 + ", " + saved.PeakListText,
            "second record, fourth record, the list");
  EXPECT_EQ(saved.PeakTheta[100] + saved.PeakY[100] + saved.PeakChannel[100] + saved.PeakD[100], "2-IcD");
  EXPECT_EQ(saved.FormatCode, 5);
  EXPECT_EQ(saved.UdfHeader[30], "Anode,Cu,/");
  EXPECT_TRUE(saved.Latin1Text);
}

TEST_F(ResultSavingTest, ABackgroundOrWhatItLeavesOfTheProfile) {
  // The buffer of the profile comes last: its own values then go.
  for (const int slot : {5, 2}) {
    Data.BackgroundSubtracted = 0;
    const ProfileBuffer& saved = Save(SaveBackgroundResult, slot);
    EXPECT_EQ(Data.CurBuf, 2) << "the window goes on with its own buffer";
    ExpectFacts(saved);
    EXPECT_EQ(saved.PermY[1] + saved.PermY[Count], 51 + 57);
    EXPECT_EQ(saved.PermYMin, 5) << "that of the source";
    EXPECT_EQ(saved.PermY[9], slot == 5 ? 77 : 0) << "points beyond the profile stay";
    EXPECT_EQ(saved.WorkY[1], slot == 5 ? 77 : 201) << "the temporary copy stays";
    EXPECT_EQ(RightTrimmed(saved.Title), "Corundum BACKGROUND");

    Data.Buffer(2).Title = FixedField("Corundum", TitleWidth);
    Data.BackgroundSubtracted = 1;
    Save(SaveBackgroundResult, slot);
    ExpectFacts(saved);
    EXPECT_EQ(saved.PermY[1] + saved.PermY[Count], 125 - 25);
    EXPECT_EQ(saved.PermYMin, -25);
    EXPECT_EQ(RightTrimmed(saved.Title), "Corundum WITHOUT BACKGROUND");
  }
}

TEST_F(ResultSavingTest, ASmoothedProfile) {
  for (const int slot : {5, 2}) {
    const ProfileBuffer& saved = Save(SaveSmoothedResult, slot);
    EXPECT_EQ(Data.CurBuf, slot) << "the window goes on with the buffer saved to";
    ExpectFacts(saved);
    EXPECT_EQ(saved.PermY[1] + saved.PermY[Count], 201 + 207);
    EXPECT_EQ(saved.PermYMin, 5);
    EXPECT_EQ(saved.PermX[9] + saved.PermY[9], 0) << "nothing is left of a longer profile";
    EXPECT_EQ(saved.WorkX[1], slot == 5 ? 77 : 20);
    EXPECT_EQ(RightTrimmed(saved.Title), "Corundum SMOOTHED");
  }
  Data.SaveDft = true;
  for (const auto* const title : {"Corundum SMOOTHED SMOOTHED by DFT", "Corundum SMOOTHED SMOOTHED"}) {
    EXPECT_EQ(RightTrimmed(Save(SaveSmoothedResult, 5).Title), title) << "the filter is named once";
    EXPECT_FALSE(Data.SaveDft);
  }
}

TEST_F(ResultSavingTest, TheHeaderGoesByTheFormatAndTheWay) {
  Data.Buffer(2).FormatCode = static_cast<std::int16_t>(FormatCodes::Siemens);
  const ProfileBuffer& smoothed = Save(SaveSmoothedResult, 5);
  EXPECT_EQ(smoothed.FormatCode, 6);
  EXPECT_EQ(smoothed.UdfHeader[30], " ");
  EXPECT_EQ(smoothed.UxdHeaderLines, 0) << "this way takes no such header";
  const ProfileBuffer& background = Save(SaveBackgroundResult, 6);
  EXPECT_EQ(background.UxdHeaderLines, 2);
  EXPECT_EQ(background.UxdHeader[2] + background.UxdHeader[3], "_STEPTIME=1 ");
  EXPECT_EQ(background.UdfHeader[30], " ");
}

TEST_F(ResultSavingTest, ALongTitleLosesItsEnd) {
  std::string title;
  for (int i = 0; i < 72; ++i) title += "\u03b8";  // characters are counted, not bytes
  Data.Buffer(2).Title = FixedField(title, TitleWidth);
  EXPECT_EQ(Save(SaveSmoothedResult, 5).Title, title + " SMOOTHE");
  EXPECT_EQ(Save(SaveBackgroundResult, 5).Title, title + " BACKGRO");
}

}  // namespace
}  // namespace koprax
