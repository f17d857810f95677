// The real windows through their real widgets, as a person works them.
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <sstream>

#include "app/recording_runtime.h"
#include "app/script_player.h"
#include "app/session_recorder.h"
#include "app/workbench.h"
#include "forms/scripted_runtime.h"
#include "forms_qt/form_window.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/qt_runtime.h"
#include "view_fixture.h"

namespace koprax {
namespace {

class WorkbenchWindows : public testing::Test {
 protected:
  void SetUp() override {
    bench_.Desk().AddObserver(recorder_);
    bench_.Start();
    QCoreApplication::processEvents();
  }

  [[nodiscard]] QWidget* Find(const char* form, const char* control) {
    const auto loaded = bench_.Desk().Find(form);
    FormWindow* window = loaded ? view_.WindowOf(*loaded) : nullptr;
    QWidget* widget = window != nullptr ? window->findChild<QWidget*>(control) : nullptr;
    EXPECT_NE(widget, nullptr) << form << "." << control;
    return widget;
  }

  void Click(const char* form, const char* control) {
    QWidget* widget = Find(form, control);
    ASSERT_NE(widget, nullptr);
    ASSERT_TRUE(widget->isVisible() && widget->isEnabled()) << form << "." << control;
    QTest::mouseClick(widget, Qt::LeftButton, {}, {8, widget->height() / 2});
    QCoreApplication::processEvents();
  }

  /// Loads a profile into buffer a; its window is up afterwards.
  void Load(const QString& file) {
    QTimer::singleShot(0, [file] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->selectFile(file);
      dynamic_cast<QDialog&>(*dialog).accept();
    });
    Click("Form1", "cmdInp");
    Click("Form4", "cmdOK");
    Click("Form7", "Option1");
    Click("Form10", "optA");
  }

  QtPlatform platform_;
  QtRuntime runtime_{platform_};
  std::string record_;
  SessionRecorder recorder_{[this](const std::vector<std::string>& lines) {
    for (const std::string& line : lines) record_ += line + "\n";
  }};
  RecordingRuntime recording_{runtime_, recorder_, [] { return std::string(); }, "page"};
  Workbench bench_{recording_};
  QtDesktopView view_{bench_.Desk()};
};

TEST_F(WorkbenchWindows, WhatAPersonDoesIsRecordedAndPlaysAgain) {
  Load(KOPRAX_SOURCE_DIR "/examples/silicon.dat");
  QWidget* picture = Find("Form6", "Picture1");
  Click("Form6", "cmdZoom");
  QTest::keyClick(picture, Qt::Key_Escape);  // before anything is drawn
  Click("Form6", "cmdZoom");
  QTest::mousePress(picture, Qt::LeftButton, {}, {100, 120});
  QTest::mouseMove(picture, {151, 200});
  QTest::mouseMove(picture, {173, 250});
  QTest::mouseRelease(picture, Qt::LeftButton, {}, {173, 250});
  Click("Form6", "optOK");
  // A pixel is 0.3 % of the 95 mm of the axis.
  const double share = (173.0 - 100) / picture->width() * 123.03 / 95;
  EXPECT_NEAR(bench_.Data().Buffer(1).WorkNpts, share * 6001, 0.01 * 6001);
  Click("Form6", "cmdSave");
  auto* title = qobject_cast<QLineEdit*>(Find("Form3", "Text1"));
  title->selectAll();
  QTest::keyClicks(title, "Si \"7\"");
  QTest::keyClick(title, Qt::Key_Return);
  recorder_.Finish();

  ScriptedRuntime scripted(platform_);
  Workbench again(scripted);
  std::istringstream script(record_);
  std::ostringstream answers;
  ScriptPlayer player({.Desk = again.Desk(),
                       .Data = again.Data(),
                       .FormNames = Workbench::FormNames(),
                       .Runtime = scripted,
                       .Host = platform_},
                      answers);
  EXPECT_EQ(player.Play([&] { again.Start(); }, script), 0) << record_ << answers.str();
  EXPECT_EQ(JsonOfBuffer(again.Data().Buffer(1)), JsonOfBuffer(bench_.Data().Buffer(1)));
  EXPECT_TRUE(again.Data().Buffer(1).Title.starts_with("Si \"7\" "));
}

TEST_F(WorkbenchWindows, FramesOfOnePlaceStandSideBySideWhenBothShow) {
  Load(KOPRAX_SOURCE_DIR "/examples/silicon.dat");
  const std::vector<std::pair<const char*, const char*>> places{{"Frame2", "Frame3"}, {"Frame1", "Frame4"}};
  for (const auto& [one, other] : places) {
    for (const char* frame : {one, other}) {
      bench_.Desk().Find("Form6")->Find(frame)->Visible = true;
    }
    QCoreApplication::processEvents();
    const auto on_screen = [&](const char* frame) {
      const QWidget* widget = Find("Form6", frame);
      EXPECT_TRUE(widget->isVisible()) << frame;
      return QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());
    };
    EXPECT_FALSE(on_screen(one).intersects(on_screen(other))) << one << " " << other;
    EXPECT_FALSE(on_screen(one).isEmpty() || on_screen(other).isEmpty());
  }
}

}  // namespace
}  // namespace koprax
