#pragma once

#include <QAbstractButton>
#include <QAction>

#include "ui/base/guarded.h"

namespace tarvik::ui {

/// Lets a press of the button run the screen's handler; a failure in it is told.
template <typename Screen>
void onClick(Screen* screen, QAbstractButton* button, void (Screen::*handler)()) {
  QObject::connect(button, &QAbstractButton::clicked, screen,
                   [screen, handler] { guarded(screen, [=] { (screen->*handler)(); }); });
}

/// Lets a menu item run the screen's handler once the menu has closed, so that the item is not left lit
/// under a dialog and an assistive tool that chose it need not wait for the dialog's end.
template <typename Screen>
void onMenu(Screen* screen, QAction* item, void (Screen::*handler)()) {
  QObject::connect(
      item, &QAction::triggered, screen,
      [screen, handler] { guarded(screen, [=] { (screen->*handler)(); }); }, Qt::QueuedConnection);
}

}  // namespace tarvik::ui
