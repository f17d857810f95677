// The model of a cell: direct and reciprocal cell, the quadratic form that gives the position of a
// reflection, and what a crystal system leaves free. Generating reflections and refining are left to others.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace koprax {

/// What a crystal system leaves free. None until it is set, and for an unknown name.
enum class CrystalSystems : std::int16_t {
  None = 0,
  Triclinic = 1,
  Monoclinic = 2,  ///< b is the unique axis
  Orthorhombic = 3,
  Tetragonal = 4,
  TrigonalHexagonal = 5,
  Cubic = 6,
};

/// Six numbers of a cell, from 1: three lengths and three cosines, or the quadratic form A1 to A6.
using CellNumbers = std::array<float, 7>;

/// In 64 bits, as the formulas of a cell want it.
[[nodiscard]] constexpr double Squared(double number) { return number * number; }

struct CellModel {
  CrystalSystems CrystalSystem = CrystalSystems::None;
  CellNumbers CellDirect{};  ///< a, b, c in angstrom, then cos alpha, cos beta, cos gamma
  CellNumbers CellRecip{};   ///< a*, b*, c* in 1/angstrom, then the cosines of the reciprocal angles
  CellNumbers CellQuad{};    ///< Q = 0.01 (A1 h2 + A2 k2 + A3 l2 + A4 kl + A5 hl + A6 hk) = 1 / (4 d2)
  float CellLambda = 0;      ///< wavelength in angstrom
};

/// Three indices; whole numbers, but for a triplet as it was typed.
struct Indices {
  float H = 0;
  float K = 0;
  float L = 0;
};

/// The system that a text names by the first four characters of its first word.
[[nodiscard]] CrystalSystems CrystalSystemOf(std::string_view text);

/// What has been typed for a, b, c in angstrom and for the angles in degrees, from 1.
using TypedCell = std::array<double, 7>;
/// The direct cell of it. What the system ties or fixes isn't read; all 0 for CrystalSystems::None.
[[nodiscard]] CellNumbers DirectCellOf(CrystalSystems system, const TypedCell& typed);

/// W, the volume of a cell of edges of 1 with these cosines: sqrt(1 - cos2 alpha - cos2 beta - cos2 gamma
/// + 2 cos alpha cos beta cos gamma). No number where they are no cell's.
[[nodiscard]] float VolumeFactorOf(const CellNumbers& cell);
/// The volume of a cell in cubed units of its lengths.
[[nodiscard]] float VolumeOf(const CellNumbers& cell);

/// Whether these are the lengths and cosines of a cell, direct or reciprocal, whose reciprocal fits 32 bits
/// as well: lengths above 0, cosines within -1 and 1, a volume.
[[nodiscard]] bool IsCell(const CellNumbers& cell);

enum class CellConversion : std::int16_t {
  Reciprocal = 1,     ///< a direct cell to its reciprocal cell, or back
  QuadraticForm = 2,  ///< CellRecip to CellQuad
};
/// `source` has to be a cell.
void CellConvert(const CellNumbers& source, CellNumbers& target, CellConversion mode);

/// Q of a reflection, 1/(4 d2) in 1/angstrom2.
[[nodiscard]] float QuadraticFormOf(const CellNumbers& quad, const Indices& indices);
/// The 2-theta of a reflection in degrees; nothing if it lies beyond the reach of the wavelength.
[[nodiscard]] std::optional<float> TwoThetaOf(const CellModel& cell, const Indices& indices);

}  // namespace koprax
