#include "ui/main/reminder_switch.h"

#include <QCheckBox>

#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik::ui {
namespace {

struct Switch : test::Desk {
  QCheckBox& box() { return *test::part<QCheckBox>(part, "Check1"); }
  QTimer& timer() { return *part.findChild<QTimer*>("Timer1"); }

  ReminderSwitch part{context, nullptr};
};

}  // namespace

class ReminderSwitchTest : public QObject {
  Q_OBJECT

 private slots:
  void isOnAndChecksAndReadsNothing() {
    Switch reminders;
    QVERIFY(reminders.box().isChecked());
    QCOMPARE(reminders.box().text(), QString(" Bekapcsolva "));
    QVERIFY(reminders.timer().isActive());
    QVERIFY(reminders.current.names().empty());
  }

  void onePutAsItStandsIsNotSaved() {
    Switch reminders;
    reminders.part.setOn(true);
    QVERIFY(!reminders.current.has("set.dat"));
    reminders.part.setOn(false);
    QVERIFY(reminders.current.has("set.dat"));
    QVERIFY(!reminders.timer().isActive());
  }

  // Timers come in the order in which they are due, however late: a check that went on counting would come
  // before the one beside it.
  void theFirstCheckComesAFullIntervalAfterTheShowing() {
    Switch reminders;
    QStringList came;
    QTimer& check = reminders.timer();
    check.setTimerType(Qt::PreciseTimer);
    check.start(300);
    QTimer half;
    QTimer beside;
    for (QTimer* timer : {&half, &beside}) {
      timer->setTimerType(Qt::PreciseTimer);
      timer->setSingleShot(true);
    }
    connect(&half, &QTimer::timeout, &half, [&] {
      beside.start(200);
      reminders.part.show();
    });
    connect(&beside, &QTimer::timeout, &beside, [&] { came << "beside"; });
    connect(&check, &QTimer::timeout, &check, [&] { came << "check"; });
    half.start(150);
    QTRY_VERIFY_WITH_TIMEOUT(came.size() >= 2, 60'000);
    QCOMPARE(came.first(), "beside");
  }

  void aRestingCheckIsNotStartedByTheShowing() {
    Switch reminders;
    reminders.part.setOn(false);
    reminders.part.show();
    QVERIFY(!reminders.timer().isActive());
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ReminderSwitchTest)
#include "reminder_switch_test.moc"
