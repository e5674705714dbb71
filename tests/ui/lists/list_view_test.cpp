#include "ui/lists/list_view.h"

#include <QHelpEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QToolTip>

#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/text_list_model.h"
#include "ui/look/look.h"

namespace tarvik::ui {
namespace {

/// A list of two columns and the record number, shown.
struct Shown {
  explicit Shown(const QStringList& longest = {}) {
    test::dressOnce();
    view.setModel(&model);
    if (!longest.isEmpty()) delegate = layOutList(view, longest);
    model.setRows({{{"B", "10"}, "4"}, {{"A", "9"}, "7"}});
    view.resize(500, 300);
    test::bringUp(view);
  }
  int widthOf(const QString& text) const {
    return view.fontMetrics().horizontalAdvance(text) + 2 * gridStep();
  }
  QColor paperOf(int row) {
    const QRect place = view.visualRect(model.index(row, 1));
    return view.viewport()->grab().toImage().pixelColor(place.right() - 3, place.center().y());
  }
  void pointAt(int row, int column) {
    const QPoint at = view.visualRect(model.index(row, column)).center();
    QHelpEvent help(QEvent::ToolTip, at, view.viewport()->mapToGlobal(at));
    QApplication::sendEvent(view.viewport(), &help);
  }

  TextListModel model{{"Szöveg", "Km"}};
  ListView view;
  ListDelegate* delegate = nullptr;
};

}  // namespace

class ListViewTest : public QObject {
  Q_OBJECT

