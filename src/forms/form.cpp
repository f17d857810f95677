#include "forms/form.h"

#include "forms/desktop.h"

namespace koprax {

namespace {

void AssignContainers(const LayoutNode& node, Control* container) {
  Control* inner = container;
  if (node.Item != nullptr) {
    node.Item->SetContainer(container);
    inner = node.Item;
  }
  for (const LayoutNode& child : node.Children) {
    AssignContainers(child, inner);
  }
}

}  // namespace

Form::Form(Desktop& desk, std::string name, std::string caption) : desk_(desk), name_(std::move(name)) {
  Caption = std::move(caption);
}

void Form::Show() { desk_.Show(*this); }
void Form::ShowModal() { desk_.ShowModal(*this); }
void Form::Hide() { desk_.Hide(*this); }
void Form::BringToFront() { desk_.BringToFront(*this); }
void Form::Unload() { desk_.Unload(*this); }
void Form::CloseBox() {
  if (MayClose()) {
    desk_.RunEvent([this] { OnCloseBox(); });
  }
}

Control* Form::Find(std::string_view name, std::optional<int> index) const {
  for (Control* control : controls_) {
    if (control->Name() == name && control->Index() == index) {
      return control;
    }
  }
  return nullptr;
}

void Form::SetLayout(LayoutNode layout, bool resizable) {
  layout_ = std::move(layout);
  resizable_ = resizable;
  AssignContainers(layout_, nullptr);
}

void Form::EnterClicks(Button& button) {
  enter_targets_.push_back({&button, [&button] { button.Click(); }});
}
void Form::EscapeClicks(Button& button) {
  escape_targets_.push_back({&button, [&button] { button.Click(); }});
}
void Form::EscapeClicks(OptionButton& option) {
  escape_targets_.push_back({&option, [&option] { option.Click(); }});
}

bool Form::ClickIfUsable(const KeyTarget& target) {
  const bool usable = !desk_.WhyUnusable(*target.Target);
  if (usable) {
    // The click may unload the form, and with it the target.
    const auto click = target.Click;
    click();
  }
  return usable;
}

bool Form::PressEnter(const Control* box) {
  const Control* frame = box == nullptr ? nullptr : box->Container();
  while (true) {
    for (const KeyTarget& key : enter_targets_) {
      if (key.Target->Container() == frame) {
        return ClickIfUsable(key);
      }
    }
    if (frame == nullptr) {
      return false;
    }
    frame = frame->Container();
  }
}

bool Form::PressEscape() {
  for (const KeyTarget& key : escape_targets_) {
    if (ClickIfUsable(key)) {
      return true;
    }
  }
  if (escape_closes_) {
    CloseBox();
  }
  return escape_closes_;
}

void Form::PropertyChanged(PropertyName name) {
  if (loaded_) {
    desk_.FormChanged(*this, name);
  }
}

void Form::ControlChanged(Control& control, PropertyName name) {
  if (loaded_) {
    desk_.ControlChanged(control, name);
  }
}

void Form::PictureDrawn(PictureBox& picture) {
  if (loaded_) {
    desk_.PictureDrawn(picture);
  }
}

}  // namespace koprax
