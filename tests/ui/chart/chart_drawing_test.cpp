#include <QImage>
#include <functional>

#include "tests/ui/chart_samples.h"
#include "tests/ui/screen_test.h"
#include "ui/chart/chart_content.h"
#include "ui/chart/chart_view.h"

using tarvik::ui::ChartType;
using tarvik::ui::ChartView;
using namespace tarvik::ui::samples;

namespace {

const QColor kSeries(0x2f, 0x7f, 0xcb);
const QColor kSelected(0xe8, 0x8a, 0x1a);
constexpr QSize kSize(690, 300);
constexpr int kTypes = 6;

QPalette lightPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}

QPalette darkPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(30, 30, 34));
  palette.setColor(QPalette::Text, QColor(230, 230, 230));
  return palette;
}

std::unique_ptr<ChartView> newChart(int type, const QStringList& labels, const QList<double>& values) {
  auto chart = std::make_unique<ChartView>();
  chart->setPalette(lightPalette());
  chart->resize(kSize);
  chart->setChartType(type);
  chart->setUnitText("Ft");
  chart->setPoints(labels, values);
  chart->show();
  return chart;
}

std::unique_ptr<ChartView> newChart(ChartType type, const QList<double>& values) {
  return newChart(static_cast<int>(type), monthLabels(static_cast<int>(values.size())), values);
}

QImage pictureOf(ChartView& chart) {
  return chart.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool isClose(const QColor& left, const QColor& right) {
  return std::abs(left.red() - right.red()) < 12 && std::abs(left.green() - right.green()) < 12 &&
         std::abs(left.blue() - right.blue()) < 12;
}

// The tint of a thing of the series: bluer than it is red, however light or dark.
int tint(const QColor& color) {
  return color.blue() - color.red();
}

int countIn(const QImage& picture, const QRect& box, const std::function<bool(const QColor&)>& isWanted) {
  int count = 0;
  for (int y = box.top(); y <= box.bottom(); ++y) {
    for (int x = box.left(); x <= box.right(); ++x) count += isWanted(picture.pixelColor(x, y)) ? 1 : 0;
  }
  return count;
}

QColor at(const QImage& picture, const QPointF& position) {
  return picture.pixelColor(position.toPoint());
}

}  // namespace

/// What is drawn is in the picture.
class ChartDrawingTest : public QObject {
  Q_OBJECT

 private slots:
  void selectedPointHasAColourOfItsOwn_data() { addTypes(); }
  void selectedPointHasAColourOfItsOwn() {
    QFETCH(int, type);
    const auto chart = newChart(type, monthLabels(5), waves(5));
    chart->selectRow(3);
    const QImage picture = pictureOf(*chart);
    QVERIFY(isClose(at(picture, chart->pointRect(3).center()), kSelected));
    QVERIFY(!isClose(at(picture, chart->pointRect(2).center()), kSelected));
  }

  // From its middle along the line: the disc, paper around it, the line.
  void aSelectedMarkerIsCutOutOfItsLine() {
    const auto chart = newChart(ChartType::Line2D, {10, 10, 10});
    chart->selectRow(2);
    const QImage picture = pictureOf(*chart);
    const QPoint middle = chart->pointRect(2).center().toPoint();
    const QRect right(middle, QSize(14, 1));
    QVERIFY(isClose(picture.pixelColor(right.topLeft()), kSelected));
    QVERIFY(countIn(picture, right, [](const QColor& color) { return color.lightness() > 200; }) > 0);
    QVERIFY(isClose(picture.pixelColor(right.topRight()), kSeries));
  }

  void typeLeavesNothingOfTheOneBefore_data() { addTypes(); }
  void typeLeavesNothingOfTheOneBefore() {
    QFETCH(int, type);
    const QList<double> values{3000, -1500, 0, std::nan(""), 4000, 3500};
    const auto fresh = newChart(type, monthLabels(6), values);
    for (int before = 0; before < kTypes; ++before) {
      const auto chart = newChart(before, monthLabels(6), values);
      pictureOf(*chart);
      chart->setChartType(type);
      QCOMPARE(pictureOf(*chart), pictureOf(*fresh));
    }
  }

