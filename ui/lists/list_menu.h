#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QString>
#include <functional>

#include "exchange/own_format.h"

class QAction;
class QPoint;

namespace tarvik::ui {

class ListView;

/// What the items of a list's context menu do beyond the list itself; each may throw Failure.
struct ListMenuActions {
  std::function<void()> save;         ///< saves what is listed as a CSV file
  std::function<void()> import = {};  ///< reads a CSV file in; nothing = the list has no such item
};

/// Whether a list's figures keep the spaces between their digits.
enum class Figures { AsShown, AsCopied };

/// All rows of a list with the heads of its shown columns.
exchange::TextTable tableOf(const ListView& list, Figures figures);

/// The context menu of a list: copies a row, or all rows with their heads, as a table for spreadsheets; saves
/// the list as a CSV file; reads one in. It opens on a right click, the menu key and Shift+F10; Ctrl+C
/// copies. The copied row is the one under the pointer where a right click opened the menu, else the chosen
/// one; all rows are copied where there is none. A right click chooses nothing. It belongs to the list.
class ListMenu : public QObject {
  Q_OBJECT

 public:
  ListMenu(ListView* list, ListMenuActions actions);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* add(const char* name, const QString& text);
  void addAsking(const char* name, const QString& text, const std::function<void()>& act);
  void openAt(const QPoint& global, const QModelIndex& meant);
  void openBesideRow();
  exchange::TextTable copiedTable() const;
  void copy();

  ListView* list_;
  QPersistentModelIndex underPointer_;  // while a menu is open that was opened over a row
};

}  // namespace tarvik::ui
