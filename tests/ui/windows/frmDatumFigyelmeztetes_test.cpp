#include "ui/windows/frmDatumFigyelmeztetes.h"

#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>

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

/// A desk with reminders due, due today, overdue without a text, and one not due yet.
struct DueDesk : test::ReminderDesk {
  DueDesk() { storeDates({far, soon, now, late}); }
  const reminders::FigyDatumRec far = dateReminder(15, "Messze", "ABC-123");
  const reminders::FigyDatumRec soon = dateReminder(14, "Műszaki", "ABC-123");
  const reminders::FigyDatumRec now = dateReminder(0, "Adó", "DEF-456");
  const reminders::FigyDatumRec late = dateReminder(-3, "", "DEF-456");
};

/// The date alert over a desk.
struct Alert {
  explicit Alert(test::ReminderDesk& desk) : screen(desk.context, nullptr) {
    screen.show();
    if (!QTest::qWaitForWindowActive(&screen)) QTest::qFail("the screen did not come up", __FILE__, __LINE__);
  }

  ui::ListView& list() const { return *part<ui::ListView>(screen, "ListView1"); }
  QString caption(const char* name) const { return part<QLabel>(screen, name)->text(); }
  QStringList details() const {
    return {caption("lbDatum"), caption("lbSzoveg"), caption("lbBeirva"), caption("lbRendszam"),
            caption("lbNapok")};
  }
  test::SeenBox deleteAndAnswer(QMessageBox::StandardButton answer) const {
    test::BoxScript boxes({answer});
    test::press(*part<QPushButton>(screen, "cmdDel"));
    return boxes.seen.value(0);
  }

  ui::frmDatumFigyelmeztetes screen;
};

class FrmDatumFigyelmeztetesTest : public QObject {
  Q_OBJECT

 private slots:
  void opensInTheMiddleWithWhatIsDueOfEveryVehicle() {
    DueDesk desk;
    const Alert alert(desk);
    QCOMPARE(alert.screen.windowTitle(), QStringLiteral("FIGYELMEZTETÉS"));
    QVERIFY(test::isCentred(alert.screen));
    const QStringList expected{"2013.07.19.|" + shownText("Műszaki") + "|ABC-123   |2",
                               "2013.07.05.|" + shownText("Adó") + "|DEF-456   |3",
                               "2013.07.02.|" + shownText("") + "|DEF-456   |4"};
    QCOMPARE(rowsOf(alert.list()), expected);
    QVERIFY(alert.list().isColumnHidden(3));
  }

  void hasTheColumnsAndHintThatItShould() {
    DueDesk desk;
    const Alert alert(desk);
    const QAbstractItemModel* model = alert.list().model();
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Dátum"));
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Figyelmeztetés Szövege"));
    QCOMPARE(model->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Rendszám"));
    QCOMPARE(part<QLabel>(alert.screen, "lbBeirva")->toolTip(),
             QStringLiteral("Ekkor lett felvéve a figyelmeztetés"));
  }

  void nothingLooksChosenWhenItOpens() {
    DueDesk desk;
    const Alert alert(desk);
    QVERIFY(alert.list().hasFocus());
    QVERIFY(!alert.list().currentIndex().isValid());
    const QImage withKeyboard = alert.list().viewport()->grab().toImage();
    part<QPushButton>(alert.screen, "cmdDel")->setFocus();
    QCOMPARE(alert.list().viewport()->grab().toImage(), withKeyboard);
  }

  void theFirstArrowChoosesTheFirstRow() {
    DueDesk desk;
    const Alert alert(desk);
    QTest::keyClick(&alert.list(), Qt::Key_Down);
    QCOMPARE(alert.list().highlightedRecord(), "2");
    QCOMPARE(alert.caption("lbSzoveg"), shownText("Műszaki"));
  }

  void aClickOnAHeaderSortsNothing() {
    DueDesk desk;
    const Alert alert(desk);
    const QStringList before = rowsOf(alert.list());
    const QHeaderView* header = alert.list().header();
    for (int column = 0; column < 3; ++column)
      QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                        QPoint(header->sectionViewportPosition(column) + 5, header->height() / 2));
    QCOMPARE(rowsOf(alert.list()), before);
  }

  void nothingDueIsAnEmptyListWithoutPlaceholder() {
    test::ReminderDesk desk;
    const Alert alert(desk);
    QCOMPARE(rowsOf(alert.list()), QStringList());
    QCOMPARE(desk.storedDates(), std::string());
  }

