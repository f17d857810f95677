// Every window of the program as the scripts of the examples and the manual come by it, on a screen of
// 800 x 600, with small and large letters, light and dark: nothing is cut off, nothing lies off the screen.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTemporaryDir>
#include <array>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

#include "app/workbench_session.h"
#include "forms_qt/form_window.h"
#include "forms_qt/qt_desktop_view.h"

namespace koprax {
namespace {

constexpr std::array Scripts{
    "examples/comparing.kop",   "examples/fit.kop",          "manual/background.kop",
    "manual/calibration.kop",   "manual/cards.kop",          "manual/cell.kop",
    "manual/first-profile.kop", "manual/fourier-filter.kop", "manual/getting-started.kop",
    "manual/printing.kop",      "manual/several.kop"};

constexpr qsizetype LongestValue = 20;  // what is longer is a title, of which the start will do

struct Look {
  double FontSize;
  bool Dark;
};

QPalette DarkPalette() {
  const QColor night(40, 40, 44);
  const QColor paper(230, 230, 230);
  QPalette palette(night);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, paper);
  }
  palette.setColor(QPalette::Base, night.darker(130));
  return palette;
}

/// What is wrong with a widget that is shown, or nothing.
QString FaultOf(const QWidget& widget) {
  const QFontMetrics letters = widget.fontMetrics();
  const QSize least = widget.minimumSizeHint();
  if (widget.width() < least.width() || widget.height() < least.height()) {
    return "smaller than its least size";
  }
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  if (label != nullptr && label->wordWrap() && label->heightForWidth(label->width()) > label->height()) {
    return "lacks lines of \"" + label->text() + "\"";
  }
  if (label != nullptr && !label->wordWrap() && letters.size(0, label->text()).width() > label->width()) {
    return "cuts \"" + label->text() + "\"";
  }
  const auto* const box = qobject_cast<const QLineEdit*>(&widget);
  const QString value = box != nullptr && box->isReadOnly() ? box->text().trimmed() : QString();
  if (value.size() <= LongestValue && letters.horizontalAdvance(value) > widget.width()) {
    return "cuts \"" + value + "\"";
  }
  const QPalette& colours = widget.palette();
  const int contrast =
      colours.color(widget.foregroundRole()).lightness() - colours.color(widget.backgroundRole()).lightness();
  return std::abs(contrast) < 100 && widget.isEnabled() ? "can't be read" : QString();
}

/// Looks at all windows whenever one of them comes to the front.
class WindowLook final : public DesktopObserver {
 public:
  WindowLook(Desktop& desk, const QtDesktopView& view) : desk_(desk), view_(view) { desk.AddObserver(*this); }
  ~WindowLook() override { desk_.RemoveObserver(*this); }

  void FormShown(Form& /*form*/, bool /*modal*/) override { LookAtAll(); }
  void FormFronted(Form& /*form*/, bool /*keyboard*/) override { LookAtAll(); }
  std::set<std::string> Seen;

 private:
  void LookAtAll() {
    QCoreApplication::processEvents();
    for (const auto& form : desk_.ShownForms()) LookAt(*form);
  }
  void LookAt(const Form& form) {
    const FormWindow& window = *view_.WindowOf(form);
    Seen.insert(form.Name());
    EXPECT_LE(window.width(), 800 - 8) << form.Name();
    EXPECT_LE(window.height(), 600 - 30) << form.Name() << ", with room for its frame and title";
    for (const Control* control : form.Controls()) {
      const QWidget* const widget = window.WidgetOf(*control);
      if (widget != nullptr && widget->isVisible()) {
        const QString fault = FaultOf(*widget);
        EXPECT_TRUE(fault.isEmpty()) << form.Name() << "." << control->FullName() << " "
                                     << fault.toStdString();
      }
    }
  }

  Desktop& desk_;
  const QtDesktopView& view_;
};

class EveryWindow : public testing::TestWithParam<Look> {
 protected:
  EveryWindow() {
    QFont font = font_;
    font.setPointSizeF(GetParam().FontSize);
    QApplication::setFont(font);
    if (GetParam().Dark) QApplication::setPalette(DarkPalette());
    QFile::link(KOPRAX_SOURCE_DIR "/examples", folder_.filePath("examples"));
    QFile::link(KOPRAX_SOURCE_DIR "/docs/manual", folder_.filePath("manual"));
    QDir::setCurrent(folder_.path());
  }
  ~EveryWindow() override {
    QApplication::setFont(font_);
    QApplication::setPalette(palette_);
    QDir::setCurrent(here_);
  }

  const QFont font_ = QApplication::font();
  const QPalette palette_ = QApplication::palette();
  const QString here_ = QDir::currentPath();
  QTemporaryDir folder_;
};

TEST_P(EveryWindow, IsWhole) {
  std::set<std::string> seen;
  for (const char* script : Scripts) {
    SCOPED_TRACE(script);
    QDir(folder_.filePath("output")).removeRecursively();
    QDir(folder_.path()).mkpath("output/pictures");
    WorkbenchSession session;
    const QtDesktopView view(session.Desk(), UserActivation::Ignored);
    WindowLook look(session.Desk(), view);
    std::ostringstream commands;
    commands << std::ifstream(script).rdbuf();
    session.Play(commands.str());
    seen.merge(look.Seen);
  }
  EXPECT_EQ(seen.size(), 34U);
}

INSTANTIATE_TEST_SUITE_P(Looks, EveryWindow, testing::Values(Look{9, false}, Look{14, true}),
                         [](const auto& test) { return test.param.Dark ? "LargeAndDark" : "SmallAndLight"; });

}  // namespace
}  // namespace koprax
