// Coefficients as lines, and what is taken from the lines of a file.
#include "files/calibration_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace koprax {
namespace {

TEST(CalibrationFile, EachLineIsTheCoefficientOfItsPlace) {
  const double kept = -1;  // what stood in CalPar before
  const auto cut = [](double value) { return static_cast<double>(static_cast<float>(value)); };
  const std::vector<double> seven{1, 2, 3, 4, 5, 6, 7};
  const std::string range = "The file a.cal can't be read, line 3: the coefficient is beyond the range of ";
  const std::string irregular = "Error!!\r\nSomething irregular in reading a.cal file.";
  std::string lines = "t\n1\n";
  for (int i = 3; i <= 29; ++i) lines += "\n";
  const struct {
    std::string Contents;
    std::vector<double> CalPar;
    std::string Told{};
    bool Irregular = false;
  } cases[] = {
      {"", {}},
      {"1.5", {}},  // the title is never looked at
      {"words, 1 2 3\r\n0.1\r\n2", {cut(0.1), 2}},
      {"t\n1\n\n\n4\n", {1, kept, kept, 4}},
      {"t\n0.1234567890123D1\n0.1234567890123E1\n-1d-3", {1.234567890123, cut(1.234567890123), -1E-3}},
      {"t\nabc\n1E\n12:30\n-", {0, 1, 12, 0}},
      {"t\n1\n2\n3\n4\n5\n6\n7\n", seven},
      {"t\n1\n2 3\n4", {1}, irregular, true},
      {"t\n1,2\n", {}, irregular, true},
      {"t\n1\n2\n3\n4\n5\n6\n7\n8\n9 remark", seven, irregular, true},
      {"t\n5\n1E39\n6", {5}, range + "32-bit numbers.", true},
      {"t\n1D39\n1D400\n6", {1E39}, range + "64-bit numbers.", true},
      {"t\n1\n2\n3\n4\n5\n6\n7\n\nabc\n1E39\n", seven,
       "The file a.cal holds more than 7 coefficients.\r\nThe first 7 were read."},
      {lines, {1}},
      {lines + "\n",
       {},
       "The file a.cal has 30 lines or more. No coefficient was read.\r\nA calibration file has fewer "
       "lines: a title and up to 7 coefficients."},
  };
  for (const auto& one : cases) {
    CalibrationTable cal_par;
    cal_par.fill(kept);
    CalibrationTable expected = cal_par;
    std::ranges::copy(one.CalPar, expected.begin() + 1);
    TokenisedWords words;
    const auto tell = [](const Message& message) { ADD_FAILURE() << message.Text; };
    const CoefficientsRead read = TakeCoefficients(PreviewOf(one.Contents), "a.cal", cal_par, words, tell);
    EXPECT_EQ(cal_par, expected) << one.Contents;
    EXPECT_EQ(read.Problem ? read.Problem->Text : "", one.Told) << one.Contents;
    EXPECT_EQ(read.Irregular, one.Irregular) << one.Contents;
  }
}

}  // namespace
}  // namespace koprax
