#include <malloc.h>

#include <QDir>
#include <filesystem>

#include "tests/reminders/builders.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/riaszt.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

// Notes the name of every screen that opens over the main one and closes it; message boxes are not meant.
class ScreenWatch : public QObject {
 public:
  ScreenWatch() { qApp->installEventFilter(this); }

  QStringList opened;
  int atOnce = 0;      // open now
  int mostAtOnce = 0;  // ever
  std::function<void()> whileOpen = [] {};

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (dialog == nullptr || qobject_cast<QMessageBox*>(dialog) != nullptr) return false;
    if (event->type() == QEvent::Show) {
      opened.append(dialog->objectName());
      mostAtOnce = std::max(mostAtOnce, ++atOnce);
      QTimer::singleShot(0, dialog, [this, dialog] {
        whileOpen();
        dialog->close();
      });
    }
    if (event->type() == QEvent::Hide) --atOnce;
    return false;
  }
};

std::string kmReminder(const char* plate, std::int32_t reading, std::int32_t after,
                       const char* text = "Olajcsere") {
  return fileOf({test::kmReminder(reading, after, text, plate)});
}

std::string dateReminder(core::CalendarDate when) {
  const auto days = core::daysBetween(kToday, core::dayOf(when));
  return fileOf({test::dateReminder(static_cast<int>(days), "Vizsga", "ABC123")});
}

