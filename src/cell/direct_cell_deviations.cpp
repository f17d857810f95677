#include "cell/direct_cell_deviations.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "cell/cell_parameters.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

float AngleOf(float cosine) {
  if (cosine == 0) return 90;
  const auto angle =
      static_cast<float>(std::atan(std::sqrt(1 - Squared(cosine)) / cosine) / RadiansPerDegree);
  return angle < 0 ? angle + 180 : angle;
}

/// Of an angle in degrees, from that of its cosine.
float AngleDeviation(float cosine, float sigma) {
  return static_cast<float>(sigma / (std::sqrt(1 - Squared(cosine)) * RadiansPerDegree));
}

/// Variances of the direct lengths and cosines, and of the volume: sums in 64 bits, to be stored once.
struct DirectVariances {
  std::array<double, 7> Numbers{};
  double Volume = 0;
};

/// By differences: the reciprocal numbers are moved one after the other by a small step.
DirectVariances TriclinicVariances(const CellModel& cell, const CellNumbers& sigma) {
  constexpr CellNumbers steps{0, 0.0001F, 0.0001F, 0.0001F, 0.00001F, 0.00001F, 0.00001F};
  const float volume = VolumeOf(cell.CellDirect);
  DirectVariances variances;
  for (std::size_t i = 1; i < steps.size(); ++i) {
    CellNumbers recip = cell.CellRecip;
    recip[i] += steps[i];
    CellNumbers moved{};
    CellConvert(recip, moved, CellConversion::Reciprocal);
    const auto add = [&](double& variance, float after, float before) {
      const auto slope2 = static_cast<float>(Squared((static_cast<double>(after) - before) / steps[i]));
      variance += slope2 * Squared(sigma[i]);
    };
    for (std::size_t j = 1; j < moved.size(); ++j) add(variances.Numbers[j], moved[j], cell.CellDirect[j]);
    add(variances.Volume, VolumeOf(moved), volume);
  }
  return variances;
}

DirectVariances MonoclinicVariances(const CellModel& cell, const CellNumbers& sigma) {
  const CellNumbers& direct = cell.CellDirect;
  const CellNumbers& recip = cell.CellRecip;
  const float x = recip[5];
  const auto t = static_cast<float>(std::sqrt(1 - Squared(x)));
  const double t2 = Squared(t);
  const double volume = VolumeOf(direct);
  const auto oblique_length = [&](std::size_t i) {
    return Squared(static_cast<double>(direct[i]) / recip[i]) * Squared(sigma[i]) +
           Squared(x / (t2 * t * recip[i])) * Squared(sigma[5]);
  };
  DirectVariances variances;
  variances.Numbers[1] = oblique_length(1);
  variances.Numbers[2] = Squared(Squared(direct[2])) * Squared(sigma[2]);
  variances.Numbers[3] = oblique_length(3);
  variances.Numbers[5] = Squared(sigma[5]);
  variances.Volume =
      Squared(volume / recip[1]) * Squared(sigma[1]) + Squared(volume / recip[2]) * Squared(sigma[2]) +
      Squared(volume / recip[3]) * Squared(sigma[3]) + Squared(volume * x / t2) * Squared(sigma[5]);
  return variances;
}

/// What the systems with fixed angles have in common: each length hangs on one reciprocal length alone.
DirectVariances RightAngledVariances(const CellModel& cell, const CellNumbers& sigma) {
  const CellNumbers& direct = cell.CellDirect;
  const double volume = VolumeOf(direct);
  // Lengths that are tied count once in the volume.
  const ReciprocalParameters& table = ParametersOf(cell.CrystalSystem);
  // a = 2 / (sqrt(3) a*), where the axes enclose 120 degrees, so that da/da* = -sqrt(3)/2 a2.
  const bool hexagonal = cell.CrystalSystem == CrystalSystems::TrigonalHexagonal;
  DirectVariances variances;
  for (std::size_t i = 1; i <= 3; ++i) {
    const double factor = hexagonal && i < 3 ? 0.75 : 1;
    variances.Numbers[i] = factor * Squared(Squared(direct[i])) * Squared(sigma[i]);
    if (i > 1 && table[i] == table[i - 1]) continue;
    variances.Volume += Squared(direct[i] * volume) * Squared(sigma[i]);
  }
  return variances;
}

DirectVariances VariancesOf(const CellModel& cell, const CellNumbers& sigma) {
  switch (cell.CrystalSystem) {
    case CrystalSystems::Triclinic:
      return TriclinicVariances(cell, sigma);
    case CrystalSystems::Monoclinic:
      return MonoclinicVariances(cell, sigma);
    default:
      return RightAngledVariances(cell, sigma);
  }
}

/// Of a variance, both in 32 bits.
float DeviationOf(double variance) { return std::sqrt(static_cast<float>(variance)); }

}  // namespace

DirectCell DirectCellWithDeviations(const CellModel& cell, const CellNumbers& sigma) {
  const DirectVariances variances = VariancesOf(cell, sigma);
  DirectCell result;
  for (std::size_t i = 1; i <= 3; ++i) {
    result.Values[i] = cell.CellDirect[i];
    result.Deviations[i] = DeviationOf(variances.Numbers[i]);
  }
  for (std::size_t i = 4; i <= 6; ++i) {
    const float cosine = cell.CellDirect[i];
    result.Values[i] = AngleOf(cosine);
    result.Deviations[i] = AngleDeviation(cosine, DeviationOf(variances.Numbers[i]));
  }
  result.Volume = VolumeOf(cell.CellDirect);
  result.VolumeDeviation = DeviationOf(variances.Volume);
  return result;
}

}  // namespace koprax
