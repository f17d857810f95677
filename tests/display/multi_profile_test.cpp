// Several profiles in one plot: which may share it, in what limits, and every line of it.
#include "display/multi_profile.h"

#include <gtest/gtest.h>

#include <array>
#include <iomanip>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "workspace/temporary_copy.h"

namespace koprax {
namespace {

using Points = std::vector<std::pair<float, float>>;

/// What a buffer holds: the limits of X are its first and last point, those of Y are given.
struct Contents {
  float Wavelength = 1.5406F;
  FormatCodes Format = FormatCodes::TwoColumns;
  Points Curve{{10, 0}, {20, 100}};
  float YMin = 0;
  float YMax = 100;
};

void Fill(Workspace& data, int slot, const Contents& contents) {
  ProfileBuffer& buffer = data.Buffer(slot);
  buffer.Title = "Title " + buffer.BufLetter;
  buffer.Wavelength = contents.Wavelength;
  buffer.FormatCode = static_cast<std::int16_t>(contents.Format);
  buffer.PermNpts = static_cast<std::int16_t>(contents.Curve.size());
  for (std::size_t i = 0; i < contents.Curve.size(); ++i) {
    std::tie(buffer.PermX[i + 1], buffer.PermY[i + 1]) = contents.Curve[i];
  }
  buffer.PermXMin = contents.Curve.front().first;
  buffer.PermXMax = contents.Curve.back().first;
  buffer.PermYMin = contents.YMin;
  buffer.PermYMax = contents.YMax;
  data.SelBuf[static_cast<std::size_t>(slot)] = 1;
}

/// What the user is told about the selection, and nothing if it can be shown; then it is the plot at work.
std::string Take(Workspace& data) {
  const auto plan = PlanMultiProfile(data, data.SelBuf);
  if (const auto* refusal = std::get_if<Message>(&plan)) {
    EXPECT_EQ(refusal->Icon, MessageIcon::Stop);
    return refusal->Title + ": " + refusal->Text;
  }
  TakeMultiProfile(data, std::get<MultiProfile>(plan));
  return "";
}

std::string TakeAll(const std::vector<Contents>& buffers, Workspace& data) {
  int slot = 0;
  for (const Contents& contents : buffers) Fill(data, ++slot, contents);
  return Take(data);
}

/// The lines in the colours of buffers, with two decimals, far more than the 32 bits of the scales spoil; and
/// the texts.
std::vector<std::string> Drawn(const Surface& surface) {
  std::vector<std::string> drawn;
  for (const auto& operation : surface.Operations()) {
    std::ostringstream words;
    if (const auto* text = std::get_if<TextOperation>(&operation)) {
      words << text->Text << " @" << text->X << "," << text->Y << " " << text->TextColour;
    } else if (const auto& line = std::get<LineOperation>(operation);
               line.LineColour != colours::Black && line.LineColour != colours::Red) {
      words << std::fixed << std::setprecision(2) << line.X1 << "," << line.Y1 << " " << line.X2 << ","
            << line.Y2 << " " << line.LineColour;
    }
    if (!words.str().empty()) drawn.push_back(words.str());
  }
  return drawn;
}
std::vector<std::string> LegendOf(const Workspace& data) {
  Surface legend{LegendPicture().Scale};
  DrawLegend(data, SlotsInPlot(data), legend);
  EXPECT_EQ(legend.ForeColor, colours::Black);
  return Drawn(legend);
}

void Unexpected(const Message& message) { ADD_FAILURE() << message.Text; }

TEST(MultiProfile, CurvesAndSticksStandInTheFrameOfTheProfiles) {
  Workspace data;
  data.CurBuf = 6;  // which the plot doesn't show
  // 9.5 units a degree; 0.475 a count above the zero line at 38.75, the plot ends at 90.
  Fill(data, 1, {.Format = FormatCodes::Card, .Curve = {{5, 9}, {12, 40}, {15, 110}, {30, 9}}, .YMax = 300});
  Fill(data, 2, {.Curve = {{10, 0}, {15, 100}, {20, 50}}});
  Fill(data, 4, {.Curve = {{12, -50}, {18, 20}}, .YMin = -50, .YMax = 20});
  ASSERT_EQ(Take(data), "");
  EXPECT_EQ(SlotsInPlot(data), (std::vector<int>{1, 2, 4}));
  const std::vector<float> colours_of_buffers{16711935, 16711680, 255, 32768, 16776960, 0};
  for (int slot = 1; slot <= 6; ++slot) {
    EXPECT_EQ(data.Buffer(slot).BufColor, colours_of_buffers[static_cast<std::size_t>(slot) - 1]);
  }
  Surface picture{PlotPicture().Scale};
  DrawMultiProfile(data, picture, Unexpected);
  std::vector<std::string> drawn = Drawn(picture);
  std::erase_if(drawn, [](const std::string& words) { return words.find('@') != std::string::npos; });
  EXPECT_EQ(drawn, (std::vector<std::string>{"39.00,38.75 39.00,57.75 16711935",  //
                                             "20.00,38.75 67.50,86.25 16711680",
                                             "67.50,86.25 115.00,62.50 16711680",  //
                                             "39.00,15.00 96.00,48.25 32768"}));
  const auto& last = picture.Operations();
  EXPECT_EQ(last[last.size() - 3], DrawingOperation(TextOperation{103, 10, "2q", 0, "symbol", 12}));
  EXPECT_EQ(picture.FontName, DefaultFont);
  for (const int slot : {1, 2, 4, 6}) {
    EXPECT_EQ(data.Buffer(slot).NegativeY, 1) << slot;
  }
  EXPECT_EQ(data.Buffer(3).NegativeY, 0);
  EXPECT_EQ(LegendOf(data),
            (std::vector<std::string>{"buffer  a  Title a @23,1 0", "1.00,3.00 16.00,3.00 16711935",
                                      "buffer  b  Title b @23,4 0", "1.00,6.00 16.00,6.00 16711680",
                                      "buffer  d  Title d @23,7 0", "1.00,9.00 16.00,9.00 32768"}));
}

TEST(MultiProfile, TwoHaveNamesForFormulasAndAnErasedEntryIsPassedOver) {
  Workspace data;
  const Contents channels{.Format = FormatCodes::CpsChannels};
  Fill(data, 2, channels);
  Fill(data, 5, channels);
  ASSERT_EQ(Take(data), "");
  const auto legend = LegendOf(data);
  ASSERT_EQ(legend.size(), 6U);
  EXPECT_EQ(legend[2], "Y1 @18,1 16711680");
  EXPECT_EQ(legend[5], "Y2 @18,4 16776960");
  Surface picture{PlotPicture().Scale};
  DrawMultiProfile(data, picture, Unexpected);
  const auto& last = picture.Operations();
  EXPECT_EQ(last[last.size() - 3],
            DrawingOperation(TextOperation{101, 9, "Channel", 0, std::string(DefaultFont), 8}));
  EraseBuffer(data, 1);  // the first place of the list
  EXPECT_EQ(SlotsInPlot(data), (std::vector<int>{5}));
  EXPECT_EQ(LegendOf(data).front(), "buffer  e  Title e @23,1 0");
}

TEST(MultiProfile, WhatMayNotShareAPlotChangesNothing) {
  const std::string radiation =
      "Error: Profiles collected with radiation of different \r\nwavelengths cannot be displayed on the same "
      "figure.";
  const std::string units =
      "Error: Error!!\r\nProfiles in 2-theta cannot co-exsist with profiles in 'channels'.\r\nChange "
      "'channel' "
      "units in 2-theta units prior to any common displaying.";
  const std::string range =
      "Error: The profiles have no common range of X in which they could be displayed.\r\nSelect profiles "
      "whose X runs upward.";
  const Contents card{.Format = FormatCodes::Card};
  const Contents channels{.Format = FormatCodes::CpsChannels};
  const auto radiated = [](float wavelength) { return Contents{.Wavelength = wavelength}; };
  const std::vector<std::pair<std::vector<Contents>, std::string>> cases{
      {{radiated(1.54056F), radiated(1.54184F)}, ""},
      {{radiated(1.54056F), radiated(0.71073F)}, radiation},
      {{radiated(0.9804F), radiated(1.0196F)}, ""},  // 1.999 per cent of the smaller one
      {{radiated(0.9803F), radiated(1.0197F)}, radiation},
      {{radiated(1.5F), radiated(0.7F), radiated(0)},
       "Warning: Undefined wave length for profile in buffer c"},
      {{channels, channels}, ""},
      {{channels, {}}, units},
      {{channels, card}, units},
      {{card, {}}, ""},
      {{card}, ""},
      {{{.Curve = {{20, 1}, {10, 2}}}, {.Curve = {{30, 1}, {20, 2}}}}, range},  // they meet at 20 alone
      {{{.Curve = {{-3e38F, 1}, {3e38F, 2}}}}, range},
      {{{.Curve = {{20, 1}, {10, 2}}}}, range},
      {{}, range},
  };
  for (const auto& [buffers, told] : cases) {
    Workspace data;
    EXPECT_EQ(TakeAll(buffers, data), told) << buffers.size();
    const bool taken = told.empty();
    EXPECT_EQ(data.Buffer(1).SelList, taken ? 1 : 0);
    EXPECT_EQ(data.Buffer(1).WorkNpts, taken ? 2 : 0);
    EXPECT_EQ(data.PlotXMax, taken ? 20 : 0);
    EXPECT_EQ(data.SumWavelength > 0, taken && buffers.size() == 2);
  }
}

TEST(MultiProfile, LimitsAreComparedWithStartValuesThatAreNoExtremes) {
  struct Case {
    std::vector<Contents> Buffers;
    std::array<float, 4> Limits;
  };
  const Contents high{.Curve = {{10500, 1}, {10600, 2}}, .YMin = 20000, .YMax = 30000};
  const Contents low{.Curve = {{-30, 1}, {-20, 2}}, .YMin = -30000, .YMax = -20000};
  const Contents cards{.Format = FormatCodes::Card, .Curve = {{5, 1}, {90, 2}}, .YMin = 1, .YMax = 7};
  for (const Case& c : {Case{{high}, {10000, 10600, 10000, 30000}}, Case{{low}, {-30, -20, -30000, -10000}},
                        Case{{cards, {}}, {10, 20, 0, 100}}, Case{{cards}, {5, 90, 1, 7}},
                        Case{{low, {}}, {-30, 20, -30000, 100}}}) {
    Workspace data;
    ASSERT_EQ(TakeAll(c.Buffers, data), "");
    EXPECT_EQ((std::array{data.PlotXMin, data.PlotXMax, data.PlotYMin, data.PlotYMax}), c.Limits);
  }
}

TEST(MultiProfile, TemporaryCopiesAreFreshUnlessOneHasJustBeenChanged) {
  Workspace data;
  ASSERT_EQ(TakeAll({{.Wavelength = 1.54056F}, {.Wavelength = 1.54184F}}, data), "");
  EXPECT_FLOAT_EQ(data.SumWavelength, 1.5412F);
  data.Buffer(2).WorkY[2] = 77;
  data.MultiOp = true;
  ASSERT_EQ(Take(data), "");
  EXPECT_EQ(data.Buffer(2).WorkY[2], 77);
  data.MultiOp = false;
  Fill(data, 3, {.Wavelength = 1.5406F});
  ASSERT_EQ(Take(data), "");
  EXPECT_EQ(data.Buffer(2).WorkY[2], 100);
  EXPECT_FLOAT_EQ(data.SumWavelength, 1.5412F);  // of the two before
}

TEST(MultiProfile, ASaveKeepsTheNumberOfPointsAndFindsTheLimitsAnew) {
  Workspace data;
  Fill(data, 1, {.Curve = {{1, 5}, {2, 6}, {3, 7}}});
  ProfileBuffer& buffer = data.Buffer(1);
  TakeTemporaryCopy(buffer);
  buffer.WorkNpts = 2;
  buffer.WorkX[1] = 1.5F;
  buffer.WorkXMin = 1.25F;
  buffer.WorkXMax = 2.5F;
  for (const auto& [first, second, ymin, ymax] : std::vector<std::array<float, 4>>{
           {-50, 6, -50, 6}, {200000, 300000, 100000, 300000}, {-20000, -30000, -30000, -10000}}) {
    buffer.WorkY[1] = first;
    buffer.WorkY[2] = second;
    SaveShownProfile(buffer);
    EXPECT_EQ(buffer.PermYMin, ymin);
    EXPECT_EQ(buffer.WorkYMax, ymax);
  }
  EXPECT_EQ(buffer.PermNpts, 3);
  EXPECT_EQ((std::array{buffer.PermX[1], buffer.PermX[2], buffer.PermX[3]}), (std::array{1.5F, 2.0F, 3.0F}));
  EXPECT_EQ((std::array{buffer.PermXMin, buffer.PermXMax}), (std::array{1.25F, 2.5F}));
}

}  // namespace
}  // namespace koprax
