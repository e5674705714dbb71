#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "ui/chart/chart_shapes.h"

namespace tarvik::ui {

/// How much larger than the labels the title of a chart is.
inline constexpr double kTitleScale = 1.2;

/// The colours and fonts of a chart, taken from the palette and the font of its window, and one accent.
struct ChartStyle {
  QColor background;
  QColor text;
  QColor quietText;
  QColor grid;
  QColor axis;
  QColor backWall;
  QColor sideWall;
  QColor floor;
  QColor series;
  QColor hovered;
  QColor selected;
  QFont titleFont;
  QFont labelFont;
};

/// Chooses the style for a light or a dark palette.
ChartStyle chartStyle(const QPalette& palette, const QFont& font);

/// The colour of a face of a solid in the base colour: lit from above, its right side in shadow.
QColor shaded(const QColor& base, FaceSide side);

}  // namespace tarvik::ui
