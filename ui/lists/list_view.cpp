#include "ui/lists/list_view.h"

#include <QHeaderView>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "ui/lists/list_accessible.h"
#include "ui/lists/list_delegate.h"

namespace tarvik::ui {

ListView::ListView(QWidget* parent) : QTreeView(parent) {
  installListAccessibility();
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  chooseByLeftButtonAlone(*this);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
  header()->setHighlightSections(false);
}

void ListView::setModel(QAbstractItemModel* model) {
  QTreeView::setModel(model);
  setColumnHidden(model->columnCount() - 1, true);
}

void ListView::sortByHeaderClicks() {
  header()->setSectionsClickable(true);
  connect(header(), &QHeaderView::sectionClicked, this, [this](int column) {
    header()->setSortIndicatorShown(true);
    header()->setSortIndicator(column, Qt::AscendingOrder);
    model()->sort(column, Qt::AscendingOrder);
  });
}

void ListView::onRowChosen(RowChoice::Chooser choose) {
  choice_ = new RowChoice(this, std::move(choose));
}

QString ListView::highlightedRecord() const {
  return choice_->row() < 0 ? QString() : recordOfRow(*this, choice_->row());
}

int ListView::rowOf(int record) const {
  const QString wanted = QString::number(record);
  int row = model()->rowCount() - 1;
  while (row >= 0 && recordOfRow(*this, row) != wanted) --row;
  return row;
}

void ListView::highlightRecord(int record) {
  choice_->highlight(rowOf(record));
}

bool ListView::markRecord(int record) {
  const int row = rowOf(record);
  if (row < 0) return false;
  scrollTo(model()->index(row, 0));
  if (auto* delegate = qobject_cast<ListDelegate*>(itemDelegate()))
    delegate->mark(QString::number(record), *this);
  return true;
}

void ListView::showFound(const QString& record) {
  if (auto* delegate = qobject_cast<ListDelegate*>(itemDelegate())) delegate->showFound(record, *this);
}

int ListView::shownColumns() const {
  return model() == nullptr ? 0 : model()->columnCount() - 1;
}

int ListView::accessiblePlace(int number) const {
  if (!isQtTelling_ || shownColumns() < 1) return number;
  const int counted = shownColumns() + 1;
  return number / counted * shownColumns() + qMin(number % counted, shownColumns() - 1);
}

// What was recorded is at the end, and the line that says so takes its room from the list.
void ListView::resizeEvent(QResizeEvent* event) {
  const QScrollBar& bar = *verticalScrollBar();
  const bool staysAtEnd =
      isVisible() && bar.value() == bar.maximum() && event->size().height() < event->oldSize().height();
  QTreeView::resizeEvent(event);
  if (staysAtEnd) scrollToBottom();
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  const QScopedValueRollback telling(isQtTelling_, true);
  QTreeView::currentChanged(current, previous);
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  const QScopedValueRollback telling(isQtTelling_, true);
  QTreeView::selectionChanged(selected, deselected);
}

}  // namespace tarvik::ui
