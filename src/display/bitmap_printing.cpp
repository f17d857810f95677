#include "display/bitmap_printing.h"

#include <utility>

namespace koprax {

void PrintBitmap(Printer& printer, std::shared_ptr<const PixelImage> image, double scale) {
  printer.SetOrientation(image->Height >= image->Width ? PageOrientation::Portrait
                                                       : PageOrientation::Landscape);
  const double ratio = static_cast<double>(image->Width) / image->Height;
  const double page_width = printer.ScaleWidth();
  const double page_height = printer.ScaleHeight();
  // Both sides of the page are in the same unit, so the ratio is the same in any scale.
  const bool as_wide_as_page = ratio >= page_width / page_height;
  const double full_width = as_wide_as_page ? page_width : page_height * ratio;
  const double full_height = as_wide_as_page ? page_width / ratio : page_height;
  printer.PaintPicture(std::move(image), (1 - scale) * full_width / 2, (1 - scale) * full_height / 2,
                       scale * full_width, scale * full_height);
}

}  // namespace koprax
