#include "ui/windows/riaszt.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>

#include "tests/ui/reminder_desk.h"
#include "tests/ui/screen_test.h"

namespace tarvik {
namespace {

using test::deletedKmReminder;
using test::fileOf;
using test::kmReminder;
using test::part;
using test::shownText;

/// A desk with two passed reminders of ABC-123, one of another vehicle and one not passed yet; the reading
/// is 15 001 km.
struct AlertDesk : test::ReminderDesk {
  AlertDesk() {
    context.state.currentReading = 15001;
    storeKm({other, first, notYet, second});
  }
  const reminders::FigyelRec other = kmReminder(100, 1, "Másé", "DEF-456");
  const reminders::FigyelRec first = kmReminder(10000, 5000, "Olaj", "ABC-123");
  const reminders::FigyelRec notYet = kmReminder(10000, 5001, "Szűrő", "ABC-123");
  const reminders::FigyelRec second = kmReminder(12000, 1000, "Fék", "ABC-123");
};

QString line(const QString& text, int record) {
  return "2013.06.01  " + shownText(text) + "       " + QString::number(record);
}

/// The km alert over a desk, for ABC-123.
struct Alert {
  explicit Alert(test::ReminderDesk& desk) : screen(desk.context, QStringLiteral(" ABC-123 "), nullptr) {
    screen.show();
    if (!QTest::qWaitForWindowActive(&screen)) QTest::qFail("the screen did not come up", __FILE__, __LINE__);
  }

  QListWidget* list() const { return part<QListWidget>(screen, "List1"); }
  QStringList lines() const {
    QStringList texts;
    for (int row = 0; row < list()->count(); ++row) texts << list()->item(row)->text();
    return texts;
  }
  void click(int row) const {
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualItemRect(list()->item(row)).center());
  }
  void press() const { test::press(*part<QPushButton>(screen, "cmd_torles")); }
  QStringList details() const {
    QStringList texts;
    for (const char* name :
         {"tx_szoveg", "tx_km_allas", "tx_km_mulva", "tx_megtett_km", "tx_tullepve", "tx_utolso_km"})
      texts << part<QLineEdit>(screen, name)->text();
    return texts;
  }

  ui::riaszt screen;
};

const QStringList kDetailsOfFirst{shownText("Olaj"), "10 000", "5 000", "5 001", "1", "15 001"};

class RiasztTest : public QObject {
  Q_OBJECT

 private slots:
  void opensInTheMiddleWithTheVehiclesPassedReminders() {
    AlertDesk desk;
    const Alert alert(desk);
    QCOMPARE(alert.screen.windowTitle(), QStringLiteral("FIGYELEM!"));
    QVERIFY(test::isCentred(alert.screen));
    QCOMPARE(alert.lines(), (QStringList{line("Olaj", 2), line("Fék", 4)}));
    QCOMPARE(alert.list()->font().families().first(), QStringLiteral("Courier New"));
  }

  // A date, two spaces, a text of 40 letters, seven spaces and a number of four digits.
  void aLineIsWholeBesideAScrollBarAndItsHeadingsStandOverTheirColumns() {
    AlertDesk desk;
    const Alert alert(desk);
    const QListWidget& list = *alert.list();
    const int letter = QFontMetrics(list.font()).horizontalAdvance('0');
    const int side = list.frameWidth() + list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
    const int scrollBar = list.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QCOMPARE(list.minimumWidth(), 2 * side + (10 + 2 + 40 + 7 + 4) * letter + scrollBar);
    const QLabel& day = *part<QLabel>(alert.screen, "lbRogzDatuma");
    const QLabel& text = *part<QLabel>(alert.screen, "lbSzovegOszlop");
    QCOMPARE(day.minimumWidth(), side + (10 + 2) * letter);
    for (const QLabel* heading : {&day, &text})
      QCOMPARE(heading->font().pointSizeF(), alert.screen.font().pointSizeF());
    QVERIFY(list.hasFocus());
  }

  void choosesTheFirstLineWhenItComesUp() {
    AlertDesk desk;
    const Alert alert(desk);
    QCOMPARE(desk.context.state.alertSelection, 2);
    QCOMPARE(alert.details(), kDetailsOfFirst);
    QVERIFY(alert.list()->item(0)->isSelected());
  }

  void aClickShowsItsLine() {
    AlertDesk desk;
    const Alert alert(desk);
    alert.click(1);
    QCOMPARE(desk.context.state.alertSelection, 4);
    QCOMPARE(alert.details(), (QStringList{shownText("Fék"), "12 000", "1 000", "3 001", "2 001", "15 001"}));
    QTest::keyClick(alert.list(), Qt::Key_Up);
    QCOMPARE(alert.details(), kDetailsOfFirst);
  }

