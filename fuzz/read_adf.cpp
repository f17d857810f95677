// Channel files: intensities are written with 1 decimal, and always 4096 of them.
#include "files/channel_format.h"
#include "fuzz/profile_law.h"

namespace koprax {
namespace {

constexpr ProfileFormat Format{
    .InputFormat = 4,
    .Read = ReadAdf,
    .ComesBack = [](const ProfileBuffer&) { return true; },
    .XRounding = [](const ProfileBuffer&, std::size_t) { return 0.0; },
    .YRounding = [](double y) { return DecimalsLost(y, 1); },
    .SavesExactly = [](const ProfileBuffer&) { return true; },
    .SavesTitle = false};  // it is made of header lines, the first of which is 4096

}  // namespace
}  // namespace koprax

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::Format)
