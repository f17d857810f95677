#include "files/calibration_file.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "files/tokeniser.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

CoefficientsRead IrregularFile(const std::string& file_name) {
  return {.Problem = Message{.Text = "Error!!\r\nSomething irregular in reading " + file_name + " file.",
                             .Title = "Error",
                             .Icon = MessageIcon::Stop}};
}

CoefficientsRead CoefficientOutOfRange(const std::string& file_name, int line, bool text_word) {
  const std::string bits = text_word ? "64" : "32";
  return {.Problem = UnreadableLine(file_name, line,
                                    "the coefficient is beyond the range of " + bits + "-bit numbers")
                         .Problem};
}

CoefficientsRead Finished(std::optional<Message> problem = {}) {
  return {.Irregular = false, .Problem = std::move(problem)};
}

CoefficientsRead Warned(const std::string& text) {
  return Finished(Message{.Text = text, .Title = "Warning", .Icon = MessageIcon::Exclamation});
}

CoefficientsRead FileTooLong(const std::string& file_name) {
  return Warned("The file " + file_name + " has " + std::to_string(FilePreview::MaxLines) +
                " lines or more. No coefficient was read.\r\nA calibration file has fewer lines: a title and "
                "up to " +
                std::to_string(MaxCoefficients) + " coefficients.");
}

CoefficientsRead TooManyCoefficients(const std::string& file_name) {
  const std::string most = std::to_string(MaxCoefficients);
  return Warned("The file " + file_name + " holds more than " + most + " coefficients.\r\nThe first " + most +
                " were read.");
}

}  // namespace

std::vector<std::string> CalibrationLines(std::string_view title, std::span<const float> coefficients) {
  std::vector<std::string> lines{FixedField(title, TitleWidth)};
  for (const float coefficient : coefficients) lines.push_back(GeneralText(coefficient));
  lines.insert(lines.end(), 3, "");
  return lines;
}

CoefficientsRead TakeCoefficients(const FilePreview& preview, const std::string& file_name,
                                  CalibrationTable& cal_par, TokenisedWords& words, const TellUser& tell) {
  if (preview.Problem) return Finished(preview.Problem);
  if (preview.NLines == 0) return FileTooLong(file_name);
  bool too_many = false;
  for (int i = 2; i <= preview.NLines; ++i) {
    std::int16_t n_text = 0;
    std::int16_t n_num = 0;
    TokeniseLine(words, preview.PreviewLine[static_cast<std::size_t>(i)], n_text, n_num, tell);
    if (n_text + n_num == 0) continue;
    if (n_text + n_num > 1) return IrregularFile(file_name);
    if (i - 1 > MaxCoefficients) {
      too_many = true;
      continue;
    }
    const double coefficient =
        n_text == 1 ? LeadingNumber(words.WordStr[1]) : static_cast<double>(words.WordVal[1]);
    if (!std::isfinite(coefficient)) return CoefficientOutOfRange(file_name, i, n_text == 1);
    cal_par[static_cast<std::size_t>(i) - 1] = coefficient;
  }
  return too_many ? TooManyCoefficients(file_name) : Finished();
}

}  // namespace koprax
