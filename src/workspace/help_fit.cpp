#include "workspace/help_texts.h"

namespace koprax {

std::string_view FitHelp(HelpTopic topic) {
  switch (topic) {
    default:
      return {};
  }
}

}  // namespace koprax
