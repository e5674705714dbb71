#include "ui/exchange/import_model.h"

#include <QFont>
#include <algorithm>
#include <set>
#include <utility>

#include "core/number_format.h"
#include "ui/base/text.h"
#include "ui/exchange/import_words.h"
#include "ui/lists/text_list_model.h"

namespace tarvik::ui {
namespace {

using exchange::PlannedEntry;
using exchange::UnreadRow;

enum Column {
  kDatum,
  kKmOra,
  kLiter,
  kKm,
  kTele,
  kFogyasztas,
  kKoltseg,
  kMegjegyzes,
  kEszrevetel,
  kSor,
  kColumns
};

struct Look {
  const char* header;
  const char* longest;
};

constexpr Look kLooks[kColumns] = {{"Dátum", "MM9999.99.99."},
                                   {"Km óra", "9999999"},
                                   {"liter", "999,99"},
                                   {"Km", "-99999"},
                                   {"Tele", "X"},
                                   {"l/100", "99,99"},
                                   {"Költség", "999 999 999"},
                                   {"Megjegyzés", "MMMMMMMMMMMM"},
                                   {"Észrevétel", ""},
                                   {"", ""}};  // the row's line, which is not shown

bool isFigure(int column) {
  return column == kKmOra || column == kLiter || column == kKm || column == kFogyasztas || column == kKoltseg;
}

Qt::Alignment alignmentOf(int column) {
  if (isFigure(column)) return Qt::AlignRight | Qt::AlignVCenter;
  return (column == kTele ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

QString costText(const core::NapiAdat& entry) {
  const std::int64_t cost =
      std::int64_t{entry.TankoltKtg} + std::int64_t{entry.AlkatreszKtg} + std::int64_t{entry.MegjKtg};
  return toQt(core::formatted(cost, "### ### ##0"));
}

QString figureText(core::Amount amount) {
  return amount.isZero() ? QString() : toQt(core::formatted(amount.ratio(), "##0.00"));
}

// What an entry says beside its figures: what was changed, its part, its note.
QString noteText(const core::NapiAdat& entry) {
  QStringList words;
  if (entry.Olajcsere == core::kFlagSet) words.append(QStringLiteral("olajcsere"));
  if (entry.Szurocsere == core::kFlagSet) words.append(QStringLiteral("szűrőcsere"));
  if (entry.Gyertyacsere == core::kFlagSet) words.append(QStringLiteral("gyertyacsere"));
  for (const core::FixedText<50>& text : {entry.Alkatresz, entry.Megjegyzes})
    if (!text.trimmed().empty()) words.append(toQt(std::string(text.trimmed())));
  return words.join(QStringLiteral(", "));
}

}  // namespace

ImportModel::ImportModel(QObject* parent) : QAbstractTableModel(parent) {}

QStringList ImportModel::longestTexts() {
  QStringList texts;
  for (int column = 0; column < kSor; ++column) texts.append(QString::fromUtf8(kLooks[column].longest));
  return texts;
}

void ImportModel::setPlan(exchange::ImportPlan plan, const exchange::PlanContext& context) {
  beginResetModel();
  plan_ = std::move(plan);
  logbook_ = &context.logbook;
  today_ = context.today;
  place_ = context.place;
  keepTicks();
  rows_.clear();
  for (int i = 0; i < static_cast<int>(plan_.entries.size()); ++i)
    rows_.push_back({.line = plan_.entries[static_cast<std::size_t>(i)].line, .entry = i});
  for (int i = 0; i < static_cast<int>(plan_.unread.size()); ++i)
    rows_.push_back({.line = plan_.unread[static_cast<std::size_t>(i)].line, .unread = i});
  std::ranges::stable_sort(rows_, {}, &Row::line);
  endResetModel();
  emit ticksChanged();
}

void ImportModel::setPlanAnew(exchange::ImportPlan plan, const exchange::PlanContext& context) {
  std::set<int> known;
  for (const PlannedEntry& planned : plan_.entries)
    if (planned.doubts.contains(exchange::Doubt::AlreadyThere)) known.insert(planned.line);
  for (const PlannedEntry& planned : plan.entries)
    if (planned.doubts.contains(exchange::Doubt::AlreadyThere) && !known.contains(planned.line))
      ticks_.erase(planned.line);
  setPlan(std::move(plan), context);
}

void ImportModel::settle() {
  exchange::settle(plan_, {.logbook = *logbook_, .today = today_, .place = place_});
}

void ImportModel::keepTicks() {
  if (ticks_.empty()) return;
  for (PlannedEntry& planned : plan_.entries)
    if (const auto own = ticks_.find(planned.line); own != ticks_.end()) planned.isTaken = own->second;
  settle();
}

void ImportModel::tickAll(bool isTaken) {
  for (PlannedEntry& planned : plan_.entries) {
    planned.isTaken = isTaken;
    ticks_[planned.line] = isTaken;
  }
  if (plan_.entries.empty()) return;
  settle();
  emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  emit ticksChanged();
}

int ImportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ImportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kColumns);
}

const PlannedEntry* ImportModel::entryOf(const QModelIndex& index) const {
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  return row.entry < 0 ? nullptr : &plan_.entries[static_cast<std::size_t>(row.entry)];
}

QString ImportModel::text(const PlannedEntry& planned, int column) const {
  const core::NapiAdat& entry = planned.entry;
  switch (column) {
    case kDatum:
      return toQt(core::shortDateOfStored(entry.Datum));
    case kKmOra:
      return toQt(std::to_string(entry.KmOra));
    case kLiter:
      return toQt(core::formatted(entry.TankoltLiter.ratio(), "##0.00"));
    case kKm:
      return toQt(std::to_string(planned.distance));
    case kTele:
      return entry.Teletank == core::kFlagSet ? QStringLiteral("X") : QString();
    case kFogyasztas:
      return figureText(entry.Fogyasztas);
    case kKoltseg:
      return costText(entry);
    case kMegjegyzes:
      return noteText(entry);
    case kEszrevetel:
      return wordsOf(planned.doubts);
    default:
      return toQt(std::to_string(planned.line));
  }
}

QString ImportModel::text(const UnreadRow& unread, int column) const {
  switch (column) {
    case kDatum:
      return toQt(unread.day);
    case kKmOra:
      return toQt(unread.odometer);
    case kLiter:
      return toQt(unread.volume);
    case kKoltseg:
      return toQt(unread.cost);
    case kMegjegyzes:
      return toQt(unread.text);
    case kEszrevetel:
      return QStringLiteral("kimarad: ") + wordsOf(unread);
    case kSor:
      return toQt(std::to_string(unread.line));
    default:
      return {};
  }
}

// What is left out is in italics, a figure to be looked at in the colour of what is overdue.
QVariant ImportModel::look(const QModelIndex& index, int role) const {
  const PlannedEntry* planned = entryOf(index);
  if (role == kOverdueRole)
    return planned != nullptr && index.column() != kDatum && isOdd(planned->doubts) ? QVariant(true)
                                                                                    : QVariant();
  if (planned != nullptr) return {};
  QFont font;
  font.setItalic(true);
  return font;
}

QVariant ImportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !checkIndex(index)) return {};
  const PlannedEntry* planned = entryOf(index);
  switch (role) {
    case Qt::DisplayRole: {
      const Row& row = rows_[static_cast<std::size_t>(index.row())];
      return planned != nullptr ? text(*planned, index.column())
                                : text(plan_.unread[static_cast<std::size_t>(row.unread)], index.column());
    }
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(alignmentOf(index.column()));
    case Qt::CheckStateRole:
      if (index.column() != kDatum || planned == nullptr) return {};
      return planned->isTaken ? Qt::Checked : Qt::Unchecked;
    case Qt::FontRole:
    case kOverdueRole:
      return look(index, role);
    default:
      return {};
  }
}

QVariant ImportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return QString::fromUtf8(kLooks[section].header);
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(alignmentOf(section));
  return {};
}

Qt::ItemFlags ImportModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
  if (!index.isValid() || index.column() != kDatum || entryOf(index) == nullptr) return usual;
  return usual | Qt::ItemIsUserCheckable;
}

bool ImportModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  if (row.entry < 0) return false;
  PlannedEntry& planned = plan_.entries[static_cast<std::size_t>(row.entry)];
  planned.isTaken = value.toInt() == Qt::Checked;
  ticks_[planned.line] = planned.isTaken;
  settle();
  emit dataChanged(this->index(0, 0), this->index(rowCount() - 1, columnCount() - 1));
  emit ticksChanged();
  return true;
}

}  // namespace tarvik::ui
