#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <map>
#include <vector>

#include "exchange/import_plan.h"

namespace tarvik::ui {

/// The rows of a file in its order: the entries as the logbook list would show them, with a tick each,
/// whether the tank was full, the consumption, the cost, and what was noticed; and in their places those that
/// are left out, with their own values and why. The last column is the line of the file.
class ImportModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit ImportModel(QObject* parent = nullptr);

  /// Replaces what is shown; what the person ticked or not stays so. The logbook of the context outlives the
  /// model.
  void setPlan(exchange::ImportPlan plan, const exchange::PlanContext& context);
  /// As setPlan, after the logbook was read anew: what has come into it since is not ticked any more.
  void setPlanAnew(exchange::ImportPlan plan, const exchange::PlanContext& context);
  /// Forgets what the person ticked: the rows are others.
  void forgetTicks() { ticks_.clear(); }
  /// Ticks every entry, or none.
  void tickAll(bool isTaken);
  const exchange::ImportPlan& plan() const { return plan_; }
  /// The longest text that each column is laid out for; empty for those that share what remains.
  static QStringList longestTexts();

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
  // A row of the file: an entry, or one that is none.
  struct Row {
    int line = 0;
    int entry = -1;
    int unread = -1;
  };

  const exchange::PlannedEntry* entryOf(const QModelIndex& index) const;
  QString text(const exchange::PlannedEntry& planned, int column) const;
  QString text(const exchange::UnreadRow& unread, int column) const;
  QVariant look(const QModelIndex& index, int role) const;
  void keepTicks();
  void settle();

  exchange::ImportPlan plan_;
  std::vector<Row> rows_;
  std::map<int, bool> ticks_;  // the person's own, by the line of the file
  const core::Logbook* logbook_ = nullptr;
  core::Day today_{};
  exchange::Place place_ = exchange::Place::InOrder;
};

}  // namespace tarvik::ui
