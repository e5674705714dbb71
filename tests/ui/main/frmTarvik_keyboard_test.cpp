#include <QCalendarWidget>

#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/look/main_button.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

// The main screen with a car of two fills.
struct Household : ListedCar {
  Household()
      : ListedCar({fuelling({2024, 1, 1}, 10'000, 405'000, true, 16'200),
                   fuelling({2025, 1, 11}, 10'400, 300'000, true, 12'000)}) {}
  void key(int key, Qt::KeyboardModifiers with = {}) {
    QWidget* const focus = screen->focusWidget();
    QTest::keyClick(focus == nullptr ? screen.get() : focus, static_cast<Qt::Key>(key), with);
  }
  QString focus() {
    return screen->focusWidget() == nullptr ? QString() : screen->focusWidget()->objectName();
  }
  bool isFilterOpen() { return find<QWidget>("FrameSzürö")->isVisible(); }
};

}  // namespace

class FrmTarvikKeyboardTest : public QObject {
  Q_OBJECT

 private slots:
  void f6AndCtrlLGoFromTheFieldToTheListAndBack() {
    for (const auto& [key, with] : {std::pair(Qt::Key_F6, Qt::KeyboardModifiers()),
                                    std::pair(Qt::Key_L, Qt::KeyboardModifiers(Qt::ControlModifier))}) {
      Household main;
      main.edit("txTankoltLiter")->setFocus();
      main.key(key, with);
      QCOMPARE(main.focus(), "ListView1");
      main.key(key, with);
      QCOMPARE(main.focus(), "txTankoltLiter");
    }
  }

  void f10GoesToTheMenu() {
    Household main;
    main.key(Qt::Key_F10);
    QCOMPARE(main.focus(), "menubar");
    QVERIFY(main.screen->menuBar()->activeAction() != nullptr);
  }

  void fromTheListTheyGoToTheOdometerWhereNoFieldCanBeReturnedTo() {
    Household main;
    main.list()->setFocus();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
    main.edit("txTankoltLiter")->setFocus();
    main.key(Qt::Key_F6);
    main.edit("txTankoltLiter")->setEnabled(false);
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
    main.press("cmd_lista");
    main.find<QRadioButton>("opSzürö_0")->setFocus();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "ListView1");
    main.find<QWidget>("FrameSzürö")->hide();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
  }

  void whileAChartCoversTheListTheyGoToTheChart() {
    Household main;
    main.showChart("Option2");
    main.edit("txKmOra")->setFocus();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "Combo2");
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
  }

  void escapeLeavesTheFilterAsItWasListed() {
    ListedCar main(
        {fuelling({2024, 1, 1}, 10'000, 405'000, true), fuelling({2024, 2, 1}, 10'400, 300'000, true)});
    const QDate before = main.find<QDateEdit>("DTPSzürö")->date();
    main.press("cmd_lista");
    main.press("opSzürö_2");
    main.type("DTPSzürö", QDate(2024, 1, 1));
    QTest::keyClick(main.find<QDateEdit>("DTPSzürö"), Qt::Key_Escape);
    QVERIFY(main.find<QWidget>("FrameSzürö")->isHidden());
    QVERIFY(main.find<QRadioButton>("opSzürö_0")->isChecked());
    QCOMPARE(main.find<QDateEdit>("DTPSzürö")->date(), before);
    main.screen->beolvas();
    QCOMPARE(main.rows(), 2);
  }

  void theFilterOpensOnItsOptionAndEscapeGoesBack() {
    Household main;
    main.edit("txKmOra")->setFocus();
    main.find<QPushButton>("cmd_lista")->click();  // as its letter does
    QVERIFY(main.isFilterOpen());
    QCOMPARE(main.focus(), "opSzürö_0");
    main.key(Qt::Key_Escape);
    QVERIFY(!main.isFilterOpen());
    QCOMPARE(main.focus(), "txKmOra");
  }

  void aPlateChosenWithEnterShowsTheFilterAndListsNothing() {
    Household main;
    main.writeVehicles({"ABC123", "KLM456"});
    main.open();
    auto* const plates = main.combo("Combo1");
    plates->setFocus();
    QTest::keyClick(plates, Qt::Key_F4);
    QVERIFY(plates->view()->isVisible());
    QTest::keyClick(plates->view(), Qt::Key_Escape);
    QVERIFY(!main.isFilterOpen());
    QTest::keyClick(plates, Qt::Key_F4);
    plates->view()->setCurrentIndex(plates->model()->index(1, 0));
    QTest::keyClick(plates->view(), Qt::Key_Return);
    QCOMPARE(plates->currentText(), "KLM456  ");
    QVERIFY(main.isFilterOpen());
    QCOMPARE(main.rows(), 2);
    main.key(Qt::Key_Return);
    QVERIFY(!main.isFilterOpen());
    QCOMPARE(main.rows(), 0);
  }

  void arrowsInThePlateStayThereAndEnterGoesToTheOpenFilter() {
    Household main;
    main.writeVehicles({"KLM456", "ABC123", "XYZ789"});
    main.open();
    auto* const plates = main.combo("Combo1");
    plates->setFocus();
    main.key(Qt::Key_Down);
    QCOMPARE(plates->currentText(), "XYZ789  ");
    QVERIFY(main.isFilterOpen());
    QCOMPARE(main.focus(), "Combo1");
    main.key(Qt::Key_Up);
    main.key(Qt::Key_Up);
    QCOMPARE(plates->currentText(), "KLM456  ");
    QVERIFY(main.isFilterOpen());
    QVERIFY(main.find<QRadioButton>("opSzürö_0")->isChecked());
    main.key(Qt::Key_Return);
    QCOMPARE(main.focus(), "opSzürö_0");
    main.key(Qt::Key_Escape);
    QVERIFY(!main.isFilterOpen());
    plates->setFocus();
    main.key(Qt::Key_Return);
    QCOMPARE(main.focus(), "txKmOra");
  }

  void enterGoesThroughAFillUpAndThenAsks() {
    Household main;
    const std::size_t before = main.folder.read("ABC123/napiadat.dat").size();
    main.edit("txKmOra")->setFocus();
    QTest::keyClicks(main.screen->focusWidget(), "10800");
    main.key(Qt::Key_Return);
    QCOMPARE(main.focus(), "txTankoltLiter");
    QTest::keyClicks(main.screen->focusWidget(), "35,5");
    main.key(Qt::Key_Return);
    QCOMPARE(main.focus(), "txTankoltKtg");
    QTest::keyClicks(main.screen->focusWidget(), "14200");
    QCOMPARE(main.folder.read("ABC123/napiadat.dat").size(), before);
    enterIntoWhatIsOpen(*main.screen);  // the question, and its Yes
    QCOMPARE(main.folder.read("ABC123/napiadat.dat").size(), before + 156);
    QCOMPARE(main.stored("ABC123", 3).KmOra, 10'800);
    QCOMPARE(main.focus(), "txKmOra");
  }

  void enterInPartsAndNotesGoesToTheirCostsAndThenAsks() {
    Household main;
    main.type("txKmOra", "10800");
    BoxScript boxes({QMessageBox::No, QMessageBox::No});
    for (const auto& [text, cost] :
         {std::pair("txAlkatresz", "txAlkatreszKtg"), std::pair("txMegjegyzes", "txMegjKtg")}) {
      main.combo(text)->setFocus();
      main.key(Qt::Key_Return);
      QCOMPARE(main.focus(), cost);
      main.key(Qt::Key_Return);
    }
    QCOMPARE(boxes.seen.size(), 2);
    QCOMPARE(boxes.seen.first().enter, QMessageBox::Yes);
  }

  void entersAloneNeitherDoubleNorOverwriteAnEntry() {
    Household main;
    main.writeLogbook("ABC123", {fuelling({2024, 1, 1}, 10'000, 405'000, true, 16'200),
                                 fuelling({2025, 1, 11}, 10'400, 300'000, true, 12'000),
                                 fuelling({2025, 2, 1}, 10'500, 100'000, false, 4'000)});
    main.open();
    const std::string before = main.folder.read("ABC123/napiadat.dat");
    main.clickRow(2);
    const auto isWholeAfterEntersOn = [&](const char* button) {
      main.find<QPushButton>(button)->setFocus();
      enterIntoWhatIsOpen(*main.screen);
      return main.folder.read("ABC123/napiadat.dat") == before;
    };
    QVERIFY(isWholeAfterEntersOn("cmd_rogzit"));
    main.type("txMegjKtg", "77");  // or it would be overwritten by itself
    QVERIFY(isWholeAfterEntersOn("cmd_modosit"));
    QVERIFY(isWholeAfterEntersOn("cmd_del"));
    main.list()->setFocus();
    main.key(Qt::Key_Return);
    QCOMPARE(main.folder.read("ABC123/napiadat.dat"), before);
  }

  // The tank is ticked full again after each recording, which an entry without fuel is not stored with.
  void enterDoublesNoEntryWithoutFuelThatIsTypedAgain() {
    Household main;
    const auto record = [&](const char* km, QMessageBox::StandardButton answer) {
      main.type("txKmOra", km);
      main.type("txMegjegyzes", "Mosás");
      BoxScript boxes({answer});
      main.press("cmd_rogzit");
      return boxes.seen.value(0).enter;
    };
    QCOMPARE(record("10500", QMessageBox::Yes), QMessageBox::Yes);
    QVERIFY(main.box("ChkTeletank")->isChecked());
    QCOMPARE(record("10500", QMessageBox::No), QMessageBox::No);
    QCOMPARE(record("10501", QMessageBox::No), QMessageBox::Yes);
  }

  void theKeysOfTheFilterAreItsOwn() {
    Household main;
    main.press("cmd_lista");
    main.edit("txKmOra")->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      main.key(key);
      QVERIFY(main.isFilterOpen());
    }
    QCOMPARE(main.focus(), "txTankoltKtg");
  }

  void enterInAnOpenCalendarOrDropDownIsNotTheFilters() {
    Household main;
    main.press("cmd_lista");
    main.press("opSzürö_1");
    auto* const day = main.find<QDateEdit>("DTPSzürö");
    QTest::mouseClick(day, Qt::LeftButton, {}, day->rect().adjusted(0, 0, -8, 0).topRight() + QPoint(0, 8));
    auto* const calendar = day->findChild<QCalendarWidget*>();
    QVERIFY(calendar != nullptr && calendar->isVisible());
    for (const int key : {Qt::Key_Left, Qt::Key_Return}) {
      QTest::keyClick(
          QApplication::focusWidget() == nullptr ? calendar->focusWidget() : QApplication::focusWidget(),
          static_cast<Qt::Key>(key));
      QVERIFY(main.isFilterOpen());
    }
    QCOMPARE(main.rows(), 2);
  }

  void bothEntersListWhatTheFilterSays() {
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
      Household main;
      main.press("cmd_lista");
      main.press("opSzürö_1");
      auto* const year = main.find<QDateEdit>("DTPSzürö");
      year->setFocus();
      year->setSelectedSection(QDateTimeEdit::YearSection);
      QTest::keyClicks(year, "2025");
      main.key(enter);
      QVERIFY(!main.isFilterOpen());
      QCOMPARE(main.rows(), 1);
      QCOMPARE(main.focus(), "ListView1");
    }
  }
};

TARVIK_SCREEN_TEST(FrmTarvikKeyboardTest)
#include "frmTarvik_keyboard_test.moc"
