#include "ui/windows/frmDatumFigyelmeztetes.h"

#include <QAccessible>
#include <QLabel>

#include "tests/ui/reminder_desk.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/text_list_model.h"

namespace tarvik {
namespace {

using test::clickRow;
using test::dateReminder;
using test::fileOf;
using test::part;
using test::rowsOf;
using test::shownText;

const reminders::FigyDatumRec kFar = dateReminder(15, "Messze", "ABC-123");
const reminders::FigyDatumRec kSoon = dateReminder(14, "Műszaki", "ABC-123");
const reminders::FigyDatumRec kNow = dateReminder(0, "Adó", "DEF-456");
const reminders::FigyDatumRec kLate = dateReminder(-3, "", "DEF-456");

/// The date alert over reminders due, due today, overdue without a text, and one not due yet.
struct Alert : test::ReminderDesk {
  explicit Alert(const test::Reminders& stored = {.dates = {kFar, kSoon, kNow, kLate}})
      : ReminderDesk(stored) {
    test::bringUp(screen);
  }

  ui::ListView& list() const { return *part<ui::ListView>(screen, "ListView1"); }
  QString caption(const char* name) const { return part<QLabel>(screen, name)->text(); }
  QStringList details() const {
    return {caption("lbDatum"), caption("lbSzoveg"), caption("lbBeirva"), caption("lbRendszam"),
            caption("lbNapok")};
  }
  void deleteAndAnswer(QMessageBox::StandardButton answer) const {
    const test::BoxScript boxes({answer});
    test::press(*part<QPushButton>(screen, "cmdDel"));
  }

  ui::frmDatumFigyelmeztetes screen{context, nullptr};
};

class FrmDatumFigyelmeztetesTest : public QObject {
  Q_OBJECT

 private slots:
  void opensInTheMiddleWithWhatIsDueOfEveryVehicle() {
    const Alert alert;
    QVERIFY(test::isCentred(alert.screen));
    const QStringList expected{"2013.07.19.|" + shownText("Műszaki") + "|ABC-123   |2",
                               "2013.07.05.|" + shownText("Adó") + "|DEF-456   |3",
                               "2013.07.02.|" + shownText("") + "|DEF-456   |4"};
    QCOMPARE(rowsOf(alert.list()), expected);
    QVERIFY(alert.list().isColumnHidden(3));
  }

  void aClickOnAHeaderSortsNothing() {
    const Alert alert;
    const QStringList before = rowsOf(alert.list());
    for (int column = 0; column < 3; ++column) test::clickHead(alert.list(), column);
    QCOMPARE(rowsOf(alert.list()), before);
  }

  void nothingDueIsAnEmptyListWithoutPlaceholder() {
    const Alert alert(test::Reminders{});
    QCOMPARE(rowsOf(alert.list()), QStringList());
    QCOMPARE(alert.storedDates(), std::string());
  }

  void aClickTellsTheDaysLeft() {
    const Alert alert;
    clickRow(alert.list(), 0);
    QCOMPARE(alert.details(), (QStringList{"2013.07.19.", shownText("Műszaki"), "2013.06.01", "ABC-123",
                                           "14 nap múlva esedékes!"}));
    QCOMPARE(part<QLabel>(alert.screen, "lbSzoveg")->accessibleDescription(), "Műszaki");
  }

  void aClickOnAnOverdueOneKeepsTheMinusSign() {
    const Alert alert;
    const auto colour = [&] {
      return part<QLabel>(alert.screen, "lbNapok")->palette().color(QPalette::WindowText);
    };
    clickRow(alert.list(), 0);
    const QColor usual = colour();
    clickRow(alert.list(), 2);
    QVERIFY(colour() != usual);
    QCOMPARE(alert.details(),
             (QStringList{"2013.07.02.", shownText(""), "2013.06.01", "DEF-456", "-3 nappal túllépve!!!!"}));
  }

  void itsSelectionIsNotTheProgramWideOne() {
    const Alert alert({.dates = {kFar, kSoon, kNow, kLate}, .selected = 1});
    clickRow(alert.list(), 1);
    QCOMPARE(alert.context.state.selectedReminder, 1);
  }

  void deletingAsksAndNoKeepsTheScreenOpen() {
    const Alert alert;
    clickRow(alert.list(), 1);
    alert.deleteAndAnswer(QMessageBox::No);
    QVERIFY(alert.screen.isVisible());
    QCOMPARE(alert.storedDates(), fileOf({kFar, kSoon, kNow, kLate}));
  }

