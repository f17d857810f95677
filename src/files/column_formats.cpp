#include "files/column_formats.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "files/profile_reading.h"
#include "files/profile_title.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr std::string_view last_record_irregular = "Last record is irregular!!\r\nReturn to main menu.";

/// Stores point i of a profile with a step.
Failure SetSteppedPoint(ProfileReading& reading, int i, float y) {
  const ProfileBuffer& buffer = reading.Buffer;
  const auto x = static_cast<float>((i - 1) * static_cast<double>(buffer.XStep) + buffer.FileXMin);
  return SetPoint(reading, i, x, y);
}

// ---- ITAL STRUCTURES -------------------------------------------------------------------------------

std::variant<double, ReadOutcome> HeaderNumber(ProfileReading& reading, const std::string& expected) {
  const auto text = reading.Records.Lines().NextNumber();
  if (!text) return reading.EndsBefore(expected);
  if (StartsWithNumber(*text)) return LeadingNumber(*text);
  return reading.FailHere("expected " + expected + ", found \"" +
                          std::string(FirstCharacters(*text, MaxWords)) + "\"");
}

Failure ReadPointCount(ProfileReading& reading) {
  const auto number = HeaderNumber(reading, "the number of points");
  if (const auto* failure = std::get_if<ReadOutcome>(&number)) return *failure;
  const double count = RoundHalfEven(std::get<double>(number));
  if (count > MaxPoints) return LimitFailure(reading.Buffer);
  if (count < 0) return reading.FailHere("expected a number of points from 0 to 8000");
  reading.Buffer.PermNpts = static_cast<std::int16_t>(count);
  return std::nullopt;
}

Failure ReadHeaderValue(ProfileReading& reading, const std::string& expected, float& field) {
  const auto number = HeaderNumber(reading, expected);
  if (const auto* failure = std::get_if<ReadOutcome>(&number)) return *failure;
  const auto value = static_cast<float>(std::get<double>(number));
  if (!std::isfinite(value)) return reading.FailHere(OutOfRange(expected));
  field = value;
  return std::nullopt;
}

Failure ReadItalHeader(ProfileReading& reading) {
  TakeTitle(reading.Buffer, reading.Records.Lines().NextLine(), reading.Encoding);
  if (auto failure = ReadPointCount(reading)) return failure;
  if (auto failure = ReadHeaderValue(reading, "X of the first point", reading.Buffer.FileXMin))
    return failure;
  if (auto failure = ReadHeaderValue(reading, "X of the last point", reading.Buffer.FileXMax)) return failure;
  return ReadHeaderValue(reading, "the step", reading.Buffer.XStep);
}

ReadOutcome IrregularRecord(ProfileBuffer& buffer) {
  buffer.Wavelength = 0;
  return FailureTold(buffer, {.Text = std::string(last_record_irregular), .Title = "Error"});
}

/// The record behind the last point holds maximum and minimum, or ends the file with one number.
Failure ReadItalTail(ProfileReading& reading, const LineWords& words) {
  if (words.NNum == 1) return std::nullopt;
  if (words.NNum != 2) return IrregularRecord(reading.Buffer);
  if (reading.Records.AtEnd()) return std::nullopt;
  return SetWavelength(reading, reading.Records.NextRecord().Number(1));
}

/// A file that ends early is no error: the missing points hold what lay there.
Failure ReadItalRecords(ProfileReading& reading) {
  for (int i = 1; !reading.Records.AtEnd(); ++i) {
    const LineWords& words = reading.Records.NextRecord();
    if (i > reading.Buffer.PermNpts) return ReadItalTail(reading, words);
    if (auto failure = SetSteppedPoint(reading, i, words.Number(1))) return failure;
  }
  return std::nullopt;
}

// ---- One column ------------------------------------------------------------------------------------

/// The record that holds the header: the first one, or the second behind a title.
const LineWords* HeaderBehindTitle(ProfileReading& reading) {
  const LineWords& words = reading.Records.NextRecord();
  if (words.NText == 0) {
    TakeTitle(reading.Buffer, " File without title ", TextEncoding::Utf8);
    return &words;
  }
  TakeTitle(reading.Buffer, reading.Records.Record(), reading.Encoding);
  return reading.Records.AtEnd() ? nullptr : &reading.Records.NextRecord();
}

Failure ReadOneColumnHeader(ProfileReading& reading) {
  const LineWords* words = HeaderBehindTitle(reading);
  if (words == nullptr) return reading.EndsBefore("X of the first point, step and wavelength");
  if (!std::isfinite(words->Number(1))) return reading.FailHere(OutOfRange("X of the first point"));
  if (!std::isfinite(words->Number(2))) return reading.FailHere(OutOfRange("the step"));
  reading.Buffer.FileXMin = words->Number(1);
  reading.Buffer.XStep = words->Number(2);
  return SetWavelength(reading, words->Number(3));
}

// ---- Two columns -----------------------------------------------------------------------------------

