// The sums over the points of products of derivatives, a chunk of points at a time: each product and each sum
// rounded to 32 bits, the points in their order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "fit/linear_equations.h"
#include "fit/model_chunk.h"
#include "workspace/vector_width.h"
#include "workspace/workspace.h"

namespace koprax {

/// Adds to the lower triangle of a matrix and to a vector. Rows and columns are those of the list, numbered
/// from 1. Parameters that are not present in a chunk are left out: what they add is 0.
class ProductSums {
 public:
  ProductSums(const PeakFit& fit, VectorWidth width, SquareTable& matrix, ParameterTable& vector)
      : fit_(fit), width_(width), matrix_(matrix), vector_(vector) {}

  /// `residuals` has a value for each point of the chunk.
  void Add(const ModelChunk& chunk, const ChunkColumn& residuals);
  /// Puts the sums in hand into the matrix and the vector.
  void Finish();

  /// Floats of a row: at most 100 parameters and the residual, in whole registers of 16.
  static constexpr std::size_t RowSize = (ParameterTableSize + 15) / 16 * 16;
  using Row = std::array<float, RowSize>;

 private:
  using RowNumbers = std::array<std::uint8_t, ParameterTableSize>;

  void TakeSums();

  const PeakFit& fit_;
  VectorWidth width_;
  SquareTable& matrix_;
  ParameterTable& vector_;

  /// The rows of the matrix that the sums in hand belong to, in rising order.
  RowNumbers rows_{};
  std::size_t row_count_ = 0;
  /// These rows side by side; behind them, as one more row, the vector. What registers reach beyond the
  /// triangle, here and in the factors, is added up too and never read.
  alignas(64) std::array<Row, RowSize> sums_{};
  /// The derivatives point by point, behind them the residual.
  alignas(64) std::array<Row, ChunkSize> factors_{};
};

}  // namespace koprax
