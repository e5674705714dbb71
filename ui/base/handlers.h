#pragma once

#include <QAbstractButton>
#include <QAction>

#include "ui/base/guarded.h"

namespace tarvik::ui {

/// The window of a part of a screen, or of what belongs to a part.
inline QWidget* windowOf(QObject* part) {
  while (part != nullptr && !part->isWidgetType()) part = part->parent();
  return part == nullptr ? nullptr : static_cast<QWidget*>(part)->window();
}

/// Lets a signal of a part of a screen, whatever it carries, run the screen's handler; a failure in it is
/// told.
template <typename Part, typename Signal, typename Screen>
void onSignal(Part* part, Signal signal, Screen* screen, void (Screen::*handler)()) {
  QObject::connect(part, signal, screen,
                   [part, screen, handler] { guarded(windowOf(part), [=] { (screen->*handler)(); }); });
}

/// Lets a press of the button run the screen's handler; a failure in it is told.
template <typename Screen>
void onClick(Screen* screen, QAbstractButton* button, void (Screen::*handler)()) {
  onSignal(button, &QAbstractButton::clicked, screen, handler);
}

/// Lets a menu item run the screen's handler once the menu has closed, so that the item is not left lit
/// under a dialog and an assistive tool that chose it need not wait for the dialog's end.
template <typename Screen>
void onMenu(Screen* screen, QAction* item, void (Screen::*handler)()) {
  QObject::connect(
      item, &QAction::triggered, screen,
      [screen, handler] { guarded(windowOf(screen), [=] { (screen->*handler)(); }); }, Qt::QueuedConnection);
}

}  // namespace tarvik::ui
