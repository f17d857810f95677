// The least that a program with a window can be: what the start of the workbench is measured against.
#include <QApplication>
#include <QWidget>

#include "first_paint.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const koprax::FirstPaint first_paint;
  QWidget window;
  window.resize(400, 300);
  window.show();
  return QApplication::exec();
}
