// Registers a benchmark once for each width of vectors that the processor has.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "workspace/vector_width.h"

namespace koprax {

inline const char* NameOf(VectorWidth width) {
  if (width == VectorWidth::Baseline) return "Baseline";
  return width == VectorWidth::Avx2 ? "Avx2" : "Avx512";
}

inline void RegisterInEachWidth(const std::string& name, void (*run)(benchmark::State&, VectorWidth)) {
  for (const VectorWidth width : VectorWidths()) {
    benchmark::RegisterBenchmark((name + "/" + NameOf(width)).c_str(), run, width)
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace koprax
