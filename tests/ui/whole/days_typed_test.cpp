#include "tests/ui/screen_test.h"

#include "repairs/repair_log.h"
#include "tests/ui/day_ways.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/reminder_desk.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmSzerviz.h"

namespace tarvik::test {
namespace {

constexpr double k21June2013 = 41'446;
constexpr double k5July2013 = 41'460;

QDateEdit& dayField(const QWidget& screen, const char* name) {
  return *part<QDateEdit>(screen, name);
}

// Comes into the field another way each time, with each form of the day.
template <typename Record>
void typeIntoEach(QDateEdit& field, const QStringList& texts, Record record) {
  const auto ways = static_cast<qsizetype>(std::size(kWays));
  for (qsizetype round = 0; round < std::max(texts.size(), ways); ++round) {
    const QString& text = texts[round % texts.size()];
    enter(field, kWays[round % ways]);
    typeWithMoves(text);
    record(text);
  }
}

}  // namespace

class DaysTypedTest : public QObject {
  Q_OBJECT

 private slots:
  void aFillUpIsStoredWithTheTypedDay() {
    ListedCar main({});
    int entries = 0;
    typeIntoEach(dayField(*main.screen, "DTPicker1"), kTyped21June2013, [&](const QString& typed) {
      recordByLetter(main, entries);
      QVERIFY2(main.stored("ABC123", ++entries).Datum == k21June2013, qPrintable(typed));
    });
  }

  void aFillUpIsStoredWithTheDayThatIsShownWhereNoneWasTyped() {
    MainScreen main;
    main.clock.day = core::dayOf({2013, 7, 5});
    main.writeLogbook("ABC123", {});
    main.choosePlateAtStart("ABC123");
    main.open();
    int entries = 0;
    typeIntoEach(dayField(*main.screen, "DTPicker1"), {"2013.06.31", "0612.01.01", "2013.06.21x", "2013062"},
                 [&](const QString& typed) {
                   recordByLetter(main, entries);
                   QCOMPARE(dayField(*main.screen, "DTPicker1").text(), "2013.07.05.");
                   QVERIFY2(main.stored("ABC123", ++entries).Datum == k5July2013, qPrintable(typed));
                 });
  }

  void theFilterListsTheTypedYear() {
    ListedCar main({fuelling({2013, 6, 5}, 1000, 1, true), fuelling({2014, 6, 1}, 2000, 1, true)});
    typeIntoFilter(main, "opSzürö_1", {"2013.06.21", "20130621", "2013-06-21", "2013. 6. 21."});
    typeIntoFilter(main, "opSzürö_2", {"2013.06.21", "20130621", "2013 06 21", "2013. 6. 21."});
  }

  void aRepairIsStoredWithTheTypedDay() {
    Desk desk;
    ui::frmSzerviz screen(desk.context, "ABC-123", {"ABC-123"}, nullptr);
    show(screen);
    int stored = 0;
    typeIntoEach(dayField(screen, "DTPSzerviz"), kTyped21June2013, [&](const QString& typed) {
      pressKey(Qt::Key_R, Qt::AltModifier);
      const auto log = [&] {
        return core::loadRecords<repairs::Repair>(desk.files, desk.program / "Szerviz.dat");
      };
      QTRY_COMPARE(log().count(), stored + 1);
      QVERIFY2(log().record(++stored).date == k21June2013, qPrintable(typed));
    });
  }

  void aReminderIsStoredWithTheTypedDay() {
    ReminderDesk desk;
    ui::figy screen(desk.context, "ABC-123", nullptr);
    show(screen);
    openPage(*part<QTabWidget>(screen, "SSTab1"), 1);
    typeInto(*part<QLineEdit>(screen, "txtMire"), "Műszaki");
    int stored = 0;
    typeIntoEach(dayField(screen, "DTPMikor"), kTyped21June2013, [&](const QString& typed) {
      BoxScript boxes({QMessageBox::Yes});
      pressKey(Qt::Key_R, Qt::AltModifier);
      const auto all = [&] {
        return core::loadRecords<reminders::FigyDatumRec>(desk.files, desk.current / "figyDatum.dat");
      };
      QTRY_COMPARE(all().count(), stored + 1);
      QVERIFY2(all().record(++stored).Mikor == k21June2013, qPrintable(typed));
      show(screen);
    });
  }

 private:
  static void show(QWidget& screen) {
    screen.activateWindow();
    bringUp(screen);
  }

  // The field shows the day that is stored while the question is asked already.
  static void recordByLetter(MainScreen& main, int entries) {
    main.edit("txKmOra")->setText("1000");
    BoxScript boxes({QMessageBox::Yes});
    QString shown;
    boxes.whileOpen = [&](QMessageBox&) { shown = dayField(*main.screen, "DTPicker1").text(); };
    pressKey(Qt::Key_R, Qt::AltModifier);
    const auto size = static_cast<std::size_t>(entries + 1) * core::NapiAdat::kLength;
    QTRY_COMPARE(main.folder.read("ABC123/napiadat.dat").size(), size);
    QCOMPARE(shown,
             QString::fromStdString(core::shortDateOfStored(main.stored("ABC123", entries + 1).Datum)));
    show(*main.screen);
  }

  static void typeIntoFilter(MainScreen& main, const char* mode, const QStringList& texts) {
    for (const Way way : kWays)
      for (const QString& text : texts) {
        main.press("cmd_lista");
        main.press(mode);
        QDateEdit& field = dayField(*main.screen, "DTPSzürö");
        field.setDate(QDate(2020, 1, 1));
        enter(field, way);
        typeWithMoves(text);
        pressKey(Qt::Key_Return);
        QVERIFY2(main.rows() == 1, qPrintable(text));
        QCOMPARE(main.cell(0, 0), QString("2013.06.05."));
      }
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::DaysTypedTest)
#include "days_typed_test.moc"
