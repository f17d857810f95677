// Splits lines of text into words and tells numbers from text. What the words mean is left to the
// readers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "files/read_outcome.h"
#include "workspace/workspace.h"

namespace koprax {

/// The words of one line, split without touching the workspace; a reader keeps one of these for all its
/// lines. Numbers and texts are numbered from 1, each kind by itself.
struct LineWords {
  int NText = 0;
  int NNum = 0;
  bool Truncated = false;                   ///< there were more than MaxWords words; the first ones are here
  std::array<float, MaxWords + 1> Numbers;  ///< set up to NNum, infinite beyond 32 bits
  std::array<std::string_view, MaxWords + 1> Texts;  ///< set up to NText, views of the line

  /// The k-th number, 0 where there are fewer.
  [[nodiscard]] float Number(int k) const { return k <= NNum ? Numbers[static_cast<std::size_t>(k)] : 0; }
  /// The k-th text, empty where there are fewer.
  [[nodiscard]] std::string_view Text(int k) const {
    return k <= NText ? Texts[static_cast<std::size_t>(k)] : std::string_view{};
  }
};

/// Splits a line at blanks and commas. Only the first 79 characters count; a tab is an ordinary one.
void SplitLine(std::string_view line, LineWords& words);

/// Sets all of the workspace's word tables from a line that SplitLine has split.
void StoreWords(TokenisedWords& tables, std::string_view line, const LineWords& words);

/// Splits a line and sets all of the workspace's word tables from it; `n_text` and `n_num` are the
/// counts of texts and numbers. More than MaxWords words are told, and the first ones kept.
void TokeniseLine(TokenisedWords& tables, std::string_view line, std::int16_t& n_text, std::int16_t& n_num,
                  const TellUser& tell);

/// What the user is told about a line of more than MaxWords words.
[[nodiscard]] Message TooManyWords();

}  // namespace koprax
