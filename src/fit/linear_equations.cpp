#include "fit/linear_equations.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "workspace/vector_types.h"

namespace koprax {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// The row of an elimination in whole registers: the columns, behind them the right-hand side, then zeros.
struct alignas(64) WorkRow {
  std::array<float, 112> Values{};
  float& operator[](std::size_t i) { return Values[i]; }
  float operator[](std::size_t i) const { return Values[i]; }
};

/// Rows and columns count from 0 here.
struct Elimination {
  Elimination(const SquareTable& matrix, const ParameterTable& right_hand_side, int count);
  void PutBack(SquareTable& matrix, ParameterTable& right_hand_side) const;

  std::size_t Count;
  std::array<WorkRow, ParameterTableSize> Rows;
  std::array<bool, ParameterTableSize> Done{};  ///< rows and columns that have been a pivot's
  WorkRow Candidates;  ///< where a pivot may stand, as bits that take the sign away; else 0
};

Elimination::Elimination(const SquareTable& matrix, const ParameterTable& right_hand_side, int count)
    : Count(At(count)) {
  for (std::size_t j = 0; j < Count; ++j) {
    std::copy_n(matrix[j + 1].begin() + 1, Count, Rows[j].Values.begin());
    Rows[j][Count] = right_hand_side[j + 1];
    Candidates[j] = std::bit_cast<float>(0x7fffffffU);
  }
}

void Elimination::PutBack(SquareTable& matrix, ParameterTable& right_hand_side) const {
  for (std::size_t j = 0; j < Count; ++j) {
    std::copy_n(Rows[j].Values.begin(), Count, matrix[j + 1].begin() + 1);
    right_hand_side[j + 1] = Rows[j][Count];
  }
}

struct Pivot {
  std::size_t Row;
  std::size_t Column;
};

// What works on whole rows is compiled into its callers, down to those that say for which processor they are
// built.

/// The greatest candidate of a row, or of the rows before it, in each lane.
template <class Vectors>
[[gnu::always_inline]] inline void TakeGreatest(const Elimination& work, std::size_t row,
                                                typename Vectors::Floats& greatest) {
  for (std::size_t k = 0; k < work.Count; k += 2 * Vectors::Lanes) {
    typename Vectors::FloatBits value;
    typename Vectors::FloatBits candidates;
    Load(&work.Rows[row].Values[k], value);
    Load(&work.Candidates.Values[k], candidates);
    value &= candidates;
    typename Vectors::Floats size;
    Load(&value, size);
    greatest = size > greatest ? size : greatest;
  }
}

/// The last column of a row that holds a candidate of this size.
std::optional<Pivot> LastOfSize(const Elimination& work, std::size_t row, float size) {
  for (std::size_t k = work.Count; k-- > 0;) {
    if (!work.Done[k] && std::fabs(work.Rows[row][k]) == size) return Pivot{row, k};
  }
  return std::nullopt;
}

/// The last of the greatest elements outside the rows and columns that are done; none where nothing that is
/// left is a number.
template <class Vectors>
[[gnu::always_inline]] inline std::optional<Pivot> FindPivot(const Elimination& work) {
  constexpr std::size_t lanes = 2 * Vectors::Lanes;
  std::array<float, ParameterTableSize> greatest;
  float size = 0;
  for (std::size_t j = 0; j < work.Count; ++j) {
    if (work.Done[j]) continue;
    typename Vectors::Floats of_row{};
    TakeGreatest<Vectors>(work, j, of_row);
    float of_lanes = 0;
    for (std::size_t lane = 0; lane < lanes; ++lane) of_lanes = std::max(of_lanes, of_row[lane]);
    greatest[j] = of_lanes;
    size = std::max(size, of_lanes);
  }
  for (std::size_t j = work.Count; j-- > 0;) {
    if (work.Done[j] || greatest[j] != size) continue;
    if (const auto pivot = LastOfSize(work, j, size)) return pivot;
  }
  return std::nullopt;
}

template <class Vectors>
[[gnu::always_inline]] inline void EliminateColumn(Elimination& work, std::size_t column) {
  constexpr std::size_t lanes = 2 * Vectors::Lanes;
  typename Vectors::Floats of_pivot;
  typename Vectors::Floats values;
  WorkRow& pivot_row = work.Rows[column];
  const float p = 1 / pivot_row[column];
  pivot_row[column] = 1;
  for (std::size_t k = 0; k <= work.Count; k += lanes) {
    Load(&pivot_row.Values[k], values);
    values *= p;
    Store(values, &pivot_row.Values[k]);
  }
  for (std::size_t l = 0; l < work.Count; ++l) {
    if (l == column) continue;
    WorkRow& row = work.Rows[l];
    const float f = row[column];
    row[column] = 0;
    for (std::size_t k = 0; k <= work.Count; k += lanes) {
      Load(&pivot_row.Values[k], of_pivot);
      Load(&row.Values[k], values);
      values -= of_pivot * f;
      Store(values, &row.Values[k]);
    }
  }
}

template <class Vectors>
[[gnu::always_inline]] inline bool Solve(Elimination& work) {
  std::array<Pivot, ParameterTableSize> pivots;
  for (std::size_t i = 0; i < work.Count; ++i) {
    const auto pivot = FindPivot<Vectors>(work);
    if (!pivot) return false;
    pivots[i] = *pivot;
    work.Done[pivot->Column] = true;
    work.Candidates[pivot->Column] = 0;
    if (pivot->Row != pivot->Column) std::swap(work.Rows[pivot->Row], work.Rows[pivot->Column]);
    if (work.Rows[pivot->Column][pivot->Column] == 0) return false;
    EliminateColumn<Vectors>(work, pivot->Column);
  }
  for (std::size_t i = work.Count; i-- > 0;) {
    if (pivots[i].Row == pivots[i].Column) continue;
    for (std::size_t k = 0; k < work.Count; ++k) {
      std::swap(work.Rows[k][pivots[i].Row], work.Rows[k][pivots[i].Column]);
    }
  }
  return true;
}

#ifdef __x86_64__
__attribute__((target("avx2"))) bool SolveAvx2(Elimination& work) { return Solve<Vectors32>(work); }
__attribute__((target("avx512f"))) bool SolveAvx512(Elimination& work) { return Solve<Vectors64>(work); }
#endif

bool SolveIn(VectorWidth width, Elimination& work) {
#ifdef __x86_64__
  if (width == VectorWidth::Avx512) return SolveAvx512(work);
  if (width == VectorWidth::Avx2) return SolveAvx2(work);
#else
  static_cast<void>(width);
#endif
  return Solve<Vectors16>(work);
}

}  // namespace

bool GaussJordan(SquareTable& matrix, ParameterTable& right_hand_side, int count, VectorWidth width) {
  Elimination work(matrix, right_hand_side, count);
  const bool solved = SolveIn(width, work);
  work.PutBack(matrix, right_hand_side);
  return solved;
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
