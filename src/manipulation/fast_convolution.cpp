#include "manipulation/fast_convolution.h"

#include <numbers>

#include "manipulation/phase_table.h"

namespace koprax {

namespace {

/// Two stretches of a table that butterflies join, and the turns between them.
struct Halves {
  double* Re1;
  double* Im1;
  double* Re2;
  double* Im2;
  const double* Cos;
  const double* Sin;
};

/// The two stretches of h numbers from `first` on.
Halves HalvesFrom(ComplexTable& table, std::size_t first, std::size_t h, const ComplexTable& turns) {
  double* const re = table.Re.data() + first;
  double* const im = table.Im.data() + first;
  return {re, im, re + h, im + h, turns.Re.data() + h, turns.Im.data() + h};
}

/// Sums go to the first half, differences, turned backward, to the second.
[[gnu::always_inline]] inline void SplitHalves(const Halves& halves, std::size_t h) {
  double* __restrict re1 = halves.Re1;
  double* __restrict im1 = halves.Im1;
  double* __restrict re2 = halves.Re2;
  double* __restrict im2 = halves.Im2;
  for (std::size_t j = 0; j < h; ++j) {
    const double re = re1[j] - re2[j];
    const double im = im1[j] - im2[j];
    re1[j] += re2[j];
    im1[j] += im2[j];
    re2[j] = re * halves.Cos[j] + im * halves.Sin[j];
    im2[j] = im * halves.Cos[j] - re * halves.Sin[j];
  }
}

/// The second half is turned forward; then sums go to the first, differences to the second.
[[gnu::always_inline]] inline void JoinHalves(const Halves& halves, std::size_t h) {
  double* __restrict re1 = halves.Re1;
  double* __restrict im1 = halves.Im1;
  double* __restrict re2 = halves.Re2;
  double* __restrict im2 = halves.Im2;
  for (std::size_t j = 0; j < h; ++j) {
    const double re = re2[j] * halves.Cos[j] - im2[j] * halves.Sin[j];
    const double im = im2[j] * halves.Cos[j] + re2[j] * halves.Sin[j];
    re2[j] = re1[j] - re;
    im2[j] = im1[j] - im;
    re1[j] += re;
    im1[j] += im;
  }
}

/// exp(i pi j / h) for j = 0 to h - 1 stands from entry h on, for h = 1, 2, 4 to size / 2.
ComplexTable TurnsOfHalves(std::size_t size) {
  ComplexTable turns(size);
  const PhaseTable whole(2 * std::numbers::pi / static_cast<double>(size), size / 2);
  for (std::size_t h = 1; h < size; h *= 2) {
    for (std::size_t j = 0; j < h; ++j) {
      const Turn turn = whole.At(j * (size / 2 / h));
      turns.Re[h + j] = turn.Cos;
      turns.Im[h + j] = turn.Sin;
    }
  }
  return turns;
}

/// To the coefficients, in a scrambled order.
[[gnu::always_inline]] inline void TransformForward(ComplexTable& table, const ComplexTable& turns) {
  const std::size_t size = table.Re.size();
  for (std::size_t h = size / 2; h > 0; h /= 2) {
    for (std::size_t first = 0; first < size; first += 2 * h) {
      SplitHalves(HalvesFrom(table, first, h, turns), h);
    }
  }
}

/// From coefficients in that order to the numbers they come from, times their count.
[[gnu::always_inline]] inline void TransformBackward(ComplexTable& table, const ComplexTable& turns) {
  const std::size_t size = table.Re.size();
  for (std::size_t h = 1; h < size; h *= 2) {
    for (std::size_t first = 0; first < size; first += 2 * h) {
      JoinHalves(HalvesFrom(table, first, h, turns), h);
    }
  }
}

/// The scrambled order doesn't matter to products of coefficients, so it is never put right.
[[gnu::always_inline]] inline void ConvolveInline(ComplexTable& a, ComplexTable& b,
                                                  const ComplexTable& turns) {
  TransformForward(a, turns);
  TransformForward(b, turns);
  const std::size_t size = a.Re.size();
  for (std::size_t j = 0; j < size; ++j) {
    const double re = a.Re[j] * b.Re[j] - a.Im[j] * b.Im[j];
    const double im = a.Im[j] * b.Re[j] + a.Re[j] * b.Im[j];
    a.Re[j] = re / static_cast<double>(size);
    a.Im[j] = im / static_cast<double>(size);
  }
  TransformBackward(a, turns);
}

#ifdef __x86_64__
__attribute__((target("avx2"))) void ConvolveAvx2(ComplexTable& a, ComplexTable& b,
                                                  const ComplexTable& turns) {
  ConvolveInline(a, b, turns);
}
#endif

}  // namespace

void Convolve(VectorWidth width, ComplexTable& a, ComplexTable& b) {
  const ComplexTable turns = TurnsOfHalves(a.Re.size());
#ifdef __x86_64__
  // Wider vectors than these save nothing here.
  if (width != VectorWidth::Baseline) return ConvolveAvx2(a, b, turns);
#else
  static_cast<void>(width);
#endif
  ConvolveInline(a, b, turns);
}

}  // namespace koprax
