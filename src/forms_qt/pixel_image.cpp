#include "forms_qt/pixel_image.h"

#include <cstddef>

#include "forms_qt/surface_painter.h"

namespace koprax {

PixelImage ToPixels(const QImage& image) {
  PixelImage pixels{.Width = image.width(), .Height = image.height()};
  pixels.Pixels.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor colour = image.pixelColor(x, y);
      pixels.Pixels.push_back(static_cast<Colour>(colour.red()) | static_cast<Colour>(colour.green()) << 8U |
                              static_cast<Colour>(colour.blue()) << 16U);
    }
  }
  return pixels;
}

QImage ToQImage(const PixelImage& image) {
  QImage painted(image.Width, image.Height, QImage::Format_RGB32);
  auto pixel = image.Pixels.begin();
  for (int y = 0; y < image.Height; ++y) {
    for (int x = 0; x < image.Width; ++x) {
      painted.setPixelColor(x, y, ToQColor(*pixel++));
    }
  }
  return painted;
}

}  // namespace koprax
