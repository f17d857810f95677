// The function that is fitted: a sum of asymmetric pseudo-Voigt peaks on a background, at one point of the
// range, with its derivatives. Finding the parameters is left to the minimiser.
#pragma once

#include "workspace/workspace.h"

namespace koprax {

/// The value at point i (1 to FitPointCount) for a table of parameters, each stored result a 32-bit float.
/// Each half of a peak is eta G + (1 - eta) L with its own FWHM and eta, G and L a Gaussian and a Lorentzian
/// of height 1 (G. K. Wertheim et al., Rev. Sci. Instrum. 45 (1974) 1369); it ends 10 FWHM from the position.
/// Fills the derivatives by the parameters of the peaks up to FitPeakCount and of the background in use; the
/// others are left as they are. Any values are computed as they come.
[[nodiscard]] float PeakModel(const PeakFit& fit, int i, const ParameterTable& parameters,
                              ParameterTable& derivatives);

/// What the model adds to the sum `y` of the peaks at point i, with its derivatives: the background in use.
[[nodiscard]] float AddBackground(const PeakFit& fit, int i, const ParameterTable& parameters, float y,
                                  ParameterTable& derivatives);

/// The polynomial background of a table of parameters, at a distance from the origin.
[[nodiscard]] double PolynomialBackground(const ParameterTable& parameters, double distance);

}  // namespace koprax
