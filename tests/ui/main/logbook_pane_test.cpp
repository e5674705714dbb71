#include "ui/main/logbook_pane.h"

#include <QAccessible>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>

#include "core/failure.h"
#include "tests/core/entries.h"
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
    program.makeFolder("XYZ789");
    writeLogbook("ABC123", twoFills());
    part.load();
    part.show();
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
    const auto* caption = test::part<QLabel>(pane.part, "Label4");
    QVERIFY(caption->isHidden());
    choose("opSzürö_1");
    QVERIFY(caption->isVisible());
    QCOMPARE(field.text(), QString("2013"));
    choose("opSzürö_2");
    QCOMPARE(field.text(), QString("2013. július"));
    QCOMPARE(field.date(), QDate(2013, 7, 5));
    choose("opSzürö_0");
    QVERIFY(field.isHidden() && caption->isHidden());
  }

  void theSeenEntryIsTheListedOneHoweverItsPlateIsPadded() {
    Pane pane;
    pane.list("ABC123    ");
    test::clickRow(pane.view(), 0);
    for (const char* plate : {"ABC123    ", "ABC123  ", "ABC123", " ABC123"}) {
      pane.part.setPlate(plate, true);
      pane.writeLogbook("ABC123", {test::fuelling({2013, 7, 11}, 10'400, 300'000, true)});
      QVERIFY(pane.part.seenEntry().bytes == core::encoded(twoFills()[0]));
    }
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
