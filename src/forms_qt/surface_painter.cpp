#include "forms_qt/surface_painter.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "forms_qt/greek_letters.h"
#include "forms_qt/pixel_image.h"
#include "forms_qt/qt_fonts.h"
#include "forms_qt/qt_text.h"

namespace koprax {

double SurfaceMap::FontHeight(double points) const {
  return points * scale_.UnitsPerPoint * std::min(std::abs(x_factor_), std::abs(y_factor_));
}

SurfacePainter::SurfacePainter(QPainter& painter, const SurfaceMap& map, double line_width)
    : painter_(painter), map_(map), line_width_(line_width) {}

void SurfacePainter::Paint(std::span<const DrawingOperation> operations) {
  for (const DrawingOperation& operation : operations) {
    std::visit([this](const auto& one) { Paint(one); }, operation);
  }
  FinishRun();
}

void SurfacePainter::Paint(const LineOperation& line) {
  const bool goes_on =
      !run_.empty() && line.LineColour == run_colour_ && line.X1 == run_end_x_ && line.Y1 == run_end_y_;
  if (!goes_on) {
    StartRun(line);
  }
  run_.push_back(map_.ToDevice(line.X2, line.Y2));
  run_end_x_ = line.X2;
  run_end_y_ = line.Y2;
  run_is_straight_ = run_is_straight_ && (line.X1 == line.X2 || line.Y1 == line.Y2);
}

void SurfacePainter::StartRun(const LineOperation& line) {
  FinishRun();
  run_colour_ = line.LineColour;
  run_is_straight_ = true;
  run_.push_back(map_.ToDevice(line.X1, line.Y1));
}

void SurfacePainter::FinishRun() {
  if (run_.empty()) {
    return;
  }
  const QColor colour = ToQColor(run_colour_);
  if (run_is_straight_) {
    // Frames, axes and ticks lie on whole pixels, so that they stay sharp at any size.
    for (std::size_t i = 1; i < run_.size(); ++i) {
      FillSegment(run_[i - 1], run_[i], colour);
    }
  } else {
    PaintCurve(colour);
  }
  run_.clear();
}

void SurfacePainter::PaintCurve(const QColor& colour) {
  // White rubs out what lies below: smooth edges, or those of the line below, would leave a shade of it.
  const bool rubs_out = colour == QColor(Qt::white);
  const double width = rubs_out ? line_width_ + 2 : line_width_;
  QPen pen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
  painter_.setRenderHint(QPainter::Antialiasing, !rubs_out);
  painter_.setPen(pen);
  if (width <= 1) {
    painter_.drawPolyline(run_.data(), static_cast<int>(run_.size()));
    return;
  }
  // A wide pen along one long crossing path takes Qt forty times as long as along its lines one by one.
  std::vector<QLineF> lines;
  lines.reserve(run_.size());
  for (std::size_t i = 1; i < run_.size(); ++i) {
    lines.emplace_back(run_[i - 1], run_[i]);
  }
  painter_.drawLines(lines.data(), static_cast<int>(lines.size()));
}

void SurfacePainter::FillSegment(QPointF from, QPointF to, const QColor& colour) {
  const double width = std::max(1.0, std::round(line_width_));
  const auto edge = [&](double centre) { return PixelAt(centre - width / 2 + 0.5); };
  const QPointF low(edge(std::min(from.x(), to.x())), edge(std::min(from.y(), to.y())));
  const QPointF high(edge(std::max(from.x(), to.x())) + width, edge(std::max(from.y(), to.y())) + width);
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.fillRect(QRectF(low, high), colour);
}

void SurfacePainter::Paint(const PointOperation& point) {
  FinishRun();
  const QPointF place = map_.ToDevice(point.X, point.Y);
  FillSegment(place, place, ToQColor(point.PointColour));
}

void SurfacePainter::Paint(const TextOperation& text) {
  FinishRun();
  const double height = map_.FontHeight(text.Size);
  if (text.Text.empty() || height <= 0) {
    return;
  }
  QFont font = FontNamed(text.Font);
  // The size in points gives fractions of a pixel, which the size in pixels does not.
  font.setPointSizeF(height * 72.0 / painter_.device()->logicalDpiY());
  const QString words = IsSymbolFont(text.Font) ? ToGreek(ToQt(text.Text)) : ToQt(text.Text);
  const QPointF corner = map_.ToDevice(text.X, text.Y);
  const double ascent = QFontMetricsF(font, painter_.device()).ascent();
  painter_.setFont(font);
  painter_.setPen(ToQColor(text.TextColour));
  painter_.drawText(QPointF(std::round(corner.x()), std::round(corner.y() + ascent)), words);
}

void SurfacePainter::Paint(const ImageOperation& image) {
  FinishRun();
  const QRectF place(map_.ToDevice(image.X, image.Y),
                     map_.ToDevice(image.X + image.Width, image.Y + image.Height));
  if (!place.isEmpty()) {
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter_.setRenderHint(QPainter::LosslessImageRendering, true);
    painter_.drawImage(place, ToQImage(*image.Pixels));
  }
}

}  // namespace koprax
