#include <QListWidget>
#include <QScopeGuard>

#include "tests/support/bytes.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "tyres/tyre_set.h"
#include "ui/chart/chart_view.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_view.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

// Two cars, three fuellings of the first and one of the second, a fitted set of tyres of the first.
struct Household : MainScreen {
  Household() {
    folder.write("rendsz.dat", "ABC123  \x2D" + std::string(1, '\0') + "XYZ789  \x3C" + std::string(1, '\0'));
    std::vector entries{fuelling({2026, 3, 1}, 10'000, 405'000, true, 16'200),
                        fuelling({2026, 3, 21}, 10'400, 300'000, true, 12'000),
                        fuelling({2026, 4, 2}, 10'800, 310'000, true, 12'500)};
    for (core::NapiAdat& entry : entries) entry.FtPerLiter = {4'000'000};
    writeLogbook("ABC123", entries);
    writeLogbook("XYZ789", {fuelling({2026, 5, 1}, 500, 200'000, true, 8'000)});
    tyres::TyreSet set;
    set.plate = core::FixedText<10>("ABC123");
    set.type = core::FixedText<30>("Téli abroncs");
    set.maxKm = 40'000;
    set.onCar = tyres::kFitted;
    set.kmRun = 100;
    folder.write("Gumik.dat", textOf(core::encoded(set)));
    choosePlateAtStart("ABC123", false);
    open();
  }

  std::string logbook(const char* plate) const { return folder.read(std::string(plate) + "/napiadat.dat"); }
  void undo(QWidget* on = nullptr) { key(on, Qt::Key_Z, Qt::ControlModifier); }
  void redo(QWidget* on = nullptr) { key(on, Qt::Key_Y, Qt::ControlModifier); }
  void key(QWidget* on, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    screen->activateWindow();  // a box or a screen may just have closed
    QVERIFY(QTest::qWaitForWindowActive(screen.get()));
    QWidget* const focused = QApplication::focusWidget();
    QTest::keyClick(on != nullptr ? on : focused != nullptr ? focused : screen.get(), key, modifiers);
  }
  void deleteRow(int row) {
    clickRow(row);
    BoxScript boxes({QMessageBox::Yes});
    press("cmd_del");
  }
  QString line() { return find<QLabel>("lbTortent")->text(); }
  QString undoItem() { return find<QAction>("mnuVisszavonas")->text(); }
  // What is said of the whole list, and then of the chosen entry.
  QStringList totals() {
    QStringList texts{label("lbNaplo"), edit("txKmOra")->placeholderText()};
    for (const char* name :
         {"tx_teljes_ktg", "ob_ktg", "txAlkatreszKoltseg", "tx_megtett_km", "tx_liter", "tx_fogyaszt"})
      texts << edit(name)->text();
    return texts;
  }
  QStringList figures() {
    QStringList texts = totals();
    for (const char* name : {"lbPillAtlag", "lbDatum", "lbKm", "lb_ft_km"}) texts << label(name);
    return texts << edit("txKmOra")->text();
  }
  QString marked() { return qobject_cast<ui::ListDelegate*>(list()->itemDelegate())->marked(); }
};

}  // namespace

class UndoTest : public QObject {
  Q_OBJECT

 private slots:
  void aDeletedEntryComesBackInViewMarkedAndWithItsTotals() {
    Household main;
    const std::string before = main.logbook("ABC123");
    const QString total = main.find<QLineEdit>("tx_teljes_ktg")->text();
    QVERIFY(!main.find<QLabel>("lbTortent")->isVisible());
    QVERIFY(!main.find<QAction>("mnuVisszavonas")->isEnabled());

    main.deleteRow(1);
    QCOMPARE(main.rows(), 2);
    QVERIFY(main.find<QLabel>("lbTortent")->isVisible());
    QCOMPARE(main.line(), QString("Törölve: 2026.03.21. tankolás – visszavonás: Ctrl+Z"));
    QCOMPARE(main.undoItem(), QString("&Visszavonás: törlés, 2026.03.21."));

    main.undo();
    QVERIFY(main.logbook("ABC123") == before);
    QCOMPARE(main.rows(), 3);
    QCOMPARE(main.cell(1, 1), QString("10400"));
    QCOMPARE(main.marked(), QString("2"));
    QCOMPARE(main.find<QLineEdit>("tx_teljes_ktg")->text(), total);
    QCOMPARE(main.line(), QString("Visszavonva: törlés, 2026.03.21. – újra: Ctrl+Y"));
    QCOMPARE(main.find<QAction>("mnuUjra")->text(), QString("Ú&jra: törlés, 2026.03.21."));
    QVERIFY(!main.find<QAction>("mnuVisszavonas")->isEnabled());

    main.redo();
    QCOMPARE(main.rows(), 2);
    QCOMPARE(main.line(), QString("Újra megtéve: törlés, 2026.03.21. – visszavonás: Ctrl+Z"));
    main.undo();
    QVERIFY(main.logbook("ABC123") == before);
    main.key(nullptr, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(main.rows(), 2);
  }

  void aRecordingGoesBackWithTheDistanceOfItsTyresInOneStep() {
    Household main;
    const std::string before = main.logbook("ABC123");
    const std::string tyresBefore = main.folder.read("Gumik.dat");
    main.type("txKmOra", "11200");
    main.type("txTankoltLiter", "30");
    {
      BoxScript boxes({QMessageBox::Yes});
      main.press("cmd_rogzit");
    }
    QVERIFY(main.folder.read("Gumik.dat") != tyresBefore);
    QCOMPARE(main.line(), QString("Rögzítve: 2026.11.21. tankolás – visszavonás: Ctrl+Z"));
    main.undo();  // the keyboard stands in the odometer's field, which was cleared by the recording
    QVERIFY(main.logbook("ABC123") == before);
    QVERIFY(main.folder.read("Gumik.dat") == tyresBefore);
    QCOMPARE(main.rows(), 3);
  }

  void inAFieldWithTypingOfItsOwnTheKeysAreTheFields() {
    Household main;
    main.deleteRow(1);
    auto* field = main.edit("txKmOra");
    main.type("txKmOra", "123");
    main.undo(field);
    QVERIFY(field->text() != "123");
    QCOMPARE(main.rows(), 2);
    while (field->isUndoAvailable()) main.undo(field);
    main.undo(field);
    QCOMPARE(main.rows(), 3);
    main.type("txKmOra", "5");
    main.redo(field);
    QCOMPARE(main.rows(), 2);
  }

  void inADropDownOrADayTheKeysAreTheFieldsInsideOfIt() {
    Household main;
    main.deleteRow(1);
    auto* note = main.find<QComboBox>("txMegjegyzes");
    main.type("txMegjegyzes", "abc");
    main.undo(note);
    QVERIFY(note->currentText() != "abc");
    QCOMPARE(main.rows(), 2);
    auto* day = main.find<QDateEdit>("DTPicker1");
    day->setFocus();
    main.undo(day);
    QCOMPARE(main.rows(), 3);
  }

  void aDayThatWasTypedOrSteppedGoesBackBeforeTheLastChangeDoes() {
    Household main;
    main.deleteRow(1);
    auto* day = main.find<QDateEdit>("DTPicker1");
    const QDate before = day->date();
    main.screen->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.screen.get()));
    for (const char* keys : {"2025.03.1", "2025.03.14", "x"}) {
      day->setFocus(Qt::TabFocusReason);
      QTest::keyClicks(day, keys);
      main.undo(day);
      QCOMPARE(day->date(), before);
      QCOMPARE(day->text(), before.toString("yyyy.MM.dd."));
      QCOMPARE(day->findChild<QLineEdit*>()->selectedText(), QString("2026"));  // to be typed again
      QCOMPARE(main.rows(), 2);
      main.edit("txKmOra")->setFocus();
    }
    day->setFocus(Qt::TabFocusReason);
    QTest::keyClick(day, Qt::Key_Up);
    QVERIFY(day->date() != before);
    main.undo(day);
    QCOMPARE(day->date(), before);
    QCOMPARE(main.rows(), 2);
    main.undo(day);
    QCOMPARE(main.rows(), 3);
  }

  void theLastChangeGoesBackBeforeADayThatWasTypedForIt() {
    Household main;
    main.screen->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.screen.get()));
    auto* day = main.find<QDateEdit>("DTPicker1");
    day->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(day, "2025.03.14");
    main.find<QCheckBox>("Check1")->click();  // as an assistive tool does, which takes no focus
    const QString said = main.line();
    QVERIFY(said.contains("Ctrl+Z"));
    main.undo(day);
    QVERIFY(main.line().startsWith("Visszavonva"));
    QCOMPARE(day->date(), QDate(2025, 3, 14));
  }

