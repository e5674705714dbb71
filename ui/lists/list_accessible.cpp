#include "ui/lists/list_accessible.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>

#include "ui/lists/list_view.h"

namespace tarvik::ui {
namespace {

// What a heading and a cell have in common. They have no widget of their own and live until the list changes.
class ListPart : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  ListPart(ListView* list, int column) : list_(list), column_(column) {}

  bool isValid() const override { return list_ && column_ < list_->shownColumns(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent() ? parent()->window() : nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(list_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  virtual int place() const = 0;

 protected:
  ListView* list() const { return list_; }
  int column() const { return column_; }
  bool isInSight() const { return list_->isVisible() && list_->rect().intersects(rectInList()); }
  QRect onDisplay(const QRect& inList) const { return inList.translated(list_->mapToGlobal(QPoint())); }
  virtual QRect rectInList() const = 0;

 private:
  QPointer<ListView> list_;
  int column_;
};

class HeadingAccessible : public ListPart {
 public:
  using ListPart::ListPart;

  int place() const override { return column(); }
  QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
  QRect rect() const override { return isValid() ? onDisplay(rectInList()) : QRect(); }

  QString text(QAccessible::Text kind) const override {
    if (!isValid() || kind != QAccessible::Name) return {};
    return list()->model()->headerData(column(), Qt::Horizontal).toString();
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    state.invisible = !isValid() || !isInSight();
    return state;
  }

  QStringList actionNames() const override {
    const bool sorts = isValid() && list()->header()->sectionsClickable();
    return sorts ? QStringList{pressAction()} : QStringList();
  }
  void doAction(const QString& name) override {
    if (actionNames().contains(name)) emit list()->header()->sectionClicked(column());
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

 protected:
  QRect rectInList() const override {
    const QHeaderView* header = list()->header();
    return {header->x() + header->sectionViewportPosition(column()), header->y(),
            header->sectionSize(column()), header->height()};
  }
};

class CellAccessible : public ListPart, public QAccessibleTableCellInterface {
 public:
  CellAccessible(ListView* list, int row, int column) : ListPart(list, column), row_(row) {}

  bool isValid() const override { return ListPart::isValid() && row_ < list()->model()->rowCount(); }
  int place() const override { return (row_ + 1) * list()->shownColumns() + column(); }
  QAccessible::Role role() const override { return QAccessible::Cell; }
  QRect rect() const override { return isValid() ? onDisplay(rectInList()) : QRect(); }

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Description) return index().data(Qt::AccessibleDescriptionRole).toString();
    return kind == QAccessible::Name ? index().data().toString().trimmed() : QString();
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    if (!isValid()) return state;
    const QVariant mark = index().data(Qt::CheckStateRole);
    state.checkable = mark.isValid();
    state.checked = mark.toInt() == Qt::Checked;
    state.readOnly = true;
    state.focusable = true;
    state.focused = list()->hasFocus() && list()->currentIndex() == index();
    state.selectable = true;
    state.selected = isSelected();
    state.invisible = !isInSight();
    return state;
  }

  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (isValid() && name == pressAction()) parent()->tableInterface()->selectRow(row_);
  }

  bool isSelected() const override { return list()->selectionModel()->isSelected(index()); }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {parent()->child(column())}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return column(); }
  int rowIndex() const override { return row_; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    return nullptr;
  }

 protected:
  QRect rectInList() const override {
    return list()->visualRect(index()).translated(list()->viewport()->pos());
  }

 private:
  QModelIndex index() const { return list()->model()->index(row_, column()); }

  int row_;
};

class ListAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit ListAccessible(ListView* list) : QAccessibleWidget(list, QAccessible::Table) {}
  ~ListAccessible() override { forgetParts(); }

  int childCount() const override { return (rowCount() + 1) * columnCount(); }

  QAccessibleInterface* child(int number) const override {
    const int place = list()->accessiblePlace(number);
    if (place < 0 || place >= childCount()) return nullptr;
    auto part = parts_.constFind(place);
    if (part == parts_.constEnd())
      part = parts_.insert(place, QAccessible::registerAccessibleInterface(newPart(place)));
    return QAccessible::accessibleInterface(*part);
  }

  int indexOfChild(const QAccessibleInterface* wanted) const override {
    const auto* const part = dynamic_cast<const ListPart*>(wanted);
    return part && part->isValid() && part->parent() == this ? part->place() : -1;
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint inList = list()->mapFromGlobal(QPoint(x, y));
    if (list()->header()->geometry().contains(inList))
      return child(list()->header()->logicalIndexAt(inList - list()->header()->pos()));
    return cellOf(list()->indexAt(list()->viewport()->mapFrom(list(), inList)));
  }

  QAccessibleInterface* focusChild() const override {
    return list()->hasFocus() ? cellOf(list()->currentIndex()) : nullptr;
  }

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override {
    const bool isThere = row >= 0 && column >= 0 && column < columnCount();
    return isThere ? child((row + 1) * columnCount() + column) : nullptr;
  }
  int rowCount() const override { return list()->model() ? list()->model()->rowCount() : 0; }
  int columnCount() const override { return list()->shownColumns(); }
  QString columnDescription(int column) const override {
    return list()->model()->headerData(column, Qt::Horizontal).toString();
  }
  QString rowDescription(int) const override { return {}; }

  int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
  QList<QAccessibleInterface*> selectedCells() const override {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
      for (int column = 0; column < columnCount(); ++column) cells.append(cellAt(row, column));
    return cells;
  }
  int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
  QList<int> selectedRows() const override {
    QList<int> rows;
    if (list()->selectionModel() == nullptr) return rows;
    for (const QModelIndex& index : list()->selectionModel()->selectedRows()) rows.append(index.row());
    return rows;
  }
  bool isRowSelected(int row) const override { return selectedRows().contains(row); }
  bool selectRow(int row) override {
    if (row < 0 || row >= rowCount()) return false;
    if (isRowSelected(row)) return chooseAgain();
    list()->setCurrentIndex(list()->model()->index(row, 0));
    return true;
  }
  bool unselectRow(int) override { return false; }
  int selectedColumnCount() const override { return 0; }
  QList<int> selectedColumns() const override { return {}; }
  bool isColumnSelected(int) const override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectColumn(int) override { return false; }

  void modelChange(QAccessibleTableModelChangeEvent* event) override {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) forgetParts();
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
  }

 private:
  ListView* list() const { return static_cast<ListView*>(widget()); }

  QAccessibleInterface* cellOf(const QModelIndex& index) const {
    return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
  }

  bool chooseAgain() {
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QCoreApplication::sendEvent(list(), &space);
    return true;
  }

  QAccessibleInterface* newPart(int place) const {
    const int column = place % columnCount();
    if (place < columnCount()) return new HeadingAccessible(list(), column);
    return new CellAccessible(list(), place / columnCount() - 1, column);
  }

  void forgetParts() {
    for (const QAccessible::Id part : std::as_const(parts_)) QAccessible::deleteAccessibleInterface(part);
    parts_.clear();
  }

  mutable QHash<int, QAccessible::Id> parts_;
};

QAccessibleInterface* listInterface(const QString&, QObject* object) {
  auto* const list = qobject_cast<ListView*>(object);
  return list ? new ListAccessible(list) : nullptr;
}

}  // namespace

void installListAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(listInterface);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace tarvik::ui
