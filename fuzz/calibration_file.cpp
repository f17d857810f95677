// Calibration files: the coefficients are read or a message says why not, and written as a calibration file
// they are read again.
#include "files/calibration_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/law.h"

namespace koprax {
namespace {

/// Stands for a coefficient that a file leaves as it was.
constexpr double Unread = 0.125;

/// Reads a file into a fresh table; nothing when the user had to be told something.
bool ReadsWithoutMessage(std::string_view text, CalibrationTable& table) {
  table.fill(Unread);
  TokenisedWords words;
  const auto read = TakeCoefficients(PreviewOf(text), "file.cal", table, words, [](const Message&) {});
  Require(!read.Irregular || read.Problem, "a file that can't be read has a message");
  Require(!read.Problem || !read.Problem->Text.empty(), "a message has words");
  Require(table[0] == Unread, "coefficients are numbered from 1");
  for (const double coefficient : table) Require(std::isfinite(coefficient), "coefficients are numbers");
  return !read.Problem;
}

std::string SavedFile(const std::vector<float>& coefficients) {
  std::string text;
  for (const std::string& line : CalibrationLines("title", coefficients)) text.append(line).append("\r\n");
  return text;
}

void CheckSavedFile(const CalibrationTable& table) {
  const std::vector<float> coefficients(table.begin() + 1, table.end());
  // One with the exponent letter D may have 64 bits, which a saved file has no room for.
  if (!std::ranges::all_of(coefficients, [](float each) { return std::isfinite(each); })) return;
  const std::string saved = SavedFile(coefficients);
  CalibrationTable again{};
  Require(ReadsWithoutMessage(saved, again), "a saved calibration can be read");
  for (std::size_t k = 1; k < table.size(); ++k) {
    const double coefficient = coefficients[k - 1];
    Require(std::abs(again[k] - coefficient) <= DigitsLost(coefficient), "a coefficient comes back");
  }
  Require(SavedFile({again.begin() + 1, again.end()}) == saved, "it is saved again with the same letters");
}

}  // namespace
}  // namespace koprax

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace koprax;
  CalibrationTable table{};
  if (ReadsWithoutMessage(InputText(data, size), table)) CheckSavedFile(table);
  return 0;
}
