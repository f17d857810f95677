// What the tests of all readers share: a buffer that held another profile, readings into it, and what a
// failed one leaves behind.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "files/read_outcome.h"
#include "files/scratch_file.h"
#include "forms/fixed_text.h"
#include "workspace/workspace.h"

namespace koprax {

class ReaderTest : public testing::Test {
 protected:
  using Reader = std::function<ReadOutcome(Workspace&, int, const TellUser&)>;

  static constexpr float stale = -777;  ///< what lay in the buffer before a reading

  ReaderTest() {
    Buffer().Title = FixedField("old profile", TitleWidth);
    Buffer().PermX.assign(MaxPoints + 1, stale);
    Buffer().PermY.assign(MaxPoints + 1, stale);
    Buffer().PermNpts = 11;
    Buffer().Wavelength = 0.7F;
    Buffer().XStep = Buffer().FileXMin = Buffer().FileXMax = stale;
    Buffer().NPeaks = 1;
    Buffer().PeakTheta[1] = "28.44";
  }

  ProfileBuffer& Buffer() { return Data.Buffer(2); }
  [[nodiscard]] float X(int i) { return Buffer().PermX[static_cast<std::size_t>(i)]; }
  [[nodiscard]] float Y(int i) { return Buffer().PermY[static_cast<std::size_t>(i)]; }
  /// The points as they count, X and Y one after the other.
  [[nodiscard]] std::vector<float> Points() {
    std::vector<float> points;
    for (int i = 1; i <= Buffer().PermNpts; ++i) points.insert(points.end(), {X(i), Y(i)});
    return points;
  }
  [[nodiscard]] std::string Title() { return RightTrimmed(Buffer().Title); }

  ReadOutcome Read(const Reader& reader, const std::string& text) {
    const ScratchFile file(text, "reader_test");
    Data.FileName = file.Path();
    Told.clear();
    return reader(Data, 2, [this](const Message& message) { Told.push_back(message.Text); });
  }
  void Load(const Reader& reader, const std::string& text, bool front_main_menu) {
    const ReadOutcome outcome = Read(reader, text);
    EXPECT_FALSE(outcome.Failed);
    EXPECT_FALSE(outcome.Problem) << outcome.Problem->Text;
    EXPECT_EQ(outcome.FrontMainMenu, front_main_menu);
  }

  void ExpectEmptied() {
    EXPECT_EQ(Buffer().Title, Data.BlankTitle);
    EXPECT_EQ(Buffer().PermNpts, 0);
    EXPECT_EQ(Buffer().FileXMin, 0);
    EXPECT_EQ(Buffer().FileXMax, 0);
    EXPECT_EQ(Buffer().XStep, 0);
    EXPECT_EQ(Buffer().NPeaks, 1);
    EXPECT_EQ(Buffer().PeakTheta[1], "28.44");
  }
  /// A failure in exactly these words.
  void ExpectMessage(const Reader& reader, const std::string& text, const Message& message) {
    const ReadOutcome outcome = Read(reader, text);
    ASSERT_TRUE(outcome.Failed && outcome.Problem && outcome.FrontMainMenu) << text;
    EXPECT_EQ(outcome.Problem->Text, message.Text);
    EXPECT_EQ(outcome.Problem->Title, message.Title);
    EXPECT_EQ(outcome.Problem->Icon, message.Icon);
    ExpectEmptied();
  }
  void ExpectLimitFailure(const Reader& reader, const std::string& text) {
    ExpectMessage(reader, text,
                  {.Text = "Profile with more than 8000 points.\r\n"
                           "Not allowed in the present version of the program.\r\nReturn to main menu.",
                   .Title = "Error"});
  }
  /// A failure in words of its own, which contain all of the given ones.
  void ExpectFailure(const Reader& reader, const std::string& text, const std::vector<std::string>& words) {
    const ReadOutcome outcome = Read(reader, text);
    ASSERT_TRUE(outcome.Failed && outcome.Problem && outcome.FrontMainMenu) << text;
    EXPECT_EQ(outcome.Problem->Title, "Error");
    EXPECT_EQ(outcome.Problem->Icon, MessageIcon::Stop);
    EXPECT_NE(outcome.Problem->Text.find(Data.FileName), std::string::npos) << outcome.Problem->Text;
    for (const std::string& each : words) {
      EXPECT_NE(outcome.Problem->Text.find(each), std::string::npos) << outcome.Problem->Text;
    }
    ExpectEmptied();
  }

  Workspace Data;
  std::vector<std::string> Told;  ///< what the last reading told on its way
};

/// A record many times over.
inline std::string Records(int count, const std::string& record) {
  std::string text;
  for (; count > 0; --count) text += record + "\r\n";
  return text;
}

}  // namespace koprax
