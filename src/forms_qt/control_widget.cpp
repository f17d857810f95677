#include "forms_qt/control_widget.h"

#include <QToolTip>

#include "forms_qt/qt_text.h"

namespace koprax {

ControlWidget::ControlWidget(Control& control, QWidget& widget) : control_(control), widget_(widget) {
  if (!control.Meaning.empty()) {
    widget.setAccessibleName(ToQt(control.Meaning));
  }
}

void ControlWidget::Apply(PropertyName name) {
  switch (name) {
    case PropertyName::Visible:
      widget_.setVisible(control_.Visible);
      break;
    case PropertyName::Enabled:
      widget_.setEnabled(control_.Enabled);
      break;
    case PropertyName::ToolTip:
      ApplyToolTip();
      break;
    default:
      break;
  }
}

void ControlWidget::ApplyToolTip() {
  const QString tip = ToToolTip(control_.ToolTip.Get());
  if (tip == widget_.toolTip()) {
    return;
  }
  widget_.setToolTip(tip);
  if (QToolTip::isVisible() && widget_.underMouse()) {
    QToolTip::hideText();  // it tells what no longer holds
  }
}

void ControlWidget::ApplyAll(std::initializer_list<PropertyName> names) {
  for (const PropertyName name : names) {
    Apply(name);
  }
  for (const PropertyName name : {PropertyName::ToolTip, PropertyName::Enabled, PropertyName::Visible}) {
    Apply(name);
  }
}

std::unique_ptr<ControlWidget> MakeControlWidget(Control& control, QWidget& parent) {
  switch (control.Kind()) {
    case ControlKind::Button:
      return MakeButton(dynamic_cast<Button&>(control), parent);
    case ControlKind::OptionButton:
      return MakeOptionButton(dynamic_cast<OptionButton&>(control), parent);
    case ControlKind::CheckBox:
      return MakeCheckBox(dynamic_cast<CheckBox&>(control), parent);
    case ControlKind::TextBox:
      return MakeTextBox(dynamic_cast<TextBox&>(control), parent);
    case ControlKind::ComboBox:
      return MakeComboBox(dynamic_cast<ComboBox&>(control), parent);
    case ControlKind::Label:
      return MakeLabel(dynamic_cast<Label&>(control), parent);
    case ControlKind::Frame:
      return MakeFrame(dynamic_cast<Frame&>(control), parent);
    case ControlKind::PictureBox:
      return MakePicture(dynamic_cast<PictureBox&>(control), parent);
    case ControlKind::Image:
      return MakeImage(dynamic_cast<Image&>(control), parent);
    case ControlKind::Shape:
    case ControlKind::Line:
      break;
  }
  return nullptr;
}

}  // namespace koprax
