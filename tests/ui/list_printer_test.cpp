#include "ui/list_printer.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QFontDatabase>
#include <QImage>
#include <QInputDialog>
#include <QMessageBox>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTimer>
#include <QtTest>
#include <cerrno>
#include <ctime>
#include <deque>
#include <functional>
#include <numeric>

#include "core/day.h"
#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/temporary_folder.h"
#include "ui/guarded.h"
#include "ui/page_painter.h"

using namespace tarvik;

namespace {

constexpr auto kHeading = "Őszi lista, hűtővíz";

// Answers the dialogs of one command in turn and notes what they say. A dialog that nobody expects is
// closed and noted.
class Answers : public QObject {
 public:
  using Answer = std::function<void(QDialog&)>;

  Answers() { lookAgain(); }

  template <typename Dialog>
  void expect(std::function<void(Dialog&)> answer) {
    steps_.push_back({[](QDialog& dialog) { return qobject_cast<Dialog*>(&dialog) != nullptr; },
                      [answer](QDialog& dialog) { answer(static_cast<Dialog&>(dialog)); }});
  }

  void heading(const QString& text) {
    expect<QInputDialog>([this, text](QInputDialog& dialog) {
      texts << dialog.windowTitle() << dialog.labelText();
      dialog.setTextValue(text);
      dialog.accept();
    });
  }
  void headingCancelled() {
    expect<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
  }
  void box(QMessageBox::StandardButton button) {
    expect<QMessageBox>([this, button](QMessageBox& box) {
      texts << box.windowTitle() << box.text();
      icon = box.icon();
      byDefault = box.standardButton(box.defaultButton());
      box.button(button)->click();
    });
  }
  void fileName(const QString& path) {
    expect<QFileDialog>([this, path](QFileDialog& dialog) {
      texts << QFileInfo(dialog.selectedFiles().value(0)).fileName();
      dialog.selectFile(path);
      static_cast<QDialog&>(dialog).accept();
    });
  }
  void fileCancelled() {
    expect<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  }
  void progressCancelled() {
    expect<QProgressDialog>([this](QProgressDialog& dialog) {
      texts << dialog.windowTitle() << dialog.labelText();
      auto* button = dialog.findChild<QPushButton*>();
      texts << button->text();
      button->click();
    });
  }

  bool allGiven() const { return steps_.empty() && !surprised_; }

  QStringList texts;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButton byDefault = QMessageBox::NoButton;

 private:
  struct Step {
    std::function<bool(QDialog&)> isMeant;
    Answer answer;
  };

  // An answer may open the next dialog before it returns, so the next look never waits for this one.
  void lookAgain() { QTimer::singleShot(1, this, &Answers::look); }

  void look() {
    lookAgain();
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    if (!steps_.empty() && steps_.front().isMeant(*dialog)) {
      const Answer answer = steps_.front().answer;
      steps_.pop_front();
      answer(*dialog);
    } else if (!qobject_cast<QProgressDialog*>(dialog)) {
      surprised_ = true;
      dialog->reject();
    }
  }

  std::deque<Step> steps_;
  bool surprised_ = false;
};

// A printing system that keeps a copy of what it is sent.
class RecordingPrintSystem final : public ui::PdfPrintSystem {
 public:
  explicit RecordingPrintSystem(QString copy) : copy_(std::move(copy)) {}

  QString printer() override { return name; }
  QString send(const QString& printer, const QString& file, const QString& title) override {
    sent << printer << title;
    QFile::copy(file, copy_);
    return refusal;
  }

  QString name = QStringLiteral("Nappali");
  QString refusal;
  QStringList sent;

 private:
  QString copy_;
};

// Shows the progress at once, as after the time that a slow machine would take.
void showProgress() {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (qobject_cast<QProgressDialog*>(widget)) QMetaObject::invokeMethod(widget, "forceShow");
}

// A printing system that cannot take a sheet back, whose progress shows from the first page on.
class OneWayPrintSystem final : public ui::PrintSystem {
 public:
  explicit OneWayPrintSystem(QString paper) : paper_(std::move(paper)) {}

