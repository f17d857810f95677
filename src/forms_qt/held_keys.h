// Keys that press buttons or close windows count once, however long they are held: a key that brings up a
// question must not answer it.
#pragma once

#include <QObject>
#include <map>

class QKeyEvent;

namespace koprax {

/// A filter of the whole application.
class HeldKeys final : public QObject {
 public:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  /// Whether a key that is down already has come again.
  [[nodiscard]] bool ComesAgain(const QKeyEvent& press) const;

  std::map<int, quint64> last_release_;  // of each key, in milliseconds
};

}  // namespace koprax
