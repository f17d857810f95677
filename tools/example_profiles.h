// Powder profiles computed from published facts, for the files in examples/: silicon and corundum as a
// laboratory diffractometer with a copper tube would measure them. The layout of the files is left to others.
#pragma once

#include <optional>
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

/// A line of the tube: wavelength in angstrom and share of the intensity.
struct TubeLine {
  double Wavelength = 0;
  double Share = 0;
};

/// Copper K-alpha 1, angstrom.
inline constexpr double AlphaOne = 1.540596;

struct Measurement {
  std::vector<double> Angles{};  ///< 2-theta of each point as the instrument tells it, degrees
  double Step = 0;               ///< how much of 2-theta one point gathers, degrees
  std::vector<Component> Sample{};
  unsigned Seed = 0;  ///< of the counting noise
  /// Copper K-alpha 1, and K-alpha 2 at half its height.
  std::vector<TubeLine> Tube{{AlphaOne, 2.0 / 3.0}, {1.544493, 1.0 / 3.0}};
  double ZeroError = 0;  ///< what the instrument tells beyond the true 2-theta, degrees
};

[[nodiscard]] Phase Silicon();
[[nodiscard]] Phase Corundum();

/// The distance of the lattice planes of a reflection, angstrom.
[[nodiscard]] double PlaneSpacing(const Phase& phase, const Reflection& reflection);

/// The counts at each point: lines of all wavelengths of the tube on a background, with counting noise.
[[nodiscard]] std::vector<long> Counts(const Measurement& measurement);

/// 2-theta of points with a step, degrees.
[[nodiscard]] std::vector<double> EvenAngles(double first, double step, int points);

/// 2-theta in degrees by Bragg's law, or nothing where the planes are too close for the wavelength.
[[nodiscard]] std::optional<double> TwoTheta(double spacing, double wavelength);

}  // namespace koprax::examples
