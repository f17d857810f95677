// The tests of the view: no display is needed, and nothing of the user's is touched.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <iostream>

#include "forms_qt/qt_machine.h"

namespace {

// Three screens beside each other, of different pixel densities; the last one is where windows appear.
constexpr const char* Screens = R"({"synchronousWindowSystemEvents": false, "screens": [
  {"name": "double", "x": 2000, "y": 0, "width": 800, "height": 600, "logicalDpi": 96, "dpr": 2},
  {"name": "finer",  "x": 1000, "y": 0, "width": 800, "height": 600, "logicalDpi": 96, "dpr": 1.5},
  {"name": "plain",  "x": 0,    "y": 0, "width": 800, "height": 600, "logicalDpi": 96, "dpr": 1}]})";

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir folder;
  const QString screens = folder.filePath("screens.json");
  QFile file(screens);
  if (!file.open(QIODevice::WriteOnly) || file.write(Screens) < 0) {
    return 1;
  }
  file.close();
  qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screens).toLocal8Bit());
  qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
  qunsetenv("QT_SCALE_FACTOR");

  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (QApplication::arguments().contains("--tell-number")) {
    std::cout << koprax::QtMachine().NumberText(0.8);
    return 0;
  }
  return RUN_ALL_TESTS();
}
