#include <QFile>
#include <QInputDialog>
#include <QListWidget>
#include <QRegularExpression>
#include <filesystem>

#include "tests/ui/main_screen.h"
#include "tests/ui/reminder_desk.h"
#include "tests/ui/screen_test.h"
#include "ui/base/text.h"
#include "ui/chart/chart_view.h"
#include "ui/exchange/csv_files.h"
#include "ui/lists/list_view.h"
#include "ui/print/list_printer.h"
#include "ui/windows/chart_panel.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/restore_pane.h"
#include "ui/windows/riaszt.h"

// Every question, message and file dialog that a person can bring up, beside tests/ui/contract/boxes.txt.

using namespace tarvik;
using namespace tarvik::test;

namespace {

QStringList linesOfThePage() {
  QFile page(QStringLiteral(TARVIK_CONTRACT "/boxes.txt"));
  if (!page.open(QIODevice::ReadOnly)) qFatal("no page of boxes");
  return QString::fromUtf8(page.readAll()).split('\n');
}

// The boxes that are to come, by what brings them up.
QMap<QString, SeenBox> boxesOfThePage() {
  QMap<QString, SeenBox> boxes;
  static const QRegularExpression line(R"re(^(\S+) +(error|question) +"([^"]*)" "([^"]*)" ?(Yes|No)?$)re");
  for (const QString& text : linesOfThePage()) {
    const auto match = line.match(text);
    if (!match.hasMatch()) continue;
    const QString prompt = match.captured(4).replace(QLatin1String("\\n"), QLatin1String("\n"));
    const auto enter = match.captured(5) == "Yes" ? QMessageBox::Yes : QMessageBox::No;
    boxes.insert(match.captured(1), match.captured(2) == "error"
                                        ? errorBox(match.captured(3), prompt)
                                        : questionBox(match.captured(3), prompt, enter));
  }
  return boxes;
}

// The other dialogs that are to come, each as its line says it behind its name.
QMap<QString, QString> dialogsOfThePage() {
  QMap<QString, QString> dialogs;
  static const QRegularExpression line(R"re(^(\S+) +((?:input|file) .*)$)re");
  for (const QString& text : linesOfThePage())
    if (const auto match = line.match(text); match.hasMatch())
      dialogs.insert(match.captured(1), match.captured(2).replace(QRegularExpression("^(\\w+) +"), "\\1 "));
  return dialogs;
}

QString lineOf(const QFileDialog& dialog) {
  const bool proposes = dialog.acceptMode() == QFileDialog::AcceptSave;
  const QString name = proposes ? dialog.findChild<QLineEdit*>("fileNameEdit")->text() : QString();
  const QString ending = dialog.defaultSuffix();
  return QString("file \"%1\" \"%2\" \"%3\" %4")
      .arg(dialog.windowTitle(), dialog.nameFilters().join(";;"), name, ending.isEmpty() ? "-" : ending);
}

// A printing system with one printer, which refuses, or with none.
class OnePrinter final : public ui::PdfPrintSystem {
 public:
  QString printer() override { return name; }
  QString send(const QString&, const QString&, const QString&) override {
    return QStringLiteral("A sor nem fogad munkát.");
  }

  QString name = QStringLiteral("Nappali");
};

}  // namespace

class BoxesTest : public QObject {
  Q_OBJECT

