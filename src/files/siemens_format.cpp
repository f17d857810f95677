#include "files/siemens_format.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "files/profile_reading.h"
#include "files/profile_title.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

// ---- The header ------------------------------------------------------------------------------------

/// Stores the number behind the equals sign; a line without one near its start tells nothing.
Failure TakeValue(ProfileReading& reading, std::string_view line, const std::string& name, float& field) {
  constexpr std::size_t last_column = 30;
  constexpr std::size_t width = 12;
  const std::size_t equals = FirstCharacters(line, last_column).find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const auto value = LeadingFloat(FirstCharacters(line.substr(equals + 1), width));
  if (!std::isfinite(value)) return reading.FailHere(OutOfRange(name));
  field = value;
  return std::nullopt;
}

Failure TakeKeyedLine(ProfileReading& reading, std::string_view line) {
  ProfileBuffer& buffer = reading.Buffer;
  if (line.starts_with("_STEPSIZ")) return TakeValue(reading, line, "the step", buffer.XStep);
  if (line.starts_with("_RANGE_W")) return TakeValue(reading, line, "the wavelength", buffer.Wavelength);
  if (line.starts_with("_SAMPLE=")) SetTitle(buffer, line, reading.Encoding);
  return std::nullopt;
}

/// Reads up to the line "_2THETAC..." and keeps every line.
Failure ReadHeader(ProfileReading& reading) {
  ProfileBuffer& buffer = reading.Buffer;
  SetTitle(buffer, NoTitle, reading.Encoding);
  buffer.XStep = 0;
  buffer.UxdHeader.fill(" ");
  buffer.UxdHeaderLines = 0;
  for (std::string& kept : std::span(buffer.UxdHeader).subspan<1>()) {
    if (reading.Records.AtEnd()) return reading.EndsBefore("a line that starts with \"_2THETAC\"");
    const std::string_view line = reading.Records.Lines().NextLine();
    kept = line;
    ++buffer.UxdHeaderLines;
    if (line.starts_with("_2THETAC")) return std::nullopt;
    if (auto failure = TakeKeyedLine(reading, line)) return failure;
  }
  return reading.FailHere("expected a line that starts with \"_2THETAC\" within the first 70 lines");
}

// ---- The points ------------------------------------------------------------------------------------

Failure TakePoint(ProfileReading& reading, const LineWords& words, int n) {
  ProfileBuffer& buffer = reading.Buffer;
  if (words.NText > 0 || words.NNum != 2) {
    return FailureTold(
        buffer, {.Text = "Something wrong in input  file", .Title = "Warning", .Icon = MessageIcon::Stop});
  }
  if (n > MaxPoints) return LimitFailure(buffer);
  const float x = words.Number(1);
  if (auto failure = SetPoint(reading, n, x, words.Number(2))) return failure;
  if (n == 1) buffer.PermXMin = buffer.FileXMin = x;
  buffer.PermXMax = buffer.FileXMax = x;
  return std::nullopt;
}

}  // namespace

ReadOutcome ReadUxdRecords(ProfileReading& reading) {
  if (const auto failure = ReadHeader(reading)) return *failure;
  StartLimits(reading.Buffer, 10000, -10000);
  int n = 0;
  while (!reading.Records.AtEnd()) {
    if (const auto failure = TakePoint(reading, reading.Records.NextRecord(), ++n)) return *failure;
  }
  reading.Buffer.PermNpts = static_cast<std::int16_t>(n);
  return SuccessfulRead(true);
}

ReadOutcome ReadUxd(Workspace& workspace, int slot, const TellUser& tell) {
  return ReadProfile(workspace, slot, tell, FormatCodes::Siemens, ReadUxdRecords);
}

}  // namespace koprax
