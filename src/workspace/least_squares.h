// Linear least squares without weights, by their normal equations. What the parameters are, and how good the
// fit is, is left to whoever has made the rows.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "workspace/matrix_inversion.h"

namespace koprax {

/// For each observation its derivatives with respect to the parameters, which are numbered from 1.
template <class Real, std::size_t Size>
using DerivativeRows = std::vector<std::array<Real, Size>>;

template <class Real, std::size_t Size>
struct LeastSquaresSolution {
  std::array<Real, Size> Parameters{};                 ///< from 1
  std::array<std::array<Real, Size>, Size> Inverse{};  ///< of the normal matrix, from 1 by 1
};

/// Of `count` parameters, column by column, each element stored in the width of Sum. Sums over the
/// observations in their order, in 64 bits.
template <class Sum, class Real, std::size_t Size>
std::vector<Sum> NormalMatrixOf(const DerivativeRows<Real, Size>& rows, std::size_t count) {
  std::vector<Sum> normal;
  for (std::size_t q = 1; q <= count; ++q) {
    for (std::size_t p = 1; p <= count; ++p) {
      double sum = 0;
      for (const auto& row : rows) sum += static_cast<double>(row[p]) * row[q];
      normal.push_back(static_cast<Sum>(sum));
    }
  }
  return normal;
}

/// Whether no variance of a parameter is inflated more than `max_inflation` times: as often it is greater
/// than it were if the others were known. In 64 bits, since the rounding of 32 bits seldom leaves an exact 0
/// and may well make up a pivot.
template <class Real, std::size_t Size>
bool AreToldApart(const DerivativeRows<Real, Size>& rows, std::size_t count, double max_inflation) {
  const std::vector<double> normal = NormalMatrixOf<double>(rows, count);
  std::vector<double> inverse = normal;
  if (InvertMatrix(std::span(inverse), count) == 0) return false;
  for (std::size_t i = 0; i < normal.size(); i += count + 1) {
    const double inflation = normal[i] * inverse[i];
    if (!(inflation > 0 && inflation <= max_inflation)) return false;
  }
  return true;
}

/// The `count` parameters, at most MaxOrder, that follow the observed values best; matrix, inverse and
/// results are stored in the width of Real. Nothing where the observations don't tell the parameters apart.
template <class Real, std::size_t Size>
[[nodiscard]] std::optional<LeastSquaresSolution<Real, Size>> SolveLeastSquares(
    const DerivativeRows<Real, Size>& rows, std::span<const float> observed, std::size_t count,
    double max_inflation) {
  if (!AreToldApart(rows, count, max_inflation)) return std::nullopt;
  std::vector<Real> inverse = NormalMatrixOf<Real>(rows, count);
  if (InvertMatrix(std::span(inverse), count) == 0) return std::nullopt;
  std::array<Real, Size> right_side{};
  for (std::size_t p = 1; p <= count; ++p) {
    double sum = 0;
    for (std::size_t k = 0; k < rows.size(); ++k) sum += static_cast<double>(rows[k][p]) * observed[k];
    right_side[p] = static_cast<Real>(sum);
  }
  LeastSquaresSolution<Real, Size> solution;
  for (std::size_t p = 1; p <= count; ++p) {
    double sum = 0;
    for (std::size_t q = 1; q <= count; ++q) {
      solution.Inverse[p][q] = inverse[(q - 1) * count + p - 1];
      sum += static_cast<double>(solution.Inverse[p][q]) * right_side[q];
    }
    solution.Parameters[p] = static_cast<Real>(sum);
  }
  return solution;
}

}  // namespace koprax
