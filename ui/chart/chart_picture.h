#pragma once

#include <QPoint>
#include <QString>

namespace tarvik::ui {

class ChartCanvas;
class ChartView;

/// Copies the picture of a chart to the clipboard at twice the screen's resolution.
void copyChartPicture(ChartCanvas& canvas);

/// Saves the picture of a chart, as a PDF document when the path ends in ".pdf" and as PNG otherwise.
/// Returns whether the file holds the whole picture; a failure leaves an earlier file as it was.
bool saveChartPicture(ChartCanvas& canvas, const QString& path);

/// Shows the context menu of a chart at a position of the screen and does what is chosen.
void runChartMenu(ChartView& chart, const QPoint& globalPosition);

}  // namespace tarvik::ui
