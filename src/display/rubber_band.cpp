#include "display/rubber_band.h"

#include <algorithm>
#include <cmath>

#include "display/plot_transform.h"
#include "forms/number_text.h"

namespace koprax {

void ShowAtRest(Shape& band) {
  band.Visible = true;
  band.Top = RestingBandEdge;
  band.Left = RestingBandEdge;
}

void PlaceRubberBand(const PlotTransform& plot, Shape& band, float x, float y) {
  band.Left = ClampedX(plot, x);
  band.Top = ClampedY(plot, y);
  band.Width = std::min(band.Width.Get(), plot.PlotRight - band.Left);
  band.Height = std::min(band.Height.Get(), band.Top - plot.PlotBottom);
}

bool StartRubberBand(const PlotTransform& plot, Shape& band, float x, float y) {
  if (!(x >= plot.PlotLeft && x <= plot.PlotRight && y >= plot.PlotBottom)) {
    return false;
  }
  PlaceRubberBand(plot, band, x, y);
  return true;
}

void FollowMouse(const PlotTransform& plot, Shape& band, float x) {
  band.Width = std::max(x - band.Left, 0.0F);
  band.Height = std::max(band.Top - plot.PlotBottom, 0.0F);
}

XRange SelectedX(const PlotTransform& plot, const Shape& band, float release_x, float xmin, float xmax) {
  constexpr double at_axis = 0.004;
  float distance = band.Left - plot.PlotLeft;
  if (std::abs(distance) < at_axis) {
    distance = 0;
  }
  return {.Low = static_cast<float>(xmin + static_cast<double>(distance) / plot.ScaleX),
          .High = std::min(DataX(plot, release_x, xmin), xmax)};
}

XRange AsShown(const XRange& range) {
  const auto shown = [](float x) { return LeadingFloat(RoundedText(x, 3)); };
  return {.Low = shown(range.Low), .High = shown(range.High)};
}

float SelectedTop(const PlotTransform& plot, const Shape& band) {
  return static_cast<float>((static_cast<double>(band.Top) - plot.PlotBottom) / plot.ScaleY);
}

Message NothingToSelectFrom() {
  return {
      .Text =
          "There is no plot in which a part could be selected.\r\nDisplay a profile with a range of X and "
          "of intensity first.",
      .Title = "Warning",
      .Icon = MessageIcon::Information};
}

}  // namespace koprax
