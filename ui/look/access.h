#pragma once

class QMenuBar;
class QWidget;

namespace tarvik::ui {

/// Lets a screen be used without eyes and without a mouse, once its parts are made: what is inside its
/// drop-downs bears their names, stored texts are told without their padding, and arrows check options.
void makeAccessible(QWidget& screen);

/// Lets F10 go to the menu of a window, as Alt does.
void openWithF10(QMenuBar& menu);

/// Hides a control that has no use, from assistive tools too. It stays a child of its parent.
void takeOutOfUse(QWidget& control);

}  // namespace tarvik::ui
