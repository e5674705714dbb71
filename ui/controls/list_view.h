#pragma once

#include <QTreeView>

namespace tarvik::ui {

/// A list of rows in columns: whole rows are selected one at a time, all rows have one height, and the
/// model's last column (the record number) is hidden.
class ListView : public QTreeView {
  Q_OBJECT

 public:
  explicit ListView(QWidget* parent = nullptr);

  /// Shows a model and hides its last column.
  void setModel(QAbstractItemModel* model) override;
  /// Lets a click on a header sort the rows by that column, ascending, from then on.
  void sortByHeaderClicks();
  /// The record number of the highlighted row as text; empty when no row is highlighted.
  QString highlightedRecord() const;

 signals:
  /// A row was clicked, or reached with the keyboard.
  void rowChosen(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace tarvik::ui
