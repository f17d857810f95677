#include "forms_qt/qt_desktop_view.h"

#include <QApplication>
#include <QScopedValueRollback>

#include "forms/form.h"
#include "forms_qt/form_window.h"

namespace koprax {

namespace {

// Nobody sees more pictures a second than a screen shows.
constexpr qint64 LeastMillisecondsBetweenRefreshes = 16;

}  // namespace

QtDesktopView::QtDesktopView(Desktop& desk) : desk_(desk) { desk_.AddObserver(*this); }

QtDesktopView::~QtDesktopView() {
  desk_.RemoveObserver(*this);
  for (const auto& [form, window] : windows_) {
    delete window;
  }
}

FormWindow* QtDesktopView::WindowOf(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second;
}

FormWindow& QtDesktopView::EnsureWindow(Form& form) {
  FormWindow*& window = windows_[&form];
  if (window == nullptr) {
    window = new FormWindow(form, [this](Form& activated) { Activated(activated); });
  }
  return *window;
}

void QtDesktopView::FormShown(Form& form, bool modal) { EnsureWindow(form).Display(modal); }

void QtDesktopView::FormHidden(Form& form) {
  if (FormWindow* window = WindowOf(form)) {
    window->hide();
  }
}

void QtDesktopView::FormUnloaded(Form& form) {
  if (FormWindow* window = WindowOf(form)) {
    windows_.erase(&form);
    window->Leave();
  }
}

void QtDesktopView::FormFronted(Form& form) {
  if (FormWindow* window = WindowOf(form)) {
    window->Front(!follows_activation_);
  }
}

void QtDesktopView::FormChanged(Form& form, PropertyName name) {
  if (FormWindow* window = WindowOf(form)) {
    window->FormChanged(name);
  }
}

void QtDesktopView::ControlChanged(Control& control, PropertyName name) {
  if (FormWindow* window = WindowOf(control.OwnerForm())) {
    window->ControlChanged(control, name);
  }
}

void QtDesktopView::PictureDrawn(PictureBox& picture) {
  if (FormWindow* window = WindowOf(picture.OwnerForm())) {
    window->PictureDrawn(picture);
  }
}

void QtDesktopView::ControlRefreshed(Control& control) {
  FormWindow* window = WindowOf(control.OwnerForm());
  if (window == nullptr ||
      (since_refresh_.isValid() && since_refresh_.elapsed() < LeastMillisecondsBetweenRefreshes)) {
    return;
  }
  const QScopedValueRollback guard(refreshing_, true);
  // A window that has only just been shown must have reached the screen before it can be painted.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  window->Repaint(control);
  since_refresh_.start();
}

void QtDesktopView::DesktopQuit() {
  const auto windows = std::exchange(windows_, {});
  for (const auto& [form, window] : windows) {
    window->Leave();
  }
}

void QtDesktopView::Activated(Form& form) {
  if (refreshing_) {
    return;
  }
  // The native window is in front already, and has the keyboard.
  const QScopedValueRollback guard(follows_activation_, true);
  desk_.RunEvent([&form] { form.BringToFront(); });
}

}  // namespace koprax
