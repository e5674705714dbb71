#pragma once

#include <QAbstractTableModel>
#include <QTreeView>
#include <string>
#include <vector>

#include "benchmarks/floors.h"

namespace tarvik::bench {

/// The entries of a logbook as they lie in memory, each cell made in the shortest way.
class BareModel final : public QAbstractTableModel {
 public:
  void setEntries(std::vector<BareEntry> entries);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<BareEntry> entries_;
};

/// A list of the same size and columns as another one, over the barest model: what showing a logbook costs
/// at the least.
class BareView {
 public:
  /// Stands like that list.
  explicit BareView(const QTreeView& like);

  /// Reads a logbook, decodes each entry once and shows them.
  void show(const std::string& path);

 private:
  BareModel model_;
  QTreeView view_;
};

}  // namespace tarvik::bench
