#pragma once

#include <qcustomplot.h>

#include "ui/chart/chart_shapes.h"
#include "ui/chart/chart_style.h"

namespace tarvik::ui {

/// How the labels of the rows go under the chart: every `every`-th one, turned or level, and the height
/// in pixels that they need.
struct LabelFit {
  int every = 1;
  bool turned = false;
  double height = 0;
  double leftOverhang = 0;
};

/// The height in pixels that labels need while they stand level.
double levelLabelHeight(const QFontMetricsF& metrics);

/// Decides how labels fit the room of `width` pixels without overlapping: all of them level, else all of them
/// turned by 45 degrees while that leaves enough of `chartHeight`, else some of them level.
LabelFit fitLabels(const QStringList& labels, const QFontMetricsF& metrics, double width, double chartHeight);

/// A label with its place: its text is drawn in `box`, which is moved to `anchor` and turned there.
struct PlacedLabel {
  QString text;
  QPointF anchor;
  QRectF box;
  double degrees = 0;
  double tickX = 0;

  /// The corners of the text's box on the chart.
  QPolygonF outline() const;
};

/// Places the labels of the rows below the frame: the first, the last and as many between them as fit. One
/// that would leave the chart is moved inside.
QList<PlacedLabel> placeLabels(const LabelFit& fit, const QStringList& labels, const QFontMetricsF& metrics,
                               const ChartFrame& frame, double chartWidth);

/// What is written at the axes: the rows' labels, and the unit of the values with its place.
struct AxisTexts {
  QList<PlacedLabel> labels;
  QString unit;
  QRectF unitBox;
};

/// Draws the texts at the axes, with a tick for each label, or a quiet remark in an empty chart.
class ChartAxisLabels : public QCPLayerable {
 public:
  /// Creates the labels on the plot's layer of axes.
  explicit ChartAxisLabels(QCustomPlot* plot);

  /// Replaces what is drawn from the next replot on.
  void setTexts(const AxisTexts& texts, const ChartFrame& frame, const ChartStyle& style);
  /// The texts drawn.
  const AxisTexts& texts() const { return texts_; }
  /// The frame below which they are drawn.
  const ChartFrame& frame() const { return frame_; }

 protected:
  void applyDefaultAntialiasingHint(QCPPainter*) const override {}  // sharp, as a painter begins
  void draw(QCPPainter* painter) override;

 private:
  AxisTexts texts_;
  ChartFrame frame_;
  ChartStyle style_;
};

}  // namespace tarvik::ui
