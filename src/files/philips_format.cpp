#include "files/philips_format.h"

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

/// What a header tells beside the fields of the buffer.
struct PhilipsHeader {
  std::string Title;
  float Alpha1 = 0;  ///< first wavelength, angstrom
  float Alpha2 = 0;  ///< second wavelength, angstrom
  float Ratio = 0;   ///< intensity of the second one to that of the first
  std::string_view Monochromator;
  bool HasRange = false;
  bool HasStep = false;
};

// ---- The header ------------------------------------------------------------------------------------

Failure TakeRange(ProfileReading& reading, const LineWords& words, PhilipsHeader& header) {
  const float first = words.Number(1);
  const float last = words.Number(2);
  if (!std::isfinite(first) || !std::isfinite(last)) return reading.FailHere(OutOfRange("the range of X"));
  reading.Buffer.PermXMin = first;
  reading.Buffer.PermXMax = last;
  header.Title += " " + GeneralText(first) + " " + GeneralText(last);
  header.HasRange = true;
  return std::nullopt;
}

Failure TakeStep(ProfileReading& reading, const LineWords& words, PhilipsHeader& header) {
  const float step = words.Number(1);
  if (!std::isfinite(step)) return reading.FailHere(OutOfRange("the step"));
  reading.Buffer.XStep = step;
  header.Title += " " + GeneralText(step);
  header.HasStep = true;
  return std::nullopt;
}

Failure TakeKeyedLine(ProfileReading& reading, const LineWords& words, PhilipsHeader& header) {
  const std::string_view key = words.Text(1);
  if (key == "DataAngleRange") return TakeRange(reading, words, header);
  if (key == "ScanStepSize") return TakeStep(reading, words, header);
  if (key == "LabdaAlpha1") header.Alpha1 = words.Number(1);
  if (key == "LabdaAlpha2") header.Alpha2 = words.Number(1);
  if (key == "RatioAlpha21") header.Ratio = words.Number(1);
  if (key == "MonochromatorUse") header.Monochromator = words.Text(2);
  if (key == "Title1") {
    for (int k = 2; k <= words.NText; ++k) header.Title.append(" ").append(words.Text(k));
  }
  return std::nullopt;
}

/// Reads up to the line "RawScan" and keeps every line.
Failure ReadHeaderLines(ProfileReading& reading, PhilipsHeader& header) {
  reading.Buffer.UdfHeader.fill(" ");
  for (std::string& kept : std::span(reading.Buffer.UdfHeader).subspan<1>()) {
    if (reading.Records.AtEnd()) return reading.EndsBefore("the line \"RawScan\"");
    const LineWords& words = reading.Records.NextRecord();
    kept = RightTrimmed(FirstCharacters(reading.Records.Record(), LineWidth));
    if (words.Text(1) == "RawScan") return std::nullopt;
    if (auto failure = TakeKeyedLine(reading, words, header)) return failure;
  }
  return reading.FailHere("expected \"RawScan\" within the first 30 lines");
}

/// A monochromator selects the first wavelength; otherwise the mean by intensity stands.
Failure TakeWavelength(ProfileReading& reading, const PhilipsHeader& header) {
  const bool mean = header.Monochromator == "NO";
  const bool first = header.Monochromator == "YES";
  if (header.Alpha1 == 0 && !mean && !first) return std::nullopt;
  const double ratio = header.Ratio;
  const auto wavelength =
      first ? header.Alpha1 : static_cast<float>((ratio * header.Alpha2 + header.Alpha1) / (ratio + 1));
  if (std::isfinite(wavelength)) return SetWavelength(reading, wavelength);
  return reading.FailHere(
      OutOfRange(R"(the wavelength that follows from "LabdaAlpha1", "LabdaAlpha2" and "RatioAlpha21")"));
}

Failure ReadHeader(ProfileReading& reading) {
  PhilipsHeader header;
  if (auto failure = ReadHeaderLines(reading, header)) return failure;
  if (!header.HasRange) return reading.FailHere("expected \"DataAngleRange\" before \"RawScan\"");
  if (!header.HasStep) return reading.FailHere("expected \"ScanStepSize\" before \"RawScan\"");
  SetTitle(reading.Buffer, header.Title, reading.Encoding);
  return TakeWavelength(reading, header);
}

// ---- The intensities -------------------------------------------------------------------------------

/// Stores point n, one step behind the point before.
Failure SetNextPoint(ProfileReading& reading, int n, float y) {
  ProfileBuffer& buffer = reading.Buffer;
  if (n > MaxPoints) return LimitFailure(buffer);
  const double before = buffer.PermX[static_cast<std::size_t>(n) - 1];
  return SetPoint(reading, n, static_cast<float>(RoundDecimals(before + buffer.XStep, 3)), y);
}

Failure ReadIntensities(ProfileReading& reading) {
  ProfileBuffer& buffer = reading.Buffer;
  const auto before = static_cast<float>(static_cast<double>(buffer.PermXMin) - buffer.XStep);
  if (!std::isfinite(before)) return reading.FailHere(OutOfRange("X of the first point"));
  buffer.PermX[0] = before;
  int n = 0;
  while (!reading.Records.AtEnd()) {
    const LineWords& words = reading.Records.NextRecord();
    for (int c = 1; c <= words.NNum; ++c) {
      if (auto failure = SetNextPoint(reading, ++n, words.Number(c))) return failure;
    }
  }
  buffer.PermNpts = static_cast<std::int16_t>(n);
  return std::nullopt;
}

}  // namespace

ReadOutcome ReadUdfRecords(ProfileReading& reading) {
  if (const auto failure = ReadHeader(reading)) return *failure;
  StartLimits(reading.Buffer, 1000000, -10000);
  if (const auto failure = ReadIntensities(reading)) return *failure;
  return SuccessfulRead(true);
}

ReadOutcome ReadUdf(Workspace& workspace, int slot, const TellUser& tell) {
  return ReadProfile(workspace, slot, tell, FormatCodes::Philips, ReadUdfRecords);
}

}  // namespace koprax
