#include "ui/lists/row_choice.h"

#include <QAccessible>
#include <QListWidget>

#include "tests/ui/box_script.h"
#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/base/message_boxes.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"

namespace tarvik::ui {
namespace {

/// A list of records 1 to count on the screen, and what was chosen in it.
struct Rows {
  explicit Rows(int count) {
    view.setModel(&model);
    fill(count);
    view.onRowChosen([this](int row) {
      chosen << row;
      return accepts;
    });
    view.resize(300, 160);
    test::bringUp(view);
    view.setFocus();
  }
  void fill(int count, int first = 1) {
    std::vector<TextRow> rows;
    for (int record = first; record <= count; ++record)
      rows.push_back({.cells = {QString("row %1").arg(100 - record), QString::number(record)},
                      .record = QString::number(record)});
    model.setRows(std::move(rows));
  }
  QPoint at(int row) { return view.visualRect(model.index(row, 0)).center(); }
  QPoint atSecond(int row) { return view.visualRect(model.index(row, 1)).center(); }
  void press(int row) { QTest::mousePress(view.viewport(), Qt::LeftButton, {}, at(row)); }
  void release(int row) { QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at(row)); }
  void click(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(view.viewport(), button, keys, at(row));
  }
  void key(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(&view, key, keys); }
  bool isInSight(int row) { return view.viewport()->rect().contains(at(row)); }

  TextListModel model{{"Text", "Number"}};
  ListView view;
  QList<int> chosen;
  bool accepts = true;
};

QAccessibleTableInterface& tableOf(QWidget& view) {
  return *QAccessible::queryAccessibleInterface(&view)->tableInterface();
}

}  // namespace

class RowChoiceTest : public QObject {
  Q_OBJECT

 private slots:
  void aListThatGetsTheKeyboardHasItOnNoRow() {
    Rows rows(3);
    QVERIFY(rows.view.hasFocus());
    QVERIFY(!rows.view.currentIndex().isValid());
    rows.key(Qt::Key_Down);
    QCOMPARE(rows.chosen, QList{0});
    rows.view.clearFocus();
    rows.view.setFocus();
    QCOMPARE(rows.view.currentIndex().row(), 0);
  }

  // Where a choice was refused the keyboard stays on the row, which has none of the highlight's colour.
  void theRowThatCouldNotBeChosenIsNotTinted() {
    test::dressOnce();
    Rows rows(3);
    rows.accepts = false;
    rows.click(1);
    QCOMPARE(rows.view.currentIndex().row(), 1);
    const QImage shown = rows.view.viewport()->grab(rows.view.visualRect(rows.model.index(1, 0))).toImage();
    for (int y = 0; y < shown.height(); ++y)
      for (int x = 0; x < shown.width(); ++x) QVERIFY(qAbs(shown.pixelColor(x, y).saturation()) < 10);
  }

  void aKeyThatCannotMoveChoosesAHighlightedRowNoSecondTime() {
    for (const auto& [row, key] : {std::pair(0, Qt::Key_Up), std::pair(2, Qt::Key_Down)}) {
      Rows rows(3);
      rows.click(row);
      rows.key(key);
      QCOMPARE(rows.chosen, QList<int>{row});
    }
  }

  void aRowPressedAndAnotherReleasedChoosesTheHighlightedOne() {
    Rows rows(3);
    rows.press(0);
    QTest::mouseMove(rows.view.viewport(), rows.at(2));
    QMouseEvent move(QEvent::MouseMove, rows.at(2), rows.view.viewport()->mapToGlobal(rows.at(2)),
                     Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(rows.view.viewport(), &move);
    rows.release(2);
    QCOMPARE(rows.chosen.last() + 1, rows.view.highlightedRecord().toInt());
    QCOMPARE(rows.chosen, (QList<int>{0, 2}));
  }

  void aReleaseWithoutAMoveBetweenChoosesTheHighlightedOne() {
    Rows rows(3);
    rows.press(1);
    rows.release(2);
    QCOMPARE(rows.chosen.last() + 1, rows.view.highlightedRecord().toInt());
  }

  void anotherButtonThanTheLeftOneChoosesNothing_data() {
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
  }
  void anotherButtonThanTheLeftOneChoosesNothing() {
    QFETCH(Qt::MouseButton, button);
    Rows rows(3);
    rows.click(2, button);
    QCOMPARE(rows.view.highlightedRecord(), QString());
    QVERIFY(!rows.view.selectionModel()->hasSelection());
    rows.click(0);
    rows.click(2, button);
    rows.click(0, button);
    QTest::mouseDClick(rows.view.viewport(), button, {}, rows.at(1));
    QCOMPARE(rows.chosen, QList<int>{0});
    QCOMPARE(rows.view.highlightedRecord(), "1");
    QVERIFY(rows.view.selectionModel()->isRowSelected(0));
    QCOMPARE(rows.view.currentIndex().row(), 0);
  }

  void aRightClickInAListOfTextsChoosesNothing() {
    QListWidget list;
    list.addItems({"one", "two"});
    QList<int> chosen;
    new RowChoice(&list, [&](int row) {
      chosen << row;
      return true;
    });
    list.show();
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, list.visualItemRect(list.item(1)).center());
    QCOMPARE(chosen, QList<int>{});
    QVERIFY(!list.selectionModel()->hasSelection());
  }

