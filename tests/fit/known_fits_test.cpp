// Fits with a known answer: profiles made in 64 bits, one of them with counting noise, are fitted as a user
// does it, from heights on the plot and a guess of the FWHM.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "fit/fit_parameters.h"
#include "fit/fit_setup.h"
#include "fit/minimiser.h"

namespace koprax {
namespace {

using Peak = std::array<float, ParametersPerPeak>;
using Numbers = std::vector<double>;

struct Case {
  std::string Name;
  std::vector<Peak> Peaks;
  std::array<float, 5> Background;  ///< the polynomial and the scale factor; one of them is 0
  float From;
  int Points;
  bool Noise;
};

constexpr float Step = 0.01F;

/// Half a peak by its half width, at which Gaussian and Lorentzian are a half.
double HalfPeak(double distance, double width, double eta) {
  const double square = 4 * distance * distance / (width * width);
  return eta * std::exp2(-square) + (1 - eta) / (1 + square);
}

class KnownFit : public testing::TestWithParam<Case> {
 protected:
  KnownFit() {
    for (const Peak& peak : Known().Peaks) truth_.insert(truth_.end(), peak.begin(), peak.end());
    const auto of_peaks = static_cast<std::int16_t>(truth_.size());
    truth_.resize(ConstantTerm);
    truth_.insert(truth_.end(), Known().Background.begin(), Known().Background.end());
    fit_.FitPolyBackground = truth_[ScaleFactor] == 0;
    for (std::int16_t i = 1; i < of_peaks; ++i) Refine(i);
    for (std::int16_t i = ConstantTerm; i <= FitParameterCount; ++i) {
      if ((i < FitParameterCount) == fit_.FitPolyBackground) Refine(i);
    }
  }
  void Refine(std::int16_t parameter) {
    fit_.FitList[static_cast<std::size_t>(++fit_.FitListCount)] = parameter;
  }

  [[nodiscard]] static const Case& Known() { return GetParam(); }
  [[nodiscard]] static float Background(double x) {
    return static_cast<float>(300 * std::exp((Known().From - x) / 5));
  }
  [[nodiscard]] double Profile(const Numbers& p, double x) const {
    const double t = x - Known().From;
    double y = p[ConstantTerm] + t * (p[LinearTerm] + t * (p[QuadraticTerm] + t * p[CubicTerm])) +
               p[ScaleFactor] * Background(x);
    for (std::size_t at = 1; at <= ParametersPerPeak * Known().Peaks.size(); at += ParametersPerPeak) {
      const double d = x - p[at];
      const std::size_t width = at + (d < 0 ? 2 : 3);
      if (std::abs(d) <= 10 * truth_[width]) y += p[at + 1] * HalfPeak(d, p[width], p[width + 2]);
    }
    return y;
  }

  void MakeProfile() {
    ProfileBuffer& background = data_.Buffer(2);
    profile_.PermNpts = profile_.WorkNpts = background.PermNpts = static_cast<std::int16_t>(Known().Points);
    for (std::size_t i = 1; i <= static_cast<std::size_t>(Known().Points); ++i) {
      const auto x = static_cast<float>(Known().From + static_cast<double>(i - 1) * Step);
      const double y = Profile(truth_, x);
      profile_.WorkX[i] = background.PermX[i] = x;
      profile_.WorkY[i] = static_cast<float>(Known().Noise ? std::poisson_distribution(y)(random_) : y);
      background.PermY[i] = Background(x);
    }
  }

  /// Each peak is pointed at 0.6 steps beside its top, and taken for 1.2 times as wide as it is.
  void SetUpFit() {
    const auto last = static_cast<std::size_t>(Known().Points);
    const XRange all{profile_.WorkX[1], profile_.WorkX[last]};
    CollectFitRange(profile_, all, fit_);
    if (fit_.FitPolyBackground) {
      SetBackgroundLine({all.Low, profile_.WorkY[1]}, {all.High, profile_.WorkY[last]}, all.Low, fit_);
    } else {
      TakeMeasuredBackground(data_, data_.Buffer(2));
      CollectFitBackground(data_, Known().Points, all);
    }
    for (const Peak& peak : Known().Peaks) {
      const float x = peak[0] + 0.6F * Step;
      const float height = HeightAboveBackground(fit_, x, GetProfileY(profile_, x)).value();
      AddFitPeak({x, height, WidthFromAnswer(std::to_string(0.6F * (peak[2] + peak[3]))).value()}, fit_);
    }
  }

