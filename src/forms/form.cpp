#include "forms/form.h"

#include <algorithm>

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

/// The parts of the layout that hold the control, from the smallest to the whole.
bool CollectPartsAround(const LayoutNode& node, const Control* control,
                        std::vector<const LayoutNode*>& parts) {
  const auto in_child = [&](const LayoutNode& child) { return CollectPartsAround(child, control, parts); };
  const bool holds = node.Item == control || std::ranges::any_of(node.Children, in_child);
  if (holds) {
    parts.push_back(&node);
  }
  return holds;
}

/// The controls of a part of the layout, but for those in frames within it.
void CollectControls(const LayoutNode& part, std::vector<const Control*>& controls) {
  for (const LayoutNode& child : part.Children) {
    if (child.Item != nullptr) {
      controls.push_back(child.Item);
    } else {
      CollectControls(child, controls);
    }
  }
}

/// Whether the control stands in a row that holds a box, too.
bool StandsBesideBox(const LayoutNode& layout, const Control* control) {
  std::vector<const LayoutNode*> parts;
  CollectPartsAround(layout, control, parts);
  std::vector<const Control*> row;
  CollectControls(*parts.at(1), row);
  return parts[1]->Type == LayoutNode::Kind::Row && std::ranges::any_of(row, [](const Control* other) {
           return other->Kind() == ControlKind::TextBox || other->Kind() == ControlKind::ComboBox;
         });
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
    desk_.Act(CloseAction{*this}, [this] { OnCloseBox(); });
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
void Form::EscapeClicks(OptionButton& option, const std::function<bool()>& offered) {
  escape_targets_.push_back({&option, [&option] { option.Click(); }, offered});
}

bool Form::ClickIfUsable(const KeyTarget& target) {
  const bool offered = target.Offered && target.Offered() && !desk_.WhyUnusable(*this);
  const bool usable = offered || !desk_.WhyUnusable(*target.Target);
  if (usable) {
    // The click may unload the form, and with it the target.
    const auto click = target.Click;
    click();
  }
  return usable;
}

bool Form::PressEnter(const Control* box) {
  std::vector<const LayoutNode*> parts{&layout_};
  if (box != nullptr) {
    parts.clear();
    CollectPartsAround(layout_, box, parts);
  }
  for (const LayoutNode* part : parts) {
    std::vector<const Control*> controls;
    CollectControls(*part, controls);
    const auto serves = [&](const KeyTarget& key) {
      return std::ranges::find(controls, key.Target) != controls.end() &&
             (box != nullptr || !StandsBesideBox(layout_, key.Target));
    };
    if (const auto key = std::ranges::find_if(enter_targets_, serves); key != enter_targets_.end()) {
      const bool alone = std::ranges::count_if(enter_targets_, serves) == 1;
      return alone && ClickIfUsable(*key);
    }
  }
  return false;
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
