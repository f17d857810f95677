#include "display/profile_plot.h"

#include "display/curve.h"
#include "display/plot_axes.h"
#include "forms/number_text.h"

namespace koprax {

bool DrawProfile(Workspace& data, int slot, Surface& picture, const TellUser& tell) {
  const ProfileBuffer& buffer = data.Buffer(slot);
  const PlotLimits limits{
      .XMin = buffer.WorkXMin, .XMax = buffer.WorkXMax, .YMin = buffer.WorkYMin, .YMax = buffer.WorkYMax};
  TakeLimitsOfDrawing(data, limits);
  if (!SpansX(limits)) {
    return false;
  }
  if (!DrawAxes(data, limits, picture)) {
    tell(NoYSpan());
  }
  DrawCurve(data.Plot, {buffer.WorkX, buffer.WorkY, buffer.WorkNpts},
            {buffer.WorkXMin, PlotBase(data.Plot, buffer.NegativeY == 1)}, {buffer.WorkXMin, buffer.WorkXMax},
            colours::Black, picture);
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
