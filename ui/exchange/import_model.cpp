#include "ui/exchange/import_model.h"

#include <QFont>
#include <algorithm>
#include <numeric>
#include <set>
#include <utility>
#include <vector>

#include "core/number_format.h"
#include "ui/base/text.h"
#include "ui/exchange/import_words.h"

namespace tarvik::ui {
namespace {

enum Column { kTele = core::kRecColumn, kKoltseg, kEszrevetel, kSor, kColumns };

struct Look {
  const char* header;
  const char* longest;
};

constexpr Look kLooks[kColumns] = {{"Dátum", "MM9999.99.99."},
                                   {"Km óra", "9999999"},
                                   {"liter", "999,99"},
                                   {"Km", "-99999"},
                                   {"Olaj", "X"},
                                   {"Szürő", "X"},
                                   {"Gyertya", "X"},
                                   {"Alkatrész", "MMMMMMMMMM"},
                                   {"Megjegyzés", ""},
                                   {"Tele", "X"},
                                   {"Költség", "999 999 999"},
                                   {"Észrevétel", ""},
                                   {"Sor", "999999"}};

bool isFigure(int column) {
  return column == core::kKmOraColumn || column == core::kLiterColumn || column == core::kKmColumn ||
         column == kKoltseg;
}

bool isMark(int column) {
  return column == kTele || (column >= core::kOlajColumn && column <= core::kGyertyaColumn);
}

Qt::Alignment alignmentOf(int column) {
  if (isFigure(column)) return Qt::AlignRight | Qt::AlignVCenter;
  return (isMark(column) ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

QString costText(const core::NapiAdat& entry) {
  const std::int64_t cost =
      std::int64_t{entry.TankoltKtg} + std::int64_t{entry.AlkatreszKtg} + std::int64_t{entry.MegjKtg};
  return toQt(core::formatted(cost, "### ### ##0"));
}

core::Listing listingOf(const exchange::ImportPlan& plan) {
  std::vector<core::NapiAdat> entries;
  for (const exchange::PlannedEntry& planned : plan.entries) entries.push_back(planned.entry);
  core::Listing listing{core::Logbook::of(entries), std::vector<std::uint16_t>(entries.size())};
  std::iota(listing.numbers.begin(), listing.numbers.end(), std::uint16_t{1});
  return listing;
}

bool isPart(int column) {
  return column >= core::kOlajColumn && column <= core::kAlkatreszColumn;
}

}  // namespace

ImportModel::ImportModel(bool hasParts, QObject* parent) : QAbstractTableModel(parent) {
  for (int column = 0; column < kColumns; ++column)
    if (hasParts || !isPart(column)) columns_.push_back(column);
}

QStringList ImportModel::longestTexts() const {
  QStringList texts;
  for (const int column : columns_)
    if (column != kSor) texts.append(QString::fromUtf8(kLooks[column].longest));
  return texts;
}

void ImportModel::setPlan(exchange::ImportPlan plan, const core::Logbook& logbook) {
  beginResetModel();
  plan_ = std::move(plan);
  logbook_ = &logbook;
  keepTicks();
  listing_ = listingOf(plan_);
  endResetModel();
  emit ticksChanged();
}

void ImportModel::setPlanAnew(exchange::ImportPlan plan, const core::Logbook& logbook) {
  std::set<int> known;
  for (const exchange::PlannedEntry& planned : plan_.entries)
    if (planned.doubts.contains(exchange::Doubt::AlreadyThere)) known.insert(planned.line);
  for (const exchange::PlannedEntry& planned : plan.entries)
    if (planned.doubts.contains(exchange::Doubt::AlreadyThere) && !known.contains(planned.line))
      ticks_.erase(planned.line);
  setPlan(std::move(plan), logbook);
}

void ImportModel::keepTicks() {
  if (ticks_.empty()) return;
  for (exchange::PlannedEntry& planned : plan_.entries)
    if (const auto own = ticks_.find(planned.line); own != ticks_.end()) planned.isTaken = own->second;
  exchange::settle(plan_, *logbook_);
}

int ImportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(plan_.entries.size());
}

int ImportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString ImportModel::text(const exchange::PlannedEntry& planned, int row, int column) const {
  switch (column) {
    case kTele:
      return planned.entry.Teletank == core::kFlagSet ? QStringLiteral("X") : QString();
    case kKoltseg:
      return costText(planned.entry);
    case kEszrevetel:
      return wordsOf(planned.doubts);
    case kSor:
      return toQt(std::to_string(planned.line));
    default:
      return toQt(listing_.cell(row, column));
  }
}

QVariant ImportModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const auto& planned = plan_.entries[static_cast<std::size_t>(index.row())];
  const int column = columns_[static_cast<std::size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
      return text(planned, index.row(), column);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(alignmentOf(column));
    case Qt::CheckStateRole:
      if (column != core::kDatumColumn) return {};
      return planned.isTaken ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

QVariant ImportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const int column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return QString::fromUtf8(kLooks[column].header);
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(alignmentOf(column));
  return {};
}

Qt::ItemFlags ImportModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
  return index.column() == core::kDatumColumn ? usual | Qt::ItemIsUserCheckable : usual;
}

bool ImportModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  exchange::PlannedEntry& planned = plan_.entries[static_cast<std::size_t>(index.row())];
  planned.isTaken = value.toInt() == Qt::Checked;
  ticks_[planned.line] = planned.isTaken;
  exchange::settle(plan_, *logbook_);
  emit dataChanged(this->index(0, 0), this->index(rowCount() - 1, columnCount() - 1));
  emit ticksChanged();
  return true;
}

}  // namespace tarvik::ui
