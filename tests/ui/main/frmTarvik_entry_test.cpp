#include <QClipboard>

#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/list_delegate.h"

using namespace tarvik;
using namespace tarvik::test;

class FrmTarvikEntryTest : public QObject {
  Q_OBJECT

 private slots:
  void aRecordingWithoutKmOrPlatePutsTheKeyboardThere() {
    MainScreen main;
    main.open();
    BoxScript boxes;
    main.type("Combo1", "   ");
    main.press("cmd_rogzit");
    QVERIFY(boxes.seen.value(0).text.startsWith("Nincs beírva kilométer óra állás!"));
    QCOMPARE(main.screen->focusWidget(), main.edit("txKmOra"));
    main.type("txKmOra", "1000");
    main.press("cmd_rogzit");
    QVERIFY(boxes.seen.value(1).text.startsWith("Nincs megadva rendszám!"));
    QCOMPARE(main.screen->focusWidget(), main.combo("Combo1"));
  }

  void answeringNoRecordsNothing() {
    ListedCar main({});
    main.type("txKmOra", "1000");
    BoxScript boxes({QMessageBox::No});
    main.press("cmd_rogzit");
    QCOMPARE(main.folder.read("ABC123/napiadat.dat"), std::string());
    QCOMPARE(main.edit("txKmOra")->text(), QString("1000"));
  }

  void afterRecordingTheFieldsAreClearedAndTheTankIsFullAgain() {
    ListedCar main({});
    main.type("txKmOra", "10000");
    main.type("txAlkatreszKtg", "500");
    main.type("txAlkatresz", "Olajszűrő");
    main.press("ChkOlajcsere");
    main.type("DTPicker1", QDate(2024, 2, 29));
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    for (const char* name : {"txKmOra", "txTankoltLiter", "txTankoltKtg", "txAlkatreszKtg"})
      QCOMPARE(main.edit(name)->text(), QString());
    QCOMPARE(main.edit("txMegjKtg")->text(), QString("0"));  // kept, with its default
    QCOMPARE(main.combo("txAlkatresz")->currentText(), QString());
    QCOMPARE(main.combo("txMegjegyzes")->currentText(), QString());
    QVERIFY(!main.box("ChkOlajcsere")->isChecked());
    QVERIFY(main.box("ChkTeletank")->isChecked());
    QCOMPARE(main.find<QDateEdit>("DTPicker1")->date(), QDate(2024, 2, 29));
    QVERIFY(!main.find<QPushButton>("cmd_del")->isEnabled());
    QVERIFY(!main.find<QPushButton>("cmd_modosit")->isEnabled());
    QCOMPARE(main.cell(0, 0), QString("2024.02.29."));
  }

