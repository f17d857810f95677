#include "files/profile_reading.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <variant>

namespace koprax {

ReadOutcome ReadProfile(Workspace& workspace, int slot, const TellUser& tell, FormatCodes code,
                        const ReadSteps& read_records) {
  ProfileBuffer& buffer = workspace.Buffer(slot);
  buffer.FormatCode = static_cast<std::int16_t>(code);
  const auto opened = OpenRecords(workspace.FileName);
  if (const auto* failure = std::get_if<ReadOutcome>(&opened)) return *failure;
  ProfileReading reading(workspace, buffer, std::get<TextFile>(opened), tell);
  return read_records(reading);
}

void StartLimits(ProfileBuffer& buffer, float least, float greatest) {
  buffer.PermYMin = least;
  buffer.PermYMax = greatest;
}

void TakeIntoLimits(ProfileBuffer& buffer, float y) {
  if (y > buffer.PermYMax) buffer.PermYMax = y;
  if (y < buffer.PermYMin) buffer.PermYMin = y;
}

Failure SetPoint(ProfileReading& reading, int i, float x, float y) {
  if (!std::isfinite(x)) return reading.FailHere(OutOfRange("X of this point"));
  if (!std::isfinite(y)) return reading.FailHere(OutOfRange("the intensity"));
  const auto index = static_cast<std::size_t>(i);
  reading.Buffer.PermX[index] = x;
  reading.Buffer.PermY[index] = y;
  if (reading.PointLines != nullptr) reading.PointLines->push_back(reading.Records.LineNumber());
  TakeIntoLimits(reading.Buffer, y);
  return std::nullopt;
}

Failure SetWavelength(ProfileReading& reading, float wavelength) {
  if (!std::isfinite(wavelength)) return reading.FailHere(OutOfRange("the wavelength"));
  reading.Buffer.Wavelength = wavelength;
  return std::nullopt;
}

}  // namespace koprax
