#include "app/figure_layout.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <span>

#include "app/script_names.h"
#include "forms/printer.h"

namespace koprax {

namespace {

constexpr double LeastSide = 1;  // millimetres
constexpr double LargestSide = 5000;
constexpr double LargestScaleNumber = 1E9;
constexpr double MillimetresPerInch = 25.4;
constexpr double MostDotsOfSide = 30000;
constexpr double MostDots = 200E6;
/// What is drawn may lie outside its area, so many times its extent at most.
constexpr double FarthestExtents = 1000;

/// As many numbers as there are places, with nothing else but the separators between them.
bool ReadNumbers(std::string_view text, char separator, std::span<double> numbers) {
  for (double& number : numbers) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || !std::isfinite(number)) return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    const bool last = &number == &numbers.back();
    if (last ? !text.empty() : !text.starts_with(separator)) return false;
    if (!last) text.remove_prefix(1);
  }
  return true;
}

/// A picture's own scale and size.
FigureLayout LayoutOf(const PictureBox& picture) {
  return {.Scale = picture.Scale(), .Size = {.Width = picture.DesignWidth, .Height = picture.DesignHeight}};
}

FigureLayout LayoutOf(const Printer& printer) {
  const UserScale& scale = printer.Scale();
  const double units = scale.UnitsPerPoint / MillimetresPerPoint;
  return {.Scale = scale, .Size = {.Width = scale.Width / units, .Height = scale.Height / units}};
}

bool LiesOn(const UserScale& page, const DrawingOperation& operation) {
  const auto holds = [&](float x, float y) { return x <= page.Width && y <= page.Height; };
  if (const auto* line = std::get_if<LineOperation>(&operation)) {
    return holds(line->X1, line->Y1) && holds(line->X2, line->Y2);
  }
  if (const auto* text = std::get_if<TextOperation>(&operation)) return holds(text->X, text->Y);
  const auto* point = std::get_if<PointOperation>(&operation);
  return point == nullptr || holds(point->X, point->Y);
}

std::variant<FigureLayout, std::string> LayoutOfPage(const ReadPicture& picture) {
  Printer printer;
  if (!picture.Page) {
    printer.SetScaleMode(PrinterScale::Millimetres);
    printer.SetOrientation(PageOrientation::Landscape);
    const bool fits = std::ranges::all_of(picture.Drawn.Operations, [&](const DrawingOperation& operation) {
      return LiesOn(printer.Scale(), operation);
    });
    if (fits) return LayoutOf(printer);
    return "what is drawn doesn't lie on a page of millimetres; let the script answer \"get Printer\", too, "
           "or "
           "tell the page by --scale, such as --scale 0,0,11906,16838 --size 210x297";
  }
  const auto& [mode, width, height] = *picture.Page;
  const bool known =
      mode == static_cast<int>(PrinterScale::Twips) || mode == static_cast<int>(PrinterScale::Millimetres);
  if (!known || !(width > 0 && height > 0)) return "the answer to \"get Printer\" tells no page";
  printer.SetScaleMode(static_cast<PrinterScale>(mode));
  UserScale scale = printer.Scale();
  const double units = scale.UnitsPerPoint / MillimetresPerPoint;
  scale.Width = width;
  scale.Height = height;
  return FigureLayout{.Scale = scale, .Size = {.Width = width / units, .Height = height / units}};
}

std::variant<FigureLayout, std::string> OwnLayout(const ReadPicture& picture,
                                                  const std::vector<std::shared_ptr<const Form>>& windows) {
  if (picture.Name == "Printer") return LayoutOfPage(picture);
  std::vector<std::string> names{"Printer"};
  for (const auto& window : windows) {
    for (const Control* control : window->Controls()) {
      const auto* const found = dynamic_cast<const PictureBox*>(control);
      if (found == nullptr) continue;
      names.push_back(window->Name() + "." + found->FullName());
      if (names.back() == picture.Name) return LayoutOf(*found);
    }
  }
  if (picture.Name.empty()) {
    return "nothing tells which picture it is; name it by --picture, such as --picture Form6.Picture1, or "
           "tell "
           "its scale by --scale";
  }
  return "there is no picture " + picture.Name + "; near names are " +
         CommaList(NearestNames(picture.Name, names));
}

/// The part of a picture that a scale shows, as large as it is there.
FigureLayout PartOf(const FigureLayout& whole, const UserScale& part) {
  FigureLayout layout{.Scale = part,
                      .Size = {.Width = whole.Size.Width * std::abs(part.Width / whole.Scale.Width),
                               .Height = whole.Size.Height * std::abs(part.Height / whole.Scale.Height)}};
  layout.Scale.UnitsPerPoint = whole.Scale.UnitsPerPoint;
  return layout;
}

