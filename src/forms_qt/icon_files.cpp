#include "forms_qt/icon_files.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include "forms_qt/logo.h"

namespace koprax {

QByteArray SvgIcon() {
  constexpr int Side = 256;
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  QSvgGenerator generator;
  generator.setOutputDevice(&file);
  generator.setSize({Side, Side});
  generator.setViewBox(QRect(0, 0, Side, Side));
  generator.setTitle(QStringLiteral("KOPRAX"));
  generator.setDescription(QStringLiteral("A powder pattern under diffracted rays"));
  QPainter painter(&generator);
  DrawLogo(painter, QRectF(0, 0, Side, Side));
  painter.end();
  return file.data();
}

QByteArray PngIcon(int pixels) {
  QImage image(pixels, pixels, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  DrawLogo(painter, QRectF(image.rect()));
  painter.end();
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  image.save(&file, "PNG");
  return file.data();
}

}  // namespace koprax
