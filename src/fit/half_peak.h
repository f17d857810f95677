// The formulas of one half of a peak, for one point or for several side by side. Which half a point belongs
// to, and how far a half reaches, is left to the caller.
#pragma once

#include <cmath>
#include <numbers>

namespace koprax {

/// FWHM over the G of exp(-(dx / G)^2).
inline const double FwhmOverG = 2 * std::sqrt(std::numbers::ln2);

/// How far a half of this FWHM reaches, in x units.
[[nodiscard]] inline float ReachOf(float width) { return 10 * width; }

/// What is the same at all points of a half. Its FWHM is above 0.
struct HalfPeak {
  HalfPeak(float position, float intensity, float width, float eta)
      : Position(position),
        Intensity(intensity),
        Gaussian(eta),
        Lorentzian(1 - Gaussian),
        G(static_cast<float>(width / FwhmOverG)),
        L(static_cast<float>(2.0 / width)),
        ByWidthOfL(2 / (static_cast<double>(width) * width)) {}

  double Position;
  double Intensity;
  double Gaussian;    ///< eta
  double Lorentzian;  ///< 1 - eta
  double G;
  double L;
  double ByWidthOfL;  ///< the derivative of L by the FWHM, its sign left out

  double GSquare = G * G;
  double GCube = G * G * G;
  double LSquare = L * L;
};

/// The value of a half at a point, and its derivatives, which the caller rounds to 32 bits.
template <class Doubles>
struct HalfPeakTerms {
  Doubles Value;
  Doubles ByPosition;
  Doubles ByIntensity;
  Doubles ByWidth;
  Doubles ByEta;
};

/// The terms at the distance `dx`, where the Gaussian is `g`; both are 32-bit numbers. `Points` says what is
/// computed at a time: one number or several, and how they are rounded to 32 bits.
template <class Points, class Doubles>
[[gnu::always_inline]] inline void TakeTerms(const HalfPeak& half, const Doubles& dx, const Doubles& g,
                                             HalfPeakTerms<Doubles>& terms) {
  const Doubles dx_square = dx * dx;
  const Doubles q = 1 + half.LSquare * dx_square;
  const Doubles q_square = q * q;
  Doubles l = 1 / q;
  Points::Round(l);
  Doubles u = 2 * half.Gaussian * dx * g / half.GSquare;
  Points::Round(u);
  Doubles w = half.LSquare * 2 * half.Lorentzian * dx / q_square;
  Points::Round(w);
  const Doubles by_g = dx_square * (2 * half.Gaussian) * half.Intensity * g / half.GCube;
  const Doubles by_l = -(dx_square * (2 * half.L) * half.Intensity * half.Lorentzian) / q_square;
  terms.ByIntensity = half.Lorentzian * l + half.Gaussian * g;
  terms.Value = terms.ByIntensity * half.Intensity;
  terms.ByPosition = (u + w) * half.Intensity;
  terms.ByWidth = by_g * (1 / FwhmOverG) - by_l * half.ByWidthOfL;
  terms.ByEta = (g - l) * half.Intensity;
}

}  // namespace koprax
