#include "ui/lists/search_line.h"

#include <QAccessible>
#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/base/text.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"

namespace tarvik::ui {
namespace {

/// A screen with a field and a list of a hundred records, every tenth of them a wash, the newest at the end.
struct Washes {
  explicit Washes(const QString& wanted = {}) {
    test::dressOnce();
    auto* layout = new QVBoxLayout(&screen);
    layout->addWidget(&field);
    layout->addWidget(&view);
    view.setModel(&model);
    fill(100);
    delegate = layOutList(view, {"", "999"});
    view.onRowChosen([this](int row) {
      chosen << row;
      return accepts;
    });
    line = new SearchLine(
        view, [this](int row) { return toLogic(model.index(row, 0).data().toString()); }, &screen);
    layout->insertWidget(1, line);
    screen.resize(500, 300);
    test::bringUp(screen);
    field.setFocus();
    if (!wanted.isEmpty()) find(wanted);
  }
  void fill(int count) {
    std::vector<TextRow> rows;
    for (int record = 1; record <= count; ++record)
      rows.push_back({.cells = {record % 10 == 0 ? "Mosás" : "Tankolás", QString::number(record)},
                      .record = QString::number(record)});
    model.setRows(std::move(rows));
  }
  void key(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(screen.focusWidget(), key, keys); }
  void find(const QString& text) {
    key(Qt::Key_F, Qt::ControlModifier);
    test::typeKeys(*words(), text);
  }
  QLineEdit* words() { return line->findChild<QLineEdit*>("txKereses"); }
  QString spoken() {
    auto* label = line->findChild<QLabel*>("lbTalalat");
    return QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name);
  }
  QString count() { return line->findChild<QLabel*>("lbTalalat")->text(); }
  void press(const char* name) { test::press(*line->findChild<QPushButton*>(QString::fromLatin1(name))); }
  bool isInSight(int row) {
    const QRect place = view.visualRect(model.index(row, 0));
    return !place.isEmpty() && view.viewport()->rect().contains(place);
  }

  QDialog screen;
  QLineEdit field;
  TextListModel model{{"Megjegyzés", "Szám"}};
  ListView view;
  ListDelegate* delegate = nullptr;
  SearchLine* line = nullptr;
  QList<int> chosen;
  bool accepts = true;
};

}  // namespace

class SearchLineTest : public QObject {
  Q_OBJECT

 private slots:
  void isHiddenUntilItIsWanted() {
    Washes washes;
    QVERIFY(washes.line->isHidden());
    QVERIFY(washes.view.actions().contains(washes.line->item()));
    QCOMPARE(washes.line->item()->text(), "&Keresés…");
    washes.key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(washes.line->isVisible());
    QVERIFY(washes.words()->hasFocus());
    QCOMPARE(washes.count(), "");
  }

  void findsTheNewestAtOnceBringsItInViewAndTintsIt() {
    Washes washes("MOSÁS");
    QCOMPARE(washes.count(), "1 / 10");
    QVERIFY(washes.isInSight(99));
    QCOMPARE(washes.delegate->found(), "100");
    const QRect place = washes.view.visualRect(washes.model.index(99, 1));
    const QColor tint = washes.view.viewport()->grab(place).toImage().pixelColor(2, 2);
    QVERIFY(tint != washes.view.palette().color(QPalette::Base));
    QVERIFY(tint != washes.view.palette().color(QPalette::AlternateBase));
    QVERIFY(tint != washes.view.palette().color(QPalette::Highlight));
  }

