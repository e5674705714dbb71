#include "ui/lists/list_menu.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <utility>
#include <vector>

#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"

namespace tarvik::ui {
namespace {

std::vector<std::string> rowCells(const ListView& list, int row, Figures figures) {
  std::vector<std::string> cells;
  for (int column = 0; column < list.shownColumns(); ++column) {
    const QModelIndex index = list.model()->index(row, column);
    const QVariant copied = figures == Figures::AsCopied ? index.data(kCopiedRole) : QVariant();
    cells.push_back(toLogic((copied.isValid() ? copied : index.data()).toString().trimmed()));
  }
  return cells;
}

}  // namespace

exchange::TextTable tableOf(const ListView& list, Figures figures) {
  exchange::TextTable table;
  for (int column = 0; column < list.shownColumns(); ++column)
    table.heads.push_back(toLogic(list.model()->headerData(column, Qt::Horizontal).toString()));
  for (int row = 0; row < list.model()->rowCount(); ++row) table.rows.push_back(rowCells(list, row, figures));
  return table;
}

ListMenu::ListMenu(ListView* list, ListMenuActions actions) : QObject(list), list_(list) {
  QAction* copy = add("mnuMasolas", QStringLiteral("&Másolás"));
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  onSignal(copy, &QAction::triggered, this, &ListMenu::copy);
  addAsking("mnuCsvMentes", QStringLiteral("M&entés CSV-fájlba…"), actions.save);
  if (actions.import) addAsking("mnuCsvBeolvasas", QStringLiteral("&Beolvasás CSV-fájlból…"), actions.import);
  list->installEventFilter(this);
  list->viewport()->installEventFilter(this);
}

QAction* ListMenu::add(const char* name, const QString& text) {
  auto* action = new QAction(text, list_);
  action->setObjectName(QString::fromLatin1(name));
  list_->addAction(action);
  return action;
}

// An item with a dialog: the menu closes before it opens, and an assistive tool that chose the item, which
// leaves the menu open, need not wait for the dialog's end.
void ListMenu::addAsking(const char* name, const QString& text, const std::function<void()>& act) {
  const auto run = [this, act] {
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
    guarded(list_->window(), act);
  };
  connect(add(name, text), &QAction::triggered, this, run, Qt::QueuedConnection);
}

bool ListMenu::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ContextMenu) {
    const auto* menu = static_cast<QContextMenuEvent*>(event);
    const QPoint at = menu->globalPos();
    if (menu->reason() != QContextMenuEvent::Mouse)
      openBesideRow();
    else
      openAt(at, list_->indexAt(list_->viewport()->mapFromGlobal(at)));
    return true;
  }
  const bool isByKeys = watched == list_ && event->type() == QEvent::KeyPress &&
                        static_cast<QKeyEvent*>(event)->keyCombination() == (Qt::SHIFT | Qt::Key_F10);
  if (isByKeys) openBesideRow();
  return isByKeys;
}

void ListMenu::openAt(const QPoint& global, const QModelIndex& meant) {
  const QScopedValueRollback<QPersistentModelIndex> over(underPointer_, meant);
  QMenu::exec(list_->actions(), global, nullptr, list_);
}

// Where a menu opens that no pointer asked for: under the row where the keyboard stands.
void ListMenu::openBesideRow() {
  const QRect row = list_->visualRect(list_->currentIndex()).intersected(list_->viewport()->rect());
  openAt(list_->viewport()->mapToGlobal(row.isEmpty() ? QPoint() : row.bottomLeft()), {});
}

exchange::TextTable ListMenu::copiedTable() const {
  const QModelIndex chosen = list_->selectionModel()->selectedRows().value(0);
  const int only = underPointer_.isValid() ? underPointer_.row() : chosen.row();
  if (only < 0) return tableOf(*list_, Figures::AsCopied);
  return {.heads = {}, .rows = {rowCells(*list_, only, Figures::AsCopied)}};
}

void ListMenu::copy() {
  QApplication::clipboard()->setText(toQt(exchange::tabbedOf(copiedTable())));
}

}  // namespace tarvik::ui
