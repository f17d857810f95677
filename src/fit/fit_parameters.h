// The parameters of the peak fit: how many there are, and where each stands in the parameter table.
#pragma once

#include <cstddef>
#include <cstdint>

namespace koprax {

inline constexpr int MaxFitPeaks = 12;
inline constexpr int ParametersPerPeak = 6;
inline constexpr int FitParameterCount = 77;  ///< of twelve peaks and both kinds of background

/// What describes a peak, in the order of its six parameters.
enum class PeakParameter : std::uint8_t {
  Position = 1,  ///< x units of the profile
  Intensity,     ///< the height above the background
  WidthLeft,     ///< FWHM of the half at its left
  WidthRight,
  EtaLeft,  ///< the Gaussian share of the half at its left
  EtaRight,
};

/// The number of a parameter of a peak (1 to 12).
[[nodiscard]] constexpr std::size_t NumberOf(int peak, PeakParameter parameter) {
  const int number = ParametersPerPeak * (peak - 1) + static_cast<int>(parameter);
  return static_cast<std::size_t>(number);
}

// The background: A + B t + C t^2 + D t^3 with t counted from the origin, or a measured one times a factor.
inline constexpr std::size_t ConstantTerm = 73;
inline constexpr std::size_t LinearTerm = 74;
inline constexpr std::size_t QuadraticTerm = 75;
inline constexpr std::size_t CubicTerm = 76;
inline constexpr std::size_t ScaleFactor = 77;

}  // namespace koprax
