// The relations between channel, 2-theta and d spacing.
#pragma once

#include <array>
#include <cstddef>

namespace koprax {

/// The degree to radian factor, a 32-bit float throughout.
inline constexpr float RadiansPerDegree = 0.017453292F;

/// The d spacing in angstrom at a 2-theta in degrees: wavelength / (2 sin theta), Bragg's law
/// (W. H. and W. L. Bragg, Proc. R. Soc. A 88 (1913) 428). 0 where the sine is 0.
[[nodiscard]] float SpacingOf(float two_theta, float wavelength);

/// The 2-theta of a channel by the calibration polynomial A1 + A2 c + ... + A7 c^6, held in a 32-bit float
/// after each step; coefficients of 0 are passed over. `coefficients` is numbered from 1; those behind
/// `last`, at most 7, don't count.
[[nodiscard]] float TwoThetaOfChannel(const std::array<double, 8>& coefficients, float channel,
                                      std::size_t last = 7);

}  // namespace koprax
