#include "tests/looks/chart_sheet.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPixmap>
#include <QToolTip>
#include <QWidget>

#include "tests/ui/chart_samples.h"

namespace tarvik::looks {
namespace {

using namespace ui::samples;

constexpr int kWidth = 400;
constexpr int kTypes = 6;

// A series, and how it is shown.
struct Shown {
  int height;
  QString title;
  QString unit;
  QStringList labels;
  QList<double> values;
  int selected = 0;
  int hovered = 0;
};

// None of the colours and letters that a chart would have without its style.
QPalette paperPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(0xff, 0xf8, 0xe4));
  palette.setColor(QPalette::Text, QColor(0x30, 0x10, 0x50));
  return palette;
}

QStringList longLabels(int count) {
  QStringList labels;
  for (int number = 1; number <= count; ++number)
    labels << QStringLiteral("a család harmadik gépkocsija, %1. rész").arg(number);
  return labels;
}

QList<double> withGaps(QList<double> values, int every) {
  for (qsizetype index = every - 1; index < values.size(); index += every) values[index] = qQNaN();
  return values;
}

QList<Shown> series() {
  const QString costs = QStringLiteral("Havi tankolási költség");
  const QString cut =
      QStringLiteral("Az átlagfogyasztás alakulása a gépkocsi megvásárlása óta, tankolásonként");
  return {
      {410, costs, QStringLiteral("Ft"), monthLabels(11), waves(11), 5, 3},
      {220,
       costs,
       QStringLiteral("Ft"),
       monthLabels(8),
       {3000, -1500, 0, qQNaN(), 4000, 3500, -700, -2500},
       7,
       5},
      {190, cut, QStringLiteral("liter / 100 km"), longLabels(1), {7.63}},
      {190, costs, QString(), {}, {}},
      {190, costs, QStringLiteral("km"), longLabels(3), {-0.0065, -0.0095, -0.007}, 0, 2},
      {190, costs, QStringLiteral("Ft"), dateLabels(30), withGaps(waves(30), 7), 0, 17},
      {190, costs, QStringLiteral("Ft"), dateLabels(3000), waves(3000), 1501},
  };
}

void hover(ui::ChartView& chart, int row) {
  const QPointF place = chart.pointRect(row).center();
  QMouseEvent move(QEvent::MouseMove, place, chart.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(&chart, &move);
  QToolTip::hideText();
}

void addChart(QWidget& sheet, const QPoint& corner, int type, const Shown& shown) {
  auto* const chart = new ui::ChartView(&sheet);
  chart->setGeometry({corner, QSize(kWidth, shown.height)});
  chart->setTitleText(shown.title);
  chart->setUnitText(shown.unit);
  chart->setChartType(type);
  chart->setPoints(shown.labels, shown.values);
  chart->selectRow(shown.selected);
  if (shown.hovered > 0) hover(*chart, shown.hovered);
}

}  // namespace

void photographChartSheet(Camera& camera) {
  QWidget sheet;
  sheet.setPalette(paperPalette());
  sheet.setFont(QFont(QApplication::font().family(), 10));
  int top = 0;
  for (const Shown& shown : series()) {
    for (int type = 0; type < kTypes; ++type) addChart(sheet, {type * kWidth, top}, type, shown);
    top += shown.height;
  }
  sheet.resize(kTypes * kWidth, top);
  sheet.show();
  camera.keep(sheet.grab().toImage(), QStringLiteral("sheet"));
}

}  // namespace tarvik::looks
