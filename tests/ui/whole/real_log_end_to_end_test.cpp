#include "tests/support/reference_logbook.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

const SeenBox kRecordQuestion = questionBox(" Rögzítés az adatállományban !",
                                            "Biztos JÓK az adatok ?\nMehet a rögzítés ?", QMessageBox::Yes);

// A figure as a person types it: with a decimal comma.
QString asTyped(const std::string& litres) {
  return QString::fromStdString(litres).replace(QLatin1Char('.'), QLatin1Char(','));
}

// Enters a fill-up through the window's fields, presses the button and answers its question.
void enter(MainScreen& main, const FillUp& fill) {
  main.screen->activateWindow();  // the question took the front
  QVERIFY(QTest::qWaitForWindowActive(main.screen.get()));
  main.type("DTPicker1", QDate(fill.date.year, fill.date.month, fill.date.day));
  main.type("txKmOra", QString::number(fill.km));
  main.type("txTankoltLiter", asTyped(fill.litres));
  main.type("txTankoltKtg", QString::number(fill.costFt));
  if (main.box("ChkTeletank")->isChecked() != fill.full)
    QTest::keyClick(main.box("ChkTeletank"), Qt::Key_Space);
  main.combo("txMegjegyzes")->setFocus(Qt::TabFocusReason);  // which fills the cleared field in
  QCOMPARE(main.combo("txMegjegyzes")->currentText(), QString("Tankolás"));
  BoxScript boxes({QMessageBox::Yes});
  auto* const button = main.find<QPushButton>("cmd_rogzit");
  button->setFocus(Qt::TabFocusReason);
  QTest::keyClick(button, Qt::Key_Space);
  QCOMPARE(boxes.seen, (QList{kRecordQuestion}));
}

// The first entry in which two logbooks differ, as bytes to read; equal ones give two equal texts.
QByteArray firstDifference(const std::string& file, const std::string& other) {
  constexpr std::size_t kLength = 156;
  std::size_t entry = 0;
  while ((entry + 1) * kLength < file.size() &&
         file.compare(entry * kLength, kLength, other, std::min(entry * kLength, other.size()), kLength) == 0)
    ++entry;
  const std::string bytes = file.substr(std::min(entry * kLength, file.size()), kLength);
  return QByteArray::number(static_cast<qulonglong>(entry + 1)) + ": " +
         QByteArray::fromStdString(bytes).toHex(' ');
}

}  // namespace

class RealLogEndToEndTest : public QObject {
  Q_OBJECT

 private slots:
  void theWholeLogTypedIntoTheWindowGivesTheFileByteForByte() {
    const std::vector<FillUp> fillUps = readFuelLog(TARVIK_TEST_DATA "/fuel_log_estate.csv");
    QCOMPARE(fillUps.size(), std::size_t{78});
    MainScreen main;
    main.writeLogbook("ABC123", {});
    main.choosePlateAtStart("ABC123", false);
    main.open();
    int rows = 0;
    for (const FillUp& fill : fillUps) {
      enter(main, fill);
      QCOMPARE(main.rows(), ++rows);
    }

    const std::string file = main.folder.read("ABC123/napiadat.dat");
    const std::string expected = referenceLogbook(fillUps);
    QCOMPARE(firstDifference(file, expected), firstDifference(expected, file));
    QVERIFY(file == expected);
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
