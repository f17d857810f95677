#include "cell/cell_parameters.h"

#include <algorithm>

namespace koprax {

const ReciprocalParameters& ParametersOf(CrystalSystems system) {
  static constexpr std::array<ReciprocalParameters, 7> tables{{
      {},                     // no system
      {0, 2, 3, 4, 5, 6, 7},  // triclinic
      {0, 2, 3, 4, 0, 5, 0},  // monoclinic
      {0, 2, 3, 4, 0, 0, 0},  // orthorhombic
      {0, 2, 2, 3, 0, 0, 0},  // tetragonal
      {0, 2, 2, 3, 0, 0, 0},  // trigonal and hexagonal
      {0, 2, 2, 2, 0, 0, 0},  // cubic
  }};
  const auto number = static_cast<std::size_t>(system);
  return tables[number < tables.size() ? number : 0];
}

std::size_t ParameterCountOf(CrystalSystems system) {
  return std::max(std::size_t{1}, *std::ranges::max_element(ParametersOf(system)));
}

CellNumbers ReciprocalNumbersOf(CrystalSystems system, const CellParameters& parameters) {
  const ReciprocalParameters& table = ParametersOf(system);
  CellNumbers numbers{};
  for (std::size_t i = 1; i < numbers.size(); ++i) numbers[i] = table[i] == 0 ? 0 : parameters[table[i]];
  return numbers;
}

}  // namespace koprax
