// Boxes and dialogs as a person answers them, modal windows, and what is written to files.
#include <sys/utsname.h>

#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <cmath>

#include "forms/machine.h"
#include "forms/printer.h"
#include "view_fixture.h"

namespace koprax {
namespace {

class PlainForm final : public Form {
 public:
  explicit PlainForm(Desktop& desk, std::string name = "Plain") : Form(desk, std::move(name), "") {
    SetLayout(Column({cmdGo}));
    cmdGo.OnClick = [this] {
      ++Clicks;
      if (Handler) {
        Handler();
      }
    };
  }
  int Clicks = 0;
  std::function<void()> Handler;
  Button cmdGo{*this, "cmdGo", {.Caption = "Go"}};
};

class QtRuntimeTest : public ViewTest {
 protected:
  /// Does something to the box that comes up, once it is up.
  template <class BoxType>
  static void WhenUp(std::function<void(BoxType&)> act) {
    QTimer::singleShot(0, [act = std::move(act)] {
      auto* box = qobject_cast<BoxType*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      act(*box);
    });
  }

  QByteArray Printed(const Printer& printer, const QString& path) {
    EXPECT_EQ(platform_.PrintToFile(printer, path.toStdString()), std::nullopt);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }
};

TEST_F(QtRuntimeTest, MessageBoxesAreAnswered) {
  const Message question{.Text = "Are you sure?\r\nReally?",
                         .Title = "Warning",
                         .Buttons = MessageButtons::YesNo,
                         .Icon = MessageIcon::Question};
  WhenUp<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.text(), "Are you sure?\nReally?");
    EXPECT_EQ(box.windowTitle(), "Warning");
    EXPECT_EQ(box.icon(), QMessageBox::Question);
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(runtime_.MsgBox(question), MessageAnswer::Yes);
  WhenUp<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
  EXPECT_EQ(runtime_.MsgBox(question), MessageAnswer::No);
  WhenUp<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(runtime_.MsgBox(question), MessageAnswer::No);
  WhenUp<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_EQ(runtime_.MsgBox({.Text = "Done"}), MessageAnswer::Ok);
}

TEST_F(QtRuntimeTest, MessagesBreakTheirLinesWhereTheProgramDoes) {
  WhenUp<QMessageBox>([](QMessageBox& box) {
    const auto* const text = box.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(text, nullptr);
    EXPECT_LT(text->heightForWidth(text->width()), 3 * text->fontMetrics().height());
    box.close();
  });
  (void)runtime_.MsgBox(
      {.Text = "If no file is chosen and no conversion occurs then 'd' data (crystal spacings)\r\n"
               "Explorer Window are not displayed."});
}

TEST_F(QtRuntimeTest, InputBoxesGiveTheTextOrNothing) {
  const InputRequest request{.Prompt = "give a scale factor", .Title = "Scale factor", .Default = "0.5"};
  WhenUp<QInputDialog>([](QInputDialog& box) {
    EXPECT_EQ(box.textValue(), "0.5");
    box.setTextValue("0.7");
    box.accept();
  });
  EXPECT_EQ(runtime_.InputBox(request), "0.7");
  WhenUp<QInputDialog>([](QInputDialog& box) { box.reject(); });
  EXPECT_EQ(runtime_.InputBox(request), "");
}

TEST_F(QtRuntimeTest, SaveDialogsLeaveTheQuestionToTheProgram) {
  const QTemporaryDir folder;
  const QString name = folder.filePath("there.dat");
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  const FileDialogRequest request{.Type = FileDialogRequest::Kind::Save,
                                  .Filter = "All Files (*.*)|*.*|dat Files (*.dat)|*.dat",
                                  .FilterIndex = 2,
                                  .Name = name.toStdString()};
  WhenUp<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.selectedNameFilter(), "dat Files (*.dat)");
    dynamic_cast<QDialog&>(dialog).accept();
  });
  EXPECT_EQ(runtime_.FileDialog(request), name.toStdString());
  WhenUp<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(runtime_.FileDialog(request), std::nullopt);
}

