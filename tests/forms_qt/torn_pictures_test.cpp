// Processes that are killed while they make files of what is drawn leave the old file or the new one, whole,
// and no files beside it; and the same where they keep a setting.
#include "forms/printer.h"
#include "torn_writes.h"
#include "view_fixture.h"

namespace koprax {
namespace {

class PictureForm final : public Form {
 public:
  explicit PictureForm(Desktop& desk) : Form(desk, "Small", "") { SetLayout(Column({Picture1})); }
  PictureBox Picture1{*this, "Picture1", {.DesignWidth = 30, .DesignHeight = 20}};
};

class TornPictures : public ViewTest {
 protected:
  /// Draws one of two things, for what is saved.
  static void Draw(Surface& surface, bool other) {
    surface.Cls();
    surface.Line(0, 0, 10, other ? 5 : 10);
  }
};

TEST_F(TornPictures, PicturesAreTheOldOrTheNewOne) {
  PictureForm& form = Show<PictureForm>();
  const auto save = [&](const std::string& path, bool other) {
    Draw(form.Picture1, other);
    return !platform_.SavePicture(form.Picture1, path);
  };
  ExpectNoTornFile(save);
}

TEST_F(TornPictures, SnapshotsAreTheOldOrTheNewOne) {
  PictureForm& form = Show<PictureForm>();
  const auto save = [&](const std::string& path, bool other) {
    Draw(form.Picture1, other);
    return !platform_.Snapshot(form, path);
  };
  ExpectNoTornFile(save);
}

TEST_F(TornPictures, DocumentsAreTheOldOrTheNewOne) {
  Printer printer;
  const auto save = [&](const std::string& path, bool other) {
    printer.BeginDocument(210, 297, {});
    printer.Line(100, 100, 200, other ? 100 : 200);
    return !platform_.PrintToFile(printer, path);
  };
  ExpectNoTornFile(save);
}

TEST_F(TornPictures, SettingsAreTheOldOrTheNewOnes) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  const auto save = [&](const std::string& path, bool other) {
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(path.substr(0, path.rfind('/'))));
    return !platform_.SaveSetting("MyApp", "General", "DontShow", other ? "1" : "0");
  };
  ExpectNoTornFile(save, "MyApp.ini");
  qputenv("XDG_CONFIG_HOME", before);
}

}  // namespace
}  // namespace koprax
