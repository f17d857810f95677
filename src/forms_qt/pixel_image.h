// Images of the program's own against those of Qt.
#pragma once

#include <QImage>

#include "forms/surface.h"

namespace koprax {

[[nodiscard]] PixelImage ToPixels(const QImage& image);
[[nodiscard]] QImage ToQImage(const PixelImage& image);

}  // namespace koprax
