// One line of answers as a tree whose numbers stand as they are written. What the line answers is left to
// others.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace koprax {

struct AnswerTree {
  enum class Kinds { Null, Flag, Number, Text, Array, Object };

  Kinds Kind = Kinds::Null;
  std::string Text{};  ///< of a flag, number or text; that of a number letter for letter
  std::vector<std::pair<std::string, AnswerTree>>
      Entries{};  ///< of an array (its names are "0", "1") or object

  /// The entry of an object by its name; null if there is none.
  [[nodiscard]] const AnswerTree* Find(std::string_view name) const;
};

/// Reads one JSON value; nothing where the text is none, or is nested more than 50 deep.
[[nodiscard]] std::optional<AnswerTree> ReadAnswerTree(std::string_view text);

}  // namespace koprax