  void bothKeysBringBackWhatWasTakenBackInAField() {
    Household main;
    main.deleteRow(1);
    main.undo();
    auto* field = main.edit("txKmOra");
    for (const auto modifiers : {QFlags(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
      const QString typed = field->text() + "123";
      main.type("txKmOra", typed);
      main.undo(field);
      QVERIFY(field->text() != typed);
      main.key(field, modifiers & Qt::ShiftModifier ? Qt::Key_Z : Qt::Key_Y, modifiers);
      QCOMPARE(field->text(), typed);
      QCOMPARE(main.rows(), 3);
    }
  }

  void whatAnotherProgramChangedSinceIsRefusedInWords() {
    Household main;
    main.deleteRow(1);
    main.folder.write("ABC123/napiadat.dat", std::string(156, 'x'));
    BoxScript boxes({QMessageBox::Ok});
    main.undo();
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY(boxes.seen[0].text.startsWith("A fájl közben megváltozott, egy másik program írhatott bele:"));
    QVERIFY(boxes.seen[0].text.endsWith("Semmi sem változott."));
    QVERIFY(main.logbook("ABC123") == std::string(156, 'x'));
  }

  void anEntryOfAnotherCarComesBackWithThatCarsLog() {
    Household main;
    main.deleteRow(1);
    main.combo("Combo1")->setCurrentIndex(1);
    main.press("cmd_lista");
    main.press("cmdSzürés");
    QCOMPARE(main.rows(), 1);
    main.undo();
    QCOMPARE(main.combo("Combo1")->currentText(), QString("ABC123"));
    QCOMPARE(main.rows(), 3);
    QCOMPARE(main.marked(), QString("2"));
  }

  void anEntryComesBackIntoAListOfItsMonthAndPutsAnotherMonthsListAside() {
    for (const bool isItsMonth : {true, false}) {
      Household main;
      main.deleteRow(0);
      main.press("cmd_lista");
      main.press("opSzürö_2");
      main.type("DTPSzürö", QDate(2026, isItsMonth ? 3 : 4, 1));
      main.press("cmdSzürés");
      QCOMPARE(main.rows(), 1);
      main.undo();
      QCOMPARE(main.find<QRadioButton>("opSzürö_2")->isChecked(), isItsMonth);
      QCOMPARE(main.rows(), isItsMonth ? 2 : 3);
      QCOMPARE(main.cell(0, 1), QString("10000"));
      QCOMPARE(main.marked(), QString("1"));
    }
  }

  void aTyreSetDeletedWithoutAQuestionComesBackInItsScreen() {
    Household main;
    const std::string before = main.folder.read("Gumik.dat");
    onNextDialog<ui::frmGumik>([&](ui::frmGumik& screen) {
      const auto closed = qScopeGuard([&] { screen.close(); });
      auto* list = part<ui::ListView>(screen, "ListViewGumi");
      clickRow(*list, 0);
      press(*part<QPushButton>(screen, "cmdGumiDel"));
      QCOMPARE(list->model()->rowCount(), 0);
      QCOMPARE(part<QLabel>(screen, "lbTortent")->text(),
               QString("Törölve: Téli abroncs – visszavonás: Ctrl+Z"));
      QApplication::setActiveWindow(&screen);
      QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier);
      QCOMPARE(list->model()->rowCount(), 1);
      QTest::keyClick(list, Qt::Key_Y, Qt::ControlModifier);
      QCOMPARE(list->model()->rowCount(), 0);
      QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier);
      QCOMPARE(list->model()->rowCount(), 1);
    });
    main.pick("mnuGumik");
    QVERIFY(main.folder.read("Gumik.dat") == before);
    QCOMPARE(main.line(), QString("Visszavonva: gumi törlése, Téli abroncs – újra: Ctrl+Y"));
  }

