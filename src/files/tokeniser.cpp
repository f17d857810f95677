#include "files/tokeniser.h"

#include <algorithm>
#include <string>

#include "forms/decimal_scan.h"
#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {

namespace {

/// No word reaches the last column of the 80-character field, so it never counts.
constexpr std::size_t counted_columns = LineWidth - 1;

bool IsSeparator(char c) { return c == ' ' || c == ','; }

/// Whether a word counts as a number: nothing but digits, periods and signs, or those around one E.
bool IsNumberWord(std::string_view word) {
  if (word.size() > MaxWords && CharacterCount(word) > MaxWords) return true;
  const std::size_t letter = word.find_first_not_of("0123456789.+-");
  if (letter == std::string_view::npos) return true;
  if (word[letter] != 'E' && word[letter] != 'e') return false;
  if (letter == 0 || letter + 1 == word.size()) return false;
  return word.find_first_not_of("0123456789.+-", letter + 1) == std::string_view::npos;
}

void AddNumber(LineWords& words, double value) {
  words.Numbers[static_cast<std::size_t>(++words.NNum)] = static_cast<float>(value);
}

/// Adds the word that starts at `at`, which holds no separator; returns its end. Most words are plain
/// decimals, and scanning one tells at once that it is a number and where it ends.
const char* AddWord(LineWords& words, const char* at, const char* end) {
  const DecimalScan scan = ScanDecimal(at, end);
  if (scan.Digits > 0 && (scan.End == end || IsSeparator(*scan.End))) {
    if (const auto value = QuickValue(scan)) {
      AddNumber(words, *value);
      return scan.End;
    }
  }
  const char* word_end = std::find_if(scan.End, end, IsSeparator);
  const std::string_view word(at, word_end);
  if (IsNumberWord(word)) {
    AddNumber(words, LeadingNumber(word));
  } else {
    words.Texts[static_cast<std::size_t>(++words.NText)] = word;
  }
  return word_end;
}

}  // namespace

void SplitLine(std::string_view line, LineWords& words) {
  line = FirstCharacters(line, counted_columns);
  words.NText = words.NNum = 0;
  words.Truncated = false;
  const char* at = line.data();
  const char* end = at + line.size();
  while (true) {
    while (at != end && IsSeparator(*at)) ++at;
    if (at == end) return;
    if (words.NText + words.NNum == MaxWords) {
      words.Truncated = true;
      return;
    }
    at = AddWord(words, at, end);
  }
}

void StoreWords(TokenisedWords& tables, std::string_view line, const LineWords& words) {
  tables.WordVal.fill(0);
  tables.WordStr.fill(std::string(MaxWords, ' '));
  tables.LineChars.fill(" ");
  for (std::size_t column = 1; column <= LineWidth && !line.empty(); ++column) {
    const std::string_view character = FirstCharacters(line, 1);
    tables.LineChars[column] = character;
    line.remove_prefix(character.size());
  }
  for (std::size_t k = 1; k <= static_cast<std::size_t>(words.NNum); ++k)
    tables.WordVal[k] = words.Numbers[k];
  for (std::size_t k = 1; k <= static_cast<std::size_t>(words.NText); ++k) {
    tables.WordStr[k] = FixedField(words.Texts[k], MaxWords);
  }
}

void TokeniseLine(TokenisedWords& tables, std::string_view line, std::int16_t& n_text, std::int16_t& n_num,
                  const TellUser& tell) {
  LineWords words;
  SplitLine(line, words);
  if (words.Truncated) tell(TooManyWords());
  StoreWords(tables, line, words);
  n_text = static_cast<std::int16_t>(words.NText);
  n_num = static_cast<std::int16_t>(words.NNum);
}

Message TooManyWords() {
  return {.Text = "More than 24 words found in input.", .Title = "Truncated", .Icon = MessageIcon::Stop};
}

}  // namespace koprax