  /// Five cycles at a time, until chi square falls no more; the covariances of the refined parameters.
  SquareTable Refine() {
    Minimiser state{.Lambda = -1};
    const auto step = [&] {
      const StepFindings found = LmStep(fit_, fit_.FitPointCount, FitParameterCount, state);
      EXPECT_FALSE(found.SingularMatrix || found.BeyondRange || found.ImproperPermutation);
    };
    step();
    for (float before = -1; state.ChiSquare != before;) {
      before = state.ChiSquare;
      for (int cycle = 1; cycle <= 5; ++cycle) step();
    }
    state.Lambda = 0;
    step();
    return state.CovarMatrix;
  }

  Workspace data_;
  PeakFit& fit_ = data_.Fit;
  ProfileBuffer& profile_ = data_.Buffer(1);
  Numbers truth_{0};  ///< numbered as the parameters of a fit
  std::mt19937 random_{20};
};

// Points vary by the root of their counts, and without noise by one rounding to 32 bits; the covariances say
// what that makes of a parameter. By chance one in 16000 would be beyond 4 deviations. Each has its own
// rounding besides.
TEST_P(KnownFit, IsFoundFromWhatAUserGives) {
  MakeProfile();
  SetUpFit();
  const SquareTable covariances = Refine();
  const float highest = *std::max_element(profile_.WorkY.begin(), profile_.WorkY.end());
  const double of_point = Known().Noise ? std::sqrt(highest) : highest * 0x1p-24;
  for (std::size_t j = 1; j <= static_cast<std::size_t>(fit_.FitListCount); ++j) {
    const auto number = static_cast<std::size_t>(fit_.FitList[j]);
    const double deviation = of_point * std::sqrt(covariances[number][number]);
    const double rounding = std::abs(truth_[number]) * 0x1p-23;
    EXPECT_NEAR(fit_.FitParam[number], truth_[number], 4 * deviation + rounding) << number;
  }
}

/// Some overlap, others stand apart; no limit of a peak falls on a point, where a rounding would decide.
std::vector<Peak> TwelvePeaks() {
  std::vector<Peak> peaks;
  for (int k = 0; k < MaxFitPeaks; ++k) {
    const auto n = static_cast<float>(k);
    peaks.push_back({20.405F + 0.8F * n + 0.3F * static_cast<float>(k % 2),
                     900 + 400 * static_cast<float>(k * 5 % 7), 0.1F + 0.007F * n, 0.13F + 0.003F * n,
                     0.3F + 0.04F * n, 0.8F - 0.03F * n});
  }
  return peaks;
}

const std::vector<Peak> Lone{{28.44F, 5000, 0.12F, 0.1F, 0.4F, 0.7F}};
const std::vector<Peak> Pair{{30.1F, 40000, 0.2F, 0.14F, 0.3F, 0.8F},
                             {30.38F, 25000, 0.16F, 0.22F, 0.6F, 0.4F}};

INSTANTIATE_TEST_SUITE_P(
    All, KnownFit,
    testing::Values(Case{"OnePeak", Lone, {120, -8, 1.5F, 0.25F, 0}, 27.5F, 191, false},
                    Case{"OneOnMeasured", Lone, {0, 0, 0, 0, 0.8F}, 27.5F, 191, false},
                    Case{"TwoOnASlopeWithNoise", Pair, {4000, -600, 0, 0, 0}, 29.2F, 201, true},
                    Case{"Twelve", TwelvePeaks(), {120, -8, 1.5F, -0.05F, 0}, 19.5F, 1101, false},
                    Case{"TwelveOnMeasured", TwelvePeaks(), {0, 0, 0, 0, 1.2F}, 19.5F, 1101, false}),
    [](const auto& known) { return known.param.Name; });

}  // namespace
}  // namespace koprax
