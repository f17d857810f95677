// The native window of one form: built from the form's controls and layout, kept in step with them until
// the form leaves the desktop. Closing it is handed to the form, which decides.
#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <memory>

#include "forms/form.h"
#include "forms_qt/control_widget.h"

namespace koprax {

class ContentsArea;
class PictureWidget;

class FormWindow final : public QWidget {
 public:
  /// `activated` is called when the user has gone to the window.
  FormWindow(Form& form, std::function<void(Form&)> activated);

  /// The native window of a form among all windows of the program, or null.
  [[nodiscard]] static FormWindow* Of(const Form& form);

  void Display(bool modal);
  /// Lays the window above the others and gives it the keyboard.
  void Front();
  /// Parts from a form that has left the desktop: hides, and goes when the events under way are over.
  void Leave();

  void FormChanged(PropertyName name);
  void ControlChanged(Control& control, PropertyName name);
  void PictureDrawn(PictureBox& picture);
  /// Paints a control now.
  void Repaint(const Control& control);

  /// The widget of a control, or null for what has none.
  [[nodiscard]] QWidget* WidgetOf(const Control& control) const;
  /// All that the window shows, whole, however much of it can be seen.
  [[nodiscard]] QWidget& Contents() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* MakeWidget(Control& control, QWidget& parent);
  [[nodiscard]] ControlWidget* ShowingAt(QWidget* widget) const;
  [[nodiscard]] ControlWidget* FirstPicture() const;
  bool Copy();
  [[nodiscard]] PictureWidget* PictureUnder(const Control& overlay) const;
  [[nodiscard]] const Control* BoxWithKeyboard() const;
  [[nodiscard]] QWidget* FirstOfUse() const;
  [[nodiscard]] bool IsBlocked() const;
  void KeepOnScreen();

  ContentsArea* contents_;
  std::weak_ptr<Form> form_;
  const Form* const identity_;
  std::function<void(Form&)> activated_;
  std::map<const Control*, std::unique_ptr<ControlWidget>> widgets_;
};

}  // namespace koprax
