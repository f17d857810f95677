// Pictures on the screen: where the mouse is, what is painted, and what is not painted again.
#include "forms_qt/picture_widget.h"

#include <QFile>
#include <QImage>
#include <QMouseEvent>
#include <QScreen>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>

#include "view_fixture.h"

namespace koprax {
namespace {

// 123.03 x 95.51 mm, y growing upward from 2.49 to 98, as the plots have it.
const PictureSetup PlotSetup{.Scale = {.Left = 0, .Top = 98, .Width = 123.03F, .Height = -95.51F},
                             .DesignWidth = 123.03,
                             .DesignHeight = 95.51};

class PlotForm final : public Form {
 public:
  explicit PlotForm(Desktop& desk) : Form(desk, "Plot", "Plot") {
    SetLayout(Stretched(Picture1), true);
    Picture1.OnMouseDown = [this](MouseButton button, float x, float y) { Events.push_back({button, x, y}); };
    Picture1.OnMouseMove = [this](float x, float y) { Events.push_back({{}, x, y}); };
    Shape1.Visible = false;
  }
  struct Event {
    std::optional<MouseButton> Button;
    float X, Y;
  };
  std::vector<Event> Events;
  PictureBox Picture1{*this, "Picture1", PlotSetup};
  Shape Shape1{Picture1, "Shape1", 40, 60, 20, 20};
  LineShape Line1{Picture1, "Line1", colours::Blue, 10, 15, 10, 90};
};

class PictureWidgetTest : public ViewTest {
 protected:
  PictureWidget& Picture(PlotForm& form) { return Widget<PictureWidget>(form.Picture1); }
  QColor ColourAt(PlotForm& form, double x, double y) {
    QWidget& widget = Widget(form.Picture1);
    const QImage image = widget.grab().toImage();
    const double across = x / 123.03 * image.width();
    const double down = (98 - y) / 95.51 * image.height();
    return image.pixelColor(static_cast<int>(across), static_cast<int>(down));
  }
};

TEST_F(PictureWidgetTest, StartsAtItsDesignSize) {
  PlotForm& form = Show<PlotForm>();
  // 6975 x 5415 twips, 15 of them a pixel.
  EXPECT_EQ(Widget(form.Picture1).size(), QSize(465, 361));
}

TEST_F(PictureWidgetTest, MouseIsWhereItIsAtAnySizeAndDensity) {
  PlotForm& form = Show<PlotForm>();
  QWidget& widget = Widget(form.Picture1);
  for (const QScreen* screen : QApplication::screens()) {
    Window(form).move(screen->geometry().topLeft());
    for (const QSize size : {QSize(500, 400), QSize(777, 555)}) {
      Window(form).resize(size);
      Settle();
      ASSERT_EQ(widget.devicePixelRatioF(), screen->devicePixelRatio());
      const QPointF at(widget.width() / 3.0, widget.height() / 7.0);
      QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
      QCoreApplication::sendEvent(&widget, &move);
      // One rounding of the exact value to 32 bits.
      EXPECT_FLOAT_EQ(form.Events.back().X, 123.03F / 3);
      EXPECT_FLOAT_EQ(form.Events.back().Y, 98 - 95.51F / 7);
    }
  }
}

/// The columns of a window, in pixels of its screen, that have this colour in a row.
std::vector<int> ColumnsOf(QWidget& window, int row, QColor colour) {
  const QImage image = window.grab().toImage();
  std::vector<int> columns;
  for (int x = 0; x < image.width(); ++x) {
    if (image.pixelColor(x, row) == colour) columns.push_back(x);
  }
  return columns;
}

TEST_F(PictureWidgetTest, WhatIsDrawnAtTheMouseLandsInThePixelUnderIt) {
  PlotForm& form = Show<PlotForm>();
  QWidget& widget = Widget(form.Picture1);
  for (const QScreen* screen : QApplication::screens()) {
    const double density = screen->devicePixelRatio();
    SCOPED_TRACE(density);
    Window(form).move(screen->geometry().topLeft());
    Window(form).resize(503, 401);
    for (int pixel = 100; pixel < 140; ++pixel) {
      const QPointF in_window(pixel / density, 60 / density);
      // As Qt tells it: whole units in the widget.
      const QPointF at = widget.mapFrom(&Window(form), in_window).toPoint();
      QMouseEvent move(QEvent::MouseMove, at, in_window, widget.mapToGlobal(at), Qt::NoButton, {}, {});
      QCoreApplication::sendEvent(&widget, &move);
      const float x = form.Events.back().X;
      form.Line1.Move(x, 15, x, 90);
      form.Picture1.Cls();
      form.Picture1.Line(x, 2.5, x, 12, colours::Red);
      Settle();
      const int foot = static_cast<int>((Window(form).height() - 15) * density);
      // A line of the width of one point of the screen covers the pixel alone, or one beside it, too.
      const auto covers = [&](const std::vector<int>& columns) {
        return static_cast<double>(columns.size()) <= std::round(density) &&
               std::ranges::count(columns, pixel) == 1;
      };
      EXPECT_TRUE(covers(ColumnsOf(Window(form), 200, Qt::blue))) << pixel;
      EXPECT_TRUE(covers(ColumnsOf(Window(form), foot, Qt::red))) << pixel;
    }
  }
}

TEST_F(PictureWidgetTest, ButtonsAreToldApartAndDragsLeaveThePicture) {
  PlotForm& form = Show<PlotForm>();
  QWidget& widget = Widget(form.Picture1);
  QTest::mousePress(&widget, Qt::RightButton, {}, {10, 10});
  EXPECT_EQ(form.Events.back().Button, MouseButton::Right);
  QTest::mousePress(&widget, Qt::LeftButton, {}, {10, 10});
  EXPECT_EQ(form.Events.back().Button, MouseButton::Left);
  QTest::mouseMove(&widget, {-20, 400});
  EXPECT_LT(form.Events.back().X, 0);
  EXPECT_LT(form.Events.back().Y, 2.49F);
  const std::size_t before = form.Events.size();
  QTest::mousePress(&widget, Qt::MiddleButton, {}, {10, 10});
  EXPECT_EQ(form.Events.size(), before);
}

TEST_F(PictureWidgetTest, DrawsOnWhitePaperWhereTheScaleSays) {
  PlotForm& form = Show<PlotForm>();
  form.Line1.Visible = false;
  form.Picture1.Line(20, 15, 115, 15);
  form.Picture1.Line(20, 50, 115, 50, colours::Red);
  form.Picture1.PSet(80.2, 80.2, colours::Blue);
  for (int pass = 0; pass < 3; ++pass) {
    EXPECT_EQ(ColourAt(form, 60, 15), QColor(Qt::black));
    EXPECT_EQ(ColourAt(form, 60, 50), QColor(Qt::red));
    EXPECT_EQ(ColourAt(form, 80.2, 80.2), QColor(Qt::blue));
    EXPECT_EQ(ColourAt(form, 10, 50), QColor(Qt::white));
    EXPECT_EQ(ColourAt(form, 60, 30), QColor(Qt::white));
    Window(form).move(QApplication::screens()[pass]->geometry().topLeft());
    Window(form).resize(600 + 100 * pass, 500);
    Settle();
  }
  form.Picture1.Cls();
  EXPECT_EQ(ColourAt(form, 60, 15), QColor(Qt::white));
}

TEST_F(PictureWidgetTest, LabelsKeepTheirShareOfThePicture) {
  PlotForm& form = Show<PlotForm>();
  form.Line1.Visible = false;
  form.Picture1.MoveTo(30, 60);
  form.Picture1.FontSize = 16;
  form.Picture1.Print("HHHH");
  const auto inked_share = [&] {
    const QImage image = Widget(form.Picture1).grab().toImage();
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y).lightness() < 128) {
          inked |= QRect(x, y, 1, 1);
        }
      }
    }
    return QRectF(inked.x() / double(image.width()), inked.y() / double(image.height()),
                  inked.width() / double(image.width()), inked.height() / double(image.height()));
  };
  const QRectF small = inked_share();
  Window(form).resize(Window(form).size() * 1.6);
  Settle();
  const QRectF large = inked_share();
  // A pixel of the small picture is 0.002 of its width; glyphs are laid on whole pixels.
  EXPECT_NEAR(small.x(), 30 / 123.03, 0.008);
  EXPECT_NEAR(large.x(), small.x(), 0.008);
  EXPECT_NEAR(large.y(), small.y(), 0.012);
  EXPECT_NEAR(large.width(), small.width(), 0.03);
}

