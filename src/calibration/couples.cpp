#include "calibration/couples.h"

#include <cstddef>

#include "forms/number_text.h"

namespace koprax {

bool AddCouple(Couples& couples, float two_theta, float channel) {
  if (couples.CoupleCount >= MaxCouples) {
    return false;
  }
  const auto next = static_cast<std::size_t>(++couples.CoupleCount);
  couples.CoupledTheta2[next] = two_theta;
  couples.CoupledChannel[next] = channel;
  return true;
}

std::string CouplesText(const Couples& couples) {
  std::string text = "    2-theta     Channel \r\n";
  for (std::size_t i = 1; i <= static_cast<std::size_t>(couples.CoupleCount); ++i) {
    text += std::to_string(i) + ") " + RoundedText(couples.CoupledTheta2[i], 3) + "  " +
            RoundedText(couples.CoupledChannel[i], 2) + "\r\n";
  }
  return text;
}

}  // namespace koprax
