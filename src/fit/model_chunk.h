// The model at a run of neighbouring points at once, in vectors: the numbers of PeakModel, to the bit.
#pragma once

#include <array>
#include <cstddef>

#include "workspace/vector_width.h"
#include "workspace/workspace.h"

namespace koprax {

/// Points computed together.
inline constexpr int ChunkSize = 64;

/// Values for the points of a chunk, in registers from the first one on.
struct alignas(64) ChunkColumn {
  std::array<float, ChunkSize> Points{};
  float* data() { return Points.data(); }
  [[nodiscard]] const float* data() const { return Points.data(); }
  float& operator[](std::size_t i) { return Points[i]; }
  float operator[](std::size_t i) const { return Points[i]; }
};

/// The model at Count points of the range from First on; their numbers count from 0 here.
struct ModelChunk {
  int First = 1;
  int Count = 0;
  ChunkColumn Y;
  /// Which parameters have a derivative other than 0 at some point of the chunk. Only theirs are filled.
  std::array<bool, ParameterTableSize> Present{};
  std::array<ChunkColumn, ParameterTableSize> Derivatives;
};

/// Fills a chunk whose First and Count are set, Count 1 to ChunkSize.
void FillChunk(const PeakFit& fit, const ParameterTable& parameters, VectorWidth width, ModelChunk& chunk);

}  // namespace koprax