// A household whose one car stands at that reading, reminders on.
struct Household : MainScreen {
  explicit Household(std::int32_t reading = 15'001, bool reminders = true) {
    writeLogbook("ABC123",
                 {fuelling({2024, 1, 1}, reading, 100'000, true), fuelling({2024, 1, 2}, 0, 0, false)});
    choosePlateAtStart("ABC123", reminders);
  }
  QTimer* timer() { return find<QTimer>("Timer1"); }
  void tick() { QMetaObject::invokeMethod(timer(), "timeout"); }
  std::string flag() { return folder.read("set.dat").substr(0, 2); }
};

const std::string kOn(2, '\xFF');
const std::string kOff(2, '\0');

qsizetype openFiles() {
  return QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

// Memory and open files are after so many acts what they were after the first hundred.
void expectSteady(int times, const std::function<void()>& act) {
  const auto repeat = [&act](int count) {
    for (int i = 0; i < count; ++i) act();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  };
  repeat(100);
  const auto memory = mallinfo2().uordblks;
  const auto files = openFiles();
  repeat(times);
  QVERIFY2(mallinfo2().uordblks < memory + 300'000,
           qPrintable(QString::number(mallinfo2().uordblks - memory)));
  QVERIFY(openFiles() <= files);  // Qt may have let go of its own meanwhile
}

}  // namespace

class FrmTarvikRemindersTest : public QObject {
  Q_OBJECT

 private slots:
  void aStoredOnChangesNothingAtStart() {
    Household main;
    main.open();
    QCOMPARE(main.box("Check1")->text(), QString(" Bekapcsolva "));
    QVERIFY(main.box("Check1")->isChecked());
    QCOMPARE(main.context.state.reminderState, std::int16_t{0});
    QVERIFY(main.timer()->isActive());
    QCOMPARE(main.timer()->interval(), 5000);
  }

  void switchingWritesTheFlagAndKeepsThePlate() {
    Household main;
    main.open();
    main.press("Check1");
    QCOMPARE(main.folder.read("set.dat"), kOff + "ABC123    ");
    QCOMPARE(main.box("Check1")->text(), QString("  Kikapcsolva  "));
    QCOMPARE(main.context.state.reminderState, std::int16_t{0});
    QVERIFY(!main.timer()->isActive());
    main.press("Check1");
    QCOMPARE(main.folder.read("set.dat"), kOn + "ABC123    ");
    QCOMPARE(main.box("Check1")->text(), QString("  Bekapcsolva  "));
    QCOMPARE(main.context.state.reminderState, std::int16_t{1});
    QVERIFY(main.timer()->isActive());
  }

  void aPassedReminderOpensTheAlertAtEachTickUntilItIsGone() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("XYZ789", 1, 1) + kmReminder("ABC123", 10'000, 5'000) +
                                        kmReminder("ABC123", 1, 1));
    main.open();
    ScreenWatch screens;
    main.tick();
    main.tick();
    QCOMPARE(screens.opened, (QStringList{"riaszt", "riaszt"}));
    QCOMPARE(main.context.state.selectedReminder, std::int16_t{2});
    QCOMPARE(main.context.state.currentReading, 15'001);
    QVERIFY(main.timer()->isActive());
    main.folder.write("figyel.dat", "");
    main.tick();
    QCOMPARE(screens.opened.size(), 2);
  }

  void anotherVehiclesReminderWaitsUntilThatOneIsChosen() {
    Household main;
    main.writeLogbook("XYZ789", {fuelling({2024, 1, 1}, 20'000, 100'000, true)});
    main.folder.write("figyel.dat", kmReminder("XYZ789", 10'000, 5'000));
    main.open();
    ScreenWatch screens;
    main.tick();
    QCOMPARE(screens.opened, QStringList());
    main.type("Combo1", "XYZ789");
    main.tick();
    QCOMPARE(screens.opened, (QStringList{"riaszt"}));
  }

  void aReminderOfAPlateTypedWithASpaceIsItsCarsOne() {
    Household main;
    main.open();
    main.type("Combo1", " ABC123");
    ScreenWatch screens;
    screens.whileOpen = [] {
      QWidget& open = *QApplication::activeModalWidget();
      if (open.objectName() != "figy") return;
      typeInto(*open.findChild<QLineEdit*>("tx_km_allas"), "10000");
      typeInto(*open.findChild<QLineEdit*>("tx_km_mulva"), "5000");
      typeInto(*open.findChild<QLineEdit*>("tx_szoveg"), "Olaj");
      BoxScript boxes({QMessageBox::Yes});
      press(*open.findChild<QPushButton*>("cmd_rogzit"));
    };
    main.press("cmd_figyel");
    QCOMPARE(main.folder.read("figyel.dat").substr(58), std::string(" ABC123   "));
    main.tick();
    main.type("Combo1", "ABC123");
    main.tick();
    main.type("Combo1", "XYZ789");
    main.tick();
    QCOMPARE(screens.opened, (QStringList{"figy", "riaszt", "riaszt"}));
  }

  void theTimerRestsWhileTheAlertIsOpenAndNeverTwoAreOpen() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 10'000, 5'000));
    main.open();
    ScreenWatch screens;
    screens.whileOpen = [&] {
      QVERIFY(!main.timer()->isActive());
      main.tick();
    };
    main.tick();
    QCOMPARE(screens.opened, (QStringList{"riaszt"}));
    QCOMPARE(screens.mostAtOnce, 1);
  }

  void noAlertComesWhileAQuestionIsOpen() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 10'000, 5'000));
    main.open();
    ScreenWatch screens;
    QTimer::singleShot(0, &*main.screen, [&] { main.tick(); });
    BoxScript boxes({QMessageBox::No});
    main.screen->close();
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(screens.opened, QStringList());
    main.tick();
    QCOMPARE(screens.opened, (QStringList{"riaszt"}));
  }

  void anEmptyLogbookStopsTheTimer() {
    Household main;
    main.writeLogbook("ABC123", {});
    main.open();
    main.tick();
    QVERIFY(!main.timer()->isActive());
  }

  void theEntryButtonStopsTheTimerAndStartsItWhateverTheSwitchSays() {
    Household main(15'001, false);
    main.open();
    ScreenWatch screens;
    screens.whileOpen = [&] { QVERIFY(!main.timer()->isActive()); };
    main.press("cmd_figyel");
    QCOMPARE(screens.opened, (QStringList{"figy"}));
    QVERIFY(main.timer()->isActive());
    main.tick();
    QVERIFY(!main.timer()->isActive());
  }

  void aDateReminderDueInFourteenDaysComesBeforeTheLists() {
    Household main(15'001, false);
    main.writeVehicles({"ABC123"});
    main.folder.write("figyDatum.dat",
                      dateReminder({2026, 12, 6}) + dateReminder({2026, 12, 5}) + dateReminder({2020, 1, 1}));
    ScreenWatch screens;
    int platesThen = -1;
    screens.whileOpen = [&] { platesThen = main.combo("Combo1")->count(); };
    main.open();
    QCOMPARE(screens.opened, (QStringList{"frmDatumFigyelmeztetes"}));
    QCOMPARE(platesThen, 0);
    QCOMPARE(main.combo("Combo1")->count(), 1);
    QCOMPARE(main.context.state.selectedReminder, std::int16_t{2});
  }

  void aCheckThatFailsIsToldOnceAndGoesOn() {
    Household main;
    main.folder.makeFolder("figyel.dat");
    main.open();
    BoxScript boxes;
    for (int i = 0; i < 3; ++i) main.tick();
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].title, QString(" H i b a !"));
    QVERIFY(main.timer()->isActive());
    std::filesystem::remove(main.folder / "figyel.dat");
    main.tick();
    std::filesystem::remove(main.folder / "figyel.dat");
    main.folder.makeFolder("figyel.dat");
    main.tick();
    QCOMPARE(boxes.seen.size(), 2);
  }

  void aReminderThatCannotBeCheckedIsToldOnceAndKeepsNoOtherFromAlerting() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 2'147'483'647, 1, "Olaj <b>%1") +
                                        kmReminder("ABC123", 1, 2'147'483'647, "") +
                                        kmReminder("ABC123", 10'000, 5'000));
    main.open();
    BoxScript boxes;
    ScreenWatch screens;
    for (int i = 0; i < 3; ++i) main.tick();
    QCOMPARE(boxes.seen, QList{errorBox(" H i b a !",
                                        "Nem ellenőrizhető figyelmeztetés, az esedékessége túl nagy szám:\n"
                                        "Olaj <b>%1\n(szöveg nélkül)\n\n"
                                        "A többit a program ellenőrzi. Töröld ezt, és vedd fel újra!")});
    QCOMPARE(screens.opened, (QStringList{"riaszt", "riaszt", "riaszt"}));
    QCOMPARE(main.context.state.selectedReminder, std::int16_t{3});
    QVERIFY(main.timer()->isActive());
  }

  void oneThatCannotBeCheckedAfterAnotherIsToldAlone() {
    Household main;
    const std::string first = kmReminder("ABC123", 2'147'483'647, 1, "Olaj");
    main.folder.write("figyel.dat", first);
    main.open();
    BoxScript boxes;
    main.tick();
    main.folder.write("figyel.dat", first + kmReminder("ABC123", 2'147'483'647, 1, "Fék"));
    main.tick();
    QCOMPARE(boxes.seen.size(), 2);
    QVERIFY(boxes.seen[1].text.contains("\nFék\n") && !boxes.seen[1].text.contains("Olaj"));
  }

  void aPlateWithoutAFolderChecksNothingAndTheTimerGoesOn() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 10'000, 5'000));
    main.open();
    BoxScript boxes;
    ScreenWatch screens;
    for (const char* onTheWay : {"", " ", "ABC", ".."}) {
      main.type("Combo1", onTheWay);
      main.tick();
      QVERIFY(main.timer()->isActive());
    }
    QCOMPARE(boxes.seen.size(), 0);
    main.type("Combo1", "ABC123");
    main.tick();
    QCOMPARE(screens.opened, (QStringList{"riaszt"}));
  }

  void aSwitchThatCannotBeSavedSwitchesNothing_data() {
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
  }
  void aSwitchThatCannotBeSavedSwitchesNothing() {
    QFETCH(bool, on);
    Household main;
    main.open();
    main.press("Check1");
    if (on) main.press("Check1");
    const QString caption = main.box("Check1")->text();
    const std::int16_t state = main.context.state.reminderState;
    std::filesystem::permissions(main.folder / "set.dat", std::filesystem::perms::owner_read);
    BoxScript boxes;
    main.press("Check1");
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(main.box("Check1")->isChecked(), on);
    QCOMPARE(main.box("Check1")->text(), caption);
    QCOMPARE(main.context.state.reminderState, state);
    QCOMPARE(main.timer()->isActive(), on);
    QCOMPARE(main.flag(), on ? kOn : kOff);
  }

  void aStoredOffThatCannotBeSavedAgainLeavesTheSwitchOn() {
    Household main(15'001, false);
    std::filesystem::permissions(main.folder / "set.dat", std::filesystem::perms::owner_read);
    BoxScript boxes;
    main.open();
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY(main.box("Check1")->isChecked());
    QCOMPARE(main.box("Check1")->text(), QString(" Bekapcsolva "));
    QVERIFY(main.timer()->isActive());
    QCOMPARE(main.context.state.reminderState, std::int16_t{0});
  }

  void theAlertComesOverAScreen_data() {
    QTest::addColumn<QString>("screen");
    for (const char* item : {"mnuSetup", "mnuGumik", "mnuSzerviz"}) QTest::newRow(item) << QString(item);
    QTest::newRow("chooser") << QString();
  }
  void theAlertComesOverAScreen() {
    QFETCH(QString, screen);
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 10'000, 5'000));
    main.open();
    ScreenWatch screens;
    screens.whileOpen = [&] { main.tick(); };
    screen.isEmpty() ? main.press("cmdGrafikon") : main.chooseItem(qPrintable(screen));
    QCOMPARE(screens.opened.size(), 2);
    QCOMPARE(screens.opened.last(), QString("riaszt"));
    QCOMPARE(screens.mostAtOnce, 2);
  }

  void theAlertWaitsForAnErrorOverAScreen() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 10'000, 5'000));
    main.folder.makeFolder("Gumik.dat");
    main.open();
    ScreenWatch screens;
    BoxScript boxes;
    boxes.whileOpen = [&](QMessageBox&) { main.tick(); };
    main.chooseItem("mnuGumik");
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(screens.opened, (QStringList{"frmGumik"}));
  }

  void aMenuItemDoesItsWorkWhenItsMenuHasClosed() {
    Household main;
    main.open();
    ScreenWatch screens;
    main.find<QAction>("mnuGumik")->trigger();
    QCOMPARE(screens.opened, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(screens.opened, (QStringList{"frmGumik"}));
  }

  void tenThousandTicksLeaveMemoryAndFilesAsTheyWere() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 100'000, 5'000));
    main.open();
    expectSteady(10'000, [&] { main.tick(); });
  }

  void aThousandOpeningsOfEachScreenLeaveMemoryAndFilesAsTheyWere() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 10'000, 5'000));
    main.folder.write("figyDatum.dat", dateReminder({2026, 11, 21}));
    main.context.state.currentReading = 15'001;
    expectSteady(1'000, [&] { ui::figy(main.context, "ABC123", nullptr).show(); });
    expectSteady(1'000, [&] { ui::riaszt(main.context, "ABC123", nullptr).show(); });
    expectSteady(1'000, [&] { ui::frmDatumFigyelmeztetes(main.context, nullptr).show(); });
  }

  void theRealTimerRaisesTheAlertWithinFiveSecondsOfShowing() {
    Household main;
    main.folder.write("figyel.dat", kmReminder("ABC123", 10'000, 5'000));
    ScreenWatch screens;
    main.open();
    QTRY_COMPARE_WITH_TIMEOUT(screens.opened, (QStringList{"riaszt"}), 60'000);
  }
};

TARVIK_SCREEN_TEST(FrmTarvikRemindersTest)
#include "frmTarvik_reminders_test.moc"
