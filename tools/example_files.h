// The files of examples/: computed profiles in each of the formats, a card, a calibration. Writing them is
// left to the program.
#pragma once

#include <string>
#include <vector>

namespace koprax::examples {

/// A file of examples/ with its whole contents; lines end with CR LF.
struct ExampleFile {
  std::string Name{};
  std::string Contents{};
};

/// The zero error that silicon_monochromatic.txt was "measured" with, degrees of 2-theta.
inline constexpr double MonochromaticZeroError = 0.02;

/// All example files. They are the same, byte for byte, at every call.
[[nodiscard]] std::vector<ExampleFile> ExampleFiles();

}  // namespace koprax::examples
