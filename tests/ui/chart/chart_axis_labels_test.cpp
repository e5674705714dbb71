#include "ui/chart/chart_axis_labels.h"

#include <QTest>
#include <cmath>
#include <numbers>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

constexpr double kDiagonal = std::numbers::sqrt2 / 2;

QFontMetricsF metrics() {
  return QFontMetricsF(QFont());
}

QStringList same(int count, const QString& label = QStringLiteral("2013.07.05.")) {
  return QStringList(count, label);
}

double widthOf(const QString& label) {
  return metrics().horizontalAdvance(label);
}

// Every how manieth of so many labels is shown where each takes as much room as so many rows have.
int everyHowMany(int rows, double rowsALabel) {
  const double room = widthOf(same(1).first()) + 14;
  return fitLabels(same(rows), metrics(), rows * room / rowsALabel, 1).every;
}

ChartFrame frameOf(int rows, double width) {
  ChartFrame frame;
  frame.front = QRectF(50, 10, width, 100);
  frame.rows = frame.drawn = rows;
  return frame;
}

}  // namespace

class ChartAxisLabelsTest : public QObject {
  Q_OBJECT

 private slots:
  void labelsStandLevelWhileEachHasItsWidthAnd14Pixels() {
    const QStringList labels{"2013.07.05.", "a", "b"};
    const double width = 3 * (widthOf("2013.07.05.") + 14);
    const LabelFit fit = fitLabels(labels, metrics(), width, 1000);
    QVERIFY(!fit.turned);
    QCOMPARE(fit.every, 1);
    QCOMPARE(fit.height, metrics().height() + 8);
    QCOMPARE(fit.leftOverhang, 0.0);
    QVERIFY(fitLabels(labels, metrics(), width - 0.1, 1000).turned);
  }

  void turnedLabelsTakeAtMostAFifthOfTheHeight() {
    const double turnedHeight = (widthOf(same(1).first()) + metrics().height()) * kDiagonal + 8;
    const double rowWidth = (metrics().height() + 4) / kDiagonal + 0.1;
    const LabelFit fit = fitLabels(same(9), metrics(), 9 * rowWidth, 5 * turnedHeight + 1);
    QVERIFY(fit.turned);
    QCOMPARE(fit.every, 1);
    QCOMPARE(fit.height, turnedHeight);
    QCOMPARE(fit.leftOverhang, widthOf(same(1).first()) * kDiagonal + metrics().height() / 2 - rowWidth / 2);
    QVERIFY(!fitLabels(same(9), metrics(), 9 * rowWidth, 5 * turnedHeight - 1).turned);
    QVERIFY(!fitLabels(same(9), metrics(), 9 * (rowWidth - 0.2), 5 * turnedHeight + 1).turned);
  }

