// The tokeniser against its definition, written out column by column without regard to speed.
#include "files/tokeniser.h"

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "forms/fixed_text.h"
#include "forms/text_file.h"
#include "fuzz/law.h"

namespace koprax {
namespace {

using Characters = std::vector<std::string>;

/// The 80 columns of a line, entry 0 unused.
Characters Columns(std::string_view line) {
  Characters columns(1);
  for (const char byte : line) {
    const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    if (!continues) columns.emplace_back();
    columns.back() += byte;
  }
  columns.resize(LineWidth + 1, " ");
  return columns;
}

bool Separates(const std::string& column) { return column == " " || column == ","; }

/// All words of a line, as lists of characters.
std::vector<Characters> WordsOf(const Characters& columns) {
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

bool CountsAsNumber(const Characters& word) {
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

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The leading number of a word, by the C library: it gets a text with nothing but that number in it.
double LeadingNumberOf(const std::string& word) {
  std::string number;
  std::size_t at = 0;
  const auto take_sign = [&] {
    if (at < word.size() && (word[at] == '+' || word[at] == '-')) number += word[at++];
  };
  const auto take_digits = [&] {
    const std::size_t start = at;
    while (at < word.size() && IsDigit(word[at])) number += word[at++];
    return at - start;
  };
  take_sign();
  std::size_t digits = take_digits();
  if (at < word.size() && word[at] == '.') {
    number += word[at++];
    digits += take_digits();
  }
  if (digits == 0) return 0;
  if (at < word.size() && std::string_view("EeDd").find(word[at]) != std::string_view::npos) {
    const std::string mantissa = number;
    number += 'e';
    ++at;
    take_sign();
    if (take_digits() == 0) number = mantissa;
  }
  return std::strtod(number.c_str(), nullptr);
}

std::string Joined(const Characters& word) {
  std::string text;
  for (const std::string& character : word) text += character;
  return text;
}

TokenisedWords ExpectedTables(const Characters& columns, int& n_text, int& n_num, bool& truncated) {
  TokenisedWords tables;
  tables.WordStr.fill(std::string(MaxWords, ' '));
  tables.LineChars.fill(" ");
  for (std::size_t i = 1; i <= LineWidth; ++i) tables.LineChars[i] = columns[i];
  std::vector<Characters> words = WordsOf(columns);
  truncated = words.size() > MaxWords;
  if (truncated) words.resize(MaxWords);
  n_text = n_num = 0;
  for (Characters& word : words) {
    if (CountsAsNumber(word)) {
      tables.WordVal[static_cast<std::size_t>(++n_num)] = static_cast<float>(LeadingNumberOf(Joined(word)));
    } else {
      word.resize(MaxWords, " ");
      tables.WordStr[static_cast<std::size_t>(++n_text)] = Joined(word);
    }
  }
  return tables;
}

void CheckLine(std::string_view line, TokenisedWords& tables) {
  std::int16_t n_text = -1;
  std::int16_t n_num = -1;
  int told = 0;
  TokeniseLine(tables, line, n_text, n_num, [&](const Message&) { ++told; });

  int expected_text = 0;
  int expected_num = 0;
  bool truncated = false;
  const auto expected = ExpectedTables(Columns(line), expected_text, expected_num, truncated);
  Require(n_text == expected_text, "the number of texts is " + std::to_string(expected_text));
  Require(n_num == expected_num, "the number of numbers is " + std::to_string(expected_num));
  Require(told == (truncated ? 1 : 0), "too many words are told once");
  Require(tables.LineChars == expected.LineChars, "the columns are those of the line");
  Require(tables.WordStr == expected.WordStr, "the texts are those of the line");
  // By their bits, since the sign of a zero counts too.
  Require(std::bit_cast<std::array<std::uint32_t, MaxWords + 1>>(tables.WordVal) ==
              std::bit_cast<std::array<std::uint32_t, MaxWords + 1>>(expected.WordVal),
          "the numbers are those of the line");
}

}  // namespace
}  // namespace koprax

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace koprax;
  const std::string text = InputText(data, size);
  TokenisedWords tables;  // one for all lines: none may leave anything behind
  LineReader lines(text);
  while (!lines.AtEnd()) CheckLine(lines.NextLine(), tables);
  return 0;
}
