#include "display/plot_axes.h"

#include <cmath>
#include <string>

#include "display/plot_ticks.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr double FreeShareOfHeight = 0.05;  // of the plot, above the highest point

float SpanX(const PlotLimits& limits) { return limits.XMax - limits.XMin; }

/// Y = 0 sits on the X axis however high a profile begins, so only a negative YMin adds to the span.
float SpanY(const PlotLimits& limits) {
  return ReachesBelowZero(limits) ? limits.YMax - limits.YMin : limits.YMax;
}

/// Fixes the transform as far as the limits allow; false when they span no Y.
bool FixTransform(const PlotPlace& place, PlotTransform& plot, const PlotLimits& limits) {
  plot.FrameLeft = place.FrameLeft;
  plot.FrameBottom = place.FrameBottom;
  plot.FrameRight = place.FrameRight;
  plot.FrameTop = place.FrameTop;
  plot.PlotLeft = place.PlotLeft;
  plot.PlotBottom = place.PlotBottom;
  plot.PlotRight = place.PlotRight;
  plot.PlotTop = place.PlotTop;
  plot.Upward = place.Upward;
  plot.ScaleX = (plot.PlotRight - plot.PlotLeft) / SpanX(limits);
  const double height = plot.Upward * (plot.PlotTop - plot.PlotBottom);
  const auto scale_y = static_cast<float>((height - FreeShareOfHeight * height) / SpanY(limits));
  if (!std::isfinite(scale_y)) {  // a span of 0, or one so small that it counts as none
    return false;
  }
  plot.ScaleY = scale_y;
  if (ReachesBelowZero(limits)) {
    plot.ZeroY = PictureY(plot, -static_cast<double>(limits.YMin), plot.PlotBottom);
  }
  return true;
}

void NoteNegativeY(Workspace& data, const PlotLimits& limits) {
  data.Current().NegativeY = ReachesBelowZero(limits) ? 1 : 0;
}

void DrawFrame(const PlotTransform& plot, Surface& picture) {
  picture.Line(plot.FrameLeft, plot.FrameBottom, plot.FrameLeft, plot.FrameTop);
  picture.Line(plot.FrameLeft, plot.FrameTop, plot.FrameRight, plot.FrameTop);
  picture.Line(plot.FrameRight, plot.FrameTop, plot.FrameRight, plot.FrameBottom);
  picture.Line(plot.FrameRight, plot.FrameBottom, plot.FrameLeft, plot.FrameBottom);
}

void DrawAxisLines(const PlotTransform& plot, Surface& picture) {
  picture.Line(plot.PlotLeft, plot.PlotBottom, plot.PlotRight, plot.PlotBottom);
  picture.Line(plot.PlotLeft, plot.PlotBottom, plot.PlotLeft, plot.PlotTop);
}

void DrawZeroLine(const PlotTransform& plot, Surface& picture) {
  picture.Line(plot.PlotLeft, plot.ZeroY, plot.PlotRight, plot.ZeroY, colours::Red);
  picture.MoveTo(plot.PlotLeft - 2, plot.ZeroY + plot.Upward * 2);
  picture.ForeColor = colours::Red;
  picture.Print("0");
  picture.ForeColor = colours::Black;
}

void DrawTickX(const PlotTransform& plot, double x, double xmin, Surface& picture) {
  constexpr double whole_number_tolerance = 0.001;
  const float px = PictureX(plot, x, xmin);
  picture.Line(px, plot.PlotBottom - 1, px, plot.PlotBottom + 1);
  double offset = 5;
  int decimals = 3;
  if (std::abs(x - Fix(x)) < whole_number_tolerance) {
    offset = x >= 1000 ? 5 : x >= 100 ? 4 : 3;
    decimals = 0;
  }
  picture.MoveTo(px - offset, plot.PlotBottom - plot.Upward * 2);
  picture.Print(FormatDigits(x, decimals));
}

void DrawTickY(const PlotTransform& plot, double y, bool negative, Surface& picture) {
  const float py = PictureY(plot, y, PlotBase(plot, negative));
  picture.Line(plot.PlotLeft - 1, py, plot.PlotLeft + 1, py);
  picture.MoveTo(plot.PlotLeft - TickOffsetY(y, negative), py + plot.Upward);
  picture.Print(y);
}

/// The walk starts from 0, so ticks fall on multiples of the step wherever the plot begins.
void DrawTicksX(const PlotTransform& plot, const PlotLimits& limits, Surface& picture) {
  const double step = TickStepX(SpanX(limits));
  WalkTicks(-step, step, limits.XMin, limits.XMax,
            [&](double x) { DrawTickX(plot, x, limits.XMin, picture); });
}

void DrawTicksY(const PlotTransform& plot, const PlotLimits& limits, Surface& picture) {
  const bool negative = ReachesBelowZero(limits);
  const double step = TickStepY(SpanY(limits));
  const double start = negative ? Fix(1.05 * limits.YMin - step) : -step;
  WalkTicks(start, step, negative ? limits.YMin : 0, limits.YMax, [&](double y) {
    const bool at_limit = y == limits.YMin || y == limits.YMax;
    if (!negative || !at_limit) {
      DrawTickY(plot, y, negative, picture);
    }
  });
}

}  // namespace

void SetPlotScale(Workspace& data, const PlotLimits& limits) {
  NoteNegativeY(data, limits);
  FixTransform(ScreenPlace, data.Plot, limits);
}

bool DrawAxes(Workspace& data, const PlotLimits& limits, Surface& surface, const PlotPlace& place) {
  NoteNegativeY(data, limits);
  return DrawFrameAt(place, data.Plot, limits, surface);
}

bool DrawFrameAt(const PlotPlace& place, PlotTransform& plot, const PlotLimits& limits, Surface& surface) {
  const bool fixed = FixTransform(place, plot, limits);
  DrawFrame(plot, surface);
  if (!fixed) {
    return false;
  }
  DrawAxisLines(plot, surface);
  if (ReachesBelowZero(limits)) {
    DrawZeroLine(plot, surface);
  }
  DrawTicksX(plot, limits, surface);
  DrawTicksY(plot, limits, surface);
  return true;
}

void PrintAxisLabels(const AxisLabels& labels, Surface& picture) {
  if (labels.Channels) {
    picture.MoveTo(labels.ChannelX, labels.ChannelY);
    picture.Print("Channel");
  } else {
    picture.MoveTo(103, 10);
    picture.FontName = SymbolFont;
    picture.FontSize = labels.ThetaSize;
    picture.Print("2q");
    picture.FontName = DefaultFont;
    picture.FontSize = 8;
  }
  picture.MoveTo(6, 94);
  picture.Print("Intensity\r\n        (counts)");
}

Message NoPlot() {
  return {.Text = "There is no plot.\r\nDisplay a profile with a range of X and of intensity first.",
          .Title = "Warning",
          .Icon = MessageIcon::Information};
}

Message NoYSpan(std::string_view return_word) {
  return {.Text =
              "For some reason the width of the window to be displayed is NULL. This leads to an error "
              "'divide by 0'. " +
              std::string(return_word) + " to main menu.",
          .Title = "Error",
          .Icon = MessageIcon::Stop};
}

}  // namespace koprax
