#include "app/script_names.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>

namespace koprax {

namespace {

constexpr std::size_t ListedNames = 5;
constexpr std::size_t LongestName = 64;  // more than any name has; keeps a senseless one cheap

char Lower(char letter) { return static_cast<char>(std::tolower(static_cast<unsigned char>(letter))); }

}  // namespace

std::size_t EditDistance(std::string_view one, std::string_view other) {
  // The row of the table for the letters of `one` so far, against each start of `other`.
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t k = 1; k <= other.size(); ++k) {
      const std::size_t replaced = diagonal + (Lower(one[i - 1]) == Lower(other[k - 1]) ? 0U : 1U);
      diagonal = row[k];
      row[k] = std::min({replaced, row[k] + 1, row[k - 1] + 1});
    }
  }
  return row.back();
}

std::vector<std::string> NearestNames(std::string_view wanted, const std::vector<std::string>& names) {
  std::vector<std::pair<std::size_t, std::string>> ranked;
  ranked.reserve(names.size());
  for (const std::string& name : names) {
    ranked.emplace_back(EditDistance(wanted.substr(0, LongestName), name), name);
  }
  std::ranges::stable_sort(ranked, {}, &std::pair<std::size_t, std::string>::first);
  std::vector<std::string> nearest;
  for (const auto& [distance, name] : ranked) {
    if (nearest.size() < ListedNames) {
      nearest.push_back(name);
    }
  }
  return nearest;
}

std::string CommaList(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    list += (list.empty() ? "" : ", ") + name;
  }
  return list;
}

}  // namespace koprax