  void deletingRemovesTheClickedOneAndCloses() {
    const Alert alert;
    clickRow(alert.list(), 1);
    alert.deleteAndAnswer(QMessageBox::Yes);
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(alert.storedDates(), fileOf({kFar, kSoon, kLate}));
  }

  void oneWithoutATextCanBeDeletedHere() {
    const Alert alert;
    clickRow(alert.list(), 2);
    alert.deleteAndAnswer(QMessageBox::Yes);
    QCOMPARE(alert.storedDates(), fileOf({kFar, kSoon, kNow}));
  }

  void deletingWithoutAClickChangesNothingAndCloses() {
    const Alert alert;
    alert.deleteAndAnswer(QMessageBox::Yes);
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(alert.storedDates(), fileOf({kFar, kSoon, kNow, kLate}));
  }

  void whatIsTakenBackIsListedAnewAndNothingIsChosen() {
    Alert alert;
    clickRow(alert.list(), 0);
    alert.storeDates({kNow, kSoon});
    emit alert.context.news.travelled({.name = "törlés",
                                       .files = {{.path = alert.context.folders.inCurrent("figyDatum.dat"),
                                                  .recordLength = reminders::FigyDatumRec::kLength,
                                                  .at = reminders::FigyDatumRec::kLength,
                                                  .inserted = reminders::FigyDatumRec::kLength}}});
    QCOMPARE(rowsOf(alert.list()), QStringList({"2013.07.05.|" + shownText("Adó") + "|DEF-456   |1",
                                                "2013.07.19.|" + shownText("Műszaki") + "|ABC-123   |2"}));
    QCOMPARE(alert.details(), QStringList({"", "", "", "", ""}));
    QCOMPARE(test::markedIn(alert.list()), "2");
  }

  void anOverdueRowSaysSoWithoutBeingClicked() {
    const Alert alert;
    const QAbstractItemModel* model = alert.list().model();
    const auto told = [&](int row) {
      const QModelIndex date = model->index(row, 0);
      QAccessibleInterface* cell =
          QAccessible::queryAccessibleInterface(&alert.list())->tableInterface()->cellAt(row, 0);
      return QStringList{date.data(ui::kOverdueRole).toBool() ? "marked" : "",
                         date.data(Qt::FontRole).value<QFont>().bold() ? "bold" : "",
                         cell->text(QAccessible::Description)};
    };
    QCOMPARE(told(1), (QStringList{"", "", ""}));
    QCOMPARE(told(2), (QStringList{"marked", "bold", "lejárt"}));
  }

  void aMarkedDateIsWhole() {
    const Alert alert;
    const QModelIndex date = alert.list().model()->index(2, 0);
    QStyleOptionViewItem option;
    option.initFrom(&alert.list());
    QVERIFY(alert.list().itemDelegate()->sizeHint(option, date).width() <=
            alert.list().visualRect(date).width());
  }

  void aRefusedDeletionEmptiesTheDetailsAndForgetsWhatWasChosen() {
    const Alert alert;
    clickRow(alert.list(), 1);
    alert.storeDates({kFar, kSoon});
    test::BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok, QMessageBox::Yes});
    test::press(*part<QPushButton>(alert.screen, "cmdDel"));
    QVERIFY(alert.screen.isVisible());
    QCOMPARE(alert.details(), (QStringList{"", "", "", "", ""}));
    QCOMPARE(rowsOf(alert.list()).size(), 1);
    test::press(*part<QPushButton>(alert.screen, "cmdDel"));
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(alert.storedDates(), fileOf({kFar, kSoon}));
  }

  void command1ClosesWithoutAChange() {
    const Alert alert;
    auto* const close = part<QPushButton>(alert.screen, "Command1");
    alert.list().setFocus();
    QTest::keyClick(&alert.list(), Qt::Key_Return);
    QVERIFY(alert.screen.isVisible());
    close->setFocus();
    QTest::keyClick(close, Qt::Key_Return);
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(alert.storedDates(), fileOf({kFar, kSoon, kNow, kLate}));
  }
};

}  // namespace
}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::FrmDatumFigyelmeztetesTest)
#include "frmDatumFigyelmeztetes_test.moc"
