#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <map>
#include <vector>

#include "core/listing.h"
#include "exchange/import_plan.h"

namespace tarvik::ui {

/// The entries of an import as the logbook list would show them, with a tick each, whether the tank was full,
/// the cost, and what was noticed. The last column is the line of the file.
class ImportModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// An entry of a program's own file may hold part changes; the columns for them are left out otherwise.
  explicit ImportModel(bool hasParts, QObject* parent = nullptr);

  /// Replaces what is shown; what the person ticked or not stays so. logbook is the one that the entries are
  /// to come behind; it outlives the model.
  void setPlan(exchange::ImportPlan plan, const core::Logbook& logbook);
  /// As setPlan, after the logbook was read anew: what has come into it since is not ticked any more.
  void setPlanAnew(exchange::ImportPlan plan, const core::Logbook& logbook);
  const exchange::ImportPlan& plan() const { return plan_; }
  /// The longest text that each column is laid out for; empty for those that share what remains.
  QStringList longestTexts() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Ticks an entry or not; what depends on the ticks is worked out anew.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  /// The ticks changed.
  void ticksChanged();

 private:
  QString text(const exchange::PlannedEntry& planned, int row, int column) const;
  void keepTicks();

  std::vector<int> columns_;
  exchange::ImportPlan plan_;
  std::map<int, bool> ticks_;  // the person's own, by the line of the file
  core::Listing listing_;
  const core::Logbook* logbook_ = nullptr;
};

}  // namespace tarvik::ui
