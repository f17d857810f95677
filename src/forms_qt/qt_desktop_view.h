// The one view of all forms: gives each shown form a native window and keeps the two in step. It knows
// no form by its class; what a form looks like is told by its controls and its layout.
#pragma once

#include <QElapsedTimer>
#include <map>
#include <memory>
#include <set>

#include "forms/desktop.h"

namespace koprax {

class FormWindow;

/// Whether a native window that the user goes to brings its form to the front. A script acts on the forms
/// alone, whatever the windows do.
enum class UserActivation { Followed, Ignored };

class QtDesktopView final : public DesktopObserver {
 public:
  /// Attached before the first form is shown; the desktop outlives the view.
  explicit QtDesktopView(Desktop& desk, UserActivation activation = UserActivation::Followed);
  ~QtDesktopView() override;

  /// The native window of a form, or null when it has none yet.
  [[nodiscard]] FormWindow* WindowOf(const Form& form) const;

  void FormShown(Form& form, bool modal) override;
  void FormHidden(Form& form) override;
  void FormUnloaded(Form& form) override;
  void FormFronted(Form& form, bool keyboard) override;
  void FormWanted(Form& form) override;
  void FormChanged(Form& form, PropertyName name) override;
  void ControlChanged(Control& control, PropertyName name) override;
  void PictureDrawn(PictureBox& picture) override;
  void ControlRefreshed(Control& control) override;
  void DesktopQuit() override;

 private:
  FormWindow& EnsureWindow(Form& form);
  void Activated(Form& form);
  [[nodiscard]] bool IsAnswer(Form& form);
  void AskForKeyboard(Form& form, FormWindow& window);

  Desktop& desk_;
  UserActivation activation_;
  std::map<const Form*, FormWindow*> windows_;
  // Forms whose windows have been asked to take the keyboard and have not answered yet, and since when.
  std::set<const Form*> asked_;
  std::set<const Form*> followers_;  // came to the front without the keyboard
  QElapsedTimer since_asked_;
  QElapsedTimer since_refresh_;
  bool refreshing_ = false;          // input waits until the refresh is over
  bool follows_activation_ = false;  // the user has gone to a window himself
};

}  // namespace koprax
