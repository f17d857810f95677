// The symbol font without the font: its Latin letters as the Greek letters that stand in their places,
// so that q reads as theta and l as lambda whatever fonts a machine has. Only letters are mapped.
#pragma once

#include <QString>
#include <string_view>

namespace koprax {

/// Whether a font name means the symbol font, in whatever case it is written.
[[nodiscard]] bool IsSymbolFont(std::string_view font);

[[nodiscard]] QString ToGreek(QString text);
/// The way back, for text that was typed into a box of that font.
[[nodiscard]] QString FromGreek(QString text);

}  // namespace koprax
