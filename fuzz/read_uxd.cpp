// SIEMENS/BRUKER files: X is written with 4 decimals, intensities with 2.
#include "files/siemens_format.h"
#include "fuzz/profile_law.h"

namespace koprax {
namespace {

/// The field of a value has 12 characters, and a negative number with exponent may have 13.
bool FitsField(float value) { return GeneralText(value).size() <= 12; }

bool ComesBack(const ProfileBuffer& buffer) {
  return FitsField(buffer.XStep) && FitsField(buffer.Wavelength);
}

constexpr ProfileFormat Format{
    .InputFormat = 6,
    .Read = ReadUxd,
    .ComesBack = ComesBack,
    .XRounding = [](const ProfileBuffer& buffer, std::size_t i) { return DecimalsLost(buffer.PermX[i], 4); },
    .YRounding = [](double y) { return DecimalsLost(y, 2); },
    .SavesExactly = [](const ProfileBuffer&) { return true; }};

}  // namespace
}  // namespace koprax

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::Format)
