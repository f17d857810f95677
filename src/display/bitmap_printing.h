// An image on paper.
#pragma once

#include <memory>

#include "forms/printer.h"

namespace koprax {

/// Draws the image on the page, turned to the image's longer side, at `scale` (0 to 1) of the largest size
/// that fits the page, in the middle of the place that this size would take. The page keeps its scale mode.
void PrintBitmap(Printer& printer, std::shared_ptr<const PixelImage> image, double scale);

}  // namespace koprax
