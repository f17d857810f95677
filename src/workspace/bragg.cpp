#include "workspace/bragg.h"

#include <cmath>
#include <cstddef>

namespace koprax {

float SpacingOf(float two_theta, float wavelength) {
  const auto theta = static_cast<float>(two_theta * 0.5);
  const double sine = std::sin(static_cast<double>(theta) * RadiansPerDegree);
  return sine == 0 ? 0.0F : static_cast<float>(wavelength / (2 * sine));
}

float TwoThetaOfChannel(const std::array<double, 8>& coefficients, float channel, std::size_t last) {
  auto two_theta = static_cast<float>(coefficients[1]);
  for (std::size_t k = 2; k <= last; ++k) {
    if (coefficients[k] != 0) {
      const double power = std::pow(static_cast<double>(channel), static_cast<double>(k - 1));
      two_theta = static_cast<float>(two_theta + coefficients[k] * power);
    }
  }
  return two_theta;
}

}  // namespace koprax
