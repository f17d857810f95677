#include "cell/normal_equations.h"

#include <algorithm>
#include <cmath>

#include "workspace/matrix_inversion.h"

namespace koprax {

namespace {

/// How often greater the variance of a parameter may be than it were if the others were known. The elements
/// of a normal matrix in 32 bits are good to about 1E-07 of themselves, so that beyond this hardly a digit of
/// its inverse is left. Where peaks don't determine a parameter at all it is 1E+12 and more.
constexpr double MaxVarianceInflation = 1E5;

/// Sums over the peaks in their order, in 64 bits; column by column.
template <class Real>
std::vector<Real> NormalMatrix(std::span<const CellParameters> derivatives, std::size_t count) {
  std::vector<Real> normal(count * count);
  for (std::size_t p = 1; p <= count; ++p) {
    for (std::size_t q = 1; q <= count; ++q) {
      double sum = 0;
      for (const CellParameters& row : derivatives) sum += static_cast<double>(row[p]) * row[q];
      normal[(q - 1) * count + p - 1] = static_cast<Real>(sum);
    }
  }
  return normal;
}

/// In 64 bits, since the rounding of 32 bits seldom leaves an exact 0 and may well make up a pivot.
bool AreToldApart(std::span<const CellParameters> derivatives, std::size_t count) {
  const std::vector<double> normal = NormalMatrix<double>(derivatives, count);
  std::vector<double> inverse = normal;
  if (InvertMatrix(std::span(inverse), count) == 0) return false;
  for (std::size_t i = 0; i < normal.size(); i += count + 1) {
    if (!(std::abs(normal[i] * inverse[i]) <= MaxVarianceInflation)) return false;
  }
  return true;
}

}  // namespace

std::optional<NormalSolution> SolveNormalEquations(std::span<const CellParameters> derivatives,
                                                   std::span<const float> residuals, std::size_t count) {
  if (!AreToldApart(derivatives, count)) return std::nullopt;
  std::vector<float> inverse = NormalMatrix<float>(derivatives, count);
  if (InvertMatrix(std::span(inverse), count) == 0) return std::nullopt;
  CellParameters right_hand_side{};
  for (std::size_t p = 1; p <= count; ++p) {
    double sum = 0;
    for (std::size_t k = 0; k < derivatives.size(); ++k) {
      sum += static_cast<double>(derivatives[k][p]) * residuals[k];
    }
    right_hand_side[p] = static_cast<float>(sum);
  }
  NormalSolution solution;
  for (std::size_t p = 1; p <= count; ++p) {
    double sum = 0;
    for (std::size_t q = 1; q <= count; ++q) {
      solution.Inverse[p][q] = inverse[(q - 1) * count + p - 1];
      sum += static_cast<double>(solution.Inverse[p][q]) * right_hand_side[q];
    }
    solution.Shifts[p] = static_cast<float>(sum);
  }
  return solution;
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
