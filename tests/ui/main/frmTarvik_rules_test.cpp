#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

// Two entries of 2024 and one of 2023.
std::vector<core::NapiAdat> threeEntries() {
  return {fuelling({2023, 5, 1}, 9'000, 300'000, true, 15'000),
          fuelling({2024, 1, 1}, 10'000, 400'000, true, 20'000),
          fuelling({2024, 2, 1}, 10'500, 350'000, true, 17'500)};
}

}  // namespace

// Rules of the main screen that show only when two of its parts meet.
class FrmTarvikRulesTest : public QObject {
  Q_OBJECT

 private slots:
  // The list is ABC123's all the while: the entry of that number in the other logbook is meant.
  void aModificationGoesToTheLogbookOfTheChosenPlate() {
    ListedCar main(threeEntries());
    main.writeLogbook("XYZ789",
                      {fuelling({2024, 5, 1}, 70000, 0, false), fuelling({2024, 5, 2}, 71000, 0, false)});
    const std::string own = main.folder.read("ABC123/napiadat.dat");
    main.clickRow(0);
    main.type("txKmOra", "70500");
    main.type("Combo1", "XYZ789");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_modosit");
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(main.stored("XYZ789", 1).KmOra, 70500);
    QCOMPARE(main.stored("XYZ789", 2).KmOra, 71000);
    QVERIFY(main.folder.read("ABC123/napiadat.dat") == own);
  }

  void anEntryWithoutLitresKeepsThePriceThatWasShown() {
    ListedCar main(threeEntries());
    main.type("txKmOra", "20000");
    main.type("txTankoltLiter", "40");
    main.type("txTankoltKtg", "16000");
    QCOMPARE(main.label("lbFtperLiter"), QString("400,00"));
    main.edit("txTankoltLiter")->clear();
    main.edit("txTankoltKtg")->clear();
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    const core::NapiAdat entry = main.stored("ABC123", 4);
    QCOMPARE(entry.TankoltLiter.tenThousandths, 0);
    QCOMPARE(entry.FtPerLiter.tenThousandths, 4'000'000);
  }

  void leavingTheCostUneditedWorksThePriceOut() {
    std::vector<core::NapiAdat> entries = threeEntries();
    entries[0].FtPerLiter = {1'234'567};
    ListedCar main(entries);
    main.clickRow(0);
    QCOMPARE(main.label("lbFtperLiter"), QString("123,4567"));
    main.edit("txTankoltLiter")->setFocus();
    main.edit("txKmOra")->setFocus();
    QCOMPARE(main.label("lbFtperLiter"), QString("123,4567"));
    main.edit("txTankoltKtg")->setFocus();
    main.edit("txKmOra")->setFocus();
    QCOMPARE(main.label("lbFtperLiter"), QString("500,00"));
  }

  void theDropDownsTakeWhatIsTypedAndCompleteNothing() {
    ListedCar main(threeEntries());
    for (const char* name : {"Combo1", "txAlkatresz", "txMegjegyzes"}) {
      QComboBox* const field = main.combo(name);
      QVERIFY2(field->completer() == nullptr, name);
      field->addItem("Olajszűrő");
      main.type(name, "Olaj");
      QCOMPARE(field->currentText(), QString("Olaj"));
    }
  }

  void anOptionOfTheFilterCountsForLaterListingsWithoutItsButton() {
    ListedCar main(threeEntries());
    main.press("cmd_lista");
    main.press("opSzürö_1");
    main.type("DTPSzürö", QDate(2024, 6, 1));
    QCOMPARE(main.rows(), 3);
    main.clickRow(2);
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_modosit");
    QCOMPARE(main.rows(), 2);
    QCOMPARE(main.cell(0, 1), QString("10000"));
  }

  void aBlankPlateStopsAModificationAndADeletion() {
    ListedCar main(threeEntries());
    const std::string before = main.folder.read("ABC123/napiadat.dat");
    main.clickRow(1);
    main.type("Combo1", "  ");
    for (const char* button : {"cmd_modosit", "cmd_del"}) {
      main.edit("txKmOra")->setFocus();
      BoxScript boxes;
      main.press(button);
      QVERIFY2(boxes.seen.value(0).text.startsWith("Nincs megadva rendszám!"), button);
      QCOMPARE(main.screen->focusWidget(), main.combo("Combo1"));
      QCOMPARE(main.folder.read("ABC123/napiadat.dat"), before);
    }
  }

  void aQuickAddAnsweredNoAtTheFirstQuestionAsksAndAddsNothing() {
    MainScreen main;
    for (const char* file : {"alkatr.dat", "megjegyz.dat"}) main.folder.write(file, padded("Olajsz", 50));
    main.open();
    for (const auto& [button, field] :
         {std::pair("cmdAlkatresz", "txAlkatresz"), std::pair("cmdMegjegyzes", "txMegjegyzes")}) {
      main.type(field, "olajsz");
      BoxScript boxes({QMessageBox::No});
      main.press(button);
      QCOMPARE(boxes.seen.size(), 1);
      for (const char* file : {"alkatr.dat", "megjegyz.dat"})
        QVERIFY2(main.folder.read(file).size() == 50, button);
      QCOMPARE(main.combo(field)->currentText().toLower(), QString("olajsz"));
    }
  }

  void aModificationLeavesTheDayOfAnEntry() {
    for (const int year : {100, 1600, 1752, 9999}) {
      std::vector<core::NapiAdat> entries = threeEntries();
      entries[1].Datum = core::toStored(core::dayOf({year, 9, 13}));
      ListedCar main(entries);
      main.clickRow(1);
      QCOMPARE(main.find<QDateEdit>("DTPicker1")->date(), QDate(year, 9, 13));
      BoxScript boxes({QMessageBox::Yes});
      main.press("cmd_modosit");
      QVERIFY2(main.stored("ABC123", 2).Datum == entries[1].Datum, qPrintable(QString::number(year)));
    }
  }

  void afterAModificationTheListKeepsItsPlaceAndNothingIsChosen() {
    std::vector<core::NapiAdat> entries;
    for (int i = 1; i <= 80; ++i) entries.push_back(fuelling({2024, 1, 1}, 1'000 * i, 100'000, true));
    ListedCar main(entries);
    main.clickRow(50);
    const int scrolled = main.list()->verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_modosit");
    QCOMPARE(main.list()->verticalScrollBar()->value(), scrolled);
    QCOMPARE(main.list()->currentIndex().row(), 50);
    QVERIFY(!main.list()->selectionModel()->hasSelection());
    main.list()->setFocus();
    QVERIFY(!main.find<QPushButton>("cmd_del")->isEnabled());
    QTest::keyClick(main.list(), Qt::Key_Down);
    QCOMPARE(main.edit("txKmOra")->text(), QString("52000"));
  }

  void aRecordingMakesTheTyreFileEvenWithoutADistance() {
    ListedCar main({});
    main.type("txKmOra", "1000");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    QVERIFY(main.folder.has("Gumik.dat"));
    QCOMPARE(main.folder.read("Gumik.dat"), std::string());
  }
};

TARVIK_SCREEN_TEST(FrmTarvikRulesTest)
#include "frmTarvik_rules_test.moc"
