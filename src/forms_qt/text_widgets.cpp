// Text boxes of one and of many lines, and combo boxes.
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "forms/table_text.h"
#include "forms_qt/clipboard.h"
#include "forms_qt/control_widget.h"
#include "forms_qt/greek_letters.h"
#include "forms_qt/keys.h"
#include "forms_qt/qt_fonts.h"
#include "forms_qt/qt_text.h"

namespace koprax {

namespace {

// A box may be pressed down to this width when its window is short of room. A value that can only be read
// stays whole; of a title the start will do.
constexpr int LeastColumns = 8;
constexpr int LeastLockedColumns = 20;

int TextWidth(const QWidget& widget, int columns) {
  return columns * widget.fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

/// A line as wide as the characters that it is meant for.
class LineEdit final : public QLineEdit {
 public:
  LineEdit(QWidget& parent, int columns) : QLineEdit(&parent), columns_(columns) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }
  [[nodiscard]] QSize sizeHint() const override { return HintFor(columns_); }
  [[nodiscard]] QSize minimumSizeHint() const override {
    return HintFor(std::min(columns_, isReadOnly() ? LeastLockedColumns : LeastColumns));
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip || !isReadOnly() || !toolTip().isEmpty() || !IsCut()) {
      return QLineEdit::event(event);
    }
    QToolTip::showText(dynamic_cast<QHelpEvent&>(*event).globalPos(), ToToolTip(FromQt(text().trimmed())),
                       this);
    return true;
  }
  /// Whether the text is wider than the box.
  [[nodiscard]] bool IsCut() const {
    return TextWidth(*this, 1) + fontMetrics().horizontalAdvance(text().trimmed()) > width();
  }
  /// A box that can't be typed in has the colour of its window.
  void initStyleOption(QStyleOptionFrame* option) const override {
    QLineEdit::initStyleOption(option);
    if (isReadOnly()) {
      option->palette.setBrush(QPalette::Base, palette().brush(QPalette::Window));
    }
  }
  void keyPressEvent(QKeyEvent* event) override {
    const bool of_form = IsOfForm(*event) || CopiesNoText(*event, hasSelectedText());
    of_form ? event->ignore() : QLineEdit::keyPressEvent(event);
  }

 private:
  [[nodiscard]] QSize HintFor(int columns) const {
    const int margins = QLineEdit::minimumSizeHint().width() - fontMetrics().maxWidth();
    return {TextWidth(*this, columns) + std::max(margins, 8), QLineEdit::sizeHint().height()};
  }
  int columns_;
};

class TextEdit final : public QPlainTextEdit {
 public:
  TextEdit(QWidget& parent, int columns, int rows, bool holds_table)
      : QPlainTextEdit(&parent), columns_(columns), rows_(rows), holds_table_(holds_table) {
    setTabChangesFocus(true);
  }
  /// Whether its selection is copied as rows of a table. What is typed may be pasted back as it is.
  [[nodiscard]] bool CopiesRows() const { return holds_table_ && isReadOnly(); }
  [[nodiscard]] bool HoldsTable() const { return holds_table_; }
  [[nodiscard]] QSize sizeHint() const override { return HintFor(columns_, rows_); }
  [[nodiscard]] QSize minimumSizeHint() const override {
    return HintFor(std::min(columns_, LeastColumns), std::min(rows_, 2));
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool of_form = (isReadOnly() && IsOfForm(*event)) ||
                         CopiesNoText(*event, textCursor().hasSelection() && !CopiesRows());
    of_form ? event->ignore() : QPlainTextEdit::keyPressEvent(event);
  }

 private:
  [[nodiscard]] QSize HintFor(int columns, int rows) const {
    const int edge = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin());
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return {TextWidth(*this, columns) + edge + bar, rows * fontMetrics().lineSpacing() + edge};
  }
  int columns_;
  int rows_;
  bool holds_table_;
};

