// One step of a Levenberg-Marquardt refinement of the parameters in FitParam (D. W. Marquardt, J. SIAM 11
// (1963) 431), in 32-bit floats. How many steps are made is left to the caller.
#pragma once

#include "fit/linear_equations.h"
#include "workspace/vector_width.h"
#include "workspace/workspace.h"

namespace koprax {

/// What a refinement carries from step to step, beside FitParam and FitBestChi.
struct Minimiser {
  SquareTable CovarMatrix{};    ///< work space; the covariances after the closing step
  SquareTable AlphaMatrix{};    ///< curvature at the accepted parameters, rows in the order of FitList
  ParameterTable BetaVector{};  ///< gradient there
  float ChiSquare = 0;          ///< the best sum of squared differences, unweighted
  float Lambda = 0;             ///< below 0 opens a refinement, above 0 goes on, 0 closes it
  float StartingChiSquare = 0;  ///< of the parameters that the last opening started from
};

/// What the user has to be told about a step. The step is made as far as it can be.
struct StepFindings {
  bool ImproperPermutation = false;  ///< FitList names a parameter twice; nothing else has been done
  bool SingularMatrix = false;
  /// A number left the range of 32 bits. The step counts as failed: parameters and best chi square are as
  /// before it. An opening that starts from such numbers completes FitList and does nothing else:
  /// Lambda stays below 0. A closing step whose profile has such a value leaves FitCalc as it was. Lambda
  /// stays where its tenfold is beyond the range.
  bool BeyondRange = false;
};

/// One step over the points 1 to `point_count` and the parameters 1 to `parameter_count`. Below 0 Lambda
/// comes back as 0.001 times 0.1 or 10; above 0 it falls tenfold with a lower chi square, never to 0, and
/// rises tenfold without. The closing step changes no parameter and fills FitCalc.
[[nodiscard]] StepFindings LmStep(PeakFit& fit, int point_count, int parameter_count, Minimiser& state,
                                  VectorWidth width = ChosenVectors());

/// The normal equations of the parameters in FitList, and the chi square, at a table of parameters: each
/// product and each sum is rounded to 32 bits, the points in their order, so that every width gives the same
/// bits. A parameter whose derivative is 0 throughout a chunk of points is left out there.
void LmEquations(const PeakFit& fit, int point_count, const ParameterTable& parameters, SquareTable& matrix,
                 ParameterTable& vector, float& chi_square, VectorWidth width = ChosenVectors());

}  // namespace koprax
