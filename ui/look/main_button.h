#pragma once

class QWidget;

namespace tarvik::ui {

/// Whether a button is shown as the main action of its window: its form says so (`look` = "main"), and no
/// main button behind it in the order of the Tab key is in sight, such as that of a frame opened for a while.
/// So there are never two.
bool isMainAction(const QWidget& button);

/// Lets the main buttons of a window be painted anew when one of them comes into sight or goes out of it. The
/// style calls this for every widget.
void keepOneMainAction(QWidget& widget);

}  // namespace tarvik::ui