class Combo final : public QComboBox {
 public:
  explicit Combo(QWidget& parent) : QComboBox(&parent) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool of_form = IsOfForm(*event) || CopiesNoText(*event, lineEdit()->hasSelectedText());
    of_form ? event->ignore() : QComboBox::keyPressEvent(event);
  }
  /// A wheel that turns over the box scrolls the window and chooses nothing.
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

/// What a box of one line takes of a text with several that is pasted into it.
QString FirstLine(const QString& text) {
  return text.left(text.indexOf(QRegularExpression(QStringLiteral("[\r\n]"))));
}

/// What boxes of one and of many lines have in common.
class TextBoxWidget : public ControlWidget {
 public:
  TextBoxWidget(TextBox& box, QWidget& widget)
      : ControlWidget(box, widget), box_(box), widget_(widget), form_(box.OwnerForm().weak_from_this()) {}

  void Apply(PropertyName name) override {
    if (name == PropertyName::Text) {
      ApplyText(IsSymbolFont(box_.Font.Get()) ? ToGreek(ToQt(box_.Text.Get())) : ToQt(box_.Text.Get()));
    } else if (name == PropertyName::Font) {
      widget_.setFont(FontNamed(box_.Font));
      Apply(PropertyName::Text);
    } else if (name == PropertyName::Locked) {
      ApplyLocked(box_.Locked);
    } else {
      ControlWidget::Apply(name);
    }
  }
  void ApplyFormPointer(Pointer pointer) override {
    widget_.setCursor(pointer == Pointer::Hourglass ? Qt::WaitCursor : Qt::IBeamCursor);
  }

 protected:
  virtual void ApplyText(const QString& text) = 0;
  virtual void ApplyLocked(bool locked) = 0;
  void Typed(const QString& text) {
    ActOn(form_, [&] {
      TextBox& box = box_;  // this widget may go with its form
      box.Type(FromQt(IsSymbolFont(box.Font.Get()) ? FromGreek(text) : text));
    });
  }
  [[nodiscard]] TextBox& Box() const { return box_; }

 private:
  TextBox& box_;
  QWidget& widget_;
  std::weak_ptr<Form> form_;
};

class SingleLine final : public TextBoxWidget {
 public:
  SingleLine(TextBox& box, LineEdit& edit) : TextBoxWidget(box, edit), edit_(edit) {
    ApplyAll({PropertyName::Font, PropertyName::Locked});
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [this](const QString& text) {
      const QString line = FirstLine(text);
      if (line != text) {
        edit_.setText(line);
      }
      Typed(line);
    });
  }

 protected:
  void ApplyText(const QString& text) override {
    if (edit_.text() != text) {
      edit_.setText(text);
      edit_.setCursorPosition(0);
    }
  }
  void ApplyLocked(bool locked) override {
    edit_.setReadOnly(locked);
    edit_.setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
    edit_.updateGeometry();
  }

 private:
  LineEdit& edit_;
};

class ManyLines final : public TextBoxWidget {
 public:
  ManyLines(TextBox& box, TextEdit& edit) : TextBoxWidget(box, edit), edit_(edit) {
    ApplyAll({PropertyName::Font, PropertyName::Locked});
    QObject::connect(&edit, &QPlainTextEdit::textChanged, &edit, [this] { Typed(edit_.toPlainText()); });
    if (box.FollowsEnd) {
      // The bar under a wide line comes after the text, and would cover the last one.
      QScrollBar* const bar = edit.verticalScrollBar();
      QObject::connect(bar, &QScrollBar::rangeChanged, bar, [bar](int, int last) { bar->setValue(last); });
    }
  }

