#include "cell/cell_refinement.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cell/cell_parameters.h"
#include "cell/direct_cell_deviations.h"
#include "cell/normal_equations.h"
#include "cell/refinement_text.h"
#include "cell/reflection_model.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

constexpr float LargestTheta2 = 180;

/// One cycle on a copy of the cell. A step returns what stands in the way of the next ones.
class Cycle {
 public:
  using Step = std::optional<CycleObstacle>;

  Cycle(const CellModel& cell, const AcceptedPeaks& peaks)
      : Cell(cell), peaks_(peaks), count_(ParameterCountOf(cell.CrystalSystem)) {}

  Step Run() {
    for (const auto step : {&Cycle::CheckStart, &Cycle::CheckPeaks, &Cycle::Linearise, &Cycle::Shift,
                            &Cycle::CompareAgain, &Cycle::WriteResults}) {
      if (const auto obstacle = (this->*step)()) return obstacle;
    }
    return std::nullopt;
  }

  CellModel Cell;
  std::vector<int> NegativeVariances;
  std::string Text;

 private:
  [[nodiscard]] std::size_t PeakCount() const { return static_cast<std::size_t>(peaks_.AcceptedCount); }
  [[nodiscard]] Indices IndicesOf(std::size_t k) const {
    return {static_cast<float>(peaks_.AcceptedH[k]), static_cast<float>(peaks_.AcceptedK[k]),
            static_cast<float>(peaks_.AcceptedL[k])};
  }

  Step CheckStart();
  Step CheckPeaks();
  Step Linearise();
  Step Shift();
  Step CompareAgain();
  Step WriteResults();

  /// The model of a peak by the cell and zero shift in hand, if the wavelength reaches it.
  Step TakeModel(std::size_t k, ReflectionModel& model) const;
  /// Adds to a disagreement, which is kept in 32 bits.
  static void AddDisagreement(float& sum, float residual, const ReflectionModel& model) {
    sum = static_cast<float>(sum + static_cast<double>(std::abs(residual)) / model.Observed);
  }

  const AcceptedPeaks& peaks_;
  std::size_t count_;  ///< of the parameters
  float zero_ = 0;     ///< shift of theta in radians
  std::vector<CellParameters> derivatives_;
  std::vector<float> residuals_;
  ParameterMatrix inverse_{};
  CycleSummary summary_;
};

Cycle::Step Cycle::CheckStart() {
  using enum CycleObstacles;
  if (peaks_.AcceptedCount <= 0) return CycleObstacle{NoPeaks};
  if (Cell.CrystalSystem < CrystalSystems::Triclinic || Cell.CrystalSystem > CrystalSystems::Cubic) {
    return CycleObstacle{NoSystem};
  }
  if (PeakCount() <= count_) return CycleObstacle{TooFewPeaks};
  if (!IsCell(Cell.CellRecip)) return CycleObstacle{NoStartingCell};
  return std::nullopt;
}

Cycle::Step Cycle::CheckPeaks() {
  using enum CycleObstacles;
  const auto is_index = [](int index) { return index >= -MaxIndex && index <= MaxIndex; };
  for (std::size_t k = 1; k <= PeakCount(); ++k) {
    const int h = peaks_.AcceptedH[k];
    const int i = peaks_.AcceptedK[k];
    const int l = peaks_.AcceptedL[k];
    const float two_theta = peaks_.AcceptedTheta2[k];
    if (!is_index(h) || !is_index(i) || !is_index(l)) return CycleObstacle{IndexTooHigh, k};
    if (h == 0 && i == 0 && l == 0) return CycleObstacle{NoReflection, k};
    if (!(two_theta > 0 && two_theta <= LargestTheta2)) return CycleObstacle{NoPosition, k};
  }
  return std::nullopt;
}

Cycle::Step Cycle::TakeModel(std::size_t k, ReflectionModel& model) const {
  model = ModelOf(Cell, IndicesOf(k), peaks_.AcceptedTheta2[k], zero_);
  if (model.C2 < 0) return CycleObstacle{CycleObstacles::BeyondReach, k};
  // The disagreement is in parts of the observed value.
  if (!(model.Observed > 0) || !std::isfinite(model.Observed) || !std::isfinite(model.Computed)) {
    return CycleObstacle{CycleObstacles::BeyondNumbers};
  }
  return std::nullopt;
}

