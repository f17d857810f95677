#include "forms_qt/qt_platform.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "forms/form.h"
#include "forms/settings_text.h"
#include "forms/whole_file.h"
#include "forms_qt/form_window.h"
#include "forms_qt/pdf_document.h"
#include "forms_qt/picture_widget.h"
#include "forms_qt/pixel_image.h"
#include "forms_qt/printed_page.h"
#include "forms_qt/surface_painter.h"

namespace koprax {

namespace {

std::filesystem::path SettingsFile(std::string_view application) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return std::filesystem::path(folder.toStdString()) / (std::string(application) + ".ini");
}

/// The text of a settings file; empty where it can't be read.
std::string TextOf(const std::filesystem::path& path) {
  const auto read = ReadWholeFile(path.string());
  const auto* const text = std::get_if<std::string>(&read);
  return text != nullptr ? *text : std::string();
}

/// Nothing, or the system's own words.
std::optional<std::string> Write(const std::string& path, const QByteArray& contents) {
  const auto size = static_cast<std::size_t>(contents.size());
  const auto error = WriteWholeFile(path, {contents.constData(), size});
  return error ? std::optional(error->Reason) : std::nullopt;
}

}  // namespace

std::string QtPlatform::GetSetting(std::string_view application, std::string_view section,
                                   std::string_view key, std::string_view absent) {
  return SettingIn(TextOf(SettingsFile(application)), section, key, absent);
}

std::optional<std::string> QtPlatform::SaveSetting(std::string_view application, std::string_view section,
                                                   std::string_view key, std::string_view value) {
  const std::filesystem::path path = SettingsFile(application);
  std::error_code told_by_the_writing;
  std::filesystem::create_directories(path.parent_path(), told_by_the_writing);
  if (WriteWholeFile(path.string(), WithSetting(TextOf(path), section, key, value))) {
    return "the settings file " + path.string() + " can't be written";
  }
  return std::nullopt;
}

std::optional<std::string> QtPlatform::PrintToFile(const Printer& printer, const std::string& path) {
  const QByteArray document = PdfDocument(
      PageOf(printer), [&](QPdfWriter& writer) { return PaintPage(printer, writer, VectorDotsPerInch); });
  return document.isEmpty() ? std::optional<std::string>("the document could not be painted")
                            : Write(path, document);
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
  return Write(path, bytes);
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
  return Write(path, image);
}

}  // namespace koprax
