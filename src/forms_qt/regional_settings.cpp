#include "forms_qt/regional_settings.h"

#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <vector>

namespace koprax {

namespace {

struct SettingsProgram {
  QString Desktop;  ///< in the name that the desktop gives itself
  QString Program;
  QStringList Arguments;
};

std::vector<SettingsProgram> SettingsPrograms() {
  const auto text = [](const char* words) { return QString::fromLatin1(words); };
  return {
      {text("GNOME"), text("gnome-control-center"), {text("region")}},
      {text("KDE"), text("systemsettings"), {text("kcm_regionandlang")}},
      {text("KDE"), text("systemsettings5"), {text("kcm_formats")}},
      {text("LXQt"), text("lxqt-config-locale"), {}},
      {text("Cinnamon"), text("mintlocale"), {}},
  };
}

}  // namespace

std::optional<std::string> OpenRegionalSettings() {
  const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
  for (const SettingsProgram& one : SettingsPrograms()) {
    // Those of another desktop may do nothing here, and say nothing either.
    if (!desktop.contains(one.Desktop, Qt::CaseInsensitive)) {
      continue;
    }
    const QString found = QStandardPaths::findExecutable(one.Program);
    if (!found.isEmpty() && QProcess::startDetached(found, one.Arguments)) {
      return std::nullopt;
    }
  }
  return "This desktop has no program for them that KOPRAX knows. Choose a language or region that writes "
         "numbers with a period, or start KOPRAX with the environment variable LC_ALL set to C.UTF-8.";
}

}  // namespace koprax
