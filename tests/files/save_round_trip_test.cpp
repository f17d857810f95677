// What a writer wrote reads back through its reader: for profiles made at random, to the same 32-bit values,
// and saved once more to the same bytes. The numbers are of as many digits as each format keeps; six digits
// survive the way through a 32-bit float.
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "files/channel_format.h"
#include "files/column_formats.h"
#include "files/philips_format.h"
#include "files/profile_writers.h"
#include "files/scratch_file.h"
#include "files/siemens_format.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

/// A format: its two directions, and the digits that it keeps.
struct Format {
  std::string Name;
  FormatCodes Code;
  ReadOutcome (*Read)(Workspace&, int, const TellUser&);
  std::function<std::optional<Message>(Workspace&)> Save;
  double YUnit;    ///< intensities are whole multiples of it
  bool FixedStep;  ///< X comes from the first point and the step
  int MostPoints = MaxPoints;
  std::vector<std::string> Header{};
};

const std::vector<Format> Formats{
    {"ItalDat", FormatCodes::ItalDat, ReadItalDat, SaveItalDat, 0.001, true},
    {"OneColumn", FormatCodes::OneColumn, ReadOneColumn, SaveOneColumn, 0.001, true},
    {"TwoColumns", FormatCodes::TwoColumns, ReadTwoColumns,
     [](Workspace& data) { return SaveTwoColumns(data, {}); }, 0.01, false},
    {"Channels", FormatCodes::CpsChannels, ReadAdf, SaveAdf, 0.1, true, 4096},
    {"Philips",
     FormatCodes::Philips,
     ReadUdf,
     SaveUdf,
     1,
     true,
     MaxPoints,
     {"SampleIdent,QUARTZ  ,/", "Title1,Quartz \xC3\xBC,/", "LabdaAlpha1,1.5406,/", "MonochromatorUse,YES,/",
      "DataAngleRange,   2.0000,  60.0000,/", "ScanStepSize,   0.020,/", "RawScan"}},
    {"Siemens",
     FormatCodes::Siemens,
     ReadUxd,
     SaveUxd,
     0.01,
     false,
     MaxPoints,
     {"; remark", "_SAMPLE='Quartz \xC3\xBC'", "_STEPSIZE=1", "_OTHER=7  ", "_RANGE_WL=1", "_2THETACOUNTS"}},
};

class SaveRoundTrip : public testing::TestWithParam<int> {
 protected:
  int Whole(int least, int greatest) { return std::uniform_int_distribution<>(least, greatest)(random_); }

  /// Fills buffer a with a profile as its reader would have left it.
  void Make(const Format& format) {
    ProfileBuffer& buffer = Data.Buffer(1);
    const bool channels = format.Code == FormatCodes::CpsChannels;
    const int count = channels ? format.MostPoints : Whole(2, format.MostPoints);
    const int first = channels ? 1000 : Whole(0, 20000);  // in thousandths
    const int step = channels ? 1000 : Whole(1, 15);
    buffer.FormatCode = static_cast<std::int16_t>(format.Code);
    buffer.Title = FixedField(
        format.Code == FormatCodes::Siemens ? "_SAMPLE='Quartz \xC3\xBC'" : "Quartz \xC3\xBC", TitleWidth);
    buffer.Latin1Text = Whole(0, 1) == 1;
    buffer.Wavelength = 1.5406F;
    buffer.XStep = static_cast<float>(step / 1000.0);
    buffer.PermNpts = buffer.WorkNpts = static_cast<std::int16_t>(count);
    const int most = static_cast<int>(format.YUnit < 0.01 ? 999999 : 99999);
    int thousandths = first;
    for (int i = 1; i <= count; ++i) {
      const auto index = static_cast<std::size_t>(i);
      buffer.PermX[index] = format.Code == FormatCodes::ItalDat || format.Code == FormatCodes::OneColumn
                                ? static_cast<float>(static_cast<float>(first / 1000.0) +
                                                     (i - 1) * static_cast<double>(buffer.XStep))
                                : static_cast<float>(thousandths / 1000.0);
      buffer.PermY[index] = static_cast<float>(Whole(-9999, most) * format.YUnit);
      thousandths += format.FixedStep ? step : Whole(1, 16);
    }
    SetLimits(buffer);
    SetHeader(buffer, format);
  }