  void aCarDeletedInTheSettingsIsBackInTheSelector() {
    Household main;
    onNextDialog<ui::frmSetup>([&](ui::frmSetup& screen) {
      const auto closed = qScopeGuard([&] { screen.close(); });
      auto* list = part<QListWidget>(screen, "List1");
      clickRow(*list, 1);
      press(*part<QPushButton>(screen, "cmdRendszamDel"));
      QCOMPARE(list->count(), 1);
    });
    main.pick("mnuSetup");
    QCOMPARE(main.combo("Combo1")->count(), 1);
    QCOMPARE(main.rows(), 3);
    main.undo();
    QCOMPARE(main.combo("Combo1")->count(), 2);
  }

  void theReminderSwitchGoesBackWithAllThatBelongsToIt() {
    Household main;
    main.press("Check1");
    QCOMPARE(main.context.state.reminderState, std::int16_t{1});
    QCOMPARE(main.undoItem(), QString("&Visszavonás: figyelmeztetések kapcsolása"));
    QCOMPARE(main.line(), QString("Figyelmeztetések bekapcsolva – visszavonás: Ctrl+Z"));
    main.press("Check1");
    QCOMPARE(main.line(), QString("Figyelmeztetések kikapcsolva – visszavonás: Ctrl+Z"));
    main.undo();
    QVERIFY(main.box("Check1")->isChecked());
    QCOMPARE(main.box("Check1")->text(), QString("  Bekapcsolva  "));
    QCOMPARE(main.context.state.reminderState, std::int16_t{1});
    QVERIFY(main.find<QTimer>("Timer1")->isActive());
    main.undo();
    QVERIFY(!main.box("Check1")->isChecked());
    QCOMPARE(main.box("Check1")->text(), QString("  Kikapcsolva  "));
    QCOMPARE(main.context.state.reminderState, std::int16_t{0});
    QVERIFY(!main.find<QTimer>("Timer1")->isActive());
  }

