#include "forms_qt/greek_letters.h"

#include "forms/surface.h"

namespace koprax {

namespace {

// In the places of A to Z and a to z.
constexpr QStringView Capitals = u"ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ";
constexpr QStringView Smalls = u"αβχδεφγηιϕκλμνοπθρστυϖωξψζ";
static_assert(Capitals.size() == 26 && Smalls.size() == 26);

}  // namespace

bool IsSymbolFont(std::string_view font) {
  return QString::fromUtf8(font.data(), static_cast<qsizetype>(font.size()))
             .compare(QLatin1String(SymbolFont.data()), Qt::CaseInsensitive) == 0;
}

QString ToGreek(QString text) {
  for (QChar& letter : text) {
    if (letter >= u'A' && letter <= u'Z') {
      letter = Capitals[letter.unicode() - u'A'];
    } else if (letter >= u'a' && letter <= u'z') {
      letter = Smalls[letter.unicode() - u'a'];
    }
  }
  return text;
}

QString FromGreek(QString text) {
  for (QChar& letter : text) {
    if (const qsizetype capital = Capitals.indexOf(letter); capital >= 0) {
      letter = QChar(static_cast<char16_t>(u'A' + capital));
    } else if (const qsizetype small = Smalls.indexOf(letter); small >= 0) {
      letter = QChar(static_cast<char16_t>(u'a' + small));
    }
  }
  return text;
}

}  // namespace koprax
