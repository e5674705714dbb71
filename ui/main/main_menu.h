#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

#include "ui/base/context.h"

class QMainWindow;
class QMenu;

namespace tarvik::ui {

class LogbookPane;
class ReminderSwitch;
class UndoLine;

/// The parts of the main screen that its menu brings items of, or that follow what it opens.
struct MenuParts {
  LogbookPane& logbook;
  ReminderSwitch& reminders;
  const UndoLine& undo;
};

/// What the menu asks the main screen for.
struct MenuSources {
  std::function<QString()> plate;       ///< the chosen one, as it is shown
  std::function<QStringList()> plates;  ///< those of all vehicles, without padding; may throw Failure
  std::function<bool(const QString& consequence)>
      refusesBlankPlate;  ///< whether none is chosen, which it tells
  std::function<void(const QStringList& platesAsStored)> setPlates;  ///< the vehicles have changed
};

/// The main screen's menu: its items open the other screens. The menu Eszközök is added to those of the form.
class MainMenu : public QObject {
  Q_OBJECT

 public:
  /// The context outlives the screen, to which the menu and the parts belong.
  MainMenu(Context& context, QMainWindow& screen, const MenuParts& parts, MenuSources sources);

 private:
  void connectForm();
  void fillTools(QMenu& tools);

  void openSetup();
  void openGumik();
  void openSzerviz();
  void openEvesOsszesito();
  void openRestore();
  void openAbout();
  void print();

  Context& context_;
  QMainWindow& screen_;
  MenuParts parts_;
  MenuSources sources_;
};

}  // namespace tarvik::ui
