#pragma once

#include <QPoint>
#include <QSize>

class QDialog;
class QMainWindow;
class QWidget;

namespace tarvik::ui {

/// Lets a window's contents scroll where the display is smaller than they need. Called once, when the
/// window is built and before it is placed.
void keepWithinReach(QDialog& dialog);
void keepWithinReach(QMainWindow& window);

/// Pixels of so many twips (1/1440 inch) at the resolution of the window's display.
int pixelsOfTwips(int twips, const QWidget& window);

/// Gives a window that is not shown yet the size that its parts ask for, or the wanted one where that is
/// larger, but never more than its display, and puts it in the middle of it. A size that the person gave a
/// window of that name before in this run is taken instead.
void openInTheMiddle(QWidget& window, QSize wanted = {});

/// The same, at a place of the desktop in pixels, and as much further in as keeps all of the window, its
/// title included, on the display of that place.
void openAt(QWidget& window, QPoint topLeft, QSize wanted = {});

}  // namespace tarvik::ui
