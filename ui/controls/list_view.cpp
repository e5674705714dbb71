#include "ui/controls/list_view.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace tarvik::ui {

ListView::ListView(QWidget* parent) : QTreeView(parent) {
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
  header()->setHighlightSections(false);
  connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) { emit rowChosen(index.row()); });
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

QString ListView::highlightedRecord() const {
  const QModelIndexList selected = selectionModel()->selectedRows(model()->columnCount() - 1);
  return selected.isEmpty() ? QString() : selected.first().data().toString();
}

// A row is reached by moving to it, or by selecting the one where the keyboard stands already.
void ListView::keyPressEvent(QKeyEvent* event) {
  const QString before = highlightedRecord();
  QTreeView::keyPressEvent(event);
  const QString now = highlightedRecord();
  if (!now.isEmpty() && now != before) emit rowChosen(currentIndex().row());
}

}  // namespace tarvik::ui