  QString printer() override { return QStringLiteral("Nappali"); }
  QString print(const QString&, const QString&, core::FileSystem&, const ui::DrawDocument& draw) override {
    QPdfWriter writer(paper_);
    const auto isRefused = [] {
      showProgress();
      return false;
    };
    isDrawn = draw({.device = writer, .isRefused = isRefused, .canBeTakenBack = false});
    return {};
  }

  bool isDrawn = false;

 private:
  QString paper_;
};

// A disk on which one call fails for documents that are being written.
class FailingDisk final : public test::ForwardingFileSystem {
 public:
  int open(const std::string& path, core::OpenMode mode) override {
    return mode == core::OpenMode::CreateNew && refuses(openError) ? -1
                                                                   : ForwardingFileSystem::open(path, mode);
  }
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    if (offset == 0) onFirstWrite();
    if (offset + static_cast<std::int64_t>(data.size()) > capacity) return refuses(ENOSPC) ? -1 : 0;
    return ForwardingFileSystem::write(descriptor, data, offset);
  }
  int sync(int descriptor) override {
    return refuses(syncError) ? -1 : ForwardingFileSystem::sync(descriptor);
  }
  int rename(const std::string& from, const std::string& to) override {
    return refuses(renameError) ? -1 : ForwardingFileSystem::rename(from, to);
  }

  int openError = 0;
  int syncError = 0;
  int renameError = 0;
  std::int64_t capacity = 1'000'000'000;
  std::function<void()> onFirstWrite = [] {};

 private:
  static bool refuses(int error) {
    if (error != 0) errno = error;
    return error != 0;
  }
};

