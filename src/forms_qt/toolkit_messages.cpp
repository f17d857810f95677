#include "forms_qt/toolkit_messages.h"

#include <QCoreApplication>
#include <QMessageLogContext>
#include <QString>
#include <iostream>

namespace koprax {

void TellToolkitFaultsOnly(const char* program) {
  QCoreApplication::setApplicationName(QString::fromUtf8(program));
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
      std::cerr << QCoreApplication::applicationName().toStdString() << ": " << text.toStdString() << '\n';
    }
  });
}

}  // namespace koprax