  void enterAndF3GoOnAndShiftGoesBackRoundAndRound() {
    Washes washes("mosás");
    washes.key(Qt::Key_Return);
    QCOMPARE(washes.count(), "2 / 10");
    QCOMPARE(washes.delegate->found(), "90");
    washes.key(Qt::Key_F3);
    washes.key(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(washes.count(), "4 / 10");
    QVERIFY(washes.isInSight(69));
    washes.key(Qt::Key_Return, Qt::ShiftModifier);
    washes.key(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(washes.count(), "2 / 10");
    washes.key(Qt::Key_F3, Qt::ShiftModifier);
    washes.key(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(washes.count(), "10 / 10");
    QCOMPARE(washes.delegate->found(), "10");
    washes.key(Qt::Key_F3);
    QCOMPARE(washes.count(), "1 / 10");
  }

  void theButtonsDoTheSameByMouse() {
    Washes washes("mosás");
    washes.press("cmdKovetkezo");
    washes.press("cmdKovetkezo");
    washes.press("cmdElozo");
    QCOMPARE(washes.count(), "2 / 10");
    washes.press("cmdKeresesVege");
    QVERIFY(washes.line->isHidden());
    QVERIFY(washes.field.hasFocus());
  }

  void choosesNothing() {
    Washes washes("mosás");
    washes.key(Qt::Key_Return);
    QVERIFY(washes.chosen.isEmpty());
    QVERIFY(!washes.view.selectionModel()->hasSelection());
    washes.key(Qt::Key_Down);
    QVERIFY(washes.view.hasFocus());
    QCOMPARE(washes.view.currentIndex().row(), 89);
    QVERIFY(washes.chosen.isEmpty());
  }

  void enterInTheListChoosesTheFoundRowAndClosesTheLine() {
    Washes washes("mosás");
    washes.key(Qt::Key_Return);
    washes.key(Qt::Key_Down);
    washes.key(Qt::Key_Return);
    QCOMPARE(washes.chosen, QList<int>{89});
    QCOMPARE(washes.view.highlightedRecord(), "90");
    QVERIFY(washes.view.hasFocus());
    QVERIFY(washes.line->isHidden());
    QVERIFY(washes.isInSight(89));
    QCOMPARE(washes.delegate->found(), "");
    washes.key(Qt::Key_Return);
    QCOMPARE(washes.chosen, QList<int>{89});
  }

  void aRowThatCannotBeChosenLeavesTheLineOpen() {
    Washes washes;
    washes.accepts = false;
    washes.find("mosás");
    washes.key(Qt::Key_Down);
    washes.key(Qt::Key_Return);
    QCOMPARE(washes.chosen, QList<int>{99});
    QVERIFY(washes.line->isVisible());
    QCOMPARE(washes.count(), "1 / 10");
  }

  void theTabKeyComesToTheFoundRowToo() {
    Washes washes("mosás");
    for (int i = 0; i < 4; ++i) washes.key(Qt::Key_Tab);
    QVERIFY(washes.view.hasFocus());
    QCOMPARE(washes.view.currentIndex().row(), 99);
    washes.key(Qt::Key_Space);
    QCOMPARE(washes.chosen, QList<int>{99});
  }

  void escapeGoesBackToWhereOneWas() {
    Washes washes;
    washes.view.verticalScrollBar()->setValue(3);
    washes.find("mosás");
    QVERIFY(washes.isInSight(99));
    washes.key(Qt::Key_Escape);
    QVERIFY(washes.line->isHidden());
    QVERIFY(washes.screen.isVisible());
    QVERIFY(washes.field.hasFocus());
    QCOMPARE(washes.view.verticalScrollBar()->value(), 3);
    QCOMPARE(washes.delegate->found(), "");
    washes.key(Qt::Key_Escape);
    QVERIFY(!washes.screen.isVisible());
  }

  void escapeInTheListGivesItsRowBack() {
    Washes washes;
    test::clickRow(washes.view, 2);
    washes.find("mosás");
    washes.key(Qt::Key_Down);
    QCOMPARE(washes.view.currentIndex().row(), 99);
    washes.key(Qt::Key_Escape);
    QVERIFY(washes.view.hasFocus());
    QCOMPARE(washes.view.currentIndex().row(), 2);
    QVERIFY(washes.isInSight(2));
    QCOMPARE(washes.chosen, QList<int>{2});
  }

  void escapeLeavesARowThatWasChosenMeanwhile() {
    Washes washes("mosás");
    washes.key(Qt::Key_Down);
    washes.key(Qt::Key_Up);
    QCOMPARE(washes.chosen, QList<int>{98});
    washes.key(Qt::Key_Escape);
    QVERIFY(washes.line->isHidden());
    QVERIFY(washes.view.hasFocus());
    QVERIFY(washes.isInSight(98));
    QCOMPARE(washes.view.highlightedRecord(), "99");
  }

  void escapeElsewhereLeavesTheKeyboardThere() {
    Washes washes;
    washes.view.setFocus();
    washes.find("mosás");
    washes.field.setFocus();
    washes.key(Qt::Key_Escape);
    QVERIFY(washes.line->isHidden());
    QVERIFY(washes.field.hasFocus());
  }

  void aClickIntoTheListChoosesWhatIsUnderThePointer() {
    Washes washes("mosás");
    washes.view.verticalScrollBar()->setValue(0);
    test::clickRow(washes.view, 1);
    QCOMPARE(washes.chosen, QList<int>{1});
    QCOMPARE(washes.view.verticalScrollBar()->value(), 0);
  }

  void saysWhereNothingIsFound() {
    Washes washes("matrica");
    QCOMPARE(washes.count(), "nincs találat");
    QCOMPARE(washes.delegate->found(), "");
    washes.key(Qt::Key_Return);
    washes.key(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(washes.count(), "nincs találat");
    washes.words()->clear();
    QCOMPARE(washes.count(), "");
  }

  void ctrlFAgainGoesToTheWordsAndSelectsThem() {
    Washes washes("mosás");
    washes.key(Qt::Key_Down);
    washes.key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(washes.words()->hasFocus());
    QCOMPARE(washes.words()->selectedText(), "mosás");
    QCOMPARE(washes.count(), "1 / 10");
  }

  void theWordsStayForTheNextTime() {
    Washes washes("mosás");
    washes.key(Qt::Key_Escape);
    washes.key(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(washes.words()->selectedText(), "mosás");
    QCOMPARE(washes.count(), "1 / 10");
  }

  void aListFilledAnewIsCountedAnewAndItsFoundRowStays() {
    Washes washes("mosás");
    washes.key(Qt::Key_F3);
    washes.fill(0);
    washes.fill(120);
    QCoreApplication::processEvents();
    QCOMPARE(washes.count(), "4 / 12");
    QCOMPARE(washes.delegate->found(), "90");
    washes.fill(80);
    QCoreApplication::processEvents();
    QCOMPARE(washes.count(), "8 találat");
    washes.key(Qt::Key_F3);
    QCOMPARE(washes.count(), "1 / 8");
  }

  void aSortedListIsGoneThroughFromItsLastRow() {
    Washes washes("mosás");
    washes.model.sort(1);
    QCoreApplication::processEvents();
    washes.words()->clear();
    test::typeKeys(*washes.words(), "mosás");
    QCOMPARE(washes.delegate->found(), "90");
  }

  void closesWhereTheListIsHidden() {
    Washes washes("mosás");
    washes.field.setFocus();
    washes.view.hide();
    QVERIFY(washes.line->isHidden());
    QVERIFY(washes.field.hasFocus());
  }

  void theCountAndTheFoundRowAreSpoken() {
    Washes washes("mosás");
    QCOMPARE(washes.spoken(), "1. találat, összesen 10: Mosás, 100");
    washes.key(Qt::Key_F3);
    QCOMPARE(washes.spoken(), "2. találat, összesen 10: Mosás, 90");
    test::typeKeys(*washes.words(), "x");
    QCOMPARE(washes.spoken(), "nincs találat");
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::SearchLineTest)
#include "search_line_test.moc"
