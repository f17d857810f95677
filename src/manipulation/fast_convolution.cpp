#include "manipulation/fast_convolution.h"

#include <numbers>

#include "manipulation/phase_table.h"
#include "workspace/vector_types.h"

namespace koprax {

namespace {

/// As many complex numbers as a vector has lanes.
template <class Vectors>
struct ComplexVector {
  typename Vectors::Doubles Re;
  typename Vectors::Doubles Im;

  [[gnu::always_inline]] void Take(const ComplexTable& table, std::size_t first) {
    Load(table.Re.data() + first, Re);
    Load(table.Im.data() + first, Im);
  }
  [[gnu::always_inline]] void Put(ComplexTable& table, std::size_t first) const {
    Store(Re, table.Re.data() + first);
    Store(Im, table.Im.data() + first);
  }
};

/// Of 2 h numbers from `first` on, sums go to the first half, differences, turned backward, to the second.
template <class Vectors>
[[gnu::always_inline]] inline void SplitHalves(ComplexTable& table, std::size_t first, std::size_t h,
                                               const ComplexTable& turns) {
  for (std::size_t j = first; j < first + h; j += Vectors::Lanes) {
    ComplexVector<Vectors> a;
    ComplexVector<Vectors> b;
    ComplexVector<Vectors> turn;
    a.Take(table, j);
    b.Take(table, j + h);
    turn.Take(turns, h + j - first);
    ComplexVector<Vectors>{a.Re + b.Re, a.Im + b.Im}.Put(table, j);
    const ComplexVector<Vectors> less{a.Re - b.Re, a.Im - b.Im};
    ComplexVector<Vectors>{less.Re * turn.Re + less.Im * turn.Im, less.Im * turn.Re - less.Re * turn.Im}.Put(
        table, j + h);
  }
}

/// The second half is turned forward; then sums go to the first, differences to the second.
template <class Vectors>
[[gnu::always_inline]] inline void JoinHalves(ComplexTable& table, std::size_t first, std::size_t h,
                                              const ComplexTable& turns) {
  for (std::size_t j = first; j < first + h; j += Vectors::Lanes) {
    ComplexVector<Vectors> a;
    ComplexVector<Vectors> b;
    ComplexVector<Vectors> turn;
    a.Take(table, j);
    b.Take(table, j + h);
    turn.Take(turns, h + j - first);
    const ComplexVector<Vectors> turned{b.Re * turn.Re - b.Im * turn.Im, b.Im * turn.Re + b.Re * turn.Im};
    ComplexVector<Vectors>{a.Re + turned.Re, a.Im + turned.Im}.Put(table, j);
    ComplexVector<Vectors>{a.Re - turned.Re, a.Im - turned.Im}.Put(table, j + h);
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
template <class Vectors>
[[gnu::always_inline]] inline void TransformForward(ComplexTable& table, const ComplexTable& turns) {
  const std::size_t size = table.Re.size();
  for (std::size_t h = size / 2; h > 0; h /= 2) {
    for (std::size_t first = 0; first < size; first += 2 * h) {
      if (h >= Vectors::Lanes) {
        SplitHalves<Vectors>(table, first, h, turns);
      } else {
        SplitHalves<Vectors8>(table, first, h, turns);
      }
    }
  }
}

/// From coefficients in that order to the numbers they come from, times their count.
template <class Vectors>
[[gnu::always_inline]] inline void TransformBackward(ComplexTable& table, const ComplexTable& turns) {
  const std::size_t size = table.Re.size();
  for (std::size_t h = 1; h < size; h *= 2) {
    for (std::size_t first = 0; first < size; first += 2 * h) {
      if (h >= Vectors::Lanes) {
        JoinHalves<Vectors>(table, first, h, turns);
      } else {
        JoinHalves<Vectors8>(table, first, h, turns);
      }
    }
  }
}

/// The scrambled order doesn't matter to products of coefficients, so it is never put right.
template <class Vectors>
[[gnu::always_inline]] inline void ConvolveBy(ComplexTable& a, ComplexTable& b, const ComplexTable& turns) {
  TransformForward<Vectors>(a, turns);
  TransformForward<Vectors>(b, turns);
  const std::size_t size = a.Re.size();
  for (std::size_t j = 0; j < size; ++j) {
    const double re = a.Re[j] * b.Re[j] - a.Im[j] * b.Im[j];
    const double im = a.Im[j] * b.Re[j] + a.Re[j] * b.Im[j];
    a.Re[j] = re / static_cast<double>(size);
    a.Im[j] = im / static_cast<double>(size);
  }
  TransformBackward<Vectors>(a, turns);
}

#ifdef __x86_64__
__attribute__((target("avx2"))) void ConvolveAvx2(ComplexTable& a, ComplexTable& b,
                                                  const ComplexTable& turns) {
  ConvolveBy<Vectors32>(a, b, turns);
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
  ConvolveBy<Vectors16>(a, b, turns);
}

}  // namespace koprax
