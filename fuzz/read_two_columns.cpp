// Files of two columns: X is written as it is shown, intensities with 2 decimals.
#include "files/column_formats.h"
#include "fuzz/profile_law.h"

namespace koprax {
namespace {

double XRounding(const ProfileBuffer& buffer, std::size_t i) { return DigitsLost(buffer.PermX[i]); }

constexpr ProfileFormat Format{.InputFormat = 3,
                               .Read = ReadTwoColumns,
                               .ComesBack = [](const ProfileBuffer&) { return true; },
                               .XRounding = XRounding,
                               .YRounding = [](double y) { return DecimalsLost(y, 2); },
                               .SavesExactly = [](const ProfileBuffer&) { return true; }};

}  // namespace
}  // namespace koprax

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::Format)
