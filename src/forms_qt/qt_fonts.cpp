#include "forms_qt/qt_fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include "forms/surface.h"
#include "forms_qt/greek_letters.h"

namespace koprax {

QFont FontNamed(const std::string& name) {
  const QString family = QString::fromStdString(name);
  if (family.compare(QLatin1String("courier"), Qt::CaseInsensitive) == 0) {
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setStyleHint(QFont::TypeWriter);
    fixed.setPointSizeF(QGuiApplication::font().pointSizeF());
    return fixed;
  }
  QFont font = QGuiApplication::font();
  if (name != DefaultFont && !IsSymbolFont(name)) {
    font.setFamilies({family});
    font.setStyleHint(family.startsWith(QLatin1String("times"), Qt::CaseInsensitive) ? QFont::Serif
                                                                                     : QFont::SansSerif);
  }
  return font;
}

std::vector<std::string> PrintableFonts() {
  std::vector<std::string> names;
  bool has_symbol = false;
  for (const QString& family : QFontDatabase::families()) {
    names.push_back(family.toStdString());
    has_symbol = has_symbol || IsSymbolFont(names.back());
  }
  if (!has_symbol) {
    names.emplace_back("Symbol");
  }
  return names;
}

}  // namespace koprax
