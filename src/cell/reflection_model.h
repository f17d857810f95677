// The model of one indexed peak: where a cell and a zero shift put it, and how that depends on the
// parameters. Summing over the peaks is left to others.
#pragma once

#include "cell/cell_model.h"
#include "cell/cell_parameters.h"

namespace koprax {

/// One peak in terms of sin2 theta / lambda2, in 1/angstrom2.
struct ReflectionModel {
  float Q = 0;         ///< of the cell without a zero shift
  float Observed = 0;  ///< Y
  float C2 = 0;        ///< cos2 of the angle that the cell gives; below 0 beyond the wavelength's reach
  float Theta = 0;     ///< that angle in radians
  float Computed = 0;  ///< M, of the cell with the zero shift
  float S1 = 0;        ///< 100 sin(2 theta)
  float S2 = 0;        ///< sin(2 theta + 2 z)

  [[nodiscard]] float Residual() const { return Observed - Computed; }
};

/// `observed` is a 2-theta in degrees, `zero` the shift z of theta in radians. Where C2 is below 0 what
/// follows from it is no number.
[[nodiscard]] ReflectionModel ModelOf(const CellModel& cell, const Indices& indices, float observed,
                                      float zero);

/// The derivatives of Computed with respect to the parameters of the cell's system, at its CellRecip. No
/// numbers where S1 is 0.
[[nodiscard]] CellParameters DerivativesOf(const CellModel& cell, const Indices& indices,
                                           const ReflectionModel& model);

}  // namespace koprax
