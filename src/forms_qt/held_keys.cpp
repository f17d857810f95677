#include "forms_qt/held_keys.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "forms_qt/keys.h"

namespace koprax {

namespace {

/// Whether the key is only text where the keyboard is, and may be held to type it again and again.
bool IsTyped(const QKeyEvent& press) {
  const QWidget* const widget = QApplication::focusWidget();
  const auto* const lines = qobject_cast<const QPlainTextEdit*>(widget);
  if (press.key() == Qt::Key_Escape) {
    return false;
  }
  if (lines != nullptr) {
    return !lines->isReadOnly();
  }
  const bool line =
      qobject_cast<const QLineEdit*>(widget) != nullptr || qobject_cast<const QComboBox*>(widget) != nullptr;
  return line && !IsEnter(press);
}

}  // namespace

bool HeldKeys::eventFilter(QObject* receiver, QEvent* event) {
  // Each key comes to the native window first, and from there to the widgets.
  if (receiver->isWindowType() && event->type() == QEvent::KeyPress) {
    const auto& press = dynamic_cast<const QKeyEvent&>(*event);
    const bool presses = IsOfForm(press) || press.key() == Qt::Key_Space;
    return presses && ComesAgain(press) && !IsTyped(press);
  }
  if (receiver->isWindowType() && event->type() == QEvent::KeyRelease) {
    const auto& release = dynamic_cast<const QKeyEvent&>(*event);
    last_release_[release.key()] = release.timestamp();
  }
  return false;
}

bool HeldKeys::ComesAgain(const QKeyEvent& press) const {
  // A key that is held comes as releases and presses of one moment. Over a window that has just come up they
  // don't say that they are repeats.
  constexpr quint64 OneMoment = 5;
  const auto released = last_release_.find(press.key());
  const bool just_released = released != last_release_.end() && press.timestamp() >= released->second &&
                             press.timestamp() <= released->second + OneMoment && press.timestamp() != 0;
  return press.isAutoRepeat() || just_released;
}

}  // namespace koprax
