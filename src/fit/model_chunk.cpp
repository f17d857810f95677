#include "fit/model_chunk.h"

#include <algorithm>

#include "fit/fit_parameters.h"
#include "fit/half_peak.h"
#include "fit/peak_at_point.h"
#include "fit/peak_model.h"
#include "fit/several_points.h"

namespace koprax {
namespace {

/// Points that take the same way: all in vectors, or one by one.
constexpr std::size_t BlockSize = 16;
constexpr std::size_t Blocks = ChunkSize / BlockSize;

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// The X of a chunk. The last point fills it up, so that all vectors are whole.
struct ChunkX {
  ChunkColumn X;
  std::array<float, Blocks> Lowest;  ///< of each block
  std::array<float, Blocks> Highest;
};

void TakeX(const PeakFit& fit, const ModelChunk& chunk, ChunkX& points) {
  for (int i = 0; i < ChunkSize; ++i) {
    points.X[At(i)] = fit.FitX[At(chunk.First + std::min(i, chunk.Count - 1))];
  }
  for (std::size_t block = 0; block < Blocks; ++block) {
    const float* x = points.X.data() + block * BlockSize;
    const auto [lowest, highest] = std::minmax_element(x, x + BlockSize);
    points.Lowest[block] = *lowest;
    points.Highest[block] = *highest;
  }
}

/// The derivatives by a parameter, all 0 before the first block that has any.
float* ColumnOf(ModelChunk& chunk, std::size_t parameter) {
  if (!chunk.Present[parameter]) {
    chunk.Present[parameter] = true;
    chunk.Derivatives[parameter] = {};
  }
  return chunk.Derivatives[parameter].data();
}

/// The columns that a half of a peak fills.
struct HalfColumns {
  HalfColumns(ModelChunk& chunk, int peak, bool left)
      : ByPosition(ColumnOf(chunk, NumberOf(peak, PeakParameter::Position))),
        ByIntensity(ColumnOf(chunk, NumberOf(peak, PeakParameter::Intensity))),
        ByWidth(ColumnOf(chunk, NumberOf(peak, left ? PeakParameter::WidthLeft : PeakParameter::WidthRight))),
        ByEta(ColumnOf(chunk, NumberOf(peak, left ? PeakParameter::EtaLeft : PeakParameter::EtaRight))) {}
  void Advance(std::size_t points) {
    ByPosition += points;
    ByIntensity += points;
    ByWidth += points;
    ByEta += points;
  }
  float* ByPosition;
  float* ByIntensity;
  float* ByWidth;
  float* ByEta;
};

// All below is compiled into its callers, down to those that say for which processor they are built: a call
// between code for two of them takes longer than what it would do.

/// A half at the points of a block that lies within it. False where the rounding of an exponential isn't
/// certain.
template <class Vectors>
[[gnu::always_inline]] inline bool TakeBlock(const HalfPeak& half, const float* x, const HalfColumns& columns,
                                             float* values) {
  using Points = SeveralPoints<Vectors>;
  using Doubles = typename Vectors::Doubles;
  typename Vectors::DoubleBits uncertain{};
  for (std::size_t i = 0; i < BlockSize; i += Vectors::Lanes) {
    Doubles dx;
    Points::Take(x + i, dx);
    dx -= half.Position;
    Points::Round(dx);
    Doubles z = dx / half.G;
    Points::Round(z);
    Doubles g;
    TakeExponential<Vectors>(z * z, g);
    Doubles above = g + g * ExponentialError;
    g -= g * ExponentialError;
    Points::Round(above);
    Points::Round(g);
    uncertain |= g != above;
    HalfPeakTerms<Doubles> terms;
    TakeTerms<Points>(half, dx, g, terms);
    Points::Put(terms.Value, values + i);
    Points::Put(terms.ByPosition, columns.ByPosition + i);
    Points::Put(terms.ByIntensity, columns.ByIntensity + i);
    Points::Put(terms.ByWidth, columns.ByWidth + i);
    Points::Put(terms.ByEta, columns.ByEta + i);
  }
  bool certain = true;
  for (std::size_t lane = 0; lane < Vectors::Lanes; ++lane) certain = certain && uncertain[lane] == 0;
  return certain;
}

/// Where a block of points lies.
enum class Place { BeyondReach, Left, Right, AcrossAnEdge };

struct PeakHalves {
  PeakHalves(const ParameterTable& parameters, int peak)
      : Left(HalfOf(parameters, peak, true)),
        Right(HalfOf(parameters, peak, false)),
        Position(parameters[NumberOf(peak, PeakParameter::Position)]),
        ReachLeft(ReachOf(parameters[NumberOf(peak, PeakParameter::WidthLeft)])),
        ReachRight(ReachOf(parameters[NumberOf(peak, PeakParameter::WidthRight)])) {}
  HalfPeak Left;
  HalfPeak Right;
  float Position;
  float ReachLeft;
  float ReachRight;
};

[[gnu::always_inline]] inline Place PlaceOf(const PeakHalves& peak, float lowest, float highest) {
  const float from = lowest - peak.Position;
  const float to = highest - peak.Position;
  const bool right = from >= 0;
  if (!right && !(to < 0)) return Place::AcrossAnEdge;
  const float nearest = right ? from : -to;
  const float farthest = right ? to : -from;
  const float reach = right ? peak.ReachRight : peak.ReachLeft;
  if (reach < nearest) return Place::BeyondReach;
  if (farthest > reach) return Place::AcrossAnEdge;
  return right ? Place::Right : Place::Left;
}

void AddPointByPoint(const ParameterTable& parameters, int peak, const ChunkX& points, std::size_t first,
                     ModelChunk& chunk) {
  for (std::size_t i = first; i < first + BlockSize; ++i) {
    const auto at = PeakAt(parameters, peak, points.X[i]);
    if (!at) continue;
    const HalfColumns columns(chunk, peak, at->Left);
    columns.ByPosition[i] = at->Terms.ByPosition;
    columns.ByIntensity[i] = at->Terms.ByIntensity;
    columns.ByWidth[i] = at->Terms.ByWidth;
    columns.ByEta[i] = at->Terms.ByEta;
    chunk.Y[i] += at->Terms.Value;
  }
}

template <class Vectors>
[[gnu::always_inline]] inline bool AddBlock(const HalfPeak& half, int peak, bool left, const ChunkX& points,
                                            std::size_t first, ModelChunk& chunk) {
  HalfColumns columns(chunk, peak, left);
  columns.Advance(first);
  std::array<float, BlockSize> values;
  if (!TakeBlock<Vectors>(half, points.X.data() + first, columns, values.data())) return false;
  for (std::size_t i = 0; i < BlockSize; ++i) chunk.Y[first + i] += values[i];
  return true;
}

template <class Vectors>
[[gnu::always_inline]] inline void AddPeak(const ParameterTable& parameters, int peak, const ChunkX& points,
                                           ModelChunk& chunk) {
  const PeakHalves halves(parameters, peak);
  for (std::size_t block = 0; block < Blocks; ++block) {
    const Place place = PlaceOf(halves, points.Lowest[block], points.Highest[block]);
    if (place == Place::BeyondReach) continue;
    const bool left = place == Place::Left;
    const std::size_t first = block * BlockSize;
    if (place == Place::AcrossAnEdge ||
        !AddBlock<Vectors>(left ? halves.Left : halves.Right, peak, left, points, first, chunk)) {
      AddPointByPoint(parameters, peak, points, first, chunk);
    }
  }
}

template <class Vectors>
[[gnu::always_inline]] inline void AddPeaks(const ParameterTable& parameters, int peak_count,
                                            const ChunkX& points, ModelChunk& chunk) {
  for (int peak = 1; peak <= peak_count; ++peak) AddPeak<Vectors>(parameters, peak, points, chunk);
}

#ifdef __x86_64__
__attribute__((target("avx2"))) void AddPeaksAvx2(const ParameterTable& parameters, int peak_count,
                                                  const ChunkX& points, ModelChunk& chunk) {
  AddPeaks<Vectors32>(parameters, peak_count, points, chunk);
}

__attribute__((target("avx512f"))) void AddPeaksAvx512(const ParameterTable& parameters, int peak_count,
                                                       const ChunkX& points, ModelChunk& chunk) {
  AddPeaks<Vectors64>(parameters, peak_count, points, chunk);
}
#endif

void AddPeaksIn(VectorWidth width, const ParameterTable& parameters, int peak_count, const ChunkX& points,
                ModelChunk& chunk) {
#ifdef __x86_64__
  if (width == VectorWidth::Avx512) return AddPeaksAvx512(parameters, peak_count, points, chunk);
  if (width == VectorWidth::Avx2) return AddPeaksAvx2(parameters, peak_count, points, chunk);
#else
  static_cast<void>(width);
#endif
  AddPeaks<Vectors16>(parameters, peak_count, points, chunk);
}

void AddBackgrounds(const PeakFit& fit, const ParameterTable& parameters, ModelChunk& chunk) {
  const std::size_t first = fit.FitPolyBackground ? ConstantTerm : ScaleFactor;
  const std::size_t last = fit.FitPolyBackground ? CubicTerm : ScaleFactor;
  for (std::size_t parameter = first; parameter <= last; ++parameter) chunk.Present[parameter] = true;
  ParameterTable derivatives;
  for (int i = 0; i < chunk.Count; ++i) {
    float& y = chunk.Y[At(i)];
    y = AddBackground(fit, chunk.First + i, parameters, y, derivatives);
    for (std::size_t n = first; n <= last; ++n) chunk.Derivatives[n][At(i)] = derivatives[n];
  }
}

}  // namespace

void FillChunk(const PeakFit& fit, const ParameterTable& parameters, VectorWidth width, ModelChunk& chunk) {
  ChunkX points;
  TakeX(fit, chunk, points);
  chunk.Y = {};
  chunk.Present = {};
  AddPeaksIn(width, parameters, fit.FitPeakCount, points, chunk);
  AddBackgrounds(fit, parameters, chunk);
}

}  // namespace koprax
