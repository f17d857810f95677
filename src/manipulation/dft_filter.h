// The Fourier filter of a profile: its coefficients, the attenuation of the high ones, and the profile that
// comes back. The transforms themselves stand in fourier_transform, asking and drawing is left to the window.
#pragma once

#include "manipulation/fourier_transform.h"
#include "workspace/workspace.h"

namespace koprax {

/// What the filter holds as long as its window is loaded.
struct DftFilter {
  PointTable DftY = PointTable(MaxPoints + 1);  ///< the profile taken, then the filtered one, points from 1
  CoefficientTable DftRe = CoefficientTable(MaxPoints + 1);
  CoefficientTable DftIm = CoefficientTable(MaxPoints + 1);
  float DftStep = 0;   ///< radians
  float DftCount = 0;  ///< number of coefficients; ends in .5 for an odd number of points
  float DftYMin = 0;   ///< limits of the plot of the coefficients
  float DftYMax = 0;
  float FilterParam = 0;  ///< the last one, 0 to 9
  int Points = 0;         ///< of the profile that the coefficients come from; 0 when there are none
  int ResultPoints = 0;   ///< of the filtered profile in DftY; 0 when there is none

  /// The last coefficient that is computed: DftCount rounded, halves to the even neighbour.
  [[nodiscard]] int Highest() const;
};

/// Takes points 1 to `count` (at least 1) of a profile and computes their coefficients, divided by `count`,
/// and the limits of their plot. What the filter held is gone.
void TransformProfile(const PointTable& y, int count, DftFilter& filter, const TellReached& tell);

/// Attenuates the highest coefficients, some 23 per cent of them, by a half Gaussian. `parameter` (0 to 9)
/// tells how fast it falls; 0 changes nothing. A second call attenuates further.
void AttenuateCoefficients(float parameter, DftFilter& filter);

/// Computes the filtered profile of `count` points from the coefficients into DftY.
void TransformBack(int count, DftFilter& filter, const TellReached& tell);

}  // namespace koprax
