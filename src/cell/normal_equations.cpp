#include "cell/normal_equations.h"

#include <algorithm>
#include <cmath>

#include "workspace/matrix_inversion.h"

namespace koprax {

namespace {

/// How often greater the variance of a parameter may be than it were if the others were known. The sums of a
/// normal matrix in 32 bits are good to about 1E-07 of themselves, so that beyond this no digit of its
/// inverse is left. Where peaks don't determine a parameter at all it is 1E+12 and more.
constexpr double MaxVarianceInflation = 1E6;

/// Sums over the peaks in their order, kept in the width of Real after each addition; column by column.
template <class Real>
std::vector<Real> NormalMatrix(std::span<const CellParameters> derivatives, std::size_t count) {
  std::vector<Real> normal(count * count);
  for (std::size_t p = 1; p <= count; ++p) {
    for (std::size_t q = 1; q <= count; ++q) {
      Real sum = 0;
      for (const CellParameters& row : derivatives) {
        sum = static_cast<Real>(sum + static_cast<double>(row[p]) * row[q]);
      }
      normal[(q - 1) * count + p - 1] = sum;
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
  const auto are_finite = [](std::span<const float> numbers) {
    return std::ranges::all_of(numbers, [](float number) { return std::isfinite(number); });
  };
  if (!are_finite(inverse) || InvertMatrix(std::span(inverse), count) == 0 || !are_finite(inverse)) {
    return std::nullopt;
  }
  CellParameters right_hand_side{};
  for (std::size_t p = 1; p <= count; ++p) {
    for (std::size_t k = 0; k < derivatives.size(); ++k) {
      right_hand_side[p] =
          static_cast<float>(right_hand_side[p] + static_cast<double>(derivatives[k][p]) * residuals[k]);
    }
  }
  NormalSolution solution;
  for (std::size_t p = 1; p <= count; ++p) {
    for (std::size_t q = 1; q <= count; ++q) {
      const float element = solution.Inverse[p][q] = inverse[(q - 1) * count + p - 1];
      solution.Shifts[p] =
          static_cast<float>(solution.Shifts[p] + static_cast<double>(element) * right_hand_side[q]);
    }
  }
  return solution;
}

ParameterDeviations DeviationsOf(const ParameterMatrix& inverse, std::span<const float> residuals,
                                 std::size_t count) {
  ParameterDeviations deviations;
  const double freedom = static_cast<double>(residuals.size()) - static_cast<double>(count);
  for (std::size_t p = 1; p <= count; ++p) {
    float variance = 0;
    for (const float residual : residuals) {
      variance =
          static_cast<float>(variance + inverse[p][p] / freedom * (static_cast<double>(residual) * residual));
    }
    if (variance < 0) {
      deviations.NegativeVariances.push_back(static_cast<int>(p));
    } else {
      deviations.Sigma[p] = std::sqrt(variance);
    }
  }
  return deviations;
}

}  // namespace koprax
