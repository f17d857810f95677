#include "cell/cell_refinement.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>
#include <utility>

#include "cell/cell_parameters.h"
#include "cell/direct_cell_deviations.h"
#include "cell/normal_equations.h"
#include "cell/refinement_text.h"
#include "cell/reflection_model.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

Message NoPeaks() {
  return ErrorMessage(
      "No peak has been accepted.\r\nStart \"Refine cell\" of the main menu anew, give indices to peaks and "
      "accept them.");
}

Message TooFewPeaks(std::size_t peaks, std::size_t parameters) {
  return ErrorMessage("The peaks accepted are no more than the parameters: " + std::to_string(peaks) +
                      " for " + std::to_string(parameters) +
                      ".\r\nStart \"Refine cell\" of the main menu anew and accept at least " +
                      std::to_string(parameters + 1) + " peaks.");
}

Message NoStartingCell() {
  return ErrorMessage(
      "The cell to start from is none.\r\nStart \"Refine cell\" of the main menu anew, with lengths above 0 "
      "and with angles that enclose a volume.");
}

Message PeaksTellTooLittle() {
  return ErrorMessage(
      "The accepted peaks don't determine all parameters: their normal matrix is singular.\r\nStart \"Refine "
      "cell\" of the main menu anew and accept peaks of other indices as well.");
}

Message LeadsToNoCell() {
  return ErrorMessage(
      "The refinement leads to a cell that is none, so the cell was left as it is.\r\nStart anew with "
      "\"Refine cell\" of the main menu and a better cell, and check the indices of the peaks.");
}

Message BeyondNumbers() {
  return ErrorMessage(
      "The numbers of the refinement have left the range of 32 bits, so the cell was left as it is.\r\nStart "
      "\"Refine cell\" of the main menu anew, and check the cell and the indices of the peaks.");
}

/// One cycle on a copy of the cell. A step returns what stands in the way of the next ones.
class Cycle {
 public:
  using Step = std::optional<Message>;

  Cycle(const CellModel& cell, const AcceptedPeaks& peaks)
      : Cell(cell), peaks_(peaks), count_(ParameterCountOf(cell.CrystalSystem)) {}

