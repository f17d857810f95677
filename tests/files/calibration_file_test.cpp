// Coefficients as lines, and what is taken from the lines of a file.
#include "files/calibration_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace koprax {
namespace {

constexpr double Kept = -1;  // what stood in CalPar before

struct Outcome {
  CoefficientsRead Read;
  std::vector<double> CalPar;  // from CalPar(1) on, without what was kept behind the last one
};

Outcome Take(const std::string& contents) {
  CalibrationTable cal_par;
  cal_par.fill(Kept);
  TokenisedWords words;
  Outcome outcome{TakeCoefficients(PreviewOf(contents), "a.cal", cal_par, words, [](const Message&) {}), {}};
  outcome.CalPar.assign(cal_par.begin() + 1, cal_par.end());
  while (!outcome.CalPar.empty() && outcome.CalPar.back() == Kept) outcome.CalPar.pop_back();
  EXPECT_EQ(cal_par[0], Kept);
  return outcome;
}

std::string Told(const CoefficientsRead& read) { return read.Problem ? read.Problem->Text : ""; }

TEST(CalibrationFile, LinesAreATitleTheCoefficientsAndThreeEmptyOnes) {
  const std::vector<float> coefficients{-0.25F, 0.0293F, 1.234567E-9F, 3};
  const auto lines = CalibrationLines("Silicon", coefficients);
  EXPECT_EQ(lines, (std::vector<std::string>{"Silicon" + std::string(73, ' '), "-0.25", "0.0293",
                                             "1.234567E-09", "3", "", "", ""}));
  EXPECT_EQ(CalibrationLines(std::string(90, 'x'), {})[0], std::string(80, 'x'));
  // What was written comes back in all its bits.
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  const Outcome back = Take(text);
  EXPECT_FALSE(back.Read.Irregular);
  EXPECT_EQ(Told(back.Read), "");
  EXPECT_EQ(back.CalPar, (std::vector<double>(coefficients.begin(), coefficients.end())));
}

TEST(CalibrationFile, TakesOneWordALineIntoTheCoefficientOfThatLine) {
  const struct {
    const char* Contents;
    std::vector<double> CalPar;
  } cases[] = {
      {"", {}},
      {"1.5", {}},  // the title is never looked at
      {"many words, 1 2 3\r\n0.1\r\n2", {static_cast<double>(0.1F), 2}},
      {"t\n1\n\n\n4\n", {1, Kept, Kept, 4}},
      {"t\n0.1234567890123D1\n0.1234567890123E1\n-1d-3",
       {1.234567890123, static_cast<double>(1.234567890123F), -1E-3}},
      {"t\nabc\n1E\n12:30\n-", {0, 1, 12, 0}},
      {"t\n1\n2\n3\n4\n5\n6\n7\n", {1, 2, 3, 4, 5, 6, 7}},
  };
  for (const auto& one : cases) {
    const Outcome outcome = Take(one.Contents);
    EXPECT_FALSE(outcome.Read.Irregular) << one.Contents;
    EXPECT_EQ(Told(outcome.Read), "") << one.Contents;
    EXPECT_EQ(outcome.CalPar, one.CalPar) << one.Contents;
  }
}

TEST(CalibrationFile, StopsAtAnIrregularLineAndKeepsWhatItHasRead) {
  const std::string irregular = "Error!!\r\nSomething irregular in reading a.cal file.";
  const struct {
    const char* Contents;
    std::string Told;
    std::vector<double> CalPar;
  } cases[] = {
      {"t\n1\n2 3\n4", irregular, {1}},
      {"t\n1,2\n", irregular, {}},
      {"t\n1\n2 remark\n", irregular, {1}},
      {"t\n1\n2\n3\n4\n5\n6\n7\n8\n9 9", irregular, {1, 2, 3, 4, 5, 6, 7}},
      {"t\n5\n1E39\n6",
       "The file a.cal can't be read, line 3: the coefficient is beyond the range of 32-bit numbers.",
       {5}},
      {"t\n1D39\n1D400\n6",
       "The file a.cal can't be read, line 3: the coefficient is beyond the range of 64-bit numbers.",
       {1E39}},
  };
  for (const auto& one : cases) {
    const Outcome outcome = Take(one.Contents);
    EXPECT_TRUE(outcome.Read.Irregular) << one.Contents;
    EXPECT_EQ(Told(outcome.Read), one.Told) << one.Contents;
    EXPECT_EQ(outcome.CalPar, one.CalPar) << one.Contents;
  }
}

TEST(CalibrationFile, SaysWhatItsLimitsLeaveOut) {
  const Outcome eight = Take("t\n1\n2\n3\n4\n5\n6\n7\n\nabc\n9\n");
  EXPECT_FALSE(eight.Read.Irregular);
  EXPECT_EQ(Told(eight.Read), "The file a.cal holds more than 7 coefficients.\r\nThe first 7 were read.");
  EXPECT_EQ(eight.CalPar, (std::vector<double>{1, 2, 3, 4, 5, 6, 7}));

  std::string lines = "t\n1\n";
  for (int i = 3; i <= 29; ++i) lines += "\n";
  EXPECT_EQ(Take(lines).CalPar, (std::vector<double>{1}));
  const Outcome thirty = Take(lines + "\n");
  EXPECT_FALSE(thirty.Read.Irregular);
  EXPECT_EQ(
      Told(thirty.Read),
      "The file a.cal has 30 lines or more. No coefficient was read.\r\nA calibration file has fewer lines: "
      "a title and up to 7 coefficients.");
  EXPECT_EQ(thirty.CalPar, std::vector<double>());
}

}  // namespace
}  // namespace koprax
