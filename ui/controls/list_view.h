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
  /// Gives each shown column its share of the width, in characters; the last one takes what is left.
  void setColumnCharacters(const QList<int>& characters);
  /// Lets a click on a header sort the rows by that column, ascending, from then on.
  void sortByHeaderClicks();
  /// The record number of the highlighted row as text; empty when no row is highlighted.
  QString highlightedRecord() const;
  /// How many columns are shown: all but the record number.
  int shownColumns() const;
  /// The place among the list's accessible parts that a number means: the toolkit counts the hidden column
  /// too while it tells of a row.
  int accessiblePlace(int number) const;

 signals:
  /// A row was clicked, or reached with the keyboard.
  void rowChosen(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  bool isToolkitTelling_ = false;
};

}  // namespace tarvik::ui
