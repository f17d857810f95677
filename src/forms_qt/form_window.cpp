#include "forms_qt/form_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <array>

#include "forms_qt/contents_area.h"
#include "forms_qt/help_mark.h"
#include "forms_qt/keys.h"
#include "forms_qt/layout_builder.h"
#include "forms_qt/picture_widget.h"
#include "forms_qt/pointer_shapes.h"
#include "forms_qt/qt_text.h"

namespace koprax {

namespace {

bool IsReadOnly(const QWidget& widget) { return widget.property("readOnly").toBool(); }

bool IsHelp(const QWidget& widget) {
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  return button != nullptr && IsHelpButton(*button);
}

/// How likely somebody is to start with a control.
int UseOf(const QWidget& widget) {
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  if (button != nullptr) {
    return button->shortcut().isEmpty() ? 1 : 3;
  }
  return IsReadOnly(widget) ? 0 : 2;
}

}  // namespace

FormWindow::FormWindow(Form& form, std::function<void(Form&)> activated)
    : QWidget(nullptr, Qt::Window),
      contents_(new ContentsArea(*new QWidget, *this)),
      form_(form.weak_from_this()),
      identity_(&form),
      activated_(std::move(activated)) {
  setObjectName(QString::fromStdString(form.Name()));
  BuildLayout(form.Layout(), Contents(),
              [this](Control& control, QWidget& parent) { return MakeWidget(control, parent); });
  auto* const all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(contents_);
  if (!form.Resizable()) {
    all->setSizeConstraint(QLayout::SetFixedSize);
  }
  FormChanged(PropertyName::Caption);
  FormChanged(PropertyName::MousePointer);
}

FormWindow* FormWindow::Of(const Form& form) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* found = dynamic_cast<FormWindow*>(window);
        found != nullptr && found->identity_ == &form && !found->form_.expired()) {
      return found;
    }
  }
  return nullptr;
}

QWidget* FormWindow::MakeWidget(Control& control, QWidget& parent) {
  auto made = MakeControlWidget(control, parent);
  if (!made) {
    return nullptr;
  }
  QWidget* widget = &made->Widget();
  widget->setObjectName(QString::fromStdString(control.FullName()));
  widgets_[&control] = std::move(made);
  return widget;
}

void FormWindow::Display(bool modal) {
  setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  if (modal) {
    // Window managers keep a dialog above the window that it belongs to.
    if (const QWidget* owner = QApplication::activeWindow(); owner != nullptr && owner != this) {
      winId();
      windowHandle()->setTransientParent(owner->windowHandle());
    }
  }
  if (!testAttribute(Qt::WA_Resized)) {
    resize(sizeHint());
  }
  if (QWidget* const first = focusWidget() == nullptr ? FirstOfUse() : nullptr) {
    first->setFocus(Qt::TabFocusReason);
  }
  show();
  setAttribute(Qt::WA_KeyboardFocusChange);  // shows who has the keyboard before a key has been pressed
}

void FormWindow::Front() {
  if (isMinimized()) {
    showNormal();
  }
  raise();
  activateWindow();
}

void FormWindow::Leave() {
  form_.reset();
  hide();
  deleteLater();
}

void FormWindow::FormChanged(PropertyName name) {
  const auto form = form_.lock();
  if (form && name == PropertyName::Caption) {
    setWindowTitle(ToQt(form->Caption.Get()));
  } else if (form && name == PropertyName::MousePointer) {
    const Pointer pointer = form->MousePointer;
    setCursor(CursorShape(pointer));
    for (const auto& [control, widget] : widgets_) {
      widget->ApplyFormPointer(pointer);
    }
  }
}

void FormWindow::ControlChanged(Control& control, PropertyName name) {
  if (const auto found = widgets_.find(&control); found != widgets_.end()) {
    found->second->Apply(name);
  } else if (PictureWidget* picture = PictureUnder(control)) {
    picture->OverlayChanged(control);
  }
}

void FormWindow::PictureDrawn(PictureBox& picture) {
  if (auto* widget = dynamic_cast<PictureWidget*>(WidgetOf(picture))) {
    widget->OperationsChanged();
  }
}

void FormWindow::Repaint(const Control& control) {
  QWidget* widget = WidgetOf(control);
  if (widget == nullptr) {
    widget = PictureUnder(control);
  }
  if (widget != nullptr) {
    widget->repaint();
  }
}

QWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : &found->second->Widget();
}

