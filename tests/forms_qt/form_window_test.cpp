// A window of every kind of control, worked with mouse and keyboard through its real widgets.
#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <deque>

#include "forms_qt/held_keys.h"
#include "view_fixture.h"

namespace koprax {
namespace {

class SampleForm final : public Form {
 public:
  explicit SampleForm(Desktop& desk, std::string name = "Sample") : Form(desk, std::move(name), "A sample") {
    SetLayout(Column({
        Row({cmdStart, Command1, Space()}),
        Framed(Frame1, Row({optA, optB})),
        Row({Check1, Text1, Text2}),
        Text3,
        KeepingRoom(Label1),
        Stack({Combo1, Text4}),
    }));
    cmdStart.OnClick = [this] { ++Clicks; };
    optA.OnClick = [this] { ++Clicks; };
    Text1.OnChange = [this] { ++Changes; };
    Combo1.OnChange = [this] { ++Changes; };
  }

  int Clicks = 0;
  int Changes = 0;
  Button cmdStart{*this, "cmdStart", {.Caption = "&Start", .ToolTip = "Starts it"}};
  Button Command1{*this, "Command1", {.Caption = "?"}};
  Frame Frame1{*this, "Frame1", {.Caption = "Choices"}};
  OptionButton optA{*this, "optA", {.Caption = "OK"}};
  OptionButton optB{*this, "optB", {.Caption = "Cancel"}};
  CheckBox Check1{*this, "Check1", {.Caption = "tick"}};
  TextBox Text1{*this, "Text1", {.Text = "old"}};
  TextBox Text2{*this, "Text2", {.Text = "read only", .Locked = true}};
  TextBox Text3{*this,
                "Text3",
                {.Text = "one\r\ntwo", .MultiLine = true, .FollowsEnd = true, .Columns = 30, .Rows = 4}};
  Label Label1{*this, "Label1", {.Caption = "said"}};
  ComboBox Combo1{*this, "Combo1", {.Text = "free", .Items = {"first", "second"}}};
  TextBox Text4{*this, "Text4", {}};
};

using FormWindowTest = ViewTest;

TEST_F(FormWindowTest, ShowsWhatTheControlsHold) {
  SampleForm& form = Show<SampleForm>();
  EXPECT_EQ(Window(form).windowTitle(), "A sample");
  EXPECT_EQ(Widget(form.cmdStart).toolTip(), "Starts it");
  EXPECT_EQ(Widget<QGroupBox>(form.Frame1).title(), "Choices");
  EXPECT_EQ(Widget<QPlainTextEdit>(form.Text3).toPlainText(), "one\ntwo");
  EXPECT_EQ(Widget<QComboBox>(form.Combo1).count(), 2);
  const int height = Widget(form.cmdStart).height();
  EXPECT_EQ(Widget(form.Command1).size(), QSize(height, height));  // a help button
}

TEST_F(FormWindowTest, ButtonsAnswerToMouseMnemonicAndKeys) {
  SampleForm& form = Show<SampleForm>();
  QWidget& start = Widget(form.cmdStart);
  Click(form.cmdStart);
  // A mnemonic shows the button pressed for a moment first.
  QTest::keyClick(&Window(form), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return form.Clicks == 2; }, 2000));
  start.setFocus();
  QTest::keyClick(&start, Qt::Key_Return);
  QTest::keyClick(&start, Qt::Key_Space);
  EXPECT_EQ(form.Clicks, 4);
  form.cmdStart.Enabled = false;
  Click(form.cmdStart);
  EXPECT_EQ(form.Clicks, 4);
  EXPECT_FALSE(start.isEnabled());
}

/// One key goes down over a window, as often as it repeats itself.
class HeldKey {
 public:
  explicit HeldKey(Qt::Key key) : key_(key) { qApp->installEventFilter(&filter_); }
  void Press(QWidget& window, bool repeats) { Send(window, QEvent::KeyPress, repeats); }
  void LetGo(QWidget& window) { Send(window, QEvent::KeyRelease, false); }
  void Wait(quint64 milliseconds) { now_ += milliseconds; }

