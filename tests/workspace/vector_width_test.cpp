// The switch by which tests choose the width of vectors.
#include "workspace/vector_width.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace koprax {
namespace {

TEST(VectorWidth, IsTheOneThatIsAskedForWhereTheProcessorHasIt) {
  const std::vector<VectorWidth> widths = VectorWidths();
  const std::map<std::string, VectorWidth> names{
      {"baseline", VectorWidth::Baseline}, {"avx2", VectorWidth::Avx2}, {"avx512", VectorWidth::Avx512}};
  for (const auto& [name, width] : names) {
    ::setenv("KOPRAX_VECTORS", name.c_str(), 1);
    const bool there = std::find(widths.begin(), widths.end(), width) != widths.end();
    EXPECT_EQ(ChosenVectors(), there ? width : widths.back()) << name;
  }
  ::setenv("KOPRAX_VECTORS", "widest", 1);
  EXPECT_EQ(ChosenVectors(), widths.back());
  ::unsetenv("KOPRAX_VECTORS");
  EXPECT_EQ(ChosenVectors(), widths.back());
}

}  // namespace
}  // namespace koprax
