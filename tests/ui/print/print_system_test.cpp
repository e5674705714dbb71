#include "ui/print/print_system.h"

#include <QFile>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTest>

#include "core/machine_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/screen_test.h"

namespace tarvik {

// What the machine's printing is asked, by a library in its place (fake_cups/).
class PrintSystemTest : public QObject {
  Q_OBJECT

 private:
  static QStringList printedOn(const QString& printer, const char* job, bool isWanted, QString* answer) {
    const test::TemporaryFolder folder;
    const QString notes = QString::fromStdString(folder.path() + "/notes");
    qputenv("FAKE_CUPS_NOTES", notes.toUtf8());
    qputenv("FAKE_CUPS_JOB", job);
    core::MachineFileSystem files;
    *answer = ui::machinePrinting().print(printer, "Őszi lista", files, [&](const ui::Sheets& sheets) {
      QPainter(&sheets.device).drawText(100, 100, "x");
      return isWanted && !sheets.isRefused() && sheets.canBeTakenBack;
    });
    QFile file(notes);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
  }

 private slots:
  void aDocumentGoesToItsQueueAsItIs() {
    QString answer("x");
    QCOMPARE(printedOn("Nappali", "7", true, &answer),
             QStringList({"option 0: media=A4", "option 1: print-scaling=none",
                          "print on Nappali: Őszi lista, a PDF file", "with 2 options", "freed 2 options"}));
    QCOMPARE(answer, QString());
  }

  void aSetOfOptionsIsNoPartOfTheQueuesName() {
    QString answer;
    QCOMPARE(printedOn("Nappali/kétoldalas", "7", true, &answer).value(2),
             "print on Nappali: Őszi lista, a PDF file");
  }

  void aQueueThatRefusesIsQuoted() {
    QString answer;
    QCOMPARE(printedOn("Nappali", "0", true, &answer).last(), "freed 2 options");
    QCOMPARE(answer, QStringLiteral("A sor nem fogad munkát."));
  }

  void theDefaultPrinterIsTakenOrElseTheFirst() {
    QCOMPARE(ui::printerAmong("Nappali", {"Konyha", "Nappali"}), "Nappali");
    QCOMPARE(ui::printerAmong("", {"Konyha", "Nappali"}), "Konyha");
    QCOMPARE(ui::printerAmong("", {}), "");
  }

  void aDocumentThatIsCancelledIsNotSent() {
    QString answer("x");
    QVERIFY(printedOn("Nappali", "7", false, &answer).isEmpty());
    QCOMPARE(answer, QString());
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::PrintSystemTest)
#include "print_system_test.moc"
