// Texts between the forms and Qt: UTF-8 with CR LF on one side, QString with LF on the other.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace koprax {

/// The text with each CR LF as a single line feed.
[[nodiscard]] QString ToQt(std::string_view text);
/// The text with each line feed as CR LF.
[[nodiscard]] std::string FromQt(const QString& text);
/// A caption for a place that has no mnemonics: "&&" and "&" as a person reads them.
[[nodiscard]] QString WithoutMnemonic(const QString& caption);

/// A tool tip that shows the text as it is, in lines of readable length.
[[nodiscard]] QString ToToolTip(std::string_view text);

}  // namespace koprax
