#pragma once

class QWidget;

namespace tarvik::ui {

/// What Enter does, by one rule on all screens: nothing is recorded, filtered away or doubled by Enter alone.
///
/// In a list, on a tab or in the chart it does nothing. In a field it goes to the next one in the order of
/// the Tab key; options beside each other count as one field. An entry's last field names the button of the
/// entry in its property `enter`: that button is pressed, and asks; one that changes data without asking says
/// so in its property `unasked`, and is only gone to. Several names, parted by spaces, mean the first of them
/// in sight; a field may be named too. On a button Enter presses it, unless it is `unasked`. The screen has
/// no default button. Enter in a window that lies over the screen, such as an open drop-down, is that
/// window's.
void followEnterRule(QWidget& screen);

}  // namespace tarvik::ui
