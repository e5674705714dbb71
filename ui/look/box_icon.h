#pragma once

#include <QIcon>
#include <QStyle>

namespace tarvik::ui {

/// The icon of a message box in the line style of the program, drawn in the palette's colours and sharp at
/// every scale: a question, an information, a warning or an error. Null for any other icon.
QIcon boxIcon(QStyle::StandardPixmap icon);

}  // namespace tarvik::ui
