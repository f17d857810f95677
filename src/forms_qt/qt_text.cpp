#include "forms_qt/qt_text.h"

#include <QTextDocument>

namespace koprax {

namespace {

constexpr qsizetype LongestToolTip = 70;  // of one line

}  // namespace

QString ToQt(std::string_view text) {
  QString result = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  return result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string FromQt(const QString& text) {
  QString result = text;
  return result.replace(QLatin1Char('\n'), QLatin1String("\r\n")).toStdString();
}

QString WithoutMnemonic(const QString& caption) {
  QString result;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == QLatin1Char('&') && i + 1 < caption.size()) {
      ++i;
    }
    result += caption[i];
  }
  return result;
}

QString ToToolTip(std::string_view text) {
  QString plain = ToQt(text);
  if (plain.size() <= LongestToolTip && !Qt::mightBeRichText(plain)) {
    return plain;
  }
  // Only rich text is wrapped.
  return QLatin1String("<qt>") + plain.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")) +
         QLatin1String("</qt>");
}

}  // namespace koprax
