#include "fit/minimiser.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "fit/model_chunk.h"
#include "fit/peak_model.h"
#include "fit/product_sums.h"

namespace koprax {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// Writes the parameters that are not refined behind those that are. False where the list has a number twice
/// or one that is none.
bool CompleteList(PeakFit& fit, int parameter_count) {
  const int refined = fit.FitListCount;
  if (refined < 0 || refined > parameter_count) return false;
  int end = refined;
  for (int j = 1; j <= parameter_count; ++j) {
    const auto entries = fit.FitList.begin() + 1;
    const auto times = std::count(entries, entries + refined, j);
    if (times > 1) return false;
    if (times == 1) continue;
    if (++end > parameter_count) return false;
    fit.FitList[At(end)] = static_cast<std::int16_t>(j);
  }
  return end == parameter_count;
}

bool AllFinite(const ParameterTable& values, int count) {
  return std::all_of(values.begin() + 1, values.begin() + 1 + count,
                     [](float value) { return std::isfinite(value); });
}

bool AllFinite(const SquareTable& matrix, int count) {
  return std::all_of(matrix.begin() + 1, matrix.begin() + 1 + count,
                     [count](const ParameterTable& row) { return AllFinite(row, count); });
}

void CopyRows(const SquareTable& from, int count, SquareTable& to) {
  for (std::size_t j = 1; j <= At(count); ++j) {
    std::copy_n(from[j].begin() + 1, count, to[j].begin() + 1);
  }
}

void CopyValues(const ParameterTable& from, int count, ParameterTable& to) {
  std::copy_n(from.begin() + 1, count, to.begin() + 1);
}

/// The equations that a refinement starts from; false, with nothing changed, where they are not finite.
bool Open(PeakFit& fit, int point_count, Minimiser& state, VectorWidth width) {
  const int count = fit.FitListCount;
  ParameterTable gradient{};
  float chi_square = 0;
  LmEquations(fit, point_count, fit.FitParam, state.CovarMatrix, gradient, chi_square, width);
  if (!AllFinite(state.CovarMatrix, count) || !AllFinite(gradient, count) || !std::isfinite(chi_square)) {
    return false;
  }
  CopyRows(state.CovarMatrix, count, state.AlphaMatrix);
  CopyValues(gradient, count, state.BetaVector);
  state.ChiSquare = chi_square;
  state.StartingChiSquare = chi_square;
  fit.FitBestChi = chi_square;
  state.Lambda = 0.001F;
  return true;
}

void TakeTrialSystem(int count, Minimiser& state, ParameterTable& step) {
  CopyRows(state.AlphaMatrix, count, state.CovarMatrix);
  for (std::size_t j = 1; j <= At(count); ++j) {
    state.CovarMatrix[j][j] = static_cast<float>(state.AlphaMatrix[j][j] * (state.Lambda + 1.0));
  }
  CopyValues(state.BetaVector, count, step);
}

/// Fills FitCalc; false, with nothing changed, where a value is not finite.
bool Calculate(PeakFit& fit, int point_count) {
  ParameterTable derivatives{};
  std::vector<float> calculated(At(point_count));
  for (int i = 1; i <= point_count; ++i) {
    calculated[At(i - 1)] = PeakModel(fit, i, fit.FitParam, derivatives);
  }
  if (!std::all_of(calculated.begin(), calculated.end(), [](float y) { return std::isfinite(y); })) {
    return false;
  }
  std::copy(calculated.begin(), calculated.end(), fit.FitCalc.begin() + 1);
  return true;
}

/// Moves the refined parameters by the step and takes the equations there, in CovarMatrix and `step`. False
/// where a number is not finite.
bool Try(const PeakFit& fit, int point_count, ParameterTable& trial, ParameterTable& step, Minimiser& state,
         VectorWidth width) {
  const int count = fit.FitListCount;
  for (std::size_t j = 1; j <= At(count); ++j) trial[At(fit.FitList[j])] += step[j];
  for (std::size_t j = 1; j <= At(count); ++j) {
    if (!std::isfinite(trial[At(fit.FitList[j])])) return false;
  }
  LmEquations(fit, point_count, trial, state.CovarMatrix, step, state.ChiSquare, width);
  return std::isfinite(state.ChiSquare) && AllFinite(state.CovarMatrix, count) && AllFinite(step, count);
}

void Accept(PeakFit& fit, const ParameterTable& trial, const ParameterTable& gradient, Minimiser& state) {
  // At 0, which some 43 falls would reach, the next step would close the refinement.
  state.Lambda = std::max(static_cast<float>(state.Lambda * 0.1), std::numeric_limits<float>::denorm_min());
  fit.FitBestChi = state.ChiSquare;
  CopyRows(state.CovarMatrix, fit.FitListCount, state.AlphaMatrix);
  CopyValues(gradient, fit.FitListCount, state.BetaVector);
  fit.FitParam = trial;
}

/// False where Lambda can't rise any more.
bool Reject(const PeakFit& fit, Minimiser& state) {
  state.ChiSquare = fit.FitBestChi;
  const auto risen = static_cast<float>(state.Lambda * 10.0);
  if (!std::isfinite(risen)) return false;
  state.Lambda = risen;
  return true;
}

/// What the model lacks at each point of a chunk; adds the squares to a chi square.
float TakeResiduals(const PeakFit& fit, const ModelChunk& chunk, float chi_square, ChunkColumn& residuals) {
  for (std::size_t i = 0; i < At(chunk.Count); ++i) {
    const float dy = fit.FitY[At(chunk.First) + i] - chunk.Y[i];
    residuals[i] = dy;
    chi_square = static_cast<float>(chi_square + static_cast<double>(dy) * dy);
  }
  return chi_square;
}

}  // namespace

