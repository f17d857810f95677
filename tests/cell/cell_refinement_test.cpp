#include "cell/cell_refinement.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "cell/known_cell.h"
#include "forms/number_text.h"
#include "golden_file.h"

namespace koprax {
namespace {

constexpr float Lambda = 1.54056F;

/// The numbers behind a text: the first one and the one that follows it after three blanks.
std::array<double, 2> NumbersBehind(const std::string& text, const std::string& head) {
  const auto at = text.find(head) + head.size();
  return {LeadingNumber(text.substr(at)), LeadingNumber(text.substr(text.find("   ", at)))};
}

CycleFindings Refined(CellModel& cell, const AcceptedPeaks& peaks, int cycles = 6) {
  CycleFindings findings;
  for (int cycle = 0; cycle < cycles && !findings.Problem; ++cycle) findings = RefineCycle(cell, peaks);
  return findings;
}

/// Rows of h, k, l and 2-theta.
AcceptedPeaks ListedPeaks(const std::vector<std::array<float, 4>>& rows) {
  AcceptedPeaks peaks;
  for (const auto& [h, k, l, two_theta] : rows)
    AddPeak(peaks, static_cast<int>(h), static_cast<int>(k), static_cast<int>(l), two_theta);
  return peaks;
}

bool SameCell(const CellModel& one, const CellModel& other) {
  return one.CrystalSystem == other.CrystalSystem && one.CellDirect == other.CellDirect &&
         one.CellRecip == other.CellRecip && one.CellQuad == other.CellQuad;
}

// Positions in 32 bits give a cell to about 1E-06. A zero error z is found by one step from 0 in each cycle,
// so that its square is left: of 0.3 degrees, 0.3 * z in radians = 8E-04 of a degree, and 1E-05 of the
// lengths.
TEST(CellRefinement, FindsKnownCells) {
  std::mt19937 random(11);
  for (const KnownCell& known : KnownCells) {
    for (const double zero : {0.0, 0.02, -0.3}) {
      const AcceptedPeaks peaks = PeaksOf(known, Lambda, 40, random, zero);
      CellModel cell = known.Model(Lambda, 1.004);
      const CycleFindings findings = Refined(cell, peaks);
      ASSERT_FALSE(findings.Problem) << findings.Problem->Text;
      EXPECT_TRUE(findings.NegativeVariances.empty());
      const WideCell expected = known.Cosines();
      for (std::size_t k = 1; k <= 6; ++k) {
        const double scale = k <= 3 ? expected[k] : 1;
        EXPECT_NEAR(cell.CellDirect[k] / scale, expected[k] / scale, 1E-6 + 1.2E-4 * zero * zero) << zero;
      }
      EXPECT_NEAR(NumbersBehind(findings.Text, "Zero correction (2-theta) = ")[0], zero,
                  1E-4 + 0.0125 * zero * zero);
      // The three arrays of the cell belong together.
      CellModel again = cell;
      CellConvert(cell.CellRecip, again.CellDirect, CellConversion::Reciprocal);
      CellConvert(cell.CellRecip, again.CellQuad, CellConversion::QuadraticForm);
      EXPECT_TRUE(SameCell(cell, again));
    }
  }
}

// Of 400 runs a deviation is known to 1 / sqrt(800), 3.5 %: four times that. The errors are those of sin2
// theta, which is what is fitted, and far above the rounding.
TEST(CellRefinement, GivesTheDeviationsThatNoiseMakes) {
  constexpr int runs = 400;
  for (const KnownCell& known : KnownCells) {
    std::mt19937 random(13);
    // What one parameter makes alone: b in the monoclinic system, no length in the triclinic one.
    std::vector<std::string> heads{"Zero correction (2-theta) = "};
    if (known.System >= CrystalSystems::Monoclinic) heads.push_back("   b   = ");
    if (known.System == CrystalSystems::Monoclinic) heads.push_back(" beta  = ");
    if (known.System >= CrystalSystems::Orthorhombic) heads.push_back("   a   = ");
    if (known.System >= CrystalSystems::Orthorhombic) heads.push_back("   c   = ");
    std::vector<std::array<double, 3>> sums(heads.size());
    for (int run = 0; run < runs; ++run) {
      std::mt19937 same_reflections(1);
      const AcceptedPeaks peaks = PeaksOf(known, Lambda, 25, same_reflections, 0, 3E-4, 100, &random);
      CellModel cell = known.Model(Lambda);
      const CycleFindings findings = Refined(cell, peaks, 3);
      ASSERT_FALSE(findings.Problem);
      for (std::size_t q = 0; q < heads.size(); ++q) {
        const double value = NumbersBehind(findings.Text, heads[q])[0];
        const double deviation = q == 0 ? NumbersBehind(findings.Text, " Standard deviation = ")[0]
                                        : NumbersBehind(findings.Text, heads[q])[1];
        sums[q][0] += value / runs;
        sums[q][1] += value * value / runs;
        sums[q][2] += deviation * deviation / runs;
      }
    }
    for (std::size_t q = 0; q < heads.size(); ++q) {
      const double scatter = std::sqrt(sums[q][1] - sums[q][0] * sums[q][0]);
      EXPECT_NEAR(std::sqrt(sums[q][2]) / scatter, 1, 0.14) << static_cast<int>(known.System) << heads[q];
    }
  }
}

// The kept texts agree, digit by digit, with a formulation of the cycle that was written apart from this one.
TEST(CellRefinement, WritesACycleOfEachSystem) {
  const std::vector<std::array<int, 3>> reflections{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0},
                                                    {0, 1, 1}, {1, 0, 1}, {2, 0, 0}, {-1, 1, 1},
                                                    {0, 2, 1}, {1, 2, 0}, {2, 1, 1}, {0, 0, 2}};
  std::string texts;
  for (const KnownCell& known : KnownCells) {
    const WideCell recip = PlainReciprocal(known.Cosines());
    AcceptedPeaks peaks;
    for (const auto& [h, k, l] : reflections) {
      const double two_theta = 2 * std::asin(Lambda * std::sqrt(PlainQ(recip, h, k, l))) / Degree;
      const int error = peaks.AcceptedCount * 7 % 5 - 2;
      AddPeak(peaks, h, k, l, RoundDecimals(two_theta + 0.05 + 0.0123 * error, 4));
    }
    CellModel cell = known.Model(Lambda, 1.002);
    texts += RefineCycle(cell, peaks).Text + "\r\n\r\n";
  }
  ExpectGolden(texts, "cell/cycles.golden");
}

TEST(CellRefinement, StartsEachCycleWithoutAZeroShift) {
  std::mt19937 random(17);
  const KnownCell& hexagonal = KnownCells[4];
  const AcceptedPeaks peaks = PeaksOf(hexagonal, Lambda, 20, random, 0.1, 1E-4);
  CellModel cell = hexagonal.Model(Lambda, 1.002);
  ASSERT_FALSE(RefineCycle(cell, peaks).Problem);
  WideCell recip{};
  std::ranges::copy(cell.CellRecip, recip.begin());
  double factor = 0;
  for (std::size_t k = 1; k <= 20; ++k) {
    const double observed = std::pow(std::sin(peaks.AcceptedTheta2[k] / 2 * Degree) / Lambda, 2);
    const double q = PlainQ(recip, peaks.AcceptedH[k], peaks.AcceptedK[k], peaks.AcceptedL[k]);
    factor += 100 * std::abs(observed - q) / observed;
  }
  const std::string text = RefineCycle(cell, peaks).Text;
  EXPECT_NEAR(NumbersBehind(text, "before refinement = ")[0], factor, 1E-3);
  EXPECT_LT(NumbersBehind(text, "after refinement = ")[0], factor / 2);
  EXPECT_EQ(NumbersBehind(text, " gamma = ")[0], 120);
  EXPECT_EQ(NumbersBehind(text, "   a   = "), NumbersBehind(text, "   b   = "));
}

TEST(CellRefinement, StopsWithTheCellAsItWas) {
  std::mt19937 random(19);
  const AcceptedPeaks sound = PeaksOf(KnownCells[2], Lambda, 10, random);
  const auto none = static_cast<CrystalSystems>(0);
  const auto unknown = static_cast<CrystalSystems>(7);
  CellModel cell;
  AcceptedPeaks peaks;
  struct Case {
    std::string Words;
    std::function<void()> Change;
  };
  const std::vector<Case> cases{
      {"No peak", [&] { peaks.AcceptedCount = 0; }},
      {"Wrong definition of crystal system", [&] { cell.CrystalSystem = none; }},
      {"Wrong definition of crystal system", [&] { cell.CrystalSystem = unknown; }},
      {"no more than the parameters: 4 for 4", [&] { peaks.AcceptedCount = 4; }},
      {"start from is none", [&] { cell.CellRecip[2] = 0; }},
      {"Peak number 3 (182 ", [&] { peaks.AcceptedH[3] = 182; }},
      {"no reflection", [&] { peaks.AcceptedH[9] = peaks.AcceptedK[9] = peaks.AcceptedL[9] = 0; }},
      {"no position", [&] { peaks.AcceptedTheta2[1] = 0; }},
      {"no position", [&] { peaks.AcceptedTheta2[1] = std::numeric_limits<float>::quiet_NaN(); }},
      {"range of 32 bits", [&] { peaks.AcceptedTheta2[1] = 1E-30F; }},
      {"range of 32 bits", [&] { cell.CellLambda = 1E-30F; }},
      {"beyond the reach", [&] { cell.CellLambda = 20; }},
      // The cell reaches them, what the shifts make of it doesn't.
      {"beyond the reach",
       [&] {
         cell = KnownCell{CrystalSystems::Cubic, {0, 3.86, 3.86, 3.86, 90, 90, 90}}.Model(Lambda);
         peaks = ListedPeaks(
             {{1, 0, 0, 23}, {2, 0, 0, 47.6F}, {3, 0, 0, 74.4F}, {4, 0, 0, 107.5F}, {5, 0, 0, 180}});
       }},
      // (1 0 1) and (-1 0 1) lie so far apart that beta* would be imaginary.
      {"cell that is none",
       [&] {
         cell = KnownCells[1].Model(Lambda);
         peaks = ListedPeaks({{1, 0, 0, 9.4F},
                              {2, 0, 0, 19},
                              {0, 1, 0, 10},
                              {0, 2, 0, 20},
                              {0, 0, 1, 17.6F},
                              {0, 0, 2, 35.6F},
                              {1, 0, 1, 40},
                              {-1, 0, 1, 3}});
       }},
      {"singular", [&] { peaks.AcceptedH = peaks.AcceptedK; }}};
  for (const Case& bad : cases) {
    cell = KnownCells[2].Model(Lambda);
    peaks = sound;
    bad.Change();
    const CellModel before = cell;
    const CycleFindings findings = RefineCycle(cell, peaks);
    ASSERT_TRUE(findings.Problem) << bad.Words;
    EXPECT_NE(findings.Problem->Text.find(bad.Words), std::string::npos) << findings.Problem->Text;
    EXPECT_EQ(findings.Problem->Title, "Error");
    EXPECT_TRUE(SameCell(cell, before) && findings.Text.empty()) << bad.Words;
  }
}

TEST(CellRefinement, TellsPeaksThatDetermineTooLittleFromThoseThatDo) {
  std::mt19937 random(23);
  std::uniform_int_distribution<int> index(1, 3);
  for (const KnownCell& known : KnownCells) {
    const WideCell recip = PlainReciprocal(known.Cosines());
    for (const int count : {9, 40, 300}) {
      // One reflection, two of them in turn, orders of one, a row and a zone of the lattice.
      for (int kind = 0; kind < (known.System == CrystalSystems::Cubic ? 1 : 5); ++kind) {
        AcceptedPeaks peaks;
        for (int k = 0; k < count; ++k) {
          const int n = kind < 2 ? 1 : index(random);
          const std::array hkl{kind == 1 ? k % 2 : n,
                               kind == 3   ? 0
                               : kind == 4 ? index(random)
                                           : n,
                               kind >= 3 ? 0 : n};
          const double q = PlainQ(recip, hkl[0], hkl[1], hkl[2]);
          AddPeak(peaks, hkl[0], hkl[1], hkl[2], 2 * std::asin(0.7 * std::sqrt(q)) / Degree + 0.01);
        }
        CellModel cell = known.Model(0.7F, 1.001);
        const auto problem = RefineCycle(cell, peaks).Problem;
        EXPECT_TRUE(problem && problem->Text.find("singular") != std::string::npos)
            << static_cast<int>(known.System) << " " << count << " " << kind;
      }
      CellModel cell = known.Model(Lambda, 1.001);
      const AcceptedPeaks peaks = PeaksOf(known, Lambda, count, random, 0.02, 1E-5, count == 9 ? 140 : 60);
      EXPECT_FALSE(RefineCycle(cell, peaks).Problem);
    }
  }
}

}  // namespace
}  // namespace koprax
