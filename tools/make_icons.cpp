// Writes the icons that the package holds into folders SIZExSIZE and scalable: make_icons FOLDER
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QString>
#include <iostream>

#include "forms_qt/icon_files.h"

namespace {

bool Write(const QString& folder, const QString& name, const QByteArray& contents) {
  QFile file(folder + "/" + name);
  const bool good = QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) &&
                    file.write(contents) == contents.size() && file.flush();
  if (!good) {
    std::cerr << "make_icons: " << file.fileName().toStdString() << " cannot be written\n";
  }
  return good;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: make_icons FOLDER\n";
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(count, arguments);
  const QString folder = QString::fromLocal8Bit(arguments[1]);
  bool good = Write(folder + "/scalable", "koprax.svg", koprax::SvgIcon());
  for (const int pixels : {48, 64, 128, 256}) {
    good = good &&
           Write(QStringLiteral("%1/%2x%2").arg(folder).arg(pixels), "koprax.png", koprax::PngIcon(pixels));
  }
  return good ? 0 : 1;
}
