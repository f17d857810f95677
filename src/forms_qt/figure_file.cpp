#include "forms_qt/figure_file.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QSvgGenerator>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "forms_qt/pdf_document.h"
#include "forms_qt/qt_fonts.h"
#include "forms_qt/surface_painter.h"

namespace koprax {

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr double LineWidthMillimetres = 0.2;
constexpr int LongestSide = std::numeric_limits<qint16>::max();

QSizeF Dots(const Figure& figure, double dots_per_inch) {
  return QSizeF(figure.Width, figure.Height) * (dots_per_inch / MillimetresPerInch);
}

/// False when the device can't be painted on.
bool Paint(const Figure& figure, QPaintDevice& device, QSizeF dots, double dots_per_inch) {
  QPainter painter;
  if (!painter.begin(&device)) {
    return false;
  }
  const double line_width = std::max(1.0, LineWidthMillimetres * dots_per_inch / MillimetresPerInch);
  SurfacePainter(painter, {figure.Scale, dots}, line_width).Paint(figure.Operations);
  return painter.end();
}

/// The operations without lines that white ones rub out later: viewers show files of lines with smooth edges,
/// which would leave a shade of them.
std::vector<DrawingOperation> WithoutRubbedOut(std::span<const DrawingOperation> operations) {
  using Ends = std::array<float, 4>;
  std::set<Ends> rubbed_out;
  std::vector<DrawingOperation> left;
  for (auto operation = operations.rbegin(); operation != operations.rend(); ++operation) {
    const auto* const line = std::get_if<LineOperation>(&*operation);
    const Ends ends = line != nullptr ? Ends{line->X1, line->Y1, line->X2, line->Y2} : Ends{};
    if (line != nullptr && line->LineColour == colours::White) {
      rubbed_out.insert(ends);
    } else if (line != nullptr && rubbed_out.contains(ends)) {
      continue;
    }
    left.push_back(*operation);
  }
  std::ranges::reverse(left);
  return left;
}

/// Paints the figure in lines, as wide and as fine as a printer does. False when that fails.
bool PaintLines(Figure figure, QPaintDevice& device) {
  const auto operations = WithoutRubbedOut(figure.Operations);
  figure.Operations = operations;
  return Paint(figure, device, Dots(figure, VectorDotsPerInch), VectorDotsPerInch);
}

template <class Make>
QByteArray Bytes(const Make& make) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  make(buffer);
  return bytes;
}

/// Titles of profiles may hold any characters; these would make the XML unreadable.
QByteArray WithoutForbiddenCharacters(QByteArray xml) {
  std::ranges::replace_if(
      xml, [](char c) { return c >= 0 && c < ' ' && c != '\n' && c != '\r' && c != '\t'; }, ' ');
  for (const char* nonentity : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"}) {
    xml.replace(nonentity, "\xEF\xBF\xBD");
  }
  return xml;
}

QByteArray KindOfFont(const QFont& font) {
  if (font.styleHint() == QFont::TypeWriter) return "monospace";
  return font.styleHint() == QFont::Serif ? "serif" : "sans-serif";
}

/// Viewers that don't know a font take one of its kind. The names go through here as well because the
/// toolkit's writer puts them down as they stand, whatever characters they hold.
QByteArray WithKindsOfFonts(const QByteArray& svg, std::span<const DrawingOperation> operations) {
  std::map<QByteArray, QByteArray, std::greater<>>
      families;  // a name that goes on stands before its beginning
  for (const DrawingOperation& operation : operations) {
    if (const auto* text = std::get_if<TextOperation>(&operation)) {
      const QFont font = FontNamed(text->Font);
      const QByteArray escaped = font.family().toHtmlEscaped().toUtf8();
      const QByteArray listed = escaped + ", " + KindOfFont(font) + '"';
      families[font.family().toUtf8() + '"'] = listed;
      families[escaped + '"'] = listed;
    }
  }
  const QByteArray mark = "font-family=\"";
  QByteArray named;
  qsizetype end = 0;  // of what has been taken over
  for (qsizetype at = svg.indexOf(mark); at >= 0; at = svg.indexOf(mark, end)) {
    at += mark.size();
    named += svg.mid(end, at - end);
    end = at;
    const QByteArrayView rest = QByteArrayView(svg).sliced(at);
    const auto family =
        std::ranges::find_if(families, [&](const auto& entry) { return rest.startsWith(entry.first); });
    if (family != families.end()) {
      named += family->second;
      end += family->first.size();
    }
  }
  return named + svg.mid(end);
}

}  // namespace

Figure FigureOf(const PictureBox& picture) {
  return {.Scale = picture.Scale(),
          .Operations = picture.Operations(),
          .Width = picture.DesignWidth,
          .Height = picture.DesignHeight};
}

QImage FigureImage(const Figure& figure, double dots_per_inch) {
  const QSizeF dots = Dots(figure, dots_per_inch);
  if (!(std::max(dots.width(), dots.height()) <= LongestSide)) {
    return {};
  }
  QImage image(
      QSize(static_cast<int>(std::lround(dots.width())), static_cast<int>(std::lround(dots.height()))),
      QImage::Format_RGB888);
  if (!image.isNull()) {
    const int dots_per_metre = static_cast<int>(std::lround(dots_per_inch * 1000 / MillimetresPerInch));
    image.setDotsPerMeterX(dots_per_metre);
    image.setDotsPerMeterY(dots_per_metre);
    image.fill(Qt::white);
    Paint(figure, image, image.size(), dots_per_inch);
  }
  return image;
}

QByteArray FigureAsPng(const Figure& figure, double dots_per_inch) {
  const QImage image = FigureImage(figure, dots_per_inch);
  return Bytes([&](QBuffer& buffer) { image.save(&buffer, "PNG"); });
}

QByteArray FigureAsSvg(const Figure& figure) {
  const QByteArray svg = Bytes([&](QBuffer& buffer) {
    QSvgGenerator generator;
    const QSize dots = Dots(figure, VectorDotsPerInch).toSize();
    generator.setOutputDevice(&buffer);
    generator.setTitle("KOPRAX figure");
    generator.setDescription("");
    generator.setResolution(VectorDotsPerInch);
    generator.setSize(dots);
    generator.setViewBox(QRect({}, dots));
    PaintLines(figure, generator);
  });
  return WithoutForbiddenCharacters(WithKindsOfFonts(svg, figure.Operations));
}

QByteArray FigureAsPdf(const Figure& figure) {
  QPageLayout page(
      QPageSize(QSizeF(figure.Width, figure.Height), QPageSize::Millimeter, {}, QPageSize::ExactMatch),
      QPageLayout::Portrait, QMarginsF());
  page.setMode(QPageLayout::FullPageMode);
  return PdfDocument(page, [&](QPdfWriter& writer) { return PaintLines(figure, writer); });
}

}  // namespace koprax
