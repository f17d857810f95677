#include "forms/surface.h"

#include <utility>

#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr double LineSpacing = 1.2;  // height of a printed line in font sizes

}  // namespace

void Surface::Add(DrawingOperation operation) {
  operations_.push_back(std::move(operation));
  ++revision_;
  Drawn();
}

void Surface::Line(double x1, double y1, double x2, double y2, Colour colour) {
  Add(LineOperation{static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                    static_cast<float>(y2), colour});
  MoveTo(x2, y2);
}

void Surface::PSet(double x, double y, Colour colour) {
  Add(PointOperation{static_cast<float>(x), static_cast<float>(y), colour});
  MoveTo(x, y);
}

void Surface::PaintPicture(std::shared_ptr<const PixelImage> image, double x, double y, double width,
                           double height) {
  Add(ImageOperation{static_cast<float>(x), static_cast<float>(y), static_cast<float>(width),
                     static_cast<float>(height), std::move(image)});
}

void Surface::PrintLine(std::string_view line) {
  Add(TextOperation{CurrentX, CurrentY, std::string(line), ForeColor, FontName, FontSize});
  const double height = LineSpacing * FontSize * scale_.UnitsPerPoint;
  MoveTo(scale_.Left, scale_.Height < 0 ? CurrentY - height : CurrentY + height);
}

void Surface::Print(std::string_view text) {
  for (;;) {
    const auto end = text.find("\r\n");
    PrintLine(text.substr(0, end));
    if (end == std::string_view::npos) {
      return;
    }
    text.remove_prefix(end + 2);
  }
}

void Surface::Print(float number) { PrintNumber(GeneralText(number)); }

void Surface::Print(double number) { PrintNumber(GeneralText(number)); }

void Surface::Cls() {
  operations_.clear();
  ++revision_;
  MoveTo(scale_.Left, scale_.Top);
  Drawn();
}

}  // namespace koprax