 private:
  void Send(QWidget& window, QEvent::Type type, bool repeats) {
    window.activateWindow();
    QKeyEvent event(type, key_, Qt::NoModifier, QString(), repeats);
    event.setTimestamp(now_);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
  }
  Qt::Key key_;
  HeldKeys filter_;
  quint64 now_ = 1000;
};

TEST_F(FormWindowTest, AKeyThatIsHeldPressesOnceWhateverComesUp) {
  SampleForm& form = Show<SampleForm>();
  Widget(form.cmdStart).setFocus();
  HeldKey enter(Qt::Key_Return);
  enter.Press(Window(form), false);
  EXPECT_EQ(form.Clicks, 1);
  enter.Press(Window(form), true);

  SampleForm& next = Show<SampleForm>();  // in place of the first
  Widget(next.cmdStart).setFocus();
  // A window that has just come up isn't told that the key is held.
  enter.Wait(500);
  enter.LetGo(Window(next));
  enter.Press(Window(next), false);
  enter.Press(Window(next), true);
  EXPECT_EQ(next.Clicks, 0);
  enter.LetGo(Window(next));
  enter.Wait(50);
  enter.Press(Window(next), false);
  EXPECT_EQ(next.Clicks, 1);
}

class FollowedForm final : public Form {
 public:
  explicit FollowedForm(Desktop& desk) : Form(desk, "Followed", "") {}

 private:
  void OnFronted() override {
    if (const auto follower = Desk().Find("Sample")) follower->BringToFront();
  }
};

TEST_F(FormWindowTest, AFormThatFollowsAnotherLeavesItTheKeyboard) {
  SampleForm& follower = Show<SampleForm>();
  FollowedForm& form = Show<FollowedForm>();
  EXPECT_EQ(desk_.ShownForms().front().get(), &follower);
  QWidget other;
  other.show();
  other.activateWindow();
  form.BringToFront();
  Settle();
  EXPECT_EQ(desk_.ShownForms().front().get(), &follower);
  EXPECT_TRUE(Window(form).isActiveWindow());

  // One that is asked for comes, also if it was put away while it lay in front.
  Window(follower).showMinimized();
  form.BringToFront();
  Settle();
  EXPECT_TRUE(Window(follower).isMinimized());
  follower.Show();
  Settle();
  EXPECT_FALSE(Window(follower).isMinimized());
  EXPECT_TRUE(Window(follower).isActiveWindow());
}

TEST_F(FormWindowTest, TabGoesThroughTheLayoutPastLockedBoxes) {
  SampleForm& form = Show<SampleForm>();
  Window(form).activateWindow();
  Widget(form.cmdStart).setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 7; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order,
            (std::vector<std::string>{"cmdStart", "Command1", "optA", "optB", "Check1", "Text1", "Text3"}));
}

class KeyForm final : public Form {
 public:
  explicit KeyForm(Desktop& desk) : Form(desk, "Keys", "") {
    SetLayout(Column({cmdHelp, Text1, Text2, Row({Combo1, Check1}),
                      Framed(Frame1, Column({optA, optB, optC})), cmdOK, cmdCancel}));
    EnterClicks(cmdOK);
    EscapeClicks(cmdCancel);
    cmdOK.OnClick = [this] { ++Accepted; };
    cmdCancel.OnClick = [this] { ++Cancelled; };
    optA.OnClick = [this] { ++Chosen; };
    optC.OnClick = [this] { ++Chosen; };
    optB.Enabled = false;
  }

  int Accepted = 0;
  int Cancelled = 0;
  int Chosen = 0;
  Button cmdHelp{*this, "cmdHelp", {.Caption = "?"}};
  TextBox Text1{*this,
                "Text1",
                {.Meaning = "Points read",
                 .Text = "1\r\n2\r\n3\r\n4\r\n5",
                 .Locked = true,
                 .MultiLine = true,
                 .Rows = 2}};
  TextBox Text2{*this, "Text2", {.Meaning = "Scale factor", .Text = "1"}};
  ComboBox Combo1{*this, "Combo1", {.Meaning = "Wavelength", .Items = {"first", "second"}}};
  CheckBox Check1{*this, "Check1", {.Caption = "tick"}};
  Frame Frame1{*this, "Frame1", {.Caption = "Choices"}};
  OptionButton optA{*this, "optA", {.Caption = "a"}};
  OptionButton optB{*this, "optB", {.Caption = "b"}};
  OptionButton optC{*this, "optC", {.Caption = "c"}};
  Button cmdOK{*this, "cmdOK", {.Caption = "OK"}};
  Button cmdCancel{*this, "cmdCancel", {.Caption = "Cancel"}};
};

