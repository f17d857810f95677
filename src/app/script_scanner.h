// Takes the parts of a command line off its front: words, names, texts, numbers. What the parts mean is
// left to the commands.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace koprax {

class ScriptScanner {
 public:
  explicit ScriptScanner(std::string_view line) : rest_(line) { SkipBlanks(); }

  /// What is left, without blanks in front.
  [[nodiscard]] std::string_view Rest() const { return rest_; }
  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  /// Everything up to the next blank; "" at the end.
  std::string_view Word();
  /// A JSON string, decoded. Nothing, and nothing taken, when no well-formed one stands here.
  std::optional<std::string> JsonText();
  /// A decimal number, read to the nearest 32-bit float. Nothing when the next word is none.
  std::optional<float> Number();
  /// A whole number of at least 0.
  std::optional<int> WholeNumber();
  /// Takes the word if it is the next one.
  bool TakeWord(std::string_view word);

 private:
  void SkipBlanks();

  std::string_view rest_;
};

}  // namespace koprax
