// The least squares of a refinement once its derivatives and residuals are known: shifts and standard
// deviations of the parameters. What the parameters mean is left to others.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "cell/cell_parameters.h"
#include "workspace/least_squares.h"

namespace koprax {

/// Shifts of the parameters, and the inverse of the normal matrix.
using NormalSolution = LeastSquaresSolution<float, MaxCellParameters + 1>;
/// From 1 by 1.
using ParameterMatrix = decltype(NormalSolution::Inverse);

/// Solves for `count` parameters, from one row of derivatives and one residual for each peak, without
/// weights. Nothing where the peaks don't tell the parameters apart with the digits of 32 bits.
[[nodiscard]] std::optional<NormalSolution> SolveNormalEquations(
    const std::vector<CellParameters>& derivatives, std::span<const float> residuals, std::size_t count);

struct ParameterDeviations {
  CellParameters Sigma{};              ///< 0 where the variance came out below 0
  std::vector<int> NegativeVariances;  ///< the numbers, from 1, of the parameters where it did
};

/// The standard deviations of `count` parameters, of which there have to be fewer than residuals.
[[nodiscard]] ParameterDeviations DeviationsOf(const ParameterMatrix& inverse,
                                               std::span<const float> residuals, std::size_t count);

}  // namespace koprax
