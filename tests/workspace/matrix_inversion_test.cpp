#include "workspace/matrix_inversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace koprax {
namespace {

/// The greatest distance of A * inverse from 1.
template <class Real>
double Defect(const std::vector<Real>& a, const std::vector<Real>& inverse, std::size_t n) {
  double worst = 0;
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < n; ++j) {
      double sum = i == j ? -1 : 0;
      for (std::size_t k = 0; k < n; ++k) sum += static_cast<double>(a[k * n + i]) * inverse[j * n + k];
      worst = std::max(worst, std::abs(sum));
    }
  }
  return worst;
}

// The diagonal outweighs the rest, wherever the rows have been put, so that the rounding grows little: to 20
// units of a number near 1 at most.
template <class Real>
void InvertsRandomMatrices(double unit) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> number(-1, 1);
  for (std::size_t n = 1; n <= MaxOrder; ++n) {
    for (std::size_t shift = 0; shift < n; ++shift) {
      std::vector<Real> a(n * n);
      for (Real& element : a) element = static_cast<Real>(number(random));
      for (std::size_t i = 0; i < n; ++i) a[(i + shift) % n * n + i] += static_cast<Real>(n);
      std::vector<Real> inverse = a;
      EXPECT_NE(InvertMatrix(std::span(inverse), n), 0);
      EXPECT_LE(Defect(a, inverse, n), 20 * unit) << n << " " << shift;
    }
  }
}

TEST(InvertMatrix, InvertsInEitherWidth) {
  InvertsRandomMatrices<double>(1E-16);
  InvertsRandomMatrices<float>(6E-8);
}

// All pivots are powers of 2, so nothing is rounded.
TEST(InvertMatrix, KnowsDeterminantsAndExactInverses) {
  std::vector<float> turn{0, 2, 0, 0, 0, 2, 2, 0, 0};
  EXPECT_EQ(InvertMatrix(std::span(turn), 3), 8);
  EXPECT_EQ(turn, (std::vector<float>{0, 0, 0.5F, 0.5F, 0, 0, 0, 0.5F, 0}));
}

TEST(InvertMatrix, TellsSingularMatrices) {
  for (std::vector<double> a :
       std::vector<std::vector<double>>{{0, 0, 0, 0, 0, 0, 0, 0, 0},     // nothing at all
                                        {1, 2, 4, 0, 0, 0, 2, 1, 1},     // a column of nothing
                                        {4, 8, 2, 8, 16, 4, 1, 1, 1},    // a column is twice another one
                                        {1, 2, 4, 2, 1, 2, 3, 3, 6}}) {  // a row is twice another one
    EXPECT_EQ(InvertMatrix(std::span(a), 3), 0);
  }
}

}  // namespace
}  // namespace koprax
