// From start to first window: the workbench against a program with one empty window, which lies beside
// this one. Both are run in turn, and the medians of time and memory are printed. On the display, or off
// screen where there is none.
#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include "app/workbench.h"
#include "first_paint.h"
#include "forms_qt/logo.h"
#include "forms_qt/qt_desktop_view.h"
#include "forms_qt/qt_platform.h"
#include "forms_qt/qt_runtime.h"

namespace {

constexpr int Rounds = 21;

/// What the desktop program does, up to its first window.
int StartWorkbench(int argc, char** argv) {
  const QApplication application(argc, argv);
  const koprax::FirstPaint first_paint;
  QApplication::setWindowIcon(koprax::LogoIcon());
  koprax::QtPlatform platform;
  koprax::QtRuntime runtime(platform);
  koprax::Workbench workbench(runtime);
  const koprax::QtDesktopView view(workbench.Desk());
  workbench.Start();
  return QApplication::exec();
}

struct Start {
  std::vector<double> Milliseconds{};
  std::vector<double> Mebibytes{};
};

void RunOnce(const QString& program, const QStringList& arguments, Start& start) {
  QElapsedTimer clock;
  clock.start();
  QProcess process;
  process.start(program, arguments, QIODevice::ReadOnly);
  process.waitForFinished();
  start.Milliseconds.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
  start.Mebibytes.push_back(process.readAllStandardOutput().trimmed().toDouble());
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (argc > 1 && std::strcmp(argv[1], "workbench") == 0) {
    return StartWorkbench(argc, argv);
  }
  const QCoreApplication application(argc, argv);
  Start workbench;
  Start empty;
  for (int i = 0; i < Rounds; ++i) {
    RunOnce(QCoreApplication::applicationFilePath(), {"workbench"}, workbench);
    RunOnce(QCoreApplication::applicationDirPath() + "/empty_window", {}, empty);
  }
  const double time = Median(workbench.Milliseconds);
  const double least_time = Median(empty.Milliseconds);
  std::printf("workbench    %6.1f ms %6.1f MiB\n", time, Median(workbench.Mebibytes));
  std::printf("empty window %6.1f ms %6.1f MiB\n", least_time, Median(empty.Mebibytes));
  std::printf("ratio        %6.2f\n", time / least_time);
  return 0;
}
