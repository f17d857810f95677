#include "cell/cell_model.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "files/tokeniser.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

/// What turns the arc of half an angle into the whole one in degrees: 360 / pi in 64 bits.
constexpr double DegreesPerHalfRadian = 114.59156;

float SineOf(double cosine) { return static_cast<float>(std::sqrt(1 - cosine * cosine)); }

bool AreLengthsAndCosines(const CellNumbers& cell) {
  const auto is_length = [](float length) { return length > 0 && std::isfinite(length); };
  const auto is_cosine = [](float cosine) { return cosine > -1 && cosine < 1; };
  return std::all_of(cell.begin() + 1, cell.begin() + 4, is_length) &&
         std::all_of(cell.begin() + 4, cell.end(), is_cosine) && VolumeFactorOf(cell) > 0;
}

void TakeReciprocal(const CellNumbers& p, CellNumbers& target) {
  const float s4 = SineOf(p[4]);
  const float s5 = SineOf(p[5]);
  const float s6 = SineOf(p[6]);
  const double volume = VolumeOf(p);
  const auto length = [volume](double one, double other, float sine) {
    return static_cast<float>(one * other * sine / volume);
  };
  const auto cosine = [](double opposite, double one, double other, double sine_one, double sine_other) {
    return static_cast<float>((one * other - opposite) / (sine_one * sine_other));
  };
  target = {0,
            length(p[2], p[3], s4),
            length(p[1], p[3], s5),
            length(p[1], p[2], s6),
            cosine(p[4], p[5], p[6], s5, s6),
            cosine(p[5], p[4], p[6], s4, s6),
            cosine(p[6], p[4], p[5], s4, s5)};
}

void TakeQuadraticForm(const CellNumbers& p, CellNumbers& target) {
  const auto product = [](double factor, double one, double other, double cosine) {
    return static_cast<float>(factor * one * other * cosine);
  };
  target = {0,
            product(25, p[1], p[1], 1),
            product(25, p[2], p[2], 1),
            product(25, p[3], p[3], 1),
            product(50, p[2], p[3], p[4]),
            product(50, p[1], p[3], p[5]),
            product(50, p[1], p[2], p[6])};
}

}  // namespace

CrystalSystems CrystalSystemOf(std::string_view text) {
  LineWords words;
  SplitLine(text, words);
  const std::string_view name = words.Text(1).substr(0, 4);
  if (name == "Tric") return CrystalSystems::Triclinic;
  if (name == "Mono") return CrystalSystems::Monoclinic;
  if (name == "Orth") return CrystalSystems::Orthorhombic;
  if (name == "Tetr") return CrystalSystems::Tetragonal;
  if (name == "Trig") return CrystalSystems::TrigonalHexagonal;
  if (name == "Cubi") return CrystalSystems::Cubic;
  return CrystalSystems::None;
}

CellNumbers DirectCellOf(CrystalSystems system, const TypedCell& typed) {
  const auto length = [&typed](std::size_t k) { return static_cast<float>(typed[k]); };
  const auto cosine = [&typed](std::size_t k) {
    return static_cast<float>(std::cos(typed[k] * RadiansPerDegree));
  };
  switch (system) {
    case CrystalSystems::None:
      return {};
    case CrystalSystems::Triclinic:
      return {0, length(1), length(2), length(3), cosine(4), cosine(5), cosine(6)};
    case CrystalSystems::Monoclinic:
      return {0, length(1), length(2), length(3), 0, cosine(5), 0};
    case CrystalSystems::Orthorhombic:
      return {0, length(1), length(2), length(3), 0, 0, 0};
    case CrystalSystems::Tetragonal:
      return {0, length(1), length(1), length(3), 0, 0, 0};
    case CrystalSystems::TrigonalHexagonal:
      return {0, length(1), length(1), length(3), 0, 0, -0.5F};
    case CrystalSystems::Cubic:
      return {0, length(1), length(1), length(1), 0, 0, 0};
  }
  return {};
}

float VolumeFactorOf(const CellNumbers& cell) {
  const double alpha = cell[4];
  const double beta = cell[5];
  const double gamma = cell[6];
  return static_cast<float>(
      std::sqrt(1 - alpha * alpha - beta * beta - gamma * gamma + 2 * alpha * beta * gamma));
}

float VolumeOf(const CellNumbers& cell) {
  return static_cast<float>(static_cast<double>(cell[1]) * cell[2] * cell[3] * VolumeFactorOf(cell));
}

bool IsCell(const CellNumbers& cell) {
  if (!AreLengthsAndCosines(cell)) return false;
  CellNumbers reciprocal{};
  CellConvert(cell, reciprocal, CellConversion::Reciprocal);
  return AreLengthsAndCosines(reciprocal);
}

void CellConvert(const CellNumbers& source, CellNumbers& target, CellConversion mode) {
  const CellNumbers numbers = source;
  if (mode == CellConversion::Reciprocal) {
    TakeReciprocal(numbers, target);
  } else {
    TakeQuadraticForm(numbers, target);
  }
}

float QuadraticFormOf(const CellNumbers& quad, const Indices& indices) {
  const double h = indices.H;
  const double k = indices.K;
  const double l = indices.L;
  const auto q = static_cast<float>(0.01 * (quad[1] * h * h + quad[2] * k * k + quad[3] * l * l +
                                            quad[4] * k * l + quad[5] * h * l + quad[6] * h * k));
  // The terms of an oblique cell can leave a little less than nothing when they are rounded.
  return std::max(q, 0.0F);
}

std::optional<float> TwoThetaOf(const CellModel& cell, const Indices& indices) {
  const auto sine = static_cast<float>(
      cell.CellLambda * std::sqrt(static_cast<double>(QuadraticFormOf(cell.CellQuad, indices))));
  if (!(sine <= 1)) return std::nullopt;
  const float cosine = SineOf(sine);
  if (cosine == 0) return 180.0F;
  return static_cast<float>(std::atan(static_cast<double>(sine) / cosine) * DegreesPerHalfRadian);
}

}  // namespace koprax