  void consumptionRunsSinceTheLastFullFillAndTheFittedTyresRunAlong() {
    MainScreen main;
    main.writeLogbook(
        "ABC123", {fuelling({2024, 1, 1}, 9000, 300'000, true), fuelling({2024, 1, 2}, 10000, 400'000, true),
                   fuelling({2024, 1, 3}, 10200, 200'000, false)});
    main.choosePlateAtStart("ABC123");
    const auto tyre = [](const char* plate, char onCar, char run) {
      return padded(plate, 10) + std::string(4, '\0') + std::string(2, '\0') + padded("Gumi", 30) +
             padded("185", 15) + std::string("\x40\x9C\0\0", 4) + std::string{onCar, '\0'} +
             std::string{run, '\0', '\0', '\0'};
    };
    const std::string before =
        tyre("ABC123", 0, 1) + tyre("ABC123", 1, 2) + tyre("ABC123", 1, 3) + tyre("XYZ789", 1, 4);
    main.folder.write("Gumik.dat", before);
    main.open();
    main.type("txKmOra", "10500");
    main.type("txTankoltLiter", "15");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.stored("ABC123", 4).Fogyasztas.tenThousandths, std::int64_t{70'000});
    std::string after = before;
    after[71 * 2 - 4] = '\xF6';  // 2 + 500 = 502
    after[71 * 2 - 3] = '\x01';
    QVERIFY(main.folder.read("Gumik.dat") == after);
  }

  void enterDoesNotRecordAChosenEntryASecondTimeWhereItIsCorrected() {
    ListedCar main(
        {fuelling({2024, 1, 1}, 10'000, 405'000, true), fuelling({2024, 1, 11}, 10'400, 300'000, true)});
    const auto answerOfEnter = [&] {
      BoxScript boxes({QMessageBox::No});
      main.press("cmd_rogzit");
      return boxes.seen[0].enter;
    };
    main.clickRow(1);
    main.type("txTankoltLiter", "33,5");
    QCOMPARE(answerOfEnter(), QMessageBox::No);
    main.type("txKmOra", "10401");
    QCOMPARE(answerOfEnter(), QMessageBox::No);
    main.type("DTPicker1", QDate(2024, 1, 12));
    QCOMPARE(answerOfEnter(), QMessageBox::Yes);
    main.type("txKmOra", "10400");
    QCOMPARE(answerOfEnter(), QMessageBox::No);
    main.screen->beolvas();  // nothing is chosen any more
    QCOMPARE(answerOfEnter(), QMessageBox::Yes);
  }

  void aPastedAmountKeepsItsThousandsAndItsDecimals() {
    ListedCar main({});
    for (const auto& [name, pasted, kept] : {std::tuple("txTankoltKtg", "25.000 Ft", "25000 "),
                                             {"txTankoltLiter", "40.55", "40,55"},
                                             {"txKmOra", "280.500", "280500"}}) {
      QApplication::clipboard()->setText(pasted);
      main.edit(name)->setFocus();
      main.edit(name)->paste();
      QCOMPARE(main.edit(name)->text(), kept);
    }
  }

  // What an entry is about: its fuel, or else its part, or else its note.
  void whatWasDoneIsToldInAWord_data() {
    QTest::addColumn<QString>("litres");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("word");
    QTest::newRow("fuel") << "30"
                          << "Izzó"
                          << "Mosás"
                          << "tankolás";
    QTest::newRow("part") << ""
                          << "Izzó"
                          << "Mosás"
                          << "Izzó";
    QTest::newRow("note") << ""
                          << ""
                          << "Mosás"
                          << "Mosás";
    QTest::newRow("neither") << ""
                             << ""
                             << ""
                             << "bejegyzés";
  }
  void whatWasDoneIsToldInAWord() {
    QFETCH(QString, litres);
    QFETCH(QString, part);
    QFETCH(QString, note);
    QFETCH(QString, word);
    ListedCar main({});
    main.type("txKmOra", "10000");
    main.type("txTankoltLiter", litres);
    main.type("txAlkatresz", part);
    main.type("txMegjegyzes", note);
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.label("lbTortent"), QString("Rögzítve: 2026.11.21. %1 – visszavonás: Ctrl+Z").arg(word));
    QCOMPARE(qobject_cast<ui::ListDelegate*>(main.list()->itemDelegate())->marked(), QString("1"));
    main.clickRow(0);
    main.press("cmd_del");
    QCOMPARE(main.label("lbTortent"), QString("Törölve: 2026.11.21. %1 – visszavonás: Ctrl+Z").arg(word));
    QCOMPARE(main.screen->focusWidget(), main.list());
  }

  void theFieldsAreClearedButForTheNotesCost() {
    ListedCar main({});
    main.type("txKmOra", "10000");
    main.type("txMegjKtg", "800");
    main.screen->MezoDel();
    QCOMPARE(main.edit("txKmOra")->text(), QString());
    QCOMPARE(main.edit("txMegjKtg")->text(), QString("800"));
  }

  void whereATextWasAddedIsTheKeyboardAfterwards() {
    ListedCar main({});
    main.type("txAlkatresz", "Izzó");
    BoxScript boxes({QMessageBox::Yes});
    main.find<QPushButton>("cmdAlkatresz")->setFocus();
    main.press("cmdAlkatresz");
    QCOMPARE(main.screen->focusWidget(), main.combo("txAlkatresz"));
  }

  void aKmThatDoesNotFitIsRefused() {
    ListedCar main({});
    main.type("txKmOra", "3000000000");
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    main.press("cmd_rogzit");
    QCOMPARE(boxes.seen.size(), 2);
    QCOMPARE(boxes.seen[1].text, QString("Túl nagy szám: Km óra állás\n\nSemmi sem változott."));
    QCOMPARE(main.folder.read("ABC123/napiadat.dat"), std::string());
    QCOMPARE(main.edit("txKmOra")->text(), QString("3000000000"));
  }

  void whatIsRefusedGetsTheKeyboardAtRecordingAndAtModifying_data() {
    QTest::addColumn<QString>("button");
    QTest::newRow("recording") << "cmd_rogzit";
    QTest::newRow("modifying") << "cmd_modosit";
  }
  void whatIsRefusedGetsTheKeyboardAtRecordingAndAtModifying() {
    QFETCH(QString, button);
    ListedCar main({fuelling({2024, 1, 1}, 9000, 300'000, true)});
    main.clickRow(0);
    main.type("txMegjKtg", "abc");
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    main.press(qPrintable(button));
    QCOMPARE(boxes.seen.last().text,
             QString("Nem szám van a mezőben: Megjegyzés költsége\n\nSemmi sem változott."));
    QCOMPARE(main.screen->focusWidget(), main.edit("txMegjKtg"));
  }

  void aPlateThatLeavesTheFolderIsRefused() {
    MainScreen main;
    main.open();
    main.type("Combo1", "../x");
    main.type("txKmOra", "100");
    const auto before = main.folder.names();
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    main.press("cmd_rogzit");
    QCOMPARE(boxes.seen.size(), 2);
    QCOMPARE(boxes.seen[1].text,
             QString("Ez a rendszám nem lehet mappa neve:\n../x\n\nSemmi sem változott."));
    QVERIFY(main.folder.names() == before);
  }

  // The settings store a plate in ten characters, the list of vehicles in eight.
  void theSameCarChosenAgainIsStillTheOneThatWasSeen() {
    ListedCar main(
        {fuelling({2024, 1, 1}, 9000, 300'000, true), fuelling({2024, 1, 2}, 10000, 400'000, true)},
        {"ABC123"});
    choose(*main.combo("Combo1"), 0);
    QCOMPARE(main.combo("Combo1")->currentText(), QString("ABC123  "));
    main.clickRow(0);
    main.writeLogbook("ABC123",
                      {fuelling({2024, 1, 2}, 10000, 400'000, true)});  // another program deletes it
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    main.press("cmd_modosit");
    QCOMPARE(boxes.seen.size(), 2);
    QVERIFY(boxes.seen[1].text.startsWith("Az adatok közben máshol megváltoztak:"));
    QCOMPARE(main.stored("ABC123", 1).KmOra, 10000);
  }

  void modifyingChecksKmThenSelectionThenPlate() {
    MainScreen main;
    main.open();
    BoxScript boxes;
    main.find<QPushButton>("cmd_modosit")->setEnabled(true);
    main.press("cmd_modosit");
    main.type("txKmOra", "1");
    main.press("cmd_modosit");
    QVERIFY(boxes.seen.value(0).text.startsWith("Nincs beírva kilométer óra állás!"));
    QCOMPARE(boxes.seen.value(1), errorBox(" H i b a !", "Nincs kijelölve módosítandó tétel!\n"));
  }

  void modifyingKeepsTheFieldsAndTakesTheShownConsumption() {
    MainScreen main;
    main.folder.write("rendsz.dat", padded("ABC123", 8) + std::string("\x32\0", 2));
    main.writeLogbook(
        "ABC123",
        {fuelling({2024, 1, 1}, 9000, 300'000, true), fuelling({2024, 1, 2}, 10000, 400'000, true),
         fuelling({2024, 1, 12}, 10500, 350'000, true), fuelling({2024, 1, 22}, 11000, 300'000, true)});
    main.choosePlateAtStart("ABC123");
    main.open();
    main.clickRow(2);
    QCOMPARE(main.label("lbPillAtlag"), QString("7,00"));
    main.type("txKmOra", "10600");
    main.type("txAlkatreszKtg", "");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_modosit");
    QCOMPARE(main.stored("ABC123", 3).KmOra, 10600);
    QCOMPARE(main.stored("ABC123", 3).Fogyasztas.tenThousandths, std::int64_t{70'000});
    QCOMPARE(main.edit("txKmOra")->text(), QString("10600"));
    QCOMPARE(main.edit("txAlkatreszKtg")->text(), QString("0"));
    QVERIFY(!main.find<QPushButton>("cmd_modosit")->isEnabled());
    QVERIFY(!main.find<QPushButton>("cmd_del")->isEnabled());
    QCOMPARE(main.cell(2, 1), QString("10600"));
  }

  void decliningADeletionLeavesAnEmptyTemporaryFile() {
    ListedCar main({fuelling({2024, 1, 1}, 1000, 100'000, true)});
    const std::string before = main.folder.read("ABC123/napiadat.dat");
    main.clickRow(0);
    BoxScript boxes({QMessageBox::No});
    main.press("cmd_del");
    QVERIFY(main.folder.read("ABC123/napiadat.dat") == before);
    QCOMPARE(main.folder.read("ABC123/napiadatx.dat"), std::string());
    QVERIFY(main.find<QPushButton>("cmd_del")->isEnabled());
  }

  void quickAddAsksForEveryKnownTextThatContainsTheNewOne() {
    MainScreen main;
    main.folder.write("alkatr.dat",
                      padded("OLAJSZ\xDBR\xD5 BET\xC9T", 50) + padded("LEVEG\xD5SZ\xDBR\xD5", 50));
    main.open();
    main.type("txAlkatresz", "szűrő");
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Yes});
    main.press("cmdAlkatresz");
    QCOMPARE(boxes.seen.size(), 3);
    QVERIFY(boxes.seen[1].text.contains("\n'' OLAJSZŰRŐ BETÉT ''  néven!"));
    QVERIFY(boxes.seen[2].text.contains("\n'' LEVEGŐSZŰRŐ ''  néven!"));
    QVERIFY(main.folder.read("alkatr.dat").substr(100) == padded("sz\xFBr\xF5", 50));
    QCOMPARE(main.combo("txAlkatresz")->count(), 3);
    QCOMPARE(main.combo("txAlkatresz")->itemText(2), QString("szűrő"));
    QCOMPARE(main.screen->focusWidget(), main.combo("txAlkatresz"));
    main.type("txMegjegyzes", "Mosás");
    main.find<QAction>("mnuVisszavonas")->trigger();
    QCOMPARE(main.combo("txAlkatresz")->count(), 2);
    QCOMPARE(main.combo("txAlkatresz")->currentText(), QString("szűrő"));
  }

  void quickAddStopsAtTheFirstNo() {
    MainScreen main;
    main.folder.write("megjegyz.dat", padded("Tankol\xE1s", 50) + padded("Tankol\xE1s + mos\xE1s", 50));
    main.open();
    main.type("txMegjegyzes", "tankolás");
    BoxScript boxes({QMessageBox::Yes, QMessageBox::No});
    main.press("cmdMegjegyzes");
    QCOMPARE(boxes.seen.size(), 2);
    QVERIFY(boxes.seen[1].text.contains("\n'' Tankolás ''  néven!"));
    QCOMPARE(main.folder.read("megjegyz.dat").size(), std::size_t{100});
  }

  void aStrayLetterInsideANumberGoesAloneAndTheCursorStays() {
    MainScreen main;
    main.open();
    for (const char* name : {"txKmOra", "txTankoltLiter", "txTankoltKtg", "txAlkatreszKtg"}) {
      QLineEdit* const field = main.edit(name);
      main.type(name, "91234");
      field->setCursorPosition(1);
      QTest::keyClicks(field, "x");
      QCOMPARE(field->text(), QString("91234"));
      QCOMPARE(field->cursorPosition(), 1);
      typeKeys(*field, "5é6");
      QCOMPARE(field->text(), QString("9561234"));
      QCOMPARE(field->cursorPosition(), 3);
      QVERIFY(field->hasFocus());
    }
    main.type("txTankoltLiter", "40,5");
    main.edit("txTankoltLiter")->setCursorPosition(1);
    QTest::keyClicks(main.edit("txTankoltLiter"), ",");
    QCOMPARE(main.edit("txTankoltLiter")->text(), QString("40,5"));
    main.type("txTankoltKtg", "");
    main.edit("txTankoltKtg")->insert("9x1234");
    QCOMPARE(main.edit("txTankoltKtg")->text(), QString("91234"));
    QCOMPARE(main.label("lbFtperLiter"), QString("2252,69"));
  }

  void whatIsTypedBehindAChosenPartOrNoteIsStored() {
    MainScreen main;
    main.folder.write("alkatr.dat", padded("OLAJ", 50) + padded("SZURO", 50));
    main.folder.write("megjegyz.dat", padded("MOSAS", 50));
    main.writeLogbook("ABC123", {});
    main.choosePlateAtStart("ABC123");
    main.open();
    main.type("txKmOra", "100");
    for (const char* name : {"txAlkatresz", "txMegjegyzes"}) {
      main.type(name, "");
      QComboBox* const field = main.combo(name);
      QTest::keyClick(field, Qt::Key_Down);
      QCOMPARE(field->currentText().size(), 50);
      QTest::keyClicks(field->lineEdit(), " 5L");
      QCOMPARE(field->currentText().size(), 50);
    }
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.stored("ABC123", 1).Alkatresz.trimmed(), std::string("OLAJ 5L"));
    QCOMPARE(main.stored("ABC123", 1).Megjegyzes.trimmed(), std::string("MOSAS 5L"));
    QTest::keyClick(main.combo("txAlkatresz"), Qt::Key_Down);
    QCOMPARE(main.combo("txAlkatresz")->currentText().trimmed(), QString("OLAJ"));
  }

  void typingANoteOffersTheLastOneThatGoesOnLikeThis() {
    MainScreen main;
    main.folder.write("megjegyz.dat", padded("TANKOL\xC1S", 50) + padded("TANKOL\xC1S + MOS\xC1S", 50));
    main.open();
    QLineEdit* note = main.combo("txMegjegyzes")->lineEdit();
    main.type("txMegjegyzes", "");
    QTest::keyClicks(note, "tan");
    QCOMPARE(note->text(), QString("TANKOLÁS + MOSÁS"));
    QCOMPARE(note->selectionStart(), 3);
    QCOMPARE(note->selectedText(), QString("KOLÁS + MOSÁS"));
    QTest::keyClick(note, Qt::Key_Backspace);
    QCOMPARE(note->text(), QString("TAN"));
    QTest::keyClick(note, Qt::Key_Backspace);
    QCOMPARE(note->text(), QString("TA"));
    QTest::keyClicks(note, "xi");
    QCOMPARE(note->text(), QString("TAxi"));
  }
};

TARVIK_SCREEN_TEST(FrmTarvikEntryTest)
#include "frmTarvik_entry_test.moc"
