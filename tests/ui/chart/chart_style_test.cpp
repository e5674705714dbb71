#include "ui/chart/chart_style.h"

#include <QTest>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

ChartStyle styleOn(const QColor& paper, const QColor& ink) {
  QPalette palette;
  palette.setColor(QPalette::Base, paper);
  palette.setColor(QPalette::Text, ink);
  return chartStyle(palette, {});
}

// Half a part off is the same.
bool isColor(const QColor& color, double red, double green, double blue) {
  return std::abs(color.red() - red) <= 0.51 && std::abs(color.green() - green) <= 0.51 &&
         std::abs(color.blue() - blue) <= 0.51;
}

}  // namespace

class ChartStyleTest : public QObject {
  Q_OBJECT

 private slots:
  void aPointUnderThePointerOrChosenHasAColourOfItsOwn() {
    const ChartStyle light = styleOn(Qt::white, Qt::black);
    QCOMPARE(light.selected, QColor(232, 138, 26));
    QVERIFY(isColor(light.hovered, 47 + 208 * 0.28, 127 + 128 * 0.28, 203 + 52 * 0.28));  // towards the paper
    const ChartStyle dark = styleOn(QColor(30, 30, 34), QColor(230, 230, 230));
    QCOMPARE(dark.selected, QColor(255, 184, 77));
    QVERIFY(isColor(dark.hovered, 79 + 176 * 0.28, 157 + 98 * 0.28, 230 + 25 * 0.28));  // towards white
    QCOMPARE(styleOn(Qt::gray, Qt::gray).selected, light.selected);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartStyleTest)
#include "chart_style_test.moc"