  void aClickOnTheHighlightedRowChoosesItAgain() {
    Rows rows(3);
    rows.view.highlightRecord(2);
    QCOMPARE(rows.chosen, QList<int>{});
    rows.click(1);
    rows.click(1);
    QCOMPARE(rows.chosen, (QList<int>{1, 1}));
  }

  void aClickThatEndsInAnotherColumnIsOneToo() {
    Rows rows(3);
    rows.view.highlightRecord(2);
    rows.press(1);
    QTest::mouseRelease(rows.view.viewport(), Qt::LeftButton, {}, rows.atSecond(1));
    QCOMPARE(rows.chosen, QList<int>{1});
  }

  void controlTakesNoHighlightAway_data() {
    QTest::addColumn<bool>("byKey");
    QTest::newRow("click") << false;
    QTest::newRow("space") << true;
  }
  void controlTakesNoHighlightAway() {
    QFETCH(bool, byKey);
    Rows rows(3);
    rows.click(1);
    byKey ? rows.key(Qt::Key_Space, Qt::ControlModifier) : rows.click(1, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(rows.view.highlightedRecord(), "2");
    QVERIFY(rows.view.selectionModel()->isRowSelected(1));
    QCOMPARE(rows.chosen, (QList<int>{1, 1}));
    rows.click(2, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(rows.view.highlightedRecord(), "3");
    QCOMPARE(rows.view.selectionModel()->selectedRows().size(), 1);
  }

  void aClickBelowTheRowsTakesNothingAway() {
    Rows rows(2);
    rows.click(1);
    QTest::mouseClick(rows.view.viewport(), Qt::LeftButton, {}, rows.view.viewport()->rect().bottomLeft());
    QCOMPARE(rows.view.highlightedRecord(), "2");
    QVERIFY(rows.view.selectionModel()->isRowSelected(1));
    QCOMPARE(rows.chosen, QList<int>{1});
  }

  void theKeyboardChoosesByMovingAndAgainBySpace() {
    Rows rows(3);
    rows.key(Qt::Key_Space);
    rows.key(Qt::Key_Down);
    rows.key(Qt::Key_End);
    rows.key(Qt::Key_Space);
    QCOMPARE(rows.chosen, (QList<int>{0, 1, 2, 2}));
  }

  void endGoesToTheLastRowOfAListThatTheKeyboardHasJustReached() {
    Rows rows(60);
    rows.key(Qt::Key_End);
    QCOMPARE(rows.chosen, QList<int>{59});
    QCOMPARE(rows.view.highlightedRecord(), "60");
    QVERIFY(rows.view.viewport()->rect().contains(rows.view.visualRect(rows.model.index(59, 0)).center()));
  }

  void aKeyThatCannotMoveTakesTheRowItStandsOn_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("End on the last") << 2 << Qt::Key_End;
    QTest::newRow("Down on the last") << 2 << Qt::Key_Down;
    QTest::newRow("PageDown on the last") << 2 << Qt::Key_PageDown;
    QTest::newRow("Home on the first") << 0 << Qt::Key_Home;
    QTest::newRow("Up on the first") << 0 << Qt::Key_Up;
    QTest::newRow("PageUp on the first") << 0 << Qt::Key_PageUp;
  }
  void aKeyThatCannotMoveTakesTheRowItStandsOn() {
    QFETCH(int, row);
    QFETCH(Qt::Key, key);
    Rows rows(3);
    rows.click(row);
    rows.view.keepPlace([&] { rows.fill(3); });
    QCOMPARE(rows.view.highlightedRecord(), QString());
    rows.key(key);
    QCOMPARE(rows.view.highlightedRecord(), QString::number(row + 1));
    QCOMPARE(rows.chosen, (QList<int>{row, row}));
  }

  void anAssistiveToolChooses() {
    Rows rows(3);
    QVERIFY(tableOf(rows.view).selectRow(1));
    QVERIFY(tableOf(rows.view).selectRow(2));
    QCOMPARE(rows.chosen, (QList<int>{1, 2}));
    QCOMPARE(rows.view.highlightedRecord(), "3");
    QCOMPARE(rows.view.selectionModel()->selectedRows().size(), 1);
    QCOMPARE(rows.view.currentIndex().row(), 2);
    tableOf(rows.view).unselectRow(2);
    QCOMPARE(rows.view.highlightedRecord(), "3");
    QVERIFY(rows.view.selectionModel()->isRowSelected(2));
  }

  void aSortKeepsTheHighlightOnItsRecord() {
    Rows rows(5);
    rows.click(1);
    rows.model.sort(0);
    QCOMPARE(rows.view.highlightedRecord(), "2");
    QVERIFY(rows.view.selectionModel()->isRowSelected(3));
    QCOMPARE(rows.chosen, QList<int>{1});
  }

  void aChoiceThatFailsGivesTheHighlightBackAndIsTriedOnce() {
    Rows rows(3);
    rows.click(0);
    rows.accepts = false;
    rows.click(2);
    QCOMPARE(rows.view.highlightedRecord(), "1");
    QVERIFY(rows.view.selectionModel()->isRowSelected(0));
    QCOMPARE(rows.chosen, (QList<int>{0, 2}));
    rows.key(Qt::Key_End);
    QCOMPARE(rows.view.highlightedRecord(), "1");
  }

  void aFirstChoiceThatFailsHighlightsNothing() {
    Rows rows(3);
    rows.accepts = false;
    rows.click(2);
    QCOMPARE(rows.view.highlightedRecord(), QString());
    QVERIFY(!rows.view.selectionModel()->hasSelection());
    QCOMPARE(rows.chosen, QList<int>{2});
    rows.accepts = true;
    rows.click(1);
    QCOMPARE(rows.view.highlightedRecord(), "2");
  }

  void aBoxUnderThePressLeavesTheMouseUsable() {
    Rows rows(3);
    test::BoxScript boxes;
    QListWidget list;
    list.addItems({"a", "b", "c"});
    QList<int> chosen;
    RowChoice choice(&list, [&](int row) {
      chosen << row;
      if (row != 1) return true;
      tellError(&list, "t", "p");
      return false;
    });
    test::bringUp(list);
    test::clickRow(list, 1);
    QCOMPARE(choice.row(), -1);
    test::clickRow(list, 2);
    QCOMPARE(choice.row(), 2);
    QCOMPARE(chosen, (QList<int>{1, 2}));
    QCOMPARE(boxes.seen.size(), 1);
    list.clear();
    QCOMPARE(choice.row(), -1);
  }

  void highlightingARecordThatIsNotListedHighlightsNothing() {
    Rows rows(3);
    rows.click(1);
    rows.view.highlightRecord(9);
    QCOMPARE(rows.view.highlightedRecord(), QString());
    rows.view.highlightRecord(3);
    QCOMPARE(rows.view.highlightedRecord(), "3");
    rows.view.highlightRecord(0);
    QCOMPARE(rows.view.highlightedRecord(), QString());
    QCOMPARE(rows.chosen, QList<int>{1});
  }

  void aRefillKeepsThePlaceAndTheKeyboardsRowButChoosesNothing() {
    Rows rows(60);
    rows.view.scrollTo(rows.model.index(40, 0), QAbstractItemView::PositionAtTop);
    rows.click(41);
    const int scrolled = rows.view.verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    rows.view.keepPlace([&] { rows.fill(60); });
    QCOMPARE(rows.view.highlightedRecord(), QString());
    QVERIFY(!rows.view.selectionModel()->hasSelection());
    QCOMPARE(rows.view.currentIndex().row(), 41);
    QCOMPARE(rows.view.verticalScrollBar()->value(), scrolled);
    QCOMPARE(rows.chosen, QList<int>{41});
    rows.key(Qt::Key_Space);
    QCOMPARE(rows.chosen, (QList<int>{41, 41}));
  }

  void aRefillWithoutTheFirstRowKeepsTheKeyboardOnItsRecordAndTheListWhereItWas() {
    Rows rows(60);
    rows.view.scrollTo(rows.model.index(40, 0), QAbstractItemView::PositionAtTop);
    rows.click(41);
    const int scrolled = rows.view.verticalScrollBar()->value();
    rows.view.keepPlace([&] {
      rows.fill(0);
      rows.view.scrollToTop();
      rows.fill(60, 2);
    });
    QCOMPARE(rows.view.currentIndex().row(), 40);
    QCOMPARE(rows.view.verticalScrollBar()->value(), scrolled);
    rows.view.keepPlace([&] { rows.fill(3); });
    QVERIFY(!rows.view.currentIndex().isValid());
    rows.click(0);
    rows.view.keepPlace([&] { rows.fill(3); });
    QCOMPARE(rows.view.currentIndex().row(), 0);
    rows.click(2);
    rows.view.keepPlace([&] {
      rows.fill(3);
      rows.view.highlightRecord(1);
    });
    QCOMPARE(rows.view.currentIndex().row(), 0);
  }

  void theSpaceBarTakesTheOnlyRowAndTakesItAgain() {
    Rows rows(1);
    rows.key(Qt::Key_Space);
    rows.key(Qt::Key_Space);
    QCOMPARE(rows.chosen, (QList<int>{0, 0}));
  }

  void aShorterListOfTextsKeepsTheKeyboardOnItsLastRow() {
    QListWidget list;
    list.addItems({"a", "b", "c"});
    RowChoice choice(&list, [](int) { return true; });
    test::bringUp(list);
    test::clickRow(list, 2);
    choice.keepPlace([&] { delete list.takeItem(0); });
    QCOMPARE(list.currentRow(), 1);
    choice.keepPlace([&] {
      list.clear();
      list.addItem("d");
    });
    QCOMPARE(list.currentRow(), 0);
  }

  void noKeyChoosesARowThatStaysOutOfSight_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("row");
    QTest::newRow("space") << Qt::Key_Space << 41;
    QTest::newRow("down") << Qt::Key_Down << 42;
    QTest::newRow("up") << Qt::Key_Up << 40;
  }
  void noKeyChoosesARowThatStaysOutOfSight() {
    QFETCH(Qt::Key, key);
    QFETCH(int, row);
    Rows rows(60);
    rows.view.scrollTo(rows.model.index(40, 0), QAbstractItemView::PositionAtTop);
    rows.click(41);
    rows.view.keepPlace([&] { rows.fill(60); });
    rows.view.scrollToTop();
    QVERIFY(!rows.isInSight(41));
    rows.key(key);
    QCOMPARE(rows.chosen.last(), row);
    QVERIFY(rows.isInSight(row));
  }

  void anAssistiveToolsRowComesIntoSight() {
    Rows rows(60);
    QVERIFY(tableOf(rows.view).selectRow(50));
    QVERIFY(rows.isInSight(50));
  }

  void aRowHalfInSightStaysWhereItIsUnderTheMouse() {
    Rows rows(60);
    rows.view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    const QPoint lowest = rows.view.viewport()->rect().bottomLeft() - QPoint(-5, 1);
    const auto lowestRow = [&] { return rows.view.indexAt(lowest).row(); };
    const auto cutPixels = [&] {
      return rows.view.visualRect(rows.model.index(lowestRow(), 0)).bottom() -
             rows.view.viewport()->rect().bottom();
    };
    for (int scrolled = 1; cutPixels() < 4; ++scrolled) rows.view.verticalScrollBar()->setValue(scrolled);
    const int half = lowestRow();
    QTest::mouseClick(rows.view.viewport(), Qt::LeftButton, {}, lowest);
    QCOMPARE(rows.view.indexAt(lowest).row(), half);
    QCOMPARE(rows.chosen, QList<int>{half});
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::RowChoiceTest)
#include "row_choice_test.moc"
