#include "ui/chart/chart_view.h"

#include <QApplication>
#include <QImage>
#include <QSignalSpy>
#include <QToolTip>

#include "tests/ui/chart_samples.h"
#include "tests/ui/screen_test.h"
#include "ui/chart/chart_canvas.h"

using tarvik::ui::ChartType;
using tarvik::ui::ChartView;
using namespace tarvik::ui::samples;

namespace {

QPoint centreOf(const ChartView& chart, int row) {
  return chart.pointRect(row).center().toPoint();
}

void moveMouse(ChartView& chart, const QPointF& position) {
  QMouseEvent event(QEvent::MouseMove, position, chart.mapToGlobal(position), Qt::NoButton, Qt::NoButton, {});
  QApplication::sendEvent(&chart, &event);
}

int rowsDrawn(const ChartView& chart) {
  int drawn = 0;
  for (int row = 1; row <= chart.rowCount(); ++row) drawn += chart.pointRect(row).isNull() ? 0 : 1;
  return drawn;
}

}  // namespace

class ChartViewTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<ShownChart> chart_;

 private slots:
  void init() { chart_ = std::make_unique<ShownChart>(); }

  void isNotHiddenByItsOwnDrawing() {
    chart_->setPoints({"a"}, {1});
    QVERIFY(chart_->pointRect(1).isValid());
    QVERIFY(chart_->visibleRegion().contains(chart_->pointRect(1).center().toPoint()));
  }

  void takesTheKeyboard() { QCOMPARE(chart_->focusPolicy(), Qt::StrongFocus); }

  void whatIsNotPaintedYetIsFound() {
    chart_->plot(ChartType::Bars2D, {"a"}, {1});
    const QPointF place = chart_->pointRect(1).center();
    QCOMPARE(chart_->rowAtPosition(place), 1);
    chart_->setPoints({}, {});
    QCOMPARE(chart_->rowAtPosition(place), 0);
  }

  void startsEmptyAsFlatBars() {
    QCOMPARE(chart_->property("chartType").toInt(), 1);
    QCOMPARE(chart_->property("titleText").toString(), QString());
    QVERIFY(chart_->property("rowLabels").toStringList().isEmpty());
    QVERIFY(chart_->property("rowValues").toStringList().isEmpty());
    QCOMPARE(chart_->selectedRow(), 0);
  }

  void propertiesTellTitleTypeAndPoints() {
    chart_->setProperty("titleText", QStringLiteral("Üzemanyag árak"));
    chart_->setProperty("chartType", 4);
    chart_->setPoints({"2013.07.05.", "2013.07.14."}, {389.9, 14'012.2525});
    QCOMPARE(chart_->titleText(), QStringLiteral("Üzemanyag árak"));
    QCOMPARE(chart_->chartType(), 4);
    QCOMPARE(chart_->property("rowLabels").toStringList(), QStringList({"2013.07.05.", "2013.07.14."}));
    QCOMPARE(chart_->property("rowValues").toStringList(), QStringList({"389,9", "14012,2525"}));
  }

  void numberThatIsNoTypeChangesNothing() {
    chart_->setChartType(3);
    chart_->setChartType(6);
    QCOMPARE(chart_->chartType(), 3);
    chart_->setChartType(-1);
    QCOMPARE(chart_->chartType(), 3);
  }

  void newPointsReplaceOldOnesAndEndTheSelection() {
    chart_->setPoints(monthLabels(12), waves(12));
    chart_->selectRow(7);
    QCOMPARE(chart_->selectedRow(), 7);
    chart_->setPoints(monthLabels(3), waves(3));
    QCOMPARE(chart_->rowCount(), 3);
    QCOMPARE(chart_->selectedRow(), 0);
    QVERIFY(chart_->pointRect(4).isNull());
  }

  void aRowThatIsNotThereCannotBeSelected() {
    chart_->plot(ChartType::Line3D, monthLabels(3), {1, 2, 3});
    chart_->selectRow(2);
    QSignalSpy selected(chart_.get(), &ChartView::pointSelected);
    for (const int row : {0, -1, 4}) {
      chart_->selectRow(row);
      QVERIFY(chart_->pointRect(row).isNull());
    }
    QCOMPARE(selected.count(), 0);
    QCOMPARE(chart_->selectedRow(), 2);
  }

  void surplusLabelsAreLeftOut() {
    chart_->setPoints({"a", "b", "c"}, {1, 2});
    QCOMPARE(chart_->rowLabels(), QStringList({"a", "b"}));
  }

  void clickOnPointSelectsIt_data() { addTypes(); }
  void clickOnPointSelectsIt() {
    QFETCH(int, type);
    for (const int count : {1, 3, 12, 78, 100}) {
      chart_->plot(static_cast<ChartType>(type), monthLabels(count), waves(count));
      for (int row = 1; row <= count; ++row) {
        QSignalSpy selected(chart_.get(), &ChartView::pointSelected);
        QTest::mouseClick(chart_.get(), Qt::LeftButton, {}, centreOf(*chart_, row));
        QCOMPARE(selected.count(), 1);
        QCOMPARE(selected.first(), QVariantList({1, row}));
        QCOMPARE(chart_->selectedRow(), row);
      }
    }
  }

  void gapIsNotDrawnAndNotSelected_data() { addTypes(); }
  void gapIsNotDrawnAndNotSelected() {
    QFETCH(int, type);
    chart_->plot(static_cast<ChartType>(type), monthLabels(4), {3000, std::nan(""), 4000, 3500});
    QCOMPARE(rowsDrawn(*chart_), 3);
    QVERIFY(chart_->pointRect(2).isNull());
    QSignalSpy selected(chart_.get(), &ChartView::pointSelected);
    chart_->selectRow(2);
    QCOMPARE(selected.count(), 0);
    QVERIFY(!chart_->grab().isNull());
  }

  void axisLabelsNeverOverlap_data() { addTypes(); }
  void axisLabelsNeverOverlap() {
    QFETCH(int, type);
    for (const QSize& size : {QSize(650, 260), QSize(690, 400), QSize(1300, 700)}) {
      chart_->resize(size);
      for (const int count : {0, 1, 3, 9, 12, 25, 27, 50, 78, 100}) {
        for (const QStringList& labels : {monthLabels(count), dateLabels(count)}) {
          chart_->plot(static_cast<ChartType>(type), labels, waves(count));
          const QList<QPolygonF> outlines = chart_->axisLabelOutlines();
          for (qsizetype first = 0; first < outlines.size(); ++first) {
            QVERIFY(QRectF(chart_->rect()).contains(outlines[first].boundingRect()));
            for (qsizetype second = first + 1; second < outlines.size(); ++second) {
              QVERIFY(!outlines[first].intersects(outlines[second]));
            }
          }
        }
      }
    }
  }

  void mouseOverPointTellsLabelAndValue() {
    chart_->plot(ChartType::Bars2D, monthLabels(3), {12345, 8200.5, -15220.25});
    moveMouse(*chart_, chart_->pointRect(1).center());
    QCOMPARE(QToolTip::text(), QStringLiteral("2007. 1. hó: 12\u00a0345"));
    moveMouse(*chart_, chart_->pointRect(3).center());
    QCOMPARE(QToolTip::text(), QStringLiteral("2007. 3. hó: -15\u00a0220,25"));
  }

  void aTipOfTheRoomAroundTheChartDoesNotTakeItsPlace() {
    chart_->plot(ChartType::Bars2D, monthLabels(1), {12345});
    const QPoint at = centreOf(*chart_, 1);
    QHelpEvent help(QEvent::ToolTip, at, chart_->mapToGlobal(at));
    QVERIFY(QApplication::sendEvent(chart_.get(), &help));
    QCOMPARE(QToolTip::text(), QStringLiteral("2007. 1. hó: 12\u00a0345"));
  }

  void theTipGoesWithThePointer() {
    chart_->plot(ChartType::Bars2D, monthLabels(3), {3000, 9000, 6000});
    const QImage before = chart_->grab().toImage();
    moveMouse(*chart_, chart_->pointRect(2).center());
    QVERIFY(QToolTip::isVisible());
    const QImage over = chart_->grab().toImage();
    QVERIFY(over != before);
    const QColor hovered = over.pixelColor(chart_->pointRect(2).center().toPoint());
    QVERIFY(hovered.lightness() >
            before.pixelColor(chart_->pointRect(2).center().toPoint()).lightness() + 10);
    moveMouse(*chart_, QPointF(2, 2));
    QCOMPARE(chart_->grab().toImage(), before);
    moveMouse(*chart_, chart_->pointRect(2).center());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(chart_.get(), &leave);
    QCOMPARE(chart_->grab().toImage(), before);
  }

  void whatIsHoveredIsForgottenWithItsPointsAndItsType() {
    chart_->plot(ChartType::Bars2D, monthLabels(3), {3000, 9000, 6000});
    const QImage before = chart_->grab().toImage();
    moveMouse(*chart_, chart_->pointRect(2).center());
    chart_->setPoints(monthLabels(3), {3000, 9000, 6000});
    QCOMPARE(chart_->grab().toImage(), before);
    moveMouse(*chart_, chart_->pointRect(2).center());
    chart_->setChartType(0);
    chart_->setChartType(1);
    QCOMPARE(chart_->grab().toImage(), before);
  }

  void aPressThatIsReleasedElsewhereSelectsNothing() {
    chart_->plot(ChartType::Bars2D, monthLabels(3), {3000, 9000, 6000});
    QTest::mousePress(chart_.get(), Qt::LeftButton, {}, centreOf(*chart_, 1));
    QTest::mouseRelease(chart_.get(), Qt::LeftButton, {}, centreOf(*chart_, 2));
    QCOMPARE(chart_->selectedRow(), 0);
    QTest::mouseRelease(chart_.get(), Qt::LeftButton, {}, centreOf(*chart_, 1));
    QCOMPARE(chart_->selectedRow(), 0);
    QTest::mousePress(chart_.get(), Qt::LeftButton, {}, centreOf(*chart_, 1));
    chart_->setPoints(monthLabels(3), {3000, 9000, 6000});
    QTest::mouseRelease(chart_.get(), Qt::LeftButton, {}, centreOf(*chart_, 1));
    QCOMPARE(chart_->selectedRow(), 0);
    QTest::mouseClick(chart_.get(), Qt::RightButton, {}, centreOf(*chart_, 1));
    QCOMPARE(chart_->selectedRow(), 0);
  }

  void otherKeysAreLeftToTheScreenAndLeftBeginsAtTheEnd() {
    chart_->plot(ChartType::Line2D, monthLabels(4), {1, 2, 3, std::nan("")});
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
    QApplication::sendEvent(chart_.get(), &letter);
    QVERIFY(!letter.isAccepted());
    QTest::keyClick(chart_.get(), Qt::Key_Left);
    QCOMPARE(chart_->selectedRow(), 3);
    QTest::keyClick(chart_.get(), Qt::Key_Left);
    QCOMPARE(chart_->selectedRow(), 2);
    QTest::keyClick(chart_.get(), Qt::Key_Home);
    QTest::keyClick(chart_.get(), Qt::Key_Left);
    QCOMPARE(chart_->selectedRow(), 1);
  }

  void leftBeginsAtTheVeryLast() {
    chart_->plot(ChartType::Line2D, monthLabels(4), {1, 2, 3, 4});
    QTest::keyClick(chart_.get(), Qt::Key_Left);
    QCOMPARE(chart_->selectedRow(), 4);
    QTest::keyClick(chart_.get(), Qt::Key_Left);
    QCOMPARE(chart_->selectedRow(), 3);
  }

  void keysMoveTheSelectionPastGaps() {
    const double gap = std::nan("");
    chart_->plot(ChartType::Line2D, monthLabels(6), {gap, 2, 3, gap, 5, gap});
    QSignalSpy selected(chart_.get(), &ChartView::pointSelected);
    const std::pair<Qt::Key, int> steps[] = {{Qt::Key_Right, 2}, {Qt::Key_Right, 3}, {Qt::Key_Right, 5},
                                             {Qt::Key_Right, 5}, {Qt::Key_Left, 3},  {Qt::Key_End, 5},
                                             {Qt::Key_Home, 2}};
    for (const auto& [key, row] : steps) {
      QTest::keyClick(chart_.get(), key);
      QCOMPARE(chart_->selectedRow(), row);
    }
    QCOMPARE(selected.count(), 6);
  }

  void wishesForAWidthAndCanDoWithLess() {
    QCOMPARE(chart_->sizeHint().width(), 700);
    QCOMPARE(chart_->minimumSizeHint().width(), 320);
    QCOMPARE(chart_->sizeHint().height(), tarvik::ui::chartHeightForPlot(220, chart_->font()));
    QCOMPARE(chart_->minimumSizeHint().height(), tarvik::ui::chartHeightForPlot(72, chart_->font()));
    QCOMPARE(chart_->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
  }

  void wishesForAPlotOf220Pixels() {
    for (const int pointSize : {8, 10, 16}) {
      QFont font = chart_->font();
      font.setPointSize(pointSize);
      chart_->setFont(font);
      chart_->setUnitText("Ft");
      chart_->resize(chart_->sizeHint());
      for (const ChartType type : {ChartType::Bars2D, ChartType::Bars3D}) {
        chart_->plot(type, monthLabels(100), QList<double>(100, 1.0));
        QVERIFY(chart_->pointRect(1).height() * 1.05 > 219);
        QVERIFY(chart_->pointRect(1).height() * 1.05 < 245);
      }
    }
  }

  void manyChangesArePlottedOnce() {
    auto* const canvas = chart_->findChild<QWidget*>();
    QSignalSpy plotted(canvas, SIGNAL(afterReplot()));
    QTRY_VERIFY(plotted.count() > 0);
    QCoreApplication::processEvents();
    plotted.clear();
    chart_->setTitleText("Havi tankolási költségek");
    chart_->setPoints(monthLabels(78), waves(78));
    chart_->setChartType(0);
    chart_->selectRow(5);
    QTRY_VERIFY(plotted.count() > 0);
    QCoreApplication::processEvents();
    QCOMPARE(plotted.count(), 1);
  }
};

TARVIK_SCREEN_TEST(ChartViewTest)
#include "chart_view_test.moc"
