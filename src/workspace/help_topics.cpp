#include "workspace/help_topics.h"

#include <string_view>

#include "workspace/help_texts.h"

namespace koprax {
namespace {

std::string WithCarriageReturns(std::string_view text) {
  std::string lines;
  lines.reserve(text.size() + text.size() / 32);
  for (const char character : text) {
    if (character == '\n') {
      lines += '\r';
    }
    lines += character;
  }
  return lines;
}

}  // namespace

std::string HelpText(HelpTopic topic) {
  for (const auto texts :
       {MainMenuHelp, FormatHelp, DisplayHelp, ArithmeticHelp, ManipulationHelp, FitHelp, CalibrationHelp}) {
    if (const std::string_view text = texts(topic); !text.empty()) {
      return WithCarriageReturns(text);
    }
  }
  return {};
}

HelpTextTable AllHelpTexts() {
  HelpTextTable texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    texts[i] = HelpText(static_cast<HelpTopic>(i));
  }
  return texts;
}

}  // namespace koprax
