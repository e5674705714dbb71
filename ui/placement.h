#pragma once

#include <QPoint>

class QWidget;

namespace tarvik::ui {

/// Moves a window that is not shown yet to a place of the desktop, in pixels at 96 dots an inch, and as
/// much further in as keeps all of it, title bar included, on the screen of that place.
void placeAt(QWidget& window, QPoint topLeft);

}  // namespace tarvik::ui
