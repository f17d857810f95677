// The parameters of a refinement: the zero shift first, then the reciprocal lengths and cosines that the
// crystal system leaves free. What they are fitted to is left to others.
#pragma once

#include <array>
#include <cstddef>

#include "cell/cell_model.h"

namespace koprax {

inline constexpr std::size_t MaxCellParameters = 7;

/// One number for each parameter, from 1.
using CellParameters = std::array<float, MaxCellParameters + 1>;
/// For each reciprocal number, from 1, the parameter that moves it, 0 for one that is fixed.
using ReciprocalParameters = std::array<std::size_t, 7>;

/// Numbers that the system ties together share a parameter. All are fixed without a system.
[[nodiscard]] const ReciprocalParameters& ParametersOf(CrystalSystems system);
/// With the zero shift; 1 for CrystalSystems::None.
[[nodiscard]] std::size_t ParameterCountOf(CrystalSystems system);

/// What belongs to each reciprocal number, of what belongs to each parameter; 0 where the system fixes it.
[[nodiscard]] CellNumbers ReciprocalNumbersOf(CrystalSystems system, const CellParameters& parameters);

}  // namespace koprax
