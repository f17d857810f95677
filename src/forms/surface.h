// A drawing surface: a user scale and a retained list of drawing operations in that scale.
// Keeping operations, not pixels, gives crisp redraws at any size, exact tests of what was drawn, and
// vector output in print. Turning operations into pixels is left to the view.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace koprax {

/// A 24-bit colour, red in the low byte.
using Colour = std::uint32_t;

namespace colours {
inline constexpr Colour Black = 0;
inline constexpr Colour Red = 255;
inline constexpr Colour Blue = 16711680;
inline constexpr Colour Magenta = 16711935;
inline constexpr Colour White = 16777215;
}  // namespace colours

/// The font whose letters are drawn in Greek: q as theta, l as lambda.
inline constexpr std::string_view SymbolFont = "symbol";
/// The font of pictures and controls when nothing else is set.
inline constexpr std::string_view DefaultFont = "MS Sans Serif";

/// Millimetres in a point (1/72 inch), the unit of font sizes.
inline constexpr double MillimetresPerPoint = 25.4 / 72.0;

struct LineOperation {
  float X1, Y1, X2, Y2;
  Colour LineColour;
  bool operator==(const LineOperation&) const = default;
};
struct PointOperation {
  float X, Y;
  Colour PointColour;
  bool operator==(const PointOperation&) const = default;
};
/// One line of text; X, Y is its top left corner, the size is in points.
struct TextOperation {
  float X, Y;
  std::string Text;
  Colour TextColour;
  std::string Font;
  float Size;
  bool operator==(const TextOperation&) const = default;
};
/// An image of pixels, row by row from the top left.
struct PixelImage {
  int Width = 0;
  int Height = 0;
  std::vector<Colour> Pixels{};
  bool operator==(const PixelImage&) const = default;
};
/// An image stretched over a rectangle whose top left corner is X, Y.
struct ImageOperation {
  float X, Y, Width, Height;
  std::shared_ptr<const PixelImage> Pixels;
  bool operator==(const ImageOperation&) const = default;
};
using DrawingOperation = std::variant<LineOperation, PointOperation, TextOperation, ImageOperation>;

/// The user scale of a surface: the coordinates of its top left corner and its extent; a negative
/// height means that y grows upward. UnitsPerPoint is the height of one point of font size in it.
struct UserScale {
  float Left = 0;
  float Top = 0;
  float Width = 1;
  float Height = 1;
  double UnitsPerPoint = MillimetresPerPoint;
  bool operator==(const UserScale&) const = default;
};

class Surface {
 public:
  explicit Surface(const UserScale& scale) : CurrentX(scale.Left), CurrentY(scale.Top), scale_(scale) {}
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  virtual ~Surface() = default;

  /// A straight line in the foreground colour, or in the given one. Moves the text position to its end.
  void Line(double x1, double y1, double x2, double y2) { Line(x1, y1, x2, y2, ForeColor); }
  void Line(double x1, double y1, double x2, double y2, Colour colour);
  void PSet(double x, double y, Colour colour);
  /// The image, its top left corner at x, y, stretched to the size. It is never null.
  void PaintPicture(std::shared_ptr<const PixelImage> image, double x, double y, double width, double height);

  /// Text at the text position, in the current font and foreground colour. The position goes on to the
  /// left margin of the next line, 1.2 font sizes below; a line break in the text does the same.
  void Print(std::string_view text);
  /// The number in the general form of its width, a blank in front unless it is negative.
  void Print(float number);
  void Print(double number);

  /// Forgets all operations.
  void Cls();

  void MoveTo(double x, double y) {
    CurrentX = static_cast<float>(x);
    CurrentY = static_cast<float>(y);
  }

  float CurrentX;
  float CurrentY;
  Colour ForeColor = colours::Black;
  std::string FontName{DefaultFont};
  float FontSize = 8;

  [[nodiscard]] const UserScale& Scale() const { return scale_; }
  [[nodiscard]] const std::vector<DrawingOperation>& Operations() const { return operations_; }
  /// Grows with every change of the operations.
  [[nodiscard]] std::uint64_t Revision() const { return revision_; }

 protected:
  void SetScale(const UserScale& scale) { scale_ = scale; }
  /// Called after each change of the operations.
  virtual void Drawn() {}

 private:
  void Add(DrawingOperation operation);
  void PrintLine(std::string_view line);
  void PrintNumber(const std::string& text) { Print(text.starts_with('-') ? text : " " + text); }

  UserScale scale_;
  std::vector<DrawingOperation> operations_;
  std::uint64_t revision_ = 0;
};

}  // namespace koprax
