#pragma once

#include <QIcon>
#include <QStyle>

namespace tarvik::ui {

/// An icon in the line style of the program, drawn in the palette's colours and sharp at every scale: a
/// message box' question, information, warning or error, or the mark of a menu bar that is too narrow for its
/// entries. Null for any other icon.
QIcon boxIcon(QStyle::StandardPixmap icon);

}  // namespace tarvik::ui
