#include <malloc.h>

#include <QTimer>
#include <filesystem>

#include "tests/reminders/builders.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/next_dialog.h"
#include "ui/figy.h"
#include "ui/frmDatumFigyelmeztetes.h"
#include "ui/riaszt.h"

namespace tarvik {
namespace {

using test::deletedKmReminder;
using test::fileOf;
using test::kmReminder;
using test::onNextDialog;

const std::string kOn("\xFF\xFF", 2);
const std::string kOff(2, '\0');

/// The main screen with ABC-123 at 15 001 km.
struct Reminding : test::MainScreen {
  Reminding() {
    choosePlateAtStart("ABC-123");
    drive("ABC-123", 15001);
  }

  void drive(const char* plate, std::int32_t reading) {
    writeLogbook(plate, {test::fuelling({2026, 11, 1}, reading, 400000, true)});
  }
  void store(std::initializer_list<reminders::FigyelRec> reminders) const {
    folder.write("figyel.dat", fileOf(reminders));
  }
  void storeDate(int days) const {
    folder.write("figyDatum.dat", fileOf({dueIn(60, "Messze"), dueIn(days, "Műszaki")}));
  }
  reminders::FigyDatumRec dueIn(int days, std::string_view text) const {
    reminders::FigyDatumRec reminder = test::dateReminder(0, text, "ABC-123");
    reminder.Mikor = core::toStored(core::addDays(clock.today(), days));
    return reminder;
  }

  QTimer* timer() { return find<QTimer>("Timer1"); }
  QCheckBox* reminderSwitch() { return box("Check1"); }
  std::string storedFlag() const { return folder.read("set.dat").substr(0, 2); }

  /// One tick of the timer; nothing when it stands still.
  void tick() {
    if (!timer()->isActive()) return;
    QTimerEvent event(timer()->timerId());
    QCoreApplication::sendEvent(timer(), &event);
  }
  /// Ticks and closes the alert that must come up; looks at it before.
  void tickAndLook(const std::function<void(ui::riaszt&)>& look) {
    bool came = false;
    onNextDialog<ui::riaszt>([&](ui::riaszt& alert) {
      came = true;
      look(alert);
      alert.close();
    });
    tick();
    QVERIFY(came);
  }
  /// Ticks; whether a dialog came up (it is closed).
  bool tickOpensADialog() {
    bool came = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&came] {
      if (auto* dialog = QApplication::activeModalWidget()) {
        came = true;
        dialog->close();
      }
    });
    watch.start(0);
    tick();
    return came;
  }
};

