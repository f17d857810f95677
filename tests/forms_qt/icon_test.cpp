// The icons of the package are the picture that the windows show.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include "forms_qt/icon_files.h"
#include "forms_qt/logo.h"

namespace koprax {
namespace {

template <class Draw>
QImage Drawn(int side, const Draw& draw) {
  QImage image(side, side, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  draw(painter);
  painter.end();
  return image;
}

/// The greatest difference of any colour of any pixel.
int GreatestDifference(const QImage& one, const QImage& other) {
  int greatest = 0;
  for (qsizetype i = 0; i < one.sizeInBytes(); ++i) {
    greatest = std::max(greatest, std::abs(one.constBits()[i] - other.constBits()[i]));
  }
  return greatest;
}

TEST(Icon, EachFileShowsThePictureOfTheProgram) {
  QSvgRenderer vectors(SvgIcon());
  ASSERT_TRUE(vectors.isValid());
  for (const int side : {48, 256}) {
    const QImage logo = Drawn(side, [&](QPainter& painter) { DrawLogo(painter, QRectF(0, 0, side, side)); });
    const QImage from_svg = Drawn(side, [&](QPainter& painter) { vectors.render(&painter); });
    const QImage from_png = QImage::fromData(PngIcon(side)).convertToFormat(QImage::Format_ARGB32);
    // The file of vectors holds six digits, which tips the rounding of a colour now and then.
    EXPECT_LE(GreatestDifference(logo, from_svg), 3) << side;
    ASSERT_EQ(from_png.size(), logo.size());
    EXPECT_EQ(GreatestDifference(logo, from_png), 0) << side;
    EXPECT_EQ(qAlpha(from_svg.pixel(0, side - 1)), 0) << "no ring leaves the plate";
    EXPECT_EQ(qAlpha(from_svg.pixel(side / 2, side / 2)), 255);
  }
}

}  // namespace
}  // namespace koprax
