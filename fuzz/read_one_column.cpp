// Files of one column: first X and step are written with 4 and 5 decimals.
#include "files/column_formats.h"
#include "fuzz/profile_law.h"

namespace koprax {
namespace {

/// Near the end of 32 bits the rounded step may lead beyond it.
bool ComesBack(const ProfileBuffer& buffer) { return std::abs(buffer.PermXMax) < 3.4e38F; }

double XRounding(const ProfileBuffer& buffer, std::size_t i) {
  const auto steps = static_cast<double>(i - 1);
  return DecimalsLost(buffer.PermXMin, 4) + steps * DecimalsLost(buffer.XStep, 5) +
         DigitsLost(buffer.PermX[i]);
}

constexpr ProfileFormat Format{.InputFormat = 2,
                               .Read = ReadOneColumn,
                               .ComesBack = ComesBack,
                               .XRounding = XRounding,
                               .YRounding = DigitsLost,
                               .SavesExactly = [](const ProfileBuffer&) { return true; }};

}  // namespace
}  // namespace koprax

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::Format)
