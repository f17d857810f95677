#include "tools/example_profiles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace koprax::examples {
namespace {

/// Beyond this many widths from its line a peak adds less than a tenth of a count.
constexpr double ReachInWidths = 60;

double Radian(double degrees) { return degrees * std::numbers::pi / 180; }

/// The width at half height of a line at this 2-theta, degrees: the quadratic in tan(theta) of
/// G. Caglioti, A. Paoletti, F. P. Ricci, Nucl. Instrum. 3 (1958) 223, for a well aligned instrument.
double FullWidth(double two_theta) {
  const double tangent = std::tan(Radian(two_theta) / 2);
  return std::sqrt(0.0040 * tangent * tangent - 0.0022 * tangent + 0.0062);
}

/// How much wider the low-angle flank of a line is than its mean, as a share: the axial divergence of
/// the beam drags out the left flank at low angles, and goes with cot(2-theta).
double LeftExcess(double two_theta) { return 0.12 / std::tan(Radian(two_theta)); }

/// A pseudo-Voigt of height 1, half Gaussian and half Lorentzian, of the given full width.
double PseudoVoigt(double distance, double full_width) {
  const double u = 2 * distance / full_width;
  return 0.5 * std::exp(-std::numbers::ln2 * u * u) + 0.5 / (1 + u * u);
}

/// The area under PseudoVoigt for a full width of 1.
const double PseudoVoigtArea =
    0.25 * std::sqrt(std::numbers::pi / std::numbers::ln2) + 0.25 * std::numbers::pi;

/// The counts of background in one step: air scatter that falls off, and a gentle rise to high angles.
double Background(double two_theta) { return 45 + 260 * std::exp(-(two_theta - 15) / 22) + 0.12 * two_theta; }

/// Adds one line to the expected counts. Each flank has a width of its own, and the area stays.
void AddLine(const Measurement& measurement, double position, double area, std::vector<double>& expected) {
  const double width = FullWidth(position);
  const double excess = LeftExcess(position);
  const double height = area / (width * PseudoVoigtArea);
  const double reach = ReachInWidths * width;
  for (std::size_t i = 0; i < measurement.Angles.size(); ++i) {
    const double distance = measurement.Angles[i] - position;
    if (std::abs(distance) < reach) {
      const double flank = width * (distance < 0 ? 1 + excess : 1 - excess);
      expected[i] += height * PseudoVoigt(distance, flank);
    }
  }
}

void AddPhase(const Measurement& measurement, const Component& component, std::vector<double>& expected) {
  for (const Reflection& reflection : component.What.Reflections) {
    const double spacing = PlaneSpacing(component.What, reflection);
    const double area = component.Counts * measurement.Step * reflection.Intensity / 100;
    for (const TubeLine& line : measurement.Tube) {
      if (const auto position = TwoTheta(spacing, line.Wavelength)) {
        AddLine(measurement, *position + measurement.ZeroError, area * line.Share, expected);
      }
    }
  }
}

/// A plain generator with the same numbers on every machine: D. H. Lehmer's multiplicative congruence
/// with the modulus 2^31 - 1 and the multiplier 48271.
class UniformNumbers {
 public:
  explicit UniformNumbers(unsigned seed) : state_(seed) {}

  /// Between 0 and 1, both excluded.
  double Next() {
    state_ = state_ * 48271 % 2147483647;
    return static_cast<double>(state_) / 2147483647.0;
  }

 private:
  std::uint64_t state_;
};

/// A number of mean 0 and deviation 1, near enough to normal for counts above a few dozen: the sum of
/// twelve uniform ones. It needs no library function, so the noise is the same everywhere.
double NormalNumber(UniformNumbers& numbers) {
  double sum = -6;
  for (int i = 0; i < 12; ++i) {
    sum += numbers.Next();
  }
  return sum;
}

}  // namespace

/// The cell as certified for the powder standard SRM 640e of the National Institute of Standards and
/// Technology (0.5431179 nm); relative intensities from National Bureau of Standards Monograph 25,
/// section 13 (1976) 35, as measured with copper radiation, the Lorentz-polarisation factor in them.
Phase Silicon() {
  return {.A = 5.431179,
          .C = 5.431179,
          .Reflections = {{1, 1, 1, 100},
                          {2, 2, 0, 55},
                          {3, 1, 1, 30},
                          {4, 0, 0, 6},
                          {3, 3, 1, 11},
                          {4, 2, 2, 12},
                          {5, 1, 1, 6},
                          {4, 4, 0, 3},
                          {5, 3, 1, 7},
                          {6, 2, 0, 8},
                          {5, 3, 3, 3}}};
}

/// The cell as certified for SRM 676a (0.4759355 nm, 1.299231 nm); relative intensities from National
/// Bureau of Standards Circular 539, volume 9 (1960) 3, as measured with copper radiation, the
/// Lorentz-polarisation factor in them. Lines weaker than 1 are left out.
Phase Corundum() {
  return {.Hexagonal = true,
          .A = 4.759355,
          .C = 12.99231,
          .Reflections = {{0, 1, 2, 75}, {1, 0, 4, 90}, {1, 1, 0, 40}, {1, 1, 3, 100}, {2, 0, 2, 2},
                          {0, 2, 4, 45}, {1, 1, 6, 80}, {2, 1, 1, 4},  {1, 2, 2, 6},   {0, 1, 8, 8},
                          {2, 1, 4, 30}, {3, 0, 0, 50}, {1, 2, 5, 2},  {2, 0, 8, 4},   {1, 0, 10, 16},
                          {1, 1, 9, 8},  {2, 2, 0, 8},  {2, 2, 3, 6},  {3, 1, 2, 2},   {1, 2, 8, 6},
                          {0, 2, 10, 4}, {1, 3, 4, 8},  {2, 2, 6, 14}, {0, 4, 2, 2}}};
}

double PlaneSpacing(const Phase& phase, const Reflection& reflection) {
  const double h = reflection.H;
  const double k = reflection.K;
  const double l = reflection.L;
  const double in_plane = phase.Hexagonal ? 4 * (h * h + h * k + k * k) / 3 : h * h + k * k;
  return 1 / std::sqrt(in_plane / (phase.A * phase.A) + l * l / (phase.C * phase.C));
}

std::vector<long> Counts(const Measurement& measurement) {
  std::vector<double> expected;
  expected.reserve(measurement.Angles.size());
  for (const double angle : measurement.Angles) {
    expected.push_back(Background(angle));
  }
  for (const Component& component : measurement.Sample) {
    AddPhase(measurement, component, expected);
  }
  // The deviation of a count is the square root of its expectation.
  UniformNumbers numbers(measurement.Seed);
  std::vector<long> counts;
  counts.reserve(expected.size());
  for (const double mean : expected) {
    counts.push_back(std::max(0L, std::lround(mean + std::sqrt(mean) * NormalNumber(numbers))));
  }
  return counts;
}

std::vector<double> EvenAngles(double first, double step, int points) {
  std::vector<double> angles;
  angles.reserve(static_cast<std::size_t>(points));
  for (int i = 0; i < points; ++i) {
    angles.push_back(first + i * step);
  }
  return angles;
}

std::optional<double> TwoTheta(double spacing, double wavelength) {
  const double sine = wavelength / (2 * spacing);
  if (sine >= 1) {
    return std::nullopt;
  }
  return 2 * std::asin(sine) * 180 / std::numbers::pi;
}
}  // namespace koprax::examples
