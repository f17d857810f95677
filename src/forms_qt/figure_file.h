// Drawing operations as the contents of a picture file: SVG, PDF or PNG of a given size, on white paper. The
// same operations always give the same bytes. Where they come from, and who writes the file, is left to
// others.
#pragma once

#include <QByteArray>
#include <QImage>
#include <span>

#include "forms/control.h"
#include "forms/surface.h"

namespace koprax {

/// Operations in their scale, and the size that the area of the scale gets, in millimetres.
struct Figure {
  UserScale Scale;
  std::span<const DrawingOperation> Operations;
  double Width;
  double Height;
};

/// What is drawn on a picture, at its design size.
[[nodiscard]] Figure FigureOf(const PictureBox& picture);

/// Of so many dots an inch, which it tells. A null image where there is no memory for it, or where a side has
/// no dot or more than 32767.
[[nodiscard]] QImage FigureImage(const Figure& figure, double dots_per_inch);

/// Empty where FigureImage has none.
[[nodiscard]] QByteArray FigureAsPng(const Figure& figure, double dots_per_inch);

/// Files of lines; what white lines have rubbed out isn't in them. An empty PDF where it can't be painted.
[[nodiscard]] QByteArray FigureAsSvg(const Figure& figure);
[[nodiscard]] QByteArray FigureAsPdf(const Figure& figure);

}  // namespace koprax
