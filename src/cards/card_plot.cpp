#include "cards/card_plot.h"

#include <cstddef>

namespace koprax {

XRange CardRange(const ProfileBuffer& card) {
  constexpr float degrees_around = 5;
  return {.Low = card.PermXMin - degrees_around, .High = card.PermXMax + degrees_around};
}

std::vector<Stick> CardSticks(const ProfileBuffer& card) {
  std::vector<Stick> sticks;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(card.WorkNpts); ++i) {
    sticks.push_back({.X = card.WorkX[i], .Height = card.WorkY[i]});
  }
  return sticks;
}

}  // namespace koprax