  void theSelectedReminderOfTheEntryScreenStays() {
    AlertDesk desk;
    desk.context.state.selectedReminder = 3;
    const Alert alert(desk);
    QCOMPARE(desk.context.state.selectedReminder, 3);
  }

  void anEmptyListChoosesNothingAndDeletingIsTold() {
    test::ReminderDesk desk;
    const Alert alert(desk);
    QCOMPARE(alert.lines(), QStringList());
    QCOMPARE(desk.context.state.alertSelection, 0);
    test::BoxScript boxes({QMessageBox::Ok});
    alert.press();
    QCOMPARE(boxes.seen, QList{test::errorBox(test::kErrorTitle, test::kNothingSelected)});
    QCOMPARE(desk.storedKm(), std::string());
  }

  void deletingAsksNothingAndThenListsEveryVehicle() {
    AlertDesk desk;
    const Alert alert(desk);
    alert.press();
    QCOMPARE(desk.storedKm(), fileOf({desk.other, deletedKmReminder("ABC-123"), desk.notYet, desk.second}));
    QCOMPARE(alert.lines(), (QStringList{line("Másé", 1), line("Fék", 4)}));
  }

  void afterADeletionTheSelectionAndTheFieldsStay() {
    AlertDesk desk;
    const Alert alert(desk);
    alert.press();
    QCOMPARE(desk.context.state.alertSelection, 2);
    QCOMPARE(alert.details(), kDetailsOfFirst);
    const std::string once = desk.storedKm();
    alert.press();
    QCOMPARE(desk.storedKm(), once);
  }

  void anotherVehiclesReminderIsMeasuredAgainstTheSameReading() {
    AlertDesk desk;
    const Alert alert(desk);
    alert.press();
    alert.click(0);
    QCOMPARE(desk.context.state.alertSelection, 1);
    QCOMPARE(alert.details(), (QStringList{shownText("Másé"), "100", "1", "14 901", "14 900", "15 001"}));
  }

  void aReminderThatCannotBeComputedKeepsNoOtherFromTheList() {
    AlertDesk desk;
    const auto broken = kmReminder(2'147'483'647, 1, "Rossz", "ABC-123");
    desk.storeKm({broken, desk.first});
    test::BoxScript boxes;
    const Alert alert(desk);
    QCOMPARE(alert.lines(), (QStringList{"2013.06.01  " + shownText("Rossz") + "   ?   1", line("Olaj", 2)}));
    alert.click(1);
    alert.press();
    QCOMPARE(desk.storedKm(), fileOf({broken, deletedKmReminder("ABC-123")}));
    alert.click(0);
    QCOMPARE(desk.context.state.alertSelection, 1);
    alert.press();
    QCOMPARE(alert.lines(), QStringList());
    QCOMPARE(boxes.seen.size(), 0);
  }

  void afterADeletionNothingIsHighlighted() {
    AlertDesk desk;
    const Alert alert(desk);
    alert.press();
    QVERIFY(!alert.list()->selectionModel()->hasSelection());
    alert.click(1);
    QCOMPARE(desk.context.state.alertSelection, 4);
  }

  void aDeletionThatCannotBeSavedIsTold() {
    AlertDesk desk;
    const Alert alert(desk);
    desk.storeKm({desk.other});
    test::BoxScript boxes({QMessageBox::Ok});
    alert.press();
    QCOMPARE(boxes.seen.value(0).title, test::kErrorTitle);
    QCOMPARE(desk.context.state.alertSelection, 0);
    QCOMPARE(alert.lines(), QStringList());
    QCOMPARE(desk.storedKm(), fileOf({desk.other}));
  }

  void theMenuItemAndEscapeCloseAndEnterDeletesNothing() {
    AlertDesk desk;
    const std::string before = desk.storedKm();
    const Alert alert(desk);
    QTest::keyClick(alert.list(), Qt::Key_Return);
    QCOMPARE(desk.storedKm(), before);
    part<QAction>(alert.screen, "mnu_bezar")->trigger();
    QVERIFY(!alert.screen.isVisible());
    Alert other(desk);
    QTest::keyClick(&other.screen, Qt::Key_Escape);
    QVERIFY(!other.screen.isVisible());
  }

  void theLastButtonClosesAndDeletesNothing() {
    AlertDesk desk;
    const std::string before = desk.storedKm();
    const Alert alert(desk);
    auto* close = part<QPushButton>(alert.screen, "cmdBezar");
    QVERIFY(close->x() > part<QPushButton>(alert.screen, "cmd_torles")->geometry().right());
    QCOMPARE(close->geometry().right(), alert.list()->geometry().right());
    test::press(*close);
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(desk.storedKm(), before);
  }
};

}  // namespace
}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::RiasztTest)
#include "riaszt_test.moc"
