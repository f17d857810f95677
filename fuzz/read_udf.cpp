// PHILIPS files: X is built up from a first one and a step of 4 decimals, intensities are whole counts.
#include "files/philips_format.h"
#include "fuzz/profile_law.h"

namespace koprax {
namespace {

/// The fields of the header have 9 characters, 4 of them decimals; and only below 1000 do 32 bits keep the 3
/// decimals of X apart well enough that the first one is found again from the one before it.
bool FitsField(float value) { return std::abs(value) < 1000; }

bool ComesBack(const ProfileBuffer& buffer) {
  return FitsField(buffer.PermXMin) && FitsField(buffer.PermXMax) && FitsField(buffer.XStep);
}

bool HasFullStep(const ProfileBuffer& buffer) { return RoundDecimals(buffer.XStep, 4) == buffer.XStep; }

/// A step that loses decimals goes into every X, each of which is rounded again.
double XRounding(const ProfileBuffer& buffer, std::size_t i) {
  return HasFullStep(buffer) ? 0 : 0.00105 * static_cast<double>(i);
}

/// Without points the range that is written is no range of X.
bool SavesExactly(const ProfileBuffer& buffer) { return buffer.PermNpts > 0 && HasFullStep(buffer); }

constexpr ProfileFormat Format{.InputFormat = 5,
                               .Read = ReadUdf,
                               .ComesBack = ComesBack,
                               .XRounding = XRounding,
                               .YRounding = [](double y) { return DecimalsLost(y, 0); },
                               .SavesExactly = SavesExactly,
                               .SavesTitle = false};  // it is made of values that the header has rounded

}  // namespace
}  // namespace koprax

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::Format)
