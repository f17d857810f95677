#include "workspace/vector_width.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace koprax {

std::vector<VectorWidth> VectorWidths() {
  std::vector<VectorWidth> widths{VectorWidth::Baseline};
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2") != 0) widths.push_back(VectorWidth::Avx2);
  if (__builtin_cpu_supports("avx512f") != 0) widths.push_back(VectorWidth::Avx512);
#endif
  return widths;
}

VectorWidth ChosenVectors() {
  constexpr std::pair<std::string_view, VectorWidth> names[] = {
      {"baseline", VectorWidth::Baseline}, {"avx2", VectorWidth::Avx2}, {"avx512", VectorWidth::Avx512}};
  const std::vector<VectorWidth> widths = VectorWidths();
  const char* const asked_for = std::getenv("KOPRAX_VECTORS");
  for (const auto& [name, width] : names) {
    if (asked_for != nullptr && name == asked_for && std::ranges::count(widths, width) != 0) return width;
  }
  return widths.back();
}

}  // namespace koprax
