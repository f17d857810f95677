#include "files/card_format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/profile_reading.h"
#include "files/profile_title.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

constexpr std::size_t reflections_a_line = 3;

/// The fields of a line, one after the other, each as wide as it is asked for.
class FixedColumns {
 public:
  explicit FixedColumns(std::string_view line) : rest_(line) {}

  std::string_view Text(std::size_t width) {
    const std::string_view field = FirstCharacters(rest_, width);
    rest_.remove_prefix(field.size());
    return field;
  }
  /// A blank field reads as 0, one beyond 32 bits as infinite.
  float Number(std::size_t width) { return LeadingFloat(Text(width)); }

 private:
  std::string_view rest_;
};

struct Reflection {
  float D = 0;  ///< angstrom
  float Intensity = 0;
  float H = 0;
  float K = 0;
  float L = 0;
};

struct ReflectionLine {
  std::array<Reflection, reflections_a_line> Reflections;
  std::string_view RunningNumber;
};

// ---- The lines in front of the reflections ---------------------------------------------------------

Failure TakeCell(ProfileReading& reading) {
  FixedColumns columns(reading.Records.Lines().NextLine());
  std::array<float, 7>& cell = reading.Buffer.CardCell;
  for (std::size_t k = 1; k <= 3; ++k) cell[k] = columns.Number(9);
  for (std::size_t k = 4; k <= 6; ++k) cell[k] = columns.Number(8);
  const bool fits = std::ranges::all_of(cell, [](float value) { return std::isfinite(value); });
  return fits ? Failure() : reading.FailHere(OutOfRange("the cell"));
}

std::string Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return RightTrimmed(text);
}

void SkipLines(ProfileReading& reading, int count) {
  for (; count > 0; --count) reading.Records.Lines().NextLine();
}

/// Lines that are missing at the end of the file are found out by the search for the next mark.
Failure ReadHeader(ProfileReading& reading) {
  if (auto failure = TakeCell(reading)) return failure;
  SkipLines(reading, 1);
  reading.Buffer.CardSpaceGroup = Trimmed(FirstCharacters(reading.Records.Lines().NextLine(), 10));
  SkipLines(reading, 2);
  TakeTitle(reading.Buffer, reading.Records.Lines().NextLine(), reading.Encoding);
  return std::nullopt;
}

/// Reads up to and including the first line with the mark in column 80.
Failure FindLine(ProfileReading& reading, std::string_view mark, std::string_view& line) {
  while (!reading.Records.AtEnd()) {
    line = reading.Records.Lines().NextLine();
    FixedColumns columns(line);
    columns.Text(LineWidth - 1);
    if (columns.Text(1) == mark) return std::nullopt;
  }
  return reading.EndsBefore("a line with \"" + std::string(mark) + "\" in column 80");
}

// ---- The reflections -------------------------------------------------------------------------------

ReflectionLine TakeApart(std::string_view line) {
  ReflectionLine parts;
  FixedColumns columns(line);
  for (Reflection& each : parts.Reflections) {
    each.D = columns.Number(7);
    each.Intensity = columns.Number(3);
    columns.Text(1);
    each.H = columns.Number(3);
    each.K = columns.Number(3);
    each.L = columns.Number(3);
    columns.Text(3);
  }
  parts.RunningNumber = columns.Text(2);
  return parts;
}

/// Two columns hold the last two digits of a running number.
bool IsRunningNumber(std::string_view columns, int expected) {
  return StartsWithNumber(columns) && LeadingNumber(columns) == expected % 100;
}

Failure AddReflections(ProfileReading& reading, const ReflectionLine& line,
                       std::vector<Reflection>& reflections) {
  for (const Reflection& each : line.Reflections) {
    for (const float value : {each.D, each.Intensity, each.H, each.K, each.L}) {
      if (!std::isfinite(value)) return reading.FailHere(OutOfRange("a number of this line"));
    }
    TakeIntoLimits(reading.Buffer, each.Intensity);
    reflections.push_back(each);
  }
  return std::nullopt;
}

/// Reads lines as long as their running numbers go on, `line` being the first.
Failure ReadReflections(ProfileReading& reading, std::string_view line,
                        std::vector<Reflection>& reflections) {
  StartLimits(reading.Buffer, 10000, -10000);
  for (int expected = 1;; ++expected) {
    const ReflectionLine parts = TakeApart(line);
    if (!IsRunningNumber(parts.RunningNumber, expected)) return std::nullopt;
    if (auto failure = AddReflections(reading, parts, reflections)) return failure;
    if (reading.Records.AtEnd()) return std::nullopt;
    line = reading.Records.Lines().NextLine();
  }
}

