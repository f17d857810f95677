// What a window shows, as large as it wants to be where the screen has room for it. What a small screen can't
// hold shrinks as far as it may, and is scrolled beyond that.
#pragma once

#include <QScrollArea>

namespace koprax {

class ContentsArea final : public QScrollArea {
 public:
  /// Takes the contents over.
  ContentsArea(QWidget& contents, QWidget& window);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QSize WithinScreen(QSize wanted) const;
};

}  // namespace koprax
