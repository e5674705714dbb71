#pragma once

#include <QTreeView>

#include "ui/lists/row_choice.h"

namespace tarvik::ui {

/// A list of rows in columns: whole rows are selected one at a time, all rows have one height, and the
/// model's last column (the record number) is hidden. The highlighted row is the chosen one, see RowChoice. A
/// list that shows its last row goes on showing it when something takes room from it.
class ListView : public QTreeView {
  Q_OBJECT

 public:
  explicit ListView(QWidget* parent = nullptr);

  /// Shows a model and hides its last column.
  void setModel(QAbstractItemModel* model) override;
  /// Says, once the model is set, what choosing a row does.
  void onRowChosen(RowChoice::Chooser choose);
  /// Lets a click on a header sort the rows by that column, ascending, from then on.
  void sortByHeaderClicks();
  /// The record number of the highlighted row as text; empty when no row is highlighted.
  QString highlightedRecord() const;
  /// Highlights the row of that record without choosing it; no row when the list has none of it.
  void highlightRecord(int record);
  /// Brings the row of that record in view and tints it for a moment; false when the list has none of it.
  bool markRecord(int record);
  /// Tints the row of that record as the one that a search found; none for an empty text.
  void showFound(const QString& record);
  /// Puts the keyboard on a row, or on none for -1, without choosing it; the view stays where it is.
  void standOn(int row) { choice_->standOn(row); }
  /// Chooses the row on which the keyboard stands; false when there is none or it could not be chosen.
  bool chooseCurrent() { return choice_->choose(currentIndex().row()); }
  /// Fills the list anew and leaves it where it was, see RowChoice.
  void keepPlace(const std::function<void()>& refill) { choice_->keepPlace(refill); }
  /// How many columns are shown: all but the record number.
  int shownColumns() const;
  /// The place among the list's accessible parts that a number means: Qt counts the hidden column
  /// too while it tells of a row.
  int accessiblePlace(int number) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  int rowOf(int record) const;

  RowChoice* choice_ = nullptr;
  bool isQtTelling_ = false;
};

}  // namespace tarvik::ui
