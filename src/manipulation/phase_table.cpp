#include "manipulation/phase_table.h"

#include <cmath>

namespace koprax {

namespace {

std::vector<Turn> EvenTurns(double angle, std::size_t count) {
  std::vector<Turn> turns(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double exact = static_cast<double>(i) * angle;
    turns[i] = {.Cos = std::cos(exact), .Sin = std::sin(exact)};
  }
  return turns;
}

}  // namespace

PhaseTable::PhaseTable(double angle, std::size_t largest)
    : fine_(EvenTurns(angle, FineTurns)),
      coarse_(EvenTurns(angle * static_cast<double>(FineTurns), largest / FineTurns + 1)) {}

}  // namespace koprax
