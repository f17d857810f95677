// What a user does and answers, written as the lines of a script that do and answer the same.
#pragma once

#include <optional>
#include <string>

#include "forms/runtime.h"
#include "forms/scripted_runtime.h"
#include "forms/user_action.h"

namespace koprax {

/// A text as scripts write it, a JSON string.
[[nodiscard]] std::string ScriptText(const std::string& text);

/// "click Form6.cmdZoom"; coordinates read back to the same 32 bits.
[[nodiscard]] std::string ScriptLine(const UserAction& action);

/// The answers to a box or dialog; nothing stands for a cancel.
[[nodiscard]] std::string AnswerLine(MessageAnswer answer);
[[nodiscard]] std::string InputLine(const std::optional<std::string>& text);
[[nodiscard]] std::string FileLine(const std::optional<std::string>& path);
[[nodiscard]] std::string PrinterLine(const std::optional<PrinterChoice>& choice);

}  // namespace koprax
