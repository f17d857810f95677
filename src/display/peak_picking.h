// Peaks picked by hand: what is read at the cursor, the height found there, and the peak list of a buffer
// with its rows on the screen. Drawing the peaks is left to the markers.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "display/curve.h"
#include "display/peak_markers.h"
#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

/// A position of the cursor, or a peak picked there, each value as its text.
struct PeakPick {
  std::string Theta;    ///< 2-theta in degrees; the channel where there is no calibration
  std::string D;        ///< angstrom, 4 decimals
  std::string Channel;  ///< X itself, whatever it counts
  std::string Y;        ///< the height of a picked peak, 1 decimal
};

/// The values at an X as the explorer shows them: X to 4 decimals, a 2-theta from a channel unrounded. X
/// counts as channels if the permanent copy has a step above 0.98; without calibration d is then 0.
[[nodiscard]] PeakPick ReadOutAt(const ProfileBuffer& buffer, float x);
/// The same for a step that tells channels from degrees.
[[nodiscard]] PeakPick ReadOutAt(const ProfileBuffer& buffer, double step, float x);

/// The values at an X as the zoom shows them: X to 3 decimals and all else from there, a 2-theta from a
/// channel to 4 decimals. `step` is that of the points on show.
[[nodiscard]] PeakPick ZoomedReadOutAt(const ProfileBuffer& buffer, float step, float x);

/// The height at an X: the greater Y of the two neighbours around it in the temporary copy, never an
/// interpolation; those of the last pair if there are several, 0 if there is none.
[[nodiscard]] float PeakHeightAt(const ProfileBuffer& buffer, float x);

/// The pick at a position that has been read, with the height found there.
[[nodiscard]] PeakPick PickedAt(const ProfileBuffer& buffer, PeakPick read_out);

/// Why no peak can be picked now, in words for the user: the buffer has been emptied, has no wavelength, or
/// the list holds MaxPeaks already.
[[nodiscard]] std::optional<Message> WhyNotPicked(const ProfileBuffer& buffer);
/// Adds a pick at the end of a list that has room for it.
void AddPeak(ProfileBuffer& buffer, const PeakPick& pick);

/// Removes the last peak of a list that isn't empty.
void RemoveLastPeak(ProfileBuffer& buffer);
/// Empties the list.
void ClearPeaks(ProfileBuffer& buffer);

/// Where a peak of the list, or a pick, stands on the plot of its buffer.
[[nodiscard]] PeakPosition PositionOf(const ProfileBuffer& buffer, int peak);
[[nodiscard]] PeakPosition PositionOf(const ProfileBuffer& buffer, const PeakPick& pick);

/// The peaks of the list whose 2-theta lies in the range: 2-theta stands for X here, in channels too.
[[nodiscard]] std::vector<PeakPosition> PeaksWithin(const ProfileBuffer& buffer, const XRange& range);

/// The row of a fresh pick with its number in the list: 30 characters and a line break.
[[nodiscard]] std::string PickedRow(const ProfileBuffer& buffer, int number, const PeakPick& pick);
/// All rows of the list.
[[nodiscard]] std::string PeakRows(const ProfileBuffer& buffer);
/// Rows without the last one.
[[nodiscard]] std::string WithoutLastRow(const std::string& rows);

}  // namespace koprax