/// Finds out whether a profile has one step: differences of X are compared after rounding to 3 decimals.
class StepTest {
 public:
  /// Takes the X of point n, n from 2 on, and of the point before.
  void Compare(int n, float x, float before) {
    if (!fixed_) return;
    const auto step = static_cast<float>(RoundDecimals(static_cast<double>(x) - before, 3));
    if (n == 2) step_ = step;
    fixed_ = step == step_;
  }
  /// The step, 0 for a variable one or fewer than two points.
  [[nodiscard]] float Step() const { return fixed_ ? step_ : 0; }

 private:
  float step_ = 0;
  bool fixed_ = true;
};

/// A first record of one or two numbers and no text belongs to the data already; any other is the title.
const LineWords* RecordBehindTitle(ProfileReading& reading) {
  const LineWords& words = reading.Records.NextRecord();
  if (words.NText == 0 && (words.NNum == 1 || words.NNum == 2)) {
    TakeTitle(reading.Buffer, NoTitle, TextEncoding::Utf8);
    return &words;
  }
  TakeTitle(reading.Buffer, reading.Records.Record(), reading.Encoding);
  return reading.Records.AtEnd() ? nullptr : &reading.Records.NextRecord();
}

/// Stores the record at hand as point n. Sets `at_end` instead where the data end before it.
Failure TakePoint(ProfileReading& reading, const LineWords& words, int n, StepTest& steps, bool& at_end) {
  ProfileBuffer& buffer = reading.Buffer;
  const float x = words.Number(1);
  const float y = words.Number(2);
  at_end = n >= 3 && x < LeastXOfData;
  if (at_end) return std::nullopt;
  if (n > MaxPoints) return LimitFailure(buffer);
  if (auto failure = SetPoint(reading, n, x, y)) return failure;
  if (n == 1) buffer.FileXMin = x;
  buffer.FileXMax = x;
  if (n >= 2) steps.Compare(n, x, buffer.PermX[static_cast<std::size_t>(n) - 1]);
  if (!std::isfinite(steps.Step())) return reading.FailHere(OutOfRange("the step"));
  return std::nullopt;
}

/// Reads the points. `words` is the record of the first one, or null to read on.
ReadOutcome ReadPoints(ProfileReading& reading, const LineWords* words) {
  StepTest steps;
  int n = 0;
  while (words != nullptr || !reading.Records.AtEnd()) {
    if (words == nullptr) words = &reading.Records.NextRecord();
    bool at_end = false;
    if (auto failure = TakePoint(reading, *words, n + 1, steps, at_end)) return *failure;
    if (at_end) break;
    ++n;
    words = nullptr;
  }
  reading.Buffer.PermNpts = static_cast<std::int16_t>(n);
  reading.Buffer.XStep = steps.Step();
  return SuccessfulRead(false);
}

}  // namespace

ReadOutcome ReadItalDatRecords(ProfileReading& reading) {
  StartLimits(reading.Buffer, 100000, -100000);
  if (const auto failure = ReadItalHeader(reading)) return *failure;
  if (const auto failure = ReadItalRecords(reading)) return *failure;
  return SuccessfulRead(true);
}

ReadOutcome ReadOneColumnRecords(ProfileReading& reading) {
  ProfileBuffer& buffer = reading.Buffer;
  StartLimits(buffer, 100000, -100000);
  if (const auto failure = ReadOneColumnHeader(reading)) return *failure;
  int n = 0;
  while (!reading.Records.AtEnd()) {
    const float y = reading.Records.NextRecord().Number(1);
    if (++n > MaxPoints) return LimitFailure(buffer);
    if (const auto failure = SetSteppedPoint(reading, n, y)) return *failure;
    buffer.FileXMax = buffer.PermX[static_cast<std::size_t>(n)];
  }
  buffer.PermNpts = static_cast<std::int16_t>(n);
  return SuccessfulRead(false);
}

ReadOutcome ReadTwoColumnsRecords(ProfileReading& reading) {
  StartLimits(reading.Buffer, 100000, -100000);
  const LineWords* words = RecordBehindTitle(reading);
  if (words == nullptr) return reading.EndsBefore("the wavelength or the first point");
  const bool first_point = words->NNum == 2;
  if (first_point) reading.Buffer.Wavelength = 0;
  if (words->NNum == 1) {
    if (const auto failure = SetWavelength(reading, words->Number(1))) return *failure;
  }
  return ReadPoints(reading, first_point ? words : nullptr);
}

ReadOutcome ReadItalDat(Workspace& workspace, int slot, const TellUser& tell) {
  return ReadProfile(workspace, slot, tell, FormatCodes::ItalDat, ReadItalDatRecords);
}

ReadOutcome ReadOneColumn(Workspace& workspace, int slot, const TellUser& tell) {
  return ReadProfile(workspace, slot, tell, FormatCodes::OneColumn, ReadOneColumnRecords);
}

ReadOutcome ReadTwoColumns(Workspace& workspace, int slot, const TellUser& tell) {
  return ReadProfile(workspace, slot, tell, FormatCodes::TwoColumns, ReadTwoColumnsRecords);
}

}  // namespace koprax
