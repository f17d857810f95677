#include "display/stick_plot.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "display/plot_axes.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr float TopOfScale = 120;
constexpr double TwipsPerPoint = 20;
constexpr double TwipsPerYUnit = 63;

constexpr PlotPlace StickPlace{.FrameLeft = 3,
                               .FrameBottom = 2,
                               .FrameRight = 115,
                               .FrameTop = 43,
                               .PlotLeft = 13,
                               .PlotBottom = 10,
                               .PlotRight = 112,
                               .PlotTop = 40,
                               .Upward = 1};

}  // namespace

PictureSetup StickPicture(std::string meaning) {
  return {.Scale = {.Left = 0,
                    .Top = 45,
                    .Width = 117.78F,
                    .Height = -45.95F,
                    .UnitsPerPoint = TwipsPerPoint / TwipsPerYUnit},
          .DesignWidth = 8175 / TwipsPerMillimetre,
          .DesignHeight = 2895 / TwipsPerMillimetre,
          .Meaning = std::move(meaning)};
}

std::vector<Stick> PeakSticks(const ProfileBuffer& buffer, bool channels) {
  const auto count = static_cast<std::size_t>(buffer.NPeaks);
  float greatest = 0;
  for (std::size_t i = 1; i <= count; ++i) greatest = std::max(greatest, LeadingFloat(buffer.PeakY[i]));
  std::vector<Stick> sticks;
  for (std::size_t i = 1; i <= count; ++i) {
    const std::string& position = channels ? buffer.PeakChannel[i] : buffer.PeakTheta[i];
    const double intensity = LeadingFloat(buffer.PeakY[i]);
    sticks.push_back({.X = LeadingFloat(position), .Height = greatest > 0 ? 100 * intensity / greatest : 0});
  }
  return sticks;
}

bool StickPlot::DrawFrame(const XRange& range, Surface& picture) {
  limits_ = {.XMin = range.Low, .XMax = range.High, .YMin = 0, .YMax = TopOfScale};
  readable_ = SpansX(limits_) && DrawFrameAt(StickPlace, plot_, limits_, picture);
  return readable_;
}

void StickPlot::DrawSticks(std::span<const Stick> sticks, Surface& picture) const {
  if (std::ranges::all_of(sticks, [](const Stick& stick) { return stick.Height == 0; })) {
    return;
  }
  const XRange range{.Low = limits_.XMin, .High = limits_.XMax};
  for (const Stick& stick : sticks) {
    if (range.Holds(stick.X)) DrawStick(stick, colours::Red, picture);
  }
}

void StickPlot::DrawStick(const Stick& stick, Colour colour, Surface& picture) const {
  const float x = PictureX(plot_, stick.X, limits_.XMin);
  picture.Line(x, plot_.PlotBottom, x, PictureY(plot_, stick.Height, plot_.PlotBottom), colour);
}

float StickPlot::XAt(float picture_x) const { return DataX(plot_, picture_x, limits_.XMin); }

StickPlot::Place StickPlot::NearestPlace(float picture_x, float picture_y) const {
  return {.X = XAt(ClampedX(plot_, picture_x)),
          .Y = static_cast<float>(DataY(plot_, ClampedY(plot_, picture_y), plot_.PlotBottom))};
}

std::optional<std::size_t> NearestStick(std::span<const Stick> sticks, float x) {
  std::optional<std::size_t> nearest;
  float best = 1000;
  for (std::size_t i = 0; i < sticks.size(); ++i) {
    const float distance = std::abs(sticks[i].X - x);
    if (distance < best) {
      best = distance;
      nearest = i;
    }
  }
  return nearest;
}

Message NoPeakNear() {
  return ErrorMessage("There is no peak near this place.\r\nClick near the peak that you want.");
}

}  // namespace koprax
