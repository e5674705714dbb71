#pragma once

#include <qcustomplot.h>

#include "ui/chart/chart_shapes.h"
#include "ui/chart/chart_style.h"

namespace tarvik::ui {

/// Draws the back wall, the side wall and the floor of a chart with depth, with the grid on the walls.
class ChartWalls : public QCPLayerable {
 public:
  /// Creates the walls on the plot's layer of grids.
  explicit ChartWalls(QCustomPlot* plot);

  /// Replaces the room that is drawn from the next replot on.
  void setRoom(const ChartFrame& frame, const ChartStyle& style);

 protected:
  void applyDefaultAntialiasingHint(QCPPainter* painter) const override;
  void draw(QCPPainter* painter) override;

 private:
  ChartFrame frame_;
  ChartStyle style_;
};

/// Draws the faces of a series in their order: all of a series with depth; of a flat one, which the library
/// draws, the markers and the bars that stand out.
class ChartSolids : public QCPAbstractPlottable {
 public:
  /// Creates the plottable on two axes of a plot.
  ChartSolids(QCPAxis* keyAxis, QCPAxis* valueAxis);

  /// Replaces what is drawn from the next replot on; the faces are of the content.
  void setSeries(const ChartContent& content, const QList<ChartFace>& faces, const ChartStyle& style);
  /// The faces last set, in painter's order.
  const QList<ChartFace>& faces() const { return faces_; }

  // Asked of a plot that has the mouse, finds its own ranges or has a legend; the chart's does not.
  double selectTest(const QPointF&, bool, QVariant*) const override { return {}; }
  QCPRange getKeyRange(bool&, QCP::SignDomain) const override { return {}; }
  QCPRange getValueRange(bool&, QCP::SignDomain, const QCPRange&) const override { return {}; }

 protected:
  QRect clipRect() const override;
  void draw(QCPPainter* painter) override;
  void drawLegendIcon(QCPPainter*, const QRectF&) const override {}

 private:
  bool standsOut(const ChartFace& face) const;
  bool drawsFace(const ChartFace& face) const;
  QColor rowColor(int row) const;
  void drawFace(QCPPainter& painter, const ChartFace& face) const;
  void drawMarker(QCPPainter& painter, const ChartFace& face) const;

  ChartContent content_;
  QList<ChartFace> faces_;
  ChartStyle style_;
};

}  // namespace tarvik::ui
