#include "ui/lists/row_choice.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace tarvik::ui {
namespace {

class OtherButtons : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseButtonRelease:
        return static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton;
      default:
        return false;
    }
  }
};

}  // namespace

void chooseByLeftButtonAlone(QAbstractItemView& view) {
  static OtherButtons others;
  view.viewport()->installEventFilter(&others);
}

QString recordOfRow(const QAbstractItemView& view, int row) {
  const QAbstractItemModel& model = *view.model();
  return model.index(row, model.columnCount() - 1).data().toString();
}

RowChoice::RowChoice(QAbstractItemView* view, Chooser choose)
    : QObject(view), view_(view), choose_(std::move(choose)) {
  connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this](const QItemSelection& selected) { follow(selected); });
  view->installEventFilter(this);
  view->viewport()->installEventFilter(this);
  chooseByLeftButtonAlone(*view);
}

void RowChoice::highlight(int row) {
  const QScopedValueRollback<bool> own(isHighlighting_, true);
  QItemSelectionModel& selection = *view_->selectionModel();
  const QModelIndex index = view_->model()->index(row, 0);
  highlighted_ = index;
  if (!index.isValid()) return selection.clearSelection();
  selection.select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (view_->currentIndex().row() != row) selection.setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

// An assistive tool takes the old highlight away first and then adds its row to what is highlighted.
void RowChoice::follow(const QItemSelection& selected) {
  if (isHighlighting_) return;
  if (selected.isEmpty() || isReleasing_) return highlight(row());
  choose(selected.first().top());
}

// Under the mouse the row is in sight, and must not move while the button is down.
bool RowChoice::choose(int row) {
  if (!view_->model()->index(row, 0).isValid()) return false;
  wasChosen_ = true;
  const QPersistentModelIndex before = highlighted_;
  highlight(row);
  if (!isPressed_) view_->scrollTo(highlighted_);
  const bool isChosen = choose_(row);
  if (!isChosen) highlight(before.row());
  return isChosen;
}

bool RowChoice::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      isPressed_ = watched != view_;
      wasChosen_ = false;
      return false;
    case QEvent::MouseButtonRelease:
      return watched != view_ && !isReleasing_ && releaseMouse(watched, event);
    case QEvent::KeyPress:
      return watched == view_ && pressKey(static_cast<QKeyEvent*>(event)->key());
    case QEvent::FocusIn:
      return watched == view_ && !isTakingFocus_ && takeFocus(event);
    default:
      return false;
  }
}

// Qt puts the keyboard on the first row, which then looks chosen, and the first Down goes past it.
bool RowChoice::takeFocus(QEvent* event) {
  const QScopedValueRollback<bool> own(isTakingFocus_, true);
  const bool stoodSomewhere = view_->currentIndex().isValid();
  QCoreApplication::sendEvent(view_, event);
  if (!stoodSomewhere) view_->selectionModel()->clearCurrentIndex();
  return true;
}

// The view has the event first, so that a box that a choice brings up finds the button up.
bool RowChoice::releaseMouse(QObject* viewport, QEvent* event) {
  {
    const QScopedValueRollback<bool> own(isReleasing_, true);
    QCoreApplication::sendEvent(viewport, event);
  }
  isPressed_ = false;
  const QModelIndex under = view_->indexAt(static_cast<QMouseEvent*>(event)->position().toPoint());
  if (!wasChosen_ && under.isValid() && under.row() == row()) choose(under.row());
  return true;
}

// Where nothing is highlighted, a key that cannot move the keyboard any further takes the row it stands on.
// Where it stands on none, the space bar takes the first row and End the last: Qt would begin at the top.
bool RowChoice::pressKey(int key) {
  isPressed_ = false;
  const int current = view_->currentIndex().row();
  const bool isAgain = key == Qt::Key_Space && row() >= 0 && current == row();
  const bool isThere = row() < 0 && view_->model()->rowCount() > 0;
  const bool isLast = isThere && current < 0 && key == Qt::Key_End;
  const bool isFirst = isThere && (current < 0 ? key == Qt::Key_Space : staysOn(current, key));
  if (isLast) choose(view_->model()->rowCount() - 1);
  if (isAgain || isFirst) choose(qMax(current, 0));
  return isAgain || isFirst || isLast;
}

bool RowChoice::staysOn(int row, int key) const {
  switch (key) {
    case Qt::Key_Home:
    case Qt::Key_Up:
    case Qt::Key_PageUp:
      return row == 0;
    case Qt::Key_End:
    case Qt::Key_Down:
    case Qt::Key_PageDown:
      return row == view_->model()->rowCount() - 1;
    default:
      return false;
  }
}

void RowChoice::keepPlace(const std::function<void()>& refill) {
  const int scrolled = view_->verticalScrollBar()->value();
  const int current = view_->currentIndex().row();
  const QString record = recordOfRow(*view_, current);
  const auto restored = qScopeGuard([&] {
    if (row() < 0) standOn(rowOfRecord(record, current));
    view_->verticalScrollBar()->setValue(scrolled);
  });
  refill();
}

void RowChoice::standOn(int row) {
  const bool scrolls = view_->hasAutoScroll();
  view_->setAutoScroll(false);
  view_->selectionModel()->setCurrentIndex(view_->model()->index(row, 0), QItemSelectionModel::NoUpdate);
  view_->setAutoScroll(scrolls);
}

// A list of texts alone has no records: there the place counts.
int RowChoice::rowOfRecord(const QString& record, int otherwise) const {
  const QAbstractItemModel& model = *view_->model();
  if (model.columnCount() == 1) return qMin(otherwise, model.rowCount() - 1);
  for (int row = 0; row < model.rowCount(); ++row)
    if (recordOfRow(*view_, row) == record) return row;
  return -1;
}

}  // namespace tarvik::ui
