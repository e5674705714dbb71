#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <filesystem>

#include "core/machine_file_system.h"
#include "tests/support/bytes.h"
#include "tests/ui/print_desk.h"
#include "tests/ui/screen_test.h"
#include "ui/base/message_boxes.h"
#include "ui/print/page_painter.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

constexpr auto kHeading = "Őszi lista, hűtővíz";

QString outputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  process.waitForFinished(60'000);
  return QString::fromUtf8(process.readAllStandardOutput());
}

bool hasPoppler() {
  return !QStandardPaths::findExecutable("pdftotext").isEmpty();
}

QString textOf(const QString& pdf) {
  return outputOf("pdftotext", {"-layout", pdf, "-"});
}

// Where a word stands on the first page, in millimetres from the paper's corner: left and right.
std::pair<double, double> extentOf(const QString& word, const QString& pdf) {
  const QRegularExpression line("xMin=\"([\\d.]+)\" yMin=\"[\\d.]+\" xMax=\"([\\d.]+)\" yMax=\"[\\d.]+\">" +
                                QRegularExpression::escape(word) + "</word>");
  const auto match = line.match(outputOf("pdftotext", {"-bbox", pdf, "-"}));
  return {match.captured(1).toDouble() / 72 * 25.4, match.captured(2).toDouble() / 72 * 25.4};
}

}  // namespace

class ListPrinterTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    qputenv("CUPS_SERVER", "/nonexistent/cups.sock");  // no test reaches the machine's printers
  }

  void aMachineWithoutPrintingHasNoPrinterAndSaysWhyItRefuses() {
    QCOMPARE(ui::machinePrinting().printer(), QString());
    core::MachineFileSystem files;
    const auto oneEmptyPage = [](const ui::Sheets& sheets) { return QPainter(&sheets.device).isActive(); };
    QVERIFY(!ui::machinePrinting().print("Nappali", "Tarvik", files, oneEmptyPage).isEmpty());
  }

  void aTableIsPrintedUnderItsHeadingWithFiguresAtTheRight() {
    Bench bench(0);
    bench.answers.heading(kHeading);
    ui::printTable(bench.context, bench.plate, "ABC123_eves",
                   {{"Év", "Km"}, {{"2013", "1 700"}, {"2012", "9"}}}, &bench.window, bench.system);
    QCOMPARE(bench.system.sent, QStringList({"Nappali", "Tarvik ABC123"}));
    if (!hasPoppler()) QSKIP("pdftotext is not installed");
    const QString words = textOf(bench.path("sent.pdf")).simplified();
    QCOMPARE(words, QString("%1 Év Km 2013 1 700 2012 9").arg(kHeading));
    const double edge = 279;  // a millimetre before the rule
    QVERIFY(std::abs(extentOf("700", bench.path("sent.pdf")).second - edge) < 0.5);
    QVERIFY(std::abs(extentOf("9", bench.path("sent.pdf")).second - edge) < 0.5);
  }

  void anEmptyTableIsToldAndNothingIsPrinted() {
    Bench bench(0);
    bench.answers.box(QMessageBox::Ok);
    ui::printTable(bench.context, bench.plate, "ABC123_eves", {{"Év"}, {}}, &bench.window, bench.system);
    QVERIFY(bench.system.sent.isEmpty());
  }

  void aLogbookThatCannotBeReadIsToldBeforeTheHeadingIsAsked() {
    Bench bench(1);
    std::filesystem::remove_all(bench.folder / "ABC123");
    bench.answers.box(QMessageBox::Ok);
    QVERIFY(!bench.print());
    QVERIFY(bench.answers.texts.value(1).startsWith("Nincs meg a mappa"));
    QVERIFY(bench.system.sent.isEmpty());
  }

  void theTextReadsBackFromThePdf() {
    Bench bench(41);
    bench.answers.heading(kHeading);
    QVERIFY(bench.print());
    QCOMPARE(bench.system.sent, QStringList({"Nappali", "Tarvik ABC123"}));
    QVERIFY(bench.folder.read("sent.pdf").starts_with("%PDF-"));
    if (!hasPoppler()) QSKIP("pdftotext is missing");
    const QStringList pages = textOf(bench.path("sent.pdf")).split('\f');
    QCOMPARE(pages.size(), 3);  // a form feed ends each of the two
    for (int i = 0; i < 2; ++i) {
      QVERIFY(pages[i].contains(kHeading));
      for (const char* title :
           {"Dátum", "Km. óra", "Tankolás", "Olajcsere", "L. szűrő", "Gyertya", "Alkatrész", "Megjegyzés"})
        QVERIFY2(pages[i].contains(title), title);
    }
    QVERIFY(pages[0].contains(
        QRegularExpression("2019\\.10\\.19\\. +205400 +51,29 +csere +Légszűrő +Árvíztűrő tükörfúrógép\n")));
    QVERIFY(!pages[0].contains("összesen"));
    QVERIFY(pages[1].contains(QRegularExpression("2019\\.11\\.28\\. +209400 +51,29\n")));
    QVERIFY(pages[1].contains("Kilométer összesen: -4 000 km."));
    QVERIFY(pages[1].contains(QRegularExpression("Tankolás összesen: +2 102,89 liter")));
  }

  void thePdfIsA4LandscapeAndMeasuresFromThePapersEdge() {
    if (!hasPoppler()) QSKIP("pdftotext is missing");
    Bench bench(1);
    bench.answers.heading("Fejléc");
    QVERIFY(bench.print());
    const QString pdf = bench.path("sent.pdf");
    const QString facts = outputOf("pdfinfo", {pdf});
    QVERIFY(facts.contains("842 x 595 pts (A4)"));
    QVERIFY(facts.contains(QRegularExpression("Title: +Tarvik ABC123\n")));
    for (const auto& [word, xMm] : std::initializer_list<std::pair<const char*, double>>{{"Fejléc", 10},
                                                                                         {"Dátum", 10},
                                                                                         {"Km.", 30},
                                                                                         {"Gyertya", 100},
                                                                                         {"Megjegyzés", 190},
                                                                                         {"205400", 30}})
      QVERIFY2(qAbs(extentOf(word, pdf).first - xMm) < 0.3, word);
    QVERIFY(outputOf("pdffonts", {pdf}).contains(QString(ui::pageFontFamily()).remove(' ')));
  }

  void aLongPartAndNoteAreReadBackWholeFromWhereTheyStand() {
    if (!hasPoppler()) QSKIP("pdftotext is missing");
    Bench bench(1);
    core::NapiAdat entry = entryOf(1);
    const QString part = QString(49, 'W') + 'P';
    const QString note = QString(49, 'M') + 'N';
    entry.Alkatresz = core::FixedText<50>(part.toStdString());
    entry.Megjegyzes = core::FixedText<50>(note.toStdString());
    bench.folder.write("ABC123/napiadat.dat", textOf(core::encoded(entry)));
    bench.answers.heading("");
    QVERIFY(bench.print());
    const auto [partLeft, partRight] = extentOf(part, bench.path("sent.pdf"));
    const auto [noteLeft, noteRight] = extentOf(note, bench.path("sent.pdf"));
    QVERIFY2(qAbs(partLeft - 115) < 0.3 && partRight < 189.3, qPrintable(QString::number(partRight)));
    QVERIFY2(qAbs(noteLeft - 190) < 0.3 && noteRight < 292.3, qPrintable(QString::number(noteRight)));
  }

  void cancellingTheHeadingPrintsNothing() {
    Bench bench(1);
    bench.answers.headingCancelled();
    QVERIFY(bench.print());
    QVERIFY(bench.system.sent.isEmpty());
  }

  void withoutAPrinterThePagesBecomeAPdf() {
    Bench bench(3);
    bench.answerWithoutPrinter("lista.pdf");
    QVERIFY(bench.print());
    QCOMPARE(bench.answers.texts.last(), "ABC123_2026-11-21.pdf");
    QCOMPARE(bench.documents(), std::vector<std::string>{"lista.pdf"});
    QVERIFY(bench.folder.read("lista.pdf").ends_with("%%EOF\n"));
    if (hasPoppler()) QVERIFY(textOf(bench.path("lista.pdf")).contains("153,87 liter"));
    QVERIFY(bench.system.sent.isEmpty());
  }

  void decliningThePdfChangesNothing() {
    Bench bench(1);
    bench.system.name.clear();
    bench.answers.heading("");
    bench.answers.box(QMessageBox::No);
    QVERIFY(bench.print());
    QVERIFY(bench.documents().empty());
  }

  void aFailureOfTheFileIsToldAndLeavesTheOldOne_data() {
    QTest::addColumn<int>("openError");
    QTest::addColumn<int>("capacity");
    QTest::addColumn<int>("syncError");
    QTest::addColumn<int>("renameError");
    QTest::addColumn<QString>("headline");
    const int room = 1'000'000'000;
    QTest::newRow("unwritable folder") << EACCES << room << 0 << 0 << "A fájl nem nyitható meg:";
    QTest::newRow("full at once") << 0 << 0 << 0 << 0 << "A fájl nem írható (talán megtelt a lemez):";
    QTest::newRow("full midway") << 0 << 5'000 << 0 << 0 << "A fájl nem írható (talán megtelt a lemez):";
    QTest::newRow("not synced") << 0 << room << EIO << 0 << "A rendszer nem igazolta vissza a mentést:";
    QTest::newRow("not renamed") << 0 << room << 0 << EPERM << "A fájl nem cserélhető le az új változatára:";
  }

  void aFailureOfTheFileIsToldAndLeavesTheOldOne() {
    QFETCH(int, openError);
    QFETCH(int, capacity);
    QFETCH(int, syncError);
    QFETCH(int, renameError);
    QFETCH(QString, headline);
    Bench bench(100);
    bench.folder.write("lista.pdf", "the old one");
    bench.disk.openError = openError;
    bench.disk.capacity = capacity;
    bench.disk.syncError = syncError;
    bench.disk.renameError = renameError;
    bench.answerWithoutPrinter("lista.pdf");
    bench.answers.box(QMessageBox::Yes);  // replace the file
    bench.answers.box(QMessageBox::Ok);
    QVERIFY(bench.print());
    QVERIFY2(bench.answers.texts.last().startsWith(headline + "\n" + bench.path("lista.pdf") + "\n"),
             qPrintable(bench.answers.texts.last()));
    QVERIFY(bench.answers.texts.last().endsWith(
        "\n\nAz új fájl nem készült el. Ha már volt ilyen nevű, az változatlan maradt."));
    QCOMPARE(bench.documents(), std::vector<std::string>{"lista.pdf"});
    QCOMPARE(bench.folder.read("lista.pdf"), "the old one");
  }

  void aFullDiskSendsNothingToThePrinter() {
    Bench bench(100);
    bench.disk.capacity = 5'000;
    bench.answers.heading("");
    bench.answers.box(QMessageBox::Ok);
    QVERIFY(!bench.print());
    QVERIFY(bench.system.sent.isEmpty());
  }

  void aWholeLogbookIsPrinted() {
    Bench bench(core::kHighestRecordNumber);
    bench.answers.heading("Minden");
    QVERIFY(bench.print());
    QCOMPARE(bench.system.sent.size(), 2);
    if (hasPoppler())
      QVERIFY(outputOf("pdfinfo", {bench.path("sent.pdf")}).contains(QRegularExpression("Pages: +820\n")));
  }

  void aLongPrintOutCanBeCancelled() {
    Bench bench(core::kHighestRecordNumber);
    bench.answers.heading("Minden");
    bench.answers.progressCancelled();
    bench.disk.onFirstWrite = showProgress;
    QVERIFY(bench.print());
    QCOMPARE(bench.answers.texts.mid(2),
             QStringList({"Listamező nyomtatása", "A lista oldalai készülnek...", "Mégse"}));
    QVERIFY(bench.system.sent.isEmpty());
  }

  void whatCannotBeTakenBackIsPrintedToItsEndAndOffersNoCancelling() {
    Bench bench(4'000);
    OneWayPrintSystem system(bench.path("paper.pdf"));
    bench.answers.heading("Minden");
    bench.answers.expect<QProgressDialog>([](QProgressDialog& dialog) {
      QVERIFY(!dialog.findChild<QPushButton*>());
      QCOMPARE(dialog.minimum(), 0);
      QCOMPARE(dialog.maximum(), 100);
      QCOMPARE(dialog.minimumDuration(), 40);
      QDialog titled;
      titled.setWindowTitle(dialog.windowTitle());
      ui::makeRoomForTitle(titled);
      QVERIFY(dialog.width() >= titled.width());
      dialog.close();
    });
    ui::printList(bench.context, bench.plate, allRows(4'000), &bench.window, system);
    QVERIFY(system.isDrawn);
    QCOMPARE(system.mode, QPageLayout::FullPageMode);
    QCOMPARE(system.steps.value(0, -1), 0);
    if (hasPoppler())
      QVERIFY(outputOf("pdfinfo", {bench.path("paper.pdf")}).contains(QRegularExpression("Pages: +100\n")));
  }

  void aCancelledPdfLeavesNothingBehind() {
    Bench bench(core::kHighestRecordNumber);
    bench.answerWithoutPrinter("lista.pdf");
    bench.answers.progressCancelled();
    bench.disk.onFirstWrite = showProgress;
    QVERIFY(bench.print());
    QVERIFY(bench.documents().empty());
  }
};

TARVIK_SCREEN_TEST(ListPrinterTest)
#include "list_printer_test.moc"
