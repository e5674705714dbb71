#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <string>

#include "ui/context.h"

class QAction;
class QPoint;

namespace tarvik::ui {

class ListView;

/// What a list's context menu needs to know of the list.
struct ListMenuParts {
  std::function<QString()> fileName;  ///< proposed for the CSV file, without its suffix
  std::function<std::string()> csv;   ///< the bytes of the CSV file of what is listed; may throw Failure
  std::function<void()> import = {};  ///< reads a CSV file in; nothing = the list has no such item
};

/// The context menu of a list: copies the chosen row, or all rows with their heads where none is chosen, as a
/// table for spreadsheets; saves the list as a CSV file; reads one in. It opens on a right click, the menu
/// key and Shift+F10; Ctrl+C copies. It belongs to the list.
class ListMenu : public QObject {
  Q_OBJECT

 public:
  ListMenu(ListView* list, Context& context, ListMenuParts parts);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* add(const char* name, const QString& text);
  void addAsking(const char* name, const QString& text, void (ListMenu::*act)());
  void openAt(const QPoint& global);
  QPoint besideRow() const;
  void copy();
  void save();
  void import();

  ListView* list_;
  Context& context_;
  ListMenuParts parts_;
};

}  // namespace tarvik::ui
