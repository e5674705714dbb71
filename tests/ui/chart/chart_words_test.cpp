#include "ui/chart/chart_words.h"

#include <QTest>
#include <cmath>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

ChartContent content(const QString& unit, const QStringList& labels, const QList<double>& values) {
  ChartContent content;
  content.unit = unit;
  content.labels = labels;
  content.values = values;
  return content;
}

}  // namespace

class ChartWordsTest : public QObject {
  Q_OBJECT

 private slots:
  void tellsAPointWithItsUnit() {
    const ChartContent prices = content("Ft/liter", {"2013.07.05.", "2013.07.14."}, {425.9, NAN});
    QCOMPARE(pointInWords(prices, 1), "2013.07.05.: 425,9 Ft/liter");
    QCOMPARE(pointInWords(prices, 2), "2013.07.14.: nincs adat");
    QCOMPARE(pointInWords(prices, 0), "");
    QCOMPARE(pointInWords(prices, 3), "");
  }

  void tellsAPointWithoutUnit() { QCOMPARE(pointInWords(content("", {"1"}, {0}), 1), "1: 0"); }

  void tellsWhatTheChartShows() {
    const QStringList labels{"2013. 5. hó", "2013. 6. hó", "2013. 7. hó", "2013. 8. hó"};
    QCOMPARE(chartInWords(content("Ft", labels, {20'500, 18'250.5, 31'000, 24'000})),
             "Mértékegység: Ft. 4 pont. Legkisebb érték: 18\u00a0250,5 (2013. 6. hó). "
             "Legnagyobb érték: 31\u00a0000 (2013. 7. hó). Utolsó érték: 24\u00a0000 (2013. 8. hó).");
  }

  void leavesGapsOut() {
    QCOMPARE(chartInWords(content("", {"a", "b", "c", "d"}, {NAN, 2, 1, NAN})),
             "2 pont. Legkisebb érték: 1 (c). Legnagyobb érték: 2 (b). Utolsó érték: 1 (c).");
  }

  void namesTheFirstOfTheSmallestAndTheLastOfTheLargest() {
    QCOMPARE(chartInWords(content("", {"a", "b", "c", "d", "e"}, {2, 1, 1, 2, 1.5})),
             "5 pont. Legkisebb érték: 1 (b). Legnagyobb érték: 2 (d). Utolsó érték: 1,5 (e).");
  }

  void saysThatThereAreNoData() {
    QCOMPARE(chartInWords(content("Ft", {}, {})), "Nincs adat.");
    QCOMPARE(chartInWords(content("Ft", {"a"}, {NAN})), "Nincs adat.");
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartWordsTest)
#include "chart_words_test.moc"
