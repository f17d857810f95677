#include "forms_qt/logo.h"

#include <QPainterPath>
#include <QPixmap>
#include <array>

namespace koprax {

namespace {

struct LogoPeak {
  double Position, Height, Width;  // shares of the area
};
constexpr std::array<LogoPeak, 5> Peaks{{{0.20, 0.30, 0.014},
                                         {0.36, 0.74, 0.016},
                                         {0.55, 0.42, 0.015},
                                         {0.68, 0.26, 0.016},
                                         {0.84, 0.17, 0.018}}};

/// The height of the pattern at a place between 0 and 1: Lorentzians on a falling background.
double PatternHeight(double place) {
  double height = 0.10 - 0.05 * place;
  for (const LogoPeak& peak : Peaks) {
    const double distance = (place - peak.Position) / peak.Width;
    height += peak.Height / (1 + distance * distance);
  }
  return height;
}

QPainterPath PatternPath() {
  constexpr int Steps = 160;
  QPainterPath path(QPointF(0.08, 0.86));
  for (int i = 0; i <= Steps; ++i) {
    const double place = static_cast<double>(i) / Steps;
    path.lineTo(0.08 + 0.84 * place, 0.86 - 0.84 * PatternHeight(place));
  }
  path.lineTo(0.92, 0.86);
  path.closeSubpath();
  return path;
}

/// The ring inside the plate, as a shape of its own: pictures in vectors know no clipping.
QPainterPath RingInside(const QPainterPath& plate, double radius) {
  constexpr double HalfWidth = 0.006;
  const QPointF source(0.08, 0.86);
  QPainterPath ring;
  ring.addEllipse(source, radius + HalfWidth, radius + HalfWidth);
  ring.addEllipse(source, radius - HalfWidth, radius - HalfWidth);
  // Shapes are cut as finely as curves are drawn at a scale of one dot.
  const QTransform to_dots = QTransform::fromScale(2000, 2000);
  return to_dots.inverted().map(to_dots.map(ring).intersected(to_dots.map(plate)));
}

}  // namespace

void DrawLogo(QPainter& painter, const QRectF& area) {
  const double side = std::min(area.width(), area.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(area.center() - QPointF(side / 2, side / 2));
  painter.scale(side, side);

  QPainterPath plate;
  plate.addRoundedRect(QRectF(0.01, 0.01, 0.98, 0.98), 0.12, 0.12);
  painter.fillPath(plate, QColor(22, 50, 92));
  for (const double radius : {0.22, 0.40, 0.58, 0.76}) {
    painter.fillPath(RingInside(plate, radius), QColor(120, 170, 220, 110));
  }
  painter.setPen(QPen(QColor(255, 205, 92), 0.02, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(QColor(255, 205, 92, 70));
  painter.drawPath(PatternPath());
  painter.restore();
}

QIcon LogoIcon() {
  QPixmap image(64, 64);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  DrawLogo(painter, QRectF(image.rect()));
  return QIcon(image);
}

}  // namespace koprax
