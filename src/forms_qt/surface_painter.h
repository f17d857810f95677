// Turns the drawing operations of a surface into painter calls: the one way for the screen, the printer
// and files. Which operations there are, and when they are painted, is left to others.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QSizeF>
#include <span>
#include <vector>

#include "forms/surface.h"

namespace koprax {

[[nodiscard]] inline QColor ToQColor(Colour colour) {
  return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
          static_cast<int>((colour >> 16U) & 0xFFU)};
}

/// The way between a user scale and a device area of a given size; x and y go on their own.
class SurfaceMap {
 public:
  SurfaceMap(const UserScale& scale, QSizeF size)
      : scale_(scale),
        x_factor_(size.width() / static_cast<double>(scale.Width)),
        y_factor_(size.height() / static_cast<double>(scale.Height)) {}

  [[nodiscard]] QPointF ToDevice(double x, double y) const {
    return {(x - static_cast<double>(scale_.Left)) * x_factor_,
            (y - static_cast<double>(scale_.Top)) * y_factor_};
  }
  [[nodiscard]] QPointF ToUser(QPointF point) const {
    return {static_cast<double>(scale_.Left) + point.x() / x_factor_,
            static_cast<double>(scale_.Top) + point.y() / y_factor_};
  }
  /// The height of a font of that size, in device units: text keeps its share of the area.
  [[nodiscard]] double FontHeight(double points) const;
  [[nodiscard]] bool GrowsUpward() const { return scale_.Height < 0; }

 private:
  UserScale scale_;
  double x_factor_;
  double y_factor_;
};

/// Paints operations on an area of a device, in whole device units (pixels of the screen, dots of a
/// printer), its top left corner at the painter's origin.
class SurfacePainter {
 public:
  /// `line_width` in device units; the thinnest line of the screen has 1.
  SurfacePainter(QPainter& painter, const UserScale& scale, QSizeF size, double line_width);

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
