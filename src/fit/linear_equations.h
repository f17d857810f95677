// Normal equations in 32-bit floats, as the minimiser solves them.
#pragma once

#include <array>
#include <cstdint>

#include "workspace/workspace.h"

namespace koprax {

/// Rows and columns are numbered from 1.
using SquareTable = std::array<ParameterTable, ParameterTableSize>;

/// Gauss-Jordan elimination with full pivoting in place (W. H. Press et al., Numerical Recipes, section 2.1),
/// on the first `count` rows and columns: the matrix becomes its inverse, the right-hand side the solution.
/// Each product and each difference is rounded to 32 bits; of equal pivots the last one found is taken. False
/// when the matrix is singular; both are then left as far as they got.
[[nodiscard]] bool GaussJordan(SquareTable& matrix, ParameterTable& right_hand_side, int count);

/// Spreads a covariance matrix of the `count` refined parameters, in the order of their list, over the
/// numbers of all parameters, 1 to `parameter_count`; rows and columns of the others become 0.
void CovarianceSort(SquareTable& matrix, const std::array<std::int16_t, ParameterTableSize>& list, int count,
                    int parameter_count);

}  // namespace koprax
