// The scale and the size of a figure: those of the picture as its window has it, or as they are told.
// Painting it is left to the view.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/figure_reading.h"
#include "forms/form.h"
#include "forms/surface.h"

namespace koprax {

/// Millimetres.
struct FigureSize {
  double Width;
  double Height;
};

/// "160x120", each from 1 to 5000.
[[nodiscard]] std::optional<FigureSize> FigureSizeOf(std::string_view text);
/// "LEFT,TOP,WIDTH,HEIGHT"; a negative height means that y grows upward. Width and height aren't 0.
[[nodiscard]] std::optional<UserScale> FigureScaleOf(std::string_view text);
/// A whole number from `low` to `high`.
[[nodiscard]] std::optional<int> WholeNumberOf(std::string_view text, int low, int high);

/// What the user has told; nothing stands for what the picture has.
struct FigureWishes {
  std::optional<UserScale> Scale{};
  std::optional<FigureSize> Size{};
};

struct FigureLayout {
  UserScale Scale;
  FigureSize Size;
};

/// Lays a picture out. A picture of `windows`, and the Printer, have a scale and a size of their own; letters
/// keep their share of the area. A scale that is told shows that part of a picture, as large as it is there.
/// Without a picture a unit is a millimetre, or what the size makes of it, and letters have their size in
/// points. Where no scale is known, or what is drawn lies so far away that it can't be painted, a reason
/// comes back.
[[nodiscard]] std::variant<FigureLayout, std::string> LayOutFigure(
    const ReadPicture& picture, const FigureWishes& wishes,
    const std::vector<std::shared_ptr<const Form>>& windows);

/// Why a figure of that size has too many dots to be held; nothing if it hasn't.
[[nodiscard]] std::optional<std::string> WhyTooManyDots(const FigureSize& size, int dots_per_inch);

}  // namespace koprax
