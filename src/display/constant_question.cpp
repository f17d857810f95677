#include "display/constant_question.h"

#include <cmath>

#include "forms/number_text.h"

namespace koprax {

std::optional<float> AskForConstant(Runtime& host, const std::string& title) {
  const std::string answer =
      host.InputBox({.Prompt = "Give K\r\n(real number)", .Title = title, .Default = "0"});
  if (answer.empty()) {
    return std::nullopt;
  }
  const auto constant = LeadingFloat(answer);
  if (!StartsWithNumber(answer) || !std::isfinite(constant)) {
    host.MsgBox(
        {.Text = "K is to be a real number, such as 0.5 or -1.2E3, of at most 3.4E+38 in size.\r\nIt was \"" +
                 answer + "\".",
         .Title = "Error",
         .Icon = MessageIcon::Stop});
    return std::nullopt;
  }
  return constant;
}

}  // namespace koprax
