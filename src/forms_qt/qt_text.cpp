#include "forms_qt/qt_text.h"

namespace koprax {

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

}  // namespace koprax
