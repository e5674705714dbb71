#include "ui/guarded.h"

#include <QTest>
#include <cerrno>
#include <new>

#include "tests/ui/box_script.h"

using namespace tarvik;
using core::Failure;
using core::FailureKind;

class GuardedTest : public QObject {
  Q_OBJECT

 private slots:
  void everyKindOfFailureIsSaidInHungarian_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, FailureKind kind, const char* headline) {
      QTest::newRow(name) << static_cast<int>(kind)
                          << QString::fromUtf8(headline) + "\n\nSemmi sem változott.";
    };
    row("open", FailureKind::OpenFailed, "A fájl nem nyitható meg:\n/a/b.dat");
    row("read", FailureKind::ReadFailed, "A fájl nem olvasható:\n/a/b.dat");
    row("write", FailureKind::WriteFailed, "A fájl nem írható (talán megtelt a lemez):\n/a/b.dat");
    row("replace", FailureKind::ReplaceFailed, "A fájl nem cserélhető le az új változatára:\n/a/b.dat");
    row("busy", FailureKind::FileBusy, "A fájlt egy másik program használja:\n/a/b.dat");
    row("folder", FailureKind::FolderMissing,
        "Nincs meg a mappa, ahol ennek a fájlnak a helye van:\n/a/b.dat");
    row("plate", FailureKind::PlateUnusable, "Ez a rendszám nem lehet mappa neve:\n/a/b.dat");
    row("taken", FailureKind::PlateTaken,
        "Ez a rendszám csak kis- és nagybetűkben tér el egy már felvettől,\n"
        "a két autó mappája ugyanaz lenne:\n/a/b.dat");
    row("full", FailureKind::FileFull, "A fájl betelt, több tétel nem fér bele:\n/a/b.dat");
    row("changed", FailureKind::FileChanged,
        "A fájl közben megváltozott, egy másik program írhatott bele:\n/a/b.dat");
    row("device", FailureKind::NotAFile, "Ezen a néven nem fájl van, hanem cső vagy eszköz:\n/a/b.dat");
    row("too long", FailureKind::FileTooLong,
        "A fájlban több tétel van, mint amennyit a program kezelni tud:\n/a/b.dat");
    row("folder's name", FailureKind::FolderUnreadable,
        "Ez a mappa nem érhető el a neve alapján (talán olvashatatlan betű van benne):\n/a/b.dat");
    row("folder gone", FailureKind::FolderGone,
        "Már nincs meg az a mappa, ahonnan a programot elindítottad.");
    row("record", FailureKind::RecordMissing, "Ez a tétel már nincs a fájlban:\n/a/b.dat");
  }
  void everyKindOfFailureIsSaidInHungarian() {
    QFETCH(int, kind);
    QFETCH(QString, text);
    QCOMPARE(ui::failureText(Failure(static_cast<FailureKind>(kind)).file("/a/b.dat")), text);
  }

  void aFailedSyncSendsThePersonToTheList() {
    QCOMPARE(ui::failureText(Failure(FailureKind::SyncFailed).file("/a/b.dat")),
             QString("A rendszer nem igazolta vissza a mentést:\n/a/b.dat\n\nNézd meg a listát, mielőtt "
                     "megismétled!"));
  }

  void aRecordThatChangedMeanwhileIsToBeChosenAgain() {
    QCOMPARE(
        ui::failureText(Failure(FailureKind::RecordChanged).file("/a/b.dat")),
        QString("Az adatok közben máshol megváltoztak:\n/a/b.dat\n\nA művelet elmaradt. Nézd meg a listát, "
                "és válaszd ki újra a tételt!"));
  }

  void theSystemsErrorIsSaidInHungarian() {
    QCOMPARE(ui::failureText(Failure(FailureKind::WriteFailed).file("/a").systemError(ENOSPC)),
             QString("A fájl nem írható (talán megtelt a lemez):\n/a\n(nincs több hely a lemezen)\n\n"
                     "Semmi sem változott."));
    for (const int error : {ESTALE, ESPIPE, ENXIO, ENOLCK, ENOSYS, ENOMEM, EEXIST, EAGAIN})
      QVERIFY(!ui::failureText(Failure(FailureKind::OpenFailed).file("/a").systemError(error))
                   .contains("rendszerhiba"));
    QVERIFY(ui::failureText(Failure(FailureKind::OpenFailed).file("/a").systemError(99999))
                .contains("(99999. számú rendszerhiba)"));
  }

  void aFieldIsCalledByItsLabel() {
    QCOMPARE(ui::failureText(Failure(FailureKind::NotANumber).field("txMegjKtg")),
             QString("Nem szám van a mezőben: Megjegyzés költsége\n\nSemmi sem változott."));
    QCOMPARE(ui::failureText(Failure(FailureKind::OutOfRange)),
             QString("Túl nagy szám: a számítás eredménye\n\nSemmi sem változott."));
  }

  void anActionThatFailsShowsOneBoxWithItsConsequence() {
    test::BoxScript boxes;
    QVERIFY(!ui::guarded(nullptr, [] { throw Failure(FailureKind::DivisionByZero).field("txKmOra"); },
                         {.failed = "Félig kész."}));
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].title, QString(" H i b a !"));
    QCOMPARE(boxes.seen[0].text, QString("Nullával kellene osztani: Km óra állás\n\nFélig kész."));
    QCOMPARE(boxes.seen[0].icon, QMessageBox::Critical);
  }

  void runningOutOfMemoryIsSaidToo() {
    test::BoxScript boxes;
    QVERIFY(!ui::guarded(nullptr, [] { throw std::bad_alloc(); }));
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].text, QString("Elfogyott a memória.\n\nSemmi sem változott."));
  }

  void anActionThatWorksShowsNothing() {
    test::BoxScript boxes;
    QVERIFY(ui::guarded(nullptr, [] {}));
    QCOMPARE(boxes.seen.size(), 0);
  }
};

QTEST_MAIN(GuardedTest)
#include "guarded_test.moc"