  Step Run() {
    for (const auto step : {&Cycle::CheckStart, &Cycle::CheckPeaks, &Cycle::Linearise, &Cycle::Shift,
                            &Cycle::CompareAgain, &Cycle::WriteResults}) {
      if (auto problem = (this->*step)()) return problem;
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
  [[nodiscard]] Message PeakMessage(std::size_t k, const std::string& what) const;

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

Message Cycle::PeakMessage(std::size_t k, const std::string& what) const {
  return ErrorMessage("Peak number " + std::to_string(k) + " (" + std::to_string(peaks_.AcceptedH[k]) + " " +
                      std::to_string(peaks_.AcceptedK[k]) + " " + std::to_string(peaks_.AcceptedL[k]) + ") " +
                      what);
}

Cycle::Step Cycle::CheckStart() {
  if (peaks_.AcceptedCount <= 0) return NoPeaks();
  if (Cell.CrystalSystem < CrystalSystems::Triclinic || Cell.CrystalSystem > CrystalSystems::Cubic) {
    return ErrorMessage("Wrong definition of crystal system");
  }
  if (PeakCount() <= count_) return TooFewPeaks(PeakCount(), count_);
  if (!IsCell(Cell.CellRecip)) return NoStartingCell();
  return std::nullopt;
}

Cycle::Step Cycle::CheckPeaks() {
  const auto is_index = [](int index) { return index >= -MaxIndex && index <= MaxIndex; };
  for (std::size_t k = 1; k <= PeakCount(); ++k) {
    const int h = peaks_.AcceptedH[k];
    const int i = peaks_.AcceptedK[k];
    const int l = peaks_.AcceptedL[k];
    if (!is_index(h) || !is_index(i) || !is_index(l)) {
      return PeakMessage(k, "has an index beyond " + std::to_string(MaxIndex) +
                                ".\r\nStart \"Refine cell\" of the main menu anew with lower indices.");
    }
    if (h == 0 && i == 0 && l == 0) {
      return PeakMessage(k,
                         "is no reflection.\r\nStart \"Refine cell\" of the main menu anew, and click OK for "
                         "the indices of each peak before it is accepted.");
    }
    if (!(peaks_.AcceptedTheta2[k] > 0)) {
      return PeakMessage(k,
                         "has no position above 0.\r\nStart \"Refine cell\" of the main menu anew and accept "
                         "peaks with their 2-theta in degrees.");
    }
  }
  return std::nullopt;
}

Cycle::Step Cycle::TakeModel(std::size_t k, ReflectionModel& model) const {
  model = ModelOf(Cell, IndicesOf(k), peaks_.AcceptedTheta2[k], zero_);
  if (model.C2 < 0) {
    return PeakMessage(k,
                       "lies beyond the reach of the wavelength.\r\nStart \"Refine cell\" of the main menu "
                       "anew, and check the wavelength, the cell and the indices.");
  }
  // The disagreement is in parts of the observed value.
  if (!(model.Observed > 0) || !std::isfinite(model.Observed) || !std::isfinite(model.Computed)) {
    return BeyondNumbers();
  }
  return std::nullopt;
}

Cycle::Step Cycle::Linearise() {
  float sum = 0;
  for (std::size_t k = 1; k <= PeakCount(); ++k) {
    ReflectionModel model;
    if (auto problem = TakeModel(k, model)) return problem;
    residuals_.push_back(model.Residual());
    AddDisagreement(sum, model.Residual(), model);
    derivatives_.push_back(DerivativesOf(Cell, IndicesOf(k), model));
    if (!std::ranges::all_of(derivatives_.back(), [](float slope) { return std::isfinite(slope); })) {
      return BeyondNumbers();
    }
  }
  summary_.FactorBefore = 100 * sum;
  return std::nullopt;
}

Cycle::Step Cycle::Shift() {
  const auto solution = SolveNormalEquations(derivatives_, residuals_, count_);
  if (!solution) return PeaksTellTooLittle();
  inverse_ = solution->Inverse;
  zero_ += solution->Shifts[1];
  const CellNumbers shifts = ReciprocalNumbersOf(Cell.CrystalSystem, solution->Shifts);
  for (std::size_t i = 1; i < shifts.size(); ++i) Cell.CellRecip[i] += shifts[i];
  if (Cell.CrystalSystem == CrystalSystems::TrigonalHexagonal) Cell.CellRecip[6] = 0.5F;
  if (!IsCell(Cell.CellRecip)) return LeadsToNoCell();
  CellConvert(Cell.CellRecip, Cell.CellQuad, CellConversion::QuadraticForm);
  CellConvert(Cell.CellRecip, Cell.CellDirect, CellConversion::Reciprocal);
  if (!IsCell(Cell.CellDirect)) return LeadsToNoCell();
  return std::nullopt;
}

Cycle::Step Cycle::CompareAgain() {
  Text = PeakHeading();
  const double lambda2 = static_cast<double>(Cell.CellLambda) * Cell.CellLambda;
  float sum = 0;
  for (std::size_t k = 1; k <= PeakCount(); ++k) {
    ReflectionModel model;
    if (auto problem = TakeModel(k, model)) return problem;
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
    return BeyondNumbers();
  }
  Text += SummaryText(summary_);
  return std::nullopt;
}

}  // namespace

CycleFindings RefineCycle(CellModel& cell, const AcceptedPeaks& peaks) {
  Cycle cycle(cell, peaks);
  CycleFindings findings;
  findings.Problem = cycle.Run();
  if (findings.Problem) return findings;
  cell = cycle.Cell;
  findings.NegativeVariances = std::move(cycle.NegativeVariances);
  findings.Text = std::move(cycle.Text);
  return findings;
}

}  // namespace koprax
