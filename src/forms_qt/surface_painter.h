// Turns the drawing operations of a surface into painter calls: the one way for the screen, the printer
// and files. Which operations there are, and when they are painted, is left to others.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QSizeF>
#include <cmath>
#include <span>
#include <vector>

#include "forms/surface.h"

namespace koprax {

[[nodiscard]] inline QColor ToQColor(Colour colour) {
  return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
          static_cast<int>((colour >> 16U) & 0xFFU)};
}

/// The pixel that a place on a device lies in. A place that the rounding to 32 bits has put just before its
/// pixel counts as in it.
[[nodiscard]] inline double PixelAt(double place) { return std::floor(place + 1.0 / 64); }

/// The way between a user scale and a device area of a given corner and size; x and y go on their own.
class SurfaceMap {
 public:
  SurfaceMap(const UserScale& scale, QSizeF size, QPointF corner = {})
      : scale_(scale),
        corner_(corner),
        x_factor_(size.width() / static_cast<double>(scale.Width)),
        y_factor_(size.height() / static_cast<double>(scale.Height)) {}

  [[nodiscard]] QPointF ToDevice(double x, double y) const {
    return {corner_.x() + (x - static_cast<double>(scale_.Left)) * x_factor_,
            corner_.y() + (y - static_cast<double>(scale_.Top)) * y_factor_};
  }
  [[nodiscard]] QPointF ToUser(QPointF point) const {
    return {static_cast<double>(scale_.Left) + (point.x() - corner_.x()) / x_factor_,
            static_cast<double>(scale_.Top) + (point.y() - corner_.y()) / y_factor_};
  }
  /// The height of a font of that size, in device units: text keeps its share of the area.
  [[nodiscard]] double FontHeight(double points) const;
  [[nodiscard]] bool GrowsUpward() const { return scale_.Height < 0; }

 private:
  UserScale scale_;
  QPointF corner_;
  double x_factor_;
  double y_factor_;
};

/// Paints operations on an area of a device, in whole device units (pixels of the screen, dots of a
/// printer).
class SurfacePainter {
 public:
  /// `line_width` in device units; the thinnest line of the screen has 1.
  SurfacePainter(QPainter& painter, const SurfaceMap& map, double line_width);

  void Paint(std::span<const DrawingOperation> operations);

 private:
  void Paint(const LineOperation& line);
  void Paint(const PointOperation& point);
  void Paint(const TextOperation& text);
  void Paint(const ImageOperation& image);
  void StartRun(const LineOperation& line);
  void FinishRun();
  void PaintCurve(const QColor& colour);
  void FillSegment(QPointF from, QPointF to, const QColor& colour);

  QPainter& painter_;
  SurfaceMap map_;
  double line_width_;

  // Lines of one colour, each starting where the last one ended, are painted in one go.
  std::vector<QPointF> run_;
  Colour run_colour_ = 0;
  float run_end_x_ = 0;
  float run_end_y_ = 0;
  bool run_is_straight_ = true;  // all its lines are horizontal or vertical
};

}  // namespace koprax
