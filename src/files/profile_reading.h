// What the readers of all profile formats share: one file on its way into one buffer, its points, and the
// ways to fail in the middle.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/record_reader.h"
#include "workspace/workspace.h"

namespace koprax {

/// What stopped a step of a reading; nothing when it goes on.
using Failure = std::optional<ReadOutcome>;

struct ProfileReading {
  ProfileReading(Workspace& workspace, ProfileBuffer& buffer, const TextFile& file, const TellUser& tell)
      : FileName(workspace.FileName),
        Buffer(buffer),
        Encoding(file.Encoding()),
        Tell(tell),
        Records(file.Contents(), workspace.Words, tell) {}

  /// A failure at the line that was read last; it leaves the buffer empty.
  [[nodiscard]] ReadOutcome FailHere(const std::string& what) {
    return FailureAtLine(Buffer, FileName, Records.LineNumber(), what);
  }
  /// The failure of a file that ends before its data; it leaves the buffer empty.
  [[nodiscard]] ReadOutcome EndsBefore(const std::string& expected) {
    return FailureAtEnd(Buffer, FileName, expected);
  }

  const std::string& FileName;
  ProfileBuffer& Buffer;
  TextEncoding Encoding;
  const TellUser& Tell;
  RecordReader Records;
  std::vector<int>* PointLines = nullptr;  ///< where it is wanted: gets the line of each point
};

using ReadSteps = std::function<ReadOutcome(ProfileReading&)>;

/// The frame of all readers: sets the code of the format, opens FileName, then takes the steps of the
/// format. A file that can't be opened or is empty touches nothing but FormatCode. Slots are 1 to 6.
[[nodiscard]] ReadOutcome ReadProfile(Workspace& workspace, int slot, const TellUser& tell, FormatCodes code,
                                      const ReadSteps& read_records);

/// Sets the limits of Y before the first point. Intensities outside of these values are no limits.
void StartLimits(ProfileBuffer& buffer, float least, float greatest);
/// Widens the limits of Y by an intensity.
void TakeIntoLimits(ProfileBuffer& buffer, float y);

/// Stores point i (1 to MaxPoints) and takes it into the limits of Y; both values must fit into 32 bits.
Failure SetPoint(ProfileReading& reading, int i, float x, float y);
/// Stores the wavelength in angstrom; it must fit into 32 bits.
Failure SetWavelength(ProfileReading& reading, float wavelength);

}  // namespace koprax
