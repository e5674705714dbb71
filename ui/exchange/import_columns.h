#pragma once

#include <QScrollArea>
#include <vector>

#include "exchange/log_table.h"
#include "exchange/reading.h"

class QComboBox;

namespace tarvik::ui {

/// The columns of a file beside each other: over each a drop-down with what it is read as, below it its head
/// and the first of its values.
class ImportColumns : public QScrollArea {
  Q_OBJECT

 public:
  explicit ImportColumns(QWidget* parent = nullptr);

  /// Shows the columns of a table; those of the same table only change what they are read as.
  void show(const exchange::LogTable& table, const exchange::Reading& reading);
  /// Builds the columns anew with the next show.
  void forget();
  /// The drop-down of a column; null where the file has no such one.
  QComboBox* box(std::size_t column) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// A person chose what a column is.
  void meaningChosen(int column, int meaning);

 private:
  void build(const exchange::LogTable& table);
  void addColumn(const exchange::LogTable& table, std::size_t column);

  std::vector<QComboBox*> boxes_;
  bool isShowing_ = false;
};

}  // namespace tarvik::ui
