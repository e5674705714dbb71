#pragma once

#include <QStringList>
#include <QWidget>

#include "ui/chart/chart_content.h"

namespace tarvik::ui {

class ChartCanvas;
class OutputFile;

/// A chart of one series of labelled values, drawn as bars, a line or an area, flat or with depth.
///
/// Points are selected by a click on what is drawn of them or by the arrow keys; the one under the mouse
/// stands out and tells its label and value. The context menu copies the picture and saves it. Assistive
/// tools find one accessible child a point.
class ChartView : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString titleText READ titleText WRITE setTitleText)
  Q_PROPERTY(QString unitText READ unitText WRITE setUnitText)
  Q_PROPERTY(int chartType READ chartType WRITE setChartType)
  Q_PROPERTY(QStringList rowLabels READ rowLabels)
  Q_PROPERTY(QStringList rowValues READ rowValues)
  Q_PROPERTY(int selectedRow READ selectedRow)

 public:
  /// Creates a chart without points, of the type 2D bar.
  explicit ChartView(QWidget* parent = nullptr);

  /// The text above the chart.
  QString titleText() const { return content_.title; }
  /// Sets the text above the chart; the points stay as they are.
  void setTitleText(const QString& title);

  /// The unit of the values, written at their axis.
  QString unitText() const { return content_.unit; }
  /// Sets the unit of the values; the points stay as they are.
  void setUnitText(const QString& unit);

  /// The way the series is drawn, one of the numbers of ChartType.
  int chartType() const { return static_cast<int>(content_.type); }
  /// Sets the way the series is drawn; a number that is no type changes nothing.
  void setChartType(int type);

  /// Replaces the series, ends the selection and repaints once. Surplus labels or values are left out; a
  /// value that is not finite is a gap.
  void setPoints(const QStringList& labels, const QList<double>& values);
  /// The number of points, gaps included.
  int rowCount() const { return static_cast<int>(content_.values.size()); }
  /// The labels of the points in their order.
  QStringList rowLabels() const { return content_.labels; }
  /// The values of the points in their order, as plain decimal texts ("20500", "7,63"), empty for a gap.
  QStringList rowValues() const;

  /// The row of the selected point, counted from 1; 0 when none is selected.
  int selectedRow() const { return content_.selectedRow; }
  /// Selects a point as a click on it does; a row without a point changes nothing.
  void selectRow(int row);

  /// The part of the widget where a point is drawn and found by a click: its bar's front or its marker. Null
  /// for a gap and for a row without a point. In a series too long to draw whole the nearest drawn point's.
  QRectF pointRect(int row) const;
  /// The row of the point drawn at a position of the widget, 0 when there is none.
  int rowAtPosition(const QPointF& position) const;
  /// A point's label and value with its unit in one line, for people.
  QString pointText(int row) const;
  /// What the picture shows, in words: the unit, the number of points, the smallest, the largest and the last
  /// value with their labels.
  QString summaryText() const;
  /// The outlines of the texts on both axes, for whoever checks that none covers another.
  QList<QPolygonF> axisLabelOutlines() const;

  /// Copies the picture to the clipboard at twice the screen's resolution.
  void copyPicture() const;
  /// Writes the picture into a file as its name wants it, a PDF document or PNG; false when there is nothing
  /// to be seen of the chart.
  bool writePicture(OutputFile& file) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The person wants the picture saved.
  void pictureWanted();
  /// A point was chosen by a click or a key; the series is always 1, rows count from 1.
  void pointSelected(int series, int row);

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  ChartCanvas& sizedCanvas() const;
  void redraw();
  bool hasPoint(int row) const;
  void setHoveredRow(int row);
  void selectNextFrom(int row, int step);
  void showPointTip(const QPoint& globalPosition);

  ChartContent content_;
  mutable ChartCanvas* canvas_ = nullptr;  // made when it is needed
  int pressedRow_ = 0;
};

}  // namespace tarvik::ui
