#include "ui/main/logbook_pane.h"

#include <QAccessible>
#include <QDateEdit>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <filesystem>

#include "core/failure.h"
#include "tests/core/entries.h"
#include "tests/reminders/builders.h"
#include "tests/ui/reminder_desk.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

using Entries = std::vector<core::NapiAdat>;

Entries twoFills() {
  return {test::fuelling({2013, 7, 1}, 10'000, 405'000, true),
          test::fuelling({2013, 7, 11}, 10'400, 300'000, true)};
}

struct Pane : test::Desk {
  Pane() {
    for (const char* plate : {"ABC123", "XYZ789"}) program.makeFolder(plate);
    write("ABC123", twoFills());
    part.load();
    part.show();
  }
  void write(const std::string& plate, const Entries& entries) {
    std::string bytes;
    for (const core::NapiAdat& entry : entries) bytes += test::toText(core::encoded(entry));
    program.write(plate + "/napiadat.dat", bytes);
  }
  void list(const QString& plate) {
    part.setPlate(plate, true);
    part.beolvas();
  }
  ListView& view() { return *test::part<ListView>(part, "ListView1"); }
  QString line() { return test::part<QLabel>(part, "lbNaplo")->text(); }
  QString hint() { return view().viewport()->findChild<QLabel*>()->text(); }
  QString total(const char* name) { return test::part<QLineEdit>(part, name)->text(); }

  LogbookPane part{context, nullptr};
};

}  // namespace

class LogbookPaneTest : public QObject {
  Q_OBJECT

 private slots:
  void listsTheVehicleThatIsSet() {
    Pane pane;
    pane.list("ABC123    ");
    QCOMPARE(pane.part.listed().plate, std::string("ABC123"));
    QVERIFY(pane.part.listed().isRead);
    QCOMPARE(pane.part.listed().listing.rows(), 2);
    QCOMPARE(pane.line(), QString("ABC123 naplója – teljes lista, 2 bejegyzés"));
    pane.part.setPlate("XYZ789", true);
    QCOMPARE(pane.part.listed().plate, std::string("ABC123"));
    QCOMPARE(pane.line(), QString("A lista ABC123 naplója – a módosítás és a törlés viszont ezé: XYZ789"));
  }

  void aRowThatIsChosenIsHandedOnAndAListingLetsGoOfIt() {
    Pane pane;
    pane.list("ABC123");
    std::string km;
    connect(&pane.part, &LogbookPane::entryChosen, this,
            [&](const core::ShownEntry& entry) { km = entry.input.kmOra; });
    const QSignalSpy choices(&pane.part, &LogbookPane::choiceChanged);
    test::clickRow(pane.view(), 1);
    QCOMPARE(km, std::string("10400"));
    QCOMPARE(pane.part.listed().selected, std::int16_t{2});
    pane.part.relistInPlace();
    QCOMPARE(pane.part.listed().selected, std::int16_t{0});
    QCOMPARE(choices, (QList<QVariantList>{{true}, {false}}));
  }

  void theFilterShowsWhatCountsOfThePickedDay() {
    Pane pane;
    auto& field = *test::part<QDateEdit>(pane.part, "DTPSzürö");
    const auto choose = [&](const char* mode) { test::part<QRadioButton>(pane.part, mode)->click(); };
    pane.list("ABC123");
    pane.part.toggleFilter();
    choose("opSzürö_1");
    QCOMPARE(field.text(), QString("2013"));
    choose("opSzürö_2");
    QCOMPARE(field.text(), QString("2013. július"));
    QCOMPARE(field.date(), QDate(2013, 7, 5));
    choose("opSzürö_0");
    QVERIFY(field.isHidden());
  }

  void aTypedYearOrMonthIsListed() {
    const auto rows = [](const char* mode, const char* typed) {
      Pane pane;
      pane.write("ABC123", {test::fuelling({2012, 2, 29}, 9'000, 405'000, true),
                            test::fuelling({2012, 6, 1}, 9'500, 405'000, true),
                            test::fuelling({2013, 6, 30}, 10'000, 405'000, true)});
      pane.list("ABC123");
      pane.part.toggleFilter();
      test::part<QRadioButton>(pane.part, mode)->click();
      auto& field = *test::part<QDateEdit>(pane.part, "DTPSzürö");
      field.setFocus(Qt::TabFocusReason);
      test::typeKeys(field, QString::fromUtf8(typed));
      test::press(*test::part<QPushButton>(pane.part, "cmdSzürés"));
      return pane.view().model()->rowCount();
    };
    QCOMPARE(rows("opSzürö_1", "2012"), 2);
    QCOMPARE(rows("opSzürö_1", "2012.06"), 2);
    QCOMPARE(rows("opSzürö_1", "12"), 1);
    QCOMPARE(rows("opSzürö_2", "2012.06"), 1);
    QCOMPARE(rows("opSzürö_2", "2012 június"), 1);
    QCOMPARE(rows("opSzürö_2", "2012. 2."), 1);
    QCOMPARE(rows("opSzürö_2", "2012.06.15."), 1);
    QCOMPARE(rows("opSzürö_2", "2013"), 0);
  }

