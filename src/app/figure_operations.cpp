#include "app/figure_operations.h"

#include <cmath>
#include <exception>
#include <limits>
#include <optional>
#include <utility>

namespace koprax {

namespace {

constexpr float LargestFont = 1000;  // points
constexpr Colour LargestColour = 0xFFFFFF;

class BadOperation : public std::exception {
 public:
  explicit BadOperation(std::string reason) : reason_(std::move(reason)) {}
  [[nodiscard]] const char* what() const noexcept override { return reason_.c_str(); }

 private:
  std::string reason_;
};

/// The fields of one operation; each throws where it isn't as it has to be.
class Fields {
 public:
  explicit Fields(const Json& operation) : operation_(operation) {
    if (!operation.is_object()) throw BadOperation("it is no object");
  }

  [[nodiscard]] float Number(const char* name) const {
    const Json& value = Value(name);
    const double number = value.is_number() ? value.get<double>() : std::nan("");
    if (!(std::abs(number) <= std::numeric_limits<float>::max())) {
      throw BadOperation(std::string(name) + " is no number that 32 bits hold");
    }
    return static_cast<float>(number);
  }
  [[nodiscard]] Colour ColourValue() const {
    const double number = Number("colour");
    if (!(number >= 0 && number <= LargestColour && number == std::floor(number))) {
      throw BadOperation("colour is no whole number from 0 to 16777215");
    }
    return static_cast<Colour>(number);
  }
  [[nodiscard]] float FontSize() const {
    const float size = Number("size");
    if (!(size >= 0 && size <= LargestFont)) throw BadOperation("size is no font size from 0 to 1000 points");
    return size;
  }
  [[nodiscard]] std::string Text(const char* name) const {
    const Json& value = Value(name);
    if (!value.is_string()) throw BadOperation(std::string(name) + " is no text");
    return value.get<std::string>();
  }

 private:
  [[nodiscard]] const Json& Value(const char* name) const {
    const auto found = operation_.find(name);
    if (found == operation_.end()) throw BadOperation(std::string(name) + " is missing");
    return *found;
  }

  const Json& operation_;
};

void AddFrame(std::vector<DrawingOperation>& operations, const Fields& image) {
  const float left = image.Number("x");
  const float top = image.Number("y");
  const float right = left + image.Number("width");
  const float bottom = top + image.Number("height");
  const auto line = [&](float x1, float y1, float x2, float y2) {
    operations.emplace_back(LineOperation{x1, y1, x2, y2, colours::Black});
  };
  line(left, top, right, top);
  line(right, top, right, bottom);
  line(right, bottom, left, bottom);
  line(left, bottom, left, top);
}

void AddOperation(OperationsRead& read, const Json& json) {
  const Fields fields(json);
  const std::string kind = fields.Text("op");
  const auto number = [&](const char* name) { return fields.Number(name); };
  if (kind == "line") {
    read.Operations.emplace_back(
        LineOperation{number("x1"), number("y1"), number("x2"), number("y2"), fields.ColourValue()});
  } else if (kind == "point") {
    read.Operations.emplace_back(PointOperation{number("x"), number("y"), fields.ColourValue()});
  } else if (kind == "text") {
    read.Operations.emplace_back(TextOperation{number("x"), number("y"), fields.Text("text"),
                                               fields.ColourValue(), fields.Text("font"), fields.FontSize()});
  } else if (kind == "image") {
    AddFrame(read.Operations, fields);
    ++read.Images;
  } else {
    throw BadOperation("there is no op \"" + kind + "\"; there are line, point, text and image");
  }
}

}  // namespace

std::variant<OperationsRead, std::string> OperationsOfJson(const Json& array) {
  if (!array.is_array()) return "there is no array of drawing operations";
  OperationsRead read;
  int number = 0;
  for (const Json& operation : array) {
    ++number;
    try {
      AddOperation(read, operation);
    } catch (const BadOperation& bad) {
      return "operation " + std::to_string(number) + ": " + bad.what();
    }
  }
  return read;
}

}  // namespace koprax