 private slots:
  void ctrlCWhereTheKeyboardIsOnNoRowAsksForNone() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral("QModelIndex")));
    Shown list;
    list.view.setCurrentIndex({});
    QTest::keyClick(&list.view, Qt::Key_C, Qt::ControlModifier);
  }

  void theLastRowStaysInSightWhenTheListGetsLower() {
    Shown list;
    list.model.setRows(std::vector<TextRow>(100, {{"B", "10"}, "4"}));
    const QModelIndex first = list.model.index(0, 0);
    const QModelIndex last = list.model.index(99, 0);
    const auto isSeen = [&](const QModelIndex& row) {
      return list.view.viewport()->rect().contains(list.view.visualRect(row));
    };
    QVERIFY(isSeen(first));
    list.view.resize(500, 270);
    QVERIFY(isSeen(first));
    list.view.scrollToBottom();
    list.view.resize(500, 240);
    QVERIFY(isSeen(last));
    list.view.scrollToTop();
    list.view.resize(500, 210);
    QVERIFY(isSeen(first));
  }

  void itIsAFlatListOfWholeRowsThatNobodyEdits() {
    const Shown list;
    QVERIFY(!list.view.rootIsDecorated());
    QVERIFY(!list.view.itemsExpandable());
    QVERIFY(list.view.uniformRowHeights());
    QVERIFY(list.view.allColumnsShowFocus());
    QCOMPARE(list.view.selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(list.view.selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(list.view.editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(!list.view.tabKeyNavigation());
    QVERIFY(!list.view.header()->sectionsMovable());
    QVERIFY(!list.view.header()->highlightSections());
    QVERIFY(list.view.header()->stretchLastSection());
    QVERIFY(!list.view.isColumnHidden(1));
    QVERIFY(list.view.isColumnHidden(2));
    QCOMPARE(list.view.shownColumns(), 2);
    QCOMPARE(ListView().shownColumns(), 0);
  }

  void aHeadThatIsClickedSortsAndShowsIt() {
    Shown list;
    const auto click = [&](int column) { test::clickHead(list.view, column); };
    click(0);
    QCOMPARE(list.model.record(0), QString("4"));
    QVERIFY(!list.view.header()->isSortIndicatorShown());
    list.view.sortByHeaderClicks();
    click(1);
    click(0);
    QCOMPARE(list.model.record(0), QString("7"));
    QVERIFY(list.view.header()->isSortIndicatorShown());
    QCOMPARE(list.view.header()->sortIndicatorSection(), 0);
    QCOMPARE(list.view.header()->sortIndicatorOrder(), Qt::AscendingOrder);
    click(0);
    QCOMPARE(list.view.header()->sortIndicatorSection(), 0);
    QCOMPARE(list.view.header()->sortIndicatorOrder(), Qt::AscendingOrder);
    QCOMPARE(list.model.record(0), QString("7"));
  }

  void columnsAreAsWideAsTheirLongestTextAndTextsShareTheRest() {
    Shown list({"", "9999999"});
    QCOMPARE(list.view.columnWidth(1), list.widthOf("9999999"));
    QCOMPARE(list.view.columnWidth(0), list.view.viewport()->width() - list.view.columnWidth(1));
    const int head = list.view.header()->sectionSizeHint(0);
    const int bar = list.view.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QCOMPARE(list.view.minimumWidth(), list.view.columnWidth(1) + head + bar + 2 * list.view.frameWidth());
    QCOMPARE(list.view.minimumHeight(),
             list.view.header()->sizeHint().height() + 3 * rowHeight() + 2 * list.view.frameWidth());
  }

  void aColumnIsNotNarrowerThanItsHead() {
    Shown list({"", "1"});
    QCOMPARE(list.view.columnWidth(1), list.view.header()->sectionSizeHint(1));
  }

  // Drags the edge behind a column.
  static void drag(Shown& list, int column, int by) {
    QHeaderView& header = *list.view.header();
    const QPoint edge(header.sectionViewportPosition(column) + header.sectionSize(column) - 1,
                      header.height() / 2);
    QTest::mouseMove(header.viewport(), edge);
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(header.viewport(), edge + QPoint(by, 0));
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, edge + QPoint(by, 0));
  }

  void aColumnThatWasMadeWiderByHandIsSoInTheNextListOfThatName() {
    const auto open = [](Shown& list) {
      list.view.setObjectName("dragged");
      list.delegate = layOutList(list.view, {"99", "99"});
    };
    Shown list;
    open(list);
    const int before = list.view.columnWidth(0);
    drag(list, 0, 40);
    QCOMPARE(list.view.columnWidth(0), before + 40);
    keepWhole(list.view, 0, QString(50, '9'));
    QCOMPARE(list.view.columnWidth(0), before + 40);
    Shown next;
    open(next);
    QCOMPARE(next.view.columnWidth(0), before + 40);
    QCOMPARE(next.view.columnWidth(1), next.view.header()->sectionSizeHint(1));
  }

  void aLargerFontWidensTheColumns() {
    Shown list({"", "9999999"});
    QFont larger = list.view.font();
    larger.setPointSizeF(larger.pointSizeF() * 2);
    list.view.setFont(larger);
    QCOMPARE(list.view.columnWidth(1), list.widthOf("9999999"));
  }

  void aLongerTextWidensItsColumnAndTheListByAsMuch() {
    Shown list({"", "99"});
    const int column = list.view.columnWidth(1);
    const int least = list.view.minimumWidth();
    keepWhole(list.view, 1, "9");
    QCOMPARE(list.view.columnWidth(1), column);
    QCOMPARE(list.view.minimumWidth(), least);
    keepWhole(list.view, 1, "9999999999");
    QCOMPARE(list.view.columnWidth(1), list.widthOf("9999999999"));
    QCOMPARE(list.view.minimumWidth() - least, list.view.columnWidth(1) - column);
  }

  void aCutTextIsToldUnderThePointerAndAWholeOneIsNot() {
    Shown list({"", "99"});
    list.model.setRows({{{QString(300, 'W'), "10"}, "4"}, {{"A", "9"}, "7"}});
    list.pointAt(0, 0);
    QCOMPARE(QToolTip::text(), QString(300, 'W'));
    list.pointAt(1, 0);
    QTRY_VERIFY(!QToolTip::isVisible());
  }

  // A tooltip is a label of Qt's own, which takes a text with tags for HTML.
  void theTextUnderThePointerIsShownAsItIs() {
    const QString text = "<h1>Fék</h1><img src=\"/etc/hostname\">" + QString(300, 'W');
    Shown list({"", "99"});
    list.model.setRows({{{text, "10"}, "4"}});
    list.pointAt(0, 0);
    QCOMPARE(QToolTip::text(), text);
    int tips = 0;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->inherits("QTipLabel")) continue;
      ++tips;
      QCOMPARE(static_cast<QLabel*>(window)->textFormat(), Qt::PlainText);
    }
    QCOMPARE(tips, 1);
  }

  void theNewRowIsTintedForAMomentAndNoOther() {
    Shown other({"", "99"});
    other.delegate->mark("4", other.view);
    Shown list({"", "99"});
    const QColor paper = list.paperOf(0);
    const QColor striped = list.paperOf(1);
    list.delegate->mark("4", list.view);
    QVERIFY(list.paperOf(0) != paper);
    QCOMPARE(list.paperOf(1), striped);
    list.delegate->mark("7", list.view);
    QCOMPARE(list.paperOf(0), paper);
    QVERIFY(list.paperOf(1) != striped);
    QTRY_COMPARE_WITH_TIMEOUT(list.delegate->marked(), QString(), 60'000);
    QTRY_COMPARE(other.delegate->marked(), QString());
    QCOMPARE(list.paperOf(1), striped);
  }

  void theHookOfAChosenSetHasTheColourOfItsText() {
    Shown list({"", "99"});
    list.model.setRows({{{"B", "10"}, "4", true}});
    QPalette palette = list.view.palette();
    palette.setColor(QPalette::Highlight, QColor(0, 200, 0));
    palette.setColor(QPalette::HighlightedText, QColor(255, 255, 0));
    list.view.setPalette(palette);
    list.view.setCurrentIndex(list.model.index(0, 0));
    const QRect place = list.view.visualRect(list.model.index(0, 0));
    const QImage picture =
        list.view.viewport()->grab(QRect(place.topLeft(), QSize(place.height(), place.height()))).toImage();
    int yellow = 0;
    for (int x = 0; x < picture.width(); ++x)
      for (int y = 0; y < picture.height(); ++y) yellow += picture.pixelColor(x, y).red() > 120 ? 1 : 0;
    QVERIFY(yellow > 3);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ListViewTest)
#include "list_view_test.moc"