core::NapiAdat entryOf(int number) {
  core::NapiAdat entry;
  entry.KmOra = 205'300 + 100 * number;
  entry.Datum = core::toStored(core::dayOf({2019, 10, 18})) + number % 1'000;
  entry.TankoltLiter = {512'900};
  entry.Olajcsere = core::toFlag(number == 1);
  entry.Alkatresz = core::FixedText<50>(number == 1 ? "Légszűrő" : "");
  entry.Megjegyzes = core::FixedText<50>(number == 1 ? "Árvíztűrő tükörfúrógép" : "");
  return entry;
}

print::ListedRows allRows(int count) {
  print::ListedRows rows;
  rows.records.resize(static_cast<std::size_t>(count));
  std::iota(rows.records.begin(), rows.records.end(), 1);
  rows.firstKmOra = std::to_string(entryOf(1).KmOra);
  rows.lastKmOra = std::to_string(entryOf(count).KmOra);
  return rows;
}

// A vehicle ABC123 with a logbook, and all that the command needs.
struct Bench {
  explicit Bench(int entries) : count(entries) {
    folder.makeFolder("ABC123");
    std::string bytes;
    for (int i = 1; i <= entries; ++i) bytes += test::toText(core::encoded(entryOf(i)));
    folder.write("ABC123/napiadat.dat", bytes);
  }

  QString path(const char* name) const { return QString::fromStdString(folder / name); }
  bool print() {
    return ui::guarded(&window, [&] { ui::printList(context, plate, allRows(count), &window, system); });
  }
  // Everything in the folder besides the vehicle's.
  std::vector<std::string> documents() const {
    auto names = folder.names();
    std::erase_if(names, [](const std::string& name) { return name.starts_with("ABC123"); });
    return names;
  }

  int count;
  test::TemporaryFolder folder;
  FailingDisk disk;
  test::FixedClock clock{{2026, 11, 21}};
  ui::Context context{disk, {folder.path(), folder.path()}, clock, "1.0.0"};
  RecordingPrintSystem system{path("sent.pdf")};
  QString plate = QStringLiteral("ABC123  ");
  QWidget window;
  Answers answers;
};

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

constexpr int kPixelsPerMm = 10;

QImage pictureOf(const print::Page& page) {
  QImage picture(297 * kPixelsPerMm, 210 * kPixelsPerMm, QImage::Format_RGB32);
  picture.setDotsPerMeterX(kPixelsPerMm * 1'000);
  picture.setDotsPerMeterY(kPixelsPerMm * 1'000);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  ui::paintPage(painter, page);
  return picture;
}

bool isInk(const QImage& picture, int x, int y) {
  return qGray(picture.pixel(x, y)) < 128;
}

// Whether any ink is in a part of the picture; millimetres.
bool hasInk(const QImage& picture, double x, double y, double width, double height) {
  for (int row = int(y * kPixelsPerMm); row < int((y + height) * kPixelsPerMm); ++row)
    for (int column = int(x * kPixelsPerMm); column < int((x + width) * kPixelsPerMm); ++column)
      if (isInk(picture, column, row)) return true;
  return false;
}

// Whether every point of a rule is ink, one pixel either way.
bool isRuled(const QImage& picture, const print::Rule& rule) {
  const int steps = kPixelsPerMm * std::max(rule.toXMm - rule.fromXMm, rule.toYMm - rule.fromYMm);
  const int dx = rule.toXMm > rule.fromXMm;
  const int dy = 1 - dx;
  for (int i = 0; i < steps; ++i) {
    const int x = rule.fromXMm * kPixelsPerMm + i * dx;
    const int y = rule.fromYMm * kPixelsPerMm + i * dy;
    if (!isInk(picture, x, y) && !isInk(picture, x - dy, y - dx)) return false;
  }
  return true;
}

core::Logbook logbookOf(int count) {
  std::vector<core::NapiAdat> entries;
  for (int i = 1; i <= count; ++i) entries.push_back(entryOf(i));
  return core::Logbook::of(entries);
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

  void anEmptyListIsToldAndNothingIsPrinted() {
    Bench bench(0);
    bench.answers.box(QMessageBox::Ok);
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QCOMPARE(bench.answers.texts,
             QStringList({" H i b a !", "A listamező üres!\nÍgy nincs mit nyomtatni..."}));
    QCOMPARE(bench.answers.icon, QMessageBox::Critical);
    QVERIFY(bench.system.sent.isEmpty());
  }

  void theDefaultPrinterGetsTheListAtOnce() {
    Bench bench(41);
    bench.answers.heading(kHeading);
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QCOMPARE(bench.answers.texts,
             QStringList({"Listamező nyomtatása", "Kérem adja meg a fejléc szövegét..."}));
    QCOMPARE(bench.system.sent, QStringList({"Nappali", "Tarvik ABC123"}));
    QVERIFY(bench.folder.read("sent.pdf").starts_with("%PDF-"));
  }

  void theTextReadsBackFromThePdf() {
    if (!hasPoppler()) QSKIP("pdftotext is missing");
    Bench bench(41);
    bench.answers.heading(kHeading);
    QVERIFY(bench.print());
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
    QVERIFY(outputOf("pdfinfo", {pdf}).contains("842 x 595 pts (A4)"));
    for (const auto& [word, xMm] : std::initializer_list<std::pair<const char*, double>>{{"Fejléc", 10},
                                                                                         {"Dátum", 10},
                                                                                         {"Km.", 30},
                                                                                         {"Gyertya", 100},
                                                                                         {"Megjegyzés", 190},
                                                                                         {"205400", 30}})
      QVERIFY2(qAbs(extentOf(word, pdf).first - xMm) < 0.3, word);
    QVERIFY(outputOf("pdffonts", {pdf}).contains(QString(ui::pageFontFamily()).remove(' ')));
  }

  void anEmptyHeadingPrintsWithoutOne() {
    if (!hasPoppler()) QSKIP("pdftotext is missing");
    Bench bench(1);
    bench.answers.heading("");
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QVERIFY(textOf(bench.path("sent.pdf")).trimmed().startsWith("Dátum"));
  }

  void cancellingTheHeadingPrintsNothing() {
    Bench bench(1);
    bench.answers.headingCancelled();
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QVERIFY(bench.system.sent.isEmpty());
  }

  void aRefusalIsToldInTheSystemsWords() {
    Bench bench(1);
    bench.system.refusal = "Destination \"Nappali\" is not accepting jobs.";
    bench.answers.heading("");
    bench.answers.box(QMessageBox::Ok);
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QCOMPARE(
        bench.answers.texts.mid(2),
        QStringList({" H i b a !",
                     "A nyomtatás nem sikerült (Nappali):\nDestination \"Nappali\" is not accepting jobs."}));
    QCOMPARE(bench.answers.icon, QMessageBox::Critical);
  }

  void withoutAPrinterThePagesBecomeAPdf() {
    Bench bench(3);
    bench.system.name.clear();
    bench.answers.heading("Fejléc");
    bench.answers.box(QMessageBox::Yes);
    bench.answers.fileName(bench.path("lista.pdf"));
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QCOMPARE(bench.answers.texts.mid(2),
             QStringList({"Listamező nyomtatása", "Nincs nyomtató ezen a gépen.\nElmented PDF-fájlba?",
                          "ABC123_2026-11-21.pdf"}));
    QCOMPARE(bench.answers.icon, QMessageBox::Question);
    QCOMPARE(bench.answers.byDefault, QMessageBox::Yes);
    QCOMPARE(bench.documents(), std::vector<std::string>{"lista.pdf"});
    QVERIFY(bench.folder.read("lista.pdf").ends_with("%%EOF\n"));
    if (hasPoppler()) QVERIFY(textOf(bench.path("lista.pdf")).contains("153,87 liter"));
    QVERIFY(bench.system.sent.isEmpty());
  }

  void theNameGetsItsEndingWhenItHasNone() {
    Bench bench(1);
    bench.system.name.clear();
    bench.answers.heading("");
    bench.answers.box(QMessageBox::Yes);
    bench.answers.fileName(bench.path("lista"));
    QVERIFY(bench.print());
    QCOMPARE(bench.documents(), std::vector<std::string>{"lista.pdf"});
  }

  void decliningThePdfChangesNothing() {
    Bench bench(1);
    bench.system.name.clear();
    bench.answers.heading("");
    bench.answers.box(QMessageBox::No);
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QVERIFY(bench.documents().empty());
  }

  void cancellingTheFileNameChangesNothing() {
    Bench bench(1);
    bench.system.name.clear();
    bench.answers.heading("");
    bench.answers.box(QMessageBox::Yes);
    bench.answers.fileCancelled();
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
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
    bench.system.name.clear();
    bench.answers.heading("");
    bench.answers.box(QMessageBox::Yes);
    bench.answers.fileName(bench.path("lista.pdf"));
    bench.answers.box(QMessageBox::Yes);  // replace the file
    bench.answers.box(QMessageBox::Ok);
    QVERIFY(!bench.print());
    QVERIFY(bench.answers.allGiven());
    QVERIFY2(bench.answers.texts.last().startsWith(headline + "\n" + bench.path("lista.pdf") + "\n"),
             qPrintable(bench.answers.texts.last()));
    QCOMPARE(bench.documents(), std::vector<std::string>{"lista.pdf"});
    QCOMPARE(bench.folder.read("lista.pdf"), "the old one");
  }

  void aFullDiskSendsNothingToThePrinter() {
    Bench bench(100);
    bench.disk.capacity = 5'000;
    bench.answers.heading("");
    bench.answers.box(QMessageBox::Ok);
    QVERIFY(!bench.print());
    QVERIFY(bench.answers.allGiven());
    QVERIFY(bench.system.sent.isEmpty());
  }

  void aWholeLogbookIsWrittenInSeconds() {
    Bench bench(core::kHighestRecordNumber);
    bench.answers.heading("Minden");
    const std::clock_t before = std::clock();  // of the processor: the machine may be busy with others
    QVERIFY(bench.print());
    QVERIFY((std::clock() - before) / CLOCKS_PER_SEC < 20);
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
    QVERIFY(bench.answers.allGiven());
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
      dialog.close();
    });
    ui::printList(bench.context, bench.plate, allRows(4'000), &bench.window, system);
    QVERIFY(bench.answers.allGiven());
    QVERIFY(system.isDrawn);
    if (hasPoppler())
      QVERIFY(outputOf("pdfinfo", {bench.path("paper.pdf")}).contains(QRegularExpression("Pages: +100\n")));
  }

  void aCancelledPdfLeavesNothingBehind() {
    Bench bench(core::kHighestRecordNumber);
    bench.system.name.clear();
    bench.answers.heading("Minden");
    bench.answers.box(QMessageBox::Yes);
    bench.answers.fileName(bench.path("lista.pdf"));
    bench.answers.progressCancelled();
    bench.disk.onFirstWrite = showProgress;
    QVERIFY(bench.print());
    QVERIFY(bench.answers.allGiven());
    QVERIFY(bench.documents().empty());
  }

  void thePagesPictureIsWhatWasMeant() {
    const core::Logbook logbook = logbookOf(42);
    const print::ListDocument document(logbook, allRows(42), kHeading);
    const print::Page page = document.page(2);
    const QImage picture = pictureOf(page);
    for (const print::Rule& rule : page.rules)
      QVERIFY2(isRuled(picture, rule),
               qPrintable(QString::number(rule.fromXMm) + " " + QString::number(rule.fromYMm)));

    QVERIFY(hasInk(picture, 10, 15, 60, 4.5));    // the heading
    QVERIFY(hasInk(picture, 10, 30.3, 15, 2.2));  // the first row's date
    QVERIFY(hasInk(picture, 50, 38, 40, 3));      // the totals
    QVERIFY(hasInk(picture, 50, 42, 40, 3));

    QVERIFY(!hasInk(picture, 0, 0, 297, 15));        // above the heading
    QVERIFY(!hasInk(picture, 0, 20.5, 297, 4.3));    // up to the top rule
    QVERIFY(!hasInk(picture, 0, 0, 8.8, 210));       // left of the table
    QVERIFY(!hasInk(picture, 280.2, 0, 16.8, 210));  // right of it
    QVERIFY(!hasInk(picture, 0, 46, 297, 164));      // under the totals
    QVERIFY(!hasInk(picture, 0, 37.3, 49.5, 10));    // the vertical rules end with the last row's rule
    QVERIFY(!hasInk(picture, 70.5, 30.2, 13, 2.6));  // a flag that is not set
  }

  void longTextsEndBeforeTheNextRule() {
    core::NapiAdat entry;
    entry.Alkatresz = core::FixedText<50>(std::string(50, 'W'));
    entry.Megjegyzes = core::FixedText<50>(std::string(50, 'W'));
    entry.TankoltLiter = {std::numeric_limits<std::int64_t>::max()};
    const core::Logbook logbook = core::Logbook::of(std::vector{entry});
    const print::ListDocument document(logbook, {{1}, "0", "0"}, std::string(300, 'W'));
    const QImage picture = pictureOf(document.page(1));
    QVERIFY(hasInk(picture, 183, 30, 5, 2.5));
    QVERIFY(!hasInk(picture, 188.2, 30, 0.7, 2.9));
    QVERIFY(hasInk(picture, 274, 30, 5, 2.5));
    QVERIFY(!hasInk(picture, 280.2, 0, 16.8, 210));
    QVERIFY(!hasInk(picture, 69.2, 30.2, 10, 2.6));
  }

  void theFontIsTheSystemsOwnOrItsEqual() {
    QString expected = "Liberation Serif";
    if (QFontDatabase::hasFamily("Times New Roman")) expected = "Times New Roman";
    if (QFontDatabase::hasFamily("Times New Roman CE")) expected = "Times New Roman CE";
    QCOMPARE(ui::pageFontFamily(), expected);
  }
};

QTEST_MAIN(ListPrinterTest)
#include "list_printer_test.moc"
