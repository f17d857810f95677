// Powder profiles computed from published facts, for the files in examples/: silicon and corundum as a
// laboratory diffractometer with a copper tube would measure them. Writing the files is left to the program.
#pragma once

#include <string>
#include <vector>

namespace koprax::examples {

/// One line of a powder pattern: Miller indices and integrated intensity, 100 for the strongest.
struct Reflection {
  int H = 0;
  int K = 0;
  int L = 0;
  double Intensity = 0;
};

/// A phase with a hexagonal or cubic cell; a cubic one has C = A and gamma = 90 degrees.
struct Phase {
  bool Hexagonal = false;
  double A = 0;  ///< angstrom
  double C = 0;  ///< angstrom
  std::vector<Reflection> Reflections{};
};

/// A phase in a sample: how many counts the strongest line of the table gathers, over all its width.
struct Component {
  Phase What{};
  double Counts = 0;
};

struct Measurement {
  double First = 0;  ///< 2-theta of the first point, degrees
  double Step = 0;   ///< degrees
  int Points = 0;
  std::vector<Component> Sample{};
  unsigned Seed = 0;  ///< of the counting noise
};

/// A file of examples/ with its whole contents; lines end with CR LF.
struct ExampleFile {
  std::string Name{};
  std::string Contents{};
};

[[nodiscard]] Phase Silicon();
[[nodiscard]] Phase Corundum();

/// The distance of the lattice planes of a reflection, angstrom.
[[nodiscard]] double PlaneSpacing(const Phase& phase, const Reflection& reflection);

/// The counts at each point: lines of both K-alpha wavelengths on a background, with counting noise.
[[nodiscard]] std::vector<long> Counts(const Measurement& measurement);

/// All example files. They are the same, byte for byte, at every call.
[[nodiscard]] std::vector<ExampleFile> ExampleFiles();

}  // namespace koprax::examples
