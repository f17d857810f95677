// A document of the printer on a page of Qt's, on paper or in a file alike.
#pragma once

#include <QPageLayout>
#include <QPagedPaintDevice>

#include "forms/printer.h"

namespace koprax {

/// The page that the printer's scale stands for, with no margins: the scale starts at the paper's corner.
[[nodiscard]] QPageLayout PageOf(const Printer& printer);

/// Paints the operations on the device, whose page has been set to PageOf and which has `dots_per_inch`.
/// False when the device can't be painted on.
[[nodiscard]] bool PaintPage(const Printer& printer, QPagedPaintDevice& device, int dots_per_inch);

}  // namespace koprax
