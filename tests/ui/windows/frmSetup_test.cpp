#include "tests/ui/screen_test.h"
#include "tests/ui/setup_desk.h"

#include <QAction>
#include <QLabel>
#include <QSignalSpy>

// The settings as a window, what they show first, and their page of what is loaded at the start.

namespace tarvik::test {

class SettingsTest : public QObject {
  Q_OBJECT

 private slots:
  void theScreenOpensBesideTheMainScreensCorner() {
    Setup setup({-100, 20});
    setup.show();
    QCOMPARE(setup.screen.pos(), QPoint(33, 187));
  }

  void theBackButtonCloses() {
    ShownSetup setup;
    setup.press("cmdVissza");
    QVERIFY(!setup.screen.isVisible());
  }

  void aFirstStartShowsEmptyListsAndRemindersOff() {
    Setup setup;
    const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
    setup.show();
    for (const char* list : {"List1", "listAlkatr", "listMegj"}) QCOMPARE(setup.list(list)->count(), 0);
    QCOMPARE(setup.context.state.reminderState, 1);
    QCOMPARE(switched.count(), 1);
    QCOMPARE(switched.first().first().toBool(), false);
  }

  void aFileThatIsAFolderIsToldAndTheOthersAreRead() {
    Setup setup;
    setup.current.makeFolder("rendsz.dat");
    setup.current.write("megjegyz.dat", padded("Mos\xE1s", 50));
    BoxScript boxes({QMessageBox::Ok});
    setup.show();
    QVERIFY(boxes.seen.value(0).text.startsWith("A fájl nem nyitható meg:\n"));
    QCOMPARE(setup.rows("listMegj"), QStringList({fifty("Mosás")}));
  }

  void theStartPlateIsTheTenCharactersStored() {
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}, {"set.dat", kRemindersOff}});
    QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
  }

  void onlyTheStoredMinusOneCountsAsOn() {
    ShownSetup setup({{"set.dat", std::string("\x01\x00"
                                              "ABC123    ",
                                              12)}});
    QVERIFY(!setup.reminders()->isChecked());
  }

  void theStartPlateStaysWhileItsListIsFilled() {
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}, {"set.dat", kRemindersOff}});
    setup.add("DEF456", "50");
    QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
    setup.clickRow("List1", 0);
    setup.press("cmdRendszamDel");
    QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
  }

  void savingWritesThePlateAndTheFlagWithoutAMessage() {
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}});
    setup.openPage(1);
    BoxScript boxes;
    choose(*setup.startPlate(), 0);
    press(*setup.reminders());
    setup.press("cmdSetup");
    QCOMPARE(setup.current.read("set.dat"), kRemindersOn);
    press(*setup.reminders());
    setup.press("cmdSetup");
    QCOMPARE(setup.current.read("set.dat"), kRemindersOff);
    QCOMPARE(boxes.seen.size(), 0);
    QCOMPARE(part<QAction>(setup.screen, "mnuVisszavonas")->text(), "&Visszavonás: indulási beállítások");
    QCOMPARE(part<QLabel>(setup.screen, "lbTortent")->text(),
             "Elmentve: indulási beállítások – visszavonás: Ctrl+Z");
  }

  void savingCutsThePlateToTenCharacters() {
    ShownSetup setup;
    setup.openPage(1);
    typeInto(*setup.startPlate(), "ŐBCDEFGHIJK");
    setup.press("cmdSetup");
    QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00\xD5"
                                                        "BCDEFGHIJ",
                                                        12));
  }

  void theStartPlateFollowsItsOwnFileAndTheChosenCarStaysWhereNothingCameBack() {
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}, {"set.dat", kRemindersOff}});
    setup.clickRow("List1", 1);
    setup.current.write("set.dat", std::string("\x00\x00XYZ987    ", 12));
    for (const auto& [file, plate] : {std::pair("rendsz.dat", "ABC123    "), {"set.dat", "XYZ987    "}}) {
      emit setup.context.news.travelled(
          {.name = "csere", .files = {{.path = setup.context.folders.inCurrent(file)}}});
      QCOMPARE(setup.startPlate()->currentText(), plate);
      QCOMPARE(setup.list("List1")->currentRow(), 1);
    }
  }

  void typingReplacesTheStoredStartPlate() {
    ShownSetup setup({{"set.dat", kRemindersOff}});
    setup.openPage(1);
    setup.startPlate()->setFocus();
    QTest::keyClicks(setup.startPlate(), "XYZ987");
    setup.press("cmdSetup");
    QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00XYZ987    ", 12));
  }

  void enterOnTheStartPageGoesToTheButtonWhichSavesThePlateAsTyped() {
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}});
    setup.openPage(1);
    typeInto(*setup.startPlate(), "abc123  ");
    QTest::keyClick(setup.startPlate(), Qt::Key_Return);
    QVERIFY(setup.reminders()->hasFocus());
    QTest::keyClick(setup.reminders(), Qt::Key_Return);
    QTest::keyClick(setup.screen.focusWidget(), Qt::Key_Return);
    QVERIFY(setup.button("cmdSetup")->hasFocus());
    QCOMPARE(setup.current.read("set.dat"), "");
    QTest::keyClick(setup.button("cmdSetup"), Qt::Key_Space);
    QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00"
                                                        "abc123    ",
                                                        12));
  }

  void theSwitchTogglesTheStateWhateverTheBoxShows() {
    ShownSetup setup;
    setup.openPage(1);
    const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
    setup.context.state.reminderState = 1;
    press(*setup.reminders());
    QVERIFY(setup.reminders()->isChecked());
    QCOMPARE(setup.context.state.reminderState, 0);
    QCOMPARE(setup.reminders()->text(), kOn);
    QCOMPARE(switched.last().first().toBool(), true);
    press(*setup.reminders());
    QVERIFY(!setup.reminders()->isChecked());
    QCOMPARE(setup.context.state.reminderState, 1);
    QCOMPARE(setup.reminders()->text(), kOff);
    QCOMPARE(switched.last().first().toBool(), false);
    setup.context.state.reminderState = 0;
    press(*setup.reminders());
    QCOMPARE(setup.context.state.reminderState, 1);
    QCOMPARE(setup.reminders()->text(), kOff);
    QCOMPARE(switched.count(), 3);
  }

  void theSwitchChangesNothingOnDisk() {
    ShownSetup setup({{"set.dat", kRemindersOff}});
    setup.openPage(1);
    press(*setup.reminders());
    QCOMPARE(setup.current.read("set.dat"), kRemindersOff);
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::SettingsTest)
#include "frmSetup_test.moc"
