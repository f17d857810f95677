// What a refinement cycle shows as text.
#pragma once

#include <cstdint>
#include <string>

#include "cell/direct_cell_deviations.h"

namespace koprax {

/// The line above those of the peaks.
[[nodiscard]] std::string PeakHeading();
/// The line of a peak; positions are 2-theta in degrees.
[[nodiscard]] std::string PeakLine(std::int16_t h, std::int16_t k, std::int16_t l, float observed,
                                   float computed);

struct CycleSummary {
  float FactorBefore = 0;  ///< disagreement in percent, summed over the peaks
  float FactorAfter = 0;
  float Zero = 0;           ///< correction of 2-theta in degrees
  float ZeroDeviation = 0;  ///< of it, in degrees
  DirectCell Cell{};
};
/// Everything behind the lines of the peaks.
[[nodiscard]] std::string SummaryText(const CycleSummary& summary);

}  // namespace koprax