TEST_F(PictureWidgetTest, OverlaysMoveWithoutRedrawing) {
  PlotForm& form = Show<PlotForm>();
  for (int i = 0; i < 8000; ++i) {
    form.Picture1.Line(i * 0.015, 20 + i % 40, (i + 1) * 0.015, 20 + (i + 1) % 40);
  }
  Settle();
  PictureWidget& picture = Picture(form);
  ASSERT_EQ(picture.OperationsPainted(), 8000U);

  EXPECT_EQ(ColourAt(form, 10, 85), QColor(Qt::blue));
  form.Line1.Move(50, 15, 50, 90);
  form.Shape1.Visible = true;
  Settle();
  EXPECT_EQ(ColourAt(form, 10, 85), QColor(Qt::white));
  EXPECT_EQ(ColourAt(form, 50, 85), QColor(Qt::blue));
  form.Line1.Visible = false;
  Settle();
  EXPECT_EQ(ColourAt(form, 50, 85), QColor(Qt::white));
  EXPECT_EQ(picture.OperationsPainted(), 8000U);

  // What is drawn on top is painted alone.
  form.Picture1.Line(20, 95, 100, 95, colours::Red);
  Settle();
  EXPECT_EQ(picture.OperationsPainted(), 8001U);
  EXPECT_EQ(ColourAt(form, 60, 95), QColor(Qt::red));

  // As many operations as before, but others.
  form.Picture1.Cls();
  for (int i = 0; i < 8001; ++i) {
    form.Picture1.Line(20, 30, 100, 30, colours::Blue);
  }
  Settle();
  EXPECT_EQ(ColourAt(form, 60, 95), QColor(Qt::white));
  EXPECT_EQ(ColourAt(form, 60, 30), QColor(Qt::blue));
}

