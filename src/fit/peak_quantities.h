// What follows from the parameters of a peak.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// The area of both halves of a peak (1 to 12) of FitParam, in counts times x units.
[[nodiscard]] float PeakArea(const PeakFit& fit, int peak);
/// The FWHM of the whole peak, the mean of its halves.
[[nodiscard]] float PeakWidth(const PeakFit& fit, int peak);

}  // namespace koprax
