#include "ui/chart/chart_scale.h"

#include <QTest>
#include <cmath>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {

class ChartScaleTest : public QObject {
  Q_OBJECT

 private slots:
  void endsALittleAboveTheLargestValue() {
    const ValueScale scale = valueScale({2000, 9000}, Baseline::Zero, 5);
    QCOMPARE(scale.lower, 0.0);
    QCOMPARE(scale.upper, 9450.0);
    QCOMPARE(scale.ticks(), QList<double>({0, 2000, 4000, 6000, 8000}));
  }

  void endsOnTheNextStepWhenThatIsNear() {
    const ValueScale scale = valueScale({4700}, Baseline::Zero, 5);
    QCOMPARE(scale.upper, 5000.0);
    QCOMPARE(scale.ticks(), QList<double>({0, 1000, 2000, 3000, 4000, 5000}));
  }

  void keepsTheMarkerOfAValueOnAStepInside() {
    QCOMPARE(valueScale({5000}, Baseline::Zero, 5).upper, 5250.0);
    QCOMPARE(valueScale({-3, 97}, Baseline::Zero, 5).upper, 100.0);   // three hundredths of the span
    QCOMPARE(valueScale({-10, 90}, Baseline::Zero, 5).upper, 100.0);  // a tenth
  }

  void runsFromZeroToOneWithoutAnyValue() {
    for (const Baseline baseline : {Baseline::Zero, Baseline::Free}) {
      for (const QList<double>& values : {QList<double>(), QList<double>({NAN, NAN})}) {
        const ValueScale scale = valueScale(values, baseline, 5);
        QCOMPARE(scale.lower, 0.0);
        QCOMPARE(scale.upper, 1.05);
        QCOMPARE(scale.decimals, 1);
        QCOMPARE(scale.ticks(), QList<double>({0.0, 0.2, 0.4, 3 * 0.2, 4 * 0.2, 1.0}));
      }
    }
  }

  void wastesLessThanThreeTwentiethsOfTheLargestValue() {
    for (int steps = 0; steps <= 12; ++steps) {
      for (double largest = 0.0001; largest < 1e9; largest *= 1.37) {
        const ValueScale scale = valueScale({largest / 3, largest}, Baseline::Zero, steps);
        QVERIFY(scale.upper < 1.15 * largest);
        QVERIFY(scale.upper > 1.02 * largest);
        QCOMPARE(scale.lower, 0.0);
        QVERIFY(scale.ticks().size() >= 3);
      }
    }
  }

  void wastesAsLittleBelowTheSmallestOfALine() {
    for (double smallest = 100; smallest < 300; smallest += 7) {
      const double span = 300.5 - smallest;
      const ValueScale scale = valueScale({300.5, smallest}, Baseline::Free, 5);
      QVERIFY(smallest < 120.2 ? scale.lower == 0 : scale.lower < smallest);
      QVERIFY(smallest < 120.2 || scale.lower > smallest - 0.15 * span);
      QVERIFY(scale.ticks().first() >= scale.lower && scale.ticks().last() <= scale.upper);
    }
  }

  void reachesBelowZeroForNegativeValues() {
    const ValueScale scale = valueScale({-800, 500}, Baseline::Zero, 5);
    QCOMPARE(scale.lower, -865.0);
    QCOMPARE(scale.upper, 565.0);
    QCOMPARE(scale.ticks(), QList<double>({-500, 0, 500}));
  }

  void endsAtZeroForNegativeValuesAlone() {
    const ValueScale scale = valueScale({-470}, Baseline::Zero, 5);
    QCOMPARE(scale.lower, -500.0);
    QCOMPARE(scale.upper, 0.0);
  }

  void leavesZeroOutUnderALineFarFromIt() {
    const ValueScale scale = valueScale({380, 420}, Baseline::Free, 5);
    QCOMPARE(scale.lower, 378.0);
    QCOMPARE(scale.upper, 422.0);
    QCOMPARE(scale.ticks(), QList<double>({380, 390, 400, 410, 420}));
    QCOMPARE(valueScale({100, 420}, Baseline::Free, 5).lower, 0.0);
    QCOMPARE(valueScale({4, 10}, Baseline::Free, 5).lower, 0.0);
    QCOMPARE(valueScale({-10, -4}, Baseline::Free, 5).upper, 0.0);
    QVERIFY(valueScale({-10, -4.1}, Baseline::Free, 5).upper < 0);
    QCOMPARE(valueScale({420, 420}, Baseline::Free, 5).lower, 0.0);
  }

  void givesItsNumbersTheDecimalsOfItsStep() {
    QCOMPARE(valueScale({9.4}, Baseline::Zero, 4).decimals, 1);  // steps of 2,5
    QCOMPARE(valueScale({0.8}, Baseline::Zero, 4).decimals, 1);
    QCOMPARE(valueScale({90000}, Baseline::Zero, 4).decimals, 0);
    QCOMPARE(decimalText(-0.004, 2), "0,00");
    QCOMPARE(decimalText(-0.006, 2), "-0,01");
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartScaleTest)
#include "chart_scale_test.moc"
