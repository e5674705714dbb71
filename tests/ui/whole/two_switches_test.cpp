#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/windows/frmSetup.h"

// The switch of the main screen and that of the settings, which share their state and read it the other way
// round.

using namespace tarvik;
using namespace tarvik::test;

namespace {

const QString kFirst = QStringLiteral(" Bekapcsolva ");
const QString kOn = QStringLiteral("  Bekapcsolva  ");
const QString kOff = QStringLiteral("  Kikapcsolva  ");

// What the settings' switch and the timer show; the timer last.
QString shown(bool isMarked, const QString& caption, bool isRunning) {
  return QStringLiteral("%1|%2|%3").arg(isMarked ? "x" : "-", caption, isRunning ? "fut" : "all");
}

struct Household : MainScreen {
  explicit Household(bool isStoredOn) {
    writeLogbook("ABC123", {fuelling({2024, 1, 1}, 15'001, 100'000, true)});
    choosePlateAtStart("ABC123", isStoredOn);
    open();
  }
  bool isRunning() { return find<QTimer>("Timer1")->isActive(); }

  // Opens the settings, presses their switch so often, and closes them; what was seen after each step.
  QStringList visitSettings(int presses) {
    QStringList seen;
    onNextDialog<ui::frmSetup>([&](ui::frmSetup& setup) {
      auto& box = *part<QCheckBox>(setup, "chkRiaszt");
      openPage(*part<QTabWidget>(setup, "SSTab1"), 1);
      seen << shown(box.isChecked(), box.text(), isRunning());
      for (int i = 0; i < presses; ++i) {
        test::press(box);
        seen << shown(box.isChecked(), box.text(), isRunning());
      }
      setup.close();
    });
    pick("mnuSetup");
    return seen;
  }
};

}  // namespace

class TwoSwitchesTest : public QObject {
  Q_OBJECT

 private slots:
  void theSettingsShowWhatIsStoredAndLeaveOrMakeTheTimerSo_data() {
    QTest::addColumn<bool>("isStoredOn");
    QTest::addColumn<int>("mainPresses");
    QTest::addColumn<bool>("isOn");
    QTest::newRow("stored on") << true << 0 << true;
    QTest::newRow("stored on, switched off") << true << 1 << false;
    QTest::newRow("stored on, off and on") << true << 2 << true;
    QTest::newRow("stored off") << false << 0 << false;
    QTest::newRow("stored off, switched on") << false << 1 << true;
    QTest::newRow("stored off, on and off") << false << 2 << false;
  }

  void theSettingsShowWhatIsStoredAndLeaveOrMakeTheTimerSo() {
    QFETCH(bool, isStoredOn);
    QFETCH(int, mainPresses);
    QFETCH(bool, isOn);
    Household main(isStoredOn);
    for (int i = 0; i < mainPresses; ++i) main.press("Check1");
    QCOMPARE(main.isRunning(), isOn);
    QCOMPARE(main.visitSettings(0), QStringList{shown(isOn, isOn ? kFirst : kOff, isOn)});
    QCOMPARE(main.isRunning(), isOn);
    QCOMPARE(main.box("Check1")->isChecked(), isOn);
  }

  void openingTheSettingsAgainAndAgainLeavesRemindersOn() {
    Household main(true);
    for (int i = 0; i < 3; ++i) QCOMPARE(main.visitSettings(0), QStringList{shown(true, kFirst, true)});
    QVERIFY(main.isRunning());
  }

  // The state is 0 from the start: the first press makes it 1, which means off here.
  void theSwitchOfTheSettingsStopsTheTimerAndTheNextOpeningLeavesItStopped() {
    Household main(true);
    QCOMPARE(main.visitSettings(1), (QStringList{shown(true, kFirst, true), shown(false, kOff, false)}));
    QVERIFY(!main.isRunning());
    QCOMPARE(main.visitSettings(1), (QStringList{shown(true, kFirst, false), shown(false, kOn, true)}));
    QVERIFY(main.isRunning());
  }

  void theSettingsSwitchIsReversed() {
    Household main(true);
    main.press("Check1");
    main.press("Check1");  // the state is 1 by now, which means on there and is switched to on here
    QCOMPARE(main.visitSettings(2),
             (QStringList{shown(true, kFirst, true), shown(false, kOn, true), shown(true, kOff, false)}));
    QVERIFY(!main.isRunning());
    QVERIFY(main.box("Check1")->isChecked());
  }

  void afterASwitchInTheSettingsAStoredOffAgreesAgain() {
    Household main(false);
    QCOMPARE(main.visitSettings(1), (QStringList{shown(false, kOff, false), shown(true, kOn, true)}));
    QVERIFY(main.isRunning());
    QCOMPARE(main.visitSettings(0), QStringList{shown(false, kOff, false)});
    QVERIFY(!main.isRunning());
  }

  // The first opening left the state at 1; the main screen's next check stops the timer that the second
  // opening starts.
  void aStoredOffSwitchesBackAtEverySecondOpening() {
    Household main(false);
    QCOMPARE(main.visitSettings(0), QStringList{shown(false, kOff, false)});
    QCOMPARE(main.visitSettings(0), QStringList{shown(false, kOn, true)});
    QMetaObject::invokeMethod(main.find<QTimer>("Timer1"), "timeout");
    QVERIFY(!main.isRunning());
    QCOMPARE(main.visitSettings(0), QStringList{shown(false, kOff, false)});
  }
};

TARVIK_SCREEN_TEST(TwoSwitchesTest)
#include "two_switches_test.moc"
