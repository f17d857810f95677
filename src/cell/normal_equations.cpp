#include "cell/normal_equations.h"

#include <cmath>

namespace koprax {

namespace {

/// The elements of a normal matrix in 32 bits are good to about 1E-07 of themselves, so that beyond this
/// hardly a digit of its inverse is left. Where peaks don't determine a parameter at all it is 1E+12 and
/// more.
constexpr double MaxVarianceInflation = 1E5;

}  // namespace

std::optional<NormalSolution> SolveNormalEquations(const std::vector<CellParameters>& derivatives,
                                                   std::span<const float> residuals, std::size_t count) {
  return SolveLeastSquares(derivatives, residuals, count, MaxVarianceInflation);
}

ParameterDeviations DeviationsOf(const ParameterMatrix& inverse, std::span<const float> residuals,
                                 std::size_t count) {
  ParameterDeviations deviations;
  const double freedom = static_cast<double>(residuals.size()) - static_cast<double>(count);
  for (std::size_t p = 1; p <= count; ++p) {
    double sum = 0;
    for (const float residual : residuals) {
      sum += inverse[p][p] / freedom * (static_cast<double>(residual) * residual);
    }
    const auto variance = static_cast<float>(sum);
    if (variance < 0) {
      deviations.NegativeVariances.push_back(static_cast<int>(p));
    } else {
      deviations.Sigma[p] = std::sqrt(variance);
    }
  }
  return deviations;
}

}  // namespace koprax
