// The peak list of a buffer as a window has shown it, so that it can tell later whether another window has
// changed it. What it does then is left to the window.
#pragma once

#include <algorithm>
#include <array>
#include <string>

#include "forms/runtime.h"
#include "workspace/workspace.h"

namespace koprax {

class KeptPeakList {
 public:
  void Keep(const ProfileBuffer& buffer) {
    letter_ = buffer.BufLetter;
    count_ = buffer.NPeaks;
    columns_ = {buffer.PeakTheta, buffer.PeakY, buffer.PeakChannel};
  }
  [[nodiscard]] bool Matches(const ProfileBuffer& buffer) const {
    const std::array<const Column*, 3> now{&buffer.PeakTheta, &buffer.PeakY, &buffer.PeakChannel};
    return letter_ == buffer.BufLetter && count_ == buffer.NPeaks &&
           std::ranges::equal(columns_, now, [this](const Column& kept, auto* column) {
             return std::equal(kept.begin() + 1, kept.begin() + 1 + count_, column->begin() + 1);
           });
  }

 private:
  using Column = std::array<std::string, MaxPeaks + 1>;
  std::string letter_;  // none is at work where it differs
  int count_ = 0;
  std::array<Column, 3> columns_;
};

/// What the user is told where a buffer holds another peak list by now than the one on show, or none;
/// `command` of the main menu starts anew.
[[nodiscard]] inline Message PeakListGone(const ProfileBuffer& buffer, const std::string& command) {
  const std::string whose = buffer.BufLetter.empty() ? "" : " of buffer " + buffer.BufLetter;
  return ErrorMessage((buffer.NPeaks == 0
                           ? "There is no peak in the list" + whose + " to select."
                           : "The peak list" + whose + " has been changed in another window.") +
                      "\r\nStart with \"" + command + "\" of the main menu and a list of peaks.");
}

/// What the user is told where the buffer has another wavelength by now than the one that is worked with.
[[nodiscard]] inline Message WavelengthGone(const ProfileBuffer& buffer, const std::string& command) {
  return ErrorMessage("The wave length of buffer " + buffer.BufLetter +
                      " has been changed in another window.\r\nStart anew with \"" + command +
                      "\" of the main menu.");
}

}  // namespace koprax
