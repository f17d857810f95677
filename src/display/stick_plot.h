// A stick diagram in the small frame of its window: positions along X, heights on a scale of 0 to 120, and a
// transform of its own. What the sticks stand for is left to the window.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "display/curve.h"
#include "display/plot_transform.h"
#include "forms/runtime.h"
#include "forms/surface.h"
#include "workspace/workspace.h"

namespace koprax {

/// The picture of a stick diagram: 8175 x 2895 twips; x from 0 at its left edge in units of 69.41 twips, y
/// from 45 at its top edge and growing upward in units of 63 twips.
[[nodiscard]] PictureSetup StickPicture(std::string meaning = "Stick diagram of the peaks");

/// 2-theta in degrees or a channel, and a height.
struct Stick {
  float X = 0;
  double Height = 0;
};

/// The sticks of a peak list, whose greatest intensity is as high as 100. X is PeakChannel in channels, else
/// PeakTheta. Without any intensity they have no height.
[[nodiscard]] std::vector<Stick> PeakSticks(const ProfileBuffer& buffer, bool channels);

class StickPlot {
 public:
  /// Draws the frame; nothing is cleared before. False when the range spans nothing that could be drawn: then
  /// nothing is, and there is no plot any more.
  [[nodiscard]] bool DrawFrame(const XRange& range, Surface& picture);
  /// Draws the sticks within the range; none where all are without height.
  void DrawSticks(std::span<const Stick> sticks, Surface& picture) const;
  /// Draws one stick wherever it stands.
  void DrawStick(const Stick& stick, Colour colour, Surface& picture) const;

  /// Whether there is a plot whose positions can be read.
  [[nodiscard]] bool Readable() const { return readable_; }
  [[nodiscard]] const PlotLimits& Limits() const { return limits_; }
  /// The X at a position, also beside the plot.
  [[nodiscard]] float XAt(float picture_x) const;
  /// X and height at a position, or at the nearest one within the plot.
  struct Place {
    float X;
    float Y;
  };
  [[nodiscard]] Place NearestPlace(float picture_x, float picture_y) const;

 private:
  bool readable_ = false;
  PlotLimits limits_{};
  PlotTransform plot_;
};

/// The index, from 0, of the stick nearest to an X, the first one of several; nothing if there is none within
/// 1000 units.
[[nodiscard]] std::optional<std::size_t> NearestStick(std::span<const Stick> sticks, float x);
/// What the user is told where there is none.
[[nodiscard]] Message NoPeakNear();

}  // namespace koprax
