#include "tests/ui/screen_test.h"
#include "tests/ui/setup_desk.h"

#include <QSignalSpy>

// The settings' page of what is loaded at the start.

namespace tarvik::test {

class SettingsStartTest : public QObject {
  Q_OBJECT

 private slots:
  void theStartPlateIsTheTenCharactersStored() {
    Setup setup;
    setup.current.write("rendsz.dat", kTwoVehicles);
    setup.current.write("set.dat", kRemindersOff);
    setup.show();
    QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
  }

  void aStoredOnChangesNothing() {
    for (const auto state : {std::int16_t{0}, std::int16_t{1}}) {
      Setup setup;
      setup.current.write("set.dat", kRemindersOn);
      const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
      setup.context.state.reminderState = state;
      setup.show();
      QVERIFY(setup.reminders()->isChecked());
      QCOMPARE(setup.context.state.reminderState, state);
      QCOMPARE(setup.reminders()->text(), " Bekapcsolva ");
      QCOMPARE(switched.count(), 0);
    }
  }

  void aStoredOffRunsTheSwitchOnce() {
    Setup setup;
    setup.current.write("set.dat", kRemindersOff);
    const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
    setup.show();
    QVERIFY(!setup.reminders()->isChecked());
    QCOMPARE(setup.context.state.reminderState, 1);
    QCOMPARE(setup.reminders()->text(), kOff);
    QCOMPARE(switched.count(), 1);
    QCOMPARE(switched.first().first().toBool(), false);
  }

  void onlyTheStoredMinusOneCountsAsOn() {
    Setup setup;
    setup.current.write("set.dat", std::string("\x01\x00"
                                               "ABC123    ",
                                               12));
    setup.show();
    QVERIFY(!setup.reminders()->isChecked());
  }

  void theStartPlateStaysWhileItsListIsFilled() {
    Setup setup;
    setup.current.write("rendsz.dat", kTwoVehicles);
    setup.current.write("set.dat", kRemindersOff);
    setup.show();
    setup.add("DEF456", "50");
    QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
    setup.clickRow("List1", 0);
    setup.press("cmdRendszamDel");
    QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
  }

  void savingWritesThePlateAndTheFlagWithoutAMessage() {
    Setup setup;
    setup.current.write("rendsz.dat", kTwoVehicles);
    setup.show();
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
    Setup setup;
    setup.show();
    setup.openPage(1);
    typeInto(*setup.startPlate(), "ŐBCDEFGHIJK");
    setup.press("cmdSetup");
    QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00\xD5"
                                                        "BCDEFGHIJ",
                                                        12));
  }

  void typingReplacesTheStoredStartPlate() {
    Setup setup;
    setup.current.write("set.dat", kRemindersOff);
    setup.show();
    setup.openPage(1);
    setup.startPlate()->setFocus();
    QTest::keyClicks(setup.startPlate(), "XYZ987");
    setup.press("cmdSetup");
    QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00XYZ987    ", 12));
  }

  void enterOnTheStartPageGoesToTheButtonWhichSavesThePlateAsTyped() {
    Setup setup;
    setup.current.write("rendsz.dat", kTwoVehicles);
    setup.show();
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
    Setup setup;
    setup.show();
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
    Setup setup;
    setup.current.write("set.dat", kRemindersOff);
    setup.show();
    setup.openPage(1);
    press(*setup.reminders());
    QCOMPARE(setup.current.read("set.dat"), kRemindersOff);
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::SettingsStartTest)
#include "frmSetup_start_test.moc"
