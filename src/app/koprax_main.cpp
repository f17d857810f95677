// The desktop program: the workbench, drawn with Qt and worked by a person.
#include <QApplication>
#include <algorithm>
#include <clocale>

#include "app/workbench.h"
#include "forms/text_file.h"
#include "forms_qt/held_keys.h"
#include "forms_qt/logo.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/qt_runtime.h"

int main(int argc, char** argv) {
  koprax::LetRefusedWritesReturn();
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  int own_name_only = std::min(argc, 1);  // the program has no command line
  QApplication application(own_name_only, argv);
  // The application has taken up the user's locale; the texts of all files and windows know a period only.
  std::setlocale(LC_ALL, "C.UTF-8");
  QApplication::setApplicationName("KOPRAX");
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(koprax::LogoIcon());

  koprax::HeldKeys held_keys;
  application.installEventFilter(&held_keys);

  koprax::QtPlatform platform;
  koprax::QtRuntime runtime(platform);
  koprax::Workbench workbench(runtime);
  const koprax::QtDesktopView view(workbench.Desk());
  workbench.Start();
  return workbench.Desk().HasQuit() ? 0 : QApplication::exec();
}
