// The circular convolution of complex numbers by fast Fourier transforms, whose number is a power of two.
// What is convolved, and why, is left to the transforms of profiles.
#pragma once

#include <cstddef>
#include <vector>

#include "workspace/vector_width.h"

namespace koprax {

/// Complex numbers, real and imaginary parts apart.
struct ComplexTable {
  explicit ComplexTable(std::size_t size) : Re(size), Im(size) {}
  std::vector<double> Re;
  std::vector<double> Im;
};

/// The circular convolution of two tables of one size, a power of two, into the first. The second is used up.
/// Every width that the processor has gives the same bits.
void Convolve(VectorWidth width, ComplexTable& a, ComplexTable& b);

}  // namespace koprax
