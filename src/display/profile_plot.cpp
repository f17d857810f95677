#include "display/profile_plot.h"

#include <cstddef>
#include <limits>

#include "display/plot_axes.h"
#include "display/plot_transform.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr double LeastXRange = 0.00001;

void DrawCurve(const PlotTransform& plot, const ProfileBuffer& buffer, Surface& picture) {
  const auto within = [&](float x) { return !(x < buffer.WorkXMin || x > buffer.WorkXMax); };
  const float base = PlotBase(plot, buffer.NegativeY == 1);
  const auto count = static_cast<std::size_t>(buffer.WorkNpts);
  for (std::size_t i = 2; i <= count; ++i) {
    const float x1 = buffer.WorkX[i - 1];
    const float x2 = buffer.WorkX[i];
    const float py1 = PictureY(plot, buffer.WorkY[i - 1], base);
    const float py2 = PictureY(plot, buffer.WorkY[i], base);
    if (within(x1) && within(x2) && !(py1 > plot.PlotTop) && !(py2 > plot.PlotTop)) {
      picture.Line(PictureX(plot, x1, buffer.WorkXMin), py1, PictureX(plot, x2, buffer.WorkXMin), py2);
    }
  }
}

}  // namespace

bool DrawProfile(Workspace& data, int slot, Surface& picture, const TellUser& tell) {
  const ProfileBuffer& buffer = data.Buffer(slot);
  data.PlotXMin = buffer.WorkXMin;
  data.PlotXMax = buffer.WorkXMax;
  data.PlotYMin = buffer.WorkYMin;
  data.PlotYMax = buffer.WorkYMax;
  const double range = static_cast<double>(data.PlotXMax) - data.PlotXMin;
  if (range < LeastXRange || range > std::numeric_limits<float>::max()) {
    return false;
  }
  if (!DrawAxes(data, {data.PlotXMin, data.PlotXMax, data.PlotYMin, data.PlotYMax}, picture)) {
    tell(NoYSpan());
  }
  DrawCurve(data.Plot, buffer, picture);
  return true;
}

ProfileTexts TextsOf(const Workspace& data, int slot) {
  const ProfileBuffer& buffer = data.Buffer(slot);
  return {.XMin = "xmin " + GeneralText(buffer.WorkXMin),
          .XMax = "xmax " + GeneralText(buffer.WorkXMax),
          .Step = "step " + GeneralText(buffer.XStep),
          .File = data.FileName,
          .Buffer = "buffer " + buffer.BufLetter,
          .Title = buffer.Title};
}

}  // namespace koprax