void LmEquations(const PeakFit& fit, int point_count, const ParameterTable& parameters, SquareTable& matrix,
                 ParameterTable& vector, float& chi_square, VectorWidth width) {
  const std::size_t count = At(fit.FitListCount);
  for (std::size_t j = 1; j <= count; ++j) {
    std::fill_n(matrix[j].begin() + 1, j, 0.0F);
    vector[j] = 0;
  }
  chi_square = 0;
  ProductSums sums(fit, width, matrix, vector);
  ModelChunk chunk;
  ChunkColumn residuals;
  for (chunk.First = 1; chunk.First <= point_count; chunk.First += ChunkSize) {
    chunk.Count = std::min(ChunkSize, point_count - chunk.First + 1);
    FillChunk(fit, parameters, width, chunk);
    chi_square = TakeResiduals(fit, chunk, chi_square, residuals);
    sums.Add(chunk, residuals);
  }
  sums.Finish();
  for (std::size_t j = 2; j <= count; ++j) {
    for (std::size_t k = 1; k < j; ++k) matrix[k][j] = matrix[j][k];
  }
}

StepFindings LmStep(PeakFit& fit, int point_count, int parameter_count, Minimiser& state, VectorWidth width) {
  if (state.Lambda < 0) {
    if (!CompleteList(fit, parameter_count)) return {.ImproperPermutation = true};
    if (!Open(fit, point_count, state, width)) return {.BeyondRange = true};
  }
  StepFindings findings;
  ParameterTable step{};
  TakeTrialSystem(fit.FitListCount, state, step);
  bool in_range = AllFinite(state.CovarMatrix, fit.FitListCount) && AllFinite(step, fit.FitListCount);
  if (in_range) {
    findings.SingularMatrix = !GaussJordan(state.CovarMatrix, step, fit.FitListCount);
  }
  if (state.Lambda == 0) {
    CovarianceSort(state.CovarMatrix, fit.FitList, fit.FitListCount, parameter_count);
    findings.BeyondRange = !Calculate(fit, point_count);
    return findings;
  }
  ParameterTable trial = fit.FitParam;
  in_range = in_range && Try(fit, point_count, trial, step, state, width);
  if (in_range && state.ChiSquare < fit.FitBestChi) {
    Accept(fit, trial, step, state);
  } else {
    in_range = Reject(fit, state) && in_range;
  }
  findings.BeyondRange = !in_range;
  return findings;
}

}  // namespace koprax
