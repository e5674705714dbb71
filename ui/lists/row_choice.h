#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <functional>

class QAbstractItemView;
class QItemSelection;

namespace tarvik::ui {

/// Keeps the highlighted row of a list and the row that is chosen one and the same.
///
/// Whatever moves the highlight (left mouse button, keyboard, assistive tool) chooses the row; a click or the
/// space bar on the highlighted row chooses it again; a choice that cannot be made gives the highlight back
/// to the row that had it. Nothing but the program takes the highlight away.
/// A list that gets the keyboard before a row was chosen has it on no row; the first arrow takes the first
/// row.
class RowChoice : public QObject {
 public:
  /// Does what choosing a row does; false when it could not be done, which the person was told.
  using Chooser = std::function<bool(int row)>;

  /// The view has its model already and keeps it; the choice belongs to the view.
  RowChoice(QAbstractItemView* view, Chooser choose);

  QAbstractItemView& view() const { return *view_; }
  /// The highlighted row; -1 when none is.
  int row() const { return highlighted_.row(); }
  /// Highlights a row without choosing it; -1, or a row that the list has not, takes the highlight away.
  void highlight(int row);
  /// Chooses a row of the list, again too; false where it could not be chosen, or the list has no such row.
  bool choose(int row);
  /// Puts the keyboard on a row without highlighting it, or on none for -1; the view stays where it is.
  void standOn(int row);
  /// Fills the list anew and leaves it where it was: the rows in sight, and the row on which the keyboard
  /// stands. What the filling highlights stays highlighted.
  void keepPlace(const std::function<void()>& refill);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void follow(const QItemSelection& selected);
  bool releaseMouse(QObject* viewport, QEvent* event);
  bool pressKey(int key);
  bool takeFocus(QEvent* event);
  bool staysOn(int row, int key) const;
  int rowOfRecord(const QString& record, int otherwise) const;

  QAbstractItemView* view_;
  Chooser choose_;
  QPersistentModelIndex highlighted_;
  bool isHighlighting_ = false;  // the program moves the highlight
  bool isPressed_ = false;       // a mouse button is down on the list
  bool isReleasing_ = false;     // the view does what it does when a button goes up
  bool isTakingFocus_ = false;   // the view does what it does when it gets the keyboard
  bool wasChosen_ = false;       // a row was chosen since the button went down
};

/// Keeps a list as it is under every mouse button but the left one: a menu opens over a row, and chooses
/// none.
void chooseByLeftButtonAlone(QAbstractItemView& view);

/// The record number of a list's row as text: what the model's last column holds; empty without such a row.
QString recordOfRow(const QAbstractItemView& view, int row);

}  // namespace tarvik::ui