TEST_F(PictureWidgetTest, IsSavedAtItsDesignSizeAndReadBack) {
  PlotForm& form = Show<PlotForm>();
  form.Picture1.Line(20, 50, 115, 50, colours::Red);
  const QTemporaryDir folder;
  const std::string path = folder.filePath("plot.bmp").toStdString();
  const auto saved = [&] {
    EXPECT_EQ(platform_.SavePicture(form.Picture1, path), std::nullopt);
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  };
  const QByteArray bytes = saved();
  EXPECT_TRUE(bytes.startsWith("BM"));
  EXPECT_EQ(bytes.mid(28, 2), QByteArray("\x18\x00", 2));  // bits a pixel
  const auto image = std::get<PixelImage>(platform_.LoadPicture(path));
  ASSERT_EQ(QSize(image.Width, image.Height), QSize(465, 361));
  const auto at = [&](std::size_t x, std::size_t y) { return image.Pixels[y * 465 + x]; };
  // (98 - 50) / 95.51 of 361 pixels are 181.4; 20 and 115 of 123.03 are pixels 75.6 and 434.7.
  for (const std::size_t x : {78U, 432U}) EXPECT_EQ(at(x, 181), colours::Red);
  for (const std::size_t x : {72U, 438U}) EXPECT_EQ(at(x, 181), colours::White);
  for (const std::size_t y : {179U, 183U}) EXPECT_EQ(at(240, y), colours::White);
  Window(form).resize(Window(form).size() * 1.5);
  Settle();
  EXPECT_EQ(saved(), bytes);
  QFile none(QString::fromStdString(path));
  ASSERT_TRUE(none.open(QIODevice::WriteOnly) && none.write("no image") > 0 && none.flush());
  EXPECT_FALSE(std::get<std::string>(platform_.LoadPicture(path)).empty());
}

TEST_F(PictureWidgetTest, RubberBandHangsDownFromItsTop) {
  PlotForm& form = Show<PlotForm>();
  form.Shape1.Visible = true;
  Settle();
  const auto inked = [&](double x, double y) {
    bool ink = false;
    for (double nearby = -1.5; nearby <= 1.5; nearby += 0.25) {  // the line is dashed
      ink = ink || ColourAt(form, x + nearby, y) == QColor(Qt::black);
    }
    return ink;
  };
  EXPECT_TRUE(inked(50, 60));
  EXPECT_TRUE(inked(50, 40));
  EXPECT_FALSE(inked(50, 50));
  EXPECT_FALSE(inked(50, 80));
}

TEST_F(PictureWidgetTest, RefreshPaintsInTheMiddleOfAHandler) {
  PlotForm& form = Show<PlotForm>();
  PictureWidget& picture = Picture(form);
  form.Picture1.Line(20, 15, 115, 15);
  form.Picture1.Refresh();
  EXPECT_EQ(picture.OperationsPainted(), 1U);
  // Sooner than anybody could see it: the next repaint takes it along.
  form.Picture1.Line(20, 25, 115, 25);
  form.Picture1.Refresh();
  EXPECT_EQ(picture.OperationsPainted(), 1U);
  Settle();
  EXPECT_EQ(picture.OperationsPainted(), 2U);
}

TEST_F(PictureWidgetTest, PointersOfPictureAndForm) {
  PlotForm& form = Show<PlotForm>();
  const QWidget& widget = Widget(form.Picture1);
  form.Picture1.MousePointer = Pointer::Cross;
  EXPECT_EQ(widget.cursor().shape(), Qt::CrossCursor);
  form.MousePointer = Pointer::Hourglass;
  EXPECT_EQ(widget.cursor().shape(), Qt::WaitCursor);
  form.MousePointer = Pointer::Arrow;
  EXPECT_EQ(widget.cursor().shape(), Qt::CrossCursor);
}

}  // namespace
}  // namespace koprax