TEST_F(FormWindowTest, KeysWorkTheWholeForm) {
  KeyForm& form = Show<KeyForm>();
  const auto focused = [] { return QApplication::focusWidget()->objectName().toStdString(); };
  const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
  EXPECT_EQ(focused(), "Text2") << "the first control of use";
  press(Qt::Key_Return);
  press(Qt::Key_Enter);
  EXPECT_EQ(form.Accepted, 2);
  press(Qt::Key_Escape);
  EXPECT_EQ(form.Cancelled, 1);

  press(Qt::Key_Backtab);
  ASSERT_EQ(focused(), "Text1");
  const QScrollBar& bar = *Widget<QPlainTextEdit>(form.Text1).verticalScrollBar();
  press(Qt::Key_PageDown);
  EXPECT_GT(bar.value(), 0) << "a locked list is read by keys";
  press(Qt::Key_Return);
  EXPECT_EQ(form.Accepted, 3);
  press(Qt::Key_Tab);
  press(Qt::Key_Tab);
  ASSERT_EQ(focused(), "Combo1");
  press(Qt::Key_Return);
  EXPECT_EQ(form.Accepted, 4);
  auto& combo = Widget<QComboBox>(form.Combo1);
  combo.showPopup();
  press(Qt::Key_Escape);
  EXPECT_FALSE(combo.view()->isVisible());
  EXPECT_EQ(form.Cancelled, 1) << "an open list takes the key";

  combo.setFocus();
  press(Qt::Key_Tab);
  press(Qt::Key_Return);
  EXPECT_EQ(form.Check1.Value, 0) << "Enter accepts the form, Space ticks a box";
  EXPECT_EQ(form.Accepted, 5);
  press(Qt::Key_Space);
  EXPECT_EQ(form.Check1.Value, 1);
  press(Qt::Key_Tab);
  press(Qt::Key_Down);
  EXPECT_EQ(focused(), "optC") << "past the one that is off";
  press(Qt::Key_Right);
  EXPECT_EQ(focused(), "optA");
  EXPECT_EQ(form.Chosen, 0) << "going to an option chooses nothing";
  press(Qt::Key_Return);
  EXPECT_TRUE(form.optA.Value);
  EXPECT_EQ(form.Accepted, 5);
}

TEST_F(FormWindowTest, EveryControlHasANameToBeSpoken) {
  KeyForm& form = Show<KeyForm>();
  const auto spoken = [&](const Control& control) {
    return QAccessible::queryAccessibleInterface(&Widget(control))->text(QAccessible::Name).toStdString();
  };
  EXPECT_EQ(spoken(form.Text1), "Points read");
  EXPECT_EQ(spoken(form.Text2), "Scale factor");
  EXPECT_EQ(spoken(form.Combo1), "Wavelength");
  EXPECT_EQ(spoken(form.Frame1), "Choices");
  EXPECT_EQ(spoken(form.cmdOK), "OK");
}

