// The inversion of the small matrices of normal equations. What a singular one means is left to whoever has
// made it.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

namespace koprax {

/// The largest order of a matrix that InvertMatrix takes.
inline constexpr std::size_t MaxOrder = 7;

/// Inverts the n x n matrix A in place and returns its determinant: elimination by Gauss and Jordan with full
/// pivoting (G. H. Golub and C. F. Van Loan, Matrix Computations, ch. 3), each element stored in the width of
/// Real, 64 bits inside an expression. Element (i, j), from 1, stands at (j - 1) * n + i - 1; n is at most
/// MaxOrder. Of a singular matrix the determinant is 0, and A is left half reduced.
template <class Real>
[[nodiscard]] double InvertMatrix(std::span<Real> a, std::size_t n) {
  const auto at = [&](std::size_t i, std::size_t j) -> Real& { return a[j * n + i]; };
  // Both get the other's number, the second one with its sign changed, so that the determinant keeps its own.
  const auto exchange = [](Real& first, Real& second) { first = std::exchange(second, -first); };
  std::array<std::size_t, MaxOrder> row{};     // L and M of the pivots: what rows and columns were exchanged
  std::array<std::size_t, MaxOrder> column{};  // with those of the diagonal
  double determinant = 1;
  for (std::size_t k = 0; k < n; ++k) {
    row[k] = column[k] = k;
    for (std::size_t j = k; j < n; ++j) {
      for (std::size_t i = k; i < n; ++i) {
        if (std::abs(at(i, j)) > std::abs(at(row[k], column[k]))) {
          row[k] = i;
          column[k] = j;
        }
      }
    }
    for (std::size_t j = 0; row[k] > k && j < n; ++j) exchange(at(k, j), at(row[k], j));
    for (std::size_t i = 0; column[k] > k && i < n; ++i) exchange(at(i, k), at(i, column[k]));
    const Real pivot = at(k, k);
    if (pivot == 0) return 0;
    for (std::size_t i = 0; i < n; ++i) {
      if (i != k) at(i, k) = static_cast<Real>(at(i, k) / -static_cast<double>(pivot));
    }
    for (std::size_t j = 0; j < n; ++j) {
      for (std::size_t i = 0; i < n; ++i) {
        if (i != k && j != k) {
          at(i, j) = static_cast<Real>(at(i, j) + static_cast<double>(at(i, k)) * at(k, j));
        }
      }
    }
    for (std::size_t j = 0; j < n; ++j) {
      if (j != k) at(k, j) = static_cast<Real>(at(k, j) / static_cast<double>(pivot));
    }
    determinant *= pivot;
    at(k, k) = static_cast<Real>(1 / static_cast<double>(pivot));
  }
  for (std::size_t k = n; k-- > 0;) {
    for (std::size_t i = 0; row[k] > k && i < n; ++i) exchange(at(i, row[k]), at(i, k));
    for (std::size_t j = 0; column[k] > k && j < n; ++j) exchange(at(column[k], j), at(k, j));
  }
  return determinant;
}

}  // namespace koprax
