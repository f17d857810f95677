#include "forms_qt/file_filter.h"

namespace koprax {

namespace {

QString PatternsFor(const QString& text) {
  QStringList patterns = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
  for (QString& pattern : patterns) {
    pattern = pattern.trimmed();
    if (pattern == QLatin1String("*.*")) {
      pattern = QLatin1String("*");
    }
  }
  return patterns.join(QLatin1Char(' '));
}

/// The description without the patterns that it repeats in parentheses.
QString PlainDescription(const QString& text) {
  const QString trimmed = text.trimmed();
  const qsizetype parenthesis = trimmed.lastIndexOf(QLatin1Char('('));
  return parenthesis > 0 && trimmed.endsWith(QLatin1Char(')')) ? trimmed.left(parenthesis).trimmed()
                                                               : trimmed;
}

}  // namespace

QStringList NameFilters(std::string_view filter) {
  const QStringList parts =
      QString::fromUtf8(filter.data(), static_cast<qsizetype>(filter.size())).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    filters << PlainDescription(parts[i]) + QLatin1String(" (") + PatternsFor(parts[i + 1]) +
                   QLatin1Char(')');
  }
  return filters;
}

}  // namespace koprax
