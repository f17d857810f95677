#include "cell/reflection_model.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "workspace/bragg.h"

namespace koprax {

namespace {

/// Twice the derivative of Q with respect to each reciprocal number.
std::array<double, 7> QuadraticFormSlopes(const CellNumbers& recip, const Indices& indices) {
  const double h = indices.H;
  const double k = indices.K;
  const double l = indices.L;
  const double a = recip[1];
  const double b = recip[2];
  const double c = recip[3];
  return {0,
          h * h * a + h * l * c * recip[5] + h * k * b * recip[6],
          k * k * b + k * l * c * recip[4] + h * k * a * recip[6],
          l * l * c + k * l * b * recip[4] + h * l * a * recip[5],
          k * l * b * c,
          h * l * a * c,
          h * k * a * b};
}

}  // namespace

ReflectionModel ModelOf(const CellModel& cell, const Indices& indices, float observed, float zero) {
  const double lambda = cell.CellLambda;
  const double z = zero;
  ReflectionModel model;
  model.Q = QuadraticFormOf(cell.CellQuad, indices);
  model.Observed = static_cast<float>(Squared(std::sin(observed * 0.5 * RadiansPerDegree) / lambda));
  model.C2 = static_cast<float>(1 - model.Q * (lambda * lambda));
  const auto u = static_cast<float>(model.C2 / (lambda * lambda));
  const double cosine = std::sqrt(static_cast<double>(model.C2));
  model.Theta = static_cast<float>(
      cosine == 0 ? std::numbers::pi / 2 : std::atan(std::sqrt(1 - static_cast<double>(model.C2)) / cosine));
  const double theta = model.Theta;
  const auto t = static_cast<float>(std::sin(2 * theta) / (2 * lambda * lambda));
  model.Computed =
      static_cast<float>(Squared(std::cos(z)) * model.Q + Squared(std::sin(z)) * u + t * std::sin(2 * z));
  model.S2 = static_cast<float>(std::sin(2 * theta + 2 * z));
  model.S1 = static_cast<float>(std::sin(2 * theta) * 100);
  return model;
}

CellParameters DerivativesOf(const CellModel& cell, const Indices& indices, const ReflectionModel& model) {
  const auto common = static_cast<float>(model.S2 * 50.0 / model.S1);
  const std::array<double, 7> slopes = QuadraticFormSlopes(cell.CellRecip, indices);
  // What is tied together moves together.
  std::array<double, MaxCellParameters + 1> moved{};
  const ReciprocalParameters& table = ParametersOf(cell.CrystalSystem);
  for (std::size_t i = 1; i < slopes.size(); ++i) moved[table[i]] += slopes[i];
  CellParameters derivatives{};
  derivatives[1] = static_cast<float>(model.S2 / Squared(cell.CellLambda));
  for (std::size_t p = 2; p <= ParameterCountOf(cell.CrystalSystem); ++p) {
    derivatives[p] = static_cast<float>(common * moved[p]);
  }
  return derivatives;
}

}  // namespace koprax
