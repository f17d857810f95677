// The small button that stands beside a command and explains it is known by its caption.
#pragma once

#include <QAbstractButton>

namespace koprax {

[[nodiscard]] inline bool IsHelpButton(const QAbstractButton& button) {
  return button.text() == QLatin1String("?");
}

}  // namespace koprax