  void aClickTellsTheDaysLeft() {
    DueDesk desk;
    const Alert alert(desk);
    clickRow(alert.list(), 0);
    QCOMPARE(alert.details(), (QStringList{"2013.07.19.", shownText("Műszaki"), "2013.06.01", "ABC-123",
                                           "14 nap múlva esedékes!"}));
  }

  void aClickOnTodaysSaysToday() {
    DueDesk desk;
    const Alert alert(desk);
    clickRow(alert.list(), 1);
    QCOMPARE(alert.caption("lbNapok"), QStringLiteral(" MA ESEDÉKES!!!!"));
  }

  void aClickOnAnOverdueOneKeepsTheMinusSign() {
    DueDesk desk;
    const Alert alert(desk);
    clickRow(alert.list(), 2);
    QCOMPARE(alert.details(),
             (QStringList{"2013.07.02.", shownText(""), "2013.06.01", "DEF-456", "-3 nappal túllépve!!!!"}));
  }

  void itsSelectionIsNotTheProgramWideOne() {
    DueDesk desk;
    desk.context.state.selectedReminder = 1;
    const Alert alert(desk);
    clickRow(alert.list(), 1);
    QCOMPARE(desk.context.state.selectedReminder, 1);
  }

  void deletingAsksAndNoKeepsTheScreenOpen() {
    DueDesk desk;
    const Alert alert(desk);
    clickRow(alert.list(), 1);
    const auto box = alert.deleteAndAnswer(QMessageBox::No);
    QCOMPARE(box,
             test::questionBox(test::kDeleteTitle, "Biztos TÖRÖLHETŐ\na figyelmeztetés ?", QMessageBox::No));
    QVERIFY(alert.screen.isVisible());
    QCOMPARE(desk.storedDates(), fileOf({desk.far, desk.soon, desk.now, desk.late}));
  }

  void deletingRemovesTheClickedOneAndCloses() {
    DueDesk desk;
    const Alert alert(desk);
    clickRow(alert.list(), 1);
    alert.deleteAndAnswer(QMessageBox::Yes);
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(desk.storedDates(), fileOf({desk.far, desk.soon, desk.late}));
  }

  void oneWithoutATextCanBeDeletedHere() {
    DueDesk desk;
    const Alert alert(desk);
    clickRow(alert.list(), 2);
    alert.deleteAndAnswer(QMessageBox::Yes);
    QCOMPARE(desk.storedDates(), fileOf({desk.far, desk.soon, desk.now}));
  }

  void deletingWithoutAClickChangesNothingAndCloses() {
    DueDesk desk;
    const Alert alert(desk);
    alert.deleteAndAnswer(QMessageBox::Yes);
    QVERIFY(!alert.screen.isVisible());
    QCOMPARE(desk.storedDates(), fileOf({desk.far, desk.soon, desk.now, desk.late}));
  }

  void anOverdueRowSaysSoWithoutBeingClicked() {
    DueDesk desk;
    const Alert alert(desk);
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
    DueDesk desk;
    const Alert alert(desk);
    const QModelIndex date = alert.list().model()->index(2, 0);
    QStyleOptionViewItem option;
    option.initFrom(&alert.list());
    QVERIFY(alert.list().itemDelegate()->sizeHint(option, date).width() <=
            alert.list().visualRect(date).width());
  }

  void aRefusedDeletionEmptiesTheDetails() {
    DueDesk desk;
    const Alert alert(desk);
    clickRow(alert.list(), 1);
    desk.storeDates({desk.far, desk.soon});
    test::BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    test::press(*part<QPushButton>(alert.screen, "cmdDel"));
    QVERIFY(alert.screen.isVisible());
    QCOMPARE(alert.details(), (QStringList{"", "", "", "", ""}));
    QCOMPARE(rowsOf(alert.list()).size(), 1);
  }

  void command1AndEscapeCloseWithoutAChange() {
    DueDesk desk;
    const Alert alert(desk);
    auto* const close = part<QPushButton>(alert.screen, "Command1");
    alert.list().setFocus();
    QTest::keyClick(&alert.list(), Qt::Key_Return);
    QVERIFY(alert.screen.isVisible());
    close->setFocus();
    QTest::keyClick(close, Qt::Key_Return);
    QVERIFY(!alert.screen.isVisible());
    Alert other(desk);
    QTest::keyClick(&other.screen, Qt::Key_Escape);
    QVERIFY(!other.screen.isVisible());
    QCOMPARE(desk.storedDates(), fileOf({desk.far, desk.soon, desk.now, desk.late}));
  }
};

}  // namespace
}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::FrmDatumFigyelmeztetesTest)
#include "frmDatumFigyelmeztetes_test.moc"
