#include "display/computed_profile_plot.h"

#include <cmath>
#include <string>

#include "display/curve.h"
#include "display/plot_axes.h"

namespace koprax {

namespace {

constexpr double PlotWidth = 95;            // between the ends of the X axis
constexpr double HeightOfLimits = 71.25;    // the highest Y stands so far above the X axis
constexpr double LargestDegreeStep = 0.97;  // the label takes a larger one for one of channels

/// The scales of the curve. They are not those of the frame for a difference that doesn't start from 0.
void FixCurveScale(Workspace& data, TwoProfileOperation operation) {
  data.Plot.ScaleX = static_cast<float>(PlotWidth / (static_cast<double>(data.PlotXMax) - data.PlotXMin));
  const double lowest = operation == TwoProfileOperation::Difference ? data.Sum.SumYMin : 0;
  const auto scale_y = static_cast<float>(HeightOfLimits / (data.Sum.SumYMax - lowest));
  if (std::isfinite(scale_y)) {
    data.Plot.ScaleY = scale_y;
  }
}

}  // namespace

bool DrawComputedProfile(Workspace& data, TwoProfileOperation operation, Surface& picture,
                         const TellUser& tell) {
  const PlotLimits limits{data.PlotXMin, data.PlotXMax, data.Sum.SumYMin, data.Sum.SumYMax};
  if (!SpansX(limits)) {
    return false;
  }
  if (!DrawAxes(data, limits, picture)) {
    tell(NoYSpan());
  }
  FixCurveScale(data, operation);
  const ProfileBuffer& source = data.Current();
  DrawCurve(data.Plot, {data.Sum.SumX, data.Sum.SumY, static_cast<int>(data.Sum.SumNpts)},
            {data.PlotXMin, PlotBase(data.Plot, source.NegativeY == 1)}, {data.Sum.SumXMin, data.Sum.SumXMax},
            colours::Black, picture);
  PrintAxisLabels({.Channels = source.WorkX[2] - source.WorkX[1] > LargestDegreeStep,
                   .ThetaSize = 12,
                   .ChannelX = 101,
                   .ChannelY = 9},
                  picture);
  return true;
}

void DrawComputedLegend(TwoProfileOperation operation, Surface& legend) {
  legend.Line(1, 3, 16, 3, colours::Black);
  legend.MoveTo(18, 2);
  legend.Print(std::string(FormulaOf(operation)) + ",  no buffer yet");
}

}  // namespace koprax
