#include "ui/look/day_field.h"

#include "tests/ui/screen_test.h"

#include <QAccessible>
#include <QCalendarWidget>
#include <QSignalSpy>

#include "tests/ui/day_bench.h"

namespace tarvik::test {

/// How one comes to a part and steps it: by keys, clicks, the calendar and assistive tools.
class DayFieldMovesTest : public QObject {
  Q_OBJECT

 private slots:
  void tabGoesThroughThePartsAndOn() {
    DayBench bench;
    pressKey(Qt::Key_Tab);
    for (const char* part : {"2013", "07", "05"}) {
      QVERIFY(bench.field.hasFocus());
      QCOMPARE(bench.chosen(), part);
      pressKey(Qt::Key_Tab);
    }
    QVERIFY(bench.behind.hasFocus());
    pressKey(Qt::Key_Backtab);
    for (const char* part : {"05", "07", "2013"}) {
      QVERIFY(bench.field.hasFocus());
      QCOMPARE(bench.chosen(), part);
      pressKey(Qt::Key_Backtab);
    }
    QVERIFY(bench.before.hasFocus());
    pressKey(Qt::Key_N, Qt::AltModifier);
    QCOMPARE(bench.chosen(), "2013");
    QCOMPARE(bench.field.date(), kOld);
  }

  void arrowsToTheSidesGoThroughChosenParts() {
    DayBench bench;
    enter(bench.field, Way::Tab);
    pressKey(Qt::Key_Right);
    QCOMPARE(bench.chosen(), "07");
    pressKey(Qt::Key_Left);
    QCOMPARE(bench.chosen(), "2013");
    typeWithMoves("2014");
    pressKey(Qt::Key_Left);
    QCOMPARE(bench.text(), "2014.07.05.");
    pressKey(Qt::Key_Delete);
    typeWithMoves("5");
    finish(bench, End::Enter);
    QCOMPARE(bench.text(), "2015.07.05.");
    bench.restart();
    enter(bench.field, Way::Backtab);
    typeWithMoves("2");
    pressKey(Qt::Key_Right);
    typeWithMoves("1");
    QCOMPARE(bench.text(), "2013.07.21.");
    bench.restart();
    enter(bench.field, Way::Tab);
    typeWithMoves("2014");
    pressKey(Qt::Key_Right);
    QCOMPARE(bench.chosen(), "07");
  }

  void arrowsUpAndDownStepThePartUnderTheCursor() {
    const auto stepped = [](Way way, Qt::Key key) {
      DayBench bench;
      enter(bench.field, way);
      pressKey(key);
      return bench.text();
    };
    for (const Way way : {Way::Tab, Way::ClickYear, Way::Letter}) {
      QCOMPARE(stepped(way, Qt::Key_Up), "2014.07.05.");
      QCOMPARE(stepped(way, Qt::Key_Down), "2012.07.05.");
    }
    QCOMPARE(stepped(Way::ClickMonth, Qt::Key_Up), "2013.08.05.");
    for (const Way way : {Way::Backtab, Way::ClickDay, Way::ClickBehind}) {
      QCOMPARE(stepped(way, Qt::Key_Up), "2013.07.06.");
      QCOMPARE(stepped(way, Qt::Key_PageDown), "2013.06.25.");
    }
    DayBench bench(QDate(2024, 2, 29));
    enter(bench.field, Way::Tab);
    typeWithMoves("2013>");
    pressKey(Qt::Key_Up);
    QCOMPARE(bench.text(), "2024.03.29.");
    QCOMPARE(bench.chosen(), "03");
    typeWithMoves("6");
    pressKey(Qt::Key_Down);
    QCOMPARE(bench.text(), "2024.05.29.");
  }

  void aFieldOfAMonthHasRoomForTheLongestMonthAndOneOfADayForADay() {
    DayBench bench;
    const int ofDay = bench.field.sizeHint().width();
    bench.field.showUpTo(DayPart::Month);
    const QFontMetrics letters = bench.field.fontMetrics();
    QCOMPARE(bench.field.sizeHint().width() - ofDay,
             letters.horizontalAdvance("9999. szeptember ") - letters.horizontalAdvance("9999.99.99. "));
  }

