// Figures as files, against the picture that the windows save and against each other.
#include "forms_qt/figure_file.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cmath>

#include "view_fixture.h"

namespace koprax {
namespace {

class PlotForm final : public Form {
 public:
  explicit PlotForm(Desktop& desk) : Form(desk, "Plot", "Plot") { SetLayout(Column({Picture})); }
  PictureBox Picture{*this,
                     "Picture",
                     {.Scale = {.Left = -10, .Top = 98, .Width = 120.03F, .Height = -90.5F},
                      .DesignWidth = 122.3,
                      .DesignHeight = 90.5}};
};

class FigureFileTest : public ViewTest {
 protected:
  /// Frame, curve, a curve that is rubbed out, points and texts.
  void Draw() {
    PictureBox& picture = form_.Picture;
    picture.Line(0, 15, 100, 15);
    picture.Line(100, 15, 100, 90);
    for (const Colour colour : {colours::Red, colours::White, colours::Blue}) {
      const double height = colour == colours::Blue ? 30 : 20;
      for (int i = 0; i < 90; ++i) {
        picture.Line(i, 50 + height * std::sin(i * 0.1), i + 1, 50 + height * std::sin(i * 0.1 + 0.1),
                     colour);
      }
    }
    picture.PSet(5, 80, colours::Magenta);
    picture.MoveTo(40, 95);
    picture.FontSize = 12;
    picture.Print("a < b  &");
    picture.FontName = SymbolFont;
    picture.MoveTo(50, 12);
    picture.Print("2q");
  }
  [[nodiscard]] Figure Drawn() const { return FigureOf(form_.Picture); }

  PlotForm& form_{Show<PlotForm>()};
};

QImage ImageOf(QByteArray bytes) {
  QBuffer buffer(&bytes);
  return QImageReader(&buffer).read();
}

/// The mean difference of two images in their grey values, 0 to 255.
double MeanDifference(const QImage& one, const QImage& other) {
  double sum = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
    }
  }
  return sum / one.width() / one.height();
}

TEST_F(FigureFileTest, PngAtTheDesignSizeIsTheSavedPicture) {
  Draw();
  const QTemporaryDir folder;
  const QString path = folder.filePath("saved.bmp");
  ASSERT_EQ(platform_.SavePicture(form_.Picture, path.toStdString()), std::nullopt);
  const QImage saved = QImage(path).convertToFormat(QImage::Format_RGB32);
  const QImage figure = ImageOf(FigureAsPng(Drawn(), 96)).convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(figure, saved);
  EXPECT_EQ(figure.dotsPerMeterX(), 3780);
  EXPECT_EQ(ImageOf(FigureAsPng(Drawn(), 300)).size(), QSize(1444, 1069)) << "122.3 x 90.5 mm";
  EXPECT_TRUE(FigureAsPng(Drawn(), 9000).isEmpty()) << "more dots than can be painted";
}

TEST_F(FigureFileTest, SvgShowsWhatThePngShows) {
  Draw();
  const QByteArray svg = FigureAsSvg(Drawn());
  EXPECT_EQ(svg, FigureAsSvg(Drawn()));
  EXPECT_EQ(svg.count("<text"), 2);
  EXPECT_TRUE(svg.contains("2θ"));
  EXPECT_TRUE(svg.contains("sans-serif"));
  EXPECT_EQ(svg.count("<polyline"), 180) << "the blue curve and the white one, line by line";
  QSvgRenderer renderer(svg);
  ASSERT_TRUE(renderer.isValid());
  const QImage png = FigureImage(Drawn(), 300);
  QImage shown(png.size(), QImage::Format_RGB32);
  shown.fill(Qt::white);
  QPainter painter(&shown);
  renderer.render(&painter, QRectF(shown.rect()));
  painter.end();
  QImage blank(png.size(), QImage::Format_RGB32);
  blank.fill(Qt::white);
  // Edges lie up to half a dot apart, which no longer tells on coarser dots; a line that is missing, or half
  // as wide, makes a larger share.
  const auto coarse = [](const QImage& image) {
    return image.scaledToWidth(image.width() / 6, Qt::SmoothTransformation);
  };
  EXPECT_LT(MeanDifference(coarse(png), coarse(shown)), 0.2 * MeanDifference(coarse(png), coarse(blank)));
}

TEST_F(FigureFileTest, SvgShowsNoShadeOfWhatHasBeenRubbedOut) {
  Draw();
  QSvgRenderer renderer(FigureAsSvg(Drawn()));
  for (const int width : {300, 465, 1000}) {
    QImage shown(width, width * 3 / 4, QImage::Format_RGB32);
    shown.fill(Qt::white);
    QPainter painter(&shown);
    renderer.render(&painter, QRectF(shown.rect()));
    painter.end();
    int reddish = 0;
    for (int i = 0; i < width * shown.height(); ++i) {
      const QRgb pixel = shown.pixel(i % width, i / width);
      reddish += qRed(pixel) > qBlue(pixel) + 2 ? 1 : 0;  // the smoothing of a viewer may be off by one
    }
    EXPECT_EQ(reddish, 0) << width;
  }
}

TEST_F(FigureFileTest, SvgCanBeReadWhateverTitlesAndFontsAreCalled) {
  form_.Picture.Print("\x01<&\"\xEF\xBF\xBF\x1B");
  for (const char* font : {"times", "times\" x=\"<&>", "R & D Sans", "\x01", ""}) {
    form_.Picture.FontName = font;
    form_.Picture.Print("a");
  }
  const QByteArray svg = FigureAsSvg(Drawn());
  QXmlStreamReader reader(svg);
  QStringList families;
  while (!reader.atEnd()) {
    reader.readNext();
    const auto family = reader.attributes().value(QLatin1String("font-family"));
    if (reader.isStartElement() && !family.isEmpty()) families += family.toString();
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  for (const char* family : {"times, serif", "times\" x=\"<&>, serif", "R & D Sans, sans-serif"}) {
    EXPECT_TRUE(families.contains(QString::fromUtf8(family))) << svg.toStdString();
  }
}

TEST_F(FigureFileTest, PdfHasTheSizeAndNothingOfTheMoment) {
  Draw();
  const QByteArray pdf = FigureAsPdf(Drawn());
  EXPECT_EQ(pdf, FigureAsPdf(Drawn()));
  EXPECT_TRUE(pdf.contains("/MediaBox [0 0 347.000000 257.000000]")) << "whole points: 122.3 x 90.5 mm";
}

}  // namespace
}  // namespace koprax
