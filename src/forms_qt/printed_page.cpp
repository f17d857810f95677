#include "forms_qt/printed_page.h"

#include <QPainter>

#include "forms_qt/surface_painter.h"

namespace koprax {

namespace {

constexpr double LineWidthMillimetres = 0.2;
constexpr double MillimetresPerInch = 25.4;

QSizeF PaperSize(const Printer& printer) {
  const double units_per_millimetre = printer.Scale().UnitsPerPoint / MillimetresPerPoint;
  return QSizeF(printer.ScaleWidth(), printer.ScaleHeight()) / units_per_millimetre;
}

}  // namespace

QPageLayout PageOf(const Printer& printer) {
  const QSizeF paper = PaperSize(printer);
  const bool portrait = printer.Orientation() == PageOrientation::Portrait;
  QPageLayout page(
      QPageSize(portrait ? paper : paper.transposed(), QPageSize::Millimeter, {}, QPageSize::FuzzyMatch),
      portrait ? QPageLayout::Portrait : QPageLayout::Landscape, QMarginsF());
  page.setMode(QPageLayout::FullPageMode);
  return page;
}

bool PaintPage(const Printer& printer, QPagedPaintDevice& device, int dots_per_inch) {
  QPainter painter;
  if (!painter.begin(&device)) {
    return false;
  }
  const double dots_per_millimetre = dots_per_inch / MillimetresPerInch;
  SurfacePainter(painter, {printer.Scale(), PaperSize(printer) * dots_per_millimetre},
                 LineWidthMillimetres * dots_per_millimetre)
      .Paint(printer.Operations());
  return painter.end();
}

}  // namespace koprax