TEST_F(FormWindowTest, AFormLargerThanTheScreenIsScrolledToWhatHasTheKeyboard) {
  struct TallForm final : Form {
    explicit TallForm(Desktop& desk) : Form(desk, "Tall", "") {
      std::vector<LayoutNode> rows;
      rows.reserve(40);
      for (int i = 0; i < 40; ++i) rows.emplace_back(Check1.emplace_back(*this, "Check1", CaptionSetup{}, i));
      for (std::size_t i = 20; i < 40; ++i) Check1[i].Visible = false;
      SetLayout(Column(std::move(rows)));
    }
    std::deque<CheckBox> Check1;
  };
  TallForm& form = Show<TallForm>();
  FormWindow& window = Window(form);
  const QRect room = window.screen()->availableGeometry();
  window.move(0, room.bottom() - window.height());
  for (CheckBox& box : form.Check1) box.Visible = true;
  Settle();
  EXPECT_TRUE(room.contains(window.frameGeometry()));
  EXPECT_GT(window.Contents().height(), room.height());
  for (int i = 0; i < 39; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  const QWidget& last = Widget(form.Check1[39]);
  EXPECT_TRUE(last.hasFocus());
  EXPECT_FALSE(last.visibleRegion().isEmpty());

  const QTemporaryDir folder;
  const QString path = folder.filePath("whole.png");
  EXPECT_EQ(platform_.Snapshot(form, path.toStdString()), std::nullopt);
  EXPECT_EQ(QImage(path).size(), window.Contents().size());
}

TEST_F(FormWindowTest, ToolTipsShowTheTextAsItIs) {
  SampleForm& form = Show<SampleForm>();
  form.cmdStart.ToolTip = "x <b>y</b>";
  EXPECT_EQ(Widget(form.cmdStart).toolTip(), "<qt>x &lt;b&gt;y&lt;/b&gt;</qt>");
  form.cmdStart.ToolTip = std::string(100, 'a') + "\r\nb";
  EXPECT_EQ(Widget(form.cmdStart).toolTip(), "<qt>" + QString(100, 'a') + "<br>b</qt>") << "to be wrapped";
}

TEST_F(FormWindowTest, OptionsFollowTheControls) {
  SampleForm& form = Show<SampleForm>();
  const auto chosen = [&] {
    return std::pair(Widget<QRadioButton>(form.optA).isChecked(),
                     Widget<QRadioButton>(form.optB).isChecked());
  };
  EXPECT_EQ(chosen(), std::pair(false, false));
  Click(form.optA);
  EXPECT_TRUE(form.optA.Value);
  Click(form.optA);
  EXPECT_EQ(chosen(), std::pair(true, false));
  EXPECT_EQ(form.Clicks, 2);
  Click(form.optB);
  EXPECT_EQ(chosen(), std::pair(false, true));
  form.optB.Value = false;  // no option of a group need be chosen
  EXPECT_EQ(chosen(), std::pair(false, false));

  QTest::keyClick(&Widget(form.Check1), Qt::Key_Space);
  EXPECT_EQ(form.Check1.Value, 1);
  form.Check1.Value = 0;
  EXPECT_FALSE(Widget<QCheckBox>(form.Check1).isChecked());
}

TEST_F(FormWindowTest, TypingReachesTheBoxes) {
  SampleForm& form = Show<SampleForm>();
  auto& edit = Widget<QLineEdit>(form.Text1);
  edit.selectAll();
  QTest::keyClicks(&edit, "1.54");
  EXPECT_EQ(form.Text1.Text, "1.54");
  form.Text1.Text = "from the program";
  EXPECT_EQ(edit.text(), "from the program");
  EXPECT_EQ(form.Changes, 4);

  QTest::keyClicks(&Widget(form.Text2), "no");
  EXPECT_EQ(form.Text2.Text, "read only");
  EXPECT_TRUE(Widget(form.Text2).isEnabled());

  auto& lines = Widget<QPlainTextEdit>(form.Text3);
  lines.moveCursor(QTextCursor::End);
  QTest::keyClick(&lines, Qt::Key_Return);
  QTest::keyClicks(&lines, "three");
  EXPECT_EQ(form.Text3.Text, "one\r\ntwo\r\nthree");
  form.Text3.Text = "one\r\ntwo\r\nthree\r\nfour";
  EXPECT_EQ(lines.textCursor().blockNumber(), 3) << "the last line shows";
  EXPECT_EQ(lines.textCursor().columnNumber(), 0);

  auto& combo = Widget<QComboBox>(form.Combo1);
  EXPECT_EQ(combo.currentText(), "free");
  combo.setCurrentIndex(1);
  EXPECT_EQ(form.Combo1.Text, "second");
  combo.lineEdit()->selectAll();
  QTest::keyClicks(combo.lineEdit(), "x");
  EXPECT_EQ(form.Combo1.Text, "x");
  form.Combo1.Items = {"third"};
  EXPECT_EQ(combo.currentText(), "x");
  EXPECT_EQ(form.Changes, 6);
}

TEST_F(FormWindowTest, HiddenControlsKeepTheirRoomWhereTold) {
  SampleForm& form = Show<SampleForm>();
  form.Text4.Visible = false;  // which shares a place with the combo box
  Settle();
  const QSize before = Window(form).size();
  form.Label1.Visible = false;
  form.Combo1.Visible = false;
  Settle();
  EXPECT_FALSE(Widget(form.Label1).isVisible());
  EXPECT_EQ(Window(form).size(), before);
  form.Text3.Visible = false;
  Settle();
  EXPECT_LT(Window(form).height(), before.height());
}

TEST_F(FormWindowTest, SymbolFontReadsAsGreek) {
  SampleForm& form = Show<SampleForm>();
  form.Text2.Font = "symbol";
  form.Text2.Text = "l = 1.54184";
  EXPECT_EQ(Widget<QLineEdit>(form.Text2).text(), QString::fromUtf8("λ = 1.54184"));
  EXPECT_EQ(form.Text2.Text, "l = 1.54184");
  form.Label1.FontName = "symbol";
  form.Label1.Caption = "a = b";
  EXPECT_EQ(Widget<QLabel>(form.Label1).text(), QString::fromUtf8("α = β"));
  form.Text1.Font = "Symbol";
  QTest::keyClicks(&Widget<QLineEdit>(form.Text1), "q");
  EXPECT_EQ(form.Text1.Text, "qold");
}

TEST_F(FormWindowTest, ClosingIsTheFormsOwnDecision) {
  struct StubbornForm final : Form {
    explicit StubbornForm(Desktop& desk) : Form(desk, "Stubborn", "") {}
    void OnCloseBox() override { ++Asked; }
    int Asked = 0;
  };
  StubbornForm& stubborn = Show<StubbornForm>();
  Window(stubborn).close();
  EXPECT_EQ(stubborn.Asked, 1);
  EXPECT_TRUE(Window(stubborn).isVisible());
  Window(Show<SampleForm>()).close();
  EXPECT_EQ(desk_.Find("Sample"), nullptr);
}

TEST_F(FormWindowTest, AFormMayUnloadItselfInItsOwnHandler) {
  SampleForm& form = Show<SampleForm>();
  QPointer<FormWindow> window = &Window(form);
  const std::weak_ptr<Form> life = form.weak_from_this();
  form.cmdStart.OnClick = [&form] { form.Unload(); };
  QWidget& button = Widget(form.cmdStart);
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_TRUE(life.expired());
  // What the user still does to the window that is about to go reaches nobody.
  if (window) {
    EXPECT_FALSE(window->isVisible());
    QTest::mouseClick(&button, Qt::LeftButton);
  }
  Settle();
  EXPECT_TRUE(window.isNull());
}

TEST_F(FormWindowTest, TheWindowThatTheUserGoesToIsTheFrontOneAndHidingKeepsIt) {
  SampleForm& first = Show<SampleForm>("First");
  SampleForm& second = Show<SampleForm>("Second");
  FormWindow& window = Window(first);
  EXPECT_EQ(desk_.ShownForms().front().get(), &second);
  window.activateWindow();
  Settle();
  EXPECT_EQ(desk_.ShownForms().front().get(), &first);
  second.BringToFront();
  Settle();
  EXPECT_TRUE(Window(second).isActiveWindow());
  first.Hide();
  EXPECT_FALSE(window.isVisible());
  first.Text1.Text = "while away";
  first.Show();
  EXPECT_EQ(&Window(first), &window);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(Widget<QLineEdit>(first.Text1).text(), "while away");
}

TEST_F(FormWindowTest, TheHourglassLiesOverAllOfAWindow) {
  SampleForm& form = Show<SampleForm>();
  const auto shapes = [&] {
    return std::pair(Window(form).cursor().shape(), Widget(form.Text1).cursor().shape());
  };
  form.MousePointer = Pointer::Hourglass;
  EXPECT_EQ(shapes(), std::pair(Qt::WaitCursor, Qt::WaitCursor));
  form.MousePointer = Pointer::Arrow;
  EXPECT_EQ(shapes(), std::pair(Qt::ArrowCursor, Qt::IBeamCursor));
}

}  // namespace
}  // namespace koprax
