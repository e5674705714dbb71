#include <QFile>

#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

struct FillUp {
  QDate date;
  QString km;
  QString litres;  // as a person types them: with a decimal comma
  QString cost;
  bool full;
};

// The lines of a fuel log under their heads: date,odometer_km,litres,cost_ft,full.
QList<FillUp> readFuelLog(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) qFatal("no fuel log");
  file.readLine();
  QList<FillUp> fillUps;
  while (!file.atEnd()) {
    const QStringList cells = QString::fromUtf8(file.readLine().trimmed()).split(',');
    fillUps.append({QDate::fromString(cells[0], Qt::ISODate), cells[1], QString(cells[2]).replace('.', ','),
                    cells[3], cells[4] == "1"});
  }
  return fillUps;
}

// Enters a fill-up through the window's fields, presses the button and answers its question.
void enter(MainScreen& main, const FillUp& fill) {
  main.screen->activateWindow();  // the question took the front
  QVERIFY(QTest::qWaitForWindowActive(main.screen.get()));
  main.type("DTPicker1", fill.date);
  main.type("txKmOra", fill.km);
  main.type("txTankoltLiter", fill.litres);
  main.type("txTankoltKtg", fill.cost);
  if (main.box("ChkTeletank")->isChecked() != fill.full)
    QTest::keyClick(main.box("ChkTeletank"), Qt::Key_Space);
  main.combo("txMegjegyzes")->setFocus(Qt::TabFocusReason);  // which fills the cleared field in
  QCOMPARE(main.combo("txMegjegyzes")->currentText(), QString("Tankolás"));
  BoxScript boxes({QMessageBox::Yes});
  auto* const button = main.find<QPushButton>("cmd_rogzit");
  button->setFocus(Qt::TabFocusReason);
  QTest::keyClick(button, Qt::Key_Space);
  QCOMPARE(boxes.seen.size(), 1);
}

}  // namespace

class RealLogEndToEndTest : public QObject {
  Q_OBJECT

 private slots:
  void theWholeLogTypedIntoTheWindowIsStoredAndSummedUp() {
    MainScreen main;
    main.writeLogbook("ABC123", {});
    main.choosePlateAtStart("ABC123", false);
    main.open();
    int rows = 0;
    for (const FillUp& fill : readFuelLog(TARVIK_TEST_DATA "/fuel_log_estate.csv")) {
      enter(main, fill);
      QCOMPARE(main.rows(), ++rows);
    }
    QCOMPARE(rows, 78);

    const auto consumption = [&](int number) {
      return main.stored("ABC123", number).Fogyasztas.tenThousandths;
    };
    QCOMPARE(consumption(2), 0);       // entry 1 is never the reference
    QCOMPARE(consumption(3), 54'800);  // 46.4 litres on 846 km: 5.485
    QCOMPARE(main.stored("ABC123", 3).FtPerLiter.tenThousandths, 4'831'900);  // 22,420 Ft for 46.4 litres
    QCOMPARE(consumption(52), 0);       // 48.96 litres on 19,636 km, after two years: below 1
    QCOMPARE(consumption(55), 10'100);  // 10 litres on 987 km, not full: 1.013
    QCOMPARE(consumption(56), 51'400);  // those and 53.67 on 1,238 km: 5.143
    QCOMPARE(consumption(71), 57'100);  // two on one day, 9.65 and 15.57 litres on 442 km: 5.706
    QCOMPARE(main.row(0), QString("2019.10.19.|205400|51,29|0|||||Tankolás|1"));
    QCOMPARE(main.row(77), QString("2026.03.22.|279889|39,92|627|||||Tankolás|78"));

    // 3,312.28 litres, of which 51.29 count as 51 in the average, on 74,489 km.
    QCOMPARE(main.edit("tx_teljes_ktg")->text(), QString("1 712 107 Ft."));
    QCOMPARE(main.edit("tx_liter")->text(), QString("3 312,28 Liter"));
    QCOMPARE(main.edit("tx_megtett_km")->text(), QString("74 489 Km."));
    QCOMPARE(main.edit("tx_fogyaszt")->text(), QString("4,38 Liter/100Km"));
  }
};

TARVIK_SCREEN_TEST(RealLogEndToEndTest)
#include "real_log_end_to_end_test.moc"
