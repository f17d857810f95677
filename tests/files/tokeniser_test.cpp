#include "files/tokeniser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <regex>
#include <string>
#include <vector>

#include "forms/fixed_text.h"
#include "forms/number_text.h"

namespace koprax {
namespace {

/// A line after tokenising, only what was found.
struct Found {
  std::vector<float> Numbers;
  std::vector<std::string> Texts;
  int Messages = 0;
  bool operator==(const Found&) const = default;
};

Found Tokenised(const std::string& line) {
  TokenisedWords tables;
  tables.WordVal.fill(-777);  // what the line before has left
  tables.WordStr.fill("stale");
  Found found;
  std::int16_t n_text = -1;
  std::int16_t n_num = -1;
  TokeniseLine(tables, line, n_text, n_num, [&](const Message& message) {
    EXPECT_EQ(message.Text, "More than 24 words found in input.");
    EXPECT_EQ(message.Title, "Truncated");
    EXPECT_EQ(message.Icon, MessageIcon::Stop);
    ++found.Messages;
  });
  for (std::size_t k = 1; k <= MaxWords; ++k) {
    if (static_cast<int>(k) <= n_num) {
      found.Numbers.push_back(tables.WordVal[k]);
    } else {
      EXPECT_EQ(tables.WordVal[k], 0) << line;
    }
    EXPECT_EQ(CharacterCount(tables.WordStr[k]), 24U) << line;
    if (static_cast<int>(k) <= n_text) {
      found.Texts.push_back(RightTrimmed(tables.WordStr[k]));
    } else {
      EXPECT_EQ(tables.WordStr[k], std::string(24, ' ')) << line;
    }
  }
  return found;
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (; times > 0; --times) all += text;
  return all;
}

TEST(TokeniseLine, KeepsNumbersAndTextsApart) {
  EXPECT_EQ(Tokenised("3 abc 4"), (Found{{3, 4}, {"abc"}}));
  EXPECT_EQ(Tokenised(""), Found{});
  EXPECT_EQ(Tokenised(" ,, 1,2 ,x, "), (Found{{1, 2}, {"x"}}));
  EXPECT_EQ(Tokenised("12.5\t300"), (Found{{}, {"12.5\t300"}}));
  EXPECT_EQ(Tokenised("1.5E3 - +-. 1-2 2.3.4 1e-2"), (Found{{1500, 0, 0, 1, 2.3F, 0.01F}, {}}));
  EXPECT_FALSE(std::signbit(Tokenised("-").Numbers.at(0)));
  EXPECT_EQ(Tokenised("1E E5 1.0D3 12:30 1E5E2 1e2\xC3\x85 E"),
            (Found{{}, {"1E", "E5", "1.0D3", "12:30", "1E5E2", "1e2\xC3\x85", "E"}}));
  EXPECT_EQ(Tokenised("1E+ 1E- .E. 1E39"), (Found{{1, 1, 0, INFINITY}, {}}));
  EXPECT_EQ(Tokenised("16777217 0.1 123456789012345678901"), (Found{{16777216, 0.1F, 1.2345679e20F}, {}}));
}

TEST(TokeniseLine, TakesLongWordsForNumbers) {
  const std::string letters24(24, 'x');
  const std::string umlauts24 = Repeated("\xC3\xA4", 24);
  EXPECT_EQ(Tokenised(letters24 + " " + letters24 + "x"), (Found{{0}, {letters24}}));
  EXPECT_EQ(Tokenised("12xxxxxxxxxxxxxxxxxxxxxxx"), (Found{{12}, {}}));
  EXPECT_EQ(Tokenised(umlauts24), (Found{{}, {umlauts24}}));
  EXPECT_EQ(Tokenised(umlauts24 + "\xC3\xA4"), (Found{{0}, {}}));
}

TEST(TokeniseLine, NeverLooksAtColumn80) {
  const std::string blanks78(78, ' ');
  EXPECT_EQ(Tokenised(blanks78 + "12"), (Found{{1}, {}}));
  EXPECT_EQ(Tokenised(blanks78 + " 2"), Found{});
  EXPECT_EQ(Tokenised(std::string(76, ' ') + "1234567890"), (Found{{123}, {}}));
  EXPECT_EQ(Tokenised(Repeated("\xC3\xA4", 1) + std::string(76, ' ') + "12345"), (Found{{12}, {"\xC3\xA4"}}));
  EXPECT_EQ(Tokenised(std::string(1 << 20, ',') + "1"), Found{});
}

TEST(TokeniseLine, TellsOfMoreThan24WordsAndKeepsTheFirst) {
  EXPECT_EQ(Tokenised(Repeated("1 ", 24)).Messages, 0);
  EXPECT_EQ(Tokenised(Repeated("a ", 25)), (Found{{}, std::vector<std::string>(24, "a"), 1}));
  const Found found = Tokenised(Repeated("1 ", 23) + "a 2 3 4");
  EXPECT_EQ(found.Messages, 1);
  EXPECT_EQ(found.Numbers, std::vector<float>(23, 1));
  EXPECT_EQ(found.Texts, std::vector<std::string>{"a"});
}

TEST(TokeniseLine, LaysTheLineOutCharacterByCharacter) {
  TokenisedWords tables;
  std::int16_t n_text = 0;
  std::int16_t n_num = 0;
  const TellUser nobody = [](const Message&) {};
  TokeniseLine(tables, std::string(90, 'x'), n_text, n_num, nobody);
  EXPECT_EQ(tables.LineChars[80], "x");
  TokeniseLine(tables, "2\xCE\xB8 a", n_text, n_num, nobody);
  EXPECT_EQ(tables.LineChars[1], "2");
  EXPECT_EQ(tables.LineChars[2], "\xCE\xB8");
  EXPECT_EQ(tables.LineChars[3], " ");
  EXPECT_EQ(tables.LineChars[4], "a");
  for (std::size_t column = 5; column <= 80; ++column) EXPECT_EQ(tables.LineChars[column], " ");
}

// ---- The rules written out column by column --------------------------------------------------------

bool PlainSeparator(char c) { return c == ' ' || c == ','; }

bool PlainIsNumber(const std::string& word) {
  static const std::regex rule("[0-9.+-]+([Ee][0-9.+-]+)?");
  return word.size() > 24 || std::regex_match(word, rule);
}

/// One-byte characters only.
Found PlainTokenised(std::string field) {
  field.resize(80, ' ');
  const auto column = [&](std::size_t i) { return field[i - 1]; };
  Found found;
  std::size_t pos = 1;
  int count = 0;
  while (true) {
    while (pos <= 80 && PlainSeparator(column(pos))) ++pos;
    if (pos >= 80) break;
    std::size_t end = pos;
    while (end < 80 && !PlainSeparator(column(end))) ++end;
    if (++count > 24) {
      ++found.Messages;
      break;
    }
    const std::string word = field.substr(pos - 1, end - pos);
    if (PlainIsNumber(word)) {
      found.Numbers.push_back(static_cast<float>(LeadingNumber(word)));
    } else {
      found.Texts.push_back(word.substr(0, 24));
    }
    pos = end;
  }
  return found;
}

TEST(TokeniseLine, AgreesWithTheRulesWrittenOutOnRandomLines) {
  // Alphabets of data lines, of texts, and of long words; all leave column 80 now and then within a word.
  const std::vector<std::string> alphabets{"0123456789.   ,", "0159.+-Ee  ,xD\t",
                                           "12.Ee-xxxxxxxxxxxxxxxxxxxxxxxxxxxxx "};
  std::mt19937 random(4);
  for (int i = 0; i < 30000; ++i) {
    const std::string& alphabet = alphabets[random() % alphabets.size()];
    std::string line;
    for (auto length = random() % 100; length > 0; --length) line += alphabet[random() % alphabet.size()];
    ASSERT_EQ(Tokenised(line), PlainTokenised(line)) << line;
  }
}

}  // namespace
}  // namespace koprax
