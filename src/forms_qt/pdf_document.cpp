#include "forms_qt/pdf_document.h"

#include <QBuffer>
#include <QHashSeed>

namespace koprax {

namespace {

/// Moves the entries of the table of objects that lie behind the place of a cut. An entry has 20 bytes: ten
/// digits of its offset, five of its generation, and "n" where it is in use.
void MoveObjects(QByteArray& pdf, qsizetype table, qsizetype cut, qsizetype length) {
  constexpr qsizetype entry_size = 20;
  constexpr qsizetype offset_digits = 10;
  constexpr qsizetype kind_at = 17;
  for (qsizetype at = pdf.indexOf("0000000000 65535 f", table) + entry_size;
       at > table && pdf.mid(at + kind_at, 1) == "n"; at += entry_size) {
    const qsizetype offset = pdf.mid(at, offset_digits).toLongLong();
    if (offset > cut) {
      pdf.replace(at, offset_digits, QByteArray::number(offset - length).rightJustified(offset_digits, '0'));
    }
  }
}

/// The toolkit notes when and in which time zone a document was made.
void RemoveCreationDate(QByteArray& pdf) {
  const QByteArray table_mark = "startxref\n";
  const qsizetype cut = pdf.indexOf("/CreationDate (");
  const qsizetype mark = pdf.lastIndexOf(table_mark);
  if (cut < 0 || mark < cut) {
    return;
  }
  const qsizetype length = pdf.indexOf('\n', cut) + 1 - cut;
  const QByteArray number = pdf.mid(mark + table_mark.size()).split('\n').front().trimmed();
  const qsizetype table = number.toLongLong();
  pdf.replace(mark + table_mark.size(), number.size(), QByteArray::number(table - length));
  MoveObjects(pdf, table, cut, length);
  pdf.remove(cut, length);
}

/// The toolkit writes the fonts of a document in the order of a table that it shuffles anew in each run.
class FixedOrder {
 public:
  FixedOrder() { QHashSeed::setDeterministicGlobalSeed(); }
  FixedOrder(const FixedOrder&) = delete;
  FixedOrder& operator=(const FixedOrder&) = delete;
  ~FixedOrder() { QHashSeed::resetRandomGlobalSeed(); }
};

}  // namespace

QByteArray PdfDocument(const QPageLayout& page, const std::function<bool(QPdfWriter&)>& paint) {
  const FixedOrder order;
  QByteArray pdf;
  QBuffer buffer(&pdf);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(VectorDotsPerInch);
    writer.setPageLayout(page);
    if (!paint(writer)) {
      return {};
    }
  }
  RemoveCreationDate(pdf);
  return pdf;
}

}  // namespace koprax
