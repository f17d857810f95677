// The picture that is meant among the answers of koprax-script. What an operation is stands elsewhere; scales
// and sizes are left to the layout of the figure.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "app/figure_operations.h"

namespace koprax {

/// The page of the printer, as the answer of `get Printer` tells it.
struct PrinterPage {
  int ScaleMode;  ///< 1 for twips, 6 for millimetres
  float Width;    ///< in these
  float Height;
};

/// Which of the pictures; the last one that fits is meant.
struct PictureChoice {
  std::optional<std::string> Name{};  ///< "Form6.Picture1", "Printer"
  std::optional<int> Line{};          ///< of the script
};

struct ReadPicture {
  std::string Name{};  ///< empty where nothing tells it
  OperationsRead Drawn{};
  std::optional<PrinterPage> Page{};  ///< for the Printer, of the nearest answer that tells it
};

/// Reads answers of the script player, one a line, or a single one or its array of operations alone. What
/// can't be read, or holds no such picture, comes back as a reason.
[[nodiscard]] std::variant<ReadPicture, std::string> ReadPictureAnswer(std::string_view text,
                                                                       const PictureChoice& choice);

}  // namespace koprax