  void Apply(PropertyName name) override {
    TextBoxWidget::Apply(name);
    if (name == PropertyName::Font) {
      // Tables keep their lines whole, prose is wrapped.
      const bool table = edit_.font().styleHint() == QFont::TypeWriter;
      edit_.setLineWrapMode(table && !Box().Wraps ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
    }
  }
  void ApplyFormPointer(Pointer pointer) override {
    edit_.viewport()->setCursor(pointer == Pointer::Hourglass ? Qt::WaitCursor : Qt::IBeamCursor);
  }
  bool Copy(CopiedPart part) override {
    const QTextCursor cursor = edit_.textCursor();
    if (!edit_.HoldsTable() ||
        (part == CopiedPart::Selection && !(edit_.CopiesRows() && cursor.hasSelection()))) {
      return false;
    }
    CopyTable(part == CopiedPart::Selection ? cursor : QTextCursor(edit_.document()));
    return true;
  }

 protected:
  void ApplyText(const QString& text) override {
    if (edit_.toPlainText() == text) {
      return;
    }
    const QSignalBlocker quiet(edit_);
    edit_.setPlainText(text);
    if (Box().FollowsEnd) {
      edit_.moveCursor(QTextCursor::End);
      edit_.moveCursor(QTextCursor::StartOfLine);  // of a wide line its beginning
    }
  }
  void ApplyLocked(bool locked) override {
    edit_.setReadOnly(locked);
    edit_.viewport()->setBackgroundRole(locked ? QPalette::Window : QPalette::Base);
  }

 private:
  TextEdit& edit_;
};

class ComboWidget final : public ControlWidget {
 public:
  ComboWidget(ComboBox& box, QComboBox& widget) : ControlWidget(box, widget), box_(box), widget_(widget) {
    widget.setEditable(true);
    widget.setInsertPolicy(QComboBox::NoInsert);
    widget.setCompleter(nullptr);
    widget.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    widget.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    ApplyAll({PropertyName::Items, PropertyName::Text});
    QObject::connect(&widget, &QComboBox::editTextChanged, &widget,
                     [&box, &widget, form = box.OwnerForm().weak_from_this()](const QString& text) {
                       const QString line = FirstLine(text);
                       if (line != text) {
                         widget.setEditText(line);  // which comes back here
                         return;
                       }
                       ActOn(form, [&] { box.Type(FromQt(text)); });
                     });
  }

  void Apply(PropertyName name) override {
    if (name == PropertyName::Items) {
      ApplyItems();
    } else if (name == PropertyName::Text) {
      ApplyText();
    } else {
      ControlWidget::Apply(name);
    }
  }

  void ApplyFormPointer(Pointer pointer) override {
    widget_.lineEdit()->setCursor(pointer == Pointer::Hourglass ? Qt::WaitCursor : Qt::IBeamCursor);
  }

 private:
  void ApplyItems() {
    const QSignalBlocker quiet(widget_);
    widget_.clear();
    qsizetype longest = 0;
    for (const std::string& item : box_.Items.Get()) {
      widget_.addItem(ToQt(item));
      longest = std::max(longest, ToQt(item).size());
    }
    widget_.setMinimumContentsLength(static_cast<int>(longest));
    widget_.setCurrentIndex(-1);
    ApplyText();
  }
  void ApplyText() {
    const QString text = ToQt(box_.Text.Get());
    if (widget_.currentText() != text) {
      const QSignalBlocker quiet(widget_);
      widget_.setEditText(text);
      widget_.lineEdit()->setCursorPosition(0);
    }
  }

  ComboBox& box_;
  QComboBox& widget_;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeTextBox(TextBox& box, QWidget& parent) {
  if (box.MultiLine) {
    return std::make_unique<ManyLines>(box, *new TextEdit(parent, box.Columns, box.Rows, HoldsTable(box)));
  }
  return std::make_unique<SingleLine>(box, *new LineEdit(parent, box.Columns));
}

std::unique_ptr<ControlWidget> MakeComboBox(ComboBox& box, QWidget& parent) {
  return std::make_unique<ComboWidget>(box, *new Combo(parent));
}

}  // namespace koprax
