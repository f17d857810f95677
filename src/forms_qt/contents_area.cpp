#include "forms_qt/contents_area.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QStyle>

namespace koprax {

namespace {

constexpr QSize WindowDecoration{8, 30};  // what a window manager lays around a window

}  // namespace

ContentsArea::ContentsArea(QWidget& contents, QWidget& window) : QScrollArea(&window) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(&contents);
}

QSize ContentsArea::sizeHint() const { return WithinScreen(widget()->sizeHint()); }

QSize ContentsArea::minimumSizeHint() const { return WithinScreen(widget()->minimumSizeHint()); }

QSize ContentsArea::WithinScreen(QSize wanted) const {
  const QSize room = screen()->availableGeometry().size() - WindowDecoration;
  const QSize least = widget()->minimumSizeHint();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  if (least.height() > room.height()) {
    wanted.rwidth() += bar;
  }
  if (least.width() > room.width()) {
    wanted.rheight() += bar;
  }
  return wanted.boundedTo(room);
}

bool ContentsArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    // The contents want another size, so the window does, in the same turn of events.
    updateGeometry();
    if (QLayout* const around = parentWidget()->layout(); around != nullptr && isVisible()) {
      around->activate();
    }
  }
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace koprax
