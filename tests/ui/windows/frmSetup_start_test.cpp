#include "tests/ui/screen_test.h"
#include "tests/ui/setup_desk.h"

#include <QSignalSpy>

// The settings' page of what is loaded at the start.

namespace tarvik::test {

class SettingsStartTest : public QObject {
  Q_OBJECT

 private slots:
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

TARVIK_SCREEN_TEST(tarvik::test::SettingsStartTest)
#include "frmSetup_start_test.moc"
