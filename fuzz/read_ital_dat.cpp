// ITAL STRUCTURES files: X follows from three numbers of 7 digits, the rest is written as it is shown.
#include "files/column_formats.h"
#include "fuzz/profile_law.h"

namespace koprax {
namespace {

/// Near the end of 32 bits the rounded step may lead beyond it.
bool ComesBack(const ProfileBuffer& buffer) { return std::abs(buffer.PermXMax) < 3.4e38F; }

double XRounding(const ProfileBuffer& buffer, std::size_t i) {
  const double way = static_cast<double>(i - 1) * buffer.XStep;
  return DigitsLost(buffer.FileXMin) + DigitsLost(way) + DigitsLost(buffer.PermX[i]);
}

/// Rounding first X or step moves the last X, which the next file then tells.
bool SavesExactly(const ProfileBuffer& buffer) {
  return IsShortNumber(buffer.FileXMin) && IsShortNumber(buffer.XStep);
}

constexpr ProfileFormat Format{.InputFormat = 1,
                               .Read = ReadItalDat,
                               .ComesBack = ComesBack,
                               .XRounding = XRounding,
                               .YRounding = DigitsLost,
                               .SavesExactly = SavesExactly,
                               .MayEndEarly = true};

}  // namespace
}  // namespace koprax

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::Format)