  void pointsLeaveNothingOfTheOnesBefore_data() { addTypes(); }
  void pointsLeaveNothingOfTheOnesBefore() {
    QFETCH(int, type);
    const auto fresh = newChart(type, monthLabels(3), {3, 1, 2});
    const auto chart = newChart(type, dateLabels(78), waves(78));
    pictureOf(*chart);
    chart->setPoints(monthLabels(3), {3, 1, 2});
    QCOMPARE(pictureOf(*chart), pictureOf(*fresh));
  }

  void textsAndSizeLeaveNothingOfTheOnesBefore() {
    const auto chart = newChart(ChartType::Bars2D, {3, 1, 2});
    const QImage before = pictureOf(*chart);
    chart->setTitleText("Havi költség");
    const QImage titled = pictureOf(*chart);
    QVERIFY(titled != before);
    chart->setUnitText("km");
    QVERIFY(pictureOf(*chart) != titled);
    chart->setTitleText("");
    chart->setUnitText("Ft");
    QCOMPARE(pictureOf(*chart), before);
    chart->resize(400, 200);
    QCOMPARE(pictureOf(*chart).pixelColor(398, 100), Qt::white);
    const auto small = newChart(ChartType::Bars2D, {3, 1, 2});
    small->resize(400, 200);
    small->rowAtPosition({});
    QCOMPARE(pictureOf(*chart), pictureOf(*small));
  }

  void anInfiniteValueIsAGap_data() { addTypes(); }
  void anInfiniteValueIsAGap() {
    QFETCH(int, type);
    const auto chart = newChart(type, monthLabels(3), {3, HUGE_VAL, 2});
    QCOMPARE(pictureOf(*chart), pictureOf(*newChart(type, monthLabels(3), {3, std::nan(""), 2})));
    QCOMPARE(chart->rowValues(), QStringList({"3", "", "2"}));
  }

  void paletteLeavesNothingOfTheOneBefore_data() { addTypes(); }
  void paletteLeavesNothingOfTheOneBefore() {
    QFETCH(int, type);
    const auto chart = newChart(type, monthLabels(9), waves(9));
    const QImage light = pictureOf(*chart);
    chart->setPalette(darkPalette());
    const QImage dark = pictureOf(*chart);
    QCOMPARE(dark.pixelColor(2, 2), QColor(30, 30, 34));
    QCOMPARE(countIn(dark, dark.rect(), [](const QColor& color) { return color == kSeries; }), 0);
    chart->setPalette(lightPalette());
    QCOMPARE(pictureOf(*chart), light);
  }

  void longSeriesIsDrawnInItsPlace_data() { addTypes(); }
  void longSeriesIsDrawnInItsPlace() {
    QFETCH(int, type);
    QList<double> values(2000, 5.0);
    for (int row = 1001; row <= 2000; ++row) values[row - 1] = row % 2 == 0 ? 6 : 4;  // rows that all count
    values[499] = 20;
    values[1499] = 20;
    const auto chart = newChart(type, dateLabels(2000), values);
    const double first = chart->pointRect(1).center().x();
    const double last = chart->pointRect(2000).center().x();
    QVERIFY(last - first > 500);
    const QImage picture = pictureOf(*chart);
    for (const int row : {500, 1500}) {
      const QPointF top = {chart->pointRect(row).center().x(), chart->pointRect(row).top()};
      QVERIFY(std::abs(top.x() - (first + (last - first) * (row - 1) / 1999)) < 1.5);
      const QRect spike(static_cast<int>(top.x()) - 3, static_cast<int>(top.y()), 7, 40);
      QVERIFY(countIn(picture, spike, [](const QColor& color) { return tint(color) > 40; }) >= 20);
      const QRect beside = spike.translated(-30, 0);
      QCOMPARE(countIn(picture, beside, [](const QColor& color) { return tint(color) > 40; }), 0);
    }
  }

  void longSeriesOfBarsIsSeen() {
    const auto chart = newChart(ChartType::Bars2D, QList<double>(5000, 7.0));
    const QImage picture = pictureOf(*chart);
    const QRectF left = chart->pointRect(1);
    const QRectF right = chart->pointRect(5000);
    const QRect all = left.united(right).toAlignedRect().adjusted(4, 4, -4, -4);
    const int seen = countIn(picture, all, [](const QColor& color) { return tint(color) > 40; });
    QVERIFY(seen > all.width() * all.height() / 2);
  }
};

TARVIK_SCREEN_TEST(ChartDrawingTest)
#include "chart_drawing_test.moc"
