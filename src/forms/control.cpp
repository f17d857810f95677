#include "forms/control.h"

#include "forms/desktop.h"
#include "forms/form.h"

namespace koprax {

namespace {

/// The handler may belong to a form that it unloads, so a copy of it is run.
void Run(const std::function<void()>& handler) {
  if (const std::function<void()> running = handler) {
    running();
  }
}

}  // namespace

Control::Control(Form& form, ControlKind kind, std::string name, std::optional<int> index)
    : form_(form), kind_(kind), name_(std::move(name)), index_(index) {
  form_.Register(*this);
}

void Control::PropertyChanged(PropertyName name) { form_.ControlChanged(*this, name); }

std::string Control::FullName() const { return index_ ? name_ + "(" + std::to_string(*index_) + ")" : name_; }

void Control::Refresh() { form_.Desk().Refresh(*this); }

void Control::Act(const UserAction& action, const std::function<void()>& handler) {
  form_.Desk().Act(action, handler);
}

PropertyList Control::Properties() const {
  return {{"Visible", Visible.Get()}, {"Enabled", Enabled.Get()}, {"ToolTip", ToolTip.Get()}};
}

CaptionedControl::CaptionedControl(Form& form, ControlKind kind, std::string name, const CaptionSetup& setup,
                                   std::optional<int> index)
    : Control(form, kind, std::move(name), index) {
  Caption = setup.Caption;
  ToolTip = setup.ToolTip;
  Enabled = setup.Enabled;
  Visible = setup.Visible;
}

PropertyList CaptionedControl::Properties() const {
  PropertyList list = Control::Properties();
  list.emplace(list.begin(), "Caption", Caption.Get());
  return list;
}

void Button::Click() {
  Act(ClickAction{*this}, [this] { Run(OnClick); });
}

OptionValue& OptionValue::operator=(bool value) {
  if (value) {
    button_.Click();
  } else if (value_) {
    value_ = false;
    button_.PropertyChanged(PropertyName::Value);
  }
  return *this;
}

void OptionButton::Choose() {
  for (Control* control : OwnerForm().Controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other != this && other->Container() == Container()) {
      other->Value = false;
    }
  }
  if (!Value.value_) {
    Value.value_ = true;
    PropertyChanged(PropertyName::Value);
  }
}

void OptionButton::Click() {
  Act(ClickAction{*this}, [this] {
    Choose();
    Run(OnClick);
  });
}

PropertyList OptionButton::Properties() const {
  PropertyList list = CaptionedControl::Properties();
  list.emplace_back("Value", static_cast<bool>(Value));
  return list;
}

void CheckBox::Click() {
  Act(ClickAction{*this}, [this] {
    Value = Value == 0 ? 1 : 0;
    Run(OnClick);
  });
}

PropertyList CheckBox::Properties() const {
  PropertyList list = CaptionedControl::Properties();
  list.emplace_back("Value", Value.Get());
  return list;
}

PropertyList Label::Properties() const {
  PropertyList list = CaptionedControl::Properties();
  list.emplace_back("Font", FontName);
  return list;
}

TextBox::TextBox(Form& form, std::string name, const TextSetup& setup, std::optional<int> index)
    : Control(form, ControlKind::TextBox, std::move(name), index),
      MultiLine(setup.MultiLine),
      FollowsEnd(setup.FollowsEnd),
      Wraps(setup.Wraps),
      Columns(setup.Columns),
      Rows(setup.Rows) {
  Meaning = setup.Meaning;
  Text = setup.Text;
  ToolTip = setup.ToolTip;
  Font = setup.Font;
  Locked = setup.Locked;
}

void TextBox::Type(const std::string& text) {
  Act(TypeAction{*this, text}, [&] {
    Text = text;
    Run(OnChange);
  });
}

PropertyList TextBox::Properties() const {
  PropertyList list = Control::Properties();
  list.emplace(list.begin(), "Text", Text.Get());
  list.emplace_back("Locked", Locked.Get());
  list.emplace_back("Font", Font.Get());
  return list;
}

ComboBox::ComboBox(Form& form, std::string name, const ComboSetup& setup, std::optional<int> index)
    : Control(form, ControlKind::ComboBox, std::move(name), index) {
  Meaning = setup.Meaning;
  Text = setup.Text;
  Items = setup.Items;
}

void ComboBox::Type(const std::string& text) {
  Act(TypeAction{*this, text}, [&] {
    Text = text;
    Run(OnChange);
  });
}

PropertyList ComboBox::Properties() const {
  PropertyList list = Control::Properties();
  list.emplace(list.begin(), "Text", Text.Get());
  list.emplace_back("Items", Items.Get());
  return list;
}

PictureBox::PictureBox(Form& form, std::string name, const PictureSetup& setup)
    : Control(form, ControlKind::PictureBox, std::move(name)),
      Surface(setup.Scale),
      DesignWidth(setup.DesignWidth),
      DesignHeight(setup.DesignHeight) {
  Meaning = setup.Meaning;
  ToolTip = setup.ToolTip;
}

PropertyList PictureBox::Properties() const {
  PropertyList list = Control::Properties();
  list.emplace_back("Font", FontName);
  list.emplace_back("MousePointer", static_cast<int>(MousePointer.Get()));
  return list;
}

void PictureBox::MouseDown(MouseButton button, float x, float y) {
  if (OnMouseDown) {
    Act(MouseAction{MouseAction::Kind::Down, *this, button, x, y}, [&] { OnMouseDown(button, x, y); });
  }
}

void PictureBox::MouseMove(float x, float y) {
  if (OnMouseMove) {
    Act(MouseAction{MouseAction::Kind::Move, *this, MouseButton::Left, x, y}, [&] { OnMouseMove(x, y); });
  }
}

void PictureBox::MouseUp(MouseButton button, float x, float y) {
  if (OnMouseUp) {
    Act(MouseAction{MouseAction::Kind::Up, *this, button, x, y}, [&] { OnMouseUp(button, x, y); });
  }
}

void PictureBox::Drawn() { OwnerForm().PictureDrawn(*this); }

Shape::Shape(PictureBox& picture, std::string name, float left, float top, float width, float height)
    : Control(picture.OwnerForm(), ControlKind::Shape, std::move(name)) {
  SetContainer(&picture);
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

PropertyList Shape::Properties() const {
  return {{"Visible", Visible.Get()},
          {"Left", Left.Get()},
          {"Top", Top.Get()},
          {"Width", Width.Get()},
          {"Height", Height.Get()}};
}

LineShape::LineShape(PictureBox& picture, std::string name, Colour colour, float x1, float y1, float x2,
                     float y2, int width)
    : Control(picture.OwnerForm(), ControlKind::Line, std::move(name)),
      BorderColor(colour),
      BorderWidth(width) {
  SetContainer(&picture);
  Move(x1, y1, x2, y2);
}

void LineShape::Move(float x1, float y1, float x2, float y2) {
  X1 = x1;
  Y1 = y1;
  X2 = x2;
  Y2 = y2;
}

PropertyList LineShape::Properties() const {
  return {{"Visible", Visible.Get()}, {"X1", X1.Get()}, {"Y1", Y1.Get()}, {"X2", X2.Get()}, {"Y2", Y2.Get()}};
}

}  // namespace koprax