Cycle::Step Cycle::Linearise() {
  float sum = 0;
  for (std::size_t k = 1; k <= PeakCount(); ++k) {
    ReflectionModel model;
    if (const auto obstacle = TakeModel(k, model)) return obstacle;
    residuals_.push_back(model.Residual());
    AddDisagreement(sum, model.Residual(), model);
    derivatives_.push_back(DerivativesOf(Cell, IndicesOf(k), model));
    if (!std::ranges::all_of(derivatives_.back(), [](float slope) { return std::isfinite(slope); })) {
      return CycleObstacle{CycleObstacles::BeyondNumbers};
    }
  }
  summary_.FactorBefore = 100 * sum;
  return std::nullopt;
}

Cycle::Step Cycle::Shift() {
  const auto solution = SolveNormalEquations(derivatives_, residuals_, count_);
  if (!solution) return CycleObstacle{CycleObstacles::SingularMatrix};
  inverse_ = solution->Inverse;
  zero_ += solution->Parameters[1];
  const CellNumbers shifts = ReciprocalNumbersOf(Cell.CrystalSystem, solution->Parameters);
  for (std::size_t i = 1; i < shifts.size(); ++i) Cell.CellRecip[i] += shifts[i];
  if (Cell.CrystalSystem == CrystalSystems::TrigonalHexagonal) Cell.CellRecip[6] = 0.5F;
  if (!IsCell(Cell.CellRecip)) return CycleObstacle{CycleObstacles::LeadsToNoCell};
  CellConvert(Cell.CellRecip, Cell.CellQuad, CellConversion::QuadraticForm);
  CellConvert(Cell.CellRecip, Cell.CellDirect, CellConversion::Reciprocal);
  return std::nullopt;
}

Cycle::Step Cycle::CompareAgain() {
  Text = PeakHeading();
  const double lambda2 = static_cast<double>(Cell.CellLambda) * Cell.CellLambda;
  float sum = 0;
  for (std::size_t k = 1; k <= PeakCount(); ++k) {
    ReflectionModel model;
    if (const auto obstacle = TakeModel(k, model)) return obstacle;
    // What rounding leaves below 0 is 0.
    const auto sine = static_cast<float>(std::sqrt(std::max(model.Computed * lambda2, 0.0)));
    if (sine > 1) continue;
    const auto cosine = static_cast<float>(std::sqrt(1 - static_cast<double>(sine) * sine));
    const float two_theta =
        cosine == 0
            ? 180
            : static_cast<float>(2 * std::atan(static_cast<double>(sine) / cosine) / RadiansPerDegree);
    Text += PeakLine(peaks_.AcceptedH[k], peaks_.AcceptedK[k], peaks_.AcceptedL[k], peaks_.AcceptedTheta2[k],
                     two_theta);
    residuals_[k - 1] = model.Residual();
    AddDisagreement(sum, model.Residual(), model);
  }
  summary_.FactorAfter = 100 * sum;
  return std::nullopt;
}

Cycle::Step Cycle::WriteResults() {
  ParameterDeviations deviations = DeviationsOf(inverse_, residuals_, count_);
  NegativeVariances = std::move(deviations.NegativeVariances);
  summary_.Zero = static_cast<float>(2.0 * zero_ / RadiansPerDegree);
  summary_.ZeroDeviation = static_cast<float>(2.0 * deviations.Sigma[1] / RadiansPerDegree);
  summary_.Cell = DirectCellWithDeviations(Cell, ReciprocalNumbersOf(Cell.CrystalSystem, deviations.Sigma));
  const DirectCell& cell = summary_.Cell;
  const auto is_finite = [](float number) { return std::isfinite(number); };
  if (!std::ranges::all_of(cell.Deviations, is_finite) || !std::isfinite(cell.VolumeDeviation) ||
      !std::isfinite(summary_.FactorBefore) || !std::isfinite(summary_.FactorAfter) ||
      !std::isfinite(summary_.ZeroDeviation)) {
    return CycleObstacle{CycleObstacles::BeyondNumbers};
  }
  Text += SummaryText(summary_);
  return std::nullopt;
}

}  // namespace

CycleFindings RefineCycle(CellModel& cell, const AcceptedPeaks& peaks) {
  Cycle cycle(cell, peaks);
  CycleFindings findings;
  findings.Obstacle = cycle.Run();
  if (findings.Obstacle) return findings;
  cell = cycle.Cell;
  findings.NegativeVariances = std::move(cycle.NegativeVariances);
  findings.Text = std::move(cycle.Text);
  return findings;
}

}  // namespace koprax