 private slots:
  void theMainScreensBoxes() {
    MainScreen main;
    core::NapiAdat entry = fuelling({2024, 2, 29}, 10000, 300'000, true);
    main.writeLogbook("ABC123", {entry});
    main.open();
    expect("list-without-plate", [&] { main.press("cmd_lista"); });
    expect("print-nothing", [&] { main.pick("mnuPrint"); });
    expect("years-without-plate", [&] { main.chooseItem("mnuEvesOsszesito"); });
    expect("record-without-km", [&] { main.press("cmd_rogzit"); });
    main.type("txKmOra", "1");
    expect("record-without-plate", [&] { main.press("cmd_rogzit"); });
    main.type("Combo1", "ABC123");
    expect("record", [&] { main.press("cmd_rogzit"); });
    main.press("cmd_lista");
    main.press("cmdSzürés");
    main.clickRow(0);
    expect("record-again", [&] { main.press("cmd_rogzit"); });
    expect("modify", [&] { main.press("cmd_modosit"); });
    expect("delete", [&] { main.press("cmd_del"); });
    main.type("Combo1", "");
    expect("delete-without-plate", [&] { main.press("cmd_del"); });
    expect("modify-without-plate", [&] { main.press("cmd_modosit"); });
    main.type("txKmOra", "");
    expect("modify-without-km", [&] { main.press("cmd_modosit"); });
    expect("exit", [&] { main.pick("mnuKilep"); });
  }

  void theQuickAddsBoxes() {
    MainScreen main;
    main.open();
    main.type("txAlkatresz", "Olajszűrő");
    expect("add-part", [&] { main.press("cmdAlkatresz"); });
    answer({QMessageBox::Yes}, [&] { main.press("cmdAlkatresz"); });
    expectSecond("add-known-part", [&] { main.press("cmdAlkatresz"); });
    main.type("txMegjegyzes", "Mosás");
    expect("add-note", [&] { main.press("cmdMegjegyzes"); });
    answer({QMessageBox::Yes}, [&] { main.press("cmdMegjegyzes"); });
    expectSecond("add-known-note", [&] { main.press("cmdMegjegyzes"); });
  }

  void theSettingsBoxes() {
    Desk desk;
    desk.current.write("alkatr.dat", padded("A", 50));
    desk.current.write("megjegyz.dat", padded("B", 50));
    ui::frmSetup screen(desk.context, {}, nullptr);
    screen.show();
    const auto press = [&](const char* name) { test::press(*part<QPushButton>(screen, name)); };
    typeInto(*part<QLineEdit>(screen, "txRendszam"), " ");
    expect("add-car-without-tank", [&] { press("cmdRendszamFelvesz"); });
    typeInto(*part<QLineEdit>(screen, "txTank"), "45");
    expect("add-car-without-plate", [&] { press("cmdRendszamFelvesz"); });
    openPage(*part<QTabWidget>(screen, "SSTab1"), 2);
    clickRow(*part<QListWidget>(screen, "listAlkatr"), 0);
    expect("delete-part", [&] { press("cmdAlkatrDel"); });
    clickRow(*part<QListWidget>(screen, "listMegj"), 0);
    expect("delete-note", [&] { press("cmdMegjDel"); });
  }

  void theReminderEntrysBoxes() {
    ReminderDesk desk;
    desk.storeKm({kmReminder(1, 2, "Olaj", "ABC123")});
    desk.storeDates({dateReminder(0, "Adó", "ABC123")});
    ui::figy screen(desk.context, QStringLiteral("ABC123  "), nullptr);
    screen.show();
    const auto press = [&](const char* name) { test::press(*part<QPushButton>(screen, name)); };
    expect("overwrite-km-reminder", [&] { press("cmd_rogzit"); });
    typeInto(*part<QLineEdit>(screen, "tx_szoveg"), "Fék");
    expect("record-km-reminder", [&] { press("cmd_rogzit"); });
    clickRow(*part<ui::ListView>(screen, "ListView1"), 0);
    expect("record-km-reminder-again", [&] { press("cmd_rogzit"); });
    expect("delete-km-reminder", [&] { press("cmd_del"); });
    openPage(*part<QTabWidget>(screen, "SSTab1"), 1);
    expect("record-date-reminder", [&] { press("cmdRogzit2"); });
    typeInto(*part<QLineEdit>(screen, "txtMire"), "Adó");
    expect("record-date-reminder-again", [&] { press("cmdRogzit2"); });
    clickRow(*part<ui::ListView>(screen, "ListView2"), 0);
    expect("delete-date-reminder", [&] { press("cmdDel2"); });
  }

  void theBoxOfTakingBack() {
    Desk desk;
    desk.program.makeFolder("ABC123");
    desk.writeLogbook("Mentések/2013-07-01/ABC123", {fuelling({2013, 6, 1}, 10000, 300'000, true)});
    onNextDialog<QDialog>([&](QDialog& screen) {
      expect("take-back", [&] { press(*part<QPushButton>(screen, "cmdVisszaallit")); });
      screen.close();
    });
    ui::openRestoreScreen(desk.context, nullptr);
  }

  void theAlertsBoxes() {
    ReminderDesk desk;
    desk.storeDates({dateReminder(0, "Adó", "ABC123")});
    ui::riaszt kmAlert(desk.context, QStringLiteral("ABC123"), nullptr);
    kmAlert.show();
    expect("delete-no-alert", [&] { press(*part<QPushButton>(kmAlert, "cmd_torles")); });
    ui::frmDatumFigyelmeztetes dateAlert(desk.context, nullptr);
    dateAlert.show();
    clickRow(*part<ui::ListView>(dateAlert, "ListView1"), 0);
    expect("delete-date-alert", [&] { press(*part<QPushButton>(dateAlert, "cmdDel")); });
  }

  void thePrintersBoxesAndDialogs() {
    MainScreen main;
    main.writeLogbook("ABC123", {fuelling({2024, 2, 29}, 10000, 300'000, true)});
    main.open();
    OnePrinter system;
    const auto print = [&] {
      ui::printList(main.context, "ABC123  ", {{1}, "10000", "10000"}, main.screen.get(), system);
    };
    onNextDialog<QInputDialog>([&](QInputDialog& dialog) {
      note("print-heading", QString("input \"%1\" \"%2\"").arg(dialog.windowTitle(), dialog.labelText()));
      dialog.accept();
    });
    expect("print-refused", print);
    system.name.clear();
    onNextDialog<QInputDialog>([](QInputDialog& dialog) { dialog.accept(); });
    expect("print-as-pdf", print);
    onNextDialog<QInputDialog>([&](QInputDialog& dialog) {
      expectFile("save-pdf", true);
      dialog.accept();
    });
    answer({QMessageBox::Yes}, print);
  }

  void theListsFileDialogs() {
    MainScreen main;
    main.writeLogbook("ABC123", {fuelling({2024, 2, 29}, 10000, 300'000, true)});
    main.choosePlateAtStart("ABC123");
    main.open();
    const auto trigger = [](const QWidget& screen, const char* list, const char* item) {
      part<ui::ListView>(screen, list)->findChild<QAction*>(item)->trigger();
      QCoreApplication::processEvents();  // the dialog opens once the menu has closed
    };
    expectFile("save-logbook", true);
    trigger(*main.screen, "ListView1", "mnuCsvMentes");
    expectFile("read-logbook", false);
    trigger(*main.screen, "ListView1", "mnuCsvBeolvasas");
    main.type("Combo1", "");
    expect("import-without-plate", [&] { trigger(*main.screen, "ListView1", "mnuCsvBeolvasas"); });
    expectFile("save-tyres", true);
    trigger(ui::frmGumik(main.context, "ABC123", {}, nullptr), "ListViewGumi", "mnuCsvMentes");
    expectFile("save-repairs", true);
    trigger(ui::frmSzerviz(main.context, "ABC123", {}, nullptr), "ListViewSzerviz", "mnuCsvMentes");
    const ui::figy reminders(main.context, "ABC123", nullptr);
    expectFile("save-km-reminders", true);
    trigger(reminders, "ListView1", "mnuCsvMentes");
    expectFile("save-date-reminders", true);
    trigger(reminders, "ListView2", "mnuCsvMentes");
  }

  void theImportsBoxes() {
    Desk desk;
    desk.program.makeFolder("ABC123");
    const QString path = ui::toQt(desk.current / "log.csv");
    const auto read = [&] { QVERIFY(!ui::importCsvFileAt(desk.context, "ABC123", path, nullptr, [] {})); };
    const auto expectOf = [&](const char* name, const std::string& text) {
      desk.current.write("log.csv", text);
      expect(name, read);
    };
    const std::string heads = "Date,Odometer,Litres\n";
    expectOf("csv-zip", std::string("PK\3\4\0\0\0\0", 8));
    expectOf("csv-no-text", std::string("a\0\0\0b\0\0\0c", 9));
    expectOf("csv-no-table", "alma\nkörte\n");
    expectOf("csv-only-heads", heads);
    expectOf("csv-row-too-long", heads + "2024-01-05,1000,\"" + std::string(10'000'000, '\n'));
    std::string rows = heads;
    for (int row = 0; row < 70'000; ++row) rows += "2024-01-05,1000,1\n";
    expectOf("csv-too-many-rows", rows);
    std::filesystem::resize_file(desk.current / "log.csv", 100 * 1024 * 1024);
    expect("csv-too-large", read);
  }

  void theChartsMenuAndItsFileDialog() {
    test::MainScreen desk;
    desk.writeLogbook("ABC123", {});
    desk.context.state.chartChoice = 2;
    ui::ChartPanel panel(desk.context, {[] { return QStringLiteral("ABC123"); }, [] { return QString(); }},
                         nullptr);
    panel.showChart(2);
    auto& chart = *panel.findChild<ui::ChartView*>();
    QStringList items;
    onNextPopup<QMenu>([&](QMenu& menu) {
      for (const QAction* item : menu.actions()) items << item->text();
      expectFile("save-chart", true);
      menu.setActiveAction(menu.actions().last());
      QTest::keyClick(&menu, Qt::Key_Return);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), chart.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&chart, &event);
    QCOMPARE(items, QStringList({"Kép &másolása", "Mentés &képként…"}));
  }

  // Runs last: what the tests above did not bring up is gone from the program.
  void everyBoxOfThePageCame() {
    QCOMPARE(QStringList(page_.keys() + dialogs_.keys()), came_ + dialogsCame_);
  }

 private:
  static QList<SeenBox> answer(const QList<QMessageBox::StandardButton>& answers,
                               const std::function<void()>& act) {
    BoxScript boxes(answers);
    act();
    return boxes.seen;
  }
  // An act that brings up one box, which Escape answers.
  void expect(const QString& name, const std::function<void()>& act) {
    QCOMPARE(answer({}, act), QList{noted(name)});
  }
  // An act whose first question is answered with Yes and is followed by another box.
  void expectSecond(const QString& name, const std::function<void()>& act) {
    const QList<SeenBox> seen = answer({QMessageBox::Yes}, act);
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen[1], noted(name));
  }
  SeenBox noted(const QString& name) {
    came_ << name;
    came_.sort();
    return page_.value(name);
  }

  void note(const QString& name, const QString& line) {
    dialogsCame_ << name;
    dialogsCame_.sort();
    QCOMPARE(line, dialogs_.value(name));
  }
  // The file dialog that an act is about to bring up, which the person then closes.
  void expectFile(const QString& name, bool isToWrite) {
    onNextDialog<QFileDialog>([this, name, isToWrite](QFileDialog& dialog) {
      note(name, lineOf(dialog));
      const bool writes = dialog.acceptMode() == QFileDialog::AcceptSave;
      const bool isThere = dialog.fileMode() == QFileDialog::ExistingFile;
      const bool isList = dialog.viewMode() == QFileDialog::List;
      const bool isOwn = dialog.testOption(QFileDialog::DontUseNativeDialog);
      dialog.reject();
      QCOMPARE(writes, isToWrite);
      QCOMPARE(isThere, !isToWrite);
      QVERIFY(isList);
      QVERIFY(isOwn);
    });
  }
  const QMap<QString, SeenBox> page_ = boxesOfThePage();
  const QMap<QString, QString> dialogs_ = dialogsOfThePage();
  QStringList came_;
  QStringList dialogsCame_;
};

TARVIK_SCREEN_TEST(BoxesTest)
#include "boxes_test.moc"