TEST_F(QtRuntimeTest, AModalFormBlocksTheOthersUntilItGoes) {
  PlainForm& main = Show<PlainForm>("Main");
  main.Handler = [&] {
    const auto modal = desk_.Load<PlainForm>(desk_, "Modal");
    modal->Handler = [raw = modal.get()] { raw->Unload(); };
    QTimer::singleShot(0, [&, raw = modal.get()] {
      EXPECT_TRUE(Window(*raw).isModal());
      const QWidget* blocker = QApplication::activeModalWidget();
      EXPECT_EQ(blocker, &Window(*raw));
      // A click through the window system does not reach the form behind.
      QTest::mouseClick(Window(main).windowHandle(), Qt::LeftButton, {},
                        Widget(main.cmdGo).geometry().center());
      Window(main).close();
      EXPECT_EQ(main.Clicks, 1);
      Click(raw->cmdGo);
    });
    modal->ShowModal();
    EXPECT_FALSE(modal->Visible());
  };
  Click(main.cmdGo);
  main.Handler = nullptr;
  Click(main.cmdGo);
  EXPECT_EQ(main.Clicks, 2);
}

TEST_F(QtRuntimeTest, QuitEndsEveryLoop) {
  PlainForm& main = Show<PlainForm>("Main");
  bool came_back = false;
  QTimer::singleShot(0, [&] { Click(main.cmdGo); });
  main.Handler = [&] {
    const auto modal = desk_.Load<PlainForm>(desk_, "Modal");
    QTimer::singleShot(0, [&] { desk_.Quit(); });
    modal->ShowModal();
    came_back = true;
  };
  QApplication::exec();
  EXPECT_TRUE(came_back);
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(window->isVisible());
  }
}

TEST_F(QtRuntimeTest, SettingsOutliveTheRun) {
  EXPECT_EQ(runtime_.GetSetting("MyApp", "General", "Absent", "0"), "0");
  runtime_.SaveSetting("MyApp", "General", "DontShow", "1");
  QtPlatform next_run;
  EXPECT_EQ(next_run.GetSetting("MyApp", "General", "DontShow", "0"), "1");
  QFile file(qEnvironmentVariable("XDG_CONFIG_HOME") + "/MyApp.ini");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_NE(file.readAll().indexOf("General]\nDontShow=1"), -1);
}

TEST_F(QtRuntimeTest, ASettingThatCannotBeKeptIsToldAndForgotten) {
  const QTemporaryDir folder;
  // A file that nobody can write, whoever runs the test.
  ASSERT_TRUE(QFile::link("/proc/version", folder.filePath("MyApp.ini")));
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
  const auto failure = runtime_.SaveSetting("MyApp", "General", "DontShow", "1");
  EXPECT_EQ(runtime_.GetSetting("MyApp", "General", "DontShow", "absent"), "absent");
  qputenv("XDG_CONFIG_HOME", before);
  EXPECT_NE(failure.value_or("").find("/MyApp.ini"), std::string::npos);
}

TEST_F(QtRuntimeTest, TheMachineTellsItsNameAndItsKernel) {
  utsname system{};
  ASSERT_EQ(uname(&system), 0);
  EXPECT_EQ(runtime_.TheMachine().ComputerName(), system.nodename);
  const SystemVersion version = runtime_.TheMachine().System();
  EXPECT_EQ(version.Name, system.sysname);
  const std::string numbers = std::to_string(version.Major) + "." + std::to_string(version.Minor);
  EXPECT_TRUE(std::string(system.release).starts_with(numbers)) << system.release;
}

TEST_F(QtRuntimeTest, TheRegionalSettingsAreThoseOfTheDesktopThatRuns) {
  const QTemporaryDir folder;
  QFile program(folder.filePath("gnome-control-center"));
  ASSERT_TRUE(program.open(QIODevice::WriteOnly));
  program.write("#!/bin/sh\necho $1 > \"$0.args\"\n");
  program.close();
  ASSERT_TRUE(program.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", folder.path().toLocal8Bit() + ":" + path);
  qputenv("XDG_CURRENT_DESKTOP", "XFCE");
  EXPECT_TRUE(runtime_.Shell(std::string(RegionalSettingsCommand)).has_value());
  qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
  EXPECT_EQ(runtime_.Shell(std::string(RegionalSettingsCommand)), std::nullopt);
  qputenv("PATH", path);
  QFile told(program.fileName() + ".args");
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() > 0; }));
  ASSERT_TRUE(told.open(QIODevice::ReadOnly));
  EXPECT_EQ(told.readAll(), "region\n");
}

TEST_F(QtRuntimeTest, TheMachineTellsThePixelsOfTheScreenUnderAForm) {
  PlainForm& form = Show<PlainForm>();
  for (const QScreen* screen : QApplication::screens()) {
    Window(form).move(screen->geometry().topLeft());
    Settle();
    const ScreenMode mode = runtime_.TheMachine().ScreenOf(form);
    EXPECT_EQ(mode.Width, std::lround(800 * screen->devicePixelRatio()));
    EXPECT_EQ(mode.Height, std::lround(600 * screen->devicePixelRatio()));
  }
}

