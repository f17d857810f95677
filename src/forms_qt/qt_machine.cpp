#include "forms_qt/qt_machine.h"

#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>
#include <QVersionNumber>
#include <cmath>

#include "forms_qt/form_window.h"

namespace koprax {

namespace {

constexpr int NotSupported = -2;

/// "linux" as the system itself is written.
std::string Capitalised(QString name) {
  if (!name.isEmpty()) {
    name[0] = name[0].toUpper();
  }
  return name.toStdString();
}

}  // namespace

std::string QtMachine::ComputerName() { return QSysInfo::machineHostName().toStdString(); }

SystemVersion QtMachine::System() {
  const QVersionNumber version = QVersionNumber::fromString(QSysInfo::kernelVersion());
  const bool windows = QSysInfo::kernelType() == QLatin1String("winnt");
  return {.Kind = windows ? SystemKind::WindowsNt : SystemKind::Other,
          .Name = Capitalised(QSysInfo::kernelType()),
          .Major = version.majorVersion(),
          .Minor = version.minorVersion(),
          .Build = version.microVersion(),
          .Service = QSysInfo::prettyProductName().toStdString()};
}

ScreenMode QtMachine::ScreenOf(const Form& form) {
  const FormWindow* const window = FormWindow::Of(form);
  const QScreen* const screen = window != nullptr ? window->screen() : QGuiApplication::primaryScreen();
  if (screen == nullptr) {
    return {};
  }
  const double density = screen->devicePixelRatio();
  return {.BitsPerPixel = screen->depth(),
          .Width = static_cast<int>(std::lround(screen->size().width() * density)),
          .Height = static_cast<int>(std::lround(screen->size().height() * density))};
}

std::string QtMachine::NumberText(double number) { return QLocale::system().toString(number).toStdString(); }

int QtMachine::ChangeScreen(const ScreenMode& /*mode*/) { return NotSupported; }

}  // namespace koprax
