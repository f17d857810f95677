// Refined peaks and the peak list of a buffer: the temporary list of a fit, and what moves from it into the
// permanent one. The boxes and buttons are left to the window.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "fit/fit_parameters.h"
#include "workspace/workspace.h"

namespace koprax {

/// The peaks of a fit, numbered from 1, each value as its text.
struct TemporaryPeaks {
  std::array<std::string, MaxFitPeaks + 1> TempPos;     ///< 2-theta or channel, as the profile has it
  std::array<std::string, MaxFitPeaks + 1> TempHeight;  ///< of the peak top, background included
  std::int16_t NTemp = 0;
};

/// The peaks of the fit as it stands.
[[nodiscard]] TemporaryPeaks PeaksOfFit(const PeakFit& fit);

/// What came of a command on the lists.
enum class ListChange {
  Done,
  Nothing,     ///< the numbers name no peak; nothing is changed
  OutOfRange,  ///< a number that no list can have; nothing is changed
  ListFull,    ///< the permanent list holds MaxPeaks already
};

/// Adds the temporary peak to the permanent list of the buffer, and takes it off the temporary one.
[[nodiscard]] ListChange AddRefinedPeak(ProfileBuffer& buffer, TemporaryPeaks& peaks, int temporary);
/// Puts the temporary peak in the place of a permanent one; the length of the list stays.
[[nodiscard]] ListChange SubstitutePeak(ProfileBuffer& buffer, TemporaryPeaks& peaks, int permanent,
                                        int temporary);
/// Takes a peak off the permanent list; a number above its length takes the last one.
[[nodiscard]] ListChange DeletePeak(ProfileBuffer& buffer, int permanent);
/// Sorts the permanent list upward by position. All fields become plain texts of 32-bit floats.
void OrderPeaks(ProfileBuffer& buffer);

/// The lists as the window shows them, a line each peak.
[[nodiscard]] std::string PermanentLines(const ProfileBuffer& buffer);
[[nodiscard]] std::string TemporaryLines(const TemporaryPeaks& peaks);

}  // namespace koprax
