#include "files/tokeniser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "files/plain_tokeniser.h"
#include "forms/fixed_text.h"

namespace koprax {
namespace {

/// What was found in a line.
struct Found {
  std::vector<float> Numbers;
  std::vector<std::string> Texts;
  int Messages = 0;
  bool operator==(const Found&) const = default;
};

Found Tokenised(const std::string& line) {
  const plain::TokenisedLine found = plain::Tokenised(line);
  const auto& numbers = found.Tables.WordVal;
  Found words{{numbers.begin() + 1, numbers.begin() + 1 + found.Numbers}, {}, found.Told};
  for (std::size_t k = 1; k <= static_cast<std::size_t>(found.Texts); ++k) {
    words.Texts.push_back(RightTrimmed(found.Tables.WordStr[k]));
  }
  return words;
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

TEST(TokeniseLine, TakesLongWordsForNumbersAndNeverLooksAtColumn80) {
  const std::string umlauts24 = Repeated("\xC3\xA4", 24);
  EXPECT_EQ(Tokenised(umlauts24 + " 12xxxxxxxxxxxxxxxxxxxxxxx"), (Found{{12}, {umlauts24}}));
  EXPECT_EQ(Tokenised(umlauts24 + "\xC3\xA4"), (Found{{0}, {}}));
  EXPECT_EQ(Tokenised(std::string(78, ' ') + "12"), (Found{{1}, {}}));
  EXPECT_EQ(Tokenised(std::string(79, ' ') + "2"), Found{});
  EXPECT_EQ(Tokenised("\xC3\xA4" + std::string(76, ' ') + "12345"), (Found{{12}, {"\xC3\xA4"}}));
  EXPECT_EQ(Tokenised(std::string(1 << 20, ',') + "1"), Found{});
}

TEST(TokeniseLine, TellsOfMoreThan24WordsAndKeepsTheFirst) {
  EXPECT_EQ(Tokenised(Repeated("1 ", 24)).Messages, 0);
  const Found found = Tokenised(Repeated("1 ", 23) + "a 2 3 4");
  EXPECT_EQ(found, (Found{std::vector<float>(23, 1), {"a"}, 1}));
  TokenisedWords tables;
  std::int16_t count = 0;
  TokeniseLine(tables, Repeated("a ", 25), count, count, [](const Message& message) {
    EXPECT_EQ(message.Text, "More than 24 words found in input.");
    EXPECT_EQ(message.Title, "Truncated");
    EXPECT_EQ(message.Icon, MessageIcon::Stop);
  });
}

TEST(TokeniseLine, AgreesWithTheRulesWrittenOutOnRandomLines) {
  // Alphabets of data lines, of texts, and of long words; all leave column 80 now and then within a word.
  const std::vector<std::vector<std::string>> alphabets{
      {"0", "1", "2", "5", "8", "9", ".", "-", " ", " ", " ", ","},
      {"0", "1", "5", ".", "+", "-", "E", "e", " ", " ", ",", "x", "D", "\t", "\xCE\xB8"},
      {"1", "2", ".", "E", "e", "-", "xxxxxxxx", "xxxxxxx", "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", " "}};
  std::mt19937 random(4);
  plain::TokenisedLine found;
  for (int i = 0; i < 30000; ++i) {
    const auto& alphabet = alphabets[random() % alphabets.size()];
    std::string line;
    for (auto length = random() % 100; length > 0; --length) line += alphabet[random() % alphabet.size()];
    found = plain::Tokenised(line, found.Tables);  // where the line before has left its words
    ASSERT_TRUE(found == plain::PlainlyTokenised(line)) << line;
  }
}

}  // namespace
}  // namespace koprax
