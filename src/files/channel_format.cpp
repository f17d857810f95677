#include "files/channel_format.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "files/profile_reading.h"
#include "files/profile_title.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr int channels_a_line = 8;
constexpr int most_date_words = 7;
constexpr int unused_lines = 5;

// ---- The header, which also makes up the title -----------------------------------------------------

Failure TakeChannelCount(ProfileReading& reading, std::string& title) {
  const float count = reading.Records.NextRecord().Number(1);
  if (!std::isfinite(count)) return reading.FailHere(OutOfRange("the number of channels"));
  title = GeneralText(count) + "  ";
  return std::nullopt;
}

/// The words of date and hour; numbers among them don't get into the title.
Failure TakeDate(ProfileReading& reading, std::string& title) {
  if (reading.Records.AtEnd()) return reading.EndsBefore("date and hour in line 2");
  const LineWords& words = reading.Records.NextRecord();
  reading.Buffer.CpsLine2 = FixedField(reading.Records.Record(), LineWidth);
  if (words.NText > most_date_words) {
    return FailureTold(reading.Buffer, {.Text = "Something wrong in the second record of the file",
                                        .Title = "Warning",
                                        .Icon = MessageIcon::Stop});
  }
  for (int k = 1; k <= words.NText; ++k) title.append(words.Text(k)).append(" ");
  return std::nullopt;
}

Failure TakeSeconds(ProfileReading& reading, std::string& title) {
  if (reading.Records.AtEnd()) return reading.EndsBefore("the time of measurement in line 3");
  const float seconds = reading.Records.NextRecord().Number(1);
  const double whole = RoundHalfEven(static_cast<double>(seconds));
  if (!(std::abs(whole) < 0x1p63)) return reading.FailHere("expected a time of measurement in seconds");
  reading.Buffer.CpsRecNo = static_cast<std::int64_t>(whole);
  title += " " + GeneralText(seconds);
  return std::nullopt;
}

Failure TakeOperator(ProfileReading& reading, std::string& title) {
  if (reading.Records.AtEnd()) return reading.EndsBefore("the name of the operator in line 4");
  reading.Buffer.CpsLine4 = FixedField(reading.Records.Lines().NextLine(), LineWidth);
  title += " " + reading.Buffer.CpsLine4;
  return std::nullopt;
}

Failure SkipUnusedLines(ProfileReading& reading) {
  for (int i = 0; i < unused_lines; ++i) {
    if (reading.Records.AtEnd()) return reading.EndsBefore("the intensities, from line 10 on");
    reading.Records.Lines().NextLine();
  }
  return std::nullopt;
}

Failure ReadHeader(ProfileReading& reading) {
  std::string title;
  if (auto failure = TakeChannelCount(reading, title)) return failure;
  if (auto failure = TakeDate(reading, title)) return failure;
  if (auto failure = TakeSeconds(reading, title)) return failure;
  if (auto failure = TakeOperator(reading, title)) return failure;
  SetTitle(reading.Buffer, title, reading.Encoding);
  return SkipUnusedLines(reading);
}

// ---- The channels ----------------------------------------------------------------------------------

Failure SetChannel(ProfileReading& reading, int n, float y) {
  if (n > MaxPoints) {
    reading.Buffer.Wavelength = 0;
    return LimitFailure(reading.Buffer);
  }
  const auto channel = static_cast<float>(n);
  if (n == 1) reading.Buffer.FileXMin = channel;
  reading.Buffer.FileXMax = channel;
  return SetPoint(reading, n, channel, y);
}

}  // namespace

ReadOutcome ReadAdfRecords(ProfileReading& reading) {
  if (const auto failure = ReadHeader(reading)) return *failure;
  StartLimits(reading.Buffer, 100000, -100000);
  int n = 0;
  while (!reading.Records.AtEnd()) {
    const LineWords& words = reading.Records.NextRecord();
    for (int c = 1; c <= channels_a_line; ++c) {
      if (const auto failure = SetChannel(reading, ++n, words.Number(c))) return *failure;
    }
  }
  reading.Buffer.PermNpts = static_cast<std::int16_t>(n);
  reading.Buffer.XStep = 1;
  return SuccessfulRead(true);
}

ReadOutcome ReadAdf(Workspace& workspace, int slot, const TellUser& tell) {
  return ReadProfile(workspace, slot, tell, FormatCodes::CpsChannels, ReadAdfRecords);
}

}  // namespace koprax
