#include "fit/linear_equations.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

namespace koprax {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

struct Pivot {
  std::size_t Row;
  std::size_t Column;
};

/// The last of the greatest elements in the rows and columns that are left; none where nothing there is a
/// number.
std::optional<Pivot> FindPivot(const SquareTable& matrix, const std::vector<std::size_t>& left) {
  std::optional<Pivot> pivot;
  float greatest = 0;
  for (const std::size_t j : left) {
    for (const std::size_t k : left) {
      const float size = std::fabs(matrix[j][k]);
      if (!(size >= greatest)) continue;
      greatest = size;
      pivot = {j, k};
    }
  }
  return pivot;
}

void EliminateColumn(SquareTable& matrix, ParameterTable& right_hand_side, std::size_t column,
                     std::size_t count) {
  ParameterTable& pivot_row = matrix[column];
  const float p = 1 / pivot_row[column];
  pivot_row[column] = 1;
  for (std::size_t k = 1; k <= count; ++k) pivot_row[k] *= p;
  right_hand_side[column] *= p;
  for (std::size_t l = 1; l <= count; ++l) {
    if (l == column) continue;
    ParameterTable& row = matrix[l];
    const float f = row[column];
    row[column] = 0;
    for (std::size_t k = 1; k <= count; ++k) row[k] -= pivot_row[k] * f;
    right_hand_side[l] -= right_hand_side[column] * f;
  }
}

}  // namespace

bool GaussJordan(SquareTable& matrix, ParameterTable& right_hand_side, int count) {
  std::vector<std::size_t> left(At(count));
  std::iota(left.begin(), left.end(), 1);
  std::vector<Pivot> pivots;
  while (!left.empty()) {
    const auto pivot = FindPivot(matrix, left);
    if (!pivot) return false;
    const auto [row, column] = *pivot;
    pivots.push_back(*pivot);
    std::erase(left, column);
    if (row != column) {
      std::swap_ranges(matrix[row].begin() + 1, matrix[row].begin() + 1 + count, matrix[column].begin() + 1);
      std::swap(right_hand_side[row], right_hand_side[column]);
    }
    if (matrix[column][column] == 0) return false;
    EliminateColumn(matrix, right_hand_side, column, At(count));
  }
  for (auto pivot = pivots.rbegin(); pivot != pivots.rend(); ++pivot) {
    for (std::size_t k = 1; k <= At(count); ++k) std::swap(matrix[k][pivot->Row], matrix[k][pivot->Column]);
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
