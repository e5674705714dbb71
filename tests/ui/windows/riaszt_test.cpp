#include "ui/windows/riaszt.h"

#include <QListWidget>

#include "tests/ui/reminder_desk.h"
#include "tests/ui/screen_test.h"

namespace tarvik {
namespace {

using test::deletedKmReminder;
using test::fileOf;
using test::kmReminder;
using test::part;
using test::shownText;

const reminders::FigyelRec kOther = kmReminder(100, 1, "Másé", "DEF-456");
const reminders::FigyelRec kFirst = kmReminder(10000, 5000, "Olaj", "ABC-123");
const reminders::FigyelRec kNotYet = kmReminder(10000, 5001, "Szűrő", "ABC-123");
const reminders::FigyelRec kSecond = kmReminder(12000, 1000, "Fék", "ABC-123");

QString line(const QString& text, int record) {
  return "2013.06.01  " + shownText(text) + "       " + QString::number(record);
}

/// The km alert for ABC-123 at 15 001 km, over two passed reminders of it, one of another vehicle and one not
/// passed yet.
struct Alert : test::ReminderDesk {
  explicit Alert(const std::vector<reminders::FigyelRec>& km = {kOther, kFirst, kNotYet, kSecond},
                 std::int16_t selected = 0)
      : ReminderDesk({.km = km, .selected = selected, .reading = 15001}) {
    test::bringUp(screen);
  }

  QListWidget* list() const { return part<QListWidget>(screen, "List1"); }
  QStringList lines() const {
    QStringList texts;
    for (int row = 0; row < list()->count(); ++row) texts << list()->item(row)->text();
    return texts;
  }
  void click(int row) const { test::clickRow(*list(), row); }
  void press() const { test::press(*part<QPushButton>(screen, "cmd_torles")); }
  QStringList details() const {
    QStringList texts;
    for (const char* name :
         {"tx_szoveg", "tx_km_allas", "tx_km_mulva", "tx_megtett_km", "tx_tullepve", "tx_utolso_km"})
      texts << part<QLineEdit>(screen, name)->text();
    return texts;
  }

  ui::riaszt screen{context, QStringLiteral(" ABC-123 "), nullptr};
};

const QStringList kDetailsOfFirst{shownText("Olaj"), "10 000", "5 000", "5 001", "1", "15 001"};

class RiasztTest : public QObject {
  Q_OBJECT

 private slots:
  void opensInTheMiddleWithTheVehiclesPassedReminders() {
    const Alert alert;
    QVERIFY(test::isCentred(alert.screen));
    QCOMPARE(alert.lines(), (QStringList{line("Olaj", 2), line("Fék", 4)}));
    QCOMPARE(alert.list()->font().families(), (QStringList{"Courier New", "Liberation Mono"}));
  }

  void choosesTheFirstLineWhenItComesUp() {
    const Alert alert;
    QCOMPARE(alert.context.state.alertSelection, 2);
    QCOMPARE(alert.details(), kDetailsOfFirst);
    QVERIFY(alert.list()->item(0)->isSelected());
  }

  void aClickShowsItsLine() {
    const Alert alert;
    alert.click(1);
    QCOMPARE(alert.context.state.alertSelection, 4);
    QCOMPARE(alert.details(), (QStringList{shownText("Fék"), "12 000", "1 000", "3 001", "2 001", "15 001"}));
    QTest::keyClick(alert.list(), Qt::Key_Up);
    QCOMPARE(alert.details(), kDetailsOfFirst);
  }

  void theSelectedReminderOfTheEntryScreenStays() {
    const Alert alert({kFirst}, 3);
    QCOMPARE(alert.context.state.selectedReminder, 3);
  }

  void anEmptyListChoosesNothingAndDeletingIsTold() {
    const Alert alert(std::vector<reminders::FigyelRec>{});
    QCOMPARE(alert.lines(), QStringList());
    QCOMPARE(alert.context.state.alertSelection, 0);
    test::BoxScript boxes({QMessageBox::Ok});
    alert.press();
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(alert.storedKm(), std::string());
  }