QWidget& FormWindow::Contents() const { return *contents_->widget(); }

PictureWidget* FormWindow::PictureUnder(const Control& overlay) const {
  return overlay.Container() == nullptr ? nullptr
                                        : dynamic_cast<PictureWidget*>(WidgetOf(*overlay.Container()));
}

/// Where the keyboard is when the window opens: the first command with a letter of its own; without one, the
/// first box to type in, then the first button, help excepted; else the first box that can be read.
QWidget* FormWindow::FirstOfUse() const {
  QWidget* first = nullptr;
  for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
    const bool reached =
        (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabledTo(this) && widget->isVisibleTo(this);
    if (reached && !IsHelp(*widget) && (first == nullptr || UseOf(*widget) > UseOf(*first))) {
      first = widget;
    }
  }
  return first;
}

/// The control that has the keyboard, if it is a box that can be typed in.
const Control* FormWindow::BoxWithKeyboard() const {
  const auto found = std::ranges::find_if(
      widgets_, [this](const auto& entry) { return &entry.second->Widget() == focusWidget(); });
  if (found == widgets_.end() || IsReadOnly(*focusWidget())) {
    return nullptr;
  }
  const ControlKind kind = found->first->Kind();
  return kind == ControlKind::TextBox || kind == ControlKind::ComboBox ? found->first : nullptr;
}

/// Whether a box or a modal form is to be answered first.
bool FormWindow::IsBlocked() const {
  const QWidget* const modal = QApplication::activeModalWidget();
  return modal != nullptr && modal != this;
}

/// What a widget, or one that it is a part of, belongs to; null for none of this window.
ControlWidget* FormWindow::ShowingAt(QWidget* widget) const {
  for (; widget != nullptr && widget != this; widget = widget->parentWidget()) {
    const auto found =
        std::ranges::find_if(widgets_, [&](const auto& entry) { return &entry.second->Widget() == widget; });
    if (found != widgets_.end()) {
      return found->second.get();
    }
  }
  return nullptr;
}

ControlWidget* FormWindow::FirstPicture() const {
  const auto form = form_.lock();
  const std::vector<Control*> none;
  for (const Control* control : form ? form->Controls() : none) {
    const auto found = widgets_.find(control);
    if (control->Kind() == ControlKind::PictureBox && found != widgets_.end() &&
        found->second->Widget().isVisible()) {
      return found->second.get();
    }
  }
  return nullptr;
}

/// Selected rows of the list with the keyboard; else the picture or list under the mouse, else that with the
/// keyboard, else the first picture. Nothing of the form changes. False where there is nothing to copy.
bool FormWindow::Copy() {
  ControlWidget* const keyboard = ShowingAt(focusWidget());
  if (keyboard != nullptr && keyboard->Copy(CopiedPart::Selection)) {
    return true;
  }
  ControlWidget* const mouse = ShowingAt(QApplication::widgetAt(QCursor::pos()));
  return std::ranges::any_of(std::array{mouse, keyboard, FirstPicture()}, [](ControlWidget* shown) {
    return shown != nullptr && shown->Copy(CopiedPart::Whole);
  });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!IsBlocked()) {
    ActOn(form_, [this] { form_.lock()->CloseBox(); });
  }
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy) && !IsBlocked() && Copy()) {
    return;
  }
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (!plain || !IsOfForm(*event) || IsBlocked()) {
    QWidget::keyPressEvent(event);
    return;
  }
  const bool enter = IsEnter(*event);
  event->accept();
  ActOn(form_, [&] {
    const auto form = form_.lock();
    enter ? form->PressEnter(BoxWithKeyboard()) : form->PressEscape();
  });
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // Contents that have become visible have made the window grow; where the user sizes it, it may go.
  if (isVisible() && !event->spontaneous()) {
    KeepOnScreen();
  }
}

void FormWindow::KeepOnScreen() {
  const QRect room = screen()->availableGeometry();
  QRect frame = frameGeometry();
  frame.moveRight(std::min(frame.right(), room.right()));
  frame.moveBottom(std::min(frame.bottom(), room.bottom()));
  frame.moveLeft(std::max(frame.left(), room.left()));
  frame.moveTop(std::max(frame.top(), room.top()));
  if (frame.topLeft() != frameGeometry().topLeft()) {
    move(frame.topLeft());
  }
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    ActOn(form_, [this] { activated_(*form_.lock()); });
  }
}

}  // namespace koprax