  void aProgramCanChooseAPartToo() {
    DayBench bench;
    const std::pair<QDateTimeEdit::Section, const char*> parts[] = {{QDateTimeEdit::YearSection, "2014"},
                                                                    {QDateTimeEdit::MonthSection, "12"},
                                                                    {QDateTimeEdit::DaySection, "31"}};
    for (const QDate old : {kOld, QDate(2012, 1, 28)})
      for (const Way way : kWays) {
        bench.restart(old);
        enter(bench.field, way);
        for (const auto& [section, digits] : parts) {
          bench.field.setSelectedSection(section);
          QCOMPARE(bench.field.currentSection(), section);
          typeWithMoves(digits);
        }
        QCOMPARE(bench.text(), "2014.12.31.");
        QCOMPARE(bench.field.date(), QDate(2014, 12, 31));
      }
    bench.field.showUpTo(DayPart::Month);
    QCOMPARE(bench.field.displayedSections(), QDateTimeEdit::YearSection | QDateTimeEdit::MonthSection);
    bench.field.setSelectedSection(QDateTimeEdit::MonthSection);
    QCOMPARE(bench.chosen(), "december");
    bench.field.showUpTo(DayPart::Year);
    QCOMPARE(bench.field.displayedSections(), QDateTimeEdit::YearSection);
  }

  void aClickTakesWhatIsTypedAndGoesOnThere() {
    DayBench bench;
    enter(bench.field, Way::ClickMonth);
    typeWithMoves("6");
    clickLetter(bench.field, 9);
    QCOMPARE(bench.text(), "2013.06.05.");
    typeWithMoves("21");
    QCOMPARE(bench.field.date(), QDate(2013, 6, 21));
    enter(bench.field, Way::ClickYear);
    typeWithMoves("15");
    clickLetter(bench.field, 9);
    QCOMPARE(bench.text(), "2013.06.21.");
  }

  void itTellsThatAPersonTouchesIt() {
    DayBench bench;
    QSignalSpy touched(&bench.field, &DayField::touched);
    enter(bench.field, Way::Tab);
    QCOMPARE(touched.count(), 0);
    pressKey(Qt::Key_Up);
    QCOMPARE(touched.count(), 1);
    typeWithMoves("2");
    QCOMPARE(touched.count(), 2);
    QTest::mousePress(&bench.field, Qt::LeftButton, {}, {bench.field.width() - 6, bench.field.height() / 2});
    QCOMPARE(touched.count(), 3);
    QApplication::activePopupWidget()->close();
  }

  void theCalendarStaysAndTakesWhatIsTyped() {
    DayBench bench;
    QVERIFY(bench.field.calendarPopup());
    enter(bench.field, Way::Tab);
    typeWithMoves("2013.06.21");
    QTest::mouseClick(&bench.field, Qt::LeftButton, {}, {bench.field.width() - 6, bench.field.height() / 2});
    QWidget* const popup = QApplication::activePopupWidget();
    QVERIFY(popup != nullptr);
    auto* const calendar = popup->findChild<QCalendarWidget*>();
    QCOMPARE(calendar->selectedDate(), QDate(2013, 6, 21));
    auto* const days = calendar->findChild<QWidget*>("qt_calendar_calendarview");
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Return);
    QCOMPARE(bench.text(), "2013.06.22.");
    QCOMPARE(bench.field.date(), QDate(2013, 6, 22));
  }

  void assistiveToolsReadTypeAndStep() {
    DayBench bench;
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&bench.field);
    QCOMPARE(spoken->role(), QAccessible::SpinBox);
    QCOMPARE(spoken->text(QAccessible::Name), "Nap");
    QCOMPARE(spoken->text(QAccessible::Value), "2013.07.05.");
    QCOMPARE(spoken->childCount(), 0);
    QAccessibleActionInterface* actions = spoken->actionInterface();
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::increaseAction()));
    actions->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(bench.text(), "2013.07.06.");
    actions->doAction(QAccessibleActionInterface::decreaseAction());
    actions->doAction(QAccessibleActionInterface::decreaseAction());
    QCOMPARE(bench.text(), "2013.07.04.");
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(bench.field.hasFocus());
    QCOMPARE(spoken->textInterface()->text(0, 11), "2013.07.04.");
    spoken->editableTextInterface()->replaceText(0, 11, "2013. 6. 21.");
    QCOMPARE(bench.field.date(), QDate(2013, 6, 21));
    bench.field.setEnabled(false);
    QCOMPARE(actions->actionNames(), QStringList());
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::DayFieldMovesTest)
#include "day_field_moves_test.moc"
