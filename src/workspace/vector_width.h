// How wide the vectors of the processor are: long loops are built for several widths and the widest is chosen
// at run time. Every width gives the same bits, so the choice is one of speed alone.
#pragma once

#include <vector>

namespace koprax {

enum class VectorWidth {
  Baseline,  ///< what every processor of the platform has
  Avx2,      ///< 32 bytes
  Avx512,    ///< 64 bytes
};

/// The widths that this processor has, the narrowest first.
[[nodiscard]] inline std::vector<VectorWidth> VectorWidths() {
  std::vector<VectorWidth> widths{VectorWidth::Baseline};
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2") != 0) widths.push_back(VectorWidth::Avx2);
  if (__builtin_cpu_supports("avx512f") != 0) widths.push_back(VectorWidth::Avx512);
#endif
  return widths;
}

/// The widest of them.
[[nodiscard]] inline VectorWidth WidestVectors() { return VectorWidths().back(); }

}  // namespace koprax
