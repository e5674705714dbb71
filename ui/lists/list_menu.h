#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QAction;
class QPoint;

namespace tarvik::ui {

class ListView;

/// What the items of a list's context menu do beyond the list itself; each may throw Failure.
struct ListMenuActions {
  std::function<void()> save;         ///< saves what is listed as a CSV file
  std::function<void()> import = {};  ///< reads a CSV file in; nothing = the list has no such item
};

/// The context menu of a list: copies the chosen row, or all rows with their heads where none is chosen, as a
/// table for spreadsheets; saves the list as a CSV file; reads one in. It opens on a right click, the menu
/// key and Shift+F10; Ctrl+C copies. It belongs to the list.
class ListMenu : public QObject {
  Q_OBJECT

 public:
  ListMenu(ListView* list, ListMenuActions actions);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* add(const char* name, const QString& text);
  void addAsking(const char* name, const QString& text, const std::function<void()>& act);
  void openAt(const QPoint& global);
  QPoint besideRow() const;
  void copy();

  ListView* list_;
};

}  // namespace tarvik::ui
