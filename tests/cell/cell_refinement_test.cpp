#include "cell/cell_refinement.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "cell/known_cell.h"
#include "cell/normal_equations.h"
#include "cell/refinement_messages.h"
#include "cell/reflection_model.h"
#include "forms/number_text.h"
#include "golden_file.h"

namespace koprax {
namespace {

constexpr float Lambda = 1.54056F;

/// The number behind a text.
double NumberBehind(const std::string& text, const std::string& head) {
  return LeadingNumber(text.substr(text.find(head) + head.size()));
}

CycleFindings Refined(CellModel& cell, const AcceptedPeaks& peaks, int cycles = 6) {
  CycleFindings findings;
  for (int cycle = 0; cycle < cycles && !findings.Obstacle; ++cycle) findings = RefineCycle(cell, peaks);
  return findings;
}

/// h, k, l and 2-theta of one after the other.
AcceptedPeaks ListedPeaks(const std::vector<double>& rows) {
  AcceptedPeaks peaks;
  const auto index = [&rows](std::size_t at) { return static_cast<int>(rows[at]); };
  for (std::size_t i = 0; i < rows.size(); i += 4) {
    AddPeak(peaks, index(i), index(i + 1), index(i + 2), rows[i + 3]);
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
      ASSERT_FALSE(findings.Obstacle);
      EXPECT_TRUE(findings.NegativeVariances.empty());
      const WideCell expected = known.Cosines();
      for (std::size_t k = 1; k <= 6; ++k) {
        const double scale = k <= 3 ? expected[k] : 1;
        EXPECT_NEAR(cell.CellDirect[k] / scale, expected[k] / scale, 1E-6 + 1.2E-4 * zero * zero) << zero;
      }
      EXPECT_NEAR(NumberBehind(findings.Text, "Zero correction (2-theta) = "), zero,
                  1E-4 + 0.0125 * zero * zero);
      // The three arrays of the cell belong together.
      CellModel again = cell;
      CellConvert(cell.CellRecip, again.CellDirect, CellConversion::Reciprocal);
      CellConvert(cell.CellRecip, again.CellQuad, CellConversion::QuadraticForm);
      EXPECT_TRUE(SameCell(cell, again));
    }
  }
}

/// The standard deviations of the parameters, `zero` in radians.
CellParameters DeviationsAt(const CellModel& cell, const AcceptedPeaks& peaks, double zero) {
  std::vector<CellParameters> slopes;
  std::vector<float> residuals;
  for (std::size_t k = 1; k <= static_cast<std::size_t>(peaks.AcceptedCount); ++k) {
    const auto index = [k](const auto& table) { return static_cast<float>(table[k]); };
    const Indices hkl{index(peaks.AcceptedH), index(peaks.AcceptedK), index(peaks.AcceptedL)};
    const auto model = ModelOf(cell, hkl, peaks.AcceptedTheta2[k], static_cast<float>(zero));
    slopes.push_back(DerivativesOf(cell, hkl, model));
    residuals.push_back(model.Residual());
  }
  const std::size_t count = ParameterCountOf(cell.CrystalSystem);
  const auto solution = SolveNormalEquations(slopes, residuals, count);
  return solution ? DeviationsOf(solution->Inverse, residuals, count).Sigma : CellParameters{};
}

// Of 400 runs a deviation is known to 1 / sqrt(800), 3.5 %: four times that. The errors are those of sin2
// theta, which is what is fitted, and far above the rounding.
TEST(CellRefinement, GivesTheDeviationsThatNoiseMakes) {
  constexpr int runs = 400;
  for (const KnownCell& known : KnownCells) {
    std::mt19937 random(13);
    std::array<std::array<double, 3>, MaxCellParameters + 1> sums{};
    for (int run = 0; run < runs; ++run) {
      std::mt19937 same_reflections(1);
      const AcceptedPeaks peaks = PeaksOf(known, Lambda, 25, same_reflections, 0, 3E-4, 100, &random);
      CellModel cell = known.Model(Lambda);
      const std::string text = Refined(cell, peaks, 3).Text;
      const double zero = NumberBehind(text, "Zero correction (2-theta) = ") * Degree / 2;
      std::array<double, MaxCellParameters + 1> found{0, zero};
      for (std::size_t i = 1; i <= 6; ++i) found[ParametersOf(known.System)[i]] = cell.CellRecip[i];
      const CellParameters sigma = DeviationsAt(cell, peaks, zero);
      // The cycle has its matrix from before the last shifts.
      ASSERT_NEAR(NumberBehind(text, " Standard deviation = ") / (2 * sigma[1] / Degree), 1, 0.01);
      for (std::size_t p = 1; p <= ParameterCountOf(known.System); ++p) {
        sums[p][0] += found[p] / runs;
        sums[p][1] += found[p] * found[p] / runs;
        sums[p][2] += static_cast<double>(sigma[p]) * sigma[p] / runs;
      }
    }
    for (std::size_t p = 1; p <= ParameterCountOf(known.System); ++p) {
      const double scatter = std::sqrt(sums[p][1] - sums[p][0] * sums[p][0]);
      EXPECT_NEAR(std::sqrt(sums[p][2]) / scatter, 1, 0.14) << static_cast<int>(known.System) << " " << p;
    }
  }
}

// The kept texts agree, digit by digit, with a formulation of the cycle that was written apart from this one.
TEST(CellRefinement, WritesACycleWithoutTheZeroOfTheOneBefore) {
  const std::vector<std::array<int, 3>> reflections{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0},
                                                    {0, 1, 1}, {1, 0, 1}, {2, 0, 0}, {-1, 1, 1},
                                                    {0, 2, 1}, {1, 2, 0}, {2, 1, 1}, {0, 0, 2}};
  std::string texts;
  for (const std::size_t system : {0U, 1U, 4U, 5U}) {
    const KnownCell& known = KnownCells[system];
    const WideCell recip = PlainReciprocal(known.Cosines());
    AcceptedPeaks peaks;
    for (const auto& [h, k, l] : reflections) {
      const double two_theta = 2 * std::asin(Lambda * std::sqrt(PlainQ(recip, h, k, l))) / Degree;
      const int error = peaks.AcceptedCount * 7 % 5 - 2;
      AddPeak(peaks, h, k, l, RoundDecimals(two_theta + 0.05 + 0.0123 * error, 4));
    }
    CellModel cell = known.Model(Lambda, 1.002);
    texts += RefineCycle(cell, peaks).Text + "\r\n\r\n";
    if (system == 5) texts += RefineCycle(cell, peaks).Text + "\r\n";
  }
  ExpectGolden(texts, "cell/cycles.golden");
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
      {"index beyond 181", [&] { peaks.AcceptedL[10] = -182; }},
      {"Peak number 9 (0 0 0) is no reflection",
       [&] { peaks.AcceptedH[9] = peaks.AcceptedK[9] = peaks.AcceptedL[9] = 0; }},
      {"between 0 and 180 degrees", [&] { peaks.AcceptedTheta2[1] = 0; }},
      {"between 0 and 180 degrees", [&] { peaks.AcceptedTheta2[1] = 180.0001F; }},
      {"between 0 and 180 degrees",
       [&] { peaks.AcceptedTheta2[1] = std::numeric_limits<float>::quiet_NaN(); }},
      {"range of 32 bits", [&] { peaks.AcceptedTheta2[1] = 1E-30F; }},
      {"range of 32 bits", [&] { cell.CellLambda = 1E-30F; }},
      {"beyond the reach", [&] { cell.CellLambda = 20; }},
      // The cell reaches them, what the shifts make of it doesn't.
      {"beyond the reach",
       [&] {
         cell = KnownCell{CrystalSystems::Cubic, {0, 3.86, 3.86, 3.86, 90, 90, 90}}.Model(Lambda);
         peaks = ListedPeaks({1, 0, 0, 23, 2, 0, 0, 47.6, 3, 0, 0, 74.4, 4, 0, 0, 107.5, 5, 0, 0, 180});
       }},
      // (1 0 1) and (-1 0 1) lie so far apart that beta* would be imaginary.
      {"cell that is none",
       [&] {
         cell = KnownCells[1].Model(Lambda);
         peaks = ListedPeaks({1, 0, 0, 9.4,  2, 0, 0, 19,   0, 1, 0, 10, 0,  2, 0, 20,
                              0, 0, 1, 17.6, 0, 0, 2, 35.6, 1, 0, 1, 40, -1, 0, 1, 3});
       }},
      {"singular", [&] { peaks.AcceptedH = peaks.AcceptedK; }}};
  for (const Case& bad : cases) {
    cell = KnownCells[2].Model(Lambda);
    peaks = sound;
    bad.Change();
    const CellModel before = cell;
    const CycleFindings findings = RefineCycle(cell, peaks);
    ASSERT_TRUE(findings.Obstacle) << bad.Words;
    const Message message = MessageOf(*findings.Obstacle, peaks, cell.CrystalSystem);
    EXPECT_NE(message.Text.find(bad.Words), std::string::npos) << message.Text;
    EXPECT_EQ(message.Title, "Error");
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
      for (std::size_t kind = 0; kind < (known.System == CrystalSystems::Cubic ? 1 : 5); ++kind) {
        AcceptedPeaks peaks;
        for (int k = 0; k < count; ++k) {
          const int n = index(random);
          const int m = index(random);
          const std::array<std::array<int, 3>, 5> kinds{
              {{1, 1, 1}, {k % 2, 1, 1}, {n, n, n}, {n, 0, 0}, {n, m, 0}}};
          const auto& hkl = kinds[kind];
          const double q = PlainQ(recip, hkl[0], hkl[1], hkl[2]);
          AddPeak(peaks, hkl[0], hkl[1], hkl[2], 2 * std::asin(0.7 * std::sqrt(q)) / Degree + 0.01);
        }
        CellModel cell = known.Model(0.7F, 1.001);
        const auto obstacle = RefineCycle(cell, peaks).Obstacle;
        EXPECT_EQ(obstacle.value_or(CycleObstacle{}).What, CycleObstacles::SingularMatrix)
            << static_cast<int>(known.System) << " " << count << " " << kind;
      }
      CellModel cell = known.Model(Lambda, 1.001);
      const AcceptedPeaks peaks = PeaksOf(known, Lambda, count, random, 0.02, 1E-5, count == 9 ? 140 : 60);
      EXPECT_FALSE(RefineCycle(cell, peaks).Obstacle);
    }
  }
}

}  // namespace
}  // namespace koprax
