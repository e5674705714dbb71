#include "ui/chart/chart_words.h"

#include <algorithm>
#include <cmath>

#include "ui/chart/chart_scale.h"

namespace tarvik::ui {
namespace {

QList<int> rowsWithPoint(const ChartContent& content) {
  QList<int> rows;
  for (int row = 1; row <= content.values.size(); ++row) {
    if (std::isfinite(content.values[row - 1])) rows.append(row);
  }
  return rows;
}

QString valueWithLabel(const ChartContent& content, int row) {
  return QStringLiteral("%1 (%2)").arg(shortNumberText(content.values[row - 1]), content.labels[row - 1]);
}

}  // namespace

QString pointInWords(const ChartContent& content, int row) {
  if (row < 1 || row > content.values.size()) return {};
  const double value = content.values[row - 1];
  const QString label = content.labels[row - 1] + ": ";
  if (!std::isfinite(value)) return label + "nincs adat";
  return (label + shortNumberText(value) + ' ' + content.unit).trimmed();
}

QString chartInWords(const ChartContent& content) {
  const QList<int> rows = rowsWithPoint(content);
  if (rows.isEmpty()) return QStringLiteral("Nincs adat.");
  const auto [smallest, largest] = std::minmax_element(rows.begin(), rows.end(), [&](int left, int right) {
    return content.values[left - 1] < content.values[right - 1];
  });
  const QString unit =
      content.unit.isEmpty() ? QString() : QStringLiteral("Mértékegység: %1. ").arg(content.unit);
  return unit + QStringLiteral("%1 pont. Legkisebb érték: %2. Legnagyobb érték: %3. Utolsó érték: %4.")
                    .arg(QString::number(rows.size()), valueWithLabel(content, *smallest),
                         valueWithLabel(content, *largest), valueWithLabel(content, rows.last()));
}

}  // namespace tarvik::ui
