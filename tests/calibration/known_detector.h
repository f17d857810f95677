// A detector of 4096 channels whose calibration is known: a cubic that rises throughout.
#pragma once

#include <array>

namespace koprax::known_detector {

/// The constant coefficient first.
inline constexpr std::array<double, 4> Cubic{8.25, 0.02715, -1.5e-7, 2e-11};

inline double TwoThetaAt(double channel) {
  return Cubic[0] + channel * (Cubic[1] + channel * (Cubic[2] + channel * Cubic[3]));
}

/// Where on the detector a 2-theta falls, by halving.
inline double ChannelOf(double two_theta) {
  double low = 0;
  double high = 4096;
  for (int i = 0; i < 60; ++i) {
    const double middle = (low + high) / 2;
    (TwoThetaAt(middle) < two_theta ? low : high) = middle;
  }
  return low;
}

}  // namespace koprax::known_detector
