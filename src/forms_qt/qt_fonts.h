// The fonts that the forms name, as the machine has them.
#pragma once

#include <QFont>
#include <string>
#include <vector>

namespace koprax {

/// The font of that name: the system's own for the default and the symbol font, its fixed-pitch one for
/// "courier", the family or what comes nearest to it for any other. The size is the system's.
[[nodiscard]] QFont FontNamed(const std::string& name);

/// The names of the fonts that can be printed; "Symbol" is always among them.
[[nodiscard]] std::vector<std::string> PrintableFonts();

}  // namespace koprax
