// Ends a program when it has painted its first window, and tells how much memory it holds by then.
#pragma once

#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <cstdio>
#include <fstream>

namespace koprax {

class FirstPaint final : public QObject {
 public:
  FirstPaint() { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      qApp->removeEventFilter(this);
      QTimer::singleShot(0, qApp, [] {
        std::printf("%.1f\n", ResidentMebibytes());
        std::fflush(stdout);
        std::_Exit(0);
      });
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static double ResidentMebibytes() {
    double total_pages = 0;
    double resident_pages = 0;
    std::ifstream("/proc/self/statm") >> total_pages >> resident_pages;
    return resident_pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
  }
};

}  // namespace koprax
