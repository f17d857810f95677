#include "cell/reflection_list.h"

#include <gtest/gtest.h>

#include <limits>

#include "cell/known_cell.h"

namespace koprax {
namespace {

bool operator==(const Reflection& one, const Reflection& other) {
  return one.H == other.H && one.K == other.K && one.L == other.L && one.Theta2 == other.Theta2;
}

float Float(int index) { return static_cast<float>(index); }
std::int16_t Short(int index) { return static_cast<std::int16_t>(index); }

/// All triples, one after the other.
std::vector<Reflection> ByTrial(const CellModel& cell, float low, float high, std::size_t limit = 300) {
  const double largest = 2 * std::sin(high / 2 * Degree) / cell.CellLambda;
  const auto last = [&](std::size_t k) { return static_cast<int>(largest / cell.CellRecip[k] + 1); };
  const bool signed_h = cell.CrystalSystem <= CrystalSystems::Monoclinic;
  const bool signed_k = cell.CrystalSystem == CrystalSystems::Triclinic;
  std::vector<Reflection> reflections;
  for (int l = 0; l <= last(3); ++l) {
    for (int k = signed_k ? -last(2) : 0; k <= last(2); ++k) {
      for (int h = signed_h ? -last(1) : 0; h <= last(1); ++h) {
        if (k == 0 && l == 0 && h <= 0) continue;
        const auto two_theta = TwoThetaOf(cell, {Float(h), Float(k), Float(l)});
        if (!two_theta || *two_theta < low || *two_theta > high) continue;
        if (reflections.size() < limit) reflections.push_back({Short(h), Short(k), Short(l), *two_theta});
      }
    }
  }
  return reflections;
}

TEST(ReflectionList, IsThatOfATrialOfAllIndices) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> size(0.5, 3);
  std::uniform_real_distribution<double> angle(65, 115);
  std::uniform_real_distribution<float> position(-5, 180);
  for (int run = 0; run < 600; ++run) {
    KnownCell known = KnownCells[static_cast<std::size_t>(run) % 6];
    for (std::size_t k = 1; k <= 3; ++k) known.Typed[k] *= size(random);
    for (std::size_t k = 4; k <= 6; ++k) known.Typed[k] = angle(random);
    const CellModel cell = known.Model(1.54056F);
    if (!IsCell(cell.CellDirect)) continue;
    float low = position(random);
    float high = position(random) + 1;
    if (low > high) std::swap(low, high);
    if (run % 3 == 1) high = low + 0.5F;
    if (run % 3 == 2) high = 180;
    if (run % 7 == 6) {  // exactly one position, both ends included
      const auto all = ByTrial(cell, 0, 180, 40);
      low = high = all.back().Theta2;
    }
    const auto expected = ByTrial(cell, low, high, 301);
    const auto found = GenerateReflections(cell, low, high);
    const auto count = std::min(expected.size(), MaxGenerated);
    EXPECT_EQ(found.LimitReached, expected.size() > MaxGenerated);
    ASSERT_EQ(found.Reflections.size(), count) << run << " " << low << " " << high;
    for (std::size_t k = 0; k < count; ++k)
      EXPECT_TRUE(found.Reflections[k] == expected[k]) << run << " " << k;
    // The indices of an oblique cell are counted as far as the upper end reaches along each reciprocal axis.
    EXPECT_TRUE(run % 7 != 6 || run % 6 < 2 || !expected.empty());
  }
}

TEST(ReflectionList, StopsWhereItHasTo) {
  const float infinite = std::numeric_limits<float>::infinity();
  const float none = std::numeric_limits<float>::quiet_NaN();
  const CellModel cubic = KnownCells[5].Model(1.54056F);
  const std::vector<std::pair<float, float>> empty_ranges{
      {60, 59}, {1, 2}, {-20, -10}, {none, 50}, {10, none}, {10, infinite}, {-infinite, 50}};
  for (const auto& [low, high] : empty_ranges) {
    const auto found = GenerateReflections(cubic, low, high);
    EXPECT_TRUE(found.Reflections.empty() && !found.TooMany && !found.LimitReached) << low << " " << high;
  }
  EXPECT_EQ(GenerateReflections(cubic, -100, 1000).Reflections.size(), ByTrial(cubic, 0, 180).size());
  // Beyond 16 bits, and within them though a trial of all indices would take weeks; rows without a hit end.
  const CellModel huge = KnownCell{CrystalSystems::Cubic, {0, 1E5, 1E5, 1E5, 90, 90, 90}}.Model(1.54056F);
  EXPECT_TRUE(GenerateReflections(huge, 5, 90).TooMany);
  EXPECT_FALSE(GenerateReflections(huge, 0.0005F, 20).TooMany);
  const CellModel large = KnownCell{CrystalSystems::Triclinic, {0, 2000, 2500, 1500, 80, 95, 101}}.Model(1);
  EXPECT_TRUE(GenerateReflections(large, 179.9F, 180).LimitReached);
  const CellModel larger = KnownCell{CrystalSystems::Triclinic, {0, 2E4, 2E4, 2E4, 80, 95, 101}}.Model(1.54F);
  EXPECT_TRUE(GenerateReflections(larger, 60.001F, 60.001F).TooMany);
}

TEST(ReflectionList, SortsAndWritesRows) {
  std::vector<Reflection> rows{{1, 0, 0, 30}, {-10, 2, 101, 8.25F}, {0, 1, 0, 30}, {0, 0, 2, 100.12349F}};
  SortReflections(rows);
  EXPECT_EQ(ReflectionRows(rows),
            "   8.25  -10   2 101\r\n"
            "  30       1   0   0\r\n"
            "  30       0   1   0\r\n"
            " 100.123   0   0   2\r\n");
  EXPECT_EQ(ReflectionRows({}), "");
  // Many at one place, which keep their order.
  rows = ByTrial(KnownCells[5].Model(1.54056F), 0, 180);
  std::vector<Reflection> sorted = rows;
  std::ranges::stable_sort(sorted, {}, &Reflection::Theta2);
  SortReflections(rows);
  EXPECT_TRUE(
      std::ranges::equal(rows, sorted, [](const auto& one, const auto& other) { return one == other; }));
}

}  // namespace
}  // namespace koprax
