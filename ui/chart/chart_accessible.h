#pragma once

namespace tarvik::ui {

/// Makes the charts known to assistive tools: a chart named by its title and described by its summary, with
/// one child a point that is named by its label and value, lies where the point is drawn and is selected by
/// pressing it. Further calls change nothing.
void installChartAccessibility();

}  // namespace tarvik::ui
