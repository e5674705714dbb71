#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "core/listing.h"

namespace tarvik::ui {

/// The logbook list: the listed entries of a logbook, each cell made from the entry's bytes when it is
/// asked for. The last column is the record number.
class ListingModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// The listing outlives the model and changes in refill alone.
  explicit ListingModel(const core::Listing& listing, QObject* parent = nullptr);

  /// Tells the views that everything is listed anew; fill changes the listing meanwhile and throws nothing.
  void refill(const std::function<void()>& fill);
  /// The longest text that each column is laid out for; empty for those that share what remains.
  static QStringList longestTexts();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  const core::Listing& listing_;
};

}  // namespace tarvik::ui
