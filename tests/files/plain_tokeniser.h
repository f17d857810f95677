// The tokeniser by its definition, written out column by column without regard to speed.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/tokeniser.h"
#include "tests/forms/plain_number.h"

namespace koprax::plain {

using Characters = std::vector<std::string>;

/// The 80 columns of a line, entry 0 unused.
inline Characters Columns(std::string_view line) {
  Characters columns(1);
  for (const char byte : line) {
    const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    if (!continues) columns.emplace_back();
    columns.back() += byte;
  }
  columns.resize(LineWidth + 1, " ");
  return columns;
}

inline bool Separates(const std::string& column) { return column == " " || column == ","; }

/// All words of a line, as lists of characters.
inline std::vector<Characters> WordsOf(const Characters& columns) {
  std::vector<Characters> words;
  std::size_t at = 1;
  while (true) {
    while (at <= LineWidth && Separates(columns[at])) ++at;
    if (at >= LineWidth) return words;  // the last column never starts a word, nor belongs to one
    Characters word;
    while (at < LineWidth && !Separates(columns[at])) word.push_back(columns[at++]);
    words.push_back(word);
  }
}

inline bool CountsAsNumber(const Characters& word) {
  if (word.size() > MaxWords) return true;
  std::size_t bad = 0;
  std::size_t letters = 0;
  std::size_t last_letter = 0;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (word[i].find_first_of("0123456789.+-") == 0) continue;
    ++bad;
    if (word[i] != "E" && word[i] != "e") continue;
    ++letters;
    last_letter = i;
  }
  return bad == 0 || (bad == 1 && letters == 1 && last_letter > 0 && last_letter + 1 < word.size());
}

inline std::string Joined(const Characters& word) {
  std::string text;
  for (const std::string& character : word) text += character;
  return text;
}

/// What a line leaves in the tables.
struct TokenisedLine {
  TokenisedWords Tables;
  std::int16_t Texts = 0;
  std::int16_t Numbers = 0;
  int Told = 0;  ///< messages of too many words

  /// By the bits of the numbers, since the sign of a zero counts too.
  bool operator==(const TokenisedLine& other) const {
    const auto bits = [](const TokenisedLine& line) {
      return std::bit_cast<std::array<std::uint32_t, MaxWords + 1>>(line.Tables.WordVal);
    };
    return bits(*this) == bits(other) && Tables.WordStr == other.Tables.WordStr &&
           Tables.LineChars == other.Tables.LineChars && Texts == other.Texts && Numbers == other.Numbers &&
           Told == other.Told;
  }
};

inline TokenisedLine PlainlyTokenised(std::string_view line) {
  const Characters columns = Columns(line);
  TokenisedLine found;
  TokenisedWords& tables = found.Tables;
  tables.WordStr.fill(std::string(MaxWords, ' '));
  tables.LineChars.fill(" ");
  for (std::size_t i = 1; i <= LineWidth; ++i) tables.LineChars[i] = columns[i];
  std::vector<Characters> words = WordsOf(columns);
  found.Told = words.size() > MaxWords ? 1 : 0;
  if (words.size() > MaxWords) words.resize(MaxWords);
  for (Characters& word : words) {
    if (CountsAsNumber(word)) {
      tables.WordVal[static_cast<std::size_t>(++found.Numbers)] =
          static_cast<float>(PlainLeadingNumber(Joined(word)));
    } else {
      word.resize(MaxWords, " ");
      tables.WordStr[static_cast<std::size_t>(++found.Texts)] = Joined(word);
    }
  }
  return found;
}

/// The same by the house, into tables that hold what lines before have left.
inline TokenisedLine Tokenised(std::string_view line, const TokenisedWords& before = {}) {
  TokenisedLine found{.Tables = before};
  TokeniseLine(found.Tables, line, found.Texts, found.Numbers, [&](const Message&) { ++found.Told; });
  return found;
}

}  // namespace koprax::plain
