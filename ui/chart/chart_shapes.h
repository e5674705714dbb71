#pragma once

#include <QList>
#include <QPolygonF>
#include <QRectF>

#include "ui/chart/chart_content.h"
#include "ui/chart/chart_scale.h"

namespace tarvik::ui {

/// A point of a series that is drawn: its row, counted from 1, and its value; a gap when that is not finite.
struct ChartPoint {
  int row = 0;
  double value = 0;
};

/// Where a series is drawn: turns rows and values into pixels of the chart, y growing downwards. Each of the
/// `rows` rows has the same width, whether it is drawn or left out of a series too long to draw whole.
///
/// The front plane is `front`; what lies behind it by a share z (0 to 1) of the chart's depth is drawn
/// shifted by z times `depth`, which points right and up and is null for the flat types.
struct ChartFrame {
  QRectF front;
  QPointF depth;
  ValueScale scale;
  int rows = 0;
  int drawn = 0;  ///< how many of the rows are drawn

  /// The width that each row has for itself.
  double rowWidth() const;
  /// The width that each drawn row has, on the average.
  double drawnWidth() const;
  /// The middle of a row, counted from 1.
  double x(int row) const;
  /// The height of a value.
  double y(double value) const;
  /// A point of the front plane, moved back by the share z of the depth.
  QPointF at(double frontX, double frontY, double z) const;
};

/// The width in pixels of the bars on a frame.
double barWidth(const ChartFrame& frame);

/// Which way a face looks, by which it is shaded; an edge is a line and not a face, a marker the square
/// around its disc.
enum class FaceSide { Front, Top, Right, Under, Edge, Marker };

/// One visible piece of a drawn series and the row it belongs to, 0 when it belongs to none.
struct ChartFace {
  QPolygonF outline;
  FaceSide side = FaceSide::Front;
  int row = 0;
};

/// Builds the pieces of the points, ascending by row, in painter's order, the farthest first.
QList<ChartFace> chartFaces(ChartType type, const ChartFrame& frame, const QList<ChartPoint>& points);

/// Finds the row drawn at a position, 0 when there is none: the nearest marker there, or else the
/// foremost face.
int rowAt(const QList<ChartFace>& faces, const QPointF& position);

/// Gives the part of a row that nothing hides: its bar's front or its marker; null for a gap.
QRectF rowRect(const QList<ChartFace>& faces, int row);

}  // namespace tarvik::ui
