#include "app/script_scanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <system_error>

namespace koprax {

namespace {

constexpr std::string_view Blanks = " \t";

template <class T>
std::optional<T> WholeWordAsNumber(std::string_view word) {
  T value{};
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

}  // namespace

void ScriptScanner::SkipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(Blanks), rest_.size()));
}

std::string_view ScriptScanner::Word() {
  const std::string_view word = rest_.substr(0, rest_.find_first_of(Blanks));
  rest_.remove_prefix(word.size());
  SkipBlanks();
  return word;
}

std::optional<std::string> ScriptScanner::JsonText() {
  if (!rest_.starts_with('"')) {
    return std::nullopt;
  }
  std::size_t end = 1;
  while (end < rest_.size() && rest_[end] != '"') {
    end += rest_[end] == '\\' ? 2 : 1;
  }
  if (end >= rest_.size()) {
    return std::nullopt;
  }
  const auto text = nlohmann::json::parse(rest_.substr(0, end + 1), nullptr, false);
  if (!text.is_string()) {
    return std::nullopt;
  }
  rest_.remove_prefix(end + 1);
  SkipBlanks();
  return text.get<std::string>();
}

std::optional<float> ScriptScanner::Number() {
  const auto value = WholeWordAsNumber<float>(Word());
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> ScriptScanner::WholeNumber() {
  const auto value = WholeWordAsNumber<int>(Word());
  return value && *value >= 0 ? value : std::nullopt;
}

bool ScriptScanner::TakeWord(std::string_view word) {
  ScriptScanner ahead = *this;
  if (ahead.Word() != word) {
    return false;
  }
  *this = ahead;
  return true;
}

}  // namespace koprax
