#include <QInputDialog>
#include <QProcess>
#include <QStandardPaths>

#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/list_view.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/riaszt.h"

// What is done on one screen arrives on the others, from the menu item or button that opens them.

using namespace tarvik;
using namespace tarvik::test;

namespace {

QString textOfPdf(const QString& file) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", file, "-"});
  reader.waitForFinished(60'000);
  return QString::fromUtf8(reader.readAllStandardOutput()).simplified();
}

// The main screen with two cars, of which ABC123 has a logbook of four full fills.
struct Household : MainScreen {
  Household() {
    folder.write("rendsz.dat", padded("ABC123", 8) + std::string("\x32\0", 2) + padded("XYZ789", 8) +
                                   std::string("\x28\0", 2));
    auto third = fuelling({2024, 1, 12}, 10500, 350'000, true, 14'000);
    third.FtPerLiter = {4'000'000};
    auto fourth = fuelling({2024, 1, 22}, 11000, 300'000, true, 12'375);
    fourth.FtPerLiter = {4'125'000};
    writeLogbook("ABC123", {fuelling({2024, 1, 1}, 9000, 300'000, true, 9'000),
                            fuelling({2024, 1, 2}, 10000, 400'000, true, 16'000), third, fourth});
    writeLogbook("XYZ789", {});
    choosePlateAtStart("ABC123");
  }

  // Does something that opens a screen, acts on that screen and closes it.
  template <typename Screen>
  void visit(const std::function<void()>& open, const std::function<void(Screen&)>& act) {
    onNextDialog<Screen>([&](Screen& opened) {
      act(opened);
      opened.close();
    });
    open();
  }
  template <typename Screen>
  void visitFromMenu(const char* item, const std::function<void(Screen&)>& act) {
    visit<Screen>([&] { pick(item); }, act);
  }
  QStringList plates() {
    QStringList all;
    for (int i = 0; i < combo("Combo1")->count(); ++i) all << combo("Combo1")->itemText(i);
    return all;
  }
  QTimer* timer() { return find<QTimer>("Timer1"); }
  void tick() { QMetaObject::invokeMethod(timer(), "timeout"); }
  // The four statistics; one that does not stand whole on the screen is left out.
  QStringList statistics() {
    QStringList all;
    for (const char* name : {"lbPillAtlag", "lbDatum", "lbKm", "lb_ft_km"}) {
      auto* const shown = find<QLabel>(name);
      if (shown->visibleRegion().boundingRect() == shown->rect()) all << shown->text();
    }
    return all;
  }
  // What printing under a heading puts on paper. There is no printer here, so the pages are saved.
  QString printed(const QString& heading) {
    BoxScript boxes({QMessageBox::Yes});
    const QString file = QString::fromStdString(folder / "lista.pdf");
    onNextDialog<QInputDialog>([&](QInputDialog& question) {
      takeFileInNextDialog(file);
      typeInto(*question.findChild<QLineEdit*>(), heading);
      question.accept();
    });
    pick("mnuPrint");
    return textOfPdf(file);
  }
  void recordFuelling(const QString& km, const QString& litres) {
    type("txKmOra", km);
    type("txTankoltLiter", litres);
    BoxScript boxes({QMessageBox::Yes});
    press("cmd_rogzit");
  }
};

QString cell(const QWidget& screen, const char* list, int row, int column) {
  return part<ui::ListView>(screen, list)->model()->index(row, column).data().toString();
}

}  // namespace

class BetweenScreensTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    qputenv("CUPS_SERVER", "/nonexistent/cups.sock");  // no test reaches the machine's printers
  }

  void aCarAddedInTheSettingsIsInTheSelectorAndTakesEntries() {
    Household main;
    main.open();
    main.visitFromMenu<ui::frmSetup>("mnuSetup", [](ui::frmSetup& setup) {
      typeInto(*part<QLineEdit>(setup, "txRendszam"), "NEW001");
      typeInto(*part<QLineEdit>(setup, "txTank"), "45");
      press(*part<QPushButton>(setup, "cmdRendszamFelvesz"));
      press(*part<QPushButton>(setup, "cmdVissza"));
    });
    QCOMPARE(main.plates(), (QStringList{"ABC123  ", "XYZ789  ", "NEW001  "}));
    QCOMPARE(main.combo("Combo1")->currentText(), QString("ABC123    "));
    choose(*main.combo("Combo1"), 2);
    main.press("cmdSzürés");
    QCOMPARE(main.rows(), 0);
    main.recordFuelling("100", "40");
    QCOMPARE(main.row(0), QString("2026.11.21.|100|40,00|0|||||Tankolás|1"));
    QCOMPARE(main.folder.read("NEW001/napiadat.dat").size(), std::size_t{156});
  }

  void aTyreSetRecordedInItsRegisterRunsAlongWithTheNextFuelling() {
    Household main;
    main.open();
    main.visitFromMenu<ui::frmGumik>("mnuGumik", [](ui::frmGumik& tyres) {
      QCOMPARE(part<QComboBox>(tyres, "cmbRendszam")->currentText(), QString("ABC123"));
      QCOMPARE(part<QComboBox>(tyres, "cmbRendszam")->itemText(1), QString("XYZ789"));
      typeInto(*part<QLineEdit>(tyres, "txtGumiTipusa"), "Barum");
      typeInto(*part<QLineEdit>(tyres, "txtGumiMaxKm"), "40000");
      press(*part<QRadioButton>(tyres, "opGumiEvszak_1"));
      press(*part<QCheckBox>(tyres, "chkGumiFentVan"));
      press(*part<QPushButton>(tyres, "cmdGumiRogzites"));
      pick(*tyres.findChild<QMenuBar*>(), "mnuBezar");
      QVERIFY(!tyres.isVisible());
    });
    main.recordFuelling("11400", "30");
    QStringList row;
    main.visitFromMenu<ui::frmGumik>("mnuGumik", [&](ui::frmGumik& tyres) {
      for (int column = 1; column < 5; ++column) row << cell(tyres, "ListViewGumi", 0, column);
    });
    QCOMPARE(row, (QStringList{"Barum", "Nyári", "400", "99%-os"}));
  }

  void aRepairRecordedInItsLogIsThereTheNextTime() {
    Household main;
    main.open();
    main.visitFromMenu<ui::frmSzerviz>("mnuSzerviz", [](ui::frmSzerviz& log) {
      QCOMPARE(part<QComboBox>(log, "cmbRendszam2")->currentText(), QString("ABC123"));
      QCOMPARE(part<QComboBox>(log, "cmbRendszam2")->itemText(1), QString("XYZ789"));
      typeInto(*part<QLineEdit>(log, "txtSzervizMegnev"), "Fékjavítás");
      typeInto(*part<QLineEdit>(log, "txtSzervizKoltseg"), "45000");
      press(*part<QPushButton>(log, "cmdRogzitSzerviz"));
      pick(*log.findChild<QMenuBar*>(), "mnuBezar");
      QVERIFY(!log.isVisible());
    });
    main.visitFromMenu<ui::frmSzerviz>("mnuSzerviz", [](ui::frmSzerviz& log) {
      QCOMPARE(cell(log, "ListViewSzerviz", 0, 2), QString("Fékjavítás"));
      QCOMPARE(part<QLabel>(log, "lbKoltseg")->text(), QString("45 000"));
    });
  }

  void aFuellingPastAReminderRaisesItsAlertUntilItIsDeleted() {
    Household main;
    main.open();
    main.visit<ui::figy>([&] { main.press("cmd_figyel"); },
                         [](ui::figy& reminders) {
                           typeInto(*part<QLineEdit>(reminders, "tx_km_allas"), "11000");
                           typeInto(*part<QLineEdit>(reminders, "tx_km_mulva"), "300");
                           typeInto(*part<QLineEdit>(reminders, "tx_szoveg"), "Olajcsere");
                           BoxScript boxes({QMessageBox::Yes});
                           press(*part<QPushButton>(reminders, "cmd_rogzit"));
                           pick(*reminders.findChild<QMenuBar*>(), "mnu_bezar");
                           QVERIFY(!reminders.isVisible());
                         });
    main.tick();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    main.recordFuelling("11301", "15");
    main.visit<ui::riaszt>([&] { main.tick(); },
                           [](ui::riaszt& alert) {
                             QVERIFY(part<QLineEdit>(alert, "tx_szoveg")->text().startsWith("Olajcsere"));
                             QCOMPARE(part<QLineEdit>(alert, "tx_tullepve")->text(), QString("1"));
                             QCOMPARE(part<QLineEdit>(alert, "tx_utolso_km")->text(), QString("11 301"));
                             press(*part<QPushButton>(alert, "cmd_torles"));
                             pick(*alert.findChild<QMenuBar*>(), "mnu_bezar");
                             QVERIFY(!alert.isVisible());
                           });
    QVERIFY(main.timer()->isActive());
    main.tick();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
  }

  void aDateReminderIsAnnouncedAtTheNextStart() {
    Household main;
    main.open();
    main.visit<ui::figy>([&] { main.press("cmd_figyel"); },
                         [](ui::figy& reminders) {
                           openPage(*part<QTabWidget>(reminders, "SSTab1"), 1);
                           typeInto(*part<QDateEdit>(reminders, "DTPMikor"), QDate(2026, 12, 5));
                           typeInto(*part<QLineEdit>(reminders, "txtMire"), "Műszaki vizsga");
                           BoxScript boxes({QMessageBox::Yes});
                           press(*part<QPushButton>(reminders, "cmdRogzit2"));
                           QCOMPARE(
                               boxes.seen.value(0).text,
                               QString("Biztos JÓK az adatok ?\nMehet a rögzítés ABC123     gépkocsira?"));
                         });
    main.visit<ui::frmDatumFigyelmeztetes>(
        [&] { main.open(); },
        [](ui::frmDatumFigyelmeztetes& alert) {
          QCOMPARE(cell(alert, "ListView1", 0, 0), QString("2026.12.05."));
          QCOMPARE(cell(alert, "ListView1", 0, 1).trimmed(), QString("Műszaki vizsga"));
          QCOMPARE(cell(alert, "ListView1", 0, 2).trimmed(), QString("ABC123"));
        });
  }

  void whatIsListedIsPrintedWithItsTotals() {
    Household main;
    main.open();
    main.press("cmd_lista");
    main.press("opSzürö_2");
    main.type("DTPSzürö", QDate(2024, 1, 15));
    main.press("cmdSzürés");
    QCOMPARE(main.printed("Januári lista"),
             QString("Januári lista "
                     "Dátum Km. óra Tankolás Olajcsere L. szűrő Gyertya Alkatrész Megjegyzés "
                     "2024.01.01. 9000 30,00 Tankolás 2024.01.02. 10000 40,00 Tankolás "
                     "2024.01.12. 10500 35,00 Tankolás 2024.01.22. 11000 30,00 Tankolás "
                     "Kilométer összesen: -2 000 km. Tankolás összesen: 135,00 liter"));
  }

  void theListedCarIsPrintedWhateverCarIsChosenMeanwhile() {
    Household main;
    main.open();
    const QString listed = main.printed("Napló");
    main.type("Combo1", "XYZ789");
    QCOMPARE(main.printed("Napló"), listed);
    QVERIFY(listed.contains("2024.01.22. 11000 30,00"));
  }

  void theChartButtonShowsTheChosenChartOverTheListAndHidesItAgain() {
    Household main;
    main.open();
    main.showChart("Option2");
    auto* const chart = main.find<QWidget>("MSChart1");
    QVERIFY(isInReach(*chart));
    QVERIFY(main.list()->visibleRegion().isEmpty());
    QCOMPARE(chart->property("titleText").toString(), QString("Üzemanyag árak"));
    QCOMPARE(chart->property("unitText").toString(), QString("Ft/liter"));
    QCOMPARE(chart->property("rowValues").toStringList(), (QStringList{"400", "412,5"}));
    QCOMPARE(main.find<QPushButton>("cmdGrafikon")->text(), QString("&Grafikon elrejtése"));
    main.press("cmdGrafikon");
    QVERIFY(!chart->isVisible());
    QVERIFY(isInReach(*main.list()));
  }

  void theFourStatisticsOfAnEntryStandOnTheScreen() {
    Household main;
    main.open();
    main.clickRow(2);
    // 5 l/100 km on average and 50 km a day: a tank of 50 litres lasts 1000 km or 20 days.
    QCOMPARE(main.edit("tx_fogyaszt")->text(), QString("5,25 Liter/100Km"));
    QCOMPARE(main.statistics(), (QStringList{"7,00", "2024.02.01.", "1000", "20, Ft/Km"}));
  }

  void theLastEntrysKilometresCountFromToday() {
    Household main;
    main.open();
    main.clickRow(3);
    // 11 February 2024 lies 1014 days before today.
    QCOMPARE(main.statistics(), (QStringList{"6,00", "2024.02.11.", "-50700", "20,63 Ft/Km"}));
  }
};

TARVIK_SCREEN_TEST(BetweenScreensTest)
#include "between_screens_test.moc"
