// The printer as a drawing surface: a page in the scale that the command sets, its fonts, and the
// operations of the document. Putting it on paper or into a file is left to the runtime.
#pragma once

#include <string>
#include <vector>

#include "forms/surface.h"

namespace koprax {

enum class PrinterScale { Twips = 1, Millimetres = 6 };
enum class PageOrientation { Portrait = 1, Landscape = 2 };

class Printer final : public Surface {
 public:
  Printer();

  /// A new document: no operations, a portrait page in twips (1440 an inch) from its top left.
  void BeginDocument(double page_width, double page_height, std::vector<std::string> fonts);
  void SetScaleMode(PrinterScale mode);
  void SetOrientation(PageOrientation orientation);

  int Copies = 1;  ///< wanted by the user; a plot is printed once all the same

  [[nodiscard]] PrinterScale ScaleMode() const { return mode_; }
  [[nodiscard]] PageOrientation Orientation() const { return orientation_; }
  [[nodiscard]] float ScaleWidth() const { return Scale().Width; }
  [[nodiscard]] float ScaleHeight() const { return Scale().Height; }
  [[nodiscard]] const std::vector<std::string>& Fonts() const { return fonts_; }

 private:
  void ApplyScale();

  double short_side_ = 210;  // millimetres; A4 until a document begins
  double long_side_ = 297;
  PrinterScale mode_ = PrinterScale::Twips;
  PageOrientation orientation_ = PageOrientation::Portrait;
  std::vector<std::string> fonts_;
};

}  // namespace koprax
