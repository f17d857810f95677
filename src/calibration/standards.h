// The tabulated peaks of the standard samples, carried from the wavelength of their table to that of a
// profile. Which standard is on show is left to the window.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "display/stick_plot.h"

namespace koprax {

inline constexpr std::size_t MaxStandardPeaks = 50;

/// One tabulated peak: 2-theta in degrees and relative intensity, the strongest of 100.
struct StandardPeak {
  float TwoTheta;
  float Intensity;
};

struct Standard {
  float Lambda;  ///< wavelength of the table, angstrom
  std::span<const StandardPeak> Peaks;
};

/// Silicon, 11 peaks.
[[nodiscard]] Standard SiliconStandard();
/// Corundum, 19 peaks.
[[nodiscard]] Standard CorundumStandard();

/// Where a tabulated peak lies at another wavelength, above 0, by Bragg's law: 2-theta in degrees. At the
/// wavelength of the table it stays what it is; nothing where its spacing is too small for the wavelength.
[[nodiscard]] std::optional<float> PositionAt(float two_theta, float table_lambda, float wavelength);

/// The peaks of the chosen standard at the wavelength of the profile, numbered from 1.
struct StandardPeaks {
  std::int16_t StandardCount = 0;
  std::array<float, MaxStandardPeaks + 1> StandardTheta2{};
  std::array<float, MaxStandardPeaks + 1> StandardInt{};
  float StandardLambda = 0;

  /// Takes the standard to a wavelength, in angstrom and above 0. The sticks of all peaks that have a
  /// position there; the StandardTheta2 of the others stays what it was, whichever standard that came from.
  std::vector<Stick> Take(const Standard& standard, float wavelength);
  /// The sticks of all peaks, in the order of the table.
  [[nodiscard]] std::vector<Stick> Sticks() const;
};

}  // namespace koprax
