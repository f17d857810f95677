// Calibration files, which hold the coefficients that turn channels into 2-theta: coefficients as lines, and
// the coefficients of a previewed file taken into a buffer. Asking for the file is left to others.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_preview.h"
#include "files/read_outcome.h"
#include "workspace/workspace.h"

namespace koprax {

/// The coefficients from CalPar(1) on that a calibration file may hold.
inline constexpr int MaxCoefficients = 7;
using CalibrationTable = std::array<double, MaxCoefficients + 1>;  ///< CalPar, numbered from 1

/// Whether a calibration counts as read for the buffer: its constant coefficient must be above 0, or it is
/// asked for again.
[[nodiscard]] inline bool HasCalibration(const ProfileBuffer& buffer) {
  constexpr double least_constant = 0.0001;
  return buffer.CalPar[1] >= least_constant;
}

/// The title in 80 characters, a line for each coefficient, three empty lines.
[[nodiscard]] std::vector<std::string> CalibrationLines(std::string_view title,
                                                        std::span<const float> coefficients);

/// The end of a reading of coefficients. It starts out as a failure.
struct CoefficientsRead {
  bool Irregular = true;           ///< it ended at a line that can't be read; what was read before stays
  std::optional<Message> Problem;  ///< what the user has to be told
};

/// Takes the coefficients of a file into CalPar: the one word of line i is CalPar(i - 1). A word with the
/// exponent letter D keeps its 64 bits, other numbers are cut to 32 bits, a word without a number is 0. The
/// title in line 1 is not looked at; an empty line leaves its coefficient as it was. Of a file that is longer
/// than its preview no coefficient is read, of more than MaxCoefficients the first ones. `file_name` is for
/// the messages; `words` are the tables as the last line leaves them.
[[nodiscard]] CoefficientsRead TakeCoefficients(const FilePreview& preview, const std::string& file_name,
                                                CalibrationTable& cal_par, TokenisedWords& words,
                                                const TellUser& tell);

}  // namespace koprax
