#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tarvik::ui {

/// The ways a series can be drawn, with the numbers by which the chart type is set.
enum class ChartType { Bars3D = 0, Bars2D = 1, Line3D = 2, Line2D = 3, Area3D = 4, Area2D = 5 };

/// Tells the types drawn as bars.
constexpr bool drawsBars(ChartType type) {
  return type == ChartType::Bars2D || type == ChartType::Bars3D;
}

/// Tells the types drawn as a line.
constexpr bool drawsLine(ChartType type) {
  return type == ChartType::Line2D || type == ChartType::Line3D;
}

/// Tells the types drawn with depth.
constexpr bool drawsDepth(ChartType type) {
  return type == ChartType::Bars3D || type == ChartType::Line3D || type == ChartType::Area3D;
}

/// What a chart shows: its title, the unit of its values, its one series and which of the points stand out.
///
/// Row r, counted from 1, is the label and the value at index r - 1; both lists are equally long. A
/// value that is not finite is a gap: nothing is drawn for it. Row 0 means no point.
struct ChartContent {
  QString title;
  QString unit;
  ChartType type = ChartType::Bars2D;
  QStringList labels;
  QList<double> values;
  int selectedRow = 0;
  int hoveredRow = 0;
};

}  // namespace tarvik::ui
