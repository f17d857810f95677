#include "forms_qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QScreen>
#include <QWindow>

#include "forms_qt/layout_builder.h"
#include "forms_qt/picture_widget.h"
#include "forms_qt/pointer_shapes.h"
#include "forms_qt/qt_text.h"

namespace koprax {

namespace {

constexpr QSize SmallestScreen{800, 600};  // on which every window starts whole
constexpr QSize WindowDecoration{8, 30};   // what a window manager lays around a window

}  // namespace

FormWindow::FormWindow(Form& form, std::function<void(Form&)> activated)
    : QWidget(nullptr, Qt::Window),
      form_(form.weak_from_this()),
      identity_(&form),
      activated_(std::move(activated)) {
  setObjectName(QString::fromStdString(form.Name()));
  BuildLayout(form.Layout(), *this,
              [this](Control& control, QWidget& parent) { return MakeWidget(control, parent); });
  if (!form.Resizable()) {
    layout()->setSizeConstraint(QLayout::SetFixedSize);
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
    const QSize room = screen()->availableGeometry().size().boundedTo(SmallestScreen) - WindowDecoration;
    resize(sizeHint().boundedTo(room));
  }
  show();
}

void FormWindow::Front(bool focus) {
  if (isMinimized()) {
    showNormal();
  }
  raise();
  if (focus) {
    activateWindow();
  }
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

PictureWidget* FormWindow::PictureUnder(const Control& overlay) const {
  return overlay.Container() == nullptr ? nullptr
                                        : dynamic_cast<PictureWidget*>(WidgetOf(*overlay.Container()));
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal != this) {
    return;  // a box or a modal form is to be answered first
  }
  ActOn(form_, [this] { form_.lock()->CloseBox(); });
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    ActOn(form_, [this] { activated_(*form_.lock()); });
  }
}

}  // namespace koprax
