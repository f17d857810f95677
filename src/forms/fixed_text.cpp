#include "forms/fixed_text.h"

#include <algorithm>

namespace koprax {

namespace {

/// The bytes of a character behind its first one.
bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// The text behind so many blanks, in a field of `width` characters or of as many more as it takes.
std::string Indented(std::string_view text, std::size_t blanks, std::size_t width) {
  const std::string moved = RightTrimmed(std::string(blanks, ' ').append(text));
  return FixedField(moved, std::max(width, CharacterCount(moved)));
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, ContinuesCharacter));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  std::size_t length = 0;
  while (count > 0 && length < text.size()) {
    do {
      ++length;
    } while (length < text.size() && ContinuesCharacter(text[length]));
    --count;
  }
  return text.substr(0, length);
}

std::string FixedField(std::string_view text, std::size_t width) {
  const std::string_view kept = FirstCharacters(text, width);
  std::string field(kept);
  field.append(width - CharacterCount(kept), ' ');
  return field;
}

std::string RightAlignText(std::string_view text, std::size_t width) {
  const std::size_t used = CharacterCount(RightTrimmed(FirstCharacters(text, width)));
  return Indented(text, std::min(width - used, width - 1), width);
}

std::string AlignDecimal(std::string_view text, std::size_t width, std::size_t decimals) {
  const std::size_t target = width - decimals;
  const std::size_t period = text.find('.');
  const std::string_view before = text.substr(0, period == std::string_view::npos ? text.find(' ') : period);
  const std::size_t column = CharacterCount(before) + 1;
  return Indented(text, column < target ? target - column : 0, width);
}

std::string RightTrimmed(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace koprax
