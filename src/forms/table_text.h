// Tables of text boxes as rows of fields with tabs between them, as spreadsheets take them. Where such a text
// goes is left to the view.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace koprax {

/// Whether a box shows a list: many lines in a font of fixed width. A text that wraps is prose, but for one
/// that collects its results below each other.
[[nodiscard]] bool HoldsTable(const TextBox& box);

/// A row for each line of a text. A field ends at a tab, at two or more blanks and behind "="; in a line of
/// numbers at each blank, and behind a running number such as "1)". Letters stay as they are. Where the
/// heading in the first line has one field less than the second line, the first column has no name.
[[nodiscard]] std::vector<std::string> TabSeparatedRows(std::string_view text);

}  // namespace koprax
