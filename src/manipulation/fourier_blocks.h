// The innermost work of the inverse transform: a stretch of coefficients is added to blocks of points, in the
// widest vectors there are. Which stretches and which blocks, and where their turns come from, is left to
// the transform.
//
// The points of a block lie in pairs at distances 1/2, 3/2 to 31/2 on both sides of its centre. The turn of a
// point is that of the centre and that of its distance, one after the other, which each pair shares.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "workspace/vector_width.h"

namespace koprax {

inline constexpr std::size_t StretchLength = 64;  ///< coefficients that are added in one go
inline constexpr std::size_t Distances = 16;      ///< pairs of points in a block
inline constexpr std::size_t BlockPoints = 2 * Distances;
inline constexpr std::size_t BlocksInStep = 2;  ///< blocks are worked on by twos

/// What the points at one distance from the centre of their block are turned by, for one coefficient.
struct DistanceTurns {
  std::array<double, Distances> Cos;
  std::array<double, Distances> Sin;
};

/// Numbers that belong to the coefficients of a stretch.
using StretchNumbers = std::array<double, StretchLength>;

/// A stretch of coefficients, each part with its factor in the sum, and what is the same for all blocks.
struct Stretch {
  StretchNumbers Re;
  StretchNumbers Im;
  std::array<DistanceTurns, StretchLength> Turns;
};

/// The turns of the centre of a block: that of the first coefficient of the stretch, and from there to each.
struct CentreTurns {
  double FirstCos = 1;
  double FirstSin = 0;
  StretchNumbers Cos{};
  StretchNumbers Sin{};
};

/// The sums of the points of a block by their distance from the centre: 32-bit numbers, held wider.
struct BlockSums {
  std::array<double, Distances> Below{};
  std::array<double, Distances> Above{};
};

/// Adds cos(a) Re - sin(a) Im of each coefficient, in order, to the sums of each block, with a rounding to 32
/// bits after each coefficient; each sum has to be 0 or in the range of normal 32-bit numbers. `blocks` and
/// `centres` are of one size, a multiple of BlocksInStep. Every width that the processor has gives the same
/// bits.
void AddStretch(VectorWidth width, const Stretch& stretch, const std::vector<CentreTurns>& centres,
                std::vector<BlockSums>& blocks);

}  // namespace koprax
