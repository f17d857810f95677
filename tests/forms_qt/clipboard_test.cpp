// Ctrl+C in real windows: what is meant by it, and what comes of it.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>

#include "forms_qt/figure_file.h"
#include "view_fixture.h"

namespace koprax {
namespace {

constexpr const char* Table = "  X     Y \r\n 1.5  2.5\r\n 3.5  4.5\r\n";
constexpr const char* Copied = "X\tY\n1.5\t2.5\n3.5\t4.5\n";

class CopyForm final : public Form {
 public:
  explicit CopyForm(Desktop& desk) : Form(desk, "Copy", "Copy") {
    SetLayout(Column({Box, List, Typed, Prose, Hidden, Plot, Other}));
    Hidden.Visible = false;
    List.Enabled = false;
    for (PictureBox* picture : {&Hidden, &Plot, &Other})
      picture->OnMouseDown = [](auto...) { ADD_FAILURE(); };
    Typed.OnChange = [] { ADD_FAILURE(); };
    Plot.Line(0, 0, 50, 40);
    Other.Line(0, 40, 50, 0);
  }
  TextBox Box{*this, "Box", {.Text = "words"}};
  TextBox List{
      *this, "List", {.Text = Table, .Font = "Courier", .Locked = true, .MultiLine = true, .Rows = 4}};
  TextBox Typed{*this, "Typed", {.Text = Table, .Font = "Courier", .MultiLine = true, .Rows = 4}};
  TextBox Prose{
      *this, "Prose", {.Text = "a  b", .Font = "Courier", .Locked = true, .MultiLine = true, .Wraps = true}};
  PictureBox Hidden{*this, "Hidden", {.DesignWidth = 20, .DesignHeight = 20}};
  PictureBox Plot{
      *this, "Plot", {.Scale = {.Width = 50, .Height = 40}, .DesignWidth = 50, .DesignHeight = 40}};
  LineShape Cursor{Plot, "Cursor", colours::Red, 5, 0, 5, 40};
  PictureBox Other{
      *this, "Other", {.Scale = {.Width = 50, .Height = 40}, .DesignWidth = 50, .DesignHeight = 40}};
};

class ClipboardTest : public ViewTest {
 protected:
  void SetUp() override {
    QGuiApplication::clipboard()->clear();
    Window(form_).activateWindow();
    MouseAway();
    Settle();
  }
  static void MouseAway() { QCursor::setPos(790, 590); }
  void MouseOver(const Control& control) {
    QWidget& widget = Widget(control);
    QCursor::setPos(widget.mapToGlobal(widget.rect().center()));
  }
  /// Ctrl+C with the keyboard on a control.
  QString CopyFrom(const Control& control) {
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&Widget(control), Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text();
  }
  static bool IsCopied(const PictureBox& picture) {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    const Figure figure = FigureOf(picture);
    return data->data("image/svg+xml") == FigureAsSvg(figure) &&
           data->data("image/png") == FigureAsPng(figure, 300) &&
           data->imageData().value<QImage>() == FigureImage(figure, 300);
  }

  CopyForm& form_{Show<CopyForm>()};
};

TEST_F(ClipboardTest, SelectedTextIsCopiedAsEver) {
  MouseOver(form_.Plot);
  auto& box = Widget<QLineEdit>(form_.Box);
  box.setFocus();
  box.setSelection(1, 3);
  EXPECT_EQ(CopyFrom(form_.Box), "ord");
  auto& typed = Widget<QPlainTextEdit>(form_.Typed);
  typed.setFocus();
  typed.selectAll();
  EXPECT_EQ(CopyFrom(form_.Typed), typed.toPlainText()) << "can be pasted back";
  auto& prose = Widget<QPlainTextEdit>(form_.Prose);
  prose.setFocus();
  prose.selectAll();
  EXPECT_EQ(CopyFrom(form_.Prose), "a  b");
}

TEST_F(ClipboardTest, WithoutASelectionThePictureOrListUnderTheMouseIsMeant) {
  auto& box = Widget<QLineEdit>(form_.Box);
  box.setFocus();
  box.deselect();
  MouseOver(form_.Other);
  CopyFrom(form_.Box);
  EXPECT_TRUE(IsCopied(form_.Other));
  MouseOver(form_.List);
  EXPECT_EQ(CopyFrom(form_.Box), Copied) << "disabled as it is";
  MouseOver(form_.Prose);
  CopyFrom(form_.Box);
  EXPECT_TRUE(IsCopied(form_.Plot)) << "no list; the first picture that is shown, without its cursor line";
  EXPECT_TRUE(box.hasFocus());
}

TEST_F(ClipboardTest, ElseTheListWithTheKeyboardAndOfItTheSelectedRows) {
  form_.List.Enabled = true;
  auto& list = Widget<QPlainTextEdit>(form_.List);
  list.setFocus();
  EXPECT_EQ(CopyFrom(form_.List), Copied);
  MouseOver(form_.Plot);
  QTextCursor selection(list.document());
  selection.setPosition(14);
  selection.setPosition(16, QTextCursor::KeepAnchor);
  list.setTextCursor(selection);
  EXPECT_EQ(CopyFrom(form_.List), "1.5\t2.5\n") << "whole, and before the picture under the mouse";
  selection.setPosition(0);
  selection.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 2);
  list.setTextCursor(selection);
  EXPECT_EQ(CopyFrom(form_.List), "X\tY\n1.5\t2.5\n") << "not the line that it ends before";
}

}  // namespace
}  // namespace koprax
