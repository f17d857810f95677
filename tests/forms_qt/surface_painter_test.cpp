// Painting of texts, and the texts that are made for Qt on the way.
#include "forms_qt/surface_painter.h"

#include <gtest/gtest.h>

#include <QImage>

#include "forms_qt/file_filter.h"
#include "forms_qt/greek_letters.h"

namespace koprax {
namespace {

QImage Painted(const std::vector<DrawingOperation>& operations) {
  QImage image(80, 40, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  const UserScale scale{.Left = 0, .Top = 0, .Width = 20, .Height = 10};
  SurfacePainter(painter, {scale, QSizeF(80, 40)}, 1).Paint(operations);
  return image;
}

QImage Painted(const std::string& text, const std::string& font) {
  return Painted({TextOperation{1, 1, text, colours::Black, font, 20}});
}

TEST(SurfacePainter, WhiteRubsACurveOutWithoutAShadeOfIt) {
  std::vector<DrawingOperation> operations;
  const auto draw = [&](Colour colour) {
    for (int i = 0; i < 9; ++i) {
      const auto x = static_cast<float>(2 * i + 1);
      operations.emplace_back(
          LineOperation{x, i % 2 == 0 ? 1.3F : 8.1F, x + 2, i % 2 == 0 ? 8.1F : 1.3F, colour});
    }
  };
  draw(colours::Magenta);
  EXPECT_NE(Painted(operations), Painted({}));
  draw(colours::White);
  EXPECT_EQ(Painted(operations), Painted({}));
}

TEST(SurfacePainter, AnImageIsStretchedOverItsRectangle) {
  const auto red_and_blue = std::make_shared<PixelImage>(
      PixelImage{.Width = 2, .Height = 1, .Pixels = {colours::Red, colours::Blue}});
  const QImage image = Painted({ImageOperation{5, 2, 10, 5, red_and_blue}});  // pixels 20 to 59, 8 to 27
  for (const int y : {8, 27}) {
    EXPECT_EQ(image.pixelColor(20, y), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(59, y), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(19, y), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(60, y), QColor(Qt::white));
  }
  EXPECT_EQ(image.pixelColor(40, 7), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(40, 28), QColor(Qt::white));
}

TEST(SurfacePainter, SymbolFontDrawsGreek) {
  EXPECT_EQ(Painted("2q", "symbol"), Painted("2θ", "MS Sans Serif"));
  EXPECT_NE(Painted("2q", "symbol"), Painted("2q", "MS Sans Serif"));
  EXPECT_NE(Painted("2q", "symbol"), Painted("", "symbol"));
}

TEST(GreekLetters, OnlyLettersAreMappedAndTheWayBackIsTheSame) {
  EXPECT_EQ(ToGreek("qla pDF"), QString::fromUtf8("θλα πΔΦ"));
  QString letters;
  for (char16_t c = u' '; c < u'\x7f'; ++c) {
    letters += QChar(c);
  }
  const QString greek = ToGreek(letters);
  EXPECT_EQ(FromGreek(greek), letters);
  for (qsizetype i = 0; i < letters.size(); ++i) {
    EXPECT_EQ(greek[i] != letters[i], letters[i].isLetter()) << letters[i].toLatin1();
  }
}

TEST(FileFilter, PairsOfDescriptionAndPattern) {
  EXPECT_EQ(NameFilters("All Files (*.*)|*.*|dat Files (*.dat)|*.dat"),
            (QStringList{"All Files (*)", "dat Files (*.dat)"}));
  EXPECT_EQ(NameFilters("All Files (*.*)|*.*| bmp Files (*.bmp)|*.bmp| "),
            (QStringList{"All Files (*)", "bmp Files (*.bmp)"}));
  EXPECT_EQ(NameFilters("Cards|*.aid; *.pdf"), QStringList{"Cards (*.aid *.pdf)"});
  EXPECT_TRUE(NameFilters("").isEmpty());
  EXPECT_TRUE(NameFilters("lonely").isEmpty());
}

}  // namespace
}  // namespace koprax
