// What the tests of the view share: a desktop with the view attached and nobody in front of it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <utility>

#include "forms/desktop.h"
#include "forms/form.h"
#include "forms_qt/form_window.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/qt_runtime.h"

namespace koprax {

class ViewTest : public testing::Test {
 protected:
  /// Loads a form, shows it and waits until its window is up.
  template <class FormType, class... Arguments>
  FormType& Show(Arguments&&... arguments) {
    const auto form = desk_.Load<FormType>(desk_, std::forward<Arguments>(arguments)...);
    form->Show();
    Settle();
    return *form;
  }

  static void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }

  [[nodiscard]] FormWindow& Window(const Form& form) const { return *view_.WindowOf(form); }

  template <class WidgetType = QWidget>
  [[nodiscard]] WidgetType& Widget(const Control& control) const {
    return dynamic_cast<WidgetType&>(*Window(control.OwnerForm()).WidgetOf(control));
  }
  /// A click near the left edge: the words of an option button need not fill its width.
  void Click(const Control& control) const {
    QWidget& widget = Widget(control);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {8, widget.height() / 2});
  }

  QtPlatform platform_;
  QtRuntime runtime_{platform_};
  Desktop desk_{runtime_};
  QtDesktopView view_{desk_};
};

}  // namespace koprax
