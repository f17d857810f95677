#include "cell/reflection_list.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>

#include "forms/fixed_text.h"
#include "forms/number_text.h"
#include "workspace/bragg.h"

namespace koprax {

namespace {

/// More rows of one k and l, and triples that are tried in them, than this, which take a good part of a
/// second, aren't gone through: those of a cell of thousands of angstrom in a range where hardly any of its
/// reflections lie.
constexpr long MostSteps = 4'000'000;

/// The indices that are run through.
struct IndexRange {
  int HFirst = 0;
  int HLast = 0;
  int KFirst = 0;
  int KLast = 0;
  int LLast = 0;
};

/// Fix(G / length) + 1, where G is the largest 1/d of the range; nothing if it doesn't fit 16 bits.
std::optional<int> LastIndex(double largest, float reciprocal_length) {
  const double last = Fix(largest / reciprocal_length) + 1;
  if (!(last <= std::numeric_limits<std::int16_t>::max())) return std::nullopt;
  return static_cast<int>(last);
}

std::optional<IndexRange> IndexRangeOf(const CellModel& cell, float high) {
  const auto largest =
      static_cast<float>(2 * std::sin(std::min(high, 180.0F) / 2.0 * RadiansPerDegree) / cell.CellLambda);
  const auto h = LastIndex(largest, cell.CellRecip[1]);
  const auto k = LastIndex(largest, cell.CellRecip[2]);
  const auto l = LastIndex(largest, cell.CellRecip[3]);
  if (!h || !k || !l) return std::nullopt;
  IndexRange range{.HLast = *h, .KLast = *k, .LLast = *l};
  if (cell.CrystalSystem == CrystalSystems::Triclinic) range.KFirst = -*k;
  if (cell.CrystalSystem == CrystalSystems::Triclinic || cell.CrystalSystem == CrystalSystems::Monoclinic) {
    range.HFirst = -*h;
  }
  return range;
}

/// The limits of Q that enclose a range of 2-theta, so wide that no rounding of 2-theta or Q leads out.
struct Shell {
  double Inner = 0;
  double Outer = 0;
};

Shell ShellOf(double wavelength, double low, double high) {
  const auto q_at = [wavelength](double two_theta) {
    return std::pow(std::sin(std::clamp(two_theta, 0.0, 180.0) / 2 * RadiansPerDegree) / wavelength, 2);
  };
  constexpr double relative = 1E-4;
  const double absolute = 1E-6 * q_at(180);
  return {.Inner = q_at(low) * (1 - relative) - absolute, .Outer = q_at(high) * (1 + relative) + absolute};
}

/// All h at one k and l that may lie in the shell: from First to Last, without those between the ends of the
/// hole.
struct Row {
  int First = 0;
  int Last = -1;
  int HoleFirst = 0;
  int HoleLast = 0;

  /// How many h there are to try, or a few more.
  [[nodiscard]] int Trials() const {
    const int hole = std::max(std::min(Last, HoleLast) - std::max(First, HoleFirst), 0);
    return Last < First ? 0 : Last - First + 2 - hole;
  }
};

/// Along a row Q is a parabola in h, so each limit is met at one distance from its vertex.
Row RowIn(const Shell& shell, const CellNumbers& quad, double k, double l, const IndexRange& range) {
  const double curvature = 0.01 * quad[1];
  const double vertex = -(quad[5] * l + quad[6] * k) / (2.0 * quad[1]);
  const double least =
      0.01 * (quad[2] * k * k + quad[3] * l * l + quad[4] * k * l) - curvature * vertex * vertex;
  if (!(least <= shell.Outer)) return {};
  const auto in_range = [&range](double h) {
    return static_cast<int>(std::clamp(h, range.HFirst - 1.0, range.HLast + 1.0));
  };
  const double outer = std::sqrt((shell.Outer - least) / curvature);
  Row row{.First = std::max(range.HFirst, in_range(std::ceil(vertex - outer))),
          .Last = std::min(range.HLast, in_range(std::floor(vertex + outer)))};
  if (least < shell.Inner) {
    const double inner = std::sqrt((shell.Inner - least) / curvature);
    row.HoleFirst = in_range(std::floor(vertex - inner));
    row.HoleLast = in_range(std::ceil(vertex + inner));
  }
  return row;
}

/// Adds what lies in the range; false when there is no room for one more.
bool AddRow(const CellModel& cell, const Row& row, int k, int l, float low, float high,
            std::vector<Reflection>& reflections) {
  for (int h = row.First; h <= row.Last; ++h) {
    if (h > row.HoleFirst && h < row.HoleLast) h = row.HoleLast;
    if (h > row.Last) break;
    if (k == 0 && l == 0 && h <= 0) continue;
    const auto two_theta =
        TwoThetaOf(cell, {static_cast<float>(h), static_cast<float>(k), static_cast<float>(l)});
    if (!two_theta || *two_theta < low || *two_theta > high) continue;
    if (reflections.size() == MaxGenerated) return false;
    reflections.push_back({.H = static_cast<std::int16_t>(h),
                           .K = static_cast<std::int16_t>(k),
                           .L = static_cast<std::int16_t>(l),
                           .Theta2 = *two_theta});
  }
  return true;
}

std::string AlignedIndex(std::int16_t index) { return " " + RightAlignText(std::to_string(index), 3); }

}  // namespace

GeneratedReflections GenerateReflections(const CellModel& cell, float low, float high) {
  GeneratedReflections found;
  if (!std::isfinite(low) || !std::isfinite(high) || low > high || high < 0 || low > 180) {
    return found;
  }
  const auto range = IndexRangeOf(cell, high);
  if (!range) {
    found.TooMany = true;
    return found;
  }
  const Shell shell = ShellOf(cell.CellLambda, low, high);
  long steps = 0;
  for (int l = 0; l <= range->LLast; ++l) {
    for (int k = range->KFirst; k <= range->KLast; ++k) {
      const Row row = RowIn(shell, cell.CellQuad, k, l, *range);
      steps += 1 + row.Trials();
      if (steps > MostSteps) return {.Reflections = {}, .TooMany = true};
      if (!AddRow(cell, row, k, l, low, high, found.Reflections)) {
        found.LimitReached = true;
        return found;
      }
    }
  }
  return found;
}

void SortReflections(std::vector<Reflection>& reflections) {
  std::ranges::stable_sort(reflections, {}, &Reflection::Theta2);
}

std::string ReflectionRows(const std::vector<Reflection>& reflections) {
  std::string rows;
  for (const Reflection& reflection : reflections) {
    rows += AlignDecimal(RoundedText(reflection.Theta2, 3), 8, 3) + AlignedIndex(reflection.H) +
            AlignedIndex(reflection.K) + AlignedIndex(reflection.L) + "\r\n";
  }
  return rows;
}

}  // namespace koprax
