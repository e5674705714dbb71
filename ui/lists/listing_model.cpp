#include "ui/lists/listing_model.h"

#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

constexpr const char* kHeaders[core::kListColumns] = {"Dátum", "Km óra",  "liter",     "Km",         "Olaj",
                                                      "Szürő", "Gyertya", "Alkatrész", "Megjegyzés", "rec"};

Qt::Alignment alignmentOf(int column) {
  switch (column) {
    case core::kKmOraColumn:
    case core::kLiterColumn:
    case core::kKmColumn:
      return Qt::AlignRight | Qt::AlignVCenter;
    case core::kOlajColumn:
    case core::kSzuroColumn:
    case core::kGyertyaColumn:
      return Qt::AlignCenter;
    default:
      return Qt::AlignLeft | Qt::AlignVCenter;
  }
}

}  // namespace

ListingModel::ListingModel(const core::Listing& listing, QObject* parent)
    : QAbstractTableModel(parent), listing_(listing) {}

void ListingModel::refill(const std::function<void()>& fill) {
  beginResetModel();
  fill();
  endResetModel();
}

QStringList ListingModel::longestTexts() {
  return {"9999.99.99.", "9999999", "999,99", "-9999", "X", "X", "X", "", ""};
}

int ListingModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : listing_.rows();
}

int ListingModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : core::kListColumns;
}

QVariant ListingModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !checkIndex(index)) return {};
  if (role == Qt::DisplayRole) return toQt(listing_.cell(index.row(), index.column()));
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(alignmentOf(index.column()));
  return {};
}

QVariant ListingModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= core::kListColumns) return {};
  if (role == Qt::DisplayRole) return QString::fromUtf8(kHeaders[section]);
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(alignmentOf(section));
  return {};
}

}  // namespace tarvik::ui
