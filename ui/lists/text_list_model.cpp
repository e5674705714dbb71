#include "ui/lists/text_list_model.h"

#include <QCollator>
#include <QFont>
#include <QLocale>
#include <algorithm>

namespace tarvik::ui {

TextListModel::TextListModel(QStringList headers, QObject* parent)
    : QAbstractTableModel(parent), headers_(std::move(headers)) {}

void TextListModel::setRows(std::vector<TextRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  arrange();
  endResetModel();
}

QString TextListModel::record(int row) const {
  if (row < 0 || row >= rowCount()) return {};
  return rows_[static_cast<std::size_t>(row)].record;
}

int TextListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TextListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : recordColumn() + 1;
}

QString TextListModel::cell(const TextRow& row, int column) const {
  return column == recordColumn() ? row.record : row.cells.value(column);
}

QVariant TextListModel::alignment(int column) const {
  const bool isFigure = figureColumns_.contains(column);
  return QVariant::fromValue((isFigure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

QVariant TextListModel::data(const QModelIndex& index, int role) const {
  // Ctrl+C asks for what the keyboard is on, which may be no row.
  if (!index.isValid() || !checkIndex(index)) return {};
  const TextRow& row = rows_[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return cell(row, index.column());
  if (role == kCopiedRole && figureColumns_.contains(index.column()))
    return cell(row, index.column()).remove(QLatin1Char(' '));
  if (role == Qt::TextAlignmentRole) return alignment(index.column());
  if (role == kOverdueRole && row.overdue) return *row.overdue;
  if (role == Qt::AccessibleDescriptionRole && row.overdue.value_or(false)) return QStringLiteral("lejárt");
  if (role == Qt::AccessibleDescriptionRole && row.marked.value_or(false)) return markWords_;
  if (role == Qt::CheckStateRole && row.marked && index.column() == 0)
    return *row.marked ? Qt::Checked : Qt::Unchecked;
  const bool isBold = row.isSum || row.marked.value_or(false) || row.overdue.value_or(false);
  if (role != Qt::FontRole || !isBold) return {};
  QFont bold;
  bold.setBold(true);
  return bold;
}

QVariant TextListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) return alignment(section);
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return headers_.value(section);
}

void TextListModel::sort(int column, Qt::SortOrder) {
  if (column < 0) return;
  emit layoutAboutToBeChanged();
  const QModelIndexList before = persistentIndexList();
  QList<TextRow> pointed;
  for (const QModelIndex& index : before) pointed.append(rows_[static_cast<std::size_t>(index.row())]);
  sortColumn_ = column;
  arrange();
  QModelIndexList after;
  for (qsizetype i = 0; i < before.size(); ++i) {
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [&](const TextRow& row) { return row.record == pointed[i].record; });
    after.append(index(static_cast<int>(found - rows_.begin()), before[i].column()));
  }
  changePersistentIndexList(before, after);
  emit layoutChanged();
}

void TextListModel::arrange() {
  if (sortColumn_ < 0) return;
  QCollator order(QLocale(QLocale::Hungarian, QLocale::Hungary));
  order.setCaseSensitivity(Qt::CaseInsensitive);
  std::stable_sort(rows_.begin(), rows_.end(), [&](const TextRow& a, const TextRow& b) {
    return order.compare(cell(a, sortColumn_), cell(b, sortColumn_)) < 0;
  });
}

}  // namespace tarvik::ui