  void aLabelCountsForAtMost160Pixels() {
    const QStringList labels = same(3, QString(200, 'W'));
    QVERIFY(!fitLabels(labels, metrics(), 3 * 174.1, 1000).turned);
    QVERIFY(fitLabels(labels, metrics(), 3 * 173.9, 10'000).turned);
  }

  void labelsAreLeftOutAtDistancesThatPeopleCountIn_data() {
    QTest::addColumn<int>("distance");
    for (const int distance : {1, 2, 3, 4, 6, 8, 10, 12, 15, 18, 24, 30, 36, 48, 60})
      QTest::addRow("%d", distance) << distance;
  }
  void labelsAreLeftOutAtDistancesThatPeopleCountIn() {
    QFETCH(int, distance);
    QCOMPARE(everyHowMany(10'008, distance - 0.4), distance);  // 10,007 rows apart: a prime
  }

  void aDistanceThatFitsAndOneBeyondThoseAreTaken() {
    QCOMPARE(everyHowMany(10'008, 2), 2);
    QCOMPARE(everyHowMany(10'008, 70.3), 71);
  }

  void withoutAnyRoomOneLabelIsLeft() {
    for (const double width : {0.0, -1.0, -500.0}) {
      const LabelFit fit = fitLabels(same(31), metrics(), width, 300);
      QVERIFY(!fit.turned);
      QVERIFY(fit.every > 30);
    }
  }

  void aDistanceNearbyThatEndsOnTheLastRowIsTaken() {
    QCOMPARE(everyHowMany(31, 4.5), 5);  // 30 rows in fives
    QCOMPARE(everyHowMany(29, 4.5), 7);  // 28 in sevens: at most 1.6 times as far
    QCOMPARE(everyHowMany(30, 4.5), 6);
    QCOMPARE(everyHowMany(27, 7.5), 8);  // 26 in thirteens would be farther
  }

  void labelsHangUnderTheMiddleOfTheirRows() {
    const ChartFrame frame = frameOf(3, 600);
    const QStringList labels{"a", "b", "c"};
    const auto places = placeLabels({}, labels, metrics(), frame, 800);
    QCOMPARE(places.size(), 3);
    for (int row = 1; row <= 3; ++row) {
      const PlacedLabel& place = places[row - 1];
      const double width = std::ceil(widthOf(labels[row - 1])) + 1;
      QCOMPARE(place.text, labels[row - 1]);
      QCOMPARE(place.tickX, frame.x(row));
      QCOMPARE(place.anchor, QPointF(frame.x(row), 110 + 1 + 8));
      QCOMPARE(place.box, QRectF(-width / 2, 0, width, metrics().height()));
      QCOMPARE(place.degrees, 0.0);
      QCOMPARE(place.outline().boundingRect(), place.box.translated(place.anchor));
    }
  }

  void turnedLabelsEndUnderTheirRows() {
    LabelFit fit;
    fit.turned = true;
    const ChartFrame frame = frameOf(3, 600);
    const PlacedLabel place = placeLabels(fit, same(3), metrics(), frame, 800)[1];
    const double width = std::ceil(widthOf(same(1).first())) + 1;
    const double height = metrics().height();
    QCOMPARE(place.degrees, -45.0);
    QCOMPARE(place.anchor, QPointF(frame.x(2), 119 + height / 2 * kDiagonal));
    QCOMPARE(place.box, QRectF(-width, -height / 2, width, height));
  }

  void aLabelThatWouldLeaveTheChartIsMovedInside() {
    ChartFrame frame = frameOf(2, 100);
    frame.front.moveLeft(0);
    const auto places = placeLabels({}, same(2), metrics(), frame, 100);
    QCOMPARE(places.first().outline().boundingRect().left(), 3.0);
    const auto wide = placeLabels({}, same(2), metrics(), frameOf(2, 600), 655);
    QCOMPARE(wide.last().outline().boundingRect().right(),
             std::min(652.0, 500 + wide.last().box.width() / 2));
    ChartFrame atEnd = frameOf(2, 600);
    atEnd.rows = atEnd.drawn = 200;
    const auto end = placeLabels({.every = 199}, same(200), metrics(), atEnd, 655);
    QCOMPARE(end.last().outline().boundingRect().right(), 652.0);
  }

  void theFirstAndTheLastAreShownAndWhatIsTooCloseToThemIsNot() {
    const QStringList labels = same(9);
    const double width = std::ceil(widthOf(labels.first())) + 1;
    const auto shown = [&](double rowWidth) {
      QList<double> ticks;
      for (const PlacedLabel& place :
           placeLabels({.every = 4}, labels, metrics(), frameOf(9, 9 * rowWidth), 100'000))
        ticks << place.tickX;
      return ticks.size();
    };
    QCOMPARE(shown((width + 6) / 4), 3);
    QCOMPARE(shown((width + 5.9) / 4), 2);
    QCOMPARE(placeLabels({}, same(1), metrics(), frameOf(1, 100), 800).size(), 1);
    QVERIFY(placeLabels({}, {}, metrics(), frameOf(0, 100), 800).isEmpty());
  }

  void aLastLabelThatIsTooCloseToTheFirstIsLeftOut() {
    QCOMPARE(placeLabels({}, same(2), metrics(), frameOf(2, 20), 800).size(), 1);
  }

  void turnedLabelsMayStandALineApart() {
    LabelFit fit;
    fit.turned = true;
    const double apart = (metrics().height() + 2) / kDiagonal;
    QCOMPARE(placeLabels(fit, same(2), metrics(), frameOf(2, 2 * (apart + 0.1)), 10'000).size(), 2);
    QCOMPARE(placeLabels(fit, same(2), metrics(), frameOf(2, 2 * (apart - 0.1)), 10'000).size(), 1);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartAxisLabelsTest)
#include "chart_axis_labels_test.moc"
