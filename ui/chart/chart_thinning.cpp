#include "ui/chart/chart_thinning.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tarvik::ui {
namespace {

// The lowest and the highest row of the stretch from first to last, in their order; the first one alone
// when the stretch is all gap or has one value only.
void appendExtremes(QList<int>& rows, const QList<double>& values, int first, int last) {
  int lowest = first;
  int highest = first;
  for (int row = first; row <= last; ++row) {
    const double value = values[row - 1];
    if (!std::isfinite(value)) continue;
    if (!(values[lowest - 1] <= value)) lowest = row;
    if (!(values[highest - 1] >= value)) highest = row;
  }
  rows.append(std::min(lowest, highest));
  if (lowest != highest) rows.append(std::max(lowest, highest));
}

// Row 0 stands for none.
void insertRow(QList<int>& rows, int row) {
  const auto place = std::lower_bound(rows.begin(), rows.end(), row);
  if (row > 0 && (place == rows.end() || *place != row)) rows.insert(place, row);
}

}  // namespace

QList<int> rowsToDraw(const QList<double>& values, int most, int kept) {
  const int count = static_cast<int>(values.size());
  QList<int> rows;
  if (count <= most) {
    rows.resize(count);
    std::iota(rows.begin(), rows.end(), 1);
    return rows;
  }
  const int stretches = most / 2;
  for (int stretch = 0; stretch < stretches; ++stretch) {
    const auto end = [&](int index) { return static_cast<int>(qint64{index} * count / stretches); };
    appendExtremes(rows, values, end(stretch) + 1, end(stretch + 1));
  }
  for (const int wanted : {1, count, kept}) insertRow(rows, wanted);
  return rows;
}

int nearestDrawn(const QList<int>& drawnRows, int row) {
  if (drawnRows.isEmpty()) return 0;
  const auto after = std::lower_bound(drawnRows.begin(), drawnRows.end(), row);
  if (after == drawnRows.begin()) return *after;
  if (after == drawnRows.end()) return drawnRows.last();
  const int before = *(after - 1);
  return row - before < *after - row ? before : *after;
}

}  // namespace tarvik::ui
