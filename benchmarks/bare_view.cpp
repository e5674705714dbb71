#include "benchmarks/bare_view.h"

#include <QHeaderView>

#include "benchmarks/desk.h"

namespace tarvik::bench {
namespace {

constexpr int kColumns = 9;

QString cellOf(const BareEntry& entry, int column) {
  switch (column) {
    case 0:
      return QStringLiteral("2013.07.05.");
    case 1:
      return QString::number(entry.kmOra);
    case 2:
      return QString::number(entry.tankoltLiter);
    case 3:
      return QString::number(entry.tankoltKtg);
    case 7:
      return QString::fromLatin1(entry.alkatresz, sizeof entry.alkatresz).trimmed();
    case 8:
      return QString::fromLatin1(entry.megjegyzes, sizeof entry.megjegyzes).trimmed();
    default:
      return {};
  }
}

}  // namespace

void BareModel::setEntries(std::vector<BareEntry> entries) {
  beginResetModel();
  entries_ = std::move(entries);
  endResetModel();
}

int BareModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int BareModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant BareModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole) return {};
  return cellOf(entries_[static_cast<std::size_t>(index.row())], index.column());
}

BareView::BareView(const QTreeView& like) {
  view_.setRootIsDecorated(false);
  view_.setUniformRowHeights(true);
  view_.setAlternatingRowColors(true);
  view_.setModel(&model_);
  for (int column = 0; column < kColumns; ++column)
    view_.header()->resizeSection(column, like.header()->sectionSize(column));
  view_.resize(like.size());
  view_.show();
  untilPainted(view_.viewport());
}

void BareView::show(const std::string& path) {
  const BareFile file(path);
  std::vector<BareEntry> entries;
  entries.reserve(file.size / kBareEntryBytes);
  for (std::size_t offset = 0; offset + kBareEntryBytes <= file.size; offset += kBareEntryBytes)
    entries.push_back(decodedBarely(file.bytes + offset));
  model_.setEntries(std::move(entries));
  untilPainted(view_.viewport());
}

}  // namespace tarvik::bench
