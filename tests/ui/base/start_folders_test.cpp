#include "ui/base/start_folders.h"

#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik {

class StartFoldersTest : public QObject {
  Q_OBJECT

 private slots:
  void aStartInItsOwnFolderAsksNothing() {
    test::Desk desk;
    test::BoxScript boxes;
    const core::DataFolders folders{.program = desk.program.path(), .current = desk.program.path() + "/."};
    const auto settled = ui::settledFolders(desk.files, folders);
    QVERIFY(boxes.seen.isEmpty());
    QCOMPARE(settled->current, folders.current);
  }

  void aStartElsewhereSaysBothFoldersInOneBoxAndEnterGoesOnInItsOwn() {
    test::Desk desk;
    test::BoxScript boxes({QMessageBox::Yes});
    const auto settled = ui::settledFolders(desk.files, desk.context.folders);
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0],
             (test::SeenBox{
                 .title = "Tarvik",
                 .text = QStringLiteral(
                             "A Tarvik nem a saját mappájából indult. A közös fájljait (gépkocsik, "
                             "beállítások, figyelmeztetések) az aktuális mappában keresné, és üresen "
                             "hozná létre ott, ha nincsenek meg.\n\nA program mappája:\n%1\n\nAz aktuális "
                             "mappa:\n%2\n\nFolytatod a program saját mappájában?\n\nIgen: minden adat a "
                             "program mappájában van.\nNem: a közös fájlok az aktuális mappában "
                             "vannak.\nMégse: a program nem indul el, és nem készül fájl.")
                             .arg(QString::fromStdString(desk.program.path()),
                                  QString::fromStdString(desk.current.path())),
                 .icon = QMessageBox::Question,
                 .buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                 .enter = QMessageBox::Yes,
                 .escape = QMessageBox::Cancel}));
    QCOMPARE(settled->program, desk.program.path());
    QCOMPARE(settled->current, desk.program.path());
  }

  void noKeepsTheFoldersApart() {
    test::Desk desk;
    test::BoxScript boxes({QMessageBox::No});
    const auto settled = ui::settledFolders(desk.files, desk.context.folders);
    QCOMPARE(settled->program, desk.program.path());
    QCOMPARE(settled->current, desk.current.path());
  }

  void escapeStartsNothing() {
    test::Desk desk;
    test::BoxScript boxes;
    QVERIFY(!ui::settledFolders(desk.files, desk.context.folders));
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY(desk.program.names().empty());
    QVERIFY(desk.current.names().empty());
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::StartFoldersTest)
#include "start_folders_test.moc"