TEST_F(QtRuntimeTest, NumbersAreToldAsTheUsersSettingsWriteThem) {
  const std::vector<std::pair<const char*, const char*>> settings{{"C.UTF-8", "0.8"}, {"de_DE.UTF-8", "0,8"}};
  for (const auto& [locale, text] : settings) {
    QProcess fresh;  // a program asks for them once
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("LC_ALL");
    environment.insert("LC_NUMERIC", locale);
    fresh.setProcessEnvironment(environment);
    fresh.start(QCoreApplication::applicationFilePath(), {"--tell-number"});
    ASSERT_TRUE(fresh.waitForFinished());
    EXPECT_EQ(fresh.readAllStandardOutput(), QByteArray(text)) << locale;
  }
}

TEST_F(QtRuntimeTest, SnapshotsNeedAShownForm) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("shot.png").toStdString();
  const auto hidden = desk_.Load<PlainForm>(desk_, "Hidden");
  EXPECT_EQ(platform_.Snapshot(*hidden, path), "Hidden is not shown");
  PlainForm& form = Show<PlainForm>();
  EXPECT_EQ(platform_.Snapshot(form, path), std::nullopt);
  EXPECT_EQ(QImage(QString::fromStdString(path)).size(), Window(form).size());
  EXPECT_NE(platform_.Snapshot(form, folder.path().toStdString() + "/none/shot.png"), std::nullopt);
}

/// The drawing commands of the first page of a document.
QByteArray Unpacked(const QByteArray& pdf) {
  const auto start = pdf.indexOf("stream\n") + 7;
  const QByteArray packed = pdf.mid(start, pdf.indexOf("endstream", start) - start);
  return qUncompress(QByteArray("\x00\x01\x00\x00", 4) + packed);
}

/// Where each object of a document begins, by its table and by looking for them.
std::pair<QList<qsizetype>, QList<qsizetype>> PlacesOfObjects(const QByteArray& pdf) {
  std::pair<QList<qsizetype>, QList<qsizetype>> places;
  const qsizetype table =
      pdf.mid(pdf.lastIndexOf("startxref\n") + 10).split('\n').front().trimmed().toLongLong();
  const QList<QByteArray> lines = pdf.mid(table).split('\n');
  const qsizetype count = lines.value(1).split(' ').last().toLongLong();
  for (qsizetype number = 1; lines.front() == "xref" && number < count; ++number) {
    places.first << lines.value(2 + number).left(10).toLongLong();
    places.second << pdf.indexOf("\n" + QByteArray::number(number) + " 0 obj") + 1;
  }
  return places;
}

TEST_F(QtRuntimeTest, DocumentsBecomePages) {
  Printer printer;
  printer.BeginDocument(210, 297, {});
  printer.SetScaleMode(PrinterScale::Millimetres);
  printer.SetOrientation(PageOrientation::Landscape);
  printer.Line(80, 50, 195, 50);
  printer.Print("Intensity");
  const QTemporaryDir folder;
  const QByteArray pdf = Printed(printer, folder.filePath("page.pdf"));
  EXPECT_TRUE(pdf.startsWith("%PDF"));
  // A4 across, in points.
  EXPECT_TRUE(pdf.contains("/MediaBox [0 0 842")) << pdf.mid(pdf.indexOf("/MediaBox"), 60).constData();
  // The line as a filled rectangle of 1200 dots an inch: 9 dots wide around (80, 50) to (195, 50) mm.
  EXPECT_TRUE(Unpacked(pdf).contains("3775 2358 5442 9 re")) << Unpacked(pdf).left(900).constData();
  EXPECT_NE(platform_.PrintToFile(printer, "/none/page.pdf"), std::nullopt);
  const auto [told, found] = PlacesOfObjects(pdf);
  EXPECT_GT(told.size(), 5);
  EXPECT_EQ(told, found);
}

TEST_F(QtRuntimeTest, DocumentsDoNotTellWhenAndWhereTheyWereMade) {
  Printer printer;
  printer.BeginDocument(210, 297, {});
  printer.Print("Intensity");
  const QTemporaryDir folder;
  const QByteArray zone = qgetenv("TZ");
  qputenv("TZ", "UTC-5");
  const QByteArray east = Printed(printer, folder.filePath("east.pdf"));
  qputenv("TZ", "UTC");
  QTest::qWait(1100);  // the toolkit notes seconds
  EXPECT_EQ(Printed(printer, folder.filePath("later.pdf")), east);
  zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
}

}  // namespace
}  // namespace koprax
