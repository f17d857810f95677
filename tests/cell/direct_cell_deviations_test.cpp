#include "cell/direct_cell_deviations.h"

#include <gtest/gtest.h>

#include "cell/cell_parameters.h"
#include "cell/known_cell.h"

namespace koprax {
namespace {

/// By central differences of the metric tensor: the deviations of a, b, c, the angles and, at 0, the volume,
/// when each parameter moves the reciprocal numbers that the system ties to it.
WideCell PropagatedDeviations(const CellModel& cell, const CellParameters& sigma) {
  WideCell variances{};
  for (std::size_t p = 2; p <= ParameterCountOf(cell.CrystalSystem); ++p) {
    WideCell after{};
    WideCell before{};
    const double step = 1E-6;
    for (std::size_t i = 1; i <= 6; ++i) {
      const bool moves = ParametersOf(cell.CrystalSystem)[i] == p;
      after[i] = cell.CellRecip[i] + (moves ? step : 0);
      before[i] = cell.CellRecip[i] - (moves ? step : 0);
    }
    after = PlainReciprocal(after);
    before = PlainReciprocal(before);
    after[0] = PlainVolume(after);
    before[0] = PlainVolume(before);
    for (std::size_t j = 0; j <= 6; ++j) {
      const bool angle = j > 3;
      const double change =
          angle ? (std::acos(after[j]) - std::acos(before[j])) / Degree : after[j] - before[j];
      variances[j] += std::pow(change / (2 * step) * sigma[p], 2);
    }
  }
  for (double& variance : variances) variance = std::sqrt(variance);
  return variances;
}

// The formulas are good to 32 bits, 1E-05 with their powers. The triclinic steps, of 1E-04 in lengths and
// 1E-05 in cosines, add their own square, and the rounding of a direct length over the step: 3 % of the
// whole.
TEST(DirectCellDeviations, AgreeWithDifferencesOfTheMetricTensor) {
  const CellParameters sigma{0, 0.1F, 1E-4F, 2E-4F, 1.5E-4F, 3E-4F, 2E-4F, 4E-4F};
  for (const KnownCell& known : KnownCells) {
    const CellModel cell = known.Model(1.54056F);
    const DirectCell found = DirectCellWithDeviations(cell, ReciprocalNumbersOf(known.System, sigma));
    const WideCell expected = PropagatedDeviations(cell, sigma);
    const double tolerance = known.System == CrystalSystems::Triclinic ? 0.03 : 1E-5;
    for (std::size_t j = 1; j <= 6; ++j) {
      EXPECT_NEAR(found.Values[j], known.Typed[j], 2E-5);
      EXPECT_NEAR(found.Deviations[j], expected[j], tolerance * expected[j] + 1E-9)
          << static_cast<int>(known.System) << " " << j;
    }
    EXPECT_NEAR(found.Volume / PlainVolume(known.Cosines()), 1, 1E-6);
    // Tied lengths count once in the volume, each with a deviation of its own.
    const double a = cell.CellDirect[1] * 1E-4 * found.Volume;
    const double c = known.System == CrystalSystems::Cubic ? 0 : cell.CellDirect[3] * 2E-4 * found.Volume;
    const double volume = known.System < CrystalSystems::Tetragonal ? expected[0] : std::hypot(a, c);
    EXPECT_NEAR(found.VolumeDeviation, volume, tolerance * volume);
  }
}

}  // namespace
}  // namespace koprax
