#include "forms/desktop.h"

#include <algorithm>
#include <utility>

#include "forms/form.h"

namespace koprax {

class Desktop::EventScope {
 public:
  explicit EventScope(Desktop& desk)
      : desk_(desk), users_turn_before_(std::exchange(desk.users_turn_, false)) {
    ++desk_.depth_;
  }
  EventScope(const EventScope&) = delete;
  EventScope& operator=(const EventScope&) = delete;
  ~EventScope() {
    desk_.users_turn_ = users_turn_before_;
    if (--desk_.depth_ == 0) {
      // A destructor of a form may reach the desktop again, so the list is emptied first.
      const auto leaving = std::move(desk_.leaving_);
      desk_.leaving_.clear();
    }
  }

 private:
  Desktop& desk_;
  bool users_turn_before_;
};

/// All other windows are blocked as long as this lives, or until the form goes.
class Desktop::ModalScope {
 public:
  ModalScope(Desktop& desk, Form& form) : desk_(desk), form_(form) { desk_.modal_.push_back(&form_); }
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;
  ~ModalScope() { std::erase(desk_.modal_, &form_); }

 private:
  Desktop& desk_;
  Form& form_;
};

template <class Call>
void Desktop::Tell(Call call) {
  for (DesktopObserver* observer : std::vector(observers_)) {
    call(*observer);
  }
}

std::shared_ptr<Form> Desktop::Find(std::string_view name) const {
  const auto found = std::ranges::find_if(forms_, [&](const auto& form) { return form->Name() == name; });
  return found == forms_.end() ? nullptr : *found;
}

void Desktop::Unload(std::string_view name) {
  if (const auto form = Find(name)) {
    Unload(*form);
  }
}

std::vector<std::shared_ptr<Form>> Desktop::ShownForms() const {
  std::vector<std::shared_ptr<Form>> shown;
  std::ranges::copy_if(forms_, std::back_inserter(shown), [](const auto& form) { return form->Visible(); });
  return shown;
}

std::optional<std::string> Desktop::WhyUnusable(const Form& form) const {
  if (!form.Visible()) {
    return form.Name() + " is not shown";
  }
  if (ModalForm() != nullptr && ModalForm() != &form) {
    return "the modal window " + ModalForm()->Name() + " is in front; act on it first";
  }
  return std::nullopt;
}

std::optional<std::string> Desktop::WhyUnusable(const Control& control) const {
  if (auto reason = WhyUnusable(control.OwnerForm())) {
    return reason;
  }
  for (const Control* part = &control; part != nullptr; part = part->Container()) {
    if (!part->Visible) {
      return part->OwnerForm().Name() + "." + part->FullName() + " is hidden";
    }
    if (!part->Enabled) {
      return part->OwnerForm().Name() + "." + part->FullName() + " is disabled";
    }
  }
  return std::nullopt;
}

void Desktop::Adopt(const std::shared_ptr<Form>& form) {
  if (quit_) {
    return;
  }
  Unload(form->Name());
  forms_.push_back(form);
  form->loaded_ = true;
  const EventScope scope(*this);
  form->OnLoad();
}

void Desktop::MoveToFront(Form& form) {
  const auto found = std::ranges::find_if(forms_, [&](const auto& loaded) { return loaded.get() == &form; });
  std::rotate(forms_.begin(), found, found + 1);
}

void Desktop::Show(Form& form) {
  if (!form.loaded_) {
    return;
  }
  if (form.visible_) {
    if (ShownForms().front().get() == &form) {
      Tell([&](DesktopObserver& observer) { observer.FormWanted(form); });
    } else {
      BringToFront(form);
    }
    return;
  }
  form.visible_ = true;
  MoveToFront(form);
  Tell([&](DesktopObserver& observer) { observer.FormShown(form, false); });
  form.OnFronted();
  if (ModalForm() != nullptr) {
    BringToFront(*ModalForm());
  }
}

void Desktop::ShowModal(Form& form) {
  if (!form.loaded_ || form.visible_) {
    return;
  }
  const EventScope scope(*this);
  const auto alive = form.shared_from_this();
  form.visible_ = true;
  MoveToFront(form);
  const ModalScope blocking(*this, form);
  Tell([&](DesktopObserver& observer) { observer.FormShown(form, true); });
  users_turn_ = true;
  runtime_.RunModal(form);
}

void Desktop::Hide(Form& form) {
  if (!form.visible_) {
    return;
  }
  form.visible_ = false;
  std::erase(modal_, &form);
  Tell([&](DesktopObserver& observer) { observer.FormHidden(form); });
}

void Desktop::Unload(Form& form) {
  if (!form.loaded_) {
    return;
  }
  const EventScope scope(*this);
  const auto found = std::ranges::find_if(forms_, [&](const auto& loaded) { return loaded.get() == &form; });
  leaving_.push_back(*found);
  forms_.erase(found);
  form.loaded_ = false;
  form.visible_ = false;
  std::erase(modal_, &form);
  Tell([&](DesktopObserver& observer) { observer.FormUnloaded(form); });
  form.OnUnload();
}

void Desktop::BringToFront(Form& form) {
  if (!form.visible_) {
    return;
  }
  const bool behind_modal = ModalForm() != nullptr && ModalForm() != &form;
  if (behind_modal || ShownForms().front().get() == &form) {
    return;
  }
  MoveToFront(form);
  Tell([&](DesktopObserver& observer) { observer.FormFronted(form, !following_); });
  const bool before = std::exchange(following_, true);
  form.OnFronted();
  following_ = before;
}

void Desktop::Refresh(Control& control) {
  Tell([&](DesktopObserver& observer) { observer.ControlRefreshed(control); });
}

void Desktop::RunEvent(const std::function<void()>& handler) {
  if (quit_) {
    return;
  }
  const EventScope scope(*this);
  handler();
}

void Desktop::Act(const UserAction& action, const std::function<void()>& handler) {
  const bool by_user = users_turn_ && !quit_;
  if (by_user) {
    Tell([&](DesktopObserver& observer) { observer.UserActs(action); });
  }
  RunEvent(handler);
  if (by_user) {
    Tell([](DesktopObserver& observer) { observer.UserActed(); });
  }
}

void Desktop::Quit() {
  if (quit_) {
    return;
  }
  const EventScope scope(*this);
  quit_ = true;
  for (const auto& form : forms_) {
    form->loaded_ = false;
    form->visible_ = false;
    leaving_.push_back(form);
  }
  forms_.clear();
  modal_.clear();
  Tell([](DesktopObserver& observer) { observer.DesktopQuit(); });
  runtime_.Quit();
}

void Desktop::FormChanged(Form& form, PropertyName name) {
  Tell([&](DesktopObserver& observer) { observer.FormChanged(form, name); });
}

void Desktop::ControlChanged(Control& control, PropertyName name) {
  Tell([&](DesktopObserver& observer) { observer.ControlChanged(control, name); });
}

void Desktop::PictureDrawn(PictureBox& picture) {
  for (DesktopObserver* observer : observers_) {
    observer->PictureDrawn(picture);
  }
}

}  // namespace koprax
