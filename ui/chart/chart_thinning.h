#pragma once

#include <QList>

namespace tarvik::ui {

/// Gives the rows, ascending and counted from 1, by which a series is drawn: all of them up to `most`. Of a
/// longer one each stretch of neighbouring rows is drawn by its lowest and its highest value, so that the
/// outline stays, or by one row when it is all gap; the first row, the last and `kept`, unless 0, as well.
QList<int> rowsToDraw(const QList<double>& values, int most, int kept);

/// Gives the drawn row nearest to a row; 0 when nothing is drawn.
int nearestDrawn(const QList<int>& drawnRows, int row);

}  // namespace tarvik::ui
