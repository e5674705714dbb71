#pragma once

#include <qcustomplot.h>

#include "ui/chart/chart_axis_labels.h"
#include "ui/chart/chart_content.h"
#include "ui/chart/chart_plottables.h"
#include "ui/chart/chart_shapes.h"
#include "ui/chart/chart_style.h"

namespace tarvik::ui {

/// The height in pixels at which the plot of a chart, what lies between its axes, is at least so high in
/// every type while its labels stand level.
int chartHeightForPlot(int plotHeight, const QFont& font);

/// The surface of a chart: arranges a content on the plotting library and paints it.
///
/// A change only marks the surface; it is arranged and plotted once, when it is next painted or asked about.
/// It counts as plotted when the library has plotted it, not when that was asked of it.
class ChartCanvas : public QCustomPlot {
  Q_OBJECT

 public:
  /// Creates an empty chart that leaves all mouse events to its parent.
  explicit ChartCanvas(QWidget* parent);

  /// Shows the content from the next paint on.
  void show(const ChartContent& content);
  /// The faces of the content shown, in painter's order.
  const QList<ChartFace>& faces();
  /// The row that stands for a row in the picture: itself, or a neighbour in a series too long to draw whole.
  int drawnRow(int row);
  /// The outlines of the texts on both axes, the unit's among them.
  QList<QPolygonF> axisLabelOutlines();
  /// The picture as drawn, `scale` pixels of it for one of the screen.
  QPixmap picture(double scale);
  /// Draws the picture as lines, fills and texts, in the size of the widget, for example for a document.
  void drawOn(QPaintDevice& device);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void markChanged();
  void arrangeIfChanged();
  void arrange();
  void choosePoints();
  ChartFrame arrangedFrame(LabelFit& fit) const;
  AxisTexts placedTexts(const LabelFit& fit, const ChartFrame& frame) const;
  void applyLayout(const ChartFrame& frame);
  void applyAxes(const ChartFrame& frame);
  void applyFlatSeries(const ChartFrame& frame);
  void applyFlatColors(const ChartFrame& frame);

  ChartContent content_;
  QList<int> drawnRows_;
  QList<ChartPoint> points_;
  ChartStyle style_;
  QCPTextElement* title_;
  QCPBars* bars_;
  QCPGraph* graph_;
  ChartWalls* walls_;
  ChartSolids* solids_;
  ChartAxisLabels* labels_;
  bool arranged_ = false;
  bool plotted_ = false;
};

}  // namespace tarvik::ui
