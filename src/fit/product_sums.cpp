#include "fit/product_sums.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "workspace/vector_types.h"

namespace koprax {
namespace {

using Row = ProductSums::Row;
constexpr std::size_t RowSize = ProductSums::RowSize;

/// Rows of sums in hand at a time, each in one or two registers.
constexpr std::size_t TileRows = 4;

using FourFloats = Vectors16::Floats;

/// Four columns of four points become four rows.
void Transpose(const std::array<const float*, 4>& columns, std::size_t point, std::size_t column, Row* rows) {
  std::array<FourFloats, 4> v;
  for (std::size_t n = 0; n < 4; ++n) Load(columns[n] + point, v[n]);
  const FourFloats low01 = __builtin_shufflevector(v[0], v[1], 0, 4, 1, 5);
  const FourFloats high01 = __builtin_shufflevector(v[0], v[1], 2, 6, 3, 7);
  const FourFloats low23 = __builtin_shufflevector(v[2], v[3], 0, 4, 1, 5);
  const FourFloats high23 = __builtin_shufflevector(v[2], v[3], 2, 6, 3, 7);
  Store(__builtin_shufflevector(low01, low23, 0, 1, 4, 5), rows[0].data() + column);
  Store(__builtin_shufflevector(low01, low23, 2, 3, 6, 7), rows[1].data() + column);
  Store(__builtin_shufflevector(high01, high23, 0, 1, 4, 5), rows[2].data() + column);
  Store(__builtin_shufflevector(high01, high23, 2, 3, 6, 7), rows[3].data() + column);
}

/// The products of TileRows factors with registers of factors beside them, point after point.
template <class Floats, std::size_t Registers, std::size_t... Tile>
[[gnu::always_inline]] inline void AddTile(const float* by, const float* factors, std::size_t points,
                                           float* sums, std::index_sequence<Tile...>) {
  constexpr std::size_t lanes = sizeof(Floats) / sizeof(float);
  std::array<Floats, TileRows * Registers> tile;
  (Load(sums + (Tile / Registers) * RowSize + (Tile % Registers) * lanes, tile[Tile]), ...);
  for (std::size_t i = 0; i < points; ++i, by += RowSize, factors += RowSize) {
    std::array<Floats, Registers> beside;
    for (std::size_t n = 0; n < Registers; ++n) Load(factors + n * lanes, beside[n]);
    ((tile[Tile] += by[Tile / Registers] * beside[Tile % Registers]), ...);
  }
  (Store(tile[Tile], sums + (Tile / Registers) * RowSize + (Tile % Registers) * lanes), ...);
}

/// Down to the diagonal, and a little beyond it, of `count` rows.
template <class Floats>
[[gnu::always_inline]] inline void AddProducts(const Row* factors, std::size_t points, std::size_t count,
                                               Row* sums) {
  constexpr std::size_t lanes = sizeof(Floats) / sizeof(float);
  for (std::size_t row = 0; row < count; row += TileRows) {
    const float* by = factors[0].data() + row;
    const std::size_t end = std::min(row + TileRows, count);
    std::size_t column = 0;
    for (; column + lanes < end; column += 2 * lanes) {
      AddTile<Floats, 2>(by, factors[0].data() + column, points, sums[row].data() + column,
                         std::make_index_sequence<2 * TileRows>());
    }
    if (column < end) {
      AddTile<Floats, 1>(by, factors[0].data() + column, points, sums[row].data() + column,
                         std::make_index_sequence<TileRows>());
    }
  }
}

#ifdef __x86_64__
__attribute__((target("avx2"))) void AddProductsAvx2(const Row* factors, std::size_t points,
                                                     std::size_t count, Row* sums) {
  AddProducts<Vectors32::Floats>(factors, points, count, sums);
}

__attribute__((target("avx512f"))) void AddProductsAvx512(const Row* factors, std::size_t points,
                                                          std::size_t count, Row* sums) {
  AddProducts<Vectors64::Floats>(factors, points, count, sums);
}
#endif

void AddProductsIn(VectorWidth width, const Row* factors, std::size_t points, std::size_t count, Row* sums) {
#ifdef __x86_64__
  if (width == VectorWidth::Avx512) return AddProductsAvx512(factors, points, count, sums);
  if (width == VectorWidth::Avx2) return AddProductsAvx2(factors, points, count, sums);
#else
  static_cast<void>(width);
#endif
  AddProducts<Vectors16::Floats>(factors, points, count, sums);
}

}  // namespace

void ProductSums::TakeSums() {
  const std::size_t residual = row_count_;
  for (std::size_t j = 0; j < residual; ++j) {
    for (std::size_t k = 0; k <= j; ++k) sums_[j][k] = matrix_[rows_[j]][rows_[k]];
  }
  for (std::size_t k = 0; k < residual; ++k) sums_[residual][k] = vector_[rows_[k]];
}

void ProductSums::Finish() {
  const std::size_t residual = row_count_;
  for (std::size_t j = 0; j < residual; ++j) {
    for (std::size_t k = 0; k <= j; ++k) matrix_[rows_[j]][rows_[k]] = sums_[j][k];
  }
  for (std::size_t k = 0; k < residual; ++k) vector_[rows_[k]] = sums_[residual][k];
}

void ProductSums::Add(const ModelChunk& chunk, const ChunkColumn& residuals) {
  RowNumbers rows{};
  std::size_t count = 0;
  std::array<const float*, ParameterTableSize + 4> columns;
  for (std::size_t j = 1; j <= static_cast<std::size_t>(fit_.FitListCount); ++j) {
    const auto parameter = static_cast<std::size_t>(fit_.FitList[j]);
    if (!chunk.Present[parameter]) continue;
    columns[count] = chunk.Derivatives[parameter].data();
    rows[count] = static_cast<std::uint8_t>(j);
    ++count;
  }
  if (count != row_count_ || rows != rows_) {
    Finish();
    rows_ = rows;
    row_count_ = count;
    TakeSums();
  }
  static constexpr ChunkColumn zeros;
  columns[count] = residuals.data();
  for (std::size_t n = count + 1; n < count + 4; ++n) columns[n] = zeros.data();
  for (std::size_t column = 0; column <= count; column += 4) {
    const std::array<const float*, 4> four{columns[column], columns[column + 1], columns[column + 2],
                                           columns[column + 3]};
    for (std::size_t point = 0; point < ChunkSize; point += 4) {
      Transpose(four, point, column, factors_.data() + point);
    }
  }
  AddProductsIn(width_, factors_.data(), static_cast<std::size_t>(chunk.Count), count + 1, sums_.data());
}

}  // namespace koprax
