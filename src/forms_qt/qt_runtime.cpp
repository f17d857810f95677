#include "forms_qt/qt_runtime.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QScreen>
#include <algorithm>

#include "forms/form.h"
#include "forms/printer.h"
#include "forms_qt/file_filter.h"
#include "forms_qt/printed_page.h"
#include "forms_qt/qt_fonts.h"
#include "forms_qt/qt_text.h"
#include "forms_qt/regional_settings.h"

namespace koprax {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Stop:
      return QMessageBox::Critical;
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

/// The lines of a message are broken where the program wants it; a box wraps them only if the screen is too
/// narrow for them.
void KeepLinesWhole(QMessageBox& box) {
  if (auto* const label = box.findChild<QLabel*>("qt_msgbox_label")) {
    const int room = label->screen()->availableGeometry().width() * 2 / 3;
    label->setMinimumWidth(std::min(label->fontMetrics().size(0, label->text()).width(), room));
  }
}

}  // namespace

QtRuntime::QtRuntime(Platform& platform) : platform_(platform) {}
QtRuntime::~QtRuntime() = default;

MessageAnswer QtRuntime::MsgBox(const Message& message) {
  QMessageBox box(QApplication::activeWindow());
  box.setIcon(IconOf(message.Icon));
  box.setWindowTitle(ToQt(message.Title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(message.Text));
  KeepLinesWhole(box);
  if (message.Buttons == MessageButtons::Ok) {
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return MessageAnswer::Ok;
  }
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

std::string QtRuntime::InputBox(const InputRequest& request) {
  bool accepted = false;
  const QString text =
      QInputDialog::getText(QApplication::activeWindow(), ToQt(request.Title), ToQt(request.Prompt),
                            QLineEdit::Normal, ToQt(request.Default), &accepted);
  return accepted ? text.toStdString() : std::string();
}

std::optional<std::string> QtRuntime::FileDialog(const FileDialogRequest& request) {
  const bool saves = request.Type == FileDialogRequest::Kind::Save;
  ::QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  // The program asks before it overwrites, in its own words.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  const QStringList filters = NameFilters(request.Filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(request.FilterIndex - 1, filters.front()));
  }
  if (!folder_.isEmpty()) {
    dialog.setDirectory(folder_);
  }
  if (!request.Name.empty()) {
    dialog.selectFile(ToQt(request.Name));
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    return std::nullopt;
  }
  const QString chosen = dialog.selectedFiles().front();
  folder_ = QFileInfo(chosen).absolutePath();
  return chosen.toStdString();
}

bool QtRuntime::PrinterDialog(Printer& printer) {
  if (!paper_) {
    paper_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  }
  QPrintDialog dialog(paper_.get(), QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) {
    return false;
  }
  const QSizeF page = paper_->pageLayout().pageSize().size(QPageSize::Millimeter);
  printer.BeginDocument(page.width(), page.height(), PrintableFonts());
  printer.Copies = paper_->copyCount();
  return true;
}

std::string QtRuntime::PrintFile() const {
  return paper_ ? paper_->outputFileName().toStdString() : std::string();
}

std::optional<std::string> QtRuntime::PrintDocument(Printer& printer) {
  if (!paper_) {
    return "no printer has been chosen";
  }
  if (const std::string file = PrintFile(); !file.empty()) {
    // The same page as that of a script, and whole or not at all.
    return platform_.PrintToFile(printer, file);
  }
  // The page numbers of the dialog are not used: a document is one page. Copies are made by the command.
  paper_->setCopyCount(1);
  paper_->setPrintRange(QPrinter::AllPages);
  paper_->setPageLayout(PageOf(printer));
  paper_->setFullPage(true);
  if (!PaintPage(printer, *paper_, paper_->resolution())) {
    return "the printer does not take the document";
  }
  return std::nullopt;
}

std::optional<std::string> QtRuntime::SavePicture(const PictureBox& picture, const std::string& path) {
  return platform_.SavePicture(picture, path);
}

LoadedImage QtRuntime::LoadPicture(const std::string& path) { return platform_.LoadPicture(path); }

void QtRuntime::RunModal(Form& form) {
  QEventLoop loop;
  while (form.Visible()) {
    loop.processEvents(QEventLoop::WaitForMoreEvents);
  }
}

void QtRuntime::Quit() {
  // Not quit(), which asks the windows first: each of them leaves closing to its form.
  QCoreApplication::exit();
}

std::string QtRuntime::GetSetting(std::string_view application, std::string_view section,
                                  std::string_view key, std::string_view absent) {
  return platform_.GetSetting(application, section, key, absent);
}

std::optional<std::string> QtRuntime::SaveSetting(std::string_view application, std::string_view section,
                                                  std::string_view key, std::string_view value) {
  return platform_.SaveSetting(application, section, key, value);
}

std::optional<std::string> QtRuntime::Shell(const std::string& command) {
  if (command == RegionalSettingsCommand) {
    return OpenRegionalSettings();
  }
  if (!QProcess::startDetached(QStringLiteral("/bin/sh"),
                               {QStringLiteral("-c"), QString::fromStdString(command)})) {
    return "the shell can't be started";
  }
  return std::nullopt;
}

}  // namespace koprax
