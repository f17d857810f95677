// The least squares of a cell and of a zero correction from indexed peaks, one Gauss-Newton step a cycle.
// What the user is told where there is none, and when to stop, is left to the window.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cell/cell_model.h"

namespace koprax {

inline constexpr std::size_t MaxAccepted = 300;
inline constexpr int MaxIndex = 181;  ///< whose square fits 16 bits

/// The indexed peaks, from 1.
struct AcceptedPeaks {
  std::int16_t AcceptedCount = 0;
  std::array<std::int16_t, MaxAccepted + 1> AcceptedH{};
  std::array<std::int16_t, MaxAccepted + 1> AcceptedK{};
  std::array<std::int16_t, MaxAccepted + 1> AcceptedL{};
  std::array<float, MaxAccepted + 1> AcceptedTheta2{};  ///< observed 2-theta in degrees
};

/// What can stand in the way of a cycle.
enum class CycleObstacles {
  NoPeaks,
  NoSystem,        ///< of the six
  TooFewPeaks,     ///< no more than parameters
  NoStartingCell,  ///< lengths and angles of none
  IndexTooHigh,    ///< beyond MaxIndex
  NoReflection,    ///< 0 0 0
  NoPosition,      ///< between 0 and 180 degrees
  BeyondReach,     ///< of the wavelength
  SingularMatrix,  ///< the peaks don't determine the parameters
  LeadsToNoCell,   ///< the shifts do
  BeyondNumbers,   ///< of 32 bits
};

struct CycleObstacle {
  CycleObstacles What = CycleObstacles::NoPeaks;
  std::size_t Peak = 0;  ///< its number, from 1, where it is that of one peak
};

/// What a cycle has to tell.
struct CycleFindings {
  /// Why there was no cycle; the cell is as it was before.
  std::optional<CycleObstacle> Obstacle;
  /// The numbers, from 1, of the parameters whose variance came out below 0; their deviations are 0.
  std::vector<int> NegativeVariances;
  std::string Text;  ///< of a cycle that took place: peaks, factors, zero correction, cell
};

/// One step from the cell in hand to a better one.
[[nodiscard]] CycleFindings RefineCycle(CellModel& cell, const AcceptedPeaks& peaks);

}  // namespace koprax
