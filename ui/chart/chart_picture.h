#pragma once

#include <QPoint>

namespace tarvik::ui {

class ChartCanvas;
class ChartView;
class OutputFile;

/// Copies the picture of a chart to the clipboard at twice the screen's resolution.
void copyChartPicture(ChartCanvas& canvas);

/// Writes the picture of a chart into a file, as a PDF document when its path ends in ".pdf" and as PNG
/// otherwise; false for a chart without any size.
bool writeChartPicture(ChartCanvas& canvas, OutputFile& file);

/// Shows the context menu of a chart at a position of the screen and does what is chosen.
void runChartMenu(ChartView& chart, const QPoint& globalPosition);

}  // namespace tarvik::ui