/// Without a picture: letters have their size in points at the size of the figure.
FigureLayout LayoutOfScale(UserScale scale, const std::optional<FigureSize>& wanted) {
  const double width = std::abs(static_cast<double>(scale.Width));
  const double height = std::abs(static_cast<double>(scale.Height));
  const FigureSize size = wanted.value_or(FigureSize{.Width = width, .Height = height});
  scale.UnitsPerPoint = MillimetresPerPoint / std::min(size.Width / width, size.Height / height);
  return {.Scale = scale, .Size = size};
}

/// The number of the first operation, from 1, that lies too far away to be painted; 0 if there is none.
int FirstFarAway(const UserScale& scale, const std::vector<DrawingOperation>& operations) {
  const auto near = [&](float x, float y) {
    return std::abs((x - static_cast<double>(scale.Left)) / scale.Width) <= FarthestExtents &&
           std::abs((y - static_cast<double>(scale.Top)) / scale.Height) <= FarthestExtents;
  };
  const auto far = std::ranges::find_if(operations, [&](const DrawingOperation& operation) {
    if (const auto* line = std::get_if<LineOperation>(&operation)) {
      return !near(line->X1, line->Y1) || !near(line->X2, line->Y2);
    }
    if (const auto* text = std::get_if<TextOperation>(&operation)) return !near(text->X, text->Y);
    const auto* point = std::get_if<PointOperation>(&operation);
    return point != nullptr && !near(point->X, point->Y);
  });
  return far == operations.end() ? 0 : static_cast<int>(far - operations.begin()) + 1;
}

std::optional<std::string> WhyNot(const FigureLayout& layout,
                                  const std::vector<DrawingOperation>& operations) {
  const double least = std::min(layout.Size.Width, layout.Size.Height);
  const double largest = std::max(layout.Size.Width, layout.Size.Height);
  if (!(least >= LeastSide && largest <= LargestSide)) {
    return "the figure would be smaller than 1 mm or larger than 5000 mm; tell its size by --size, such as "
           "--size 160x120";
  }
  if (const int number = FirstFarAway(layout.Scale, operations)) {
    return "operation " + std::to_string(number) +
           " lies more than 1000 times the width or height of the picture away; tell another --scale";
  }
  return std::nullopt;
}

}  // namespace

std::optional<FigureSize> FigureSizeOf(std::string_view text) {
  std::array<double, 2> sides{};
  const bool good = ReadNumbers(text, 'x', sides) && std::ranges::all_of(sides, [](double side) {
                      return side >= LeastSide && side <= LargestSide;
                    });
  return good ? std::optional(FigureSize{.Width = sides[0], .Height = sides[1]}) : std::nullopt;
}

std::optional<UserScale> FigureScaleOf(std::string_view text) {
  std::array<double, 4> numbers{};
  const bool good = ReadNumbers(text, ',', numbers) && std::ranges::all_of(numbers, [](double number) {
                      return std::abs(number) <= LargestScaleNumber;
                    });
  const UserScale scale{.Left = static_cast<float>(numbers[0]),
                        .Top = static_cast<float>(numbers[1]),
                        .Width = static_cast<float>(numbers[2]),
                        .Height = static_cast<float>(numbers[3])};
  const bool extended =
      std::abs(scale.Width) * LargestScaleNumber >= 1 && std::abs(scale.Height) * LargestScaleNumber >= 1;
  return good && extended ? std::optional(scale) : std::nullopt;
}

std::optional<int> WholeNumberOf(std::string_view text, int low, int high) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool good =
      error == std::errc() && end == text.data() + text.size() && number >= low && number <= high;
  return good ? std::optional(number) : std::nullopt;
}

std::variant<FigureLayout, std::string> LayOutFigure(
    const ReadPicture& picture, const FigureWishes& wishes,
    const std::vector<std::shared_ptr<const Form>>& windows) {
  FigureLayout layout{};
  if (wishes.Scale && (picture.Name.empty() || picture.Name == "Printer")) {
    layout = LayoutOfScale(*wishes.Scale, wishes.Size);
  } else {
    auto own = OwnLayout(picture, windows);
    if (auto* reason = std::get_if<std::string>(&own)) return std::move(*reason);
    layout = std::get<FigureLayout>(own);
    if (wishes.Scale) layout = PartOf(layout, *wishes.Scale);
    if (wishes.Size) layout.Size = *wishes.Size;
  }
  if (auto reason = WhyNot(layout, picture.Drawn.Operations)) return std::move(*reason);
  return layout;
}

std::optional<std::string> WhyTooManyDots(const FigureSize& size, int dots_per_inch) {
  const double width = size.Width * dots_per_inch / MillimetresPerInch;
  const double height = size.Height * dots_per_inch / MillimetresPerInch;
  if (std::max(width, height) <= MostDotsOfSide && width * height <= MostDots &&
      std::min(width, height) >= 1) {
    return std::nullopt;
  }
  return "a PNG of " + std::to_string(std::lround(width)) + " x " + std::to_string(std::lround(height)) +
         " dots can't be made: at most 30000 a side and 200 million in all, at least 1; tell another --size "
         "or "
         "--dpi, or make an SVG or a PDF";
}

}  // namespace koprax
