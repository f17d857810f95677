// What a result of the manipulation window leaves in a buffer: its points, its limits, and what it takes
// along.
#include "manipulation/result_saving.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tuple>

#include "forms/fixed_text.h"

namespace koprax {
namespace {

constexpr std::int16_t Count = 7;

/// All that goes along as it is.
auto Facts(const ProfileBuffer& b) {
  return std::tie(b.PermNpts, b.PermYMax, b.XStep, b.FileXMin, b.FileXMax, b.Wavelength, b.NegativeY,
                  b.CpsLine2, b.CpsRecNo, b.CpsLine4, b.PeakListText, b.CalPar, b.PeakTheta, b.PeakY,
                  b.PeakChannel, b.PeakD, b.NPeaks, b.FormatCode, b.UdfHeader, b.Latin1Text);
}

/// Buffer b holds a profile whose temporary copy has been worked on, buffer e a longer one.
class ResultSavingTest : public testing::Test {
 protected:
  ResultSavingTest() {
    ProfileBuffer& source = Data.Buffer(2);
    source.Title = FixedField("Corundum", TitleWidth);
    source.PermNpts = source.WorkNpts = Count;
    for (std::size_t i = 1; i <= Count; ++i) {
      const auto number = static_cast<float>(i);
      source.PermX[i] = source.PermY[i] = number;
      source.WorkX[i] = 19 + number;
      source.WorkY[i] = 200 + number;
      Data.BackgroundY[i] = 50 + number;
      Data.NetY[i] = 150 - 25 * number;  // down to -25
    }
    source.PermYMin = 5;
    source.PermYMax = source.XStep = source.FileXMin = source.FileXMax = source.Wavelength = 1.25F;
    source.CpsRecNo = source.NegativeY = source.NPeaks = 1;
    source.CpsLine2 = source.CpsLine4 = source.PeakListText = source.PeakTheta[100] = source.PeakY[100] =
        source.PeakChannel[100] = source.PeakD[100] = source.UdfHeader[30] = "words";
    source.CalPar[7] = 7;
    source.Latin1Text = true;
    source.FormatCode = static_cast<std::int16_t>(FormatCodes::Philips);
    source.UxdHeaderLines = 2;
    source.UxdHeader[2] = source.UxdHeader[3] = "line";
    ProfileBuffer& other = Data.Buffer(5);
    other.PermX[9] = other.PermY[9] = other.WorkX[1] = other.WorkY[1] = 77;
    Original = source;
  }
  const ProfileBuffer& Save(void (&save)(Workspace&), int slot) {
    Data.SumSource = 2;
    Data.CurBuf = static_cast<std::int16_t>(slot);
    const ProfileBuffer& saved = Data.Buffer(slot);
    save(Data);
    EXPECT_TRUE(Facts(saved) == Facts(Original));
    EXPECT_EQ(saved.WorkNpts, Count);
    EXPECT_EQ(saved.PermX[1] + saved.PermX[Count], 20 + 26);
    EXPECT_EQ(saved.PermXMin + saved.PermXMax, 20 + 26);
    return saved;
  }

  Workspace Data;
  ProfileBuffer Original;  // the source as it was
};

TEST_F(ResultSavingTest, ABackgroundOrWhatItLeavesOfTheProfile) {
  // The buffer of the profile comes last: its own values then go.
  for (const int slot : {5, 2}) {
    Data.BackgroundSubtracted = 0;
    const ProfileBuffer& saved = Save(SaveBackgroundResult, slot);
    EXPECT_EQ(Data.CurBuf, 2) << "the window goes on with its own buffer";
    EXPECT_EQ(saved.PermY[1] + saved.PermY[Count], 51 + 57);
    EXPECT_EQ(saved.PermYMin, 5) << "that of the source";
    EXPECT_EQ(saved.PermY[9], slot == 5 ? 77 : 0) << "points beyond the profile stay";
    EXPECT_EQ(saved.WorkY[1], slot == 5 ? 77 : 201) << "the temporary copy stays";
    EXPECT_EQ(RightTrimmed(saved.Title), "Corundum BACKGROUND");

    Data.Buffer(2).Title = Original.Title;
    Data.BackgroundSubtracted = 1;
    Save(SaveBackgroundResult, slot);
    EXPECT_EQ(saved.PermY[1] + saved.PermY[Count], 125 - 25);
    EXPECT_EQ(saved.PermYMin, -25);
    EXPECT_EQ(RightTrimmed(saved.Title), "Corundum WITHOUT BACKGROUND");
  }
}

TEST_F(ResultSavingTest, ASmoothedProfile) {
  for (const int slot : {5, 2}) {
    const ProfileBuffer& saved = Save(SaveSmoothedResult, slot);
    EXPECT_EQ(Data.CurBuf, slot) << "the window goes on with the buffer saved to";
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
  Data.Buffer(2).FormatCode = Original.FormatCode = static_cast<std::int16_t>(FormatCodes::Siemens);
  Original.UdfHeader = Data.Buffer(5).UdfHeader;  // not taken along
  EXPECT_EQ(Save(SaveSmoothedResult, 5).UxdHeaderLines, 0) << "this way takes no such header";
  const ProfileBuffer& background = Save(SaveBackgroundResult, 6);
  EXPECT_EQ(background.UxdHeaderLines, 2);
  EXPECT_EQ(background.UxdHeader[2] + background.UxdHeader[3], "line ") << "the lines of the header alone";
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