qsizetype openFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class FrmTarvikRemindersTest : public QObject {
  Q_OBJECT

 private slots:
  void aDateDueInFourteenDaysOpensTheAlertBeforeTheListsAreFilled() {
    Reminding main;
    main.folder.write("rendsz.dat", std::string("ABC-123 \x2D\x00", 10));
    main.storeDate(14);
    int alerts = 0;
    onNextDialog<ui::frmDatumFigyelmeztetes>([&](ui::frmDatumFigyelmeztetes& alert) {
      ++alerts;
      auto* list = qobject_cast<QTreeView*>(alert.findChild<QTreeView*>("ListView1"));
      QCOMPARE(list->model()->rowCount(), 1);
      QCOMPARE(main.context.state.selectedReminder, 2);
      QCOMPARE(alert.parentWidget()->findChild<QComboBox*>("Combo1")->count(), 0);
      alert.close();
    });
    main.open();
    QCOMPARE(alerts, 1);
    QCOMPARE(main.combo("Combo1")->count(), 1);
  }

  void theDateAlertComesWithTheSwitchOffToo() {
    Reminding main;
    main.choosePlateAtStart("ABC-123", false);
    main.storeDate(-3);
    int alerts = 0;
    onNextDialog<ui::frmDatumFigyelmeztetes>([&](ui::frmDatumFigyelmeztetes& alert) {
      ++alerts;
      alert.close();
    });
    main.open();
    QCOMPARE(alerts, 1);
  }

  void aDateDueInFifteenDaysOpensNothing() {
    Reminding main;
    main.storeDate(15);
    main.open();
    QCOMPARE(main.context.state.selectedReminder, 0);
  }

  void aStoredMinusOneChangesNothingAtStart() {
    Reminding main;
    main.open();
    QVERIFY(main.reminderSwitch()->isChecked());
    QCOMPARE(main.reminderSwitch()->text(), QStringLiteral(" Bekapcsolva "));
    QCOMPARE(main.context.state.reminderState, 0);
    QVERIFY(main.timer()->isActive());
    QCOMPARE(main.timer()->interval(), 5000);
  }

  void aStoredZeroRunsTheSwitchAtStart() {
    Reminding main;
    main.choosePlateAtStart("ABC-123", false);
    main.open();
    QVERIFY(!main.reminderSwitch()->isChecked());
    QCOMPARE(main.reminderSwitch()->text(), QStringLiteral("  Kikapcsolva  "));
    QVERIFY(!main.timer()->isActive());
    QCOMPARE(main.storedFlag(), kOff);
  }

  void theSwitchStoresItsFlagAndSetsCaptionStateAndTimer() {
    Reminding main;
    main.open();
    main.press("Check1");
    QCOMPARE(main.folder.read("set.dat"), kOff + test::padded("ABC-123", 10));
    QCOMPARE(main.reminderSwitch()->text(), QStringLiteral("  Kikapcsolva  "));
    QCOMPARE(main.context.state.reminderState, 0);
    QVERIFY(!main.timer()->isActive());
    main.press("Check1");
    QCOMPARE(main.folder.read("set.dat"), kOn + test::padded("ABC-123", 10));
    QCOMPARE(main.reminderSwitch()->text(), QStringLiteral("  Bekapcsolva  "));
    QCOMPARE(main.context.state.reminderState, 1);
    QVERIFY(main.timer()->isActive());
  }

  void aPassedReminderOpensTheAlertWithTheFirstOneSelected() {
    Reminding main;
    main.store({kmReminder(1, 1, "Másé", "DEF-456"), kmReminder(10000, 5000, "Olaj", "ABC-123"),
                deletedKmReminder("ABC-123"), kmReminder(10000, 5001, "Szűrő", "ABC-123"),
                kmReminder(1, 1, "Fék", "ABC-123")});
    main.open();
    main.tickAndLook([&](ui::riaszt& alert) {
      QCOMPARE(alert.findChild<QLineEdit*>("tx_szoveg")->text().trimmed(), QStringLiteral("Olaj"));
      QCOMPARE(main.context.state.selectedReminder, 2);
      QCOMPARE(main.context.state.currentReading, 15001);
      QVERIFY(!main.timer()->isActive());
    });
    QVERIFY(main.timer()->isActive());
  }

  void theAlertComesBackUntilTheReminderIsGone() {
    Reminding main;
    main.store({kmReminder(10000, 5000, "Olaj", "ABC-123")});
    main.open();
    main.tickAndLook([](ui::riaszt&) {});
    main.tickAndLook([](ui::riaszt& alert) { alert.findChild<QPushButton*>("cmd_torles")->click(); });
    QVERIFY(!main.tickOpensADialog());
    QVERIFY(main.timer()->isActive());
  }

  void aReadingAtTheDueReadingOpensNothing() {
    Reminding main;
    main.drive("ABC-123", 15000);
    main.store({kmReminder(10000, 5000, "Olaj", "ABC-123")});
    main.open();
    QVERIFY(!main.tickOpensADialog());
    QVERIFY(main.timer()->isActive());
  }

  void anotherVehiclesReminderWaitsUntilItIsChosen() {
    Reminding main;
    main.drive("DEF-456", 20000);
    main.store({kmReminder(10000, 5000, "Olaj", "DEF-456")});
    main.open();
    QVERIFY(!main.tickOpensADialog());
    main.combo("Combo1")->setEditText("DEF-456");
    QVERIFY(main.tickOpensADialog());
  }

  void withTheSwitchOffTheNextTickStopsTheTimer() {
    Reminding main;
    main.store({kmReminder(10000, 5000, "Olaj", "ABC-123")});
    main.open();
    main.press("Check1");
    main.timer()->start();
    QVERIFY(!main.tickOpensADialog());
    QVERIFY(!main.timer()->isActive());
  }

  void anEmptyLogbookStopsTheTimerUntilTheEntryScreenWasOpen() {
    Reminding main;
    main.folder.write("ABC-123/napiadat.dat", "");
    main.open();
    main.tick();
    QVERIFY(!main.timer()->isActive());
    bool stopped = false;
    onNextDialog<ui::figy>([&](ui::figy& entry) {
      stopped = !main.timer()->isActive();
      entry.close();
    });
    main.press("cmd_figyel");
    QVERIFY(stopped);
    QVERIFY(main.timer()->isActive());
  }

  void theEntryScreenTakesThePlateAsItStands() {
    Reminding main;
    main.open();
    test::BoxScript boxes({QMessageBox::No});
    onNextDialog<ui::figy>([&](ui::figy& entry) {
      entry.findChild<QPushButton*>("cmdRogzit2")->click();
      entry.close();
    });
    main.press("cmd_figyel");
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].text, "Biztos JÓK az adatok ?\nMehet a rögzítés " +
                                     main.combo("Combo1")->currentText() + " gépkocsira?");
  }

  void noAlertLiesOverAQuestion() {
    Reminding main;
    main.store({kmReminder(10000, 5000, "Olaj", "ABC-123")});
    main.open();
    QMessageBox question(main.screen.get());
    question.open();
    main.tick();
    QCOMPARE(QApplication::activeModalWidget(), &question);
    question.close();
    QVERIFY(main.tickOpensADialog());
  }

  void anOverflowIsToldOnceAndStopsTheChecks() {
    Reminding main;
    main.store({kmReminder(std::numeric_limits<std::int32_t>::max(), 1, "Olaj", "ABC-123")});
    main.open();
    test::BoxScript boxes;
    main.tick();
    main.tick();
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].title, QStringLiteral(" H i b a !"));
  }

  void tenThousandTicksAndAThousandOpeningsLeaveNothingBehind() {
    Reminding main;
    main.store({kmReminder(10000, 5001, "Olaj", "ABC-123")});
    main.open();
    const auto run = [&](int ticks, int openings) {
      for (int i = 0; i < ticks; ++i) main.tick();
      for (int i = 0; i < openings; ++i) {
        ui::figy(main.context, "ABC-123", main.screen.get()).show();
        ui::riaszt(main.context, "ABC-123", main.screen.get()).show();
        ui::frmDatumFigyelmeztetes(main.context, main.screen.get()).show();
      }
      QCoreApplication::sendPostedEvents();
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    run(100, 20);
    const auto filesBefore = openFiles();
    const std::size_t memoryBefore = mallinfo2().uordblks;
    run(10000, 1000);
    QCOMPARE(openFiles(), filesBefore);
    const auto grown = static_cast<std::int64_t>(mallinfo2().uordblks - memoryBefore);
    QVERIFY2(grown < 1'000'000, qPrintable(QString::number(grown)));
  }

  void theRealTimerOpensTheAlertWithinFiveSeconds() {
    Reminding main;
    main.store({kmReminder(10000, 5000, "Olaj", "ABC-123")});
    main.open();
    bool came = false;
    onNextDialog<ui::riaszt>([&](ui::riaszt& alert) {
      came = true;
      alert.close();
    });
    QTRY_VERIFY_WITH_TIMEOUT(came, 8000);
  }
};

}  // namespace
}  // namespace tarvik

QTEST_MAIN(tarvik::FrmTarvikRemindersTest)
#include "frmTarvik_reminders_test.moc"
