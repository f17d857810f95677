#include "cards/card_plot.h"

#include <cstddef>

#include "display/curve.h"
#include "display/plot_axes.h"

namespace koprax {

namespace {

constexpr float DegreesAround = 5;
constexpr float HighestIntensity = 120;
constexpr double TwipsPerPoint = 20;
constexpr double TwipsPerYUnit = 63;

constexpr PlotPlace CardPlace{.FrameLeft = 3,
                              .FrameBottom = 2,
                              .FrameRight = 115,
                              .FrameTop = 43,
                              .PlotLeft = 13,
                              .PlotBottom = 10,
                              .PlotRight = 112,
                              .PlotTop = 40,
                              .Upward = 1};

}  // namespace

PictureSetup CardPicture() {
  return {.Scale = {.Left = 0,
                    .Top = 45,
                    .Width = 117.78F,
                    .Height = -45.95F,
                    .UnitsPerPoint = TwipsPerPoint / TwipsPerYUnit},
          .DesignWidth = 8175 / TwipsPerMillimetre,
          .DesignHeight = 2895 / TwipsPerMillimetre};
}

PlotLimits CardLimits(const ProfileBuffer& card) {
  return {.XMin = card.PermXMin - DegreesAround,
          .XMax = card.PermXMax + DegreesAround,
          .YMin = 0,
          .YMax = HighestIntensity};
}

bool DrawCard(const ProfileBuffer& card, PlotTransform& plot, Surface& picture) {
  const PlotLimits limits = CardLimits(card);
  if (!(limits.XMax > limits.XMin) || !DrawFrameAt(CardPlace, plot, limits, picture)) {
    return false;
  }
  const XRange range{.Low = limits.XMin, .High = limits.XMax};
  for (std::size_t i = 1; i <= static_cast<std::size_t>(card.WorkNpts); ++i) {
    if (range.Holds(card.WorkX[i])) {
      const float px = PictureX(plot, card.WorkX[i], limits.XMin);
      picture.Line(px, plot.PlotBottom, px, PictureY(plot, card.WorkY[i], plot.PlotBottom), colours::Red);
    }
  }
  return true;
}

}  // namespace koprax
