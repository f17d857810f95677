#include "forms/table_text.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

#include "forms/text_file.h"

namespace koprax {

namespace {

constexpr std::string_view Gaps = " \t";

/// A word of a line, with what stands before it.
struct Word {
  std::string_view Gap;
  std::string_view Text;
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The length of a running number at the beginning, "12)"; else 0.
std::size_t RunningNumber(std::string_view text) {
  const auto digits = static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
  return digits > 0 && text.substr(digits).starts_with(')') ? digits + 1 : 0;
}

bool IsNumber(std::string_view word) {
  return word.find_first_not_of("+-.,0123456789eE") == std::string_view::npos &&
         std::ranges::any_of(word, IsDigit);
}

std::vector<Word> WordsOf(std::string_view line) {
  std::vector<Word> words;
  for (auto start = line.find_first_not_of(Gaps); start != std::string_view::npos;
       start = line.find_first_not_of(Gaps)) {
    const std::string_view gap = line.substr(0, start);
    line.remove_prefix(start);
    const std::string_view text = line.substr(0, line.find_first_of(Gaps));
    const std::size_t number = words.empty() ? RunningNumber(text) : 0;
    words.push_back({gap, number > 0 ? text.substr(0, number) : text});
    line.remove_prefix(words.back().Text.size());
  }
  return words;
}

bool AreNumbers(const std::vector<Word>& words) {
  return std::ranges::all_of(words, [&](const Word& word) {
    return IsNumber(word.Text) || (&word == &words.front() && RunningNumber(word.Text) > 0);
  });
}

/// Whether a field ends between two words of a line.
bool EndsBetween(const Word& before, const Word& word) {
  const bool names = word.Text == "=" && before.Text != "=";
  return !names && (word.Gap.size() != 1 || word.Gap == "\t" || before.Text == "=");
}

std::vector<std::string> FieldsOf(std::string_view line) {
  const std::vector<Word> words = WordsOf(line);
  const bool numbers = AreNumbers(words);
  std::vector<std::string> fields;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i == 0 || numbers || EndsBetween(words[i - 1], words[i])) {
      fields.emplace_back(words[i].Text);
    } else {
      fields.back().append(" ").append(words[i].Text);
    }
  }
  return fields;
}

std::string Joined(const std::vector<std::string>& fields) {
  std::string row;
  for (const std::string& field : fields) {
    row += &field == &fields.front() ? field : "\t" + field;
  }
  return row;
}

bool IsCourier(std::string_view font) {
  return std::ranges::equal(font, std::string_view("courier"), [](char one, char other) {
    return std::tolower(static_cast<unsigned char>(one)) == other;
  });
}

}  // namespace

bool HoldsTable(const TextBox& box) {
  return box.MultiLine && IsCourier(box.Font.Get()) && (!box.Wraps || box.FollowsEnd);
}

std::vector<std::string> TabSeparatedRows(std::string_view text) {
  std::vector<std::vector<std::string>> table;
  for (LineReader reader(text); !reader.AtEnd();) {
    table.push_back(FieldsOf(reader.NextLine()));
  }
  if (table.size() > 1 && !table[0].empty() && table[0].size() + 1 == table[1].size()) {
    table[0].insert(table[0].begin(), "");
  }
  std::vector<std::string> rows;
  rows.reserve(table.size());
  for (const auto& fields : table) {
    rows.push_back(Joined(fields));
  }
  return rows;
}

}  // namespace koprax
