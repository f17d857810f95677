// A peak at one point: which half the point belongs to, and what it is there.
#pragma once

#include <optional>

#include "fit/half_peak.h"
#include "workspace/workspace.h"

namespace koprax {

/// A half of a peak at a point.
struct PeakAtPoint {
  bool Left;
  HalfPeakTerms<float> Terms;
};

/// The peak (1 to 12) of a table of parameters at x; nothing where x lies farther than 10 FWHM from its
/// position.
[[nodiscard]] std::optional<PeakAtPoint> PeakAt(const ParameterTable& parameters, int peak, float x);

/// The half of a peak as the formulas take it: a FWHM of 0 or less is replaced by a small one.
[[nodiscard]] HalfPeak HalfOf(const ParameterTable& parameters, int peak, bool left);

}  // namespace koprax
