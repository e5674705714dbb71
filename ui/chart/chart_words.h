#pragma once

#include "ui/chart/chart_content.h"

namespace tarvik::ui {

/// A point's label and value with the unit in one line: "2013. 7. hó: 20 500 Ft", "2013. 8. hó: nincs adat"
/// for a gap. Empty for a row without a point.
QString pointInWords(const ChartContent& content, int row);

/// What a chart shows, for whoever does not see it: the unit, the number of points, the smallest, the largest
/// and the last value with their labels. Gaps do not count; a chart without a point has no data.
QString chartInWords(const ChartContent& content);

}  // namespace tarvik::ui