  void aDaysCopyThatIsNotWholeIsToldOnceAndTheChangesGoOn() {
    struct Case {
      const char* name;
      std::function<void(Household&)> spoil;
      QString told;
      bool hasLogbook;
    };
    const Case cases[] = {
        {"no copy", [](Household& main) { main.folder.write("Mentések", "a letter"); },
         "A mai mentés nem készült el, a módosítás viszont megtörtént.", false},
        {"without a file", [](Household& main) { main.folder.makeFolder("Szerviz.dat"); },
         "A fájl nem nyitható meg:\n%1/Szerviz.dat\n(ez egy mappa, nem fájl)\n\n"
         "A mai mentésből kimaradt:\n%1/Szerviz.dat\n\nA módosítás megtörtént.",
         true},
        {"without the logbooks",  // the list of cars is longer than numbers reach
         [](Household& main) { main.folder.write("rendsz.dat", std::string(std::size_t{10} * 32'768, ' ')); },
         "%1/rendsz.dat\nés ezzel minden napló, amelynek ez a lista mondja meg a rendszámát\n\n"
         "A módosítás megtörtént.",
         false}};
    for (const Case& each : cases) {
      Household main;
      each.spoil(main);
      main.clickRow(1);
      BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok, QMessageBox::Yes});
      main.press("cmd_del");
      QTRY_COMPARE(boxes.seen.size(), 2);
      const QString told = QString(each.told).replace("%1", QString::fromStdString(main.folder.path()));
      QVERIFY2(boxes.seen[1].text.endsWith(told), each.name);
      QVERIFY2(main.folder.has("Mentések/2026-11-21/ABC123/napiadat.dat") == each.hasLogbook, each.name);
      main.clickRow(0);
      main.press("cmd_del");
      QCoreApplication::processEvents();
      QCOMPARE(boxes.seen.size(), 3);
      QCOMPARE(main.rows(), 1);
    }
  }

  void totalsStatisticsTheCuesAndTheLineOfTheListFollowAnUndoing() {
    Household main;
    const auto choose = [&main](int row) {
      main.clickRow(row);
      return main.figures();
    };
    const QStringList before = choose(2);
    main.deleteRow(1);
    const QStringList after = main.totals();
    QVERIFY(after != before.first(after.size()));
    main.undo(main.list());
    QCOMPARE(main.totals(), before.first(after.size()));
    QCOMPARE(choose(2), before);
    main.redo(main.list());
    QCOMPARE(main.totals(), after);
  }

  void aChartThatIsShownFollowsAnUndoing() {
    Household main;
    main.deleteRow(1);
    main.showChart("Option2");
    auto* chart = main.find<ui::ChartView>("MSChart1");
    QCOMPARE(chart->rowCount(), 2);
    main.undo(chart);
    QCOMPARE(chart->rowCount(), 3);
    QVERIFY(chart->isVisible());
    main.redo(chart);
    QCOMPARE(chart->rowCount(), 2);
  }

  void aCopyIsTakenBackFromTheMenuAndThatIsUndoneToo() {
    Household main;
    const std::string before = main.logbook("ABC123");
    main.deleteRow(1);
    main.deleteRow(0);
    const std::string after = main.logbook("ABC123");
    onNextDialog<QDialog>([&](QDialog& screen) {
      const auto closed = qScopeGuard([&] { screen.close(); });
      QCOMPARE(screen.windowTitle(), QString("Visszaállítás mentésből"));
      auto* sets = part<QListWidget>(screen, "listMentesek");
      QCOMPARE(sets->count(), 1);
      QCOMPARE(sets->item(0)->text(), QString("2026.11.21."));
      auto* lines = part<QListWidget>(screen, "listKulonbsegek");
      QCOMPARE(lines->item(0)->text(),
               QString("ABC123 naplója: 2 bejegyzéssel több, utolsó nap: 2026.04.02."));
      QCOMPARE(lines->item(0)->checkState(), Qt::Checked);
      QCOMPARE(lines->item(1)->text(), QString("XYZ789 naplója: ugyanaz"));
      QCOMPARE(lines->item(1)->checkState(), Qt::Unchecked);
      lines->setCurrentRow(0);
      onNextDialog<QDialog>([&](QDialog& log) {
        const auto closedToo = qScopeGuard([&] { log.close(); });
        QCOMPARE(part<ui::ListView>(log, "ListViewMentes")->model()->rowCount(), 3);
      });
      press(*part<QPushButton>(screen, "cmdMentesNezet"));
      BoxScript boxes({QMessageBox::Yes});
      press(*part<QPushButton>(screen, "cmdVisszaallit"));
      QCOMPARE(lines->item(0)->text(), QString("ABC123 naplója: ugyanaz"));
    });
    main.chooseItem("mnuVisszaallitas");
    QVERIFY(main.logbook("ABC123") == before);
    QCOMPARE(main.rows(), 3);
    QVERIFY(main.folder.read("Mentések/2026-11-21 visszaállítás előtt/ABC123/napiadat.dat") == after);
    QCOMPARE(main.undoItem(), QString("&Visszavonás: visszaállítás, 2026.11.21."));
    QCOMPARE(main.line(), QString("Visszaállítva: 2026.11.21. – visszavonás: Ctrl+Z"));
    main.undo();
    QVERIFY(main.logbook("ABC123") == after);
    QCOMPARE(main.rows(), 1);
  }

  void theSettingsHaveTheCopiesOnTheirFourthPage() {
    Household main;
    main.deleteRow(1);
    onNextDialog<ui::frmSetup>([&](ui::frmSetup& screen) {
      const auto closed = qScopeGuard([&] { screen.close(); });
      openPage(*part<QTabWidget>(screen, "SSTab1"), 3);
      QCOMPARE(part<QListWidget>(screen, "listMentesek")->count(), 1);
    });
    main.pick("mnuSetup");
  }
};

TARVIK_SCREEN_TEST(UndoTest)
#include "undo_test.moc"
