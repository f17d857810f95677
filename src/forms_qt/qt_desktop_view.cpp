#include "forms_qt/qt_desktop_view.h"

#include <QApplication>
#include <QScopedValueRollback>

#include "forms/form.h"
#include "forms_qt/form_window.h"

namespace koprax {

namespace {

// Nobody sees more pictures a second than a screen shows.
constexpr qint64 LeastMillisecondsBetweenRefreshes = 16;

// A desktop that has not given a window the keyboard by then is not going to.
constexpr qint64 LongestMillisecondsToAnswer = 1000;

}  // namespace

QtDesktopView::QtDesktopView(Desktop& desk, UserActivation activation)
    : desk_(desk), activation_(activation) {
  desk_.AddObserver(*this);
}

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

void QtDesktopView::AskForKeyboard(Form& form, FormWindow& window) {
  followers_.erase(&form);
  if (!window.isActiveWindow()) {
    asked_.insert(&form);
    since_asked_.start();
  }
  window.Front();
}

void QtDesktopView::FormShown(Form& form, bool modal) {
  FormWindow& window = EnsureWindow(form);
  window.Display(modal);
  AskForKeyboard(form, window);
}

void QtDesktopView::FormHidden(Form& form) {
  if (FormWindow* window = WindowOf(form)) {
    window->hide();
  }
}

void QtDesktopView::FormUnloaded(Form& form) {
  if (FormWindow* window = WindowOf(form)) {
    windows_.erase(&form);
    asked_.erase(&form);
    followers_.erase(&form);
    window->Leave();
  }
}

void QtDesktopView::FormFronted(Form& form, bool keyboard) {
  FormWindow* window = WindowOf(form);
  if (window != nullptr && (follows_activation_ || !keyboard)) {
    window->raise();
    if (!keyboard) {
      followers_.insert(&form);
    }
  } else if (window != nullptr) {
    AskForKeyboard(form, *window);
  }
}

void QtDesktopView::FormWanted(Form& form) {
  if (FormWindow* window = WindowOf(form)) {
    AskForKeyboard(form, *window);
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

/// Whether a window has come up because the program wanted one to, not because the user went there. The
/// desktop answers when it gets to it, and passes the keyboard on by itself when a dialog closes.
bool QtDesktopView::IsAnswer(Form& form) {
  if (since_asked_.isValid() && since_asked_.elapsed() > LongestMillisecondsToAnswer) {
    asked_.clear();
  }
  const auto shown = desk_.ShownForms();
  if (shown.empty()) {
    return true;  // the run has ended
  }
  const auto& front = shown.front();
  const bool answer = asked_.contains(&form) || asked_.contains(front.get());
  if (asked_.erase(&form) > 0 && front.get() != &form && !followers_.contains(front.get())) {
    // Another form has come to the front since, and should stay there.
    AskForKeyboard(*front, *WindowOf(*front));
  }
  return answer;
}

void QtDesktopView::Activated(Form& form) {
  if (refreshing_ || activation_ == UserActivation::Ignored) {
    return;
  }
  if (IsAnswer(form)) {
    return;
  }
  // The native window is in front already, and has the keyboard.
  const QScopedValueRollback guard(follows_activation_, true);
  desk_.RunEvent([&form] { form.BringToFront(); });
}

}  // namespace koprax
