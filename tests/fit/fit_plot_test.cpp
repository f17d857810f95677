// What the fit draws, against drawings made by hand.
#include "fit/fit_plot.h"

#include <gtest/gtest.h>

#include <cmath>
#include <variant>
#include <vector>

#include "display/plot_transform.h"
#include "fit/fit_parameters.h"

namespace koprax {
namespace {

/// X from 2 on over picture x 20 to 120, y one unit a count from 15 up to the top at 90.
constexpr PlotTransform Plot{.PlotLeft = 20, .PlotBottom = 15, .PlotTop = 90, .ScaleX = 10, .ScaleY = 1};
constexpr CurveOrigin Origin{.XMin = 2, .Base = 15};

class FitPlot : public testing::Test {
 protected:
  /// Points at X = 2, 3, ...
  void FillRange(const std::vector<float>& y) {
    fit_.FitPointCount = static_cast<std::int16_t>(y.size());
    for (std::size_t i = 1; i <= y.size(); ++i) {
      fit_.FitX[i] = static_cast<float>(i + 1);
      fit_.FitY[i] = y[i - 1];
    }
  }
  static LineOperation Line(float x, float y1, float y2, Colour colour) {
    return {20 + 10 * x, 15 + y1, 30 + 10 * x, 15 + y2, colour};
  }
  using Drawing = std::vector<DrawingOperation>;

  PeakFit fit_;
  Surface picture_{PlotPicture().Scale};
};

TEST_F(FitPlot, RangeAndBackgroundStayBelowTheTop) {
  FillRange({10, 75, 20, 75.1F, 20});
  fit_.FitBackgroundY = {9, 1, 2, 80, 4, 5};
  DrawFitRange(Plot, fit_, Origin, picture_);
  DrawFitBackground(Plot, fit_, Origin, picture_);
  EXPECT_EQ(picture_.Operations(),
            (Drawing{Line(0, 10, 75, colours::Black), Line(1, 75, 20, colours::Black),
                     Line(0, 1, 2, colours::Magenta), Line(3, 4, 5, colours::Magenta)}));
}

// Half of a Gaussian and half of a Lorentzian: at a distance of n half widths 2^-n^2 and 1 / (1 + n^2).
TEST_F(FitPlot, ATrialPeakIsDottedUpToSixTimesItsWidth) {
  FillRange(std::vector<float>(16));
  fit_.FitPolyBackground = true;
  fit_.FitLine = {0, 2, 1, 2};        // 1 at the origin, 2 more each unit of X
  fit_.FitParam[QuadraticTerm] = 50;  // takes no part
  const StartingPeak peak{.X = 9, .Height = 64, .Width = 1};
  DrawTrialPeak(Plot, fit_, peak, Origin, colours::Red, picture_);
  fit_.FitPolyBackground = false;
  fit_.FitBackgroundY.assign(17, 3);
  DrawTrialPeak(Plot, fit_, peak, Origin, colours::White, picture_);
  ASSERT_EQ(picture_.Operations().size(), 26U);  // X 3 to 15, twice
  for (std::size_t k = 0; k < 26; ++k) {
    const auto& dot = std::get<PointOperation>(picture_.Operations()[k]);
    const bool drawn = k < 13;
    const double x = static_cast<double>(k % 13) + 3;
    const double square = 4 * (x - 9) * (x - 9);
    const double y = 32 * std::exp2(-square) + 32 / (1 + square) + (drawn ? 1 + 2 * (x - 2) : 3);
    EXPECT_EQ(dot.PointColour, drawn ? colours::Red : colours::White);
    EXPECT_EQ(dot.X, 10 * x);
    EXPECT_NEAR(dot.Y, 15 + y, 1e-5) << "32 bits hold 100 to 4E-6";
  }
}

TEST_F(FitPlot, TheResultIsFourCurves) {
  FillRange({10, 20, 30, 70});
  fit_.FitCalc = {0, 12, 18, 33, 76};  // passes the top at the last point
  fit_.FitPolyBackground = true;
  fit_.FitParam[ConstantTerm] = 40;
  fit_.FitParam[LinearTerm] = -3;
  fit_.FitParam[QuadraticTerm] = 2;
  fit_.FitParam[CubicTerm] = 1;  // 40, 40, 50, 76
  DrawFitResult(Plot, fit_, Origin, picture_);
  using namespace colours;
  EXPECT_EQ(
      picture_.Operations(),
      (Drawing{Line(0, 10, 20, Black), Line(0, 12, 18, Red), Line(0, -2, 2, Blue), Line(0, 40, 40, Magenta),
               Line(1, 20, 30, Black), Line(1, 18, 33, Red), Line(1, 2, -3, Blue), Line(1, 40, 50, Magenta),
               Line(2, -3, -6, Blue), Line(2, 50, 76, Magenta)}));

  picture_.Cls();
  FillRange({80, 20});
  fit_.FitPolyBackground = false;
  fit_.FitBackgroundY = {0, 40, 60};
  fit_.FitParam[ScaleFactor] = 0.5F;
  DrawFitResult(Plot, fit_, Origin, picture_);
  EXPECT_EQ(picture_.Operations(), (Drawing{Line(0, 68, 2, Blue), Line(0, 20, 30, Magenta)}));
}

}  // namespace
}  // namespace koprax
