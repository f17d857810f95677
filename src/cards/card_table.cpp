#include "cards/card_table.h"

#include <algorithm>
#include <cstddef>

#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

constexpr std::size_t ReflectionsInARow = 3;

/// A load as a card that fails at the opening of its file leaves the points of the profile before it, which
/// may be more than a card can have.
std::size_t Reflections(int count) { return static_cast<std::size_t>(std::min(count, MaxReflections)); }

std::string RightField(const std::string& text, std::size_t width) {
  return FixedField(RightAlignText(text, width), width);
}

std::string DecimalField(const std::string& text, std::size_t width, std::size_t decimals) {
  return FixedField(AlignDecimal(text, width, decimals), width);
}

std::string IndexFields(const ProfileBuffer& card, std::size_t i) {
  return RightField(GeneralText(card.CardH[i]), 3) + " " + RightField(GeneralText(card.CardK[i]), 3) + " " +
         RightField(GeneralText(card.CardL[i]), 3);
}

std::string TableLine(const ProfileBuffer& card, std::size_t i) {
  return IndexFields(card, i) + "  " + RightField(RoundedText(card.WorkY[i], 1), 4) + "    " +
         DecimalField(RoundedText(card.WorkX[i], 3), 7, 3) + "  " +
         DecimalField(RoundedText(card.CardD[i], 4), 7, 4) + "\r\n";
}

std::string PrintedReflection(const ProfileBuffer& card, std::size_t i) {
  return IndexFields(card, i) + FixedField(RightAlignText(FixedField(GeneralText(card.PermY[i]), 5), 4), 5) +
         DecimalField(GeneralText(card.CardD[i]), 8, 4) + DecimalField(GeneralText(card.PermX[i]), 8, 3) +
         "   ";
}

}  // namespace

std::string CardTable(const ProfileBuffer& card) {
  std::string table = "  H   K   L  Intens.  2Theta     d \r\n";
  for (std::size_t i = 1; i <= Reflections(card.WorkNpts); ++i) {
    table += TableLine(card, i);
  }
  return table;
}

std::string PrintedCardHeading() {
  return "   H   K   L  Int.  d      2theta     H   K   L  Int.  d      2theta     H   K   L  Int.  d      "
         "2theta";
}

std::vector<std::string> PrintedCardRows(const ProfileBuffer& card) {
  const std::size_t count = Reflections(card.PermNpts);
  std::vector<std::string> rows;
  for (std::size_t i = 1; i <= count; ++i) {
    if ((i - 1) % ReflectionsInARow == 0) {
      rows.emplace_back(7, ' ');
    }
    rows.back() += PrintedReflection(card, i);
  }
  return rows;
}

}  // namespace koprax
