#include "app/desktop_program.h"

#include <QApplication>
#include <QMessageLogContext>
#include <QString>
#include <array>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <optional>

#include "app/workbench.h"
#include "forms/text_file.h"
#include "forms_qt/held_keys.h"
#include "forms_qt/logo.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/qt_runtime.h"

namespace koprax {

namespace {

/// Where there is no display the toolkit would abort.
void EndOnFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  std::cerr << text.toStdString() << '\n';
  if (type == QtFatalMsg) {
    std::_Exit(1);
  }
}

}  // namespace

int RunDesktop(char* name, const MakeListener& make_listener) {
  LetRefusedWritesReturn();
  qInstallMessageHandler(EndOnFatal);
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  int own_name_only = 1;
  std::array<char*, 2> arguments{name, nullptr};
  QApplication application(own_name_only, arguments.data());
  // The application has taken up the user's locale; the texts of all files and windows know a period only.
  std::setlocale(LC_ALL, "C.UTF-8");
  QApplication::setApplicationName("KOPRAX");
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(LogoIcon());

  HeldKeys held_keys;
  application.installEventFilter(&held_keys);

  QtPlatform platform;
  QtRuntime person(platform);
  std::optional<Listener> listener;
  if (make_listener) {
    listener.emplace(make_listener(person, [&person] { return person.PrintFile(); }));
  }
  Workbench workbench(listener ? *listener->Between : person);
  if (listener) {
    workbench.Desk().AddObserver(listener->Observer);
  }
  const QtDesktopView view(workbench.Desk());
  workbench.Start();
  return workbench.Desk().HasQuit() ? 0 : QApplication::exec();
}

}  // namespace koprax