  void deletingAsksNothingAndThenListsEveryVehicle() {
    const Alert alert;
    alert.press();
    QCOMPARE(alert.storedKm(), fileOf({kOther, deletedKmReminder("ABC-123"), kNotYet, kSecond}));
    QCOMPARE(alert.lines(), (QStringList{line("Másé", 1), line("Fék", 4)}));
  }

  void afterADeletionTheSelectionAndTheFieldsStay() {
    const Alert alert;
    alert.press();
    QCOMPARE(alert.context.state.alertSelection, 2);
    QCOMPARE(alert.details(), kDetailsOfFirst);
    const std::string once = alert.storedKm();
    alert.press();
    QCOMPARE(alert.storedKm(), once);
  }

  void anotherVehiclesReminderIsMeasuredAgainstTheSameReading() {
    const Alert alert;
    alert.press();
    alert.click(0);
    QCOMPARE(alert.context.state.alertSelection, 1);
    QCOMPARE(alert.details(), (QStringList{shownText("Másé"), "100", "1", "14 901", "14 900", "15 001"}));
  }

  void aReminderThatCannotBeComputedKeepsNoOtherFromTheList() {
    const auto broken = kmReminder(2'147'483'647, 1, "Rossz", "ABC-123");
    test::BoxScript boxes;
    const Alert alert({broken, kFirst});
    QCOMPARE(alert.lines(), (QStringList{"2013.06.01  " + shownText("Rossz") + "   ?   1", line("Olaj", 2)}));
    alert.click(1);
    alert.press();
    QCOMPARE(alert.storedKm(), fileOf({broken, deletedKmReminder("ABC-123")}));
    alert.click(0);
    QCOMPARE(alert.context.state.alertSelection, 1);
    alert.press();
    QCOMPARE(alert.lines(), QStringList());
    QCOMPARE(boxes.seen.size(), 0);
  }

  void afterADeletionNothingIsHighlighted() {
    const Alert alert;
    alert.press();
    QVERIFY(!alert.list()->selectionModel()->hasSelection());
    alert.click(1);
    QCOMPARE(alert.context.state.alertSelection, 4);
  }

  void whatIsTakenBackIsListedAndChosen() {
    const Alert alert;
    alert.click(1);
    alert.press();
    QCOMPARE(alert.lines(), (QStringList{line("Másé", 1), line("Olaj", 2)}));
    alert.click(0);
    QTest::keyClick(alert.list(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(alert.lines(), (QStringList{line("Másé", 1), line("Olaj", 2), line("Fék", 4)}));
    QCOMPARE(alert.list()->currentRow(), 2);
    QCOMPARE(alert.context.state.alertSelection, 4);
    alert.click(0);
    alert.press();
    alert.click(1);
    QTest::keyClick(alert.list(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(alert.list()->currentRow(), 0);
  }

  void aDeletionThatCannotBeSavedIsTold() {
    const Alert alert;
    alert.storeKm({kOther});
    test::BoxScript boxes({QMessageBox::Ok});
    alert.press();
    QCOMPARE(boxes.seen.value(0).title, test::kErrorTitle);
    QCOMPARE(alert.context.state.alertSelection, 0);
    QCOMPARE(alert.lines(), QStringList());
    QCOMPARE(alert.storedKm(), fileOf({kOther}));
  }

  void enterInItsListDeletesNothing() {
    const Alert alert;
    const std::string before = alert.storedKm();
    QTest::keyClick(alert.list(), Qt::Key_Return);
    QCOMPARE(alert.storedKm(), before);
    QVERIFY(alert.screen.isVisible());
  }

  void theLastButtonClosesAndDeletesNothing() {
    const Alert alert;
    const std::string before = alert.storedKm();
    auto* close = part<QPushButton>(alert.screen, "cmdBezar");
    test::press(*close);
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(alert.storedKm(), before);
  }
};

}  // namespace
}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::RiasztTest)
#include "riaszt_test.moc"
