// Cells by their metric tensor, in 64 bits: the inverse of the matrix of scalar products of the edges gives
// 1/d2 (International Tables for Crystallography, vol. A, ch. 1.3). Shares nothing with CellConvert and
// CellQuad.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include "cell/cell_refinement.h"

namespace koprax {

inline constexpr double Degree = std::numbers::pi / 180;

/// From 1: lengths and cosines.
using WideCell = std::array<double, 7>;

/// The reciprocal of a cell, by inversion of its metric tensor.
inline WideCell PlainReciprocal(const WideCell& cell) {
  const auto& [unused, a, b, c, ca, cb, cg] = cell;
  const double g[3][3] = {
      {a * a, a * b * cg, a * c * cb}, {a * b * cg, b * b, b * c * ca}, {a * c * cb, b * c * ca, c * c}};
  const auto cofactor = [&g](int i, int j) {
    return g[(i + 1) % 3][(j + 1) % 3] * g[(i + 2) % 3][(j + 2) % 3] -
           g[(i + 1) % 3][(j + 2) % 3] * g[(i + 2) % 3][(j + 1) % 3];
  };
  const double determinant = g[0][0] * cofactor(0, 0) + g[0][1] * cofactor(0, 1) + g[0][2] * cofactor(0, 2);
  const double x = std::sqrt(cofactor(0, 0));
  const double y = std::sqrt(cofactor(1, 1));
  const double z = std::sqrt(cofactor(2, 2));
  const double root = std::sqrt(determinant);
  return {0,
          x / root,
          y / root,
          z / root,
          cofactor(1, 2) / (y * z),
          cofactor(0, 2) / (x * z),
          cofactor(0, 1) / (x * y)};
}

/// 1/(4 d2): a quarter of the length of h a* + k b* + l c*, squared.
inline double PlainQ(const WideCell& recip, double h, double k, double l) {
  const double x = h * recip[1];
  const double y = k * recip[2];
  const double z = l * recip[3];
  return (x * x + y * y + z * z + 2 * (y * z * recip[4] + x * z * recip[5] + x * y * recip[6])) / 4;
}

inline double PlainVolume(const WideCell& cell) {
  const auto& [unused, a, b, c, ca, cb, cg] = cell;
  return a * b * c * std::sqrt(1 - ca * ca - cb * cb - cg * cg + 2 * ca * cb * cg);
}

/// a, b, c and the angles in degrees, as they are typed.
struct KnownCell {
  CrystalSystems System;
  TypedCell Typed;

  [[nodiscard]] WideCell Cosines() const {
    WideCell cell = Typed;
    for (std::size_t k = 4; k <= 6; ++k) cell[k] = Typed[k] == 90 ? 0 : std::cos(Typed[k] * Degree);
    return cell;
  }
  /// Made by the house, with its lengths stretched by a factor.
  [[nodiscard]] CellModel Model(float lambda, double stretch = 1) const {
    TypedCell typed = Typed;
    for (std::size_t k = 1; k <= 3; ++k) typed[k] *= stretch;
    CellModel cell{.CrystalSystem = System, .CellDirect = DirectCellOf(System, typed), .CellLambda = lambda};
    CellConvert(cell.CellDirect, cell.CellRecip, CellConversion::Reciprocal);
    CellConvert(cell.CellRecip, cell.CellQuad, CellConversion::QuadraticForm);
    return cell;
  }
};

inline constexpr std::array<KnownCell, 6> KnownCells{{
    {CrystalSystems::Triclinic, {0, 7.12, 8.57, 5.58, 93.4, 107.1, 87.7}},
    {CrystalSystems::Monoclinic, {0, 9.75, 8.92, 5.25, 90, 105.9, 90}},
    {CrystalSystems::Orthorhombic, {0, 8.48, 5.4, 6.96, 90, 90, 90}},
    {CrystalSystems::Tetragonal, {0, 4.594, 4.594, 2.959, 90, 90, 90}},
    {CrystalSystems::TrigonalHexagonal, {0, 4.913, 4.913, 5.405, 90, 90, 120}},
    {CrystalSystems::Cubic, {0, 5.431, 5.431, 5.431, 90, 90, 90}},
}};

inline void AddPeak(AcceptedPeaks& peaks, int h, int k, int l, double two_theta) {
  const auto at = static_cast<std::size_t>(++peaks.AcceptedCount);
  peaks.AcceptedH[at] = static_cast<std::int16_t>(h);
  peaks.AcceptedK[at] = static_cast<std::int16_t>(k);
  peaks.AcceptedL[at] = static_cast<std::int16_t>(l);
  peaks.AcceptedTheta2[at] = static_cast<float>(two_theta);
}

/// `count` reflections at random, each once unless there are too few, at their places but for `zero` degrees
/// of 2-theta and, in each Q, a normal error of `noise` 1/angstrom2, by a generator of its own if there is
/// one.
inline AcceptedPeaks PeaksOf(const KnownCell& cell, double lambda, int count, std::mt19937& random,
                             double zero = 0, double noise = 0, double highest = 140,
                             std::mt19937* noises = nullptr) {
  const WideCell recip = PlainReciprocal(cell.Cosines());
  const double reach = std::pow(std::sin(highest / 2 * Degree) / lambda, 2);
  std::vector<std::array<int, 3>> reflections;
  for (int l = 0; l <= 8; ++l) {
    for (int k = -8; k <= 8; ++k) {
      for (int h = -8; h <= 8; ++h) {
        const bool half = l > 0 || k > 0 || (k == 0 && h > 0);
        if (half && PlainQ(recip, h, k, l) <= reach) reflections.push_back({h, k, l});
      }
    }
  }
  std::ranges::shuffle(reflections, random);
  std::normal_distribution<double> error(0, 1);
  AcceptedPeaks peaks;
  for (int i = 0; i < count; ++i) {
    const auto& [h, k, l] = reflections[static_cast<std::size_t>(i) % reflections.size()];
    const double q = PlainQ(recip, h, k, l) + noise * error(noises != nullptr ? *noises : random);
    AddPeak(peaks, h, k, l, 2 * std::asin(lambda * std::sqrt(q)) / Degree + zero);
  }
  return peaks;
}

}  // namespace koprax
