#include "files/save_rules.h"

#include <string>

namespace koprax {

namespace {

using Refusal = std::optional<SaveRefusal>;

constexpr double FullRange = 4096;  ///< channels of the detector

Refusal SaveEnds(const std::string& text, const std::string& title) {
  return SaveRefusal{.Why = {.Text = text, .Title = title}};
}

Refusal ChooseAnother(const std::string& text, const std::string& title, MessageIcon icon) {
  return SaveRefusal{.Why = {.Text = text, .Title = title, .Icon = icon}, .AnotherChoice = true};
}

Refusal WhyNotItalDat(const ProfileBuffer& buffer, FormatCodes code) {
  if (buffer.XStep == 0) {
    return SaveEnds("Profile with variable step cannot be saved as an ITAL STRUCTURES data file.",
                    "Variable step");
  }
  if (code == FormatCodes::CpsChannels) {
    return SaveEnds(" CPS-120 data cannot be saved as ITAL STRUCTURES data", "Error");
  }
  return std::nullopt;
}

Refusal WhyNotOneColumn(const ProfileBuffer& buffer, FormatCodes code) {
  if (code == FormatCodes::CpsChannels) {
    return SaveEnds(
        "File type \"CPS-120 (4096 channels)\" can be saved ONLY with its own format \r\n"
        "or in TWO COLUMNS format.",
        "Error");
  }
  if (code == FormatCodes::TwoColumns && buffer.XStep == 0) {
    return SaveEnds("Data with variable step cannot be saved as a \"one column\" file.", "Error");
  }
  return std::nullopt;
}

Refusal WhyNotAdf(const ProfileBuffer& buffer, FormatCodes code) {
  if (code != FormatCodes::CpsChannels) {
    return ChooseAnother("Files different from \"CPS-120 (4096 channels)\" cannot be saved in this format.",
                         "Error", MessageIcon::None);
  }
  // The limits of a profile outlive it where a reading into its buffer has failed.
  if (buffer.PermNpts == 0 || static_cast<double>(buffer.PermXMax) - buffer.PermXMin + 1 != FullRange) {
    return ChooseAnother(
        "Data files with CPS-120 format can ONLY be saved as '4096 channels' sized files.\r\n"
        "Files organized in 'channels' but with different dimensions, can be saved in TWO COLUMNS format.",
        "Warning", MessageIcon::Stop);
  }
  return std::nullopt;
}

Refusal WhyNotOwnFormat(FormatCodes code, FormatCodes own, const std::string& text) {
  if (code == own) return std::nullopt;
  return ChooseAnother(text, "Warning", MessageIcon::Stop);
}

}  // namespace

std::optional<SaveRefusal> WhyNotSaved(const ProfileBuffer& buffer, std::int16_t input_format) {
  const auto code = static_cast<FormatCodes>(buffer.FormatCode);
  switch (input_format) {
    case 1:
      return WhyNotItalDat(buffer, code);
    case 2:
      return WhyNotOneColumn(buffer, code);
    case 4:
      return WhyNotAdf(buffer, code);
    case 5:
      return WhyNotOwnFormat(code, FormatCodes::Philips,
                             "Data files loaded with PHILIPS format ONLY be saved in this way.");
    case 6:
      return WhyNotOwnFormat(code, FormatCodes::Siemens,
                             "Data files loaded with D0005 format ONLY be saved in this way.");
    default:
      return std::nullopt;
  }
}

}  // namespace koprax
