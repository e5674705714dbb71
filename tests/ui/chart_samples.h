#pragma once

#include <QDate>
#include <QList>
#include <QStringList>
#include <QTest>
#include <cmath>

#include "ui/chart/chart_content.h"
#include "ui/chart/chart_view.h"

/// Labels and values with which the charts are tested.
namespace tarvik::ui::samples {

/// The rows of a test of each type of chart, in the column "type".
inline void addTypes() {
  QTest::addColumn<int>("type");
  int type = 0;
  for (const char* name : {"3D bar", "2D bar", "3D line", "2D line", "3D area", "2D area"})
    QTest::newRow(name) << type++;
}

/// The labels of so many months from January 2007 on.
inline QStringList monthLabels(int count) {
  QStringList labels;
  for (int month = 0; month < count; ++month) {
    labels.append(QStringLiteral("%1. %2. hó").arg(2007 + month / 12).arg(month % 12 + 1));
  }
  return labels;
}

/// The labels of so many days, nine days apart.
inline QStringList dateLabels(int count) {
  QStringList labels;
  for (int day = 0; day < count; ++day) {
    labels.append(QDate(2013, 7, 5).addDays(day * 9).toString(QStringLiteral("yyyy.MM.dd.")));
  }
  return labels;
}

/// Values between 2,000 and 9,000 that go up and down.
inline QList<double> waves(int count) {
  QList<double> values;
  for (int index = 0; index < count; ++index) values.append(5500 + 3500 * std::sin(index * 0.8));
  return values;
}

/// A chart of 690 by 300 pixels on the screen.
class ShownChart : public ChartView {
 public:
  ShownChart() {
    resize(690, 300);
    show();
  }
  void plot(ChartType type, const QStringList& labels, const QList<double>& values) {
    setChartType(static_cast<int>(type));
    setPoints(labels, values);
  }
};

}  // namespace tarvik::ui::samples
