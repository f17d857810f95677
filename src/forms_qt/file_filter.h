// The filter text of a file dialog, "description|pattern|description|pattern", as a list for Qt.
#pragma once

#include <QStringList>
#include <string_view>

namespace koprax {

/// One entry a pair, "description (patterns)". Patterns separated by ";" stand for any of them; "*.*" is
/// every file, with a period in its name or without. What is left over after the last pair is dropped.
[[nodiscard]] QStringList NameFilters(std::string_view filter);

}  // namespace koprax