  static void SetLimits(ProfileBuffer& buffer) {
    const auto count = static_cast<std::size_t>(buffer.PermNpts);
    buffer.PermXMin = buffer.PermX[1];
    buffer.PermXMax = buffer.PermX[count];
    const auto [least, greatest] = std::minmax_element(
        buffer.PermY.begin() + 1, buffer.PermY.begin() + 1 + static_cast<std::ptrdiff_t>(count));
    buffer.PermYMin = *least;
    buffer.PermYMax = *greatest;
  }

  static void SetHeader(ProfileBuffer& buffer, const Format& format) {
    for (std::size_t i = 0; i < format.Header.size(); ++i) {
      (format.Code == FormatCodes::Philips ? buffer.UdfHeader[i + 1] : buffer.UxdHeader[i + 1]) =
          format.Header[i];
    }
    buffer.UxdHeaderLines = static_cast<std::int16_t>(format.Header.size());
    buffer.CpsLine2 = FixedField("23/6/98   12:06:43", LineWidth);
    buffer.CpsRecNo = 1800;
    buffer.CpsLine4 = FixedField("M\xC3\xBCller", LineWidth);
  }

  std::string Saved(const Format& format, int slot) {
    const ScratchFile file("", "save_round_trip");
    Data.CurBuf = static_cast<std::int16_t>(slot);
    Data.FileName = file.Path();
    EXPECT_FALSE(format.Save(Data));
    return file.Bytes();
  }

  void Read(const Format& format, const std::string& bytes, int slot) {
    const ScratchFile file(bytes, "save_round_trip");
    Data.FileName = file.Path();
    const ReadOutcome outcome =
        format.Read(Data, slot, [](const Message& told) { ADD_FAILURE() << told.Text; });
    ASSERT_FALSE(outcome.Failed) << outcome.Problem->Text;
    ProfileBuffer& buffer = Data.Buffer(slot);
    buffer.WorkNpts = buffer.PermNpts;  // as when it is shown
    buffer.PermXMin = buffer.PermX[1];
    buffer.PermXMax = buffer.PermX[static_cast<std::size_t>(buffer.PermNpts)];
  }

  void ExpectSameProfile(const Format& format) {
    const ProfileBuffer& saved = Data.Buffer(1);
    const ProfileBuffer& read = Data.Buffer(2);
    ASSERT_EQ(read.PermNpts, saved.PermNpts);
    for (std::size_t i = 1; i <= static_cast<std::size_t>(saved.PermNpts); ++i) {
      ASSERT_EQ(read.PermX[i], saved.PermX[i]) << i;
      ASSERT_EQ(read.PermY[i], saved.PermY[i]) << i;
    }
    EXPECT_EQ(read.PermYMin, saved.PermYMin);
    EXPECT_EQ(read.PermYMax, saved.PermYMax);
    const bool channels = format.Code == FormatCodes::CpsChannels;
    if (format.Code != FormatCodes::TwoColumns) {
      EXPECT_EQ(read.XStep, saved.XStep);
    }
    if (!channels) {
      EXPECT_EQ(read.Wavelength, saved.Wavelength);
    }
    if (!channels && format.Code != FormatCodes::Philips) {  // whose titles come from several lines
      EXPECT_EQ(read.Title, saved.Title);
    }
  }

  Workspace Data;

 private:
  std::mt19937 random_{static_cast<unsigned>(GetParam())};
};

TEST_P(SaveRoundTrip, GivesTheSameProfileAndTheSameBytes) {
  for (const Format& format : Formats) {
    SCOPED_TRACE(format.Name);
    Make(format);
    const std::string bytes = Saved(format, 1);
    Read(format, bytes, 2);
    if (HasFatalFailure()) return;
    ExpectSameProfile(format);
    EXPECT_EQ(Saved(format, 2), bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SaveRoundTrip, testing::Range(1, 11));

}  // namespace
}  // namespace koprax
