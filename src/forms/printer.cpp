#include "forms/printer.h"

#include <algorithm>
#include <utility>

namespace koprax {

namespace {

double UnitsPerMillimetre(PrinterScale mode) {
  return mode == PrinterScale::Millimetres ? 1.0 : 1440.0 / 25.4;
}

}  // namespace

Printer::Printer() : Surface(UserScale{}) { ApplyScale(); }

void Printer::BeginDocument(double page_width, double page_height, std::vector<std::string> fonts) {
  short_side_ = std::min(page_width, page_height);
  long_side_ = std::max(page_width, page_height);
  fonts_ = std::move(fonts);
  Copies = 1;
  mode_ = PrinterScale::Twips;
  orientation_ = PageOrientation::Portrait;
  ForeColor = colours::Black;
  FontName = DefaultFont;
  FontSize = 8;
  ApplyScale();
  Cls();
}

void Printer::SetScaleMode(PrinterScale mode) {
  mode_ = mode;
  ApplyScale();
}

void Printer::SetOrientation(PageOrientation orientation) {
  orientation_ = orientation;
  ApplyScale();
}

void Printer::ApplyScale() {
  const double units = UnitsPerMillimetre(mode_);
  const bool portrait = orientation_ == PageOrientation::Portrait;
  SetScale({.Left = 0,
            .Top = 0,
            .Width = static_cast<float>((portrait ? short_side_ : long_side_) * units),
            .Height = static_cast<float>((portrait ? long_side_ : short_side_) * units),
            .UnitsPerPoint = MillimetresPerPoint * units});
}

}  // namespace koprax
