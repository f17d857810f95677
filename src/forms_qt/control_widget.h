// The native widget of one control and what keeps the two in step: a change of a property goes to the
// widget, what the user does goes to the control's own methods and nothing else.
#pragma once

#include <QWidget>
#include <memory>

#include "forms/control.h"
#include "forms/form.h"

namespace koprax {

/// What of a control the user wants to copy.
enum class CopiedPart { Selection, Whole };

class ControlWidget {
 public:
  ControlWidget(Control& control, QWidget& widget);
  ControlWidget(const ControlWidget&) = delete;
  ControlWidget& operator=(const ControlWidget&) = delete;
  virtual ~ControlWidget() = default;

  /// The widget; its parent owns it.
  [[nodiscard]] QWidget& Widget() const { return widget_; }

  /// Brings a property into the widget.
  virtual void Apply(PropertyName name);
  /// The pointer that the form shows; a control with one of its own gives way to the hourglass only.
  virtual void ApplyFormPointer(Pointer /*pointer*/) {}

  /// Puts what the control shows on the clipboard; false where it shows no picture and no list, or where no
  /// part of it is selected.
  virtual bool Copy(CopiedPart /*part*/) { return false; }

 protected:
  void ApplyAll(std::initializer_list<PropertyName> names);

 private:
  void ApplyToolTip();

  Control& control_;
  QWidget& widget_;
};

/// Carries out what the user does on a form, unless the form has left the desktop meanwhile.
template <class Action>
void ActOn(const std::weak_ptr<Form>& form, const Action& action) {
  if (const auto alive = form.lock(); alive && alive->Loaded()) {
    action();
  }
}

/// The widget for a control, as a child of `parent`. Shapes and lines have none: the picture that they
/// lie on draws them.
[[nodiscard]] std::unique_ptr<ControlWidget> MakeControlWidget(Control& control, QWidget& parent);

[[nodiscard]] std::unique_ptr<ControlWidget> MakeButton(Button& button, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeOptionButton(OptionButton& button, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeCheckBox(CheckBox& box, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeTextBox(TextBox& box, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeComboBox(ComboBox& box, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeLabel(Label& label, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeFrame(Frame& frame, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeImage(Image& image, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlWidget> MakePicture(PictureBox& picture, QWidget& parent);

}  // namespace koprax
