// Buttons, option buttons and check boxes.
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "forms_qt/control_widget.h"
#include "forms_qt/help_mark.h"
#include "forms_qt/keys.h"
#include "forms_qt/qt_text.h"

namespace koprax {

namespace {

/// A button that the Enter key presses as the space bar does.
template <class Base>
class EnterButton : public Base {
 public:
  explicit EnterButton(QWidget* parent) : Base(parent) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (IsEnter(*event)) {
      Base::click();
    } else {
      Base::keyPressEvent(event);
    }
  }
};

class CommandButton final : public EnterButton<QPushButton> {
 public:
  using EnterButton::EnterButton;

  [[nodiscard]] QSize sizeHint() const override {
    const QSize hint = QPushButton::sizeHint();
    return IsHelpButton(*this) ? QSize(hint.height(), hint.height()) : hint;
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

/// A choice whose state is the control's: a click only asks for it.
template <class Base>
class AskingButton : public Base {
 public:
  explicit AskingButton(QWidget* parent) : Base(parent) { Base::setAutoExclusive(false); }

 protected:
  void nextCheckState() override {}
};

/// The arrow keys go from option to option and choose none, for a choice acts at once.
class Option final : public AskingButton<EnterButton<QRadioButton>> {
 public:
  using AskingButton::AskingButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool back = event->key() == Qt::Key_Up || event->key() == Qt::Key_Left;
    if (back || event->key() == Qt::Key_Down || event->key() == Qt::Key_Right) {
      Neighbour(back ? -1 : 1).setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    } else {
      AskingButton::keyPressEvent(event);
    }
  }

 private:
  [[nodiscard]] QRadioButton& Neighbour(qsizetype step) {
    auto options = parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
    options.removeIf([](const QRadioButton* one) { return !one->isEnabled() || !one->isVisible(); });
    return *options[(options.indexOf(this) + step + options.size()) % options.size()];
  }
};

template <class ControlType, class WidgetType>
class ButtonWidget final : public ControlWidget {
 public:
  ButtonWidget(ControlType& control, WidgetType& widget)
      : ControlWidget(control, widget), control_(control), widget_(widget) {
    ApplyAll({PropertyName::Caption, PropertyName::Value});
    QObject::connect(&widget, &QAbstractButton::clicked, &widget,
                     [&control, form = control.OwnerForm().weak_from_this()] {
                       ActOn(form, [&control] { control.Click(); });
                     });
  }

  void Apply(PropertyName name) override {
    if (name == PropertyName::Caption) {
      ApplyCaption();
    } else if (name == PropertyName::Value) {
      ApplyValue();
    } else {
      ControlWidget::Apply(name);
    }
  }

 private:
  void ApplyCaption() {
    widget_.setText(ToQt(control_.Caption.Get()));
    if constexpr (std::is_same_v<ControlType, Button>) {
      const auto across = IsHelpButton(widget_) ? QSizePolicy::Fixed : QSizePolicy::Minimum;
      widget_.setSizePolicy(across, QSizePolicy::Fixed);
    }
  }
  void ApplyValue() {
    if constexpr (std::is_same_v<ControlType, CheckBox>) {
      widget_.setChecked(control_.Value != 0);
    } else if constexpr (std::is_same_v<ControlType, OptionButton>) {
      widget_.setChecked(control_.Value);
    }
  }

  ControlType& control_;
  WidgetType& widget_;
};

// The parent owns the widget.
template <class WidgetType, class ControlType>
std::unique_ptr<ControlWidget> Make(ControlType& control, QWidget& parent) {
  auto* widget = new WidgetType(&parent);
  return std::make_unique<ButtonWidget<ControlType, WidgetType>>(control, *widget);
}

}  // namespace

std::unique_ptr<ControlWidget> MakeButton(Button& button, QWidget& parent) {
  return Make<CommandButton>(button, parent);
}

std::unique_ptr<ControlWidget> MakeOptionButton(OptionButton& button, QWidget& parent) {
  return Make<Option>(button, parent);
}

std::unique_ptr<ControlWidget> MakeCheckBox(CheckBox& box, QWidget& parent) {
  return Make<AskingButton<QCheckBox>>(box, parent);
}

}  // namespace koprax
