// The polynomial that turns the channels of a detector into 2-theta, fitted to couples of both, and its
// result as text. What the user is told where there is none is left to the window.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "workspace/workspace.h"

namespace koprax {

inline constexpr std::size_t MostCalibPar = 4;

/// 2-theta = CalibPar(1) + CalibPar(2)*c + ... for channel c, in degrees. The tables are numbered from 1.
struct Calibration {
  std::size_t CalibParCount = 0;
  std::array<float, MostCalibPar + 1> CalibPar{};
  std::array<float, MostCalibPar + 1> Sigma{};  ///< standard deviations
  float Residual = 0;                           ///< sum of squared differences over that of squared 2-theta

  /// The coefficients alone, the constant one first.
  [[nodiscard]] std::span<const float> Coefficients() const {
    return std::span(CalibPar).subspan(1, CalibParCount);
  }
};

/// What a fit needs, and what there is.
struct CalibrationDemand {
  std::size_t Couples = 0;   ///< at hand
  std::size_t Channels = 0;  ///< different ones among them
  std::size_t NeededCouples = 4;
  std::size_t NeededChannels = 4;  ///< as many as there are coefficients: 3 of up to 4 couples, else 4
  [[nodiscard]] bool Met() const { return Couples >= NeededCouples && Channels >= NeededChannels; }
};
[[nodiscard]] CalibrationDemand DemandOf(const Couples& couples);

/// Fits a polynomial of degree 3, of degree 2 to four couples, by unweighted least squares. Nothing where the
/// demand isn't met, where the channels lie too close together to tell the coefficients apart, or where a
/// result is beyond 32 bits.
[[nodiscard]] std::optional<Calibration> FitCalibration(const Couples& couples);

/// Coefficients with their standard deviations, a line each and numbered from 0, and the residual.
[[nodiscard]] std::string CalibrationText(const Calibration& calibration);

}  // namespace koprax
