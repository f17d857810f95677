#include "fit/peak_model.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>

#include "fit/fit_parameters.h"

namespace koprax {
namespace {

using Six = std::array<double, 6>;  // position, intensity, FWHM left and right, eta left and right

/// A peak in 64 bits, by its half width.
double PeakByHalfWidths(const Six& p, double x) {
  const std::size_t side = x < p[0] ? 0 : 1;
  const double half_widths = (x - p[0]) / (p[2 + side] / 2);
  if (std::abs(half_widths) > 20) return 0;
  const double square = half_widths * half_widths;
  return p[1] * (p[4 + side] * std::exp2(-square) + (1 - p[4 + side]) / (1 + square));
}

double CentralDifference(const Six& p, std::size_t n, double x, double h) {
  Six above = p;
  Six below = p;
  above[n] += h;
  below[n] -= h;
  return (PeakByHalfWidths(above, x) - PeakByHalfWidths(below, x)) / (2 * h);
}

class PeakModelTest : public testing::Test {
 protected:
  PeakModelTest() { d_.fill(-7); }
  void SetPeak(const Six& peak) {
    fit_.FitPeakCount = 1;
    for (std::size_t n = 0; n < 6; ++n) a_[n + 1] = static_cast<float>(peak[n]);
  }
  float At(float x) {
    fit_.FitX[1] = x;
    return PeakModel(fit_, 1, a_, d_);
  }
  PeakFit fit_;
  ParameterTable a_{};
  ParameterTable d_{};
};

// G, L and the terms are rounded to 32 bits, which makes some 1E-07 of their size, a hundredfold of it in the
// tail of the Gaussian; the differences are good to some 1E-08.
TEST_F(PeakModelTest, ValueAndDerivativesAreThoseOfTheDefinition) {
  for (const double left : {0.0625, 0.75}) {
    for (const double right : {0.125, 2.0}) {
      for (const double eta : {-0.25, 0.0, 0.5, 1.0, 1.25}) {
        for (const double place : {-10.01, -9.99, -3.0, -0.4, -0.01, 0.01, 0.7, 5.0, 9.99, 10.01}) {
          const Six peak = {32, place < 1 ? 1000.0 : -20.0, left, right, eta, 0.75 - eta};
          const double width = place < 0 ? left : right;
          const auto x = static_cast<float>(peak[0] + place * width);
          SCOPED_TRACE(testing::Message() << left << " " << right << " " << eta << " " << place);
          SetPeak(peak);
          const double size = std::abs(peak[1]);
          const double value = PeakByHalfWidths(peak, x);
          EXPECT_NEAR(At(x), value, 1E-5 * std::abs(value) + 2E-7 * size);
          const Six sizes = {size / width, 1, size / width, size / width, size, size};
          const Six steps = {1E-4 * width, 1, 1E-4 * width, 1E-4 * width, 0.01, 0.01};
          for (std::size_t n = 0; n < 6; ++n) {
            const double expected = CentralDifference(peak, n, x, steps[n]);
            EXPECT_NEAR(d_[n + 1], expected, 1E-5 * std::abs(expected) + 5E-7 * sizes[n]) << n;
          }
        }
      }
    }
  }
}

// 0.0001 of the height is far above 32 bits' rounding, and far below what a wrong width or share would make.
TEST_F(PeakModelTest, SpecialPeaksAreThoseOfTheTextbook) {
  const auto gauss = [](double d, double w) { return std::exp(-d * d / 2 / std::pow(w / 2.354820045, 2)); };
  const auto lorentz = [](double d, double w) { return w * w / 4 / (d * d + w * w / 4); };
  struct Case {
    double Eta;
    std::function<double(double, double)> Shape;
  };
  for (const Case& c : {Case{1, gauss}, Case{0, lorentz},
                        Case{0.5, [&](double d, double w) { return (gauss(d, w) + lorentz(d, w)) / 2; }}}) {
    SetPeak({0, 100, 0.5, 0.5, c.Eta, c.Eta});
    for (const float x : {0.0F, 0.125F, 0.25F, 1.0F, 4.9375F}) {
      EXPECT_NEAR(At(x), 100 * c.Shape(x, 0.5), 0.01) << c.Eta << " " << x;
      EXPECT_EQ(At(-x), At(x));
    }
  }
  SetPeak({0, 100, 0.5, 2, 0.25, 0.75});
  EXPECT_FLOAT_EQ(At(-0.25F), 50);  // each side falls to the half at its own half width
  EXPECT_FLOAT_EQ(At(1), 50);
  EXPECT_FLOAT_EQ(At(-5), 0.75F * 100 / 401);  // both ends lie within the range
  EXPECT_FLOAT_EQ(At(20), 0.25F * 100 / 401);
  EXPECT_EQ(At(std::nextafter(-5.0F, -6.0F)), 0);
  EXPECT_EQ(At(0), 100);  // the right half begins at the position
  EXPECT_EQ(d_[NumberOf(1, PeakParameter::WidthLeft)], 0);
  EXPECT_EQ(d_[NumberOf(1, PeakParameter::EtaLeft)], 0);
}

TEST_F(PeakModelTest, AHalfWithoutWidthIsItsTopAlone) {
  SetPeak({3, 100, 0.5, 0, 0.5, 0.5});
  EXPECT_EQ(At(3), 100);
  EXPECT_EQ(d_[NumberOf(1, PeakParameter::Intensity)], 1);
  EXPECT_EQ(At(3.0001F), 0);
  EXPECT_GT(At(2.9F), 0);
  SetPeak({3, 100, -0.5, 0.5, 0.5, 0.5});
  EXPECT_EQ(At(2.9999F), 0);
  EXPECT_EQ(d_[NumberOf(1, PeakParameter::Position)], 0);
  EXPECT_EQ(At(3), 100);
}

TEST_F(PeakModelTest, TheBackgroundInUseIsAdded) {
  for (const float term : {5.0F, -3.0F, 2.0F, 0.5F}) a_[ConstantTerm + fit_.FitListCount++] = term;
  a_[ScaleFactor] = 1.5F;
  fit_.FitBackgroundY[1] = 8;
  fit_.FitLine[1] = 10;
  fit_.FitPolyBackground = true;
  EXPECT_EQ(At(14), 5 - 3 * 4 + 2 * 16 + 0.5F * 64);
  EXPECT_EQ(PolynomialBackground(a_, 4), 57);
  for (std::size_t n = 0; n < 4; ++n) EXPECT_EQ(d_[ConstantTerm + n], std::pow(4.0F, static_cast<float>(n)));
  EXPECT_EQ(d_[ScaleFactor], -7) << "what is not in use is left as it is";
  EXPECT_EQ(d_[1], -7);

  d_.fill(-7);
  fit_.FitPolyBackground = false;
  SetPeak({14, 100, 1, 1, 0.5, 0.5});
  EXPECT_EQ(At(14), 112);
  EXPECT_EQ(d_[ScaleFactor], 8);
  EXPECT_EQ(d_[CubicTerm], -7);
  EXPECT_EQ(d_[NumberOf(2, PeakParameter::Position)], -7);
}

}  // namespace
}  // namespace koprax
