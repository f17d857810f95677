// The keys that mean the same everywhere on a form, whichever control has the keyboard.
#pragma once

#include <QKeyEvent>

namespace koprax {

[[nodiscard]] inline bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// A key that a box leaves to its form.
[[nodiscard]] inline bool IsOfForm(const QKeyEvent& event) {
  return IsEnter(event) || event.key() == Qt::Key_Escape;
}

/// Ctrl+C, where the box with the keyboard has no selected text of its own to copy.
[[nodiscard]] inline bool CopiesNoText(const QKeyEvent& event, bool text_selected) {
  return !text_selected && event.matches(QKeySequence::Copy);
}

}  // namespace koprax
