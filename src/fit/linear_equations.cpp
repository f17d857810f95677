#include "fit/linear_equations.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace koprax {
namespace {

using Counts = std::array<int, ParameterTableSize>;

std::size_t At(int i) { return static_cast<std::size_t>(i); }

struct Pivot {
  std::size_t Row = 0;
  std::size_t Column = 0;
};

/// The last of the greatest elements outside the rows and columns that are done. False where a column has
/// been taken twice, which happens when nothing that is left is a number.
bool FindPivot(const SquareTable& matrix, int count, const Counts& used, Pivot& pivot) {
  float big = 0;
  for (std::size_t j = 1; j <= At(count); ++j) {
    if (used[j] == 1) continue;
    for (std::size_t k = 1; k <= At(count); ++k) {
      if (used[k] > 1) return false;
      if (used[k] == 1 || !(std::fabs(matrix[j][k]) >= big)) continue;
      big = std::fabs(matrix[j][k]);
      pivot = {j, k};
    }
  }
  return true;
}

void EliminateColumn(SquareTable& matrix, ParameterTable& right_hand_side, int count, std::size_t column) {
  ParameterTable& row = matrix[column];
  const float p = 1 / row[column];
  row[column] = 1;
  for (std::size_t k = 1; k <= At(count); ++k) row[k] *= p;
  right_hand_side[column] *= p;
  for (std::size_t l = 1; l <= At(count); ++l) {
    if (l == column) continue;
    const float f = matrix[l][column];
    matrix[l][column] = 0;
    for (std::size_t k = 1; k <= At(count); ++k) matrix[l][k] -= row[k] * f;
    right_hand_side[l] -= right_hand_side[column] * f;
  }
}

}  // namespace

bool GaussJordan(SquareTable& matrix, ParameterTable& right_hand_side, int count) {
  Counts used{};
  std::array<Pivot, ParameterTableSize> pivots{};
  Pivot pivot;
  for (int i = 1; i <= count; ++i) {
    if (!FindPivot(matrix, count, used, pivot)) return false;
    ++used[pivot.Column];
    if (pivot.Row != pivot.Column) {
      std::swap(matrix[pivot.Row], matrix[pivot.Column]);
      std::swap(right_hand_side[pivot.Row], right_hand_side[pivot.Column]);
    }
    pivots[At(i)] = pivot;
    if (matrix[pivot.Column][pivot.Column] == 0) return false;
    EliminateColumn(matrix, right_hand_side, count, pivot.Column);
  }
  for (int i = count; i >= 1; --i) {
    const Pivot& undone = pivots[At(i)];
    if (undone.Row == undone.Column) continue;
    for (std::size_t k = 1; k <= At(count); ++k) {
      std::swap(matrix[k][undone.Row], matrix[k][undone.Column]);
    }
  }
  return true;
}

void CovarianceSort(SquareTable& matrix, const std::array<std::int16_t, ParameterTableSize>& list, int count,
                    int parameter_count) {
  const auto number = [&](int j) { return At(list[At(j)]); };
  for (std::size_t i = 2; i <= At(parameter_count); ++i) {
    for (std::size_t j = 1; j < i; ++j) matrix[i][j] = 0;
  }
  for (int i = 1; i < count; ++i) {
    for (int j = i + 1; j <= count; ++j) {
      matrix[std::max(number(i), number(j))][std::min(number(i), number(j))] = matrix[At(i)][At(j)];
    }
  }
  const float first = matrix[1][1];
  for (std::size_t j = 1; j <= At(parameter_count); ++j) {
    matrix[1][j] = matrix[j][j];
    matrix[j][j] = 0;
  }
  if (count > 0) matrix[number(1)][number(1)] = first;
  for (int j = 2; j <= count; ++j) matrix[number(j)][number(j)] = matrix[1][At(j)];
  for (std::size_t j = 2; j <= At(parameter_count); ++j) {
    for (std::size_t i = 1; i < j; ++i) matrix[i][j] = matrix[j][i];
  }
}

}  // namespace koprax
