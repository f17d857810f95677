#include "cell/refinement_text.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr std::string_view LineEnd = "\r\n";

std::string Line(std::string_view head, const std::string& rest = "") {
  return std::string(head) + rest + std::string(LineEnd);
}

}  // namespace

std::string PeakHeading() { return Line("  h   k   l   2th(Obs)    2th(Calc) ')"); }

std::string PeakLine(std::int16_t h, std::int16_t k, std::int16_t l, float observed, float computed) {
  const std::string gap = "    ";
  return Line(std::to_string(h), "  " + std::to_string(k) + "  " + std::to_string(l) + gap +
                                     RoundedText(observed, 3) + gap + RoundedText(computed, 3));
}

std::string SummaryText(const CycleSummary& summary) {
  static constexpr std::array<std::string_view, 7> names{
      "", "   a   = ", "   b   = ", "   c   = ", " alpha = ", " beta  = ", " gamma = "};
  const DirectCell& cell = summary.Cell;
  const std::string gap = "   ";
  std::string text = Line("Disagreement factor before refinement = ", RoundedText(summary.FactorBefore, 3)) +
                     Line("Disagreement factor after refinement = ", RoundedText(summary.FactorAfter, 3)) +
                     Line("") + Line("") +
                     Line("Zero correction (2-theta) = ", RoundedText(summary.Zero, 4)) +
                     Line(" Standard deviation = ", RoundedText(summary.ZeroDeviation, 6)) + Line("") +
                     Line("Direct parameters and standard deviations ");
  for (std::size_t i = 1; i < names.size(); ++i) {
    text += Line(names[i], RoundedText(cell.Values[i], 4) + gap + RoundedText(cell.Deviations[i], 5));
  }
  return text + Line("") + Line("Cell volume and standard deviation") +
         Line("   V  = ", RoundedText(cell.Volume, 3) + gap + RoundedText(cell.VolumeDeviation, 4)) +
         Line("") + "For a new refinement cycle click again on the \"Refine\" button.";
}

}  // namespace koprax
