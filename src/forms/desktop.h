// All forms that are loaded, the order in which they lie, and the events of the user. It tells its
// observers (the view, a recorder) what happens; it knows no window by its class.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/printer.h"
#include "forms/runtime.h"
#include "forms/user_action.h"

namespace koprax {

class Form;

/// Hears of all that happens to forms and controls, in the order in which it happens.
class DesktopObserver {
 public:
  DesktopObserver() = default;
  DesktopObserver(const DesktopObserver&) = delete;
  DesktopObserver& operator=(const DesktopObserver&) = delete;
  virtual ~DesktopObserver() = default;

  virtual void FormShown(Form&, bool /*modal*/) {}
  virtual void FormHidden(Form&) {}
  virtual void FormUnloaded(Form&) {}
  /// `keyboard`: the user is to go on there; else it only comes above the others.
  virtual void FormFronted(Form&, bool /*keyboard*/) {}
  /// A form that is in front already has been asked for.
  virtual void FormWanted(Form&) {}
  virtual void FormChanged(Form&, PropertyName) {}
  virtual void ControlChanged(Control&, PropertyName) {}
  virtual void PictureDrawn(PictureBox&) {}
  virtual void ControlRefreshed(Control&) {}
  virtual void DesktopQuit() {}
  /// The user begins to do something; what it leads to comes between the two. Where a modal window waits for
  /// him, they lie within those of the action that brought it up. The target may be gone by the second.
  virtual void UserActs(const UserAction&) {}
  virtual void UserActed() {}
};

class Desktop {
 public:
  explicit Desktop(Runtime& runtime) : runtime_(runtime) {}
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop() = default;

  [[nodiscard]] Runtime& Host() const { return runtime_; }
  [[nodiscard]] Printer& ThePrinter() { return printer_; }

  void AddObserver(DesktopObserver& observer) { observers_.push_back(&observer); }
  void RemoveObserver(DesktopObserver& observer) { std::erase(observers_, &observer); }

  /// Builds a form and loads it: its load handler runs, it isn't shown yet. A form of the same name
  /// that is loaded already is unloaded first. After the end of the run nothing is loaded any more.
  template <class FormType, class... Arguments>
  std::shared_ptr<FormType> Load(Arguments&&... arguments) {
    auto form = std::make_shared<FormType>(std::forward<Arguments>(arguments)...);
    Adopt(form);
    return form;
  }

  /// The loaded form of that name, or null.
  [[nodiscard]] std::shared_ptr<Form> Find(std::string_view name) const;
  /// Unloads the form of that name if it is loaded.
  void Unload(std::string_view name);
  /// The visible forms, front first.
  [[nodiscard]] std::vector<std::shared_ptr<Form>> ShownForms() const;
  /// The modal form that blocks all others, or null.
  [[nodiscard]] Form* ModalForm() const { return modal_.empty() ? nullptr : modal_.back(); }

  /// Why the user can't act on this form or control now, in words; nothing if he can.
  [[nodiscard]] std::optional<std::string> WhyUnusable(const Form& form) const;
  [[nodiscard]] std::optional<std::string> WhyUnusable(const Control& control) const;

  /// Nothing comes in front of a modal form. A form that follows another one to the front, by its OnFronted,
  /// leaves the keyboard where it is.
  void Show(Form& form);
  void ShowModal(Form& form);
  void Hide(Form& form);
  void Unload(Form& form);
  void BringToFront(Form& form);
  void Refresh(Control& control);

  /// Runs a handler as an event of the user. Forms unloaded within it are destroyed when the outermost
  /// handler has returned.
  void RunEvent(const std::function<void()>& handler);

  /// Does what the user asks for as such an event. Where a handler does the same, it's no doing of the
  /// user's, and no observer hears of it.
  void Act(const UserAction& action, const std::function<void()>& handler);

  /// Ends the run: all forms go, without a question.
  void Quit();
  [[nodiscard]] bool HasQuit() const { return quit_; }

  void FormChanged(Form& form, PropertyName name);
  void ControlChanged(Control& control, PropertyName name);
  void PictureDrawn(PictureBox& picture);

 private:
  class EventScope;
  class ModalScope;

  void Adopt(const std::shared_ptr<Form>& form);
  void MoveToFront(Form& form);
  template <class Call>
  void Tell(Call call);

  Runtime& runtime_;
  Printer printer_;
  std::vector<DesktopObserver*> observers_;
  std::vector<std::shared_ptr<Form>> forms_;    // loaded, front first
  std::vector<std::shared_ptr<Form>> leaving_;  // unloaded within the handler that runs
  std::vector<Form*> modal_;
  int depth_ = 0;
  bool users_turn_ = true;  // no handler runs, or a modal window waits for the user
  bool following_ = false;  // what comes to the front now follows another form
  bool quit_ = false;
};

}  // namespace koprax
