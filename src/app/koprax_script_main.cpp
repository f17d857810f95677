// koprax-script: the workbench driven from a text script, off screen and without a person.

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <cerrno>
#include <clocale>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <istream>
#include <string>
#include <system_error>

#include "app/command_line.h"
#include "app/script_player.h"
#include "app/workbench.h"
#include "forms/scripted_runtime.h"
#include "forms/text_file.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/toolkit_messages.h"

namespace {

constexpr int CannotRun = 1;

int PlayOnWorkbench(std::istream& script) {
  koprax::QtPlatform platform;
  koprax::ScriptedRuntime runtime(platform);
  koprax::Workbench workbench(runtime);
  const koprax::QtDesktopView view(workbench.Desk(), koprax::UserActivation::Ignored);
  koprax::ScriptPlayer player({.Desk = workbench.Desk(),
                               .Data = workbench.Data(),
                               .FormNames = koprax::Workbench::FormNames(),
                               .Runtime = runtime,
                               .Host = platform},
                              std::cout);
  // There is no event loop, which would take away the windows of forms that have gone.
  player.AfterAnswer = [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); };
  return koprax::EndOutput("koprax-script", player.Play([&] { workbench.Start(); }, script));
}

int PlayFile(const std::string& path) {
  std::error_code ignored;
  const bool folder = std::filesystem::is_directory(path, ignored);
  errno = 0;
  std::ifstream script(path, std::ios::binary);
  if (folder || !script) {
    std::cerr << "koprax-script: can't read " << path << ": " << std::strerror(folder ? EISDIR : errno)
              << '\n';
    return CannotRun;
  }
  return PlayOnWorkbench(script);
}

}  // namespace

int main(int argument_count, char** arguments) {
  koprax::LetRefusedWritesReturn();
  if (argument_count > 2) {
    std::cerr << "usage: koprax-script [FILE]\n";
    return CannotRun;
  }
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  koprax::TellToolkitFaultsOnly("koprax-script");
  // The tool's one argument is a file, whatever it looks like, so it isn't shown to the toolkit.
  int toolkit_arguments = 1;
  const QApplication application(toolkit_arguments, arguments);
  // The application has taken up the user's locale; the same script has to answer the same everywhere.
  std::setlocale(LC_ALL, "C.UTF-8");
  QApplication::setQuitOnLastWindowClosed(false);
  // A cursor that blinks would be on some of the images of a window only.
  QApplication::setCursorFlashTime(0);
  return argument_count == 2 ? PlayFile(arguments[1]) : PlayOnWorkbench(std::cin);
}
