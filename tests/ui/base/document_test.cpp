#include "ui/base/document.h"

#include <QSettings>
#include <QStandardPaths>
#include <filesystem>
#include <fstream>

#include "tests/support/operations.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/base/text.h"

namespace fs = std::filesystem;
using namespace tarvik;
using test::BoxScript;
using test::onNextDialog;

namespace {

const ui::FileKind kPicture{"Kép", "PNG kép (*.png);;PDF dokumentum (*.pdf)", "png"};

}  // namespace

class DocumentTest : public QObject {
  Q_OBJECT

 private:
  // Saves a document under the name that the person types.
  static bool saved(test::Desk& desk, const std::string& path, const char* text = "new") {
    test::takeFileInNextDialog(ui::toQt(path));
    return ui::saveDocument(desk.context, kPicture, "kép.png", nullptr, [&](ui::OutputFile& file) {
      file.write(text);
      return true;
    });
  }

 private slots:
  void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

  void whatIsGivenUpWritesAndTellsNothing() {
    test::Desk desk;
    BoxScript boxes;
    onNextDialog<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(
        ui::saveDocument(desk.context, kPicture, "kép.png", nullptr, [](ui::OutputFile&) { return true; }));
    QVERIFY(boxes.seen.isEmpty());
  }

  void theDialogIsTheSameAsNewEachTime() {
    test::Desk desk;
    const test::TemporaryFolder home;
    home.makeFolder("Documents");
    const QByteArray homeBefore = qgetenv("HOME");
    qputenv("HOME", home.path().c_str());
    QStringList seen;
    for (int time = 0; time < 2; ++time) {
      onNextDialog<QFileDialog>([&](QFileDialog& dialog) {
        auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
        seen << name->text() + " " + name->selectedText() + " " + dialog.defaultSuffix() + " " +
                    dialog.selectedNameFilter() + " " + dialog.directory().path();
        dialog.setDirectory(ui::toQt(desk.current.path()));
        emit dialog.filterSelected("PDF dokumentum (*.pdf)");
        test::nameFile(dialog, ui::toQt(desk.current / "ábra"));
        static_cast<QDialog&>(dialog).accept();
      });
      ui::saveDocument(desk.context, kPicture, "kép.png", nullptr, [](ui::OutputFile& file) {
        file.write("x");
        return true;
      });
      QCOMPARE(desk.current.names(), std::vector<std::string>{"ábra.pdf"});
      fs::remove(desk.current / "ábra.pdf");
      for (const QWidget* widget : QApplication::topLevelWidgets())  // none watches the folder any more
        if (const auto* dialog = qobject_cast<const QFileDialog*>(widget))
          QCOMPARE(dialog->directory(), QDir(ui::toQt(home / "Documents")));
    }
    QVERIFY2(seen[0].startsWith("kép.png kép.png png PNG kép (*.png) "), qPrintable(seen[0]));
    QCOMPARE(seen[1], seen[0]);
    qputenv("HOME", homeBefore);
  }

  void theDialogLeavesNothingInThePersonsSettings() {
    test::Desk desk;
    const test::TemporaryFolder settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ui::toQt(settings.path()));
    QVERIFY(saved(desk, desk.current / "ábra.png"));
    QVERIFY(settings.names().empty());
  }

  // By the name, by another spelling of the path, through a link and as a second name.
  void noDataFileIsReplaced_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"name", "spelling", "link", "second name"}) QTest::newRow(way) << way;
  }
  void noDataFileIsReplaced() {
    QFETCH(QString, way);
    const std::string kData("ABC-123 \x2D\x00",
                            10);  // of every file, so that it stands in the list of vehicles
    test::Desk desk;
    desk.program.makeFolder("ABC-123");
    desk.current.write("rendsz.dat", kData);
    for (const test::Operation& operation : test::operations(1)) {
      const fs::path data(operation.file(desk.context.folders));
      std::ofstream(data) << kData;
      std::string typed = data.string();
      if (way == "spelling") {
        fs::create_directory_symlink(data.parent_path(), desk.current / "way");
        typed = (desk.current / "way/") + data.filename().string();
      }
      if (way == "link") fs::create_symlink(data, typed = desk.current / "kép.png");
      if (way == "second name") fs::create_hard_link(data, typed = desk.current / "kép.png");
      BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});  // that the file may be replaced, and the refusal
      QVERIFY2(!saved(desk, typed), data.c_str());
      QCOMPARE(boxes.seen.last().text,
               QStringLiteral("Ez a név a program adatfájljaié, más nem menthető a helyükre:\n%1\n\n"
                              "Az új fájl nem készült el. Ha már volt ilyen nevű, az változatlan maradt.")
                   .arg(ui::toQt(typed)));
      std::ifstream stored(data);
      QCOMPARE(std::string(std::istreambuf_iterator<char>(stored), {}), kData);
      fs::remove(desk.current / "way");
      fs::remove(desk.current / "kép.png");
    }
  }

  void anotherFileBesideTheDataIsReplaced() {
    test::Desk desk;
    desk.current.write("rendsz.dat", std::string("ABC-123 \x2D\x00", 10));
    desk.current.write("kép.png", "old");
    BoxScript boxes({QMessageBox::Yes});
    QVERIFY(saved(desk, desk.current / "kép.png"));
    QCOMPARE(desk.current.read("kép.png"), std::string("new"));
  }

  void aNameOfDataThatIsFreeIsRefusedToo() {
    test::Desk desk;
    BoxScript boxes({QMessageBox::Ok});
    QVERIFY(!saved(desk, desk.current / "Gumik.DAT"));
    QVERIFY(desk.current.names().empty());
  }

  void aLinkToAPlaceOfDataIsRefused() {
    test::Desk desk;
    desk.current.write("old.dat", "data");
    fs::create_symlink(desk.current / "old.dat", desk.current / "kép.png");
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    QVERIFY(!saved(desk, desk.current / "kép.png"));
    QCOMPARE(desk.current.read("old.dat"), std::string("data"));
  }
};

TARVIK_SCREEN_TEST(DocumentTest)
#include "document_test.moc"
