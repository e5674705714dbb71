#include "ui/chart/chart_thinning.h"

#include "tests/ui/chart_samples.h"
#include "tests/ui/screen_test.h"
#include "ui/chart/chart_view.h"

namespace tarvik::ui {

class ChartThinningTest : public QObject {
  Q_OBJECT

 private slots:
  void drawsAShortSeriesWhole() {
    QCOMPARE(rowsToDraw({}, 4, 0), QList<int>());
    QCOMPARE(rowsToDraw({5, 5, 5, 5}, 4, 3), QList<int>({1, 2, 3, 4}));
  }

  void drawsTheEndsAndTheLowestAndHighestOfEachStretch() {
    QCOMPARE(rowsToDraw({5, 1, 9, 2, 8, 3, 3, 7, 6, 4}, 4, 0), QList<int>({1, 2, 3, 6, 8, 10}));
  }

  void drawsOneRowOfAStretchOfOneValue() {
    QCOMPARE(rowsToDraw({4, 4, 4, 4, 4, 4}, 4, 0), QList<int>({1, 4, 6}));
  }

  void looksForTheExtremesBesideGaps() {
    QCOMPARE(rowsToDraw({NAN, 2, 1, 3, NAN, 7}, 4, 0), QList<int>({1, 2, 3, 4, 6}));
  }

  void keepsAStretchThatIsAllGap() {
    QCOMPARE(rowsToDraw({1, 2, 3, NAN, NAN, NAN}, 4, 0), QList<int>({1, 3, 4, 6}));
  }

  void drawsTheKeptRowAsWell() {
    QCOMPARE(rowsToDraw({1, 2, 3, 4, 5, 6}, 4, 5), QList<int>({1, 3, 4, 5, 6}));
    QCOMPARE(rowsToDraw({1, 2, 3, 4, 5, 6}, 4, 6), QList<int>({1, 3, 4, 6}));
    QCOMPARE(rowsToDraw({4, 4, 4, 4, 4, 4}, 4, 6), QList<int>({1, 4, 6}));
  }

  void findsTheNearestDrawnRow() {
    const QList<int> rows{2, 6, 9};
    QCOMPARE(nearestDrawn(rows, 1), 2);
    QCOMPARE(nearestDrawn(rows, 3), 2);
    QCOMPARE(nearestDrawn(rows, 4), 6);
    QCOMPARE(nearestDrawn(rows, 6), 6);
    QCOMPARE(nearestDrawn(rows, 99), 9);
    QCOMPARE(nearestDrawn({}, 1), 0);
  }

  void selectsTheRowsOfALongSeriesByTheirOwnNumbers_data() { samples::addTypes(); }
  void selectsTheRowsOfALongSeriesByTheirOwnNumbers() {
    QFETCH(int, type);
    ChartView chart;
    chart.resize(690, 300);
    chart.setChartType(type);
    QList<double> values(32'767, 1);
    values[20'000 - 1] = 50;
    chart.setPoints(QStringList(values.size(), "2013.07.05."), values);
    QCOMPARE(chart.rowCount(), 32'767);
    QCOMPARE(chart.rowAtPosition(chart.pointRect(20'000).center()), 20'000);
    const int drawn = chart.rowAtPosition(chart.pointRect(10'001).center());
    QVERIFY(std::abs(drawn - 10'001) <= 164);
    chart.selectRow(10'001);
    QCOMPARE(chart.selectedRow(), 10'001);
    QVERIFY(!chart.pointRect(10'001).isNull());
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartThinningTest)
#include "chart_thinning_test.moc"
