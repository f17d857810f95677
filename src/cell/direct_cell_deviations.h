// Standard deviations of the direct cell and its volume, from those of the reciprocal cell. Covariances play
// no part.
#pragma once

#include "cell/cell_model.h"

namespace koprax {

struct DirectCell {
  CellNumbers Values{};      ///< a, b, c in angstrom, alpha, beta, gamma in degrees
  CellNumbers Deviations{};  ///< of these, in the same units; 0 for what the system fixes
  float Volume = 0;          ///< in cubed angstrom
  float VolumeDeviation = 0;
};

/// `sigma` holds the standard deviations of CellRecip, 0 for what the system fixes. CellDirect and CellRecip
/// have to be each other's reciprocal. Not finite where the deviations leave 32 bits.
[[nodiscard]] DirectCell DirectCellWithDeviations(const CellModel& cell, const CellNumbers& sigma);

}  // namespace koprax