/// Checks what can be told before the wavelength is known. `first_line` is the line of the first reflection.
Failure CheckReflections(ProfileReading& reading, int first_line,
                         const std::vector<Reflection>& reflections) {
  const auto fail_at = [&](std::size_t i, const std::string& what) {
    const int line = first_line + static_cast<int>(i / reflections_a_line);
    return FailureAtLine(reading.Buffer, reading.FileName, line, what);
  };
  if (reflections.empty()) return fail_at(0, "expected a reflection, with running number 1 in columns 70-71");
  if (reflections.size() > MaxReflections) {
    return fail_at(MaxReflections, "a card may have no more than 500 reflections");
  }
  const auto wrong = std::ranges::find_if(reflections, [](const Reflection& each) { return each.D <= 0; });
  if (wrong == reflections.end()) return std::nullopt;
  const auto i = static_cast<std::size_t>(wrong - reflections.begin());
  return fail_at(i, "expected a d above 0 for reflection " + std::to_string(i + 1));
}

void StoreReflections(ProfileBuffer& buffer, const std::vector<Reflection>& reflections) {
  std::size_t i = 0;
  for (const Reflection& each : reflections) {
    ++i;
    buffer.CardD[i] = each.D;
    buffer.CardH[i] = each.H;
    buffer.CardK[i] = each.K;
    buffer.CardL[i] = each.L;
    buffer.PermY[i] = each.Intensity;
  }
  buffer.PermNpts = static_cast<std::int16_t>(i);
  buffer.XStep = 0;
}

Failure TakeReflections(ProfileReading& reading, std::string_view line) {
  const int first_line = reading.Records.LineNumber();
  std::vector<Reflection> reflections;
  if (auto failure = ReadReflections(reading, line, reflections)) return failure;
  while (!reflections.empty() && reflections.back().D == 0) reflections.pop_back();
  if (auto failure = CheckReflections(reading, first_line, reflections)) return failure;
  StoreReflections(reading.Buffer, reflections);
  return std::nullopt;
}

// ---- Their places ----------------------------------------------------------------------------------

Failure TakeWavelength(ProfileReading& reading, float wavelength) {
  reading.Buffer.Wavelength = wavelength;
  if (wavelength > 0 && std::isfinite(wavelength)) return std::nullopt;
  reading.Buffer.Wavelength = 0;
  return FailureTold(reading.Buffer, {.Text = "The card " + reading.FileName +
                                              " is not loaded: the wave length must be above 0.\r\nGive a "
                                              "number in angstrom, such as 1.54184.",
                                      .Title = "Error",
                                      .Icon = MessageIcon::Stop});
}

/// Computes the 2-theta of reflection i, in degrees; false when the wavelength is too long for its d. Sine,
/// tangent and angle are each held in 32 bits.
bool PlaceReflection(ProfileBuffer& buffer, std::size_t i) {
  const auto sine = static_cast<float>(1 / (2.0 * buffer.CardD[i] / buffer.Wavelength));
  if (sine > 1) return false;
  const double square = static_cast<double>(sine) * sine;
  const auto tangent = static_cast<float>(sine / std::sqrt(1 - square));
  const auto theta = static_cast<float>(std::atan(static_cast<double>(tangent)));
  buffer.PermX[i] = static_cast<float>(2.0 * theta / RadiansPerDegree);
  return true;
}

void PlaceReflections(ProfileReading& reading) {
  ProfileBuffer& buffer = reading.Buffer;
  std::size_t placed = 0;
  const auto count = static_cast<std::size_t>(buffer.PermNpts);
  while (placed < count && PlaceReflection(buffer, placed + 1)) ++placed;
  if (placed < count) {
    reading.Tell({.Text = "A value of \"d\" incompatible with the given wave length has been found.\r\n"
                          "All successive diffraction peaks will be ignored.",
                  .Title = "Warning"});
  }
  if (placed == 0) buffer.PermX[1] = 0;  // nothing of an earlier profile counts as its range
  buffer.FileXMin = buffer.PermX[1];
  buffer.FileXMax = buffer.PermX[placed];
  buffer.PermNpts = static_cast<std::int16_t>(placed);
}

/// No card of another reading stands behind the points of this one.
void ClearReflections(ProfileBuffer& buffer) {
  for (PointTable* table : {&buffer.CardD, &buffer.CardH, &buffer.CardK, &buffer.CardL}) {
    std::ranges::fill(*table, 0.0F);
  }
}

}  // namespace

ReadOutcome ReadAidRecords(ProfileReading& reading, const AskWavelength& ask_wavelength) {
  ClearReflections(reading.Buffer);
  std::string_view line;
  if (const auto failure = ReadHeader(reading)) return *failure;
  if (const auto failure = FindLine(reading, "F", line)) return *failure;
  if (const auto failure = FindLine(reading, "I", line)) return *failure;
  if (const auto failure = TakeReflections(reading, line)) return *failure;
  if (const auto failure = TakeWavelength(reading, ask_wavelength())) return *failure;
  PlaceReflections(reading);
  return SuccessfulRead(true);
}

ReadOutcome ReadAid(Workspace& workspace, int slot, const TellUser& tell,
                    const AskWavelength& ask_wavelength) {
  return ReadProfile(workspace, slot, tell, FormatCodes::Card,
                     [&](ProfileReading& reading) { return ReadAidRecords(reading, ask_wavelength); });
}

}  // namespace koprax
