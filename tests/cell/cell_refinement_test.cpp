#include "cell/cell_refinement.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "cell/known_cell.h"
#include "cell/reflection_model.h"
#include "forms/number_text.h"

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

AcceptedPeaks ListedPeaks(const std::vector<std::pair<std::array<std::int16_t, 3>, float>>& rows) {
  AcceptedPeaks peaks;
  for (const auto& [hkl, two_theta] : rows) {
    const auto at = static_cast<std::size_t>(++peaks.AcceptedCount);
    peaks.AcceptedH[at] = hkl[0];
    peaks.AcceptedK[at] = hkl[1];
    peaks.AcceptedL[at] = hkl[2];
    peaks.AcceptedTheta2[at] = two_theta;
  }
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
      AcceptedPeaks peaks = PeaksOf(known, Lambda, 25, same_reflections, 0, 0, 100);
      std::normal_distribution<double> error(0, 3E-4);
      for (std::size_t k = 1; k <= 25; ++k) {
        const double y = std::pow(std::sin(peaks.AcceptedTheta2[k] / 2 * Degree) / Lambda, 2) + error(random);
        peaks.AcceptedTheta2[k] = static_cast<float>(2 * std::asin(Lambda * std::sqrt(y)) / Degree);
      }
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

// The numbers are those of the same cycle in 64 bits, with the angle itself moved by the zero shift; only the
// last digit of the deviation of the zero correction, 0.078558 there, is beyond 32 bits.
TEST(CellRefinement, WritesACycle) {
  CellModel cell = KnownCell{CrystalSystems::Cubic, {0, 5.43, 5.43, 5.43, 90, 90, 90}}.Model(Lambda);
  const CycleFindings findings = RefineCycle(cell, ListedPeaks({{{1, 1, 1}, 28.5F},
                                                                {{2, 2, 0}, 47.31F},
                                                                {{3, 1, 1}, 56.186F},
                                                                {{4, 0, 0}, 69.225F},
                                                                {{3, 3, 1}, 76.353F},
                                                                {{4, 2, 2}, 88.105F}}));
  EXPECT_EQ(findings.Text,
            "  h   k   l   2th(Obs)    2th(Calc) ')\r\n"
            "1  1  1    28.5    28.479\r\n"
            "2  2  0    47.31    47.343\r\n"
            "3  1  1    56.186    56.165\r\n"
            "4  0  0    69.225    69.176\r\n"
            "3  3  1    76.353    76.424\r\n"
            "4  2  2    88.105    88.082\r\n"
            "Disagreement factor before refinement = 0.942\r\n"
            "Disagreement factor after refinement = 0.67\r\n"
            "\r\n"
            "\r\n"
            "Zero correction (2-theta) = 0.0313\r\n"
            " Standard deviation = 0.078559\r\n"
            "\r\n"
            "Direct parameters and standard deviations \r\n"
            "   a   = 5.4298   0.00513\r\n"
            "   b   = 5.4298   0.00513\r\n"
            "   c   = 5.4298   0.00513\r\n"
            " alpha = 90   0\r\n"
            " beta  = 90   0\r\n"
            " gamma = 90   0\r\n"
            "\r\n"
            "Cell volume and standard deviation\r\n"
            "   V  = 160.086   0.1514\r\n"
            "\r\n"
            "For a new refinement cycle click again on the \"Refine\" button.");
}

TEST(CellRefinement, StartsEachCycleWithoutAZeroShift) {
  std::mt19937 random(17);
  const KnownCell& hexagonal = KnownCells[4];
  const AcceptedPeaks peaks = PeaksOf(hexagonal, Lambda, 20, random, 0.1, 1E-4);
  CellModel cell = hexagonal.Model(Lambda, 1.002);
  ASSERT_FALSE(RefineCycle(cell, peaks).Problem);
  double factor = 0;
  for (std::size_t k = 1; k <= 20; ++k) {
    const ReflectionModel model =
        ModelOf(cell, {1.0F * peaks.AcceptedH[k], 1.0F * peaks.AcceptedK[k], 1.0F * peaks.AcceptedL[k]},
                peaks.AcceptedTheta2[k], 0);
    factor += 100 * std::abs(model.Residual()) / model.Observed;
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
  struct Case {
    std::string Words;
    std::function<void(CellModel&, AcceptedPeaks&)> Change;
  };
  const std::vector<Case> cases{
      {"No peak", [](CellModel&, AcceptedPeaks& peaks) { peaks.AcceptedCount = 0; }},
      {"Wrong definition of crystal system",
       [](CellModel& cell, AcceptedPeaks&) { cell.CrystalSystem = CrystalSystems::None; }},
      {"Wrong definition of crystal system",
       [](CellModel& cell, AcceptedPeaks&) { cell.CrystalSystem = static_cast<CrystalSystems>(7); }},
      {"4 accepted peaks for 4 parameters",
       [](CellModel&, AcceptedPeaks& peaks) { peaks.AcceptedCount = 4; }},
      {"start from is none", [](CellModel& cell, AcceptedPeaks&) { cell.CellRecip[2] = 0; }},
      {"Peak number 3 (182 ", [](CellModel&, AcceptedPeaks& peaks) { peaks.AcceptedH[3] = 182; }},
      {"no reflection",
       [](CellModel&, AcceptedPeaks& peaks) {
         peaks.AcceptedH[10] = peaks.AcceptedK[10] = peaks.AcceptedL[10] = 0;
       }},
      {"no position", [](CellModel&, AcceptedPeaks& peaks) { peaks.AcceptedTheta2[1] = 0; }},
      {"no position",
       [](CellModel&, AcceptedPeaks& peaks) {
         peaks.AcceptedTheta2[1] = std::numeric_limits<float>::quiet_NaN();
       }},
      {"range of 32 bits", [](CellModel&, AcceptedPeaks& peaks) { peaks.AcceptedTheta2[1] = 1E-30F; }},
      {"range of 32 bits", [](CellModel& cell, AcceptedPeaks&) { cell.CellLambda = 1E-30F; }},
      {"beyond the reach", [](CellModel& cell, AcceptedPeaks&) { cell.CellLambda = 20; }},
      // The cell reaches them, what the shifts make of it doesn't.
      {"beyond the reach",
       [](CellModel& cell, AcceptedPeaks& peaks) {
         cell = KnownCell{CrystalSystems::Cubic, {0, 4, 4, 4, 90, 90, 90}}.Model(Lambda);
         peaks = ListedPeaks(
             {{{1, 0, 0}, 25}, {{2, 0, 0}, 52}, {{3, 0, 0}, 83}, {{4, 0, 0}, 123}, {{5, 0, 0}, 170}});
       }},
      {"cell that is none",
       [](CellModel&, AcceptedPeaks& peaks) {
         for (std::size_t k = 1; k <= 10; ++k) {
           peaks.AcceptedTheta2[k] = static_cast<float>(peaks.AcceptedH[k] == 0 ? 5 * k : 1);
         }
       }},
      {"singular", [](CellModel&, AcceptedPeaks& peaks) {
         for (std::size_t k = 1; k <= 10; ++k) peaks.AcceptedL[k] = 0, peaks.AcceptedH[k] = 2;
       }}};
  for (const Case& bad : cases) {
    CellModel cell = KnownCells[2].Model(Lambda);
    AcceptedPeaks peaks = sound;
    bad.Change(cell, peaks);
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
  std::uniform_int_distribution<std::int16_t> index(1, 3);
  const auto position = [](const KnownCell& known, const AcceptedPeaks& peaks, std::size_t k) {
    const double q =
        PlainQ(PlainReciprocal(known.Cosines()), peaks.AcceptedH[k], peaks.AcceptedK[k], peaks.AcceptedL[k]);
    return static_cast<float>(2 * std::asin(0.7 * std::sqrt(q)) / Degree);
  };
  for (const KnownCell& known : KnownCells) {
    for (const int count : {9, 40, 300}) {
      // One reflection, two of them in turn, orders of one, a row and a zone of the lattice.
      for (int kind = 0; kind < 5; ++kind) {
        if (kind > 0 && known.System == CrystalSystems::Cubic) continue;
        AcceptedPeaks peaks;
        peaks.AcceptedCount = static_cast<std::int16_t>(count);
        for (std::size_t k = 1; k <= static_cast<std::size_t>(count); ++k) {
          const std::int16_t n = kind < 2 ? 1 : index(random);
          peaks.AcceptedH[k] = kind == 1 ? static_cast<std::int16_t>(k % 2) : n;
          peaks.AcceptedK[k] = kind == 3 ? std::int16_t{0} : kind == 4 ? index(random) : n;
          peaks.AcceptedL[k] = kind >= 3 ? std::int16_t{0} : n;
          peaks.AcceptedTheta2[k] = position(known, peaks, k) + 0.01F;
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
