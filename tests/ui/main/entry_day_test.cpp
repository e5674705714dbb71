#include "tests/ui/screen_test.h"

#include "tests/ui/day_ways.h"
#include "tests/ui/main_screen.h"

namespace tarvik::test {
namespace {

// The main screen with a fill-up of an earlier year in its list.
struct Day : MainScreen {
  Day() {
    writeLogbook("ABC123", {fuelling({2013, 7, 1}, 1'000, 405'000, true)});
    choosePlateAtStart("ABC123", false);
    open();
  }

  QDateEdit& field() { return *find<QDateEdit>("DTPicker1"); }
  bool isCued() {
    const bool isShown = find<QLabel>("lbNemMai")->isVisible();
    if (isShown != find<QPushButton>("cmdMa")->isVisible()) qFatal("the cue and the button part");
    return isShown;
  }
  void lookAtClock() {
    auto* const timer = find<QTimer>("midnight");
    if (!timer->isActive()) qFatal("nobody looks at the clock");
    QMetaObject::invokeMethod(timer, "timeout");
  }
  void passMidnight() {
    ++clock.day.number;
    lookAtClock();
  }
};

const QDate kToday(2026, 11, 21);
const QDate kTomorrow(2026, 11, 22);

}  // namespace

class EntryDayTest : public QObject {
  Q_OBJECT

 private slots:
  void theDayOfAChosenRowIsCued() {
    Day main;
    QVERIFY(!main.isCued());
    main.clickRow(0);
    QCOMPARE(main.field().date(), QDate(2013, 7, 1));
    QVERIFY(main.isCued());
    QVERIFY(main.find<QLabel>("lbNemMai")->font().bold());
  }

  void theCueComesAndGoesWithTheTypedDay() {
    Day main;
    main.type("DTPicker1", QDate(2026, 11, 20));
    QVERIFY(main.isCued());
    main.type("DTPicker1", kToday);
    QVERIFY(!main.isCued());
  }

  void theCueStaysAfterARecording() {
    Day main;
    main.clickRow(0);
    main.type("txKmOra", "1200");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.stored("ABC123", 2).Datum, 41'456.0);
    QVERIFY(main.isCued());
  }

  void aClickAndAKeyLeadBackToToday() {
    Day main;
    main.clickRow(0);
    main.press("cmdMa");
    QCOMPARE(main.field().date(), kToday);
    QVERIFY(!main.isCued());
    QVERIFY(main.field().hasFocus());

    main.clickRow(0);
    main.edit("txKmOra")->setFocus();
    pressKey(Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(main.field().date(), kToday);
    QVERIFY(main.edit("txKmOra")->hasFocus());
  }

  void atMidnightTheDayGoesOnThatNobodySet() {
    Day main;
    pressKey(Qt::Key_Tab);  // passing through is not setting
    enter(main.field(), Way::Tab);
    pressKey(Qt::Key_Tab);
    clickLetter(main.field(), 9);
    main.passMidnight();
    QCOMPARE(main.field().date(), kTomorrow);
    QVERIFY(!main.isCued());
    ++main.clock.day.number;
    main.screen->activateWindow();
    QEvent shown(QEvent::WindowActivate);
    QApplication::sendEvent(&main.field(), &shown);
    QCOMPARE(main.field().date(), QDate(2026, 11, 23));
  }

  void aFillUpAfterMidnightIsOfTheNewDayEvenBeforeTheClockWasLookedAt() {
    Day main;
    main.type("txKmOra", "1200");
    ++main.clock.day.number;
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.stored("ABC123", 2).Datum, 46'348.0);
  }

  void aDayThatWasSetStaysAtMidnightAndIsCued() {
    const QList<std::function<void(Day&)>> sets{
        [](Day& main) { main.type("DTPicker1", kToday); },
        [](Day& main) {
          enter(main.field(), Way::Backtab);
          pressKey(Qt::Key_Up);
          pressKey(Qt::Key_Down);
        },
        [](Day& main) {
          main.clickRow(0);
          main.type("DTPicker1", kToday);
        },
        [](Day& main) { main.field().setDate(kToday.addDays(1)), main.field().setDate(kToday); },
        [](Day& main) {
          enter(main.field(), Way::Tab);
          typeKeys(main.field(), "2026");
          pressKey(Qt::Key_Tab);
        },
    };
    for (const auto& set : sets) {
      Day main;
      set(main);
      QVERIFY(!main.isCued());
      main.passMidnight();
      QCOMPARE(main.field().date(), kToday);
      QVERIFY(main.isCued());
    }
  }

  void aRowOfTodayIsSetToo() {
    Day main;
    main.writeLogbook("ABC123", {fuelling({2026, 11, 21}, 1'000, 405'000, true)});
    main.screen->beolvas();
    main.clickRow(0);
    main.passMidnight();
    QCOMPARE(main.field().date(), kToday);
    QVERIFY(main.isCued());
  }

  void theWayBackFromADayThatHasBecomeTodayTakesTheCueAway() {
    Day main;
    main.type("DTPicker1", kTomorrow);
    ++main.clock.day.number;
    QVERIFY(main.isCued());
    main.press("cmdMa");
    QVERIFY(!main.isCued());
  }

  void theButtonBeginsAnew() {
    Day main;
    main.clickRow(0);
    main.press("cmdMa");
    main.passMidnight();
    QCOMPARE(main.field().date(), kTomorrow);
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::EntryDayTest)
#include "entry_day_test.moc"
