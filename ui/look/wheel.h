#pragma once

class QWidget;

namespace tarvik::ui {

/// Keeps the wheel from what it merely passes: a part of a window without the focus is not changed by it and
/// does not take the focus, and a drop-down that can be typed into is never changed by it, so that nothing
/// typed is lost. The wheel then turns what lies behind, as a rule the window. What scrolls and cannot have
/// the focus by itself, as a list's own scroll bar, goes on as ever. The style calls this for every widget.
void keepFromWheel(QWidget& part);

}  // namespace tarvik::ui
