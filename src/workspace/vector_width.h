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
[[nodiscard]] std::vector<VectorWidth> VectorWidths();

/// The widest of them. For tests the environment variable KOPRAX_VECTORS names another one: "baseline",
/// "avx2" or "avx512". Any other value, and a width that the processor lacks, stands for the widest.
[[nodiscard]] VectorWidth ChosenVectors();

}  // namespace koprax
