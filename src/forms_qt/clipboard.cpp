#include "forms_qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include "forms/table_text.h"
#include "forms_qt/figure_file.h"
#include "forms_qt/qt_text.h"

namespace koprax {

namespace {

/// Sharp on paper at the design size.
constexpr double CopiedDotsPerInch = 300;

/// The numbers of the first and the last line that a selection touches.
std::pair<int, int> LinesOf(const QTextCursor& selection) {
  const QTextDocument& document = *selection.document();
  if (!selection.hasSelection()) {
    return {0, document.blockCount() - 1};
  }
  const QTextBlock last = document.findBlock(selection.selectionEnd());
  // A selection of whole lines ends where the next one begins.
  const bool ends_before = last.position() == selection.selectionEnd();
  return {document.findBlock(selection.selectionStart()).blockNumber(),
          last.blockNumber() - (ends_before ? 1 : 0)};
}

}  // namespace

void CopyPicture(const PictureBox& picture) {
  const Figure figure = FigureOf(picture);
  auto* const copied = new QMimeData;  // the clipboard owns it
  copied->setImageData(FigureImage(figure, CopiedDotsPerInch));
  copied->setData("image/png", FigureAsPng(figure, CopiedDotsPerInch));
  copied->setData("image/svg+xml", FigureAsSvg(figure));
  QGuiApplication::clipboard()->setMimeData(copied);
}

void CopyTable(const QTextCursor& selection) {
  const auto [first, last] = LinesOf(selection);
  const auto rows = TabSeparatedRows(selection.document()->toPlainText().toStdString());
  QString text;
  for (int line = first; line <= last && line < static_cast<int>(rows.size()); ++line) {
    text += QString::fromStdString(rows[static_cast<std::size_t>(line)]) + QLatin1Char('\n');
  }
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace koprax
