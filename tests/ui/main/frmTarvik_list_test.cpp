#include <filesystem>

#include "core/listing.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/base/text.h"
#include "ui/exchange/import_preview.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_view.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

void hover(QWidget* field) {
  QEvent enter(QEvent::Enter);
  QApplication::sendEvent(field, &enter);
}

QString markedIn(MainScreen& main) {
  return qobject_cast<ui::ListDelegate*>(main.list()->itemDelegate())->marked();
}

std::vector<core::NapiAdat> twoFills() {
  return {fuelling({2024, 1, 1}, 10'000, 405'000, true, 16'200),
          fuelling({2024, 1, 11}, 10'400, 300'000, true, 12'000)};
}

}  // namespace

class FrmTarvikListTest : public QObject {
  Q_OBJECT

 private slots:
  void aFirstStartOpensEmpty() {
    MainScreen main;
    BoxScript boxes;
    main.open();
    QCOMPARE(boxes.seen.size(), 0);
    QVERIFY(main.screen->width() >= 707);
    QCOMPARE(main.combo("Combo1")->count(), 0);
    QCOMPARE(main.rows(), 0);
    const std::vector<std::string> made{"alkatr.dat", "figyDatum.dat", "megjegyz.dat", "rendsz.dat",
                                        "set.dat"};
    QVERIFY(main.folder.names() == made);
  }

  void whatIsTypedAtOnceAfterTheStartIsAReadingAndNoPlate() {
    ListedCar main(twoFills());
    QCOMPARE(QApplication::focusWidget(), main.edit("txKmOra"));
    QTest::keyClicks(QApplication::focusWidget(), "12600");
    QCOMPARE(main.edit("txKmOra")->text(), QString("12600"));
    QCOMPARE(main.combo("Combo1")->currentText(), QString("ABC123    "));
  }

  void aBlankPlateOpensNoFilterAndIsRefusedWhileOneIsOpen() {
    MainScreen first;
    first.open();
    BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok});
    first.press("cmd_lista");
    QVERIFY(first.find<QWidget>("FrameSzürö")->isHidden());
    ListedCar main(twoFills());
    main.press("cmd_lista");
    main.type("Combo1", "  ");
    main.press("cmd_lista");
    QCOMPARE(boxes.seen.size(), 2);
    QVERIFY(main.find<QWidget>("FrameSzürö")->isVisible());
    QCOMPARE(main.screen->focusWidget(), main.combo("Combo1"));
  }

  void aFolderThatVanishedIsNotListedAsEmptyNorImportedInto() {
    ListedCar main(twoFills());
    std::filesystem::remove_all(main.folder / "ABC123");
    main.press("cmd_lista");
    main.press("cmdSzürés");
    QCOMPARE(main.label("lbNaplo"), QString("ABC123 naplója nem olvasható"));
    QVERIFY(
        main.list()->viewport()->findChild<QLabel*>()->text().startsWith("ABC123 naplója nem olvasható."));
    QCOMPARE(main.edit("tx_teljes_ktg")->text(), QString("28 200 Ft."));
    QCOMPARE(main.edit("tx_teljes_ktg")->accessibleDescription(), QString("Egy korábbi lista adata"));
    QCOMPARE(main.edit("tx_megtett_km")->text(), QString());
    main.folder.write("log.csv", "Date,Odometer,Litres\n2024-01-05,1000,1\n");
    BoxScript boxes({QMessageBox::Ok});
    takeFileInNextDialog(QString::fromStdString(main.folder / "log.csv"));
    main.chooseItem("mnuCsvBeolvasas");
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY(boxes.seen[0].text.startsWith("Nincs meg a mappa"));
    QVERIFY(boxes.seen[0].text.endsWith("Semmi sem változott."));
  }

  void theDropDownsHaveTheStoredTextsInTheirOrder() {
    MainScreen main;
    main.folder.write("alkatr.dat", padded("Sz\xFBr\xF5", 50) + padded("Ablak", 50));
    main.folder.write("megjegyz.dat", padded("Mos\xE1s", 50) + padded("Ad\xF3", 50) + padded("Mos\xE1s", 50));
    main.open();
    const auto textsOf = [&](const char* name) {
      QStringList texts;
      for (int item = 0; item < main.combo(name)->count(); ++item) texts << main.combo(name)->itemText(item);
      return texts;
    };
    const auto stored = [](const char* text) { return QString::fromUtf8(text).leftJustified(50); };
    QCOMPARE(textsOf("txAlkatresz"), QStringList({stored("Szűrő"), stored("Ablak")}));
    QCOMPARE(textsOf("txMegjegyzes"), QStringList({stored("Mosás"), stored("Adó"), stored("Mosás")}));
    QCOMPARE(main.combo("txAlkatresz")->currentText(), QString());
    QCOMPARE(main.combo("txMegjegyzes")->currentText(), QString("Tankolás"));
  }

  void aDistanceAfterASlipIsSeenWithAllItsDigits() {
    ListedCar main({fuelling({2024, 1, 1}, 214'859, 405'000, true, 16'200),
                    fuelling({2024, 1, 11}, 21'576, 300'000, true, 12'000)});
    const QModelIndex distance = main.list()->model()->index(1, core::kKmColumn);
    QCOMPARE(distance.data().toString(), QString("-193283"));
    const int needed = main.list()->fontMetrics().horizontalAdvance("-193283");
    QVERIFY(main.list()->header()->sectionSize(core::kKmColumn) > needed);
  }

  void filesFollowTheirOwnFolders() {
    MainScreen main(true);
    main.current.write("rendsz.dat", padded("ABC123", 8) + std::string("\x2D\0", 2));
    main.current.write("set.dat", std::string(2, '\xFF') + padded("ABC123", 10));
    main.writeLogbook("ABC123", twoFills());
    main.open();
    QCOMPARE(main.combo("Combo1")->itemText(0), QString("ABC123  "));
    QCOMPARE(main.combo("Combo1")->currentText(), QString("ABC123    "));
    QCOMPARE(main.rows(), 2);
    QVERIFY(!main.folder.has("rendsz.dat"));
  }

  void listsTheColumnsAndTotals() {
    ListedCar main(twoFills());
    QCOMPARE(main.row(0), QString("2024.01.01.|10000|40,50|0|||||Tankolás|1"));
    QCOMPARE(main.row(1), QString("2024.01.11.|10400|30,00|400|||||Tankolás|2"));
    QCOMPARE(main.edit("tx_teljes_ktg")->text(), QString("28 200 Ft."));
    QCOMPARE(main.edit("ob_ktg")->text(), QString("28 200 Ft."));
    QCOMPARE(main.edit("txAlkatreszKoltseg")->text(), QString(" Ft."));
    QCOMPARE(main.edit("tx_megtett_km")->text(), QString("400 Km."));
    QCOMPARE(main.edit("tx_liter")->text(), QString("70,5 Liter"));
    QCOMPARE(main.edit("tx_fogyaszt")->text(), QString("7,63 Liter/100Km"));
  }

  void theListButtonOpensAndClosesTheFilter() {
    ListedCar main(twoFills());
    for (const bool isOpen : {true, false}) {
      main.press("cmd_lista");
      QCOMPARE(main.find<QWidget>("FrameSzürö")->isVisible(), isOpen);
    }
  }

  void whatIsRecordedComesIntoViewMarkedUnlessTheFilterHidesIt() {
    ListedCar main(std::vector(100, fuelling({2013, 7, 1}, 10'000, 405'000, true)));
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Yes});
    main.list()->scrollToTop();
    main.type("txKmOra", "11000");
    main.press("cmd_rogzit");
    QVERIFY(main.list()->viewport()->rect().contains(main.middleOf(100)));
    QCOMPARE(markedIn(main), "101");
    main.press("cmd_lista");
    main.find<QRadioButton>("opSzürö_1")->click();
    main.type("DTPSzürö", QDate(2013, 7, 1));
    main.press("cmdSzürés");
    main.type("txKmOra", "12000");
    main.press("cmd_rogzit");
    QCOMPARE(main.rows(), 100);
    QCOMPARE(markedIn(main), "101");
  }

  void whatIsImportedIsListedAndTheNewestMarked() {
    ListedCar main(twoFills());
    main.folder.write(
        "log.csv", "Dátum;Km óra;Liter;Költség (Ft);Tele;Megjegyzés\n2024.02.05.;11000;40,5;24300;igen;\n");
    takeFileInNextDialog(ui::toQt(main.folder / "log.csv"));
    onNextDialog<ui::ImportPreview>(
        [](ui::ImportPreview& preview) { press(*part<QPushButton>(preview, "cmdAtvesz")); });
    BoxScript boxes({QMessageBox::Ok});
    main.chooseItem("mnuCsvBeolvasas");
    QCOMPARE(main.rows(), 3);
    QCOMPARE(markedIn(main), "3");
  }

  void aListingPutsTheKeyboardIntoTheListWhereverItWas() {
    ListedCar main(twoFills());
    main.press("cmd_lista");
    main.edit("txKmOra")->setFocus();
    main.find<QPushButton>("cmdSzürés")->click();  // as an assistive tool does
    QCOMPARE(main.screen->focusWidget(), main.list());
  }

  void aListingBringsTheNewestRowInView() {
    ListedCar main(std::vector(100, fuelling({2013, 7, 1}, 10'000, 405'000, true)));
    main.list()->scrollToTop();
    main.press("cmd_lista");
    main.press("cmdSzürés");
    QTRY_VERIFY(main.list()->viewport()->rect().contains(main.middleOf(99)));
  }

  void choosingAPlateShowsTheFilterAndListsOnlyWhenConfirmed() {
    ListedCar main(twoFills(), {"ABC123", "XYZ789"});
    main.writeLogbook("XYZ789", {fuelling({2024, 5, 5}, 77, 10'000, true)});
    choose(*main.combo("Combo1"), 1);
    QVERIFY(!main.find<QWidget>("FrameSzürö")->isHidden());
    QCOMPARE(main.rows(), 2);
    main.press("cmdSzürés");
    QCOMPARE(main.rows(), 1);
    QCOMPARE(main.cell(0, 1), QString("77"));
  }
  void aRowOfAPlateWithoutALogbookIsNotChosen_data() {
    QTest::addColumn<QString>("plate");
    QTest::addColumn<QString>("said");
    QTest::newRow("no folder") << "XYZ789"
                               << "Nincs meg a mappa";
    QTest::newRow("blank") << "  "
                           << "Nincs kitöltve a mező: Rendszám\n\nSemmi sem változott.";
    QTest::newRow("fewer entries") << "DEF456"
                                   << "Ez a tétel már nincs a fájlban";
  }
  void aRowOfAPlateWithoutALogbookIsNotChosen() {
    QFETCH(QString, plate);
    QFETCH(QString, said);
    ListedCar main(twoFills());
    main.writeLogbook("DEF456", {});
    main.type("txKmOra", "77");
    main.type("Combo1", plate);
    BoxScript boxes;
    main.clickRow(1);
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY2(boxes.seen[0].text.startsWith(said), qPrintable(boxes.seen[0].text));
    QCOMPARE(main.edit("txKmOra")->text(), QString("77"));
    QVERIFY(!main.find<QPushButton>("cmd_del")->isEnabled());
    QVERIFY(!main.find<QPushButton>("cmd_modosit")->isEnabled());
    QVERIFY(!main.list()->selectionModel()->hasSelection());
    QVERIFY(!main.folder.has("XYZ789"));
  }

  void aRowThatCannotBeChosenLeavesTheOneChosenBefore() {
    ListedCar main(twoFills());
    main.clickRow(0);
    main.type("Combo1", "XYZ789");
    BoxScript boxes;
    main.clickRow(1);
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(main.edit("txKmOra")->text(), QString("10000"));
    QVERIFY(main.find<QPushButton>("cmd_del")->isEnabled());
    QVERIFY(main.list()->selectionModel()->isRowSelected(0));
  }

  void hintsADayComeWithTwoRowsAndTwoDays() {
    ListedCar main(twoFills());
    for (const char* name : {"tx_teljes_ktg", "ob_ktg", "txAlkatreszKoltseg", "tx_liter", "tx_megtett_km"})
      hover(main.edit(name));
    QCOMPARE(main.edit("tx_teljes_ktg")->toolTip(), QString("2820,-Ft/nap"));
    QCOMPARE(main.edit("ob_ktg")->toolTip(), QString("2820,-Ft/nap"));
    QCOMPARE(main.edit("txAlkatreszKoltseg")->toolTip(), QString("0,-Ft/nap"));
    QCOMPARE(main.edit("tx_liter")->toolTip(), QString("7,00 liter/nap"));  // the comma ends the figure
    QCOMPARE(main.edit("tx_megtett_km")->toolTip(), QString("40 km/nap"));
    main.writeLogbook("ABC123", {twoFills()[0], fuelling({2024, 1, 2}, 99'999, 300'000, true, 99'999)});
    main.screen->beolvas();
    hover(main.edit("ob_ktg"));
    QCOMPARE(main.edit("ob_ktg")->toolTip(), QString("2820,-Ft/nap"));
  }

  void aLogbookThatIsAFolderIsToldInOneBox() {
    MainScreen main;
    main.folder.makeFolder("ABC123/napiadat.dat");
    main.choosePlateAtStart("ABC123");
    BoxScript boxes;
    main.open();
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY(boxes.seen[0].text.startsWith("A fájl nem nyitható meg:\n"));
    QCOMPARE(main.rows(), 0);
  }

  void sumsPastTheirTypeAreAFailureAndTheRowsStayListed() {
    BoxScript boxes;
    ListedCar main({fuelling({2024, 1, 1}, 1, 1, true, 2'000'000'000),
                    fuelling({2024, 1, 2}, 2, 1, true, 2'000'000'000)});
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(main.rows(), 2);
    QCOMPARE(boxes.seen[0].text,
             QString("Túl nagy szám: Eddigi Költség\n\nA lista vagy az összesítése nem teljes."));
    QCOMPARE(main.edit("tx_teljes_ktg")->text(), QString("2000 000 000 Ft."));
  }

  void theChartsOpenByTheirLetterThoughTheMenuHasItToo() {
    MainScreen main;
    main.open();
    QStringList opened;
    for (const Qt::Key letter : {Qt::Key_G, Qt::Key_B}) {
      onNextDialog<QDialog>([&](QDialog& screen) {
        opened << screen.objectName();
        screen.close();
      });
      QApplication::setActiveWindow(main.screen.get());  // what closed took the front
      QTest::keyClick(main.edit("txKmOra"), letter, Qt::AltModifier);
      QTRY_COMPARE(opened.size(), letter == Qt::Key_G ? 1 : 2);
    }
    QCOMPARE(opened, QStringList({"frmMelyGrafikon", "frmSetup"}));
  }

  void aNoteListThatCannotBeReadIsToldOnceAndNotAtEachKey() {
    MainScreen main;
    main.open();
    std::filesystem::remove(main.folder / "megjegyz.dat");
    main.folder.makeFolder("megjegyz.dat");
    BoxScript boxes;
    main.type("txMegjegyzes", "abc");
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(main.combo("txMegjegyzes")->currentText(), QString("abc"));
  }

  void aNoteListThatIsAFolderLeavesTheNoteReady() {
    MainScreen main;
    main.folder.makeFolder("megjegyz.dat");
    BoxScript boxes;
    main.open();
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(main.combo("txMegjegyzes")->currentText(), QString("Tankolás"));
  }

  void theExitQuestionDecides() {
    MainScreen main;
    main.open();
    BoxScript boxes({QMessageBox::No, QMessageBox::Yes});
    main.chooseItem("mnuKilep");
    QVERIFY(main.screen->isVisible());
    main.screen->close();
    QVERIFY(!main.screen->isVisible());
    QCOMPARE(boxes.seen.size(), 2);
  }
};

TARVIK_SCREEN_TEST(FrmTarvikListTest)
#include "frmTarvik_list_test.moc"
