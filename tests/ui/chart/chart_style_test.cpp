#include "ui/chart/chart_style.h"

#include <QTest>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

ChartStyle styleOn(const QColor& paper, const QColor& ink, const QFont& font = {}) {
  QPalette palette;
  palette.setColor(QPalette::Base, paper);
  palette.setColor(QPalette::Text, ink);
  return chartStyle(palette, font);
}

// A grey of that many of 255 parts of light; half a part off is the same.
bool isGrey(const QColor& color, double light) {
  const auto isNear = [light](int part) { return std::abs(part - light) <= 0.51; };
  return isNear(color.red()) && isNear(color.green()) && isNear(color.blue());
}

bool isColor(const QColor& color, double red, double green, double blue) {
  return std::abs(color.red() - red) <= 0.51 && std::abs(color.green() - green) <= 0.51 &&
         std::abs(color.blue() - blue) <= 0.51;
}

}  // namespace

class ChartStyleTest : public QObject {
  Q_OBJECT

 private slots:
  void greysLieBetweenThePaperAndTheInk() {
    const ChartStyle light = styleOn(Qt::white, Qt::black);
    QCOMPARE(light.background, QColor(Qt::white));
    QCOMPARE(light.text, QColor(Qt::black));
    QVERIFY(isGrey(light.quietText, 255 * 0.28));
    QVERIFY(isGrey(light.grid, 255 * 0.87));
    QVERIFY(isGrey(light.axis, 255 * 0.58));
    QVERIFY(isGrey(light.backWall, 255 * 0.965));
    QVERIFY(isGrey(light.sideWall, 255 * 0.925));
    QVERIFY(isGrey(light.floor, 255 * 0.89));
    const ChartStyle dark = styleOn(Qt::black, Qt::white);
    QVERIFY(isGrey(dark.quietText, 255 * 0.72));
    QVERIFY(isGrey(dark.floor, 255 * 0.11));
  }

  void aDarkPaperHasLighterColours() {
    const ChartStyle light = styleOn(Qt::white, Qt::black);
    QCOMPARE(light.series, QColor(47, 127, 203));
    QCOMPARE(light.selected, QColor(232, 138, 26));
    QVERIFY(isColor(light.hovered, 47 + 208 * 0.28, 127 + 128 * 0.28, 203 + 52 * 0.28));  // towards the paper
    const ChartStyle dark = styleOn(QColor(30, 30, 34), QColor(230, 230, 230));
    QCOMPARE(dark.series, QColor(79, 157, 230));
    QCOMPARE(dark.selected, QColor(255, 184, 77));
    QVERIFY(isColor(dark.hovered, 79 + 176 * 0.28, 157 + 98 * 0.28, 230 + 25 * 0.28));  // towards white
    QCOMPARE(styleOn(Qt::gray, Qt::gray).series, light.series);
  }

  void theTitleIsAFifthLargerAndHalfBold() {
    QFont font;
    font.setPointSizeF(10);
    const ChartStyle style = styleOn(Qt::white, Qt::black, font);
    QCOMPARE(style.labelFont, font);
    QCOMPARE(style.titleFont.pointSizeF(), 12.0);
    QCOMPARE(style.titleFont.weight(), QFont::DemiBold);
    font.setPixelSize(20);
    QCOMPARE(styleOn(Qt::white, Qt::black, font).titleFont.pixelSize(), 20);
  }

  void aSolidIsLitFromAboveAndDarkOnItsRight() {
    const QColor base(100, 150, 200);
    QCOMPARE(shaded(base, FaceSide::Front), base);
    QCOMPARE(shaded(base, FaceSide::Marker), base);
    QVERIFY(isColor(shaded(base, FaceSide::Top), 100 + 155 * 0.36, 150 + 105 * 0.36, 200 + 55 * 0.36));
    QVERIFY(isColor(shaded(base, FaceSide::Right), 68, 102, 136));
    QVERIFY(isColor(shaded(base, FaceSide::Under), 74, 111, 148));
    QVERIFY(isColor(shaded(base, FaceSide::Edge), 82, 123, 164));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartStyleTest)
#include "chart_style_test.moc"
