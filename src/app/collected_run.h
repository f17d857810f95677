// What one run of koprax-script has answered: whether all went well, and a cell for each value that its
// script asked for. Putting runs together is left to the table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace koprax {

struct CollectedCell {
  std::string Column;  ///< the query without its verb, and where in the value it stands: "FitParam (3)"
  std::string Text;
};

struct CollectedRun {
  std::string FileName{};
  int Failed = 0;            ///< commands that could not be carried out
  std::string FirstError{};  ///< why the first of them could not
  std::string Broken{};      ///< why the file isn't what a run leaves, or not all of it; empty where it is
  std::vector<CollectedCell> Cells{};  ///< in the order of the answers
  std::vector<std::string> LeftOut{};  ///< the columns of arrays that are too long

  [[nodiscard]] bool Well() const { return Failed == 0 && Broken.empty(); }
};

/// Longer arrays are left out. Tables of 100 entries numbered from 1 have 101.
inline constexpr std::size_t LongestArray = 101;

/// Collects the values of `get` and `state` from the answers of a run, one JSON object a line. The value
/// of a query that is asked the second time has " #2" behind it, also where the first had no value. What
/// stands behind a broken line is collected, too.
[[nodiscard]] CollectedRun CollectRun(const std::string& file_name, std::string_view answers);

/// The same from a file, which may be one that can't be read.
[[nodiscard]] CollectedRun CollectFile(const std::string& file_name);

}  // namespace koprax
