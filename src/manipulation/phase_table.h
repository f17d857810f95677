// Cosine and sine of whole multiples of one small angle, many of them from few calls of the C library. What
// they turn is left to the transforms.
#pragma once

#include <cstddef>
#include <vector>

namespace koprax {

/// A turn by an angle: the complex number exp(i angle).
struct Turn {
  double Cos = 1;
  double Sin = 0;
};

/// One turn after the other.
[[nodiscard]] inline Turn Join(const Turn& a, const Turn& b) {
  return {.Cos = a.Cos * b.Cos - a.Sin * b.Sin, .Sin = a.Sin * b.Cos + a.Cos * b.Sin};
}

class PhaseTable {
 public:
  /// Turns by 0 to `largest` times `angle` radians. An angle of 24 bits times a whole number below 2^29 is
  /// exact in 64 bits, so that no multiple drifts away from its place.
  PhaseTable(double angle, std::size_t largest);

  /// The turn by `multiple` angles, within a few units of the last bit of 1.
  [[nodiscard]] Turn At(std::size_t multiple) const {
    return Join(coarse_[multiple / FineTurns], fine_[multiple % FineTurns]);
  }

 private:
  static constexpr std::size_t FineTurns = 1024;

  std::vector<Turn> fine_;    ///< by 0 to 1023 angles
  std::vector<Turn> coarse_;  ///< by 0, 1024, 2048 and so on
};

}  // namespace koprax