  void theSeenEntryIsTheListedOneHoweverItsPlateIsPadded() {
    Pane pane;
    pane.list("ABC123    ");
    test::clickRow(pane.view(), 0);
    for (const char* plate : {"ABC123    ", "ABC123  ", "ABC123", " ABC123"}) {
      pane.part.setPlate(plate, true);
      pane.write("ABC123", {test::fuelling({2013, 7, 11}, 10'400, 300'000, true)});
      QVERIFY(pane.part.seenEntry().bytes == core::encoded(twoFills()[0]));
    }
  }

  void anotherVehiclesSeenEntryIsTheOneInItsFile() {
    Pane pane;
    pane.list("ABC123");
    test::clickRow(pane.view(), 0);
    const core::NapiAdat other = test::fuelling({2013, 7, 2}, 77, 1, true);
    pane.write("XYZ789", {other});
    pane.part.setPlate("XYZ789", true);
    QCOMPARE(pane.part.seenEntry().number, 1);
    QVERIFY(pane.part.seenEntry().bytes == core::encoded(other));
  }

  void aFolderThatIsNotThereIsSaidToBeUnreadableAndLeavesTheCostsBack() {
    Pane pane;
    pane.list("ABC123");
    std::filesystem::remove_all(pane.program / "XYZ789");
    pane.list("XYZ789");
    QVERIFY(!pane.part.listed().isRead);
    QCOMPARE(pane.line(), QString("XYZ789 naplója nem olvasható"));
    QVERIFY(pane.hint().startsWith("XYZ789 naplója nem olvasható."));
    QCOMPARE(pane.total("tx_megtett_km"), QString());
    const auto* costs = test::part<QLineEdit>(pane.part, "tx_teljes_ktg");
    QCOMPARE(costs->text(), QString(" Ft."));
    QCOMPARE(costs->accessibleDescription(), QString("Egy korábbi lista adata"));
  }

  void aLogbookThatFailsToBeReadLeavesNoTotalsOfAnother() {
    Pane pane;
    pane.list("ABC123");
    pane.program.makeFolder("XYZ789/napiadat.dat");  // a folder in the file's place
    QVERIFY_EXCEPTION_THROWN(pane.list("XYZ789"), core::Failure);
    for (const char* name :
         {"tx_teljes_ktg", "ob_ktg", "txAlkatreszKoltseg", "tx_megtett_km", "tx_liter", "tx_fogyaszt"})
      QCOMPARE(pane.total(name), QString());
    QCOMPARE(pane.line(), QString("XYZ789 naplója nem olvasható"));
  }

  void anEmptyLogbookIsStillSaidToBeEmpty() {
    Pane pane;
    pane.list("XYZ789");
    QVERIFY(pane.hint().startsWith("XYZ789 naplója még üres."));
    QCOMPARE(pane.line(), QString("XYZ789 naplója – teljes lista, 0 bejegyzés"));
  }

  void eachListingIsToldWhenTheTotalsStandAndAFailedOneToo() {
    Pane pane;
    QStringList told;
    connect(&pane.part, &LogbookPane::listedAnew, this, [&] { told << pane.total("tx_liter"); });
    pane.list("ABC123");
    pane.program.makeFolder("XYZ789/napiadat.dat");
    QVERIFY_EXCEPTION_THROWN(pane.list("XYZ789"), core::Failure);
    QCOMPARE(told, QStringList({"70,5 Liter", ""}));
  }

  void aPanelOverTheListTakesItsPlaceAndTheKeyboard() {
    Pane pane;
    QLineEdit panel;
    panel.hide();
    pane.part.layOver(panel);
    pane.list("ABC123");
    pane.part.takeKeyboard();
    QCOMPARE(pane.part.focusWidget(), &pane.view());
    QVERIFY(pane.part.hasKeyboard());
    panel.show();
    QVERIFY(pane.view().isHidden());
    QVERIFY(QAccessible::queryAccessibleInterface(&pane.view())->state().invisible);
    pane.part.takeKeyboard();
    QCOMPARE(pane.part.focusWidget(), &panel);
    QVERIFY(pane.part.hasKeyboard());
    panel.hide();
    QVERIFY(pane.view().isVisible());
    panel.setParent(nullptr);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::LogbookPaneTest)
#include "logbook_pane_test.moc"
