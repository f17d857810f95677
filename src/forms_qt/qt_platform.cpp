#include "forms_qt/qt_platform.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

#include "forms/form.h"
#include "forms_qt/form_window.h"
#include "forms_qt/picture_widget.h"
#include "forms_qt/pixel_image.h"
#include "forms_qt/printed_page.h"
#include "forms_qt/surface_painter.h"

namespace koprax {

namespace {

constexpr int FileDotsPerInch = 1200;

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QSettings SettingsOf(std::string_view application) {
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
  return {folder.filePath(ToQString(application) + QLatin1String(".ini")), QSettings::IniFormat};
}

QString KeyOf(std::string_view section, std::string_view key) {
  return ToQString(section) + QLatin1Char('/') + ToQString(key);
}

/// Replaces a file only when the new one is complete; what is no regular file is written in place.
std::optional<std::string> WriteWhole(const std::string& path, const QByteArray& contents) {
  const QString name = QString::fromStdString(path);
  const QFileInfo target(name);
  const auto write = [&](QFileDevice& file) {
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.flush();
  };
  if (target.exists() && !target.isFile()) {
    QFile file(name);
    return write(file) ? std::nullopt : std::optional(file.errorString().toStdString());
  }
  QSaveFile file(name);
  if (write(file) && file.commit()) {
    return std::nullopt;
  }
  return file.errorString().toStdString();
}

}  // namespace

std::string QtPlatform::GetSetting(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view absent) {
  const QSettings settings = SettingsOf(application);
  return settings.value(KeyOf(section, key), ToQString(absent)).toString().toStdString();
}

std::optional<std::string> QtPlatform::SaveSetting(std::string_view application, std::string_view section,
                                                   std::string_view key, std::string_view value) {
  QSettings settings = SettingsOf(application);
  const QVariant before = settings.value(KeyOf(section, key));
  settings.setValue(KeyOf(section, key), ToQString(value));
  settings.sync();
  if (settings.status() == QSettings::AccessError) {
    // Qt remembers for the whole run what it could not write.
    if (before.isValid()) {
      settings.setValue(KeyOf(section, key), before);
    } else {
      settings.remove(KeyOf(section, key));
    }
    return "the settings file " + settings.fileName().toStdString() + " can't be written";
  }
  return std::nullopt;
}

std::optional<std::string> QtPlatform::PrintToFile(const Printer& printer, const std::string& path) {
  QByteArray document;
  QBuffer buffer(&document);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(FileDotsPerInch);
    writer.setPageLayout(PageOf(printer));
    if (!PaintPage(printer, writer, FileDotsPerInch)) {
      return "the document could not be painted";
    }
  }
  return WriteWhole(path, document);
}

std::optional<std::string> QtPlatform::SavePicture(const PictureBox& picture, const std::string& path) {
  QImage image(DesignPixels(picture), QImage::Format_RGB888);
  image.setDotsPerMeterX(DesignDotsPerMetre);
  image.setDotsPerMeterY(DesignDotsPerMetre);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    SurfacePainter(painter, {picture.Scale(), image.size()}, 1).Paint(picture.Operations());
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "BMP")) {
    return "the image could not be made";
  }
  return WriteWhole(path, bytes);
}

LoadedImage QtPlatform::LoadPicture(const std::string& path) {
  QImageReader reader(QString::fromStdString(path));
  reader.setDecideFormatFromContent(true);
  const QImage image = reader.read();
  if (image.isNull()) {
    return reader.errorString().toStdString();
  }
  return ToPixels(image);
}

std::optional<std::string> QtPlatform::Snapshot(Form& form, const std::string& path) {
  FormWindow* window = FormWindow::Of(form);
  if (window == nullptr || !form.Visible()) {
    return form.Name() + " is not shown";
  }
  // What was asked to be laid out or painted comes first.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QByteArray image;
  QBuffer buffer(&image);
  buffer.open(QIODevice::WriteOnly);
  if (!window->Contents().grab().save(&buffer, "PNG")) {
    return "the image could not be made";
  }
  return WriteWhole(path, image);
}

}  // namespace koprax
